#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QStringView>

#include <optional>

namespace {

constexpr qsizetype ElementDigits = 5;
constexpr qsizetype BitDigits = 2;

/// Reads 1 to `maximumDigits` digits from the start and takes them off the text.
std::optional<int> takeNumber(QStringView &text, qsizetype maximumDigits)
{
    int number = 0;
    qsizetype used = 0;
    while (used < text.size() && text[used] >= QLatin1Char('0') && text[used] <= QLatin1Char('9')) {
        if (used == maximumDigits)
            return {};
        number = number * 10 + (text[used].unicode() - u'0');
        ++used;
    }
    if (used == 0)
        return {};
    text = text.sliced(used);
    return number;
}

bool takeCharacter(QStringView &text, char16_t character)
{
    if (!text.startsWith(QChar(character)))
        return false;
    text = text.sliced(1);
    return true;
}

/// The longest start of the text that may be a coordinate: up to the element or the bit.
QStringView takeCoordinate(QStringView &text)
{
    qsizetype end = 0;
    while (end < text.size() && text[end] != QLatin1Char('[') && text[end] != QLatin1Char(':'))
        ++end;
    const QStringView coordinate = text.first(end);
    text = text.sliced(end);
    return coordinate;
}

/// address = [axis "."] coordinate ["[" element "]"] [":" bit]
/// axis = "1" to "4"; element = 1 to 5 digits, up to 16383; bit = 1 or 2 digits, up to 63
ParameterAddress addressOf(QStringView text, bool axisPrefix)
{
    ParameterAddress address;
    if (axisPrefix && text.size() >= 2 && text[1] == QLatin1Char('.')) {
        const int axis = text[0].unicode() - u'1';
        if (axis < 0 || axis > ParameterAddress::LastAxis)
            return {};
        address.setAxis(quint8(axis));
        text = text.sliced(2);
    }

    address.setCoordinate(ParameterCoordinate(takeCoordinate(text)));
    if (takeCharacter(text, u'[')) {
        const std::optional<int> element = takeNumber(text, ElementDigits);
        if (!element || *element > ParameterAddress::LastElement || !takeCharacter(text, u']'))
            return {};
        address.setElement(quint16(*element));
    }
    if (takeCharacter(text, u':')) {
        const std::optional<int> bit = takeNumber(text, BitDigits);
        if (!bit)
            return {};
        address.setBit(*bit);
    }
    return text.isEmpty() && address.isValid() ? address : ParameterAddress();
}

void appendNumber(QString &text, int number, qsizetype digits = 1)
{
    const QString decimal = QString::number(number);
    for (qsizetype missing = digits - decimal.size(); missing > 0; --missing)
        text.append(QLatin1Char('0'));
    text.append(decimal);
}

} // namespace

ParameterAddress::ParameterAddress(quint32 number) noexcept
    : m_coordinate(quint16(number & 0xFFFF))
    , m_element(quint16((number >> ElementShift) & LastElement))
    , m_axis(quint8(number >> AxisShift))
{
    if (!m_coordinate.isValid())
        *this = ParameterAddress();
}

ParameterAddress::ParameterAddress(
    quint8 axis, const ParameterCoordinate &coordinate, quint16 element) noexcept
    : m_coordinate(coordinate)
    , m_element(element)
    , m_axis(axis)
{
}

ParameterAddress::ParameterAddress(const QString &text, bool axisPrefix)
    : ParameterAddress(addressOf(text, axisPrefix))
{
}

QString ParameterAddress::toText(bool isGlobal, bool withElement) const
{
    if (!isValid())
        return {};

    QString text;
    text.reserve(16);
    if (!isGlobal) {
        appendNumber(text, m_axis + 1);
        text.append(QLatin1Char('.'));
    }
    text.append(m_coordinate.toText());
    if (withElement) {
        text.append(QLatin1Char('['));
        appendNumber(text, m_element);
        text.append(QLatin1Char(']'));
    }
    if (hasBit()) {
        text.append(QLatin1Char(':'));
        appendNumber(text, m_bit);
    }
    return text;
}

QString ParameterAddress::toSortableText() const
{
    if (!isValid())
        return {};

    QString text;
    text.reserve(16);
    appendNumber(text, m_axis + 1);
    text.append(QLatin1Char('.'));
    text.append(m_coordinate.toSortableText());
    text.append(QLatin1Char('['));
    appendNumber(text, m_element, ElementDigits);
    text.append(QLatin1Char(']'));
    if (hasBit()) {
        text.append(QLatin1Char(':'));
        appendNumber(text, m_bit, BitDigits);
    }
    return text;
}

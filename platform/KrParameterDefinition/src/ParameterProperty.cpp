#include <KrParameterDefinition/ParameterProperty.h>

#include <KrMultilingual/ParameterText.h>

#include <QtCore/QStringList>
#include <QtCore/QVarLengthArray>
#include <QtCore/QVariantList>

#include <charconv>
#include <cmath>
#include <concepts>
#include <limits>
#include <optional>
#include <utility>

namespace {

/// Longest text read as a number: a finite double written out in full needs fewer characters.
constexpr qsizetype LongestNumber = 1100;
/// Whole numbers below this magnitude are written without an exponent; doubles hold them exactly.
constexpr double WrittenOutBound = 1e15;

template <typename Value>
const Value &held(const QVariant &value)
{
    return *static_cast<const Value *>(value.constData());
}

/// Calls `use` with the number or text that the variant holds, in its own type, nothing for others.
template <typename Result, typename Use>
Result visitScalar(const QVariant &value, Use use)
{
    switch (value.typeId()) {
    case QMetaType::Int:
        return use(held<int>(value));
    case QMetaType::UInt:
        return use(held<uint>(value));
    case QMetaType::Double:
        return use(held<double>(value));
    case QMetaType::QString:
        return use(QStringView(held<QString>(value)));
    case QMetaType::Bool:
        return use(int(held<bool>(value)));
    case QMetaType::LongLong:
        return use(held<qlonglong>(value));
    case QMetaType::ULongLong:
        return use(held<qulonglong>(value));
    case QMetaType::Float:
        return use(held<float>(value));
    case QMetaType::Long:
        return use(qlonglong(held<long>(value)));
    case QMetaType::ULong:
        return use(qulonglong(held<ulong>(value)));
    case QMetaType::Short:
        return use(int(held<short>(value)));
    case QMetaType::UShort:
        return use(int(held<ushort>(value)));
    case QMetaType::Char:
        return use(int(held<char>(value)));
    case QMetaType::SChar:
        return use(int(held<signed char>(value)));
    case QMetaType::UChar:
        return use(int(held<uchar>(value)));
    default:
        return Result();
    }
}

template <typename Number>
std::optional<Number> parsed(QStringView text)
{
    if (text.isEmpty() || text.size() > LongestNumber)
        return {};
    QVarLengthArray<char, 32> ascii;
    ascii.reserve(text.size());
    for (const QChar c : text)
        ascii.append(c.unicode() < 0x80 ? char(c.unicode()) : '\0');

    Number number {};
    const char *end = ascii.constData() + ascii.size();
    const auto [stop, error] = std::from_chars(ascii.constData(), end, number);
    if (error != std::errc() || stop != end)
        return {};
    return number;
}

/// nullopt for what is no number of the wanted type.
template <std::integral Wanted>
std::optional<Wanted> integerOf(const QVariant &value)
{
    return visitScalar<std::optional<Wanted>>(value, [](auto number) -> std::optional<Wanted> {
        using Held = decltype(number);
        if constexpr (std::is_same_v<Held, QStringView>) {
            return parsed<Wanted>(number);
        } else if constexpr (std::floating_point<Held>) {
            // The wanted types are narrow, so that a double holds both ends of their range.
            static_assert(sizeof(Wanted) <= 4);
            const double wide = number;
            const bool isInRange = wide >= double(std::numeric_limits<Wanted>::min())
                && wide <= double(std::numeric_limits<Wanted>::max());
            if (!isInRange || wide != std::trunc(wide))
                return {};
            return Wanted(wide);
        } else {
            if (!std::in_range<Wanted>(number))
                return {};
            return Wanted(number);
        }
    });
}

template <std::floating_point Wanted>
Wanted floatingOf(const QVariant &value)
{
    return visitScalar<Wanted>(value, [](auto number) -> Wanted {
        using Held = decltype(number);
        if constexpr (std::is_same_v<Held, QStringView>) {
            const Wanted read = parsed<Wanted>(number).value_or(Wanted(0));
            return std::isfinite(read) ? read : Wanted(0);
        } else if constexpr (std::floating_point<Held>) {
            const double wide = number;
            // False for infinities and for NaN too.
            const bool isInRange = std::abs(wide) <= double(std::numeric_limits<Wanted>::max());
            return isInRange ? Wanted(number) : Wanted(0);
        } else {
            return Wanted(number);
        }
    });
}

template <std::floating_point Held>
QString textOf(Held number)
{
    if (!std::isfinite(number))
        return {};
    if (std::abs(number) < Held(WrittenOutBound) && number == std::trunc(number))
        return QString::number(qlonglong(number));

    char text[64];
    const auto end = std::to_chars(text, text + sizeof text, number).ptr;
    return QString::fromLatin1(text, end - text);
}

QStringList textsOf(const QVariantList &values)
{
    QStringList texts;
    texts.reserve(values.size());
    for (const QVariant &value : values)
        texts.append(ParameterProperty(value).asString());
    return texts;
}

QStringList textsOf(const QList<quint16> &numbers)
{
    QStringList texts;
    texts.reserve(numbers.size());
    for (const quint16 number : numbers)
        texts.append(QString::number(number));
    return texts;
}

/// The less frequent types: lists and everything else that converts to a text.
QString convertedText(const QVariant &value)
{
    constexpr QChar separator = u';';
    if (value.typeId() == QMetaType::QVariantList)
        return textsOf(held<QVariantList>(value)).join(separator);
    if (value.typeId() == QMetaType::QStringList)
        return held<QStringList>(value).join(separator);
    if (value.metaType() == QMetaType::fromType<QList<quint16>>())
        return textsOf(held<QList<quint16>>(value)).join(separator);
    return value.toString();
}

/// Entries that do not convert stay as 0, so that the others keep their places.
template <typename Entries>
QList<quint16> uint16ListOf(const Entries &entries)
{
    QList<quint16> numbers;
    numbers.reserve(entries.size());
    for (const auto &entry : entries)
        numbers.append(integerOf<quint16>(entry).value_or(0));
    return numbers;
}

} // namespace

QString ParameterProperty::asString() const
{
    if (m_value.typeId() == QMetaType::QString)
        return held<QString>(m_value);
    if (m_value.metaType() == QMetaType::fromType<ParameterText>())
        return held<ParameterText>(m_value).longText();

    const auto text =
        visitScalar<std::optional<QString>>(m_value, [](auto number) -> std::optional<QString> {
            using Held = decltype(number);
            if constexpr (std::is_same_v<Held, QStringView>)
                return number.toString();
            else if constexpr (std::floating_point<Held>)
                return textOf(number);
            else
                return QString::number(number);
        });
    return text ? *text : convertedText(m_value);
}

quint16 ParameterProperty::asUint16() const
{
    return integerOf<quint16>(m_value).value_or(0);
}

quint32 ParameterProperty::asUint32() const
{
    return integerOf<quint32>(m_value).value_or(0);
}

qint32 ParameterProperty::asInt32() const
{
    return integerOf<qint32>(m_value).value_or(0);
}

float ParameterProperty::asFloat() const
{
    return floatingOf<float>(m_value);
}

double ParameterProperty::asDouble() const
{
    return floatingOf<double>(m_value);
}

QList<quint16> ParameterProperty::asUint16List() const
{
    if (m_value.metaType() == QMetaType::fromType<QList<quint16>>())
        return held<QList<quint16>>(m_value);
    if (m_value.typeId() == QMetaType::QVariantList)
        return uint16ListOf(held<QVariantList>(m_value));
    if (m_value.typeId() == QMetaType::QStringList)
        return uint16ListOf(held<QStringList>(m_value));

    const std::optional<quint16> number = integerOf<quint16>(m_value);
    return number ? QList<quint16> {*number} : QList<quint16>();
}

#include "apps/online/ContainerValues.h"

#include "apps/online/RegisterBytes.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <LmUtilities/ByteArraySupport.h>

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

constexpr bool BigEndian = true;
constexpr bool FromDevice = true;

bool areSameNumbers(const QString &a, const QString &b)
{
    bool isFirstNumber = false;
    bool isSecondNumber = false;
    const double first = a.toDouble(&isFirstNumber);
    const double second = b.toDouble(&isSecondNumber);
    const bool areEqual = first == second || (std::isnan(first) && std::isnan(second));
    return isFirstNumber && isSecondNumber && areEqual;
}

bool isInteger(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger || type.kind() == SimpleType::UnsignedInteger;
}

/// Their native texts are what the bytes say, letter for letter.
bool hasPlainText(const SimpleType &type)
{
    return isInteger(type) || type.kind() == SimpleType::CharacterString;
}

enum class eSign { Plus, Minus };

/// Straight into the letters of a text: there are thousands of them.
QString integerText(eSign sign, quint64 magnitude)
{
    // A sign and the 20 digits of the greatest number.
    std::array<char16_t, 21> text;
    auto first = text.end();
    do {
        *--first = char16_t(u'0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (sign == eSign::Minus)
        *--first = u'-';
    return QStringView(first, text.end()).toString();
}

QString integerText(const SimpleType &type, const QByteArray &bytes)
{
    quint64 number = 0;
    for (const char byte : bytes)
        number = number << 8 | quint8(byte);
    const int unused = 64 - 8 * int(type.sizeInBytes());
    const qint64 extended = qint64(number << unused) >> unused;
    if (type.kind() == SimpleType::UnsignedInteger || extended >= 0)
        return integerText(eSign::Plus, number);
    return integerText(eSign::Minus, 0 - quint64(extended));
}

/// The shortest text that reads back as the same number.
template <typename Number>
QString realText(Number number)
{
    std::array<char, 32> text;
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

QString realText(const QByteArray &bytes)
{
    using namespace LmByteArraySupport;
    const ByteArraySupport support(eByteOrder::BigEndian, bytes);
    return bytes.size() == sizeof(float) ? realText(support.toFloat())
                                         : realText(support.toDouble());
}

QString textFrom(const SimpleType &type, const QByteArray &bytes)
{
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        return integerText(type, bytes);
    case SimpleType::FloatingPoint:
        return realText(bytes);
    case SimpleType::CharacterString:
        return QString::fromLatin1(bytes.constData(), qstrnlen(bytes.constData(), bytes.size()));
    case SimpleType::ByteString:
        return QString::fromLatin1(bytes.toHex());
    }
    return {};
}

} // namespace

ContainerValues::ContainerValues(ParameterContainer &container)
    : m_container(container)
{
    // Told before the next one.
    connect(
        &container, &ParameterProvider::parameterValueChanged, this, [this] { beginTelling(); });
    connect(&container, &ParameterProvider::parameterNativeValueChanged, this,
        &ContainerValues::onChanged);
}

QString ContainerValues::textOf(const MappedValue &value, const QByteArray &bytes)
{
    return textFrom(*value.type, bytes);
}

QString ContainerValues::nativeText(const MappedValue &value) const
{
    return nativeText(value.place);
}

QString ContainerValues::nativeText(const ValuePlace &place) const
{
    return m_container.readValueNative(place.livingSpace, place.coordinate, place.element, false);
}

bool ContainerValues::holds(const MappedValue &value) const
{
    const ParameterSetup *parameter = parameterAt(value.place.coordinate);
    // Every element that is there has this property.
    return parameter
        && parameter->hasElementProperty(
            value.place.element, eParameterProperty::IsSimpleParameter);
}

QList<quint16> ContainerValues::registers(const MappedValue &value) const
{
    const QByteArray bytes = m_container.nativeValueBinary(value.address, BigEndian);
    if (bytes.size() != qsizetype(value.type->sizeInBytes()))
        return {};
    return RegisterBytes::fromBytes(bytes, *value.type);
}

// A connection that is made now is served behind all others. Of what changes within another value's
// adoption that one hears.
std::array<QMetaObject::Connection, 2> ContainerValues::hearLast(const Adoption &adoption)
{
    return {connect(&m_container, &ParameterProvider::parameterValueChanged, this,
                [this, &adoption] {
                    if (m_adoption == &adoption)
                        endTelling();
                }),
        connect(&m_container, &ParameterProvider::parameterNativeValueChanged, this,
            [this, &adoption](const ParameterAddress &changed) {
                if (m_adoption == &adoption)
                    onAllTold(changed);
            })};
}

ContainerValues::Adopted ContainerValues::adopt(
    const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard)
{
    Adoption adoption {
        value.place, value.address, value.type, textOf(value, bytes), value.leadsToFunctions};
    const QString before = hasPlainText(*value.type) ? QString() : nativeText(value.place);
    std::array<QMetaObject::Connection, 2> last;
    if (value.leadsToFunctions)
        last = hearLast(adoption);
    // A listener may have the next value of the drive stored.
    Adoption *const outer = std::exchange(m_adoption, &adoption);
    store(adoption, bytes);
    if (!guard)
        return {};
    m_adoption = outer;
    for (const QMetaObject::Connection &connection : last)
        disconnect(connection);
    if (adoption.changes == 0)
        return {false, before.isNull() ? adoption.text : before};
    if (adoption.changes == 1 && hasPlainText(*adoption.type))
        return {true, std::move(adoption.text)};
    const QString now = nativeText(adoption.place);
    if (!isSame(*adoption.type, adoption.text, now))
        return {true, std::move(adoption.text)};
    // "1.50" that became "1.5" is no news.
    return {before.isNull() || !isSame(*adoption.type, before, now), now};
}

bool ContainerValues::isSame(const MappedValue &value, const QString &sent, const QString &kept)
{
    return isSame(*value.type, sent, kept);
}

bool ContainerValues::isSame(const SimpleType &type, const QString &sent, const QString &kept)
{
    if (sent == kept)
        return true;
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        // Two large integers may be the same double.
        return type.sizeInBytes() < sizeof(double) && areSameNumbers(sent, kept);
    case SimpleType::FloatingPoint:
        return areSameNumbers(sent, kept);
    case SimpleType::CharacterString:
        return false;
    case SimpleType::ByteString:
        return kept.startsWith(sent, Qt::CaseInsensitive)
            && kept.count(u'0') - kept.first(sent.size()).count(u'0') == kept.size() - sent.size();
    }
    return false;
}

// Most of what a drive has takes the shorter of two ways that lead to the same.
void ContainerValues::store(const Adoption &adoption, const QByteArray &bytes)
{
    if (!hasPlainText(*adoption.type)) {
        m_container.setNativeValueBinary(adoption.address, bytes, BigEndian, FromDevice);
        return;
    }
    const ValuePlace &place = adoption.place;
    if (ParameterSetup *parameter = parameterAt(place.coordinate))
        parameter->setOnlineValueText(place.livingSpace, place.element, adoption.text);
}

ParameterSetup *ContainerValues::parameterAt(const ParameterCoordinate &coordinate) const
{
    if (!m_parameter || m_coordinate != coordinate) {
        m_parameter = m_container.parameterSetup(coordinate);
        m_coordinate = coordinate;
    }
    return m_parameter;
}

void ContainerValues::onChanged(const ParameterAddress &address)
{
    // While listeners are told of a function's change, it is they who write.
    const bool isByFunction =
        m_adoption && m_adoption->areListenersThrough && m_adoption->tellings == 0;
    beginTelling();
    if (isAdoption(address))
        return;
    if (isByFunction)
        Q_EMIT changedByFunction(address);
    else
        Q_EMIT changedHere(address);
}

bool ContainerValues::isAdoption(const ParameterAddress &address)
{
    if (!m_adoption || m_adoption->address != address)
        return false;
    ++m_adoption->changes;
    // Who has written over it before this was told is told of again.
    const bool isFirst = m_adoption->changes == 1 && !m_adoption->leadsToFunctions;
    return isFirst || hasWhatIsAdopted();
}

void ContainerValues::onAllTold(const ParameterAddress &address)
{
    endTelling();
    if (m_adoption->address == address && hasWhatIsAdopted())
        m_adoption->areListenersThrough = true;
}

void ContainerValues::beginTelling()
{
    if (m_adoption && m_adoption->areListenersThrough)
        ++m_adoption->tellings;
}

void ContainerValues::endTelling()
{
    if (m_adoption->areListenersThrough)
        --m_adoption->tellings;
}

bool ContainerValues::hasWhatIsAdopted() const
{
    return isSame(*m_adoption->type, m_adoption->text, nativeText(m_adoption->place));
}

#include "apps/online/ContainerValues.h"

#include "apps/online/MappedValue.h"
#include "apps/online/RegisterBytes.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

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
    return isFirstNumber && isSecondNumber && first == second;
}

bool isInteger(const SimpleType &type)
{
    return type.kind() == SimpleType::SignedInteger || type.kind() == SimpleType::UnsignedInteger;
}

QString integerText(const SimpleType &type, const QByteArray &bytes)
{
    quint64 number = 0;
    for (const char byte : bytes)
        number = number << 8 | quint8(byte);
    if (type.kind() == SimpleType::UnsignedInteger)
        return QString::number(number);
    const int unused = 64 - 8 * int(type.sizeInBytes());
    return QString::number(qint64(number << unused) >> unused);
}

} // namespace

ContainerValues::ContainerValues(ParameterContainer &container)
    : m_container(container)
{
    connect(&container, &ParameterProvider::parameterNativeValueChanged, this,
        &ContainerValues::onChanged);
}

QString ContainerValues::nativeText(const MappedValue &value) const
{
    const ValuePlace &place = value.place;
    return m_container.readValueNative(place.livingSpace, place.coordinate, place.element, false);
}

QList<quint16> ContainerValues::registers(const MappedValue &value) const
{
    const QByteArray bytes = m_container.nativeValueBinary(value.address, BigEndian);
    if (bytes.size() != qsizetype(value.type->sizeInBytes()))
        return {};
    return RegisterBytes::fromBytes(bytes, *value.type);
}

bool ContainerValues::adopt(
    const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard)
{
    // A listener may have the next value of the drive stored.
    const ParameterAddress outer = std::exchange(m_adopted, value.address);
    m_hasChanged = false;
    const bool hasChanged = isInteger(*value.type) ? adoptInteger(value, bytes, guard)
                                                   : adoptOther(value, bytes, guard);
    if (guard)
        m_adopted = outer;
    return hasChanged;
}

bool ContainerValues::isSame(const MappedValue &value, const QString &sent, const QString &kept)
{
    if (sent == kept)
        return true;
    switch (value.type->kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        // Two large integers may be the same double.
        return value.type->sizeInBytes() < sizeof(double) && areSameNumbers(sent, kept);
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

// Most of what a drive has are integers; they take the shorter of two ways that lead to the same.
bool ContainerValues::adoptInteger(
    const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard)
{
    const ValuePlace &place = value.place;
    if (!m_parameter || m_coordinate != place.coordinate) {
        m_parameter = m_container.parameterSetup(place.coordinate);
        m_coordinate = place.coordinate;
    }
    if (!m_parameter)
        return false;
    m_parameter->setOnlineValueText(
        place.livingSpace, place.element, integerText(*value.type, bytes));
    return guard && m_hasChanged;
}

bool ContainerValues::adoptOther(
    const MappedValue &value, const QByteArray &bytes, const QPointer<QObject> &guard)
{
    // A listener may end the run, and the map that has the value with it.
    const MappedValue copy = value;
    const QString before = nativeText(copy);
    m_container.setNativeValueBinary(copy.address, bytes, BigEndian, FromDevice);
    // "1.50" that became "1.5" is no news.
    return guard && m_hasChanged && !isSame(copy, before, nativeText(copy));
}

void ContainerValues::onChanged(const ParameterAddress &address)
{
    if (!m_adopted.isValid())
        Q_EMIT changedHere(address);
    else if (m_adopted == address)
        m_hasChanged = true;
}

#include "apps/online/ContainerValues.h"

#include "apps/online/MappedValue.h"
#include "apps/online/RegisterBytes.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QPointer>

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

bool ContainerValues::adopt(const MappedValue &value, const QByteArray &bytes)
{
    // A listener may ask for the next value of the drive to be stored, or end all this.
    const QPointer<ContainerValues> guard(this);
    const ParameterAddress outer = std::exchange(m_adopted, value.address);
    m_hasChanged = false;
    m_container.setNativeValueBinary(value.address, bytes, BigEndian, FromDevice);
    if (!guard)
        return true;
    m_adopted = outer;
    return m_hasChanged;
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

void ContainerValues::onChanged(const ParameterAddress &address)
{
    if (!m_adopted.isValid())
        Q_EMIT changedHere(address);
    else if (m_adopted == address)
        m_hasChanged = true;
}

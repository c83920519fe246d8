#include "apps/online/ContainerValues.h"

#include "apps/online/CarriedValue.h"
#include "apps/online/RegisterBytes.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <utility>

namespace {

constexpr bool BigEndian = true;

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
    return CarriedValue::textOf(*value.type, bytes);
}

QString ContainerValues::nativeText(const MappedValue &value) const
{
    return nativeText(value.place);
}

QString ContainerValues::nativeText(const ValuePlace &place) const
{
    const ParameterSetup *parameter = parameterAt(place.coordinate);
    return parameter ? parameter->nativeValueText(place.livingSpace, place.element, false)
                     : QString();
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
    const QString before =
        CarriedValue::hasPlainText(*value.type) ? QString() : nativeText(value.place);
    std::array<QMetaObject::Connection, 2> last;
    if (value.leadsToFunctions)
        last = hearLast(adoption);
    // A listener may have the next value of the drive stored.
    Adoption *const outer = std::exchange(m_adoption, &adoption);
    store(adoption);
    if (!guard)
        return {};
    m_adoption = outer;
    for (const QMetaObject::Connection &connection : last)
        disconnect(connection);
    if (adoption.changes == 0)
        return {false, before.isNull() ? adoption.text : before};
    if (adoption.changes == 1 && CarriedValue::hasPlainText(*adoption.type))
        return {true, std::move(adoption.text)};
    const QString now = adoption.changes == 1 && !adoption.leadsToFunctions
        ? adoption.text
        : nativeText(adoption.place);
    if (!CarriedValue::isSame(*adoption.type, adoption.text, now))
        return {true, std::move(adoption.text)};
    // "1.50" that became "1.5" is no news.
    return {before.isNull() || !CarriedValue::isSame(*adoption.type, before, now), now};
}

bool ContainerValues::isSame(const MappedValue &value, const QString &sent, const QString &kept)
{
    return CarriedValue::isSame(*value.type, sent, kept);
}

// The container would make the same text of the bytes.
void ContainerValues::store(const Adoption &adoption)
{
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
    return CarriedValue::isSame(*m_adoption->type, m_adoption->text, nativeText(m_adoption->place));
}

#include "apps/online/RegisterMap.h"

#include "apps/online/RegisterBytes.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>

namespace {

/// "KRPM".
constexpr quint16 Signature[] = {0x4B52, 0x504D};

/// FNV-1a, 32 bits.
class Checksum {
public:
    void add(quint32 number, int byteCount)
    {
        for (int i = byteCount - 1; i >= 0; --i)
            m_sum = (m_sum ^ (number >> (8 * i) & 0xFF)) * 16777619U;
    }
    quint32 sum() const { return m_sum; }

private:
    quint32 m_sum = 2166136261U;
};

/// All elements of a simple parameter share one definition, also those that are not there now.
ParameterProperty property(
    const ParameterInformation &parameter, quint16 element, eParameterProperty number)
{
    return parameter.elementProperty(parameter.isRecordParameter() ? element : 0, number);
}

const SimpleType *typeOf(const ParameterInformation &parameter, quint16 element)
{
    const quint32 id = property(parameter, element, eParameterProperty::Datatype).asUint32();
    return DatatypeProvider::instance()->simpleType(quint8(id));
}

std::chrono::milliseconds duration(const ParameterProperty &property)
{
    return std::chrono::milliseconds(property.asUint32());
}

MappedValue mappedValue(const ParameterInformation &parameter, const ValuePlace &place)
{
    using P = eParameterProperty;
    const auto of = [&](P number) { return property(parameter, place.element, number); };
    MappedValue value;
    value.place = place;
    value.address = parameter.address(place.livingSpace, place.element);
    // Element 1 is not to be taken for the parameter where the project has but one.
    const bool isCutOff =
        !parameter.isRecordParameter() && place.element >= parameter.elementCount();
    value.isOneOfSeveral =
        isCutOff || parameter.isRecordParameter() || parameter.elementCount() > 1;
    value.onlineOrder = of(P::OnlineOrder).asUint32();
    value.isStored = of(P::MemoryAllocation).asInt32() == 0;
    value.isReadOnly = of(P::NoWrite).asInt32() != 0;
    value.leadsRecord = place.element == 0 && parameter.isRecordParameter();
    value.leadsToFunctions = of(P::PostwriteDependency).asInt32() != 0
        || of(P::PrereadDependency).asInt32() != 0 || of(P::PostreadDependency).asInt32() != 0
        || of(P::PrewriteDependency).asInt32() != 0;
    value.additionalReadTime = duration(of(P::AdditionalReadTimeout));
    value.additionalWriteTime = duration(of(P::AdditionalWriteTimeout));
    value.cyclicInterval = duration(of(P::CyclicOnlineUpdateRate));
    return value;
}

/// As the definition has them, whatever a project made of their count; those that only this
/// container has come behind.
QList<quint16> elementsOf(const ParameterInformation &parameter)
{
    if (parameter.isRecordParameter())
        return parameter.elementList();
    QList<quint16> elements;
    const int count = std::max(parameter.definedElementCount(), parameter.elementCount());
    for (int i = 0; i < count; ++i)
        elements.append(quint16(i));
    return elements;
}

} // namespace

RegisterMap::RegisterMap(ParameterContainer &container)
    : m_familyIdentifier(container.deviceFamilyIdentifier())
{
    QList<ParameterCoordinate> coordinates = container.parameterList();
    std::sort(coordinates.begin(), coordinates.end());
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates))
        add(container, coordinate);
    std::stable_sort(m_values.begin(), m_values.end(),
        [](const MappedValue &a, const MappedValue &b) { return a.span.unit < b.span.unit; });
    m_indexes.reserve(m_values.size());
    for (qsizetype i = 0; i < m_values.size(); ++i)
        m_indexes.insert(m_values.at(i).address, i);
}

QString RegisterMap::reasonText(eRefusal reason)
{
    switch (reason) {
    case eRefusal::UnknownType:
        return tr("der Datentyp ist unbekannt");
    case eRefusal::TooLong:
        return tr("der Wert ist länger als die %1 Register, die eine Anfrage schreibt")
            .arg(LongestValue);
    case eRefusal::NoRoom:
        return tr("er läge hinter dem letzten der %1 Register").arg(UnitSize);
    case eRefusal::NotInDefinition:
        return tr("das Gerät hat dieses Element nicht");
    }
    return {};
}

qsizetype RegisterMap::indexOf(const ParameterAddress &address) const
{
    return m_indexes.value(address, -1);
}

qsizetype RegisterMap::firstAt(quint8 unit, int registerNumber) const
{
    const auto found =
        std::partition_point(m_values.begin(), m_values.end(), [=](const MappedValue &value) {
            return value.span.unit < unit
                || (value.span.unit == unit && value.span.end() <= registerNumber);
        });
    return found - m_values.begin();
}

std::pair<qsizetype, qsizetype> RegisterMap::positionsOf(
    const ParameterCoordinate &coordinate, eLivingSpace livingSpace) const
{
    const auto key = [](const MappedValue &value) {
        return std::pair(value.span.unit, value.place.coordinate);
    };
    const std::pair wanted(unitOf(livingSpace), coordinate);
    const auto first = std::partition_point(m_values.begin(), m_values.end(),
        [&](const MappedValue &value) { return key(value) < wanted; });
    const auto end = std::partition_point(
        first, m_values.end(), [&](const MappedValue &value) { return key(value) == wanted; });
    return {first - m_values.begin(), end - m_values.begin() - 1};
}

const RegisterMap::Refusal *RegisterMap::refusalOf(const ParameterAddress &address) const
{
    const auto found = m_refusalIndexes.constFind(address);
    return found == m_refusalIndexes.cend() ? nullptr : &m_refusals.at(*found);
}

QList<quint8> RegisterMap::units() const
{
    QList<quint8> units = m_ends.keys();
    std::sort(units.begin(), units.end());
    return units;
}

QList<quint16> RegisterMap::header(quint8 unit) const
{
    Checksum checksum;
    quint32 count = 0;
    for (qsizetype i = firstAt(unit, 0); i < m_values.size(); ++i) {
        const MappedValue &value = m_values.at(i);
        if (value.span.unit != unit)
            break;
        checksum.add(value.address.toNumber(), 4);
        checksum.add(value.span.first, 2);
        checksum.add(value.type->id(), 1);
        ++count;
    }
    const auto high = [](quint32 number) { return quint16(number >> 16); };
    const auto low = [](quint32 number) { return quint16(number); };
    QList<quint16> registers {Signature[0], Signature[1], LayoutVersion,
        quint16(livingSpaceOf(unit)), high(m_familyIdentifier), low(m_familyIdentifier),
        high(count), low(count), high(checksum.sum()), low(checksum.sum())};
    registers.resize(HeaderSize);
    return registers;
}

void RegisterMap::add(ParameterContainer &container, const ParameterCoordinate &coordinate)
{
    const QPointer<ParameterInformation> parameter = container.parameterInformation(coordinate);
    if (!parameter)
        return;
    const QList<quint16> elements = elementsOf(*parameter);
    for (const eLivingSpace livingSpace : parameter->livingSpaces()) {
        for (const quint16 element : elements) {
            const ValuePlace place {coordinate, livingSpace, element};
            if (const std::optional<eRefusal> reason = assign(*parameter, place)) {
                m_refusalIndexes.insert(
                    parameter->address(livingSpace, element), m_refusals.size());
                m_refusals.append({place, place.addressText(*parameter), *reason,
                    mappedValue(*parameter, place).isSetting()});
            }
        }
    }
}

std::optional<RegisterMap::eRefusal> RegisterMap::assign(
    const ParameterInformation &parameter, const ValuePlace &place)
{
    if (!parameter.isRecordParameter() && place.element >= parameter.definedElementCount())
        return eRefusal::NotInDefinition;
    const SimpleType *type = typeOf(parameter, place.element);
    if (!type)
        return eRefusal::UnknownType;
    const quint16 count = RegisterBytes::registerCount(*type);
    if (count > LongestValue)
        return eRefusal::TooLong;
    const quint8 unit = unitOf(place.livingSpace);
    const int first = m_ends.value(unit, HeaderSize);
    if (first + count > UnitSize)
        return eRefusal::NoRoom;
    MappedValue value = mappedValue(parameter, place);
    value.type = type;
    value.span = {unit, quint16(first), count};
    m_values.append(value);
    m_ends.insert(unit, first + count);
    return {};
}

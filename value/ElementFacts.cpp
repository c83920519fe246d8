#include "value/ElementFacts.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterDefinition/IParameterElementInformation.h>

#include <QtCore/QHash>

#include <limits>

namespace {

/// In the order of m_functions: the numbers 0 to 4 are their own places.
constexpr size_t LimitPlace = 5;
constexpr size_t ScalingPlace = 6;

constexpr std::array<eParameterProperty, 7> FunctionProperties {
    eParameterProperty::PrereadFunctionIndex, eParameterProperty::PrewriteFunctionIndex,
    eParameterProperty::PostwriteFunctionIndex, eParameterProperty::PostreadFunctionIndex,
    eParameterProperty::HidingFunctionIndex, eParameterProperty::LimitFunctionIndex,
    eParameterProperty::ScalingFunctionIndex};

constexpr std::array<eParameterProperty, 3> UnitProperties {eParameterProperty::ScaledMeasuringUnit,
    eParameterProperty::NativeMeasuringUnit, eParameterProperty::FieldbusMeasuringUnit};

using Pool = QHash<const IParameterElementInformation *, std::weak_ptr<const ElementFacts>>;

/// Present and not 0, whatever the type of the number.
bool isSet(const ParameterProperty &property)
{
    return property.asDouble() != 0.0;
}

/// Never destroyed: containers may outlive the end of main().
Pool &pool()
{
    static auto *const shared = new Pool;
    return *shared;
}

} // namespace

ElementFacts::ElementFacts(const Reader &read)
{
    for (quint32 number = 0; number < DefinitionPropertyEnd; ++number)
        m_present[number] = read(eParameterProperty(number)).isValid();

    datatype = quint8(read(eParameterProperty::Datatype).asUint32());
    type = DatatypeProvider::instance()->simpleType(datatype);
    scalingFactor = double(read(eParameterProperty::ScalingFactor).asFloat());
    editStartStepSize = double(read(eParameterProperty::EditStartStepSize).asFloat());
    lowerLimit = read(eParameterProperty::LowerLimitValue).asString();
    upperLimit = read(eParameterProperty::UpperLimitValue).asString();
    fullScaleValue = read(eParameterProperty::FullScaleValue).asUint32();
    kind = read(eParameterProperty::ParameterKind).asInt32();
    decimalPlacesBehind = read(eParameterProperty::DecimalPlacesBehind).asInt32();
    decimalPlacesSignificant = read(eParameterProperty::DecimalPlacesSignificant).asUint32();
    memoryAllocation = read(eParameterProperty::MemoryAllocation).asInt32();
    readLevel = read(eParameterProperty::ReadLevel).asUint32();
    isNeverWritten = isSet(read(eParameterProperty::NoWrite));
    isShownOffline = isSet(read(eParameterProperty::ShownOffline));

    // As 64 bits: read as 32, a larger number would pass for its lower half.
    const qint64 level =
        read(eParameterProperty::WriteLevel).asVariant().toLongLong(&isWriteLevelUsable);
    isWriteLevelUsable =
        isWriteLevelUsable && level >= 0 && level <= std::numeric_limits<qint32>::max();
    writeLevel = isWriteLevelUsable ? qint32(level) : 0;

    for (size_t i = 0; i < m_functions.size(); ++i)
        m_functions[i] = read(FunctionProperties[i]).asUint16();
    for (size_t i = 0; i < m_units.size(); ++i)
        m_units[i] = read(UnitProperties[i]);
    for (size_t i = 0; i < m_dependencies.size(); ++i) {
        const auto property =
            eParameterProperty(quint32(eParameterProperty::LimitDependency) + quint32(i));
        m_dependencies[i] = read(property).asInt32();
        m_isIndependent = m_isIndependent && has(property) && m_dependencies[i] == 0;
    }
}

std::shared_ptr<const ElementFacts> ElementFacts::of(
    const IParameterElementInformation *information)
{
    if (const auto known = pool().value(information).lock())
        return known;
    const auto remove = [information](const ElementFacts *facts) {
        pool().remove(information);
        delete facts;
    };
    const std::shared_ptr<const ElementFacts> facts(
        new ElementFacts([information](eParameterProperty property) {
            return information ? information->property(property) : ParameterProperty();
        }),
        remove);
    pool().insert(information, facts);
    return facts;
}

quint16 ElementFacts::functionIndex(eParameterProperty property) const
{
    switch (property) {
    case eParameterProperty::LimitFunctionIndex:
        return m_functions[LimitPlace];
    case eParameterProperty::ScalingFunctionIndex:
        return m_functions[ScalingPlace];
    default:
        return size_t(property) < LimitPlace ? m_functions[size_t(property)] : quint16(0);
    }
}

const ParameterProperty &ElementFacts::unit(eParameterProperty property) const
{
    if (property == eParameterProperty::ScaledMeasuringUnit)
        return m_units[0];
    return property == eParameterProperty::NativeMeasuringUnit ? m_units[1] : m_units[2];
}

const ElementFacts &ElementFacts::none()
{
    static const ElementFacts empty([](eParameterProperty) { return ParameterProperty(); });
    return empty;
}

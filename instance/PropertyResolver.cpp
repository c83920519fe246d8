#include "instance/PropertyResolver.h"

#include "value/ElementCatalogue.h"

#include <KrParameterDefinition/IParameterElementInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QLatin1String>

#include <algorithm>
#include <array>
#include <tuple>

namespace {

struct PropertyName {
    eParameterProperty property;
    const char *name;
};

/// As the reports name them.
constexpr std::array<PropertyName, 18> Names {{
    {eParameterProperty::ReadLevel, "readLevel"},
    {eParameterProperty::WriteLevel, "writeLevel"},
    {eParameterProperty::MemoryAllocation, "memoryAllocation"},
    {eParameterProperty::ParameterKind, "kind"},
    {eParameterProperty::Datatype, "datatype"},
    {eParameterProperty::DecimalPlacesBehind, "decimalPlacesBehind"},
    {eParameterProperty::DecimalPlacesSignificant, "decimalPlacesSignificant"},
    {eParameterProperty::ScaledMeasuringUnit, "scaled measuring unit"},
    {eParameterProperty::NativeMeasuringUnit, "native measuring unit"},
    {eParameterProperty::FieldbusMeasuringUnit, "fieldbus measuring unit"},
    {eParameterProperty::LimitDependency, "limit dependency"},
    {eParameterProperty::ScalingDependency, "scaling dependency"},
    {eParameterProperty::PostwriteDependency, "post write dependency"},
    {eParameterProperty::PrereadDependency, "pre read dependency"},
    {eParameterProperty::PostreadDependency, "post read dependency"},
    {eParameterProperty::PrewriteDependency, "pre write dependency"},
    {eParameterProperty::HidingDependency, "hiding dependency"},
    {eParameterProperty::MeasuringUnitDependency, "measuring unit dependency"},
}};

QLatin1String nameOf(eParameterProperty property)
{
    const auto *found = std::find_if(Names.begin(), Names.end(),
        [property](const PropertyName &entry) { return entry.property == property; });
    return found != Names.end() ? QLatin1String(found->name) : QLatin1String("unknown");
}

/// In the order of PropertyResolver::eFault.
constexpr std::array<const char *, 4> FaultTexts {"missing property", "unknown property value",
    "inconvertible property value", "invalid definition"};

} // namespace

bool PropertyResolver::isDefined(quint16 element, eParameterProperty property) const
{
    const IParameterElementInformation *information = m_elements.information(element);
    return information && information->hasProperty(property);
}

bool PropertyResolver::isSettable(quint16 element, eParameterProperty property) const
{
    const IParameterElementInformation *information = m_elements.information(element);
    return information && information->isPropertySettable(property);
}

ParameterProperty PropertyResolver::read(quint16 element, eParameterProperty property) const
{
    if (!m_overrides.empty()) {
        if (const Override *found = find(element, property))
            return found->value;
    }
    return readDefined(element, property);
}

ParameterProperty PropertyResolver::readDefined(quint16 element, eParameterProperty property) const
{
    const IParameterElementInformation *information = m_elements.information(element);
    return information ? information->property(property) : ParameterProperty();
}

ParameterProperty PropertyResolver::readReported(
    quint16 element, eParameterProperty property, const ParameterCoordinate &coordinate) const
{
    ParameterProperty value = read(element, property);
    if (!value.isValid())
        report(eFault::Missing, property, coordinate);
    return value;
}

int PropertyResolver::writeLevel(quint16 element, const ParameterCoordinate &coordinate) const
{
    const ParameterProperty value =
        readReported(element, eParameterProperty::WriteLevel, coordinate);
    if (!value.isValid())
        return 0;
    bool isNumber = false;
    const int level = value.asVariant().toInt(&isNumber);
    if (isNumber && level >= 0)
        return level;
    report(eFault::InvalidDefinition, eParameterProperty::WriteLevel, coordinate);
    return 0;
}

const PropertyResolver::Override *PropertyResolver::find(
    quint16 element, eParameterProperty property) const
{
    const auto found = lowerBound(element, property);
    const bool isFound = found != m_overrides.end() && found->property == property
        && found->element == m_elements.informationKey(element);
    return isFound ? &*found : nullptr;
}

void PropertyResolver::setOverride(quint16 element, eParameterProperty property,
    const ParameterProperty &value, const QString &changeTag)
{
    const auto place = lowerBound(element, property);
    Override entry {m_elements.informationKey(element), property, value, changeTag};
    if (find(element, property))
        m_overrides[size_t(place - m_overrides.cbegin())] = std::move(entry);
    else
        m_overrides.insert(place, std::move(entry));
}

void PropertyResolver::replaceOverrides(std::vector<Override> overrides)
{
    std::sort(overrides.begin(), overrides.end(), [](const Override &a, const Override &b) {
        return std::tie(a.element, a.property) < std::tie(b.element, b.property);
    });
    m_overrides = std::move(overrides);
}

void PropertyResolver::report(
    eFault fault, eParameterProperty property, const ParameterCoordinate &coordinate)
{
    System::addWarningMessage(QStringLiteral("CoordinateInstanceSet"),
        QLatin1String(FaultTexts.at(size_t(fault))) + QLatin1String(" \"") + nameOf(property)
            + QLatin1String("\" at parameter ") + coordinate.toText() + QLatin1Char('"'));
}

std::vector<PropertyResolver::Override>::const_iterator PropertyResolver::lowerBound(
    quint16 element, eParameterProperty property) const
{
    const quint16 key = m_elements.informationKey(element);
    return std::lower_bound(m_overrides.begin(), m_overrides.end(), std::tuple(key, property),
        [](const Override &entry, const std::tuple<quint16, eParameterProperty> &wanted) {
            return std::tie(entry.element, entry.property) < wanted;
        });
}

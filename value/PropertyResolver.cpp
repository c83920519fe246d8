#include "value/PropertyResolver.h"

#include "value/ElementCatalogue.h"

#include <KrParameterDefinition/IParameterElementInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QHash>
#include <QtCore/QLatin1String>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

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

bool isUnit(eParameterProperty property)
{
    return property == eParameterProperty::ScaledMeasuringUnit
        || property == eParameterProperty::NativeMeasuringUnit
        || property == eParameterProperty::FieldbusMeasuringUnit;
}

} // namespace

/// Overrides, and the facts of the elements that have any.
struct PropertyResolver::Overrides {
    /// A tree, so that overrides may come in any order at the same cost.
    std::map<std::pair<quint16, eParameterProperty>, Override> entries;
    QHash<quint16, std::shared_ptr<const ElementFacts>> facts;
};

/// Elements with one information share their facts; the one asked for last is found at once.
struct PropertyResolver::RecordFacts {
    QHash<const IParameterElementInformation *, std::shared_ptr<const ElementFacts>> held;
    quint16 lastElement = 0;
    const IParameterElementInformation *lastInformation = nullptr;
    const ElementFacts *last = nullptr;
};

PropertyResolver::PropertyResolver(const ElementCatalogue &elements)
    : m_elements(elements)
{
}

PropertyResolver::~PropertyResolver() = default;

void PropertyResolver::onDefinitionChanged()
{
    m_facts.reset();
    m_recordFacts.reset();
    replaceOverrides(overrides());
}

bool PropertyResolver::isFixed(eParameterProperty property)
{
    switch (property) {
    case eParameterProperty::IsSimpleParameter:
    case eParameterProperty::IsRecordParameter:
    case eParameterProperty::LivingSpace:
    case eParameterProperty::Coordinate:
    case eParameterProperty::Name:
    case eParameterProperty::ElementCount:
    case eParameterProperty::ElementName:
        return true;
    default:
        return false;
    }
}

bool PropertyResolver::isOverridable(quint16 element, eParameterProperty property) const
{
    const bool isPlace =
        m_elements.contains(element) && m_elements.informationKey(element) == element;
    return isPlace && !isFixed(property)
        && (quint32(property) < DefinitionPropertyEnd || isDefined(element, property));
}

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

ParameterProperty PropertyResolver::readDefined(quint16 element, eParameterProperty property) const
{
    const IParameterElementInformation *information = m_elements.information(element);
    return information ? information->property(property) : ParameterProperty();
}

ParameterProperty PropertyResolver::read(quint16 element, eParameterProperty property) const
{
    // The facts are at hand, a definition seldom is.
    if (!m_overrides && isUnit(property))
        return facts(element).unit(property);
    const Override *found = m_overrides ? find(element, property) : nullptr;
    return found ? found->value : readDefined(element, property);
}

const ElementFacts &PropertyResolver::soughtFacts(quint16 element) const
{
    if (!m_elements.contains(element))
        return ElementFacts::none();
    if (m_overrides) {
        const auto found = m_overrides->facts.constFind(m_elements.informationKey(element));
        if (found != m_overrides->facts.constEnd())
            return **found;
    }
    if (!m_elements.isRecord()) {
        if (!m_facts)
            m_facts = ElementFacts::of(m_elements.information(element));
        return *m_facts;
    }
    // One reading asks for the facts of its element many times.
    if (m_recordFacts && m_recordFacts->last && m_recordFacts->lastElement == element)
        return *m_recordFacts->last;
    const IParameterElementInformation *information = m_elements.information(element);
    if (!m_recordFacts)
        m_recordFacts = std::make_unique<RecordFacts>();
    m_recordFacts->lastElement = element;
    if (!m_recordFacts->last || m_recordFacts->lastInformation != information) {
        std::shared_ptr<const ElementFacts> &held = m_recordFacts->held[information];
        if (!held)
            held = ElementFacts::of(information);
        m_recordFacts->lastInformation = information;
        m_recordFacts->last = held.get();
    }
    return *m_recordFacts->last;
}

const PropertyResolver::Override *PropertyResolver::find(
    quint16 element, eParameterProperty property) const
{
    if (!m_overrides)
        return nullptr;
    const auto found = m_overrides->entries.find({m_elements.informationKey(element), property});
    return found != m_overrides->entries.end() ? &found->second : nullptr;
}

void PropertyResolver::setOverride(quint16 element, eParameterProperty property,
    const ParameterProperty &value, const QString &changeTag)
{
    if (!m_overrides)
        m_overrides = std::make_unique<Overrides>();
    const quint16 key = m_elements.informationKey(element);
    m_overrides->entries.insert_or_assign(
        {key, property}, Override {key, property, value, changeTag});
    m_overrides->facts.insert(key, factsOf(key));
}

std::vector<PropertyResolver::Override> PropertyResolver::overrides() const
{
    std::vector<Override> list;
    if (!m_overrides)
        return list;
    list.reserve(m_overrides->entries.size());
    for (const auto &[place, entry] : m_overrides->entries)
        list.push_back(entry);
    return list;
}

void PropertyResolver::replaceOverrides(std::vector<Override> overrides)
{
    if (overrides.empty()) {
        m_overrides.reset();
        return;
    }
    m_overrides = std::make_unique<Overrides>();
    for (Override &entry : overrides) {
        const std::pair place(entry.element, entry.property);
        m_overrides->entries.insert_or_assign(place, std::move(entry));
    }
    for (const auto &[place, entry] : m_overrides->entries) {
        if (!m_overrides->facts.contains(entry.element))
            m_overrides->facts.insert(entry.element, factsOf(entry.element));
    }
}

std::shared_ptr<const ElementFacts> PropertyResolver::factsOf(quint16 element) const
{
    return std::make_shared<const ElementFacts>(
        [this, element](eParameterProperty property) { return read(element, property); });
}

void PropertyResolver::report(
    eFault fault, eParameterProperty property, const ParameterCoordinate &coordinate)
{
    System::addWarningMessage(QStringLiteral("CoordinateInstanceSet"),
        QLatin1String(FaultTexts.at(size_t(fault))) + QLatin1String(" \"") + nameOf(property)
            + QLatin1String("\" at parameter ") + coordinate.toText() + QLatin1Char('"'));
}

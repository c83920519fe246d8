#include "instance/CoordinateInstanceSet.h"

#include "instance/CoordinateRegistry.h"
#include "instance/DescriptionRenderer.h"
#include "instance/HidingState.h"
#include "instance/ScalingInformation.h"
#include "instance/SectionOverrides.h"
#include "value/NumberText.h"
#include "value/RunningFunctions.h"

#include <KrLocator/Locator.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterContainerHostInformation.h>
#include <KrSystem/System.h>
#include <LmUtilities/IniSection.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <algorithm>
#include <charconv>

namespace {

constexpr QByteArrayView ElementCountKey("CE");

const QString ClassTitle = QStringLiteral("CoordinateInstanceSet");

ParameterProperty propertyOf(const ParameterText &text)
{
    return ParameterProperty(QVariant::fromValue(text));
}

QStringList sortedDistinct(QStringList texts)
{
    texts.sort();
    texts.removeDuplicates();
    return texts;
}

/// A saved count of a simple parameter; 0 where the text is none.
quint16 elementCountOf(QByteArrayView text)
{
    quint16 count = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, count);
    const bool isCount = error == std::errc() && stop == end
        && count >= ElementCatalogue::LeastCount && count <= ElementCatalogue::GreatestCount;
    return isCount ? count : quint16(0);
}

} // namespace

CoordinateInstanceSet::CoordinateInstanceSet(
    ParameterContainer *container, CoordinateRegistry *registry, const Clock *clock)
    : ParameterSetup(nullptr)
    , m_container(container)
    , m_registry(registry)
    , m_properties(m_elements)
    , m_clock(clock)
{
}

CoordinateInstanceSet::~CoordinateInstanceSet()
{
    LifeGuard::died(this);
    if (!RunningFunctions::isAny())
        return;
    m_instances.disown();
    RunningFunctions::keep(std::make_shared<InstanceTable>(std::move(m_instances)));
}

void CoordinateInstanceSet::initialize(
    ParameterDefinition *definition, const ParameterCoordinate &coordinate)
{
    m_definition = definition;
    m_elements.setDefinition(definition);
    m_properties.onDefinitionChanged();
    m_coordinate = coordinate;
}

void CoordinateInstanceSet::takeDefinition(ParameterDefinition *definition)
{
    ElementCatalogue elements;
    elements.setDefinition(definition);
    for (const eLivingSpace livingSpace : m_instances.livingSpaces())
        m_instances.find(livingSpace)->rearrange(m_elements, elements);
    m_elements = std::move(elements);
    m_properties.onDefinitionChanged();
    m_definition = definition;
    forgetAnswers();
    if (m_registry)
        m_registry->onPropertiesChanged(this);
    // Another definition may hide by another function.
    if (emitDefinitionChanged())
        askKnownFlagsAnew();
}

ParameterInstanceData *CoordinateInstanceSet::attachInstance(eLivingSpace livingSpace)
{
    ParameterInstanceData *attached = m_instances.insert(livingSpace);
    if (attached) {
        attached->setOwner(this, &m_properties, livingSpace);
    } else {
        System::addCriticalMessage(ClassTitle,
            QStringLiteral("Unable to attach new Instance due to already existing instance"));
    }
    return attached;
}

void CoordinateInstanceSet::leave()
{
    m_hasLeft = true;
    disconnect();
    // Who still holds the set may connect anew.
    blockSignals(true);
}

void CoordinateInstanceSet::createInstancesFromAnchors()
{
    const LifeGuard guard(this);
    int systemAnchors = 0;
    for (const QString &anchor : m_definition ? m_definition->anchors() : QStringList()) {
        Locator locator;
        locator.parseText(anchor);
        if (locator.isSystem())
            ++systemAnchors;
        else if (locator.hasLivingSpace())
            attachInstance(key(locator.livingSpace()));
        // The report of an anchor too many reaches listeners.
        if (!guard)
            return;
    }
    if (systemAnchors != 1) {
        System::addCriticalMessage(ClassTitle,
            QLatin1String("Too many anchors for system parameter ") + m_coordinate.toText()
                + QLatin1Char('"'));
    }
}

void CoordinateInstanceSet::forgetAnswers()
{
    for (const eLivingSpace livingSpace : m_instances.livingSpaces())
        m_instances.find(livingSpace)->forgetAnswers();
}

void CoordinateInstanceSet::askKnownFlagsAnew()
{
    forgetAnswers();
    forEachValue([this](ParameterInstanceData *record, quint16 element) {
        if (record->isHiddenKnown(element))
            askHiddenAnew(record, element);
    });
}

void CoordinateInstanceSet::clearStore(const QString &name, const QRegularExpression &tagPattern)
{
    const LifeGuard guard(this);
    for (const eLivingSpace livingSpace : m_instances.livingSpaces()) {
        emitChanges(livingSpace, m_instances.find(livingSpace)->discard(name, tagPattern));
        if (!guard)
            return;
    }
}

void CoordinateInstanceSet::loadFromSection(const LmIniParser::IniSection &section, bool utf8)
{
    const quint16 before = m_elements.count();
    if (!m_elements.isRecord()) {
        const quint16 count = elementCountOf(section.read(ElementCountKey));
        m_elements.setCount(count > 0 ? count : m_definition->elementCount());
    }
    const auto livingSpaces = m_instances.livingSpaces();
    QVarLengthArray<ParameterInstanceData::Changes, InstanceTable::LivingSpaceCount> changes;
    for (const eLivingSpace livingSpace : livingSpaces)
        changes.append(m_instances.find(livingSpace)->loadFromSection(section, utf8));
    const bool hadOverrides = m_properties.hasOverrides();
    m_properties.replaceOverrides(SectionOverrides::load(section, utf8, m_properties));

    forgetAnswers();
    const bool isRecounted = m_elements.count() != before;
    if (m_registry && isRecounted)
        m_registry->onElementsChanged();
    if (m_registry && (hadOverrides || m_properties.hasOverrides()))
        m_registry->onPropertiesChanged(this);
    if (isRecounted && !emitDefinitionChanged())
        return;
    for (qsizetype i = 0; i < changes.size(); ++i) {
        if (!emitChanges(livingSpaces.at(i), changes.at(i)))
            return;
    }
}

void CoordinateInstanceSet::saveToSection(LmIniParser::IniSection &section) const
{
    const LifeGuard guard(this);
    for (const eLivingSpace livingSpace : m_instances.livingSpaces()) {
        m_instances.find(livingSpace)->saveToSection(section);
        if (!guard)
            return;
    }
    if (!m_elements.isRecord() && m_elements.count() != m_definition->elementCount())
        section.write(ElementCountKey, QByteArray::number(m_elements.count()));
    SectionOverrides::save(section, m_properties);
}

bool CoordinateInstanceSet::isSimpleParameter() const
{
    return m_definition && m_definition->isSimpleParameterDefinition();
}

bool CoordinateInstanceSet::isRecordParameter() const
{
    return m_elements.isRecord();
}

bool CoordinateInstanceSet::isGlobalParameter() const
{
    if (!m_definition || !m_definition->isGlobalParameter())
        return false;
    if (!m_definition->isPhysicalAxisParameter())
        return true;
    // Only a physical-axis parameter needs the device family.
    return m_registry ? m_registry->isGlobal(m_definition)
                      : m_container->isGlobalParameter(m_coordinate);
}

ParameterText CoordinateInstanceSet::name() const
{
    return m_definition ? m_definition->name() : ParameterText();
}

int CoordinateInstanceSet::nameCommonTextIndex() const
{
    return m_definition ? m_definition->nameCommonTextIndex() : 0;
}

quint32 CoordinateInstanceSet::version() const
{
    return m_definition ? m_definition->version() : 0;
}

quint16 CoordinateInstanceSet::elementCount() const
{
    return m_elements.count();
}

quint16 CoordinateInstanceSet::definedElementCount() const
{
    return m_definition ? m_definition->elementCount() : quint16(0);
}

QList<quint16> CoordinateInstanceSet::elementList() const
{
    return m_elements.list();
}

QSet<quint16> CoordinateInstanceSet::elementSet() const
{
    return m_elements.set();
}

ParameterText CoordinateInstanceSet::elementName(quint16 element) const
{
    if (!m_elements.contains(element))
        return {};
    return m_elements.isRecord() ? m_elements.record()->elementName(element) : name();
}

int CoordinateInstanceSet::elementNameCommonTextIndex(quint16 element) const
{
    if (!m_elements.contains(element))
        return 0;
    return m_elements.isRecord() ? m_elements.record()->elementNameCommonTextIndex(element)
                                 : nameCommonTextIndex();
}

quint32 CoordinateInstanceSet::elementVersion(quint16 element) const
{
    if (!m_elements.contains(element))
        return 0;
    return m_elements.isRecord() ? m_definition->elementVersion(element) : version();
}

ParameterCoordinate CoordinateInstanceSet::coordinate() const
{
    return m_coordinate;
}

QList<eLivingSpace> CoordinateInstanceSet::livingSpaces() const
{
    const auto list = m_instances.livingSpaces();
    return {list.begin(), list.end()};
}

bool CoordinateInstanceSet::hasElementProperty(quint16 element, eParameterProperty property) const
{
    if (!m_elements.contains(element))
        return false;
    switch (property) {
    case eParameterProperty::IsSimpleParameter:
    case eParameterProperty::IsRecordParameter:
    case eParameterProperty::Coordinate:
    case eParameterProperty::Name:
    case eParameterProperty::ElementCount:
    case eParameterProperty::ElementName:
        return true;
    case eParameterProperty::LivingSpace:
    case eParameterProperty::Address:
    case eParameterProperty::ValueNative:
    case eParameterProperty::ValueScaled:
    case eParameterProperty::DefaultvalueNative:
    case eParameterProperty::DefaultvalueScaled:
        return false;
    default:
        return m_properties.isDefined(element, property);
    }
}

ParameterProperty CoordinateInstanceSet::elementProperty(
    quint16 element, eParameterProperty property) const
{
    if (!m_elements.contains(element))
        return {};
    switch (property) {
    case eParameterProperty::IsSimpleParameter:
        return ParameterProperty(isSimpleParameter());
    case eParameterProperty::IsRecordParameter:
        return ParameterProperty(isRecordParameter());
    case eParameterProperty::Coordinate:
        return ParameterProperty(m_coordinate.toText());
    case eParameterProperty::Name:
        return propertyOf(name());
    case eParameterProperty::ElementCount:
        return ParameterProperty(uint(elementCount()));
    case eParameterProperty::ElementName:
        return propertyOf(elementName(element));
    default:
        return m_properties.read(element, property);
    }
}

bool CoordinateInstanceSet::isPropertySettable(quint16 element, eParameterProperty property) const
{
    if (!m_elements.contains(element))
        return false;
    if (property == eParameterProperty::ElementCount)
        return isSimpleParameter();
    return !PropertyResolver::isFixed(property) && m_properties.isSettable(element, property);
}

bool CoordinateInstanceSet::hasPropertyOverride(quint16 element, eParameterProperty property) const
{
    return m_elements.contains(element) && m_properties.find(element, property);
}

bool CoordinateInstanceSet::hasInstance(eLivingSpace livingSpace) const
{
    return m_instances.contains(livingSpace);
}

quint32 CoordinateInstanceSet::instanceSerialNumber(eLivingSpace livingSpace) const
{
    const ParameterInstanceData *found = m_instances.find(key(livingSpace));
    return found ? found->serialNumber() : 0;
}

ParameterAddress CoordinateInstanceSet::address(eLivingSpace livingSpace, quint16 element) const
{
    const bool isFurtherAxis =
        livingSpace >= eLivingSpace::Axis2 && livingSpace <= eLivingSpace::Axis4;
    return ParameterAddress(
        isFurtherAxis ? quint8(qint32(livingSpace) - 1) : quint8(0), m_coordinate, element);
}

QStringList CoordinateInstanceSet::changeTagList(eLivingSpace livingSpace) const
{
    const ParameterInstanceData *found = m_instances.find(key(livingSpace));
    return found ? found->changeTags() : QStringList();
}

QStringList CoordinateInstanceSet::changeTagListOfAllInstances() const
{
    QStringList tags;
    for (const eLivingSpace livingSpace : m_instances.livingSpaces())
        tags += m_instances.find(livingSpace)->changeTags();
    return sortedDistinct(tags);
}

QStringList CoordinateInstanceSet::sortedChangeTagList() const
{
    QStringList tags;
    for (const ParameterCoordinate &other : m_container->parameterList()) {
        const auto *set =
            qobject_cast<CoordinateInstanceSet *>(m_container->parameterSetup(other).data());
        const bool isRelated = set && m_definition
            && (m_definition->isParameterIdentical(set->m_definition)
                || m_definition->versionsOfTheSameParameter(set->m_definition));
        if (isRelated)
            tags += set->changeTagListOfAllInstances();
    }
    return sortedDistinct(tags);
}

QString CoordinateInstanceSet::attribute(
    eLivingSpace livingSpace, quint16 element, const QString &key) const
{
    const ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return {};
    if (key == QLatin1String("ValueChangeTag"))
        return found->valueChangeTag(element);
    if (key == QLatin1String("DefaultValueChangeTag"))
        return found->defaultValueChangeTag(element);

    const auto overrideTag = [&](eParameterProperty property) {
        const PropertyResolver::Override *entry = m_properties.find(element, property);
        return entry ? entry->changeTag : QString();
    };
    if (key == QLatin1String("ReadLevelChangeTag"))
        return overrideTag(eParameterProperty::ReadLevel);
    if (key == QLatin1String("WriteLevelChangeTag"))
        return overrideTag(eParameterProperty::WriteLevel);
    const QLatin1StringView anyOverride("PropertyChangeTag_");
    if (key.startsWith(anyOverride)) {
        const auto number = NumberText::toUnsigned(QStringView(key).sliced(anyOverride.size()));
        return number ? overrideTag(eParameterProperty(quint32(*number))) : QString();
    }

    const auto factor = [&](eParameterProperty property) {
        return double(m_properties.read(element, property).asFloat());
    };
    // "1 LSB" alone needs no unit.
    const auto information = [&](double perBit, eParameterProperty property) {
        return ScalingInformation::text(perBit,
            ScalingInformation::isShown(perBit) ? unitText(property, livingSpace, element)
                                                : QString());
    };
    const double scaling = factor(eParameterProperty::ScalingFactor);
    const double fieldbus = factor(eParameterProperty::FieldbusScalingFactor);
    if (key == QLatin1String("ScalingInformationNative"))
        return information(scaling, eParameterProperty::ScaledMeasuringUnit);
    if (key == QLatin1String("ScalingInformationFieldbusScaled"))
        return information(fieldbus, eParameterProperty::ScaledMeasuringUnit);
    if (key == QLatin1String("ScalingInformationFieldbusNative"))
        return information(ScalingInformation::fieldbusNativeFactor(fieldbus, scaling),
            eParameterProperty::NativeMeasuringUnit);
    return {};
}

quint8 CoordinateInstanceSet::datatype(quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::Datatype);
    return facts ? facts->datatype : quint8(0);
}

int CoordinateInstanceSet::kind(quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::ParameterKind);
    return facts ? facts->kind : 0;
}

int CoordinateInstanceSet::memoryAllocation(quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::MemoryAllocation);
    return facts ? facts->memoryAllocation : 0;
}

int CoordinateInstanceSet::writeLevel(quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::WriteLevel);
    if (!facts)
        return 0;
    const int level = facts->writeLevel;
    if (!facts->isWriteLevelUsable) {
        PropertyResolver::report(PropertyResolver::eFault::InvalidDefinition,
            eParameterProperty::WriteLevel, m_coordinate);
    }
    return level;
}

quint32 CoordinateInstanceSet::readLevel(quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::ReadLevel);
    return facts ? facts->readLevel : 0;
}

int CoordinateInstanceSet::decimalPlacesBehind(quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, eParameterProperty::DecimalPlacesBehind);
    return facts ? facts->decimalPlacesBehind : 0;
}

quint32 CoordinateInstanceSet::decimalPlacesSignificant(quint16 element) const
{
    const ElementFacts *facts =
        reportedFacts(element, eParameterProperty::DecimalPlacesSignificant);
    return facts ? facts->decimalPlacesSignificant : 0;
}

const ElementFacts *CoordinateInstanceSet::reportedFacts(
    quint16 element, eParameterProperty property) const
{
    if (!m_elements.contains(element))
        return nullptr;
    const ElementFacts &facts = m_properties.facts(element);
    if (facts.has(property))
        return &facts;
    PropertyResolver::report(PropertyResolver::eFault::Missing, property, m_coordinate);
    return nullptr;
}

ParameterContainer *CoordinateInstanceSet::parameterContainer() const
{
    return m_container;
}

unsigned int CoordinateInstanceSet::hostInformation() const
{
    const ParameterContainerHostInformation *host = m_container->hostInformation();
    return host ? host->deviceFamilyIdentifier() : 0;
}

QString CoordinateInstanceSet::description(quint16 element) const
{
    if (!m_definition || !m_elements.contains(element))
        return {};
    if (DescriptionRenderer::isInline(m_coordinate)) {
        return QLatin1String("<description>=")
            + DescriptionRenderer::html(
                m_coordinate, name().longText(), m_definition->descriptionText());
    }
    return DescriptionRenderer::referenceKey(ParameterAddress(0, m_coordinate, element)
                                                 .toTextGlobalInstance(m_elements.isElementNamed()),
        m_properties.read(element, eParameterProperty::DescriptionReference).asString(),
        elementVersion(element));
}

QString CoordinateInstanceSet::elementDescription(quint16 element) const
{
    return description(element);
}

eLivingSpace CoordinateInstanceSet::key(eLivingSpace livingSpace) const
{
    return InstanceTable::key(livingSpace, isGlobalParameter());
}

ParameterInstanceData *CoordinateInstanceSet::record(
    eLivingSpace livingSpace, quint16 element) const
{
    return m_elements.contains(element) ? m_instances.find(key(livingSpace)) : nullptr;
}

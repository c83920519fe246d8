#include "container/ParameterContainerPrivate.h"

#include "container/CreationRules.h"
#include "container/QuestionRound.h"
#include "instance/DependencyChange.h"
#include "instance/DependencyPairs.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>
#include <KrLocator/Locator.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrProjectRepository/HardwareRepository.h>
#include <KrSystem/System.h>

#include <QtCore/QScopeGuard>

#include <algorithm>
#include <utility>

namespace {

constexpr int AxisCount = 4;

const QString MessageTitle = QStringLiteral("ParameterContainer");

QList<ParameterContainer *> liveContainers;

/// The parameter that selects the active axis.
ParameterCoordinate activeAxisCoordinate()
{
    return ParameterCoordinate(QStringLiteral("E84"));
}

bool isRelated(const ParameterDefinition *a, const ParameterDefinition *b)
{
    return a == b || a->isParameterIdentical(b) || a->versionsOfTheSameParameter(b);
}

} // namespace

ParameterContainerPrivate::ParameterContainerPrivate(ParameterContainer *container)
    : QObject(container)
    , owner(container)
    , callbackDelegate(this)
    , m_knownAccessLevel(System::information()->userAccessLevel())
{
    connect(this, &ParameterContainerPrivate::parameterAdded, owner,
        &ParameterContainer::parameterAdded);
    connect(this, &ParameterContainerPrivate::parameterRemoved, owner,
        &ParameterContainer::parameterRemoved);
    connect(this, &ParameterContainerPrivate::accessLevelUpdateStarted, owner,
        &ParameterContainer::accessLevelUpdateStarted);
    connect(this, &ParameterContainerPrivate::accessLevelUpdateFinished, owner,
        &ParameterContainer::accessLevelUpdateFinished);
    connect(System::information(), &SystemInformation::userAccessLevelParameterChanged, this,
        &ParameterContainerPrivate::updateAllParameterVisibility);
    connect(owner, &ParameterContainer::onlineChanged, this, &ParameterContainerPrivate::setOnline);
    liveContainers.append(owner);
}

ParameterContainerPrivate::~ParameterContainerPrivate()
{
    LifeGuard::died(this);
    LifeGuard::died(static_cast<CoordinateRegistry *>(this));
    liveContainers.removeOne(owner);
    GuardedFunctionProvider::retire(std::move(functionProvider));
    // Whoever hears that a set goes finds none any more.
    m_index.clear();
    locatorSets.clear();
    addressLists.clear();
    const auto removed = std::exchange(m_going, {});
    const auto going = std::exchange(coordinateSets, {});
}

QList<ParameterContainer *> ParameterContainerPrivate::instances()
{
    return liveContainers;
}

CoordinateInstanceSet *ParameterContainerPrivate::find(const ParameterCoordinate &coordinate) const
{
    CoordinateTable::Entry *entry = coordinateSets.find(coordinate);
    return entry ? &entry->set : nullptr;
}

CoordinateInstanceSet *ParameterContainerPrivate::find(const QString &locatorText) const
{
    return locatorSets.value(locatorText);
}

QList<QPointer<CoordinateInstanceSet>> ParameterContainerPrivate::guardedSets() const
{
    QList<QPointer<CoordinateInstanceSet>> sets;
    sets.reserve(qsizetype(coordinateSets.size()));
    coordinateSets.forEach([&sets](CoordinateInstanceSet &set) { sets.append(&set); });
    return sets;
}

bool ParameterContainerPrivate::hasPhysicalAxes() const
{
    if (!firmware)
        return false;
    const DeviceFamilyInformation *family =
        HardwareRepository::instance().deviceFamily(firmware->deviceFamilyIdentifier());
    return family && family->hasPhysicalAxes();
}

bool ParameterContainerPrivate::isGlobal(const ParameterDefinition *definition) const
{
    return CreationRules::isGlobal(definition, hasPhysicalAxes());
}

eLivingSpace ParameterContainerPrivate::livingSpace(const ParameterAddress &address) const
{
    const CoordinateInstanceSet *set = find(address.coordinate());
    return set && set->isGlobalParameter() ? eLivingSpace::Global
                                           : eLivingSpace(address.axis() + 1);
}

bool ParameterContainerPrivate::createOrUpdate(
    ParameterDefinition *definition, const QString &locatorText)
{
    if (!definition)
        return false;
    CoordinateInstanceSet *known = find(locatorText);
    if (known && known->definition())
        return update(known, definition);

    const Locator locator(locatorText);
    if (!locator.isValid())
        return false;
    if (!definition->isValid()) {
        System::addWarningMessage(MessageTitle,
            QStringLiteral("no instance for invalid definition of parameter created"));
        return false;
    }
    const LifeGuard guard(this);
    const CreationRules::LivingSpaces spaces =
        CreationRules::livingSpaces(locator, definition, hasPhysicalAxes());
    if (spaces.problem == CreationRules::eProblem::SystemMultiInstance) {
        System::addWarningMessage(MessageTitle,
            QStringLiteral("no instance for system defined multi instance parameter"));
    } else if (spaces.problem == CreationRules::eProblem::RelativeLocator) {
        System::addCriticalMessage(
            MessageTitle, QStringLiteral("relative Locator used for createParameter"));
    }
    ParameterCoordinate coordinate;
    CoordinateTable::Entry *entry = nullptr;
    for (const eLivingSpace livingSpace : spaces.list) {
        // A single instance keeps its place, and what is not there for one living space is for none.
        if (!entry || !definition->isSingleInstance())
            coordinate = chooseCoordinate(definition, livingSpace);
        if (!coordinate.isValid())
            continue;
        if (!entry || entry->set.coordinate() != coordinate)
            entry = entryForCreation(definition, coordinate, spaces.list.size());
        // What listeners removed or replaced meanwhile is not continued: it is another's now.
        if (!createInstance(entry, definition, locatorText, livingSpace))
            return false;
    }
    if (!guard)
        return false;
    addressLists.clear();
    return coordinate.isValid();
}

bool ParameterContainerPrivate::update(CoordinateInstanceSet *set, ParameterDefinition *definition)
{
    if (definition == set->definition())
        return true;
    addressLists.clear();
    const QPointer<ParameterContainerPrivate> guard(this);
    const QuestionRound round(*this);
    set->takeDefinition(definition);
    return guard;
}

ParameterCoordinate ParameterContainerPrivate::chooseCoordinate(
    const ParameterDefinition *definition, eLivingSpace livingSpace) const
{
    const QList<ParameterCoordinate> defaults = definition->defaultCoordinates();
    if (definition->isSingleInstance()) {
        if (!defaults.isEmpty())
            return defaults.first();
        System::addCriticalMessage(MessageTitle,
            QStringLiteral("Unable to specify a coordinate for single-instance-parameter without "
                           "default coordinate"));
        return {};
    }
    for (const ParameterCoordinate &candidate : defaults) {
        if (!isTaken(candidate, definition, livingSpace))
            return candidate;
    }
    for (quint16 line = 0; line <= ParameterCoordinate::LastLine; ++line) {
        const ParameterCoordinate candidate(ParameterCoordinate::MoveableGroup, line);
        if (!isTaken(candidate, definition, livingSpace))
            return candidate;
    }
    System::addCriticalMessage(MessageTitle,
        QStringLiteral("Unable to find a free coordinate for multi-instance-parameter"));
    return {};
}

bool ParameterContainerPrivate::isTaken(const ParameterCoordinate &candidate,
    const ParameterDefinition *definition, eLivingSpace livingSpace) const
{
    const CoordinateInstanceSet *set = find(candidate);
    if (!set)
        return false;
    if (set->definition() == definition)
        return set->hasInstance(livingSpace);
    // A stranger's coordinate is never joined.
    return !isRelated(definition, set->definition());
}

CoordinateTable::Entry *ParameterContainerPrivate::entryForCreation(
    ParameterDefinition *definition, const ParameterCoordinate &coordinate, qsizetype instanceCount)
{
    if (CoordinateTable::Entry *known = coordinateSets.find(coordinate))
        return known;
    auto created = std::make_unique<CoordinateTable::Entry>(owner, this, clock ? &clock : nullptr);
    created->set.initialize(definition, coordinate);
    created->set.reserveInstances(size_t(instanceCount));
    CoordinateTable::Entry *entry = coordinateSets.insert(coordinate, std::move(created));
    m_index.add(&entry->set);
    return entry;
}

bool ParameterContainerPrivate::createInstance(CoordinateTable::Entry *entry,
    ParameterDefinition *definition, const QString &locatorText, eLivingSpace livingSpace)
{
    CoordinateInstanceSet *set = &entry->set;
    // The text is the set's already, so that a set that goes meanwhile is known by it.
    if (!entry->locatorTexts.contains(locatorText))
        entry->locatorTexts.append(locatorText);
    // A listener may move the set; only one that is gone is another's.
    const LifeGuard setGuard(set);
    const quint32 serialNumber = addInstance(set, livingSpace);
    const auto isThere = [&] {
        const ParameterInstanceData *record = setGuard ? set->record(livingSpace) : nullptr;
        return record && record->serialNumber() == serialNumber;
    };
    if (!isThere())
        return false;
    CoordinateInstanceSet *&located = locatorSets[locatorText];
    if (!located)
        located = set;
    // A listener of parameterAdded gave the text to another set.
    if (located != set)
        entry->locatorTexts.removeOne(locatorText);
    const bool isNewer = set->definition()->version() < definition->version();
    return !isNewer || (update(set, definition) && isThere());
}

quint32 ParameterContainerPrivate::addInstance(CoordinateInstanceSet *set, eLivingSpace livingSpace)
{
    if (const ParameterInstanceData *present = set->record(livingSpace))
        return present->serialNumber();
    const quint32 serialNumber = set->attachInstance(livingSpace)->serialNumber();
    addressLists.clear();
    Q_EMIT parameterAdded(set->coordinate());
    return serialNumber;
}

void ParameterContainerPrivate::remove(CoordinateInstanceSet *set)
{
    const ParameterCoordinate coordinate = set->coordinate();
    if (find(coordinate) != set)
        return;
    set->leave();
    // Out of both tables before anyone hears of it, and alive until everyone has. Kept here, so that it
    // goes with the container when that goes meanwhile.
    m_going.push_back(coordinateSets.take(coordinate));
    const CoordinateTable::Entry *removed = m_going.back().get();
    for (const QString &locatorText : removed->locatorTexts) {
        if (locatorSets.value(locatorText) == set)
            locatorSets.remove(locatorText);
    }
    m_index.remove(set);
    addressLists.clear();
    const LifeGuard guard(this);
    Q_EMIT parameterRemoved(coordinate);
    if (!guard)
        return;
    const auto place = std::find_if(m_going.begin(), m_going.end(),
        [removed](const auto &entry) { return entry.get() == removed; });
    const std::unique_ptr<CoordinateTable::Entry> last = std::move(*place);
    m_going.erase(place);
}

void ParameterContainerPrivate::onPropertiesChanged(CoordinateInstanceSet *set)
{
    // A set that is being removed may still be written; it is found no more.
    if (find(set->coordinate()) == set)
        m_index.update(set);
}

void ParameterContainerPrivate::removeAll(const QList<QPointer<CoordinateInstanceSet>> &sets)
{
    const QPointer<ParameterContainerPrivate> guard(this);
    for (const QPointer<CoordinateInstanceSet> &set : sets) {
        if (set)
            remove(set);
        if (!guard)
            return;
    }
}

void ParameterContainerPrivate::setFirmware(ServoDriveFirmware *newFirmware)
{
    const QPointer<ParameterContainerPrivate> guard(this);
    const quint32 generation = ++m_firmwareGeneration;
    // The pattern for system locators is "^S;*": every text that begins with S.
    QList<QPointer<CoordinateInstanceSet>> systemSets;
    coordinateSets.forEachEntry([&systemSets](CoordinateTable::Entry &entry) {
        if (std::any_of(entry.locatorTexts.cbegin(), entry.locatorTexts.cend(),
                [](const QString &text) { return text.startsWith(QLatin1Char('S')); }))
            systemSets.append(&entry.set);
    });
    removeAll(systemSets);
    // A listener, also one to a message of the firmware's own, may have set another firmware or ended
    // the container meanwhile; then this one is outdated.
    const auto isOutdated = [&] { return !guard || generation != m_firmwareGeneration; };
    if (isOutdated())
        return;

    GuardedFunctionProvider::retire(std::move(functionProvider));
    if (isOutdated())
        return;
    firmware = newFirmware;
    std::unique_ptr<ParameterFunctionProvider> created(
        firmware ? firmware->createParameterFunctionProvider() : nullptr);
    if (isOutdated())
        return;
    if (created) {
        functionProvider = std::make_unique<GuardedFunctionProvider>(std::move(created));
        functionProvider->setCallbackProvider(&callbackDelegate);
    }
    if (isOutdated())
        return;
    createSystemParameters();
    if (isOutdated())
        return;
    // At the end, because hiding functions may read system parameters.
    askKnownFlagsAnew();
}

void ParameterContainerPrivate::askKnownFlagsAnew()
{
    const LifeGuard guard(this);
    const quint32 generation = m_firmwareGeneration;
    const QuestionRound round(*this);
    for (const QPointer<CoordinateInstanceSet> &set : guardedSets()) {
        if (set)
            set->askKnownFlagsAnew();
        // Whoever set another firmware meanwhile has asked all of them.
        if (!guard || generation != m_firmwareGeneration)
            return;
    }
}

void ParameterContainerPrivate::createSystemParameters()
{
    if (!firmware)
        return;
    const QPointer<ParameterContainerPrivate> guard(this);
    const quint32 generation = m_firmwareGeneration;
    const quint32 family = firmware->deviceFamilyIdentifier();
    for (const quint32 number : firmware->systemParameterNumbers(family)) {
        createOrUpdate(firmware->systemParameterDefinition(family, number),
            QLatin1String("S;{P") + QString::number(number) + QLatin1Char('}'));
        if (!guard || generation != m_firmwareGeneration)
            return;
    }
}

eLivingSpace ParameterContainerPrivate::activeLivingSpace(eLivingSpace requested) const
{
    const CoordinateInstanceSet *set = find(activeAxisCoordinate());
    if (const ParameterInstanceData *record = set ? set->record(eLivingSpace::Global) : nullptr)
        return eLivingSpace(record->valueWithoutFirmware(0).toInt() % AxisCount + 1);
    if (hasPhysicalAxes())
        return requested;
    System::addWarningMessage(
        MessageTitle, QStringLiteral("missing parameter \"E84 active axis\""));
    return eLivingSpace::Axis1;
}

bool ParameterContainerPrivate::isMapped(const ParameterAddress &address) const
{
    const quint32 number = address.toNumber();
    // Reading a value may run the firmware, whose functions may lead to anything.
    const QuestionRound round(*this);
    const QList<CoordinateInstanceSet *> mapping = mappingSets();
    const QList<QPointer<CoordinateInstanceSet>> sets(mapping.cbegin(), mapping.cend());
    for (const QPointer<CoordinateInstanceSet> &set : sets) {
        for (const eLivingSpace livingSpace : set ? set->livingSpaces() : QList<eLivingSpace>()) {
            for (const quint16 element : set ? set->elementList() : QList<quint16>()) {
                if (set && set->nativeValueText(livingSpace, element, false).toUInt() == number)
                    return true;
            }
        }
    }
    return false;
}

void ParameterContainerPrivate::dispatchDependencyChange(eParameterProperty property,
    eLivingSpace livingSpace, ParameterCoordinate source, quint16 element)
{
    const CoordinateInstanceSet *set = find(source);
    const qint32 reference =
        set && DependencyPairs::isDependency(property) ? set->dependency(element, property) : 0;
    if (reference == 0)
        return;
    const LifeGuard guard(this);
    const DependencyChange change(this);
    switch (m_dispatchLimit.enter()) {
    case DispatchLimit::eDecision::CutAndReport:
        reportCut(source);
        return;
    case DispatchLimit::eDecision::Cut:
        return;
    case DispatchLimit::eDecision::Dispatch:
        break;
    }
    const auto leave = qScopeGuard([&guard, this] {
        if (guard)
            m_dispatchLimit.leave();
    });
    const DependencyKey key = DependencyPairs::key(property, reference, source);
    for (const DependencyReceiver &receiver : m_index.receivers(key)) {
        if (receiver.set)
            receiver.set->onDependencyChanged(key, livingSpace, receiver.elements);
        if (!guard)
            return;
    }
}

void ParameterContainerPrivate::reportCut(const ParameterCoordinate &source) const
{
    System::addCriticalMessage(domain,
        source.toText()
            + tr(" löst zu viele aufeinander folgende Änderungen aus. Die weiteren Abhängigkeiten "
                 "wurden nicht mehr ausgeführt!"));
}

QList<ParameterAddress> ParameterContainerPrivate::addresses() const
{
    QList<ParameterAddress> list;
    coordinateSets.forEach([&list](const CoordinateInstanceSet &set) {
        const QList<quint16> elements = set.elementList();
        for (const eLivingSpace livingSpace : set.livingSpaces()) {
            for (const quint16 element : elements)
                list.append(set.address(livingSpace, element));
        }
    });
    std::sort(list.begin(), list.end());
    return list;
}

void ParameterContainerPrivate::onCoordinateChanged(
    ParameterAddress oldAddress, ParameterAddress newAddress)
{
    const CoordinateInstanceSet *set = find(oldAddress.coordinate());
    if (!set || set->coordinate() != newAddress.coordinate())
        return;
    coordinateSets.insert(newAddress.coordinate(), coordinateSets.take(oldAddress.coordinate()));
    m_index.update(find(newAddress.coordinate()));
    addressLists.clear();
}

void ParameterContainerPrivate::setOnline(bool isOnline)
{
    if (isOnline)
        pendingNames.clear();
}

void ParameterContainerPrivate::updateAllParameterVisibility()
{
    const QPointer<ParameterContainerPrivate> guard(this);
    const quint32 before = m_knownAccessLevel;
    // A listener may change the level again; that change tells its own differences.
    const quint32 now = System::information()->userAccessLevel();
    m_knownAccessLevel = now;
    Q_EMIT accessLevelUpdateStarted();
    if (!guard)
        return;
    tellAccessLevel(before, now);
    if (guard)
        Q_EMIT accessLevelUpdateFinished();
}

void ParameterContainerPrivate::tellAccessLevel(quint32 before, quint32 now)
{
    const LifeGuard guard(this);
    const QuestionRound round(*this);
    for (const QPointer<CoordinateInstanceSet> &set : guardedSets()) {
        if (set)
            set->onAccessLevelChanged(before, now);
        if (!guard)
            return;
    }
}

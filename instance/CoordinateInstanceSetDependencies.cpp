// What CoordinateInstanceSet does when another value changed, and how it tells others of its own.

#include "instance/CoordinateInstanceSet.h"

#include "instance/CoordinateRegistry.h"
#include "instance/DependencyChange.h"
#include "instance/DependencyPairs.h"
#include "instance/DependencyTable.h"
#include "instance/HidingState.h"
#include "instance/MeasuringUnitResolver.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

#include <QtCore/QHash>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::array<eParameterProperty, 3> UnitProperties {eParameterProperty::ScaledMeasuringUnit,
    eParameterProperty::NativeMeasuringUnit, eParameterProperty::FieldbusMeasuringUnit};

/// What listeners hear of only where it differs, so that it must be known before.
constexpr std::array<eParameterProperty, 3> ComparedDependencies {
    eParameterProperty::LimitDependency, eParameterProperty::HidingDependency,
    eParameterProperty::MeasuringUnitDependency};

constexpr qint32 MappingKind = 11;

QList<DependencyKey> keysOf(const ElementFacts &facts)
{
    QList<DependencyKey> keys;
    for (const eParameterProperty dependency : DependencyOrder) {
        if (dependency == eParameterProperty::MeasuringUnitDependency)
            continue;
        const quint16 index = facts.functionIndex(DependencyPairs::receiverProperty(dependency));
        if (index != 0)
            keys.append({dependency, index});
    }
    for (const eParameterProperty property : UnitProperties) {
        const ParameterCoordinate located =
            MeasuringUnitResolver::locatedCoordinate(facts.unit(property));
        const DependencyKey key {eParameterProperty::MeasuringUnitDependency, located.toNumber()};
        if (located.isValid() && !keys.contains(key))
            keys.append(key);
    }
    return keys;
}

} // namespace

void CoordinateInstanceSet::onDependencyChanged(
    const DependencyKey &key, eLivingSpace livingSpace, const QList<quint16> &elements)
{
    forEachFollower(
        key, livingSpace, elements, [&](ParameterInstanceData *record, quint16 element) {
            followDependency(key.dependency, record, element);
        });
}

void CoordinateInstanceSet::prepareForDependency(
    const DependencyKey &key, eLivingSpace livingSpace, const QList<quint16> &elements)
{
    forEachFollower(
        key, livingSpace, elements, [&](ParameterInstanceData *record, quint16 element) {
            if (key.dependency == eParameterProperty::LimitDependency) {
                if (!record->areLimitsKnown(element) && !areLimitsMasked(element))
                    record->updateLimits(element);
            } else if (key.dependency == eParameterProperty::HidingDependency) {
                record->isHidden(element);
            } else if (!record->areUnitsKnown(element)) {
                const Guard guard(this);
                const QString texts = unitTexts(record->livingSpace(), element);
                if (has(guard, element))
                    record->updateUnits(element, texts);
            }
        });
}

void CoordinateInstanceSet::forEachFollower(const DependencyKey &key, eLivingSpace livingSpace,
    const QList<quint16> &elements,
    const std::function<void(ParameterInstanceData *, quint16)> &function)
{
    // Which elements follow may have changed since they were named.
    forEachValue(elements.isEmpty() ? m_elements.list() : elements,
        [&](ParameterInstanceData *record, quint16 element) {
            if (DependencyPairs::reaches(livingSpace, record->livingSpace())
                && dependsOn(key, element))
                function(record, element);
        });
}

QHash<DependencyKey, QList<quint16>> CoordinateInstanceSet::followedKeys() const
{
    QHash<DependencyKey, QList<quint16>> followed;
    if (!m_elements.isRecord()) {
        for (const DependencyKey &key : keysOf(m_properties.facts(0)))
            followed.insert(key, {});
        return followed;
    }
    // The facts are one where elements share an information.
    const ElementFacts *last = nullptr;
    QList<DependencyKey> keys;
    for (const quint16 element : m_elements.list()) {
        const ElementFacts &facts = m_properties.facts(element);
        if (std::exchange(last, &facts) != &facts)
            keys = keysOf(facts);
        for (const DependencyKey &key : std::as_const(keys))
            followed[key].append(element);
    }
    return followed;
}

bool CoordinateInstanceSet::isMapping() const
{
    if (!m_elements.isRecord())
        return m_properties.facts(0).kind == MappingKind;
    const QList<quint16> elements = m_elements.list();
    return std::any_of(elements.cbegin(), elements.cend(),
        [this](quint16 element) { return m_properties.facts(element).kind == MappingKind; });
}

bool CoordinateInstanceSet::dependsOn(const DependencyKey &key, quint16 element) const
{
    const ElementFacts &facts = m_properties.facts(element);
    if (key.dependency != eParameterProperty::MeasuringUnitDependency)
        return facts.functionIndex(DependencyPairs::receiverProperty(key.dependency))
            == key.reference;
    return std::any_of(UnitProperties.begin(), UnitProperties.end(), [&](eParameterProperty each) {
        return MeasuringUnitResolver::locatedCoordinate(facts.unit(each)).toNumber()
            == key.reference;
    });
}

void CoordinateInstanceSet::followDependency(
    eParameterProperty property, ParameterInstanceData *record, quint16 element)
{
    const Guard guard(this);
    const eLivingSpace livingSpace = record->livingSpace();
    switch (property) {
    case eParameterProperty::LimitDependency:
        if (!areLimitsMasked(element) && record->updateLimits(element) && guard)
            Q_EMIT limitsChanged(address(livingSpace, element));
        return;
    case eParameterProperty::ScalingDependency:
        // The native value stays; what changed is how it is shown.
        Q_EMIT valueChanged(address(livingSpace, element));
        if (isListed(guard, element))
            Q_EMIT m_container->parameterValueChanged(address(livingSpace, element));
        return;
    case eParameterProperty::PostwriteDependency:
        record->runFunction(eFunctionKind::Postwrite, element);
        return;
    case eParameterProperty::PrereadDependency:
        record->runFunction(eFunctionKind::Preread, element);
        return;
    case eParameterProperty::PostreadDependency:
        record->runFunction(eFunctionKind::Postread, element);
        return;
    case eParameterProperty::PrewriteDependency:
        record->runFunction(eFunctionKind::Prewrite, element);
        return;
    case eParameterProperty::HidingDependency:
        askHiddenAnew(record, element);
        return;
    default: {
        const QString texts = unitTexts(livingSpace, element);
        if (has(guard, element) && record->updateUnits(element, texts))
            emitMeasuringUnitChanged(livingSpace, element);
    }
    }
}

void CoordinateInstanceSet::askHiddenAnew(ParameterInstanceData *record, quint16 element)
{
    const Guard guard(this);
    const quint32 userLevel = System::information()->userAccessLevel();
    const bool wasShown = isShown(*record, element, userLevel);
    if (has(guard, element))
        record->updateHidden(element);
    if (has(guard, element) && isShown(*record, element, userLevel) != wasShown)
        emitVisibilityChanged(record->livingSpace(), element);
}

QString CoordinateInstanceSet::unitTexts(eLivingSpace livingSpace, quint16 element) const
{
    QString texts;
    const Guard guard(this);
    for (const eParameterProperty property : UnitProperties) {
        if (!has(guard, element))
            return texts;
        // Nobody asked for a unit that is missing.
        if (m_properties.facts(element).has(property))
            texts += MeasuringUnitResolver::allTexts(unit(property, livingSpace, element))
                + QChar(QChar::Null);
    }
    return texts;
}

void CoordinateInstanceSet::prepareReceivers(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    const Preparation preparation(m_registry);
    if (!preparation.isAllowed())
        return;
    for (const eParameterProperty property : ComparedDependencies) {
        const qint32 reference =
            has(guard, element) ? m_properties.facts(element).dependency(property) : 0;
        if (reference == 0)
            continue;
        const DependencyKey wanted = DependencyPairs::key(property, reference, m_coordinate);
        for (const DependencyReceiver &receiver : m_registry->receivers(wanted)) {
            if (receiver.set)
                receiver.set->prepareForDependency(wanted, key, receiver.elements);
            if (!guard)
                return;
        }
    }
}

void CoordinateInstanceSet::dispatchDependencies(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    for (const eParameterProperty property : DependencyOrder) {
        const ElementFacts &facts = m_properties.facts(element);
        const bool isLeading = facts.dependency(property) != 0;
        // An override without a value has none, and yet the definition knows the property.
        if (!isLeading && (facts.has(property) || hasElementProperty(element, property)))
            continue;
        if (!isLeading)
            PropertyResolver::report(PropertyResolver::eFault::Missing, property, m_coordinate);
        else if (property == eParameterProperty::HidingDependency)
            dispatchHiding(key, element);
        else
            m_container->dispatchDependencyChange(property, key, m_coordinate, element);
        if (!has(guard, element))
            return;
    }
}

void CoordinateInstanceSet::dispatchHiding(eLivingSpace key, quint16 element)
{
    if (!m_hiding)
        m_hiding = std::make_unique<HidingState>();
    const auto decision = m_hiding->throttle.decide(m_clock ? (*m_clock)() : QTime::currentTime());
    if (decision == HidingThrottle::eDecision::Dispatch) {
        m_container->dispatchDependencyChange(
            eParameterProperty::HidingDependency, key, m_coordinate, element);
        return;
    }
    const Guard guard(this);
    if (decision == HidingThrottle::eDecision::SuppressAndReport
        && System::information()->userAccessLevel() == HidingState::ReportedUserLevel) {
        System::addCriticalMessage(m_container->domain(),
            m_coordinate.toText()
                + tr(" verursacht zyklisch Aktualisierungen der Parametersichtbarkeit. Mehr als "
                     "zehn davon wurden in den letzten 5 Sekunden unterdrückt!"));
    }
    if (guard && !m_hiding->timer)
        deferHiding(element);
}

void CoordinateInstanceSet::deferHiding(quint16 element)
{
    m_hiding->deferredElement = element;
    m_hiding->timer = new QTimer(this);
    m_hiding->timer->setSingleShot(true);
    m_hiding->timer->setInterval(HidingThrottle::Deferral);
    connect(m_hiding->timer, &QTimer::timeout, this,
        &CoordinateInstanceSet::onSuppressedHidingTimerTimedout);
    m_hiding->timer->start();
}

void CoordinateInstanceSet::onSuppressedHidingTimerTimedout()
{
    if (m_hasLeft || !m_hiding || !m_hiding->timer)
        return;
    const Guard guard(this);
    QTimer *const timer = m_hiding->timer;
    m_container->dispatchDependencyChange(eParameterProperty::HidingDependency,
        eLivingSpace::Global, m_coordinate, m_hiding->deferredElement);
    // A listener may have invoked this too.
    if (!guard || m_hiding->timer != timer)
        return;
    m_hiding->timer = nullptr;
    timer->deleteLater();
}

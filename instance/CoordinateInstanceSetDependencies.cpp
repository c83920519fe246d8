// What CoordinateInstanceSet does when another value changed, and how it tells others of its own.

#include "instance/CoordinateInstanceSet.h"

#include "instance/CoordinateRegistry.h"
#include "instance/DependencyPairs.h"
#include "instance/DependencyTable.h"
#include "instance/HidingState.h"
#include "instance/MeasuringUnitResolver.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>

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

/// The facts are one where elements share an information.
template <typename Function>
void forEachFacts(
    const ElementCatalogue &elements, const PropertyResolver &properties, Function function)
{
    if (!elements.isRecord()) {
        function(properties.facts(0));
        return;
    }
    const ElementFacts *last = nullptr;
    for (const quint16 element : elements.list()) {
        const ElementFacts *facts = &properties.facts(element);
        if (std::exchange(last, facts) != facts)
            function(*facts);
    }
}

} // namespace

void CoordinateInstanceSet::onDependencyChanged(const DependencyKey &key, eLivingSpace livingSpace)
{
    forEachValue([&](ParameterInstanceData *record, quint16 element) {
        if (DependencyPairs::reaches(livingSpace, record->livingSpace()) && dependsOn(key, element))
            followDependency(key.dependency, record, element);
    });
}

void CoordinateInstanceSet::prepareForDependency(const DependencyKey &key, eLivingSpace livingSpace)
{
    forEachValue([&](ParameterInstanceData *record, quint16 element) {
        if (!DependencyPairs::reaches(livingSpace, record->livingSpace())
            || !dependsOn(key, element))
            return;
        if (key.dependency == eParameterProperty::LimitDependency) {
            if (!record->areLimitsKnown(element))
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

QList<DependencyKey> CoordinateInstanceSet::dependencyKeys() const
{
    QSet<DependencyKey> keys;
    forEachFacts(m_elements, m_properties, [&keys](const ElementFacts &facts) {
        for (const eParameterProperty dependency : DependencyOrder) {
            if (dependency == eParameterProperty::MeasuringUnitDependency)
                continue;
            const quint16 index =
                facts.functionIndex(DependencyPairs::receiverProperty(dependency));
            if (index != 0)
                keys.insert({dependency, index});
        }
        for (const eParameterProperty property : UnitProperties) {
            const ParameterCoordinate located =
                MeasuringUnitResolver::locatedCoordinate(facts.unit(property));
            if (located.isValid())
                keys.insert({eParameterProperty::MeasuringUnitDependency, located.toNumber()});
        }
    });
    return keys.values();
}

bool CoordinateInstanceSet::isMapping() const
{
    bool isOne = false;
    forEachFacts(m_elements, m_properties,
        [&isOne](const ElementFacts &facts) { isOne = isOne || facts.kind == MappingKind; });
    return isOne;
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
        if (record->updateLimits(element) && guard)
            Q_EMIT limitsChanged(address(livingSpace, element));
        return;
    case eParameterProperty::ScalingDependency:
        // The native value stays; what changed is how it is shown.
        Q_EMIT valueChanged(address(livingSpace, element));
        if (guard)
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
        texts += MeasuringUnitResolver::allTexts(unit(property, livingSpace, element))
            + QChar(QChar::Null);
    }
    return texts;
}

void CoordinateInstanceSet::prepareReceivers(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    for (const eParameterProperty property : ComparedDependencies) {
        const qint32 reference =
            has(guard, element) ? m_properties.facts(element).dependency(property) : 0;
        if (reference == 0 || !m_registry)
            continue;
        const DependencyKey wanted = DependencyPairs::key(property, reference, m_coordinate);
        for (const QPointer<CoordinateInstanceSet> &set : m_registry->receivers(wanted)) {
            if (set)
                set->prepareForDependency(wanted, key);
            if (!guard)
                return;
        }
    }
}

void CoordinateInstanceSet::dispatchDependencies(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    for (const eParameterProperty property : DependencyOrder) {
        const ParameterProperty reference = elementProperty(element, property);
        if (!reference.isValid())
            PropertyResolver::report(PropertyResolver::eFault::Missing, property, m_coordinate);
        else if (reference.asInt32() == 0)
            continue;
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
    if (!m_hiding || !m_hiding->timer)
        return;
    const Guard guard(this);
    m_container->dispatchDependencyChange(eParameterProperty::HidingDependency,
        eLivingSpace::Global, m_coordinate, m_hiding->deferredElement);
    if (!guard)
        return;
    m_hiding->timer->deleteLater();
    m_hiding->timer = nullptr;
}

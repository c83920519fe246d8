// What CoordinateInstanceSet does when another value changed, and how it tells others of its own.

#include "instance/CoordinateInstanceSet.h"

#include "instance/DependencyPairs.h"
#include "instance/DependencyTable.h"
#include "instance/HidingState.h"
#include "instance/MeasuringUnitResolver.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <array>

namespace {

constexpr std::array<eParameterProperty, 3> UnitProperties {eParameterProperty::ScaledMeasuringUnit,
    eParameterProperty::NativeMeasuringUnit, eParameterProperty::FieldbusMeasuringUnit};

} // namespace

void CoordinateInstanceSet::onDependencyChanged(eParameterProperty property,
    eLivingSpace livingSpace, const ParameterCoordinate &coordinate, quint16 element)
{
    const QPointer<ParameterInformation> source = m_container->parameterInformation(coordinate);
    const qint32 reference = source ? source->elementProperty(element, property).asInt32() : 0;
    if (reference == 0)
        return;
    forEachValue([&](ParameterInstanceData *record, quint16 each) {
        if (DependencyPairs::reaches(livingSpace, record->livingSpace())
            && dependsOn(property, reference, coordinate, each))
            followDependency(property, record, each);
    });
}

bool CoordinateInstanceSet::dependsOn(eParameterProperty property, qint32 reference,
    const ParameterCoordinate &coordinate, quint16 element) const
{
    if (property != eParameterProperty::MeasuringUnitDependency) {
        const eParameterProperty own = DependencyPairs::receiverProperty(property);
        return qint32(m_properties.facts(element).functionIndex(own)) == reference;
    }
    return std::any_of(UnitProperties.begin(), UnitProperties.end(), [&](eParameterProperty each) {
        return MeasuringUnitResolver::locatedCoordinate(m_properties.read(element, each))
            == coordinate;
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
        texts += MeasuringUnitResolver::allTexts(unit(property, livingSpace, element)) + QChar(QChar::Null);
    }
    return texts;
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

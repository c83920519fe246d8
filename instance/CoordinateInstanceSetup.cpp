// The write side of CoordinateInstanceSet: stores first, then emits.

#include "instance/CoordinateInstanceSet.h"

#include "instance/DependencyChange.h"
#include "instance/DependencyPairs.h"
#include "instance/MeasuringUnitResolver.h"

#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

#include <algorithm>

namespace {

/// Whether listeners hear of a change of the answer that the property decides.
constexpr bool isSignalled(eParameterProperty property)
{
    switch (property) {
    case eParameterProperty::ReadLevel:
    case eParameterProperty::WriteLevel:
    case eParameterProperty::LowerLimitValue:
    case eParameterProperty::UpperLimitValue:
    case eParameterProperty::ScaledMeasuringUnit:
    case eParameterProperty::NativeMeasuringUnit:
    case eParameterProperty::FieldbusMeasuringUnit:
        return true;
    default:
        return false;
    }
}

} // namespace

void CoordinateInstanceSet::setElementCount(quint16 count)
{
    const bool isCount =
        count >= ElementCatalogue::LeastCount && count <= ElementCatalogue::GreatestCount;
    if (!isSimpleParameter() || !isCount || m_container->isOnline() || m_container->isReadOnly())
        return;
    m_elements.setCount(count);
    forgetAnswers();
    if (m_registry)
        m_registry->onElementsChanged();
    const Guard guard(this);
    if (!emitDefinitionChanged())
        return;
    const ParameterAddress first =
        address(isGlobalParameter() ? eLivingSpace::Global : eLivingSpace::Axis1, 0);
    if (has(guard, 0))
        Q_EMIT nativeValueChanged(first);
    if (isListed(guard, 0))
        Q_EMIT m_container->parameterNativeValueChanged(first);
}

void CoordinateInstanceSet::setCoordinate(const ParameterCoordinate &coordinate)
{
    if (!m_definition || !coordinate.isValid() || coordinate == m_coordinate)
        return;
    const bool isDefault = m_definition->defaultCoordinates().contains(coordinate);
    const bool isMove =
        coordinate.isMoveable() && (m_coordinate.isMoveable() || !m_coordinate.isValid());
    if ((!isDefault && !isMove) || m_container->parameterSetup(coordinate))
        return;

    const ParameterCoordinate before = m_coordinate;
    m_coordinate = coordinate;
    // Once, whatever elements there are.
    if (m_registry && !m_hasLeft)
        m_registry->onCoordinateChanged(
            ParameterAddress(0, before, 0), ParameterAddress(0, coordinate, 0));
    forEachValue([this, before, coordinate](ParameterInstanceData *record, quint16 element) {
        // A listener may have moved the set on; that move has told its own addresses.
        if (m_coordinate != coordinate)
            return;
        const ParameterAddress newAddress = address(record->livingSpace(), element);
        ParameterAddress oldAddress = newAddress;
        oldAddress.setCoordinate(before);
        Q_EMIT coordinateChanged(oldAddress, newAddress);
    });
}

void CoordinateInstanceSet::setProperty(
    quint16 element, eParameterProperty property, const ParameterProperty &value)
{
    if (!m_elements.contains(element))
        return;
    if (property == eParameterProperty::ElementCount) {
        setElementCount(value.asUint16());
        return;
    }
    if (PropertyResolver::isFixed(property) || !m_properties.isDefined(element, property))
        return;

    const Guard guard(this);
    const bool isAnswer = isSignalled(property);
    const QList<PropertyAnswer> before =
        isAnswer ? answers(element, property) : QList<PropertyAnswer>();
    if (!has(guard, element))
        return;
    m_properties.setOverride(element, property, value, m_container->parameterChangeTag());
    if (m_registry && DependencyPairs::isIndexed(property))
        m_registry->onPropertiesChanged(this);
    if (!isAnswer)
        return;
    forgetAnswers();
    const QList<PropertyAnswer> after = answers(element, property);
    if (guard)
        emitAnswerChanges(before, after, property);
}

QList<CoordinateInstanceSet::PropertyAnswer> CoordinateInstanceSet::answers(
    quint16 element, eParameterProperty property) const
{
    const QList<quint16> elements =
        m_elements.isRecord() ? QList<quint16> {element} : m_elements.list();
    const Guard guard(this);
    QList<PropertyAnswer> list;
    for (const eLivingSpace livingSpace : m_instances.livingSpaces()) {
        for (const quint16 each : elements) {
            if (has(guard, each))
                list.append({livingSpace, each, answer(property, livingSpace, each)});
            if (!guard)
                return list;
        }
    }
    return list;
}

QString CoordinateInstanceSet::answer(
    eParameterProperty property, eLivingSpace livingSpace, quint16 element) const
{
    const auto text = [](bool answer) { return QString(QLatin1Char(answer ? '1' : '0')); };
    switch (property) {
    case eParameterProperty::ReadLevel:
        return text(isShown(
            *m_instances.find(livingSpace), element, System::information()->userAccessLevel()));
    case eParameterProperty::WriteLevel:
        return text(AccessRules::isWritable(writeFacts(*m_instances.find(livingSpace), element)));
    case eParameterProperty::LowerLimitValue:
    case eParameterProperty::UpperLimitValue:
        return limitText(property, livingSpace, element);
    case eParameterProperty::ScaledMeasuringUnit:
    case eParameterProperty::NativeMeasuringUnit:
    case eParameterProperty::FieldbusMeasuringUnit:
        return MeasuringUnitResolver::allTexts(unit(property, livingSpace, element));
    default:
        return {};
    }
}

void CoordinateInstanceSet::emitAnswerChanges(const QList<PropertyAnswer> &before,
    const QList<PropertyAnswer> &after, eParameterProperty property)
{
    const Guard guard(this);
    for (qsizetype i = 0; i < qMin(before.size(), after.size()) && guard; ++i) {
        const PropertyAnswer &was = before.at(i);
        const PropertyAnswer &now = after.at(i);
        // The elements changed meanwhile; definitionChanged has told that.
        if (was.livingSpace != now.livingSpace || was.element != now.element)
            return;
        if (now.text != was.text && has(guard, now.element))
            emitAnswerChanged(property, now.livingSpace, now.element);
    }
}

void CoordinateInstanceSet::emitAnswerChanged(
    eParameterProperty property, eLivingSpace livingSpace, quint16 element)
{
    switch (property) {
    case eParameterProperty::ReadLevel:
        emitVisibilityChanged(livingSpace, element);
        return;
    case eParameterProperty::WriteLevel:
        Q_EMIT writabilityChanged(address(livingSpace, element));
        return;
    case eParameterProperty::LowerLimitValue:
    case eParameterProperty::UpperLimitValue:
        Q_EMIT limitsChanged(address(livingSpace, element));
        return;
    default:
        emitMeasuringUnitChanged(livingSpace, element);
    }
}

void CoordinateInstanceSet::setValueText(
    eLivingSpace livingSpace, quint16 element, const QString &displayText)
{
    const Guard guard(this);
    bool ok = false;
    const QString adopted = adoptValueText(displayText, livingSpace, element, &ok);
    ParameterInstanceData *found = ok && guard ? record(livingSpace, element) : nullptr;
    if (!found)
        return;
    QString native = found->toNativeText(element, adopted);
    const quint32 code = has(guard, element) ? found->checkCode(element, native) : 0;
    if (!has(guard, element))
        return;
    if (code == 0)
        storeValueText(guard, found, element, adopted, std::move(native));
    else
        found->rejectValue(element, native, code);
}

void CoordinateInstanceSet::setNativeValue(
    eLivingSpace livingSpace, quint16 element, const QString &valueText)
{
    const Guard guard(this);
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return;
    QString native = found->toNativeText(element, valueText);
    if (has(guard, element))
        storeValueText(guard, found, element, valueText, std::move(native));
}

void CoordinateInstanceSet::storeValueText(const Guard &guard, ParameterInstanceData *record,
    quint16 element, const QString &valueText, QString nativeText)
{
    const QString stored = record->value(element);
    if (!has(guard, element))
        return;
    const bool isSame = stored == nativeText || record->toValueText(element, stored) == valueText;
    if (!has(guard, element))
        return;
    if (isSame)
        record->setValueChangeTag(element, m_container->parameterChangeTag());
    else
        storeNative(guard, record, element, std::move(nativeText));
}

void CoordinateInstanceSet::storeNative(
    const Guard &guard, ParameterInstanceData *record, quint16 element, QString nativeText)
{
    const eLivingSpace livingSpace = record->livingSpace();
    if (m_hasLeft || m_properties.facts(element).isIndependent()) {
        record->setValue(element, std::move(nativeText));
        emitValueChanged(guard, livingSpace, element);
        return;
    }
    const DependencyChange change(m_registry);
    prepareReceivers(livingSpace, element);
    if (!has(guard, element))
        return;
    record->setValue(element, std::move(nativeText));
    if (emitValueChanged(guard, livingSpace, element) && has(guard, element))
        dispatchDependencies(livingSpace, element);
}

void CoordinateInstanceSet::setNativeText(
    eLivingSpace livingSpace, quint16 element, const QString &nativeText)
{
    const Guard guard(this);
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return;
    const bool isSame = found->hasValue(element, nativeText);
    if (!has(guard, element))
        return;
    if (isSame)
        found->setValueChangeTag(element, m_container->parameterChangeTag());
    else
        storeNative(guard, found, element, nativeText);
}

void CoordinateInstanceSet::setOnlineValueText(
    eLivingSpace livingSpace, quint16 element, const QString &nativeText)
{
    if (!m_elements.contains(element))
        return;
    const Guard guard(this);
    const eLivingSpace instanceKey = key(livingSpace);
    ParameterInstanceData *found = m_instances.find(instanceKey);
    if (found && !found->hasValue(element, nativeText) && has(guard, element))
        storeNative(guard, found, element, nativeText);
    if (guard && m_consistence.arrived(instanceKey, element))
        Q_EMIT allElementsConsistenceOnceDone(m_coordinate, livingSpace);
}

void CoordinateInstanceSet::setDefaultValueText(
    eLivingSpace livingSpace, quint16 element, const QString &displayText)
{
    const Guard guard(this);
    bool ok = false;
    const QString adopted = adoptValueText(displayText, livingSpace, element, &ok);
    if (ok && guard)
        setDefaultNativeValue(livingSpace, element, adopted);
}

void CoordinateInstanceSet::setDefaultNativeValue(
    eLivingSpace livingSpace, quint16 element, const QString &valueText)
{
    const Guard guard(this);
    const ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return;
    const QString native = found->toNativeText(element, valueText);
    if (guard)
        setDefaultNativeValueText(livingSpace, element, native);
}

void CoordinateInstanceSet::setDefaultNativeValueText(
    eLivingSpace livingSpace, quint16 element, const QString &nativeText)
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return;
    found->setDefaultValue(element, nativeText);
    emitDefaultChanged(found->livingSpace(), element);
}

bool CoordinateInstanceSet::setValueChangeTag(
    eLivingSpace livingSpace, quint16 element, const QString &tag)
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return false;
    // A value that nobody read yet is taken from its default now: the read would renew the tag.
    const Guard guard(this);
    found->value(element);
    if (!has(guard, element))
        return false;
    found->setValueChangeTag(element, tag);
    return true;
}

bool CoordinateInstanceSet::setDefaultValueChangeTag(
    eLivingSpace livingSpace, quint16 element, const QString &tag)
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return false;
    const Guard guard(this);
    found->defaultValue(element);
    if (!has(guard, element))
        return false;
    found->setDefaultValueChangeTag(element, tag);
    return true;
}

void CoordinateInstanceSet::setParameterNeedsConsistence(
    eLivingSpace livingSpace, quint16 element, bool needed)
{
    const eLivingSpace instanceKey = key(livingSpace);
    const ParameterAddress at = address(instanceKey, element);
    if (!record(livingSpace, element))
        return;
    const ParameterProperty automatic =
        elementProperty(element, eParameterProperty::AutomaticOnlineUpdate);
    const Guard guard(this);
    // An override without a value has none, and yet the definition knows the property.
    if (!automatic.isValid()
        && !hasElementProperty(element, eParameterProperty::AutomaticOnlineUpdate)) {
        System::addWarningMessage(QStringLiteral("CoordinateInstanceSet"),
            QLatin1String("Missing property \"automatic online update\" at parameter ")
                + m_coordinate.toText() + QLatin1Char('"'));
    } else if (automatic.asDouble() != 0.0) {
        // Reading what mapping parameters hold may run the firmware.
        const bool isMapped = m_container->isParameterMapped(at);
        if (!guard || (!isMapped && !m_container->isParameterBlockUsed(at)))
            return;
    }
    if (isListed(guard, element))
        m_container->dispatchParameterOnlineConsistenceNeed(at, needed);
}

void CoordinateInstanceSet::startAllElementsConsistenceOnce(eLivingSpace livingSpace)
{
    if (m_hasLeft || !m_container->isOnline()) {
        Q_EMIT allElementsConsistenceOnceCanceled(m_coordinate, livingSpace);
        return;
    }
    const eLivingSpace instanceKey = key(livingSpace);
    QList<quint16> elements = m_elements.list();
    std::sort(elements.begin(), elements.end());
    const quint32 run = m_consistence.start(instanceKey, elements);
    const Guard guard(this);
    for (const quint16 element : elements) {
        if (!m_elements.contains(element))
            continue;
        m_container->dispatchParameterOnlineConsistenceNeedOnce(address(instanceKey, element));
        // A listener may cancel the run or start another while it is being asked for.
        if (!guard || !m_consistence.isCurrent(instanceKey, run))
            return;
    }
}

void CoordinateInstanceSet::cancelAllElementsConsistenceOnce(eLivingSpace livingSpace)
{
    m_consistence.cancel(key(livingSpace));
    Q_EMIT allElementsConsistenceOnceCanceled(m_coordinate, livingSpace);
}

bool CoordinateInstanceSet::forEachValue(
    const std::function<void(ParameterInstanceData *, quint16)> &function)
{
    return forEachValue(m_elements.list(), function);
}

bool CoordinateInstanceSet::forEachValue(const QList<quint16> &elements,
    const std::function<void(ParameterInstanceData *, quint16)> &function)
{
    const Guard guard(this);
    for (const eLivingSpace livingSpace : m_instances.livingSpaces()) {
        for (const quint16 element : elements) {
            if (!m_elements.contains(element))
                continue;
            function(m_instances.find(livingSpace), element);
            if (!guard)
                return false;
        }
    }
    return true;
}

void CoordinateInstanceSet::connectNotify(const QMetaMethod &signal)
{
    Q_UNUSED(signal)
    m_isHeard = true;
}

bool CoordinateInstanceSet::emitValueChanged(const Guard &guard, eLivingSpace key, quint16 element)
{
    const ParameterAddress at = address(key, element);
    // Not asked again between the two: a listener may have deleted the set.
    if (m_isHeard) {
        Q_EMIT valueChanged(at);
        if (has(guard, element))
            Q_EMIT nativeValueChanged(at);
    }
    if (isListed(guard, element))
        Q_EMIT m_container->parameterValueChanged(at);
    if (isListed(guard, element))
        Q_EMIT m_container->parameterNativeValueChanged(at);
    return bool(guard);
}

bool CoordinateInstanceSet::emitDefaultChanged(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    const ParameterAddress at = address(key, element);
    Q_EMIT defaultValueChanged(at);
    if (isListed(guard, element))
        Q_EMIT m_container->parameterDefaultValueChanged(at);
    return bool(guard);
}

bool CoordinateInstanceSet::emitDefinitionChanged()
{
    const bool isThere = forEachValue([this](ParameterInstanceData *record, quint16 element) {
        const Guard guard(this);
        const ParameterAddress at = address(record->livingSpace(), element);
        Q_EMIT definitionChanged(at);
        if (isListed(guard, element))
            Q_EMIT m_container->parameterDefinitionChanged(at);
    });
    return isThere && endRunsOfLostElements();
}

bool CoordinateInstanceSet::endRunsOfLostElements()
{
    const Guard guard(this);
    const QList<eLivingSpace> complete =
        m_consistence.forget([this](quint16 element) { return m_elements.contains(element); });
    for (const eLivingSpace livingSpace : complete) {
        Q_EMIT allElementsConsistenceOnceDone(m_coordinate, livingSpace);
        if (!guard)
            return false;
    }
    return true;
}

bool CoordinateInstanceSet::emitVisibilityChanged(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    const ParameterAddress at = address(key, element);
    Q_EMIT visibilityChanged(at);
    if (isListed(guard, element))
        Q_EMIT m_container->parameterVisibilityChanged(at);
    return bool(guard);
}

bool CoordinateInstanceSet::emitMeasuringUnitChanged(eLivingSpace key, quint16 element)
{
    const Guard guard(this);
    const ParameterAddress at = address(key, element);
    Q_EMIT measuringUnitChanged(at);
    if (isListed(guard, element))
        Q_EMIT m_container->parameterMeasuringUnitChanged(at);
    return bool(guard);
}

bool CoordinateInstanceSet::emitChanges(
    eLivingSpace key, const ParameterInstanceData::Changes &changes)
{
    const Guard guard(this);
    for (const quint16 element : changes.values) {
        if (m_elements.contains(element) && !emitValueChanged(guard, key, element))
            return false;
    }
    for (const quint16 element : changes.defaults) {
        if (m_elements.contains(element) && !emitDefaultChanged(key, element))
            return false;
    }
    return true;
}

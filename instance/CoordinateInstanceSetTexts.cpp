// The texts of CoordinateInstanceSet: values in their forms, typed texts, units, limits and choices.

#include "instance/CoordinateInstanceSet.h"

#include "instance/MeasuringUnitResolver.h"
#include "value/DisplayForms.h"
#include "value/RejectionReport.h"
#include "value/ValueTextConverter.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

namespace {

/// Memory allocation of a parameter that holds no value of its own.
constexpr int NoStorage = 1;

} // namespace

QString CoordinateInstanceSet::displayValueText(
    eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    const Guard guard(this);
    // Moved out, not copied: a const text would be.
    QString text = prepared(guard, livingSpace, element, withUnit);
    if (!has(guard, element) || !record(livingSpace, element) || m_container->isOnline()
        || m_container->isReadOnly())
        return text;
    const int level = writeLevel(element);
    if (level < AccessRules::MaskedWriteLevel || !has(guard, element))
        return text;
    return AccessRules::masked(text,
        {.isOnline = false,
            .isReadOnly = false,
            .isShownOffline = m_properties.facts(element).isShownOffline,
            .writeLevel = level,
            .userLevel = System::information()->userAccessLevel()});
}

/// The stored value in the scaled unit; empty when the firmware's functions removed the element.
QString CoordinateInstanceSet::storedValueText(
    const Guard &guard, eLivingSpace livingSpace, quint16 element) const
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return {};
    const QString native = found->value(element);
    return has(guard, element) ? found->toValueText(element, native) : QString();
}

/// The display text of the stored value.
QString CoordinateInstanceSet::prepared(
    const Guard &guard, eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    const QString text = storedValueText(guard, livingSpace, element);
    return !text.isEmpty() && has(guard, element)
        ? prepare(guard, text, livingSpace, element, withUnit, nullptr)
        : QString();
}

QString CoordinateInstanceSet::nativeValueText(
    eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return {};
    const Guard guard(this);
    QString text = found->value(element);
    if (withUnit && has(guard, element))
        return this->withUnit(text, eParameterProperty::NativeMeasuringUnit, livingSpace, element);
    return text;
}

QString CoordinateInstanceSet::valueText(
    eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    const Guard guard(this);
    QString text = storedValueText(guard, livingSpace, element);
    if (withUnit && has(guard, element))
        return this->withUnit(text, eParameterProperty::ScaledMeasuringUnit, livingSpace, element);
    return text;
}

QString CoordinateInstanceSet::preparedValueText(
    eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    const Guard guard(this);
    if (!record(livingSpace, element) || memoryAllocation(element) == NoStorage || !guard)
        return {};
    return prepared(guard, livingSpace, element, withUnit);
}

QString CoordinateInstanceSet::unconvertedNativeValueText(
    eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    const Guard guard(this);
    if (!record(livingSpace, element) || memoryAllocation(element) == NoStorage || !guard)
        return {};
    return nativeValueText(livingSpace, element, withUnit);
}

QString CoordinateInstanceSet::unconvertedValueText(
    eLivingSpace livingSpace, quint16 element, bool withUnit) const
{
    return valueText(livingSpace, element, withUnit);
}

QString CoordinateInstanceSet::formattedValueText(
    eLivingSpace livingSpace, quint16 element, int kind) const
{
    const Guard guard(this);
    const QString text = storedValueText(guard, livingSpace, element);
    if (!has(guard, element))
        return {};
    return ValueTextConverter(*this).format(text, livingSpace, element, kind);
}

QString CoordinateInstanceSet::formattedNativeValueText(
    eLivingSpace livingSpace, quint16 element, int kind, bool withUnit) const
{
    const Guard guard(this);
    const QString native = nativeValueText(livingSpace, element, false);
    if (!has(guard, element))
        return {};
    const QString text = ValueTextConverter(*this).format(native, livingSpace, element, kind);
    return withUnit && has(guard, element)
        ? this->withUnit(text, eParameterProperty::NativeMeasuringUnit, livingSpace, element)
        : text;
}

QString CoordinateInstanceSet::prepareValueText(const QString &valueText, eLivingSpace livingSpace,
    quint16 element, bool withUnit, bool *ok) const
{
    if (ok)
        *ok = false;
    if (!m_elements.contains(element) || valueText.isEmpty())
        return {};
    if (record(livingSpace, element))
        return prepare(Guard(this), valueText, livingSpace, element, withUnit, ok);
    if (ok)
        *ok = true;
    return valueText;
}

QString CoordinateInstanceSet::prepare(const Guard &guard, const QString &valueText,
    eLivingSpace livingSpace, quint16 element, bool withUnit, bool *ok) const
{
    const QString unitText = withUnit && DisplayForms::showsUnit(m_properties.facts(element).kind)
        ? this->unitText(eParameterProperty::ScaledMeasuringUnit, livingSpace, element)
        : QString();
    if (!has(guard, element))
        return {};
    ValueTextConverter converter(*this);
    QString text = converter.prepare(valueText, livingSpace, element, unitText);
    if (ok)
        *ok = converter.problems().isEmpty();
    if (!converter.problems().isEmpty() && guard)
        reportConversion(
            &RejectionReport::preparingMessage, converter.problems(), livingSpace, element);
    return text;
}

QString CoordinateInstanceSet::adoptValueText(
    const QString &displayText, eLivingSpace livingSpace, quint16 element, bool *ok) const
{
    // No conversion, no error.
    if (ok)
        *ok = true;
    if (!m_elements.contains(element))
        return {};
    const Guard guard(this);
    // A blank stands before every unit that is typed.
    const QString unitText = displayText.contains(QLatin1Char(' '))
            && m_properties.facts(element).has(eParameterProperty::ScaledMeasuringUnit)
            && DisplayForms::readsUnit(m_properties.facts(element).kind)
        ? this->unitText(eParameterProperty::ScaledMeasuringUnit, livingSpace, element)
        : QString();
    if (!has(guard, element)) {
        if (ok)
            *ok = false;
        return {};
    }
    ValueTextConverter converter(*this);
    QString text = converter.adopt(displayText, livingSpace, element, unitText);
    if (converter.problems().isEmpty())
        return text;
    if (ok)
        *ok = false;
    if (guard)
        reportConversion(
            &RejectionReport::adoptingMessage, converter.problems(), livingSpace, element);
    return text;
}

void CoordinateInstanceSet::reportConversion(ConversionMessage message, const QStringList &problems,
    eLivingSpace livingSpace, quint16 element) const
{
    const ParameterInstanceData *found = record(livingSpace, element);
    const QString place = found ? found->addressText(element) : m_coordinate.toText();
    const QString domain = m_container->domain();
    for (const QString &problem : problems)
        System::addCriticalMessage(domain, message(place, problem));
}

ParameterText CoordinateInstanceSet::scaledMeasuringUnit(quint16 element) const
{
    return unit(eParameterProperty::ScaledMeasuringUnit,
        m_instances.livingSpaces().value(0, eLivingSpace::Global), element);
}

ParameterText CoordinateInstanceSet::nativeMeasuringUnit(quint16 element) const
{
    return unit(eParameterProperty::NativeMeasuringUnit,
        m_instances.livingSpaces().value(0, eLivingSpace::Global), element);
}

ParameterText CoordinateInstanceSet::fieldbusMeasuringUnit(quint16 element) const
{
    return unit(eParameterProperty::FieldbusMeasuringUnit,
        m_instances.livingSpaces().value(0, eLivingSpace::Global), element);
}

ParameterText CoordinateInstanceSet::unit(
    eParameterProperty property, eLivingSpace livingSpace, quint16 element) const
{
    const ElementFacts *facts = reportedFacts(element, property);
    if (!facts)
        return {};
    const Guard guard(this);
    const ParameterCoordinate coordinate = m_coordinate;
    const ParameterProperty value = facts->unit(property);
    const MeasuringUnitResolver::Outcome outcome =
        MeasuringUnitResolver::resolve(value, m_container, livingSpace);
    if (!guard)
        return {};
    MeasuringUnitResolver::report(outcome.problem, property, coordinate);
    return outcome.unit;
}

QString CoordinateInstanceSet::unitText(
    eParameterProperty property, eLivingSpace livingSpace, quint16 element) const
{
    // A plain unit, as most are, is told without a copy of its texts.
    const QVariant &value = m_properties.facts(element).unit(property).asVariant();
    if (value.metaType() == QMetaType::fromType<ParameterText>())
        return static_cast<const ParameterText *>(value.constData())->longText();
    return unit(property, livingSpace, element).longText();
}

QString CoordinateInstanceSet::withUnit(const QString &text, eParameterProperty property,
    eLivingSpace livingSpace, quint16 element) const
{
    if (text.isEmpty())
        return text;
    const QString unitText = this->unitText(property, livingSpace, element);
    return unitText.isEmpty() ? text : text + QLatin1Char(' ') + unitText;
}

QString CoordinateInstanceSet::lowerLimitText(eLivingSpace livingSpace, quint16 element) const
{
    return limitText(eParameterProperty::LowerLimitValue, livingSpace, element);
}

QString CoordinateInstanceSet::upperLimitText(eLivingSpace livingSpace, quint16 element) const
{
    return limitText(eParameterProperty::UpperLimitValue, livingSpace, element);
}

bool CoordinateInstanceSet::areLimitsMasked(quint16 element) const
{
    const ElementFacts &facts = m_properties.facts(element);
    return facts.writeLevel >= AccessRules::MaskedWriteLevel && facts.memoryAllocation == NoStorage;
}

QString CoordinateInstanceSet::limitText(
    eParameterProperty property, eLivingSpace livingSpace, quint16 element) const
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return {};
    const Guard guard(this);
    const bool isMasked = writeLevel(element) >= AccessRules::MaskedWriteLevel && guard
        && memoryAllocation(element) == NoStorage;
    if (isMasked || !has(guard, element))
        return {};
    // What was told first is what a change is measured by.
    const bool isFollowing =
        m_properties.facts(element).functionIndex(eParameterProperty::LimitFunctionIndex) != 0;
    if (isFollowing && !found->areLimitsKnown(element))
        found->updateLimits(element);
    if (!has(guard, element))
        return {};
    return property == eParameterProperty::LowerLimitValue ? found->lowerLimit(element)
                                                           : found->upperLimit(element);
}

bool CoordinateInstanceSet::isValueTextAcceptable(
    eLivingSpace livingSpace, quint16 element, const QString &displayText) const
{
    const Guard guard(this);
    bool ok = false;
    const QString adopted = adoptValueText(displayText, livingSpace, element, &ok);
    ParameterInstanceData *found = ok && guard ? record(livingSpace, element) : nullptr;
    if (!found)
        return false;
    const QString native = found->toNativeText(element, adopted);
    return guard && m_elements.contains(element) && found->checkValue(element, native);
}

ParameterTextMap CoordinateInstanceSet::selectionTexts(
    eLivingSpace livingSpace, quint16 element) const
{
    if (!record(livingSpace, element))
        return {};
    return ValueTextConverter(*this).choiceTexts(livingSpace, element);
}

QString CoordinateInstanceSet::defaultNativeValueText(
    eLivingSpace livingSpace, quint16 element) const
{
    ParameterInstanceData *found = record(livingSpace, element);
    return found ? found->defaultValue(element) : QString();
}

QString CoordinateInstanceSet::defaultValueText(eLivingSpace livingSpace, quint16 element) const
{
    ParameterInstanceData *found = record(livingSpace, element);
    if (!found)
        return {};
    const Guard guard(this);
    const QString native = found->defaultValue(element);
    return has(guard, element) ? found->toValueText(element, native) : QString();
}

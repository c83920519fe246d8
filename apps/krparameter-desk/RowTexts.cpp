#include "apps/krparameter-desk/RowTexts.h"

#include "apps/host/ActionForm.h"
#include "apps/host/DriveProject.h"

#include <KrParameterInstance/ParameterInformation.h>

namespace {

constexpr int DecimalKind = 0;
/// Memory allocation of values that the device measures.
constexpr int NotStored = 1;

} // namespace

RowTexts::RowTexts(DriveProject &project)
    : m_project(project)
    , m_trial(project)
{
}

QString RowTexts::address(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found ? place.addressText(*found) : QString();
}

QString RowTexts::name(const ValuePlace &place) const
{
    const auto found = parameter(place);
    if (!found)
        return {};
    const QString name = found->name().longText();
    const QString element =
        found->isRecordParameter() ? found->elementName(place.element).longText() : QString();
    return element.isEmpty() ? name : name + QStringLiteral(" · ") + element;
}

QString RowTexts::value(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found ? found->displayValueText(place.livingSpace, place.element, false) : QString();
}

QString RowTexts::unit(const ValuePlace &place) const
{
    const auto found = parameter(place);
    if (!found)
        return {};
    // A masked text has no unit, the value text always has the one there is.
    const QString value = found->valueText(place.livingSpace, place.element, false);
    const QString withUnit = found->valueText(place.livingSpace, place.element, true);
    return withUnit.size() > value.size() ? withUnit.sliced(value.size() + 1) : QString();
}

QString RowTexts::defaultValue(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found ? m_trial.defaultText(*found, place) : QString();
}

QString RowTexts::lowerLimit(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found ? m_trial.lowerLimit(*found, place) : QString();
}

QString RowTexts::upperLimit(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found ? m_trial.upperLimit(*found, place) : QString();
}

QString RowTexts::changeTag(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found
        ? found->attribute(place.livingSpace, place.element, QStringLiteral("ValueChangeTag"))
        : QString();
}

QList<RowTexts::Choice> RowTexts::choices(const ValuePlace &place) const
{
    const auto found = parameter(place);
    QList<Choice> result;
    if (!found)
        return result;
    const ParameterTextMap texts = found->selectionTexts(place.livingSpace, place.element);
    for (const qint32 key : texts.keys()) {
        const QString number = QString::number(key);
        result.append({number, number + QLatin1String(": ") + texts.text(key).longText()});
    }
    return result;
}

QString RowTexts::longestChoice(const ValuePlace &place) const
{
    QString longest;
    for (const auto &[native, shown] : choices(place)) {
        if (shown.size() > longest.size())
            longest = shown;
    }
    return longest;
}

QString RowTexts::nativeValue(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found ? found->nativeValueText(place.livingSpace, place.element, false) : QString();
}

bool RowTexts::isVisible(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found && found->isVisible(place.livingSpace, place.element);
}

bool RowTexts::startsAction(const ValuePlace &place) const
{
    const auto found = place.element == 0 ? parameter(place) : nullptr;
    return found && ActionForm::isAction(*found);
}

bool RowTexts::differsFromDefault(const ValuePlace &place) const
{
    const auto found = parameter(place);
    if (!found
        || found->elementProperty(place.element, eParameterProperty::MemoryAllocation).asInt32()
            == NotStored)
        return false;
    return found->nativeValueText(place.livingSpace, place.element, false)
        != found->defaultNativeValueText(place.livingSpace, place.element);
}

bool RowTexts::isNumber(const ValuePlace &place) const
{
    const auto found = parameter(place);
    return found
        && found->elementProperty(place.element, eParameterProperty::ParameterKind).asInt32()
        == DecimalKind;
}

QString RowTexts::searched(const ValuePlace &place) const
{
    const QLatin1Char separator('\n');
    return address(place) + separator + name(place) + separator + unit(place) + separator
        + value(place);
}

QPointer<ParameterInformation> RowTexts::parameter(const ValuePlace &place) const
{
    return m_project.container().parameterInformation(place.coordinate);
}

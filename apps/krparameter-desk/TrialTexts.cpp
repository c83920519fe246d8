#include "apps/krparameter-desk/TrialTexts.h"

#include "apps/host/DriveProject.h"

#include <KrParameterInstance/ParameterInformation.h>

TrialTexts::TrialTexts(DriveProject &project)
    : m_project(project)
{
    const ParameterContainer &container = project.container();
    connect(
        &container, &ParameterContainer::parameterNativeValueChanged, this, &TrialTexts::follow);
    connect(
        &container, &ParameterContainer::parameterDefinitionChanged, this, &TrialTexts::startAnew);
    connect(&container, &ParameterContainer::parameterAdded, this, &TrialTexts::startAnew);
    connect(&container, &ParameterContainer::parameterRemoved, this, &TrialTexts::startAnew);
}

TrialTexts::~TrialTexts() = default;

QString TrialTexts::defaultText(const ParameterInformation &parameter, const ValuePlace &place)
{
    return shown(place, parameter.defaultNativeValueText(place.livingSpace, place.element));
}

QString TrialTexts::lowerLimit(const ParameterInformation &parameter, const ValuePlace &place)
{
    return shown(place, parameter.lowerLimitText(place.livingSpace, place.element));
}

QString TrialTexts::upperLimit(const ParameterInformation &parameter, const ValuePlace &place)
{
    return shown(place, parameter.upperLimitText(place.livingSpace, place.element));
}

QString TrialTexts::shown(const ValuePlace &place, const QString &nativeText)
{
    if (nativeText.isEmpty())
        return {};
    if (!m_trial)
        m_trial = std::make_unique<TrialCopy>(m_project);
    return m_trial->displayText(place, nativeText, TrialCopy::eUnit::Without);
}

void TrialTexts::follow(const ParameterAddress &address)
{
    const auto parameter = m_project.container().parameterInformation(address.coordinate());
    if (!m_trial || !parameter)
        return;
    const ValuePlace place = ValuePlace::of(address, *parameter);
    m_trial->follow(place, parameter->nativeValueText(place.livingSpace, place.element, false));
}

void TrialTexts::startAnew()
{
    m_trial.reset();
}

#include "value/ActionParameterImplementation.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterSetup.h>

namespace {

constexpr quint16 ControlElement = 0;
constexpr quint16 ProgressElement = 1;
constexpr quint16 ResultElement = 2;
constexpr qint32 RequiresEnableOff = 1;

QPointer<ParameterInformation> deviceStateParameter(const ParameterSetup &parameter)
{
    return parameter.parameterContainer()->parameterInformation(
        ParameterCoordinate(QStringLiteral("E48")));
}

/// Deliberate: 5 is not among the enabled states though its neighbours are.
constexpr bool isDriveEnabled(int deviceState)
{
    return deviceState == 3 || deviceState == 4 || deviceState == 6 || deviceState == 7;
}

} // namespace

ActionParameterImplementation::ActionParameterImplementation(
    const QPointer<ParameterSetup> &parameter, eLivingSpace axis)
    : m_parameter(parameter)
    , m_axis(axis)
{
    if (const QPointer<ParameterInformation> state = deviceStateParameter(*m_parameter)) {
        connect(state, &ParameterInformation::valueChanged, this,
            [this] { deviceControlStateChanged(); });
    }
    connect(m_parameter, &ParameterInformation::valueChanged, this,
        [this](ParameterAddress address) { onActionChanged(address); });
    for (const quint16 element : {ControlElement, ProgressElement, ResultElement}) {
        if (m_parameter)
            m_parameter->setParameterNeedsConsistence(m_axis, element, true);
    }
}

ActionParameterImplementation::~ActionParameterImplementation() = default;

bool ActionParameterImplementation::start()
{
    if (!isEnabled())
        return false;
    m_parameter->setValueText(m_axis, ControlElement, QStringLiteral("1"));
    return true;
}

bool ActionParameterImplementation::isIdle() const
{
    return number(ControlElement) == 0;
}

QString ActionParameterImplementation::name() const
{
    return m_parameter ? m_parameter->name().longText() : QString();
}

QString ActionParameterImplementation::stateText() const
{
    if (!m_parameter)
        return {};
    const QString title = m_parameter->elementName(ResultElement).longText();
    return title + QLatin1String(": ") + m_parameter->displayValueText(m_axis, ResultElement, true);
}

QString ActionParameterImplementation::description() const
{
    return m_parameter ? m_parameter->description(ControlElement) : QString();
}

// Deliberate: a change on another axis is announced too.
void ActionParameterImplementation::onActionChanged(ParameterAddress address)
{
    if (address.element() == ControlElement)
        Q_EMIT stateChanged();
    else if (address.element() == ProgressElement)
        announceProgress();
}

void ActionParameterImplementation::announceProgress()
{
    const QPointer<ActionParameterImplementation> guard(this);
    const int percent = number(ProgressElement);
    if (guard)
        Q_EMIT progressChanged(percent);
}

void ActionParameterImplementation::deviceControlStateChanged()
{
    const QPointer<ActionParameterImplementation> guard(this);
    const bool isNowEnabled = isEnabled();
    if (guard)
        Q_EMIT enableChanged(isNowEnabled);
}

/// Reading a value runs functions of the firmware, which may take the parameter or this object away;
/// true only where both are still there.
bool ActionParameterImplementation::isEnabled() const
{
    const QPointer<const ActionParameterImplementation> guard(this);
    const auto isThere = [this, &guard] { return guard && m_parameter; };
    // Deliberate: a running action counts as enabled whatever the drive's state.
    const bool isRunning = !isIdle();
    if (isRunning || !isThere())
        return isThere();
    const qint32 requirement =
        m_parameter->elementProperty(ControlElement, eParameterProperty::EnableOffRequired)
            .asInt32();
    if (requirement != RequiresEnableOff)
        return true;
    const bool isStopped = !isDriveEnabled(deviceState());
    return isThere() && isStopped;
}

int ActionParameterImplementation::number(quint16 element) const
{
    return m_parameter ? m_parameter->valueText(m_axis, element, false).toInt() : 0;
}

int ActionParameterImplementation::deviceState() const
{
    const QPointer<ParameterInformation> state = deviceStateParameter(*m_parameter);
    return state ? state->valueText(m_axis, 0, false).toInt() : 0;
}

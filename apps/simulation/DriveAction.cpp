#include "apps/simulation/DriveAction.h"

#include "apps/host/ActionForm.h"
#include "apps/host/DeviceState.h"
#include "apps/simulation/AxisStates.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

namespace {

constexpr quint16 ControlElement = 0;
constexpr quint16 ProgressElement = 1;
constexpr quint16 ResultElement = 2;

constexpr int NoResult = 0;
constexpr int Successful = 1;
constexpr int Aborted = 2;
constexpr int LastPercent = 100;

} // namespace

DriveAction::DriveAction(ParameterContainer &container, AxisStates &states,
    const ParameterCoordinate &coordinate, eLivingSpace livingSpace)
    : m_container(container)
    , m_states(states)
    , m_coordinate(coordinate)
    , m_livingSpace(livingSpace)
{
}

bool DriveAction::isAt(const ValuePlace &place) const
{
    return place == ValuePlace {m_coordinate, m_livingSpace, ControlElement};
}

bool DriveAction::accepts(int command) const
{
    if (command != 1 || isRunning())
        return command == 0 || command == 1;
    return !needsDisabledAxis()
        || !DeviceState::isEnabled(DeviceState::read(m_container, m_livingSpace));
}

void DriveAction::command(int command)
{
    if (command == 0 && isRunning()) {
        end(Aborted);
        return;
    }
    if (command != 1 || isRunning())
        return;
    m_progress = 0;
    m_isEnabling = !needsDisabledAxis();
    if (m_isEnabling)
        m_states.enable(m_livingSpace);
    set(ProgressElement, 0);
    set(ResultElement, NoResult);
    set(ControlElement, 1);
}

void DriveAction::step()
{
    if (!isRunning())
        return;
    set(ProgressElement, ++m_progress);
    if (m_progress == LastPercent)
        end(Successful);
}

bool DriveAction::needsDisabledAxis() const
{
    const auto parameter = m_container.parameterInformation(m_coordinate);
    return parameter && ActionForm::needsDisabledAxis(*parameter);
}

void DriveAction::end(int result)
{
    m_progress = -1;
    set(ResultElement, result);
    if (m_isEnabling)
        m_states.release(m_livingSpace);
    // Last: who sees it idle finds the result.
    set(ControlElement, 0);
}

void DriveAction::set(quint16 element, int number)
{
    m_container.writeValueNative(m_livingSpace, m_coordinate, element, QString::number(number));
}

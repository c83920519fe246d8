#include "apps/simulation/AxisStates.h"

#include "apps/host/DeviceState.h"

void AxisStates::advance(eLivingSpace livingSpace, int from, int to)
{
    const auto hold = m_holds.find(livingSpace);
    if (hold != m_holds.end()) {
        if (hold->state == from)
            hold->state = to;
    } else if (DeviceState::read(m_container, livingSpace) == from) {
        DeviceState::write(m_container, livingSpace, to);
    }
}

void AxisStates::enable(eLivingSpace livingSpace)
{
    if (!m_holds.contains(livingSpace))
        m_holds.insert(livingSpace, {0, DeviceState::read(m_container, livingSpace)});
    ++m_holds[livingSpace].count;
    DeviceState::write(m_container, livingSpace, DeviceState::OperationEnabled);
}

void AxisStates::release(eLivingSpace livingSpace)
{
    const auto hold = m_holds.find(livingSpace);
    if (hold == m_holds.end() || --hold->count > 0)
        return;
    const int state = hold->state;
    m_holds.erase(hold);
    if (state >= 0 && DeviceState::read(m_container, livingSpace) == DeviceState::OperationEnabled)
        DeviceState::write(m_container, livingSpace, state);
}

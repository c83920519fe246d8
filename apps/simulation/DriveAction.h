#pragma once

#include "apps/host/ValuePlace.h"

class AxisStates;
class ParameterContainer;

/// A procedure of the simulated drive behind a record parameter: element 0 starts it and tells that it
/// runs, element 1 counts to 100, element 2 has the result.
class DriveAction {
public:
    /// **Owner** the caller; container and states outlive the action.
    DriveAction(ParameterContainer &container, AxisStates &states,
        const ParameterCoordinate &coordinate, eLivingSpace livingSpace);

    bool isAt(const ValuePlace &place) const;
    /// 0 and 1 only; 1 while it runs is taken and changes nothing. **Refused** to start an action that
    /// needs a disabled axis on an enabled one.
    bool accepts(int command) const;
    /// 1 starts it, 0 ends it before its time.
    void command(int command);
    /// One percent further.
    void step();

private:
    bool isRunning() const { return m_progress >= 0; }
    bool needsDisabledAxis() const;
    void end(int result);
    void set(quint16 element, int number);

    ParameterContainer &m_container;
    AxisStates &m_states;
    ParameterCoordinate m_coordinate;
    eLivingSpace m_livingSpace;
    /// **Unit** percent; negative while it does not run.
    int m_progress = -1;
    /// The run has enabled its axis.
    bool m_isEnabling = false;
};

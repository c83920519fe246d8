#pragma once

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QHash>

class ParameterContainer;

/// The states of the simulated drive's axes, which start up by themselves and are enabled while an action
/// runs that needs it.
class AxisStates {
public:
    /// **Owner** the caller; the container outlives this.
    explicit AxisStates(ParameterContainer &container)
        : m_container(container)
    {
    }

    /// From one state of the start-up to the next, where the axis is in the first; an enabled axis goes
    /// there when it is released.
    void advance(eLivingSpace livingSpace, int from, int to);
    /// Enables the axis; each call wants a release() of its own.
    void enable(eLivingSpace livingSpace);
    /// The last one brings the axis back where it would be, unless it has left the enabled state.
    void release(eLivingSpace livingSpace);

private:
    struct Hold {
        int count = 0;
        /// Where the axis would be.
        int state = 0;
    };

    ParameterContainer &m_container;
    /// No key: nothing holds the axis.
    QHash<eLivingSpace, Hold> m_holds;
};

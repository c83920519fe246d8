#pragma once

#include "instance/HidingThrottle.h"

#include <QtCore/QTimer>

/// The hiding throttle of a set with the update that it holds back.
struct HidingState {
    /// The one user level that is told of cyclic updates.
    static constexpr quint32 ReportedUserLevel = 5;

    HidingThrottle throttle;
    /// The pending deferred update; null where there is none. **Owner** the set.
    QTimer *timer = nullptr;
    /// Element of the first suppressed update of a burst.
    quint16 deferredElement = 0;
};

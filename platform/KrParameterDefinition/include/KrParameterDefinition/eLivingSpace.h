#pragma once

#include <QtCore/QtGlobal>

/// Value space of a parameter instance. 0 is the single space of a global parameter, 1 to 4 are the
/// device's axes. Other numbers are legal arguments and name no instance; a negative number asks
/// the firmware callbacks for the active axis.
enum class eLivingSpace : qint32 {
    Global = 0,
    Axis1 = 1,
    Axis2 = 2,
    Axis3 = 3,
    Axis4 = 4,
};

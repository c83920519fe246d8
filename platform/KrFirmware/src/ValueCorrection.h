#pragma once

#include "ValueBounds.h"

#include <QtCore/QString>

class SimpleType;

/// The acceptable native text closest to a given one.
///
/// A number is rounded to the type (half away from zero), then clamped into the limits, then into
/// the type, which wins where limits lie outside of it; limits that contradict each other give the
/// upper one. What is in range comes back as it stands. A text that is no number, a choice key that
/// the choice lacks and every string come back unchanged.
class ValueCorrection {
public:
    static QString corrected(
        const QString &nativeText, const SimpleType &type, const ValueBounds &bounds);
};

#pragma once

#include <QtCore/QtGlobal>

/// A 32-bit scaling factor as the shortest decimal that reads back as it: 0.1f is 0.1.
struct ScalingFactor {
    /// **Range** 0 to 999999999; 0 stands for no scaling, as for a number that is not finite or
    /// that no 32-bit float holds.
    quint32 coefficient = 0;
    int exponent = 0;
    bool isNegative = false;

    static ScalingFactor fromWidenedFloat(double value);

    bool isOne() const { return coefficient == 1 && exponent == 0 && !isNegative; }
    double toDouble() const;
};

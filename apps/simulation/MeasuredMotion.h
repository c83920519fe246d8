#pragma once

#include "apps/online/MappedValue.h"

#include <QtCore/QString>

class ParameterInformation;

/// How a measured value of the simulated drive moves: 20 steps away from where it began and back, again
/// and again.
class MeasuredMotion {
public:
    static constexpr int Reach = 20;

    /// Whether the value is a measured one: a plain number that is only read and not stored, with room
    /// to move.
    static bool isMeasured(const ParameterInformation &parameter, const MappedValue &value);

    /// **Range** a measured value.
    MeasuredMotion(const ParameterInformation &parameter, const MappedValue &value);

    const ValuePlace &place() const { return m_place; }
    /// Native text of a step, counted from 0, where it began.
    QString textAt(quint64 step) const;

private:
    ValuePlace m_place;
    double m_start;
    /// Of one step; negative where there is no room above.
    double m_stride;
};

#pragma once

#include "FunctionBudget.h"

#include <QtCore/QString>

#include <utility>

/// What all calls may use together that follow from one change of a value: half a second. Changes are
/// told apart by a text; the empty one is no change and has no bound.
class ChangeBudget {
public:
    static constexpr qint64 Instructions = 50 * FunctionBudget::Instructions;
    /// Calls that use less are not counted: their number is bounded already.
    static constexpr qint64 LeastCounted = FunctionBudget::Step;

    /// A change other than the last one begins with a full budget.
    void charge(const QString &change, qint64 instructions)
    {
        if (change.isEmpty())
            return;
        if (std::exchange(m_change, change) != change) {
            m_left = Instructions;
            m_isReported = false;
        }
        m_left -= instructions;
    }
    /// The change that was charged last has used up what it has. False is the usual answer, and asks
    /// for no text.
    bool isSpent() const { return m_left <= 0; }
    bool isSpent(const QString &change) const { return isSpent() && m_change == change; }
    /// True once a change.
    bool takeReport() { return !std::exchange(m_isReported, true); }

private:
    QString m_change;
    qint64 m_left = Instructions;
    bool m_isReported = false;
};

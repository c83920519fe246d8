#pragma once

#include <QtCore/QTime>
#include <QtCore/QtGlobal>

#include <chrono>

/// Decides whether a hiding update goes through: at most one in five seconds, so that parameters that
/// hide each other cannot keep the host busy.
class HidingThrottle {
public:
    /// Time during which further updates are held back after one that went through.
    static constexpr std::chrono::milliseconds Span {5000};
    /// The held-back update follows this long after the first that was suppressed.
    static constexpr std::chrono::milliseconds Deferral {5100};
    /// Suppressed updates of one burst at which the user is told.
    static constexpr int ReportedCount = 11;

    enum class eDecision {
        Dispatch,
        Suppress,
        SuppressAndReport, ///< The eleventh of a burst.
    };

    /// Milliseconds of the day may run backwards at midnight; such an update is held back.
    static constexpr bool isWithinSpan(std::chrono::milliseconds elapsed)
    {
        return elapsed < std::chrono::milliseconds(0)
            || (elapsed > std::chrono::milliseconds(0) && elapsed < Span);
    }

    /// Decides on an update at this time of day and counts it.
    eDecision decide(const QTime &now);
    int suppressedCount() const { return m_suppressedCount; }

private:
    QTime m_lastDispatch;
    int m_suppressedCount = 0;
};

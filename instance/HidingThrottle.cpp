#include "instance/HidingThrottle.h"

HidingThrottle::eDecision HidingThrottle::decide(const QTime &now)
{
    const std::chrono::milliseconds elapsed(
        m_lastDispatch.isValid() ? m_lastDispatch.msecsTo(now) : 0);
    if (!isWithinSpan(elapsed)) {
        m_suppressedCount = 0;
        m_lastDispatch = now;
        return eDecision::Dispatch;
    }
    ++m_suppressedCount;
    return m_suppressedCount == ReportedCount ? eDecision::SuppressAndReport : eDecision::Suppress;
}

#pragma once

#include <QtCore/qglobal.h>

/// Ends dependencies that go round in a circle. Counts the dispatches that run inside each other, and all
/// that follow from one outermost change.
class DispatchLimit {
public:
    static constexpr int Depth = 64;
    static constexpr int Count = 100000;

    enum class eDecision { Dispatch, Cut, CutAndReport };

    /// A dispatch that goes through is to be left again.
    eDecision enter()
    {
        if (m_depth < Depth && m_count < Count) {
            ++m_depth;
            ++m_count;
            return eDecision::Dispatch;
        }
        if (m_isReported)
            return eDecision::Cut;
        m_isReported = true;
        return eDecision::CutAndReport;
    }
    void leave()
    {
        --m_depth;
        resetWhenIdle();
    }

    /// A change dispatches several kinds of dependency.
    void beginChange() { ++m_changes; }
    void endChange()
    {
        --m_changes;
        resetWhenIdle();
    }

private:
    void resetWhenIdle()
    {
        if (m_depth > 0 || m_changes > 0)
            return;
        m_count = 0;
        m_isReported = false;
    }

    int m_changes = 0;
    int m_depth = 0;
    int m_count = 0;
    bool m_isReported = false;
};

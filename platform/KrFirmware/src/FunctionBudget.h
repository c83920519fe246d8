#pragma once

#include <QtCore/QtGlobal>

#include <chrono>

/// What one call of a firmware function may use, the functions that it leads to included.
///
/// Instructions are the measure. Since one instruction may compare or copy a large text, processor
/// time stands behind them as a second bound, far beyond what the instructions need.
class FunctionBudget {
public:
    static constexpr qint64 Instructions = 1000000;
    /// Instructions are counted in steps of this many.
    static constexpr int Step = 1000;
    static constexpr std::chrono::milliseconds ProcessorTime {50};

    void renew()
    {
        m_left = Instructions;
        m_isTimed = false;
        m_isInside = false;
        m_used = {};
    }
    bool isSpent() const { return m_left <= 0; }
    qint64 used() const { return Instructions - m_left; }
    void charge(qint64 instructions) { m_left -= instructions; }
    /// One step of instructions has run. The first one starts the clock: most functions never pay
    /// for it.
    void countStep();

    /// A function begins or goes on, ends or asks the container: its own time counts alone.
    void enter()
    {
        if (m_isTimed)
            startClock();
    }
    void leave()
    {
        if (m_isInside)
            stopClock();
    }

private:
    void startClock();
    void stopClock();

    qint64 m_left = Instructions;
    bool m_isTimed = false;
    /// A function's own code runs since then; processor time of the thread.
    bool m_isInside = false;
    std::chrono::nanoseconds m_since {};
    std::chrono::nanoseconds m_used {};
};

#pragma once

#include <ctime>

/// Processor time of the running thread, which a busy machine does not lengthen.
class ProcessorTimer {
public:
    ProcessorTimer()
        : m_start(now())
    {
    }

    /// **Unit** ms.
    double elapsed() const { return now() - m_start; }

private:
    static double now()
    {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e3 + double(time.tv_nsec) * 1e-6;
    }

    double m_start;
};

#include "FunctionBudget.h"

#include <ctime>

namespace {

/// Of this thread: a machine under load takes no time from a function.
std::chrono::nanoseconds processorTime()
{
    timespec now {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

} // namespace

void FunctionBudget::countStep()
{
    charge(Step);
    leave();
    m_isTimed = true;
    enter();
    if (m_used > ProcessorTime)
        m_left = 0;
}

void FunctionBudget::startClock()
{
    m_since = processorTime();
    m_isInside = true;
}

void FunctionBudget::stopClock()
{
    m_used += processorTime() - m_since;
    m_isInside = false;
}

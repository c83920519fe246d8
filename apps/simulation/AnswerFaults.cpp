#include "apps/simulation/AnswerFaults.h"

namespace {

bool take(int &count)
{
    if (count <= 0)
        return false;
    --count;
    return true;
}

} // namespace

void AnswerFaults::delay(int count, milliseconds span)
{
    m_delayed = count;
    m_delay = span;
}

AnswerFaults::Fate AnswerFaults::next()
{
    Fate fate;
    fate.isRefused = take(m_refused);
    fate.isBusy = take(m_busy);
    fate.isLost = take(m_lost);
    fate.isDoubled = take(m_doubled);
    if (take(m_delayed))
        fate.delay = m_delay;
    if (m_answersLeft && !take(*m_answersLeft))
        fate.isLost = true;
    return fate;
}

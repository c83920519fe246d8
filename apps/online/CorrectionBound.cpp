#include "apps/online/CorrectionBound.h"

CorrectionBound::eDecision CorrectionBound::ask(qsizetype value)
{
    const bool isGivenUp = m_givenUp.contains(value);
    if (m_counts[value]++ < (isGivenUp ? 1 : Most))
        return eDecision::Read;
    m_givenUp.insert(value);
    return isGivenUp ? eDecision::GivenUp : eDecision::GiveUp;
}

void CorrectionBound::rest()
{
    for (auto it = m_counts.cbegin(); it != m_counts.cend(); ++it) {
        if (it.value() == 1)
            m_givenUp.remove(it.key());
    }
    m_counts.clear();
}

void CorrectionBound::clear()
{
    *this = {};
}

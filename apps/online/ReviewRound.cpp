#include "apps/online/ReviewRound.h"

#include <algorithm>
#include <utility>

bool ReviewRound::ask(qsizetype value, bool isOnItsWay)
{
    if (isOnItsWay && m_values.contains(value))
        return false;
    const CorrectionBound::eDecision decision = m_bound.ask(value);
    if (decision == CorrectionBound::eDecision::GiveUp)
        m_disputed.append(value);
    if (decision != CorrectionBound::eDecision::Read)
        return false;
    m_values.insert(value);
    return true;
}

void ReviewRound::askForAll(const QList<qsizetype> &values)
{
    m_mayHaveRunFunctions = false;
    m_values.unite(QSet<qsizetype>(values.cbegin(), values.cend()));
}

void ReviewRound::functionsRan(quint32 request)
{
    m_mayHaveRunFunctions = true;
    m_lastRun = std::max(m_lastRun, request);
}

ReviewRound::eNext ReviewRound::next() const
{
    if (!m_values.isEmpty())
        return eNext::Wait;
    return m_mayHaveRunFunctions ? eNext::ReadAll : eNext::Rest;
}

QList<qsizetype> ReviewRound::awaited() const
{
    QList<qsizetype> values(m_values.cbegin(), m_values.cend());
    std::sort(values.begin(), values.end());
    return values;
}

QList<qsizetype> ReviewRound::rest()
{
    beginAnew();
    return std::exchange(m_disputed, {});
}

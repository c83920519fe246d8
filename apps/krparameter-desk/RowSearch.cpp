#include "apps/krparameter-desk/RowSearch.h"

#include <QtCore/QStringList>

#include <algorithm>

void RowSearch::clear()
{
    m_texts.clear();
    m_found.clear();
    m_pattern = QString();
}

void RowSearch::replace(qsizetype row, const QString &text)
{
    m_texts[row] = text.toCaseFolded();
    // The row may be found now that was not before.
    m_pattern = QString();
}

const QList<bool> &RowSearch::find(const QString &pattern)
{
    const QString folded = pattern.toCaseFolded();
    const bool narrows =
        !m_pattern.isEmpty() && m_found.size() == m_texts.size() && folded.startsWith(m_pattern);
    if (!narrows)
        m_found.fill(true, m_texts.size());
    const QStringList words = folded.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    bool *found = m_found.data();
    for (qsizetype row = 0; row < m_texts.size(); ++row)
        found[row] = found[row] && matches(m_texts.at(row), words);
    m_pattern = folded;
    return m_found;
}

bool RowSearch::matches(const QString &text, const QStringList &words) const
{
    return std::all_of(
        words.begin(), words.end(), [&text](const QString &word) { return text.contains(word); });
}

#include "apps/krparameter-desk/SearchedTexts.h"

#include <algorithm>

namespace {

/// Of which the texts are read at a time: about 2 ms.
constexpr qsizetype RowsOfAPiece = 1500;

} // namespace

SearchedTexts::SearchedTexts(const TextOf &textOf, QObject *parent)
    : QObject(parent)
    , m_textOf(textOf)
{
    connect(&m_idle, &QTimer::timeout, this, &SearchedTexts::readOn);
}

void SearchedTexts::start(qsizetype count)
{
    m_count = count;
    m_search.clear();
    m_search.reserve(count);
    m_idle.start();
    if (!m_pattern.isEmpty())
        readAll();
}

void SearchedTexts::setPattern(const QString &pattern)
{
    m_pattern = pattern;
    if (!pattern.isEmpty())
        readPiece();
}

void SearchedTexts::reread(qsizetype row)
{
    if (row < m_search.size())
        m_search.replace(row, m_textOf(row));
}

QList<bool> SearchedTexts::found()
{
    if (m_pattern.isEmpty())
        return {};
    QList<bool> found = m_search.find(m_pattern);
    found.append(QList<bool>(m_count - found.size(), true));
    return found;
}

void SearchedTexts::readOn()
{
    const bool wasAwaited = isAwaited();
    readPiece();
    if (wasAwaited)
        Q_EMIT foundAnew();
}

void SearchedTexts::readPiece()
{
    readTexts(std::min(m_search.size() + RowsOfAPiece, m_count));
}

void SearchedTexts::readTexts(qsizetype end)
{
    for (qsizetype row = m_search.size(); row < end; ++row)
        m_search.append(m_textOf(row));
    if (m_search.size() == m_count)
        m_idle.stop();
}

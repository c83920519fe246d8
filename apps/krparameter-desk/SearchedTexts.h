#pragma once

#include "apps/krparameter-desk/RowSearch.h"

#include <QtCore/QObject>
#include <QtCore/QTimer>

#include <functional>

/// Finds rows by texts that are read piece by piece while nothing else is to be done, so that no key waits
/// for all of them. A row that is not read yet counts as found: one that is selected stays so.
class SearchedTexts : public QObject {
    Q_OBJECT

public:
    /// What the search knows of a row.
    using TextOf = std::function<QString(qsizetype row)>;

    explicit SearchedTexts(const TextOf &textOf, QObject *parent = nullptr);

    /// So many rows, all texts anew. Where something is searched they are read at once: rows that are not
    /// shown must not come up for a moment.
    void start(qsizetype count);
    void setPattern(const QString &pattern);
    /// Rows may count as found whose texts are not read yet.
    bool isAwaited() const { return !m_pattern.isEmpty() && m_search.size() < m_count; }
    void readAll() { readTexts(m_count); }
    /// One of the rows says something else.
    void reread(qsizetype row);

    /// For each row; empty where nothing is searched.
    QList<bool> found();

Q_SIGNALS:
    /// Texts were read that the pattern waited for.
    void foundAnew();

private:
    void readOn();
    void readPiece();
    void readTexts(qsizetype end);

    TextOf m_textOf;
    qsizetype m_count = 0;
    /// Of the first rows; of all once the desk was idle.
    RowSearch m_search;
    QString m_pattern;
    /// Runs until all texts are read.
    QTimer m_idle;
};

#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

/// Finds rows by what stands in them, in upper or lower case. A row is found when it holds every
/// word of the pattern; an empty pattern finds every row.
class RowSearch {
public:
    qsizetype size() const { return m_texts.size(); }
    void clear();
    void reserve(qsizetype size) { m_texts.reserve(size); }
    /// The text of the next row.
    void append(const QString &text) { m_texts.append(text.toCaseFolded()); }
    void replace(qsizetype row, const QString &text);

    /// For each row whether it is found. A pattern that only adds letters to the last one asks
    /// those that were found then.
    const QList<bool> &find(const QString &pattern);

private:
    bool matches(const QString &text, const QStringList &words) const;

    QList<QString> m_texts;
    QList<bool> m_found;
    /// Folded; what m_found belongs to. Null: to nothing.
    QString m_pattern;
};

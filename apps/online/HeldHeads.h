#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

/// Keeps what was read of element 0 of a record until the other elements have been read no earlier: whoever
/// hears that an action is idle wants the progress and the result that belong to it.
class HeldHeads {
public:
    struct Head {
        /// Position in the map, like all values here.
        qsizetype value;
        QByteArray bytes;
        /// That read it.
        quint32 request;
    };

    /// Instead of what was held of the same value.
    void hold(const Head &head, const QList<qsizetype> &others);
    void drop(qsizetype value);
    void clear() { m_entries.clear(); }
    bool isEmpty() const { return m_entries.isEmpty(); }

    /// The value was read by the request, or will not be. What waits for nothing any more.
    QList<Head> arrived(qsizetype other, quint32 request);
    /// Whether it has to be read once more.
    bool waitsFor(qsizetype other) const;

private:
    struct Entry {
        Head head;
        QList<qsizetype> others;
    };

    QList<Entry> m_entries;
};

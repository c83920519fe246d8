#pragma once

#include <LmUtilities/LmUtilitiesExport.h>

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QList>

#include <memory>
#include <optional>
#include <vector>

namespace LmIniParser {

class ByteArena;

/// The keys of one section, in the order in which they were first written.
/// Keys and values are any bytes, also none. A key that is written again replaces the earlier value
/// and keeps its place. Reading in the order of writing is the fast case; any other order, and keys
/// that are absent, still take constant time. Used from one thread at a time, reading included.
class LmUtilities_EXPORT IniSection {
public:
    IniSection();
    ~IniSection();
    Q_DISABLE_COPY_MOVE(IniSection)

    bool contains(QByteArrayView key) const { return find(key).has_value(); }
    /// Empty where the key is absent. Valid until the section is written to or destroyed; reading
    /// never invalidates it.
    QByteArrayView read(QByteArrayView key) const { return find(key).value_or(QByteArrayView()); }
    /// The same; nothing where the key is absent.
    std::optional<QByteArrayView> find(QByteArrayView key) const;
    /// Copies both. They may be views that this section handed out.
    void write(QByteArrayView key, QByteArrayView value);
    QList<QByteArray> keys() const;
    /// For walks: as many keys as keys() lists, each as a view that lasts like a value's.
    qsizetype keyCount() const { return qsizetype(m_entries.size()); }
    QByteArrayView keyAt(qsizetype index) const { return m_entries[std::size_t(index)].key; }

private:
    friend class IniParser;

    struct Entry {
        QByteArrayView key;
        QByteArrayView value;
        /// Of the key: tells most others apart before their bytes are compared.
        quint32 checksum = 0;
    };

    /// One place of the open hash table. entry is the index in m_entries plus 1; 0: free.
    struct Slot {
        quint32 hash = 0;
        quint32 entry = 0;
    };

    /// Shares the arena with the other sections of one parser.
    explicit IniSection(std::shared_ptr<ByteArena> arena);

    /// Keeps the views: their bytes outlive the section. True where the key is new.
    bool put(QByteArrayView key, QByteArrayView value);
    // Each answers with the index in m_entries, -1 where the key is absent.
    qsizetype indexOf(QByteArrayView key) const;
    qsizetype findByComparing(QByteArrayView key, quint32 checksum) const;
    qsizetype findByHash(QByteArrayView key, quint32 hash) const;
    void index(std::size_t entry, quint32 hash);
    void growIndex();

    std::vector<Entry> m_entries;
    /// A power of two of places, at most half of them taken. Empty: the section is small enough to
    /// be searched by comparing.
    std::vector<Slot> m_index;
    std::shared_ptr<ByteArena> m_arena;
    /// The entry found last: the next look-up expects it again or the one behind it.
    mutable qsizetype m_cursor = 0;
};

} // namespace LmIniParser

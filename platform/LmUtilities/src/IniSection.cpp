#include <LmUtilities/IniSection.h>

#include "ByteArena.h"

#include <QtCore/QHash>

#include <cstring>
#include <utility>

namespace LmIniParser {

namespace {

/// Up to here comparing every key costs less than hashing one.
constexpr std::size_t LargestUnindexed = 16;
/// Spares the smallest steps of growth.
constexpr std::size_t FirstEntryCount = 4;
/// A power of two, so that a hash is cut to a place by a mask.
constexpr std::size_t FirstIndexSize = 64;

bool sameBytes(QByteArrayView left, QByteArrayView right)
{
    return left.size() == right.size()
        && (left.isEmpty()
            || std::memcmp(left.data(), right.data(), static_cast<std::size_t>(left.size())) == 0);
}

/// Cheap, and no protection against texts that are made to collide: there are few keys to compare.
quint32 checksumOf(QByteArrayView key)
{
    quint32 sum = 0;
    for (const char byte : key)
        sum = sum * 31 + static_cast<uchar>(byte);
    return sum;
}

/// Seeded per process, so that no text can be made up whose keys all collide.
quint32 hashOf(QByteArrayView key)
{
    const quint64 hash = qHash(key, QHashSeed::globalSeed());
    return static_cast<quint32>(hash ^ (hash >> 32));
}

} // namespace

IniSection::IniSection()
    : IniSection(std::make_shared<ByteArena>())
{
}

IniSection::IniSection(std::shared_ptr<ByteArena> arena)
    : m_arena(std::move(arena))
{
}

IniSection::~IniSection() = default;

std::optional<QByteArrayView> IniSection::find(QByteArrayView key) const
{
    const qsizetype entry = indexOf(key);
    return entry < 0 ? std::nullopt
                     : std::optional(m_entries[static_cast<std::size_t>(entry)].value);
}

void IniSection::write(QByteArrayView key, QByteArrayView value)
{
    if (put(key, m_arena->store(value)))
        m_entries.back().key = m_arena->store(key);
}

QList<QByteArray> IniSection::keys() const
{
    QList<QByteArray> keys;
    keys.reserve(static_cast<qsizetype>(m_entries.size()));
    for (const Entry &entry : m_entries)
        keys.append(entry.key.toByteArray());
    return keys;
}

bool IniSection::put(QByteArrayView key, QByteArrayView value)
{
    const quint32 checksum = checksumOf(key);
    const quint32 hash = m_index.empty() ? 0 : hashOf(key);
    const qsizetype known =
        m_index.empty() ? findByComparing(key, checksum) : findByHash(key, hash);
    if (known >= 0) {
        m_entries[static_cast<std::size_t>(known)].value = value;
        return false;
    }
    if (m_entries.empty())
        m_entries.reserve(FirstEntryCount);
    m_entries.push_back({key, value, checksum});
    const std::size_t count = m_entries.size();
    if (count > LargestUnindexed && 2 * count > m_index.size())
        growIndex();
    else if (!m_index.empty())
        index(count - 1, hash);
    return true;
}

qsizetype IniSection::indexOf(QByteArrayView key) const
{
    const auto count = static_cast<qsizetype>(m_entries.size());
    for (qsizetype next = m_cursor; next < qMin(m_cursor + 2, count); ++next) {
        if (sameBytes(m_entries[static_cast<std::size_t>(next)].key, key))
            return m_cursor = next;
    }
    const qsizetype found =
        m_index.empty() ? findByComparing(key, checksumOf(key)) : findByHash(key, hashOf(key));
    if (found >= 0)
        m_cursor = found;
    return found;
}

qsizetype IniSection::findByComparing(QByteArrayView key, quint32 checksum) const
{
    for (std::size_t entry = 0; entry < m_entries.size(); ++entry) {
        if (m_entries[entry].checksum == checksum && sameBytes(m_entries[entry].key, key))
            return static_cast<qsizetype>(entry);
    }
    return -1;
}

qsizetype IniSection::findByHash(QByteArrayView key, quint32 hash) const
{
    const std::size_t mask = m_index.size() - 1;
    for (std::size_t place = hash & mask; m_index[place].entry != 0; place = (place + 1) & mask) {
        const std::size_t entry = m_index[place].entry - 1;
        if (m_index[place].hash == hash && sameBytes(m_entries[entry].key, key))
            return static_cast<qsizetype>(entry);
    }
    return -1;
}

void IniSection::index(std::size_t entry, quint32 hash)
{
    const std::size_t mask = m_index.size() - 1;
    std::size_t place = hash & mask;
    while (m_index[place].entry != 0)
        place = (place + 1) & mask;
    m_index[place] = {hash, static_cast<quint32>(entry + 1)};
}

void IniSection::growIndex()
{
    m_index.assign(qMax(FirstIndexSize, 4 * m_index.size()), Slot());
    for (std::size_t entry = 0; entry < m_entries.size(); ++entry)
        index(entry, hashOf(m_entries[entry].key));
}

} // namespace LmIniParser

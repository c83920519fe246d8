#include "ByteArena.h"

#include <cstring>

namespace LmIniParser {

namespace {

constexpr qsizetype LargestChunk = 64 * 1024;

std::unique_ptr<char[]> makeChunk(qsizetype size)
{
    return std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(size));
}

} // namespace

QByteArrayView ByteArena::store(QByteArrayView bytes)
{
    if (bytes.isEmpty())
        return {};
    char *copy = allocate(bytes.size());
    std::memcpy(copy, bytes.data(), static_cast<std::size_t>(bytes.size()));
    return {copy, bytes.size()};
}

char *ByteArena::allocate(qsizetype size)
{
    // A long sequence gets a chunk to itself, so that it does not waste the rest of the current
    // one.
    if (size > m_left && size > m_chunkSize / 4)
        return m_chunks.emplace_back(makeChunk(size)).get();
    if (size > m_left) {
        m_next = m_chunks.emplace_back(makeChunk(m_chunkSize)).get();
        m_left = m_chunkSize;
        m_chunkSize = qMin(2 * m_chunkSize, LargestChunk);
    }
    char *const place = m_next;
    m_next += size;
    m_left -= size;
    return place;
}

} // namespace LmIniParser

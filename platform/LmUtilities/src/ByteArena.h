#pragma once

#include <QtCore/QByteArrayView>

#include <memory>
#include <vector>

namespace LmIniParser {

/// Keeps copies of byte sequences at addresses that last as long as the arena.
class ByteArena {
public:
    QByteArrayView store(QByteArrayView bytes);

private:
    char *allocate(qsizetype size);

    std::vector<std::unique_ptr<char[]>> m_chunks;
    char *m_next = nullptr;
    qsizetype m_left = 0;
    qsizetype m_chunkSize = 256;
};

} // namespace LmIniParser

#pragma once

#include "value/ParameterInstanceData.h"

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QVarLengthArray>

#include <array>
#include <functional>
#include <memory>
#include <utility>

/// Holds the value records of one parameter by living space.
class InstanceTable {
public:
    static constexpr size_t LivingSpaceCount = 5;
    /// Costs no allocation.
    using LivingSpaces = QVarLengthArray<eLivingSpace, LivingSpaceCount>;

    InstanceTable() = default;
    ~InstanceTable()
    {
        for (const ParameterInstanceData *record : m_records) {
            if (!isInBlock(record))
                delete record;
        }
    }
    Q_DISABLE_COPY(InstanceTable)
    InstanceTable(InstanceTable &&other) noexcept
        : m_records(std::exchange(other.m_records, {}))
        , m_block(std::move(other.m_block))
        , m_blockSize(std::exchange(other.m_blockSize, 0))
        , m_blockFree(std::exchange(other.m_blockFree, 0))
    {
    }
    InstanceTable &operator=(InstanceTable &&) = delete;

    /// The key under which a living space's record stands.
    static constexpr eLivingSpace key(eLivingSpace livingSpace, bool isGlobal)
    {
        return isGlobal ? eLivingSpace::Global : livingSpace;
    }

    /// For exactly this key; null where there is none, and for a number that is no living space.
    ParameterInstanceData *find(eLivingSpace key) const
    {
        return isLivingSpace(key) ? m_records[size_t(key)] : nullptr;
    }
    bool contains(eLivingSpace key) const { return find(key) != nullptr; }
    /// Ascending.
    LivingSpaces livingSpaces() const
    {
        LivingSpaces list;
        for (size_t i = 0; i < m_records.size(); ++i) {
            if (m_records[i])
                list.append(eLivingSpace(i));
        }
        return list;
    }
    /// The records outlive their set.
    void disown()
    {
        for (ParameterInstanceData *record : m_records) {
            if (record)
                record->setOwner(nullptr, nullptr, record->livingSpace());
        }
    }
    /// Makes the records of so many coming insertions in one piece of memory. Once, on an empty table.
    void reserve(size_t count)
    {
        m_block = std::make_unique<ParameterInstanceData[]>(count);
        m_blockSize = m_blockFree = count;
    }
    /// The new record. **Owner** the table.
    /// **Refused** an occupied key and a number that is no living space: null.
    ParameterInstanceData *insert(eLivingSpace key)
    {
        if (!isLivingSpace(key) || contains(key))
            return nullptr;
        auto *&record = m_records[size_t(key)];
        record =
            m_blockFree > 0 ? &m_block[m_blockSize - m_blockFree--] : new ParameterInstanceData;
        return record;
    }

private:
    static constexpr bool isLivingSpace(eLivingSpace livingSpace)
    {
        return qint32(livingSpace) >= 0 && size_t(livingSpace) < LivingSpaceCount;
    }

    bool isInBlock(const ParameterInstanceData *record) const
    {
        const std::less<> before;
        const ParameterInstanceData *begin = m_block.get();
        return !before(record, begin) && before(record, begin + m_blockSize);
    }

    /// Null where there is none; a record outside the block is owned by its pointer.
    std::array<ParameterInstanceData *, LivingSpaceCount> m_records {};
    std::unique_ptr<ParameterInstanceData[]> m_block;
    size_t m_blockSize = 0;
    size_t m_blockFree = 0;
};

#pragma once

#include "value/ParameterInstanceData.h"

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>

#include <array>
#include <memory>

/// Holds the value records of one parameter by living space.
class InstanceTable {
public:
    /// The key under which a living space's record stands.
    static constexpr eLivingSpace key(eLivingSpace livingSpace, bool isGlobal)
    {
        return isGlobal ? eLivingSpace::Global : livingSpace;
    }

    /// For exactly this key; null where there is none, and for a number that is no living space.
    ParameterInstanceData *find(eLivingSpace key) const
    {
        return isLivingSpace(key) ? m_records[size_t(key)].get() : nullptr;
    }
    bool contains(eLivingSpace key) const { return find(key) != nullptr; }
    /// Ascending.
    QList<eLivingSpace> livingSpaces() const
    {
        QList<eLivingSpace> list;
        for (size_t i = 0; i < m_records.size(); ++i) {
            if (m_records[i])
                list.append(eLivingSpace(i));
        }
        return list;
    }
    /// **Refused** an occupied key and a number that is no living space: false, the record is gone.
    bool insert(eLivingSpace key, std::unique_ptr<ParameterInstanceData> record)
    {
        if (!isLivingSpace(key) || contains(key))
            return false;
        m_records[size_t(key)] = std::move(record);
        return true;
    }

private:
    static constexpr size_t LivingSpaceCount = 5;

    static constexpr bool isLivingSpace(eLivingSpace livingSpace)
    {
        return qint32(livingSpace) >= 0 && size_t(livingSpace) < LivingSpaceCount;
    }

    std::array<std::unique_ptr<ParameterInstanceData>, LivingSpaceCount> m_records;
};

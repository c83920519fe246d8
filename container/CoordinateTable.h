#pragma once

#include "instance/CoordinateInstanceSet.h"

#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVarLengthArray>

#include <array>
#include <memory>
#include <vector>

/// Keeps the instance sets by coordinate: a table of lines for each group, so that finding one costs
/// two steps among any number of parameters and a walk goes in coordinate order.
class CoordinateTable {
public:
    struct Entry {
        Entry(ParameterContainer *container, CoordinateRegistry *registry,
            const CoordinateInstanceSet::Clock *clock)
            : set(container, registry, clock)
        {
        }

        CoordinateInstanceSet set;
        /// The locator texts that lead to the set, or will when everyone has heard of the instance that
        /// was added under them; mostly one.
        QVarLengthArray<QString, 1> locatorTexts;
    };

    size_t size() const { return m_size; }
    /// Null where there is none.
    Entry *find(const ParameterCoordinate &coordinate) const
    {
        const auto &lines = m_groups[coordinate.group()];
        return coordinate.line() < lines.size() ? lines[coordinate.line()].get() : nullptr;
    }
    /// Replaces what stood there. **Range** a valid coordinate.
    Entry *insert(const ParameterCoordinate &coordinate, std::unique_ptr<Entry> entry)
    {
        auto &lines = m_groups[coordinate.group()];
        if (coordinate.line() >= lines.size())
            lines.resize(size_t(coordinate.line()) + 1);
        auto &place = lines[coordinate.line()];
        m_size += place ? 0 : 1;
        place = std::move(entry);
        return place.get();
    }
    /// Null where there is none.
    std::unique_ptr<Entry> take(const ParameterCoordinate &coordinate)
    {
        if (!find(coordinate))
            return nullptr;
        --m_size;
        return std::move(m_groups[coordinate.group()][coordinate.line()]);
    }
    /// Ascending. Known without a look at the sets.
    QList<ParameterCoordinate> coordinates() const
    {
        QList<ParameterCoordinate> list;
        list.reserve(qsizetype(m_size));
        for (size_t group = 0; group < m_groups.size(); ++group) {
            for (size_t line = 0; line < m_groups[group].size(); ++line) {
                if (m_groups[group][line])
                    list.append(ParameterCoordinate(quint16(group), quint16(line)));
            }
        }
        return list;
    }
    /// Calls for every entry in coordinate order. The function must not change the table.
    template <typename Function>
    void forEachEntry(Function function) const
    {
        for (const auto &lines : m_groups) {
            for (const auto &entry : lines) {
                if (entry)
                    function(*entry);
            }
        }
    }
    /// As forEachEntry(), for the sets alone.
    template <typename Function>
    void forEach(Function function) const
    {
        forEachEntry([&function](Entry &entry) { function(entry.set); });
    }

private:
    /// Group to lines; group 0 stays empty.
    std::array<std::vector<std::unique_ptr<Entry>>, ParameterCoordinate::LastGroup + 1> m_groups;
    size_t m_size = 0;
};

#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>

#include <chrono>
#include <optional>

class RegisterMap;

/// The values that are to be read again and again, with the time of the next read of each.
class CyclicNeeds {
public:
    using milliseconds = std::chrono::milliseconds;

    explicit CyclicNeeds(milliseconds interval)
        : m_interval(interval)
    {
    }

    /// Remembered also while there is no map. An address that the map lacks is remembered for the
    /// next one.
    void add(const ParameterAddress &address, milliseconds now);
    void remove(const ParameterAddress &address);
    /// **Owner** the caller; the map outlives the use. All values are due at once. Null: none.
    void setMap(const RegisterMap *map, milliseconds now);

    /// The addresses that the map lacks, in order.
    QList<ParameterAddress> unmapped() const;
    bool contains(qsizetype value) const { return m_dues.contains(value); }
    /// Positions in the map; they count as on their way until done() is told.
    QList<qsizetype> takeDue(milliseconds now);
    /// The value was read or not; the next read is due an interval later, or the value's own where
    /// that is longer.
    void done(qsizetype value, milliseconds now);
    /// Empty where nothing is due before something comes back.
    std::optional<milliseconds> nextDue() const;

private:
    const milliseconds m_interval;
    const RegisterMap *m_map = nullptr;
    QSet<ParameterAddress> m_addresses;
    /// Position to the time of the next read; none while it is on its way.
    QHash<qsizetype, std::optional<milliseconds>> m_dues;
};

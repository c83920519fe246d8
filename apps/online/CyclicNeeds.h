#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QSet>

#include <chrono>
#include <optional>
#include <vector>

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
    /// next one. What is needed already keeps its time.
    void add(const ParameterAddress &address, milliseconds due);
    void remove(const ParameterAddress &address);
    /// Nothing is needed any more, and there is no map.
    void clear();
    /// **Owner** the caller; the map outlives the use. All values are due at once. Null: none.
    void setMap(const RegisterMap *map, milliseconds now);

    /// The addresses that the map lacks, in order.
    QList<ParameterAddress> unmapped() const;
    bool contains(qsizetype value) const;
    /// Positions in the map; they count as on their way until done() is told.
    QList<qsizetype> takeDue(milliseconds now);
    /// The value was read or not; the next read is due an interval later, or the value's own where
    /// that is longer.
    void done(qsizetype value, milliseconds now);
    /// Empty where nothing is due before something comes back.
    std::optional<milliseconds> nextDue() const;

private:
    enum class eStep { NotNeeded, Waiting, OnItsWay };

    struct State {
        eStep step = eStep::NotNeeded;
        /// While waiting.
        milliseconds due {0};
    };

    void wait(qsizetype value, milliseconds due);

    milliseconds m_interval;
    const RegisterMap *m_map = nullptr;
    QSet<ParameterAddress> m_addresses;
    /// By position.
    std::vector<State> m_states;
    /// Time to the positions that wait for it, and to some that do no more.
    QMap<milliseconds, QList<qsizetype>> m_dues;
};

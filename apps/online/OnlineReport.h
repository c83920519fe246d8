#pragma once

#include "apps/online/MappedValue.h"
#include "apps/online/OnlineOutcome.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QList>

#include <array>
#include <vector>

/// What became of the values of one transfer, in the order in which they came to an end.
///
/// Most values are read as they should and need few words: of them it keeps where they stand among the
/// values of the device.
class OnlineReport {
    Q_DECLARE_TR_FUNCTIONS(OnlineReport)

public:
    OnlineReport() = default;
    /// `values` are those of the device, of which some are read.
    explicit OnlineReport(const QList<MappedValue> &values)
        : m_values(values)
    {
    }

    void reserve(qsizetype count) { m_entries.reserve(std::size_t(count)); }
    void add(const OnlineOutcome &outcome);
    /// A value that was read, by its position.
    void add(qsizetype value, OnlineOutcome::eKind kind)
    {
        m_entries.push_back({qint32(value), kind});
        ++m_counts[std::size_t(kind)];
    }

    /// Made at each call.
    QList<OnlineOutcome> outcomes() const;
    qsizetype count(OnlineOutcome::eKind kind) const { return m_counts[std::size_t(kind)]; }
    /// Whether every value was read or written as it should.
    bool isGood() const;
    /// One sentence with the numbers that are not 0; each value counts once.
    QString summary() const;

private:
    struct Entry {
        /// Position of a value that was read; negative: of what was not only read, counted from -1 downwards.
        qint32 position;
        OnlineOutcome::eKind kind;
    };

    QList<MappedValue> m_values;
    std::vector<Entry> m_entries;
    /// What was not only read.
    QList<OnlineOutcome> m_others;
    std::array<qsizetype, 7> m_counts {};
};

#pragma once

#include "apps/online/OnlineOutcome.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QList>

#include <array>

/// What became of the values of one transfer, in the order in which they came to an end.
class OnlineReport {
    Q_DECLARE_TR_FUNCTIONS(OnlineReport)

public:
    void reserve(qsizetype count) { m_outcomes.reserve(count); }
    void add(const OnlineOutcome &outcome);
    void clear() { *this = OnlineReport(); }

    const QList<OnlineOutcome> &outcomes() const { return m_outcomes; }
    qsizetype count(OnlineOutcome::eKind kind) const { return m_counts[std::size_t(kind)]; }
    /// Whether every value was read or written as it should.
    bool isGood() const;
    /// One sentence with the numbers that are not 0; each value counts once.
    QString summary() const;

private:
    QList<OnlineOutcome> m_outcomes;
    std::array<qsizetype, 7> m_counts {};
};

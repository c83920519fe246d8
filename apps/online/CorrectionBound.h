#pragma once

#include <QtCore/QHash>
#include <QtCore/QSet>

/// Says how often a value is read over that functions of the device change: two that correct each other
/// would have values read without end.
class CorrectionBound {
public:
    /// Reads of one value until everything has come to rest.
    static constexpr int Most = 8;

    enum class eDecision {
        Read,
        GiveUp, ///< For the first time since the value was at rest.
        GivenUp,
    };

    /// The value was changed once more.
    eDecision ask(qsizetype value);
    /// Everything has come to rest. What was given up is read once in the next round: it may have found
    /// its end.
    void rest();
    void clear();

private:
    /// Value to its reads in this round.
    QHash<qsizetype, int> m_counts;
    QSet<qsizetype> m_givenUp;
};

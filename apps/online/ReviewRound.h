#pragma once

#include "apps/online/CorrectionBound.h"

#include <QtCore/QList>
#include <QtCore/QSet>

/// The values that are read over because functions, here or in the drive, made something else of them.
class ReviewRound {
public:
    enum class eNext {
        Wait, ///< Values are still to be read.
        ReadAll, ///< Functions of the drive ran: they may have changed any value.
        Rest,
    };

    /// The value was changed here. Whether it is to be read now; `isOnItsWay`: it is asked for already.
    bool ask(qsizetype value, bool isOnItsWay);
    void askForAll(const QList<qsizetype> &values);
    /// The value came, or will not. Whether it was waited for.
    bool done(qsizetype value) { return m_values.remove(value); }
    void clear() { *this = {}; }

    /// A value that leads to functions was written, and read back by the request.
    void functionsRan(quint32 request);
    /// What the request read says nothing about what the functions of the drive made.
    bool isOld(qsizetype value, quint32 request) const
    {
        return m_values.contains(value) && request < m_lastRun;
    }

    bool isAwaited(qsizetype value) const { return m_values.contains(value); }
    /// Still to be read, ascending.
    QList<qsizetype> awaited() const;
    bool isRunning() const { return !m_values.isEmpty() || !m_disputed.isEmpty(); }
    bool mayHaveRunFunctions() const { return m_mayHaveRunFunctions; }
    eNext next() const;
    /// Everything that was changed here has been read: what functions change from now on is a new round.
    void beginAnew() { m_bound.rest(); }
    /// Ends a round at rest. What was given up in it for the first time.
    QList<qsizetype> rest();

private:
    QSet<qsizetype> m_values;
    CorrectionBound m_bound;
    QList<qsizetype> m_disputed;
    bool m_mayHaveRunFunctions = false;
    quint32 m_lastRun = 0;
};

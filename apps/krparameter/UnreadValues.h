#pragma once

#include "apps/online/OnlineReport.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QStringList>

class ParameterContainer;

/// The values of a drive that have a register and yet were lost or refused when all were read, and for
/// whom they matter.
class UnreadValues {
    Q_DECLARE_TR_FUNCTIONS(UnreadValues)

public:
    enum class eMatter {
        None, ///< Nothing follows from any other value.
        Unknown, ///< Functions run that may read any value.
        Needed, ///< One of them is itself what is asked for.
    };

    explicit UnreadValues(const OnlineReport &report);

    bool isEmpty() const { return m_outcomes.isEmpty(); }
    /// Why each was not read; where there are many, how many more there are.
    QStringList lines() const;
    /// For whoever needs the values of these places.
    eMatter matterFor(const QList<ValuePlace> &places, ParameterContainer &container) const;

private:
    QList<OnlineOutcome> m_outcomes;
};

#pragma once

#include "apps/host/TrialCopy.h"
#include "apps/host/ValuePlace.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QSet>

class Console;
class DriveProject;

/// What writing some values changes elsewhere: values, units, limits and visibility. Scalings show in
/// the values.
class Consequences {
    Q_DECLARE_TR_FUNCTIONS(Consequences)

public:
    /// To stand before the writes. **Owner** the caller; the project outlives this.
    explicit Consequences(DriveProject &project);

    /// After them. The values of `written` are the user's own and not told, but their units, limits and
    /// visibility are; what others see of a value that this user cannot is not told either.
    void write(const QSet<ValuePlace> &written, bool asJson, Console &console);

private:
    struct State {
        QString display;
        QString value;
        QString native;
        QString lower;
        QString upper;
        QString unit;
        QString nativeUnit;
        bool isVisible = false;
    };
    struct Change {
        ValuePlace place;
        State before;
        State after;
        bool isWritten;
    };

    State stateOf(const ValuePlace &place) const;
    QList<Change> changes(const QSet<ValuePlace> &written) const;
    void writeText(const Change &change, TrialCopy &now, Console &console);
    void writeJson(const Change &change, TrialCopy &now, Console &console);
    static QString range(const ValuePlace &place, const State &state, TrialCopy &trial);

    DriveProject &m_project;
    /// Shows limits as they were.
    TrialCopy m_trialBefore;
    QList<std::pair<ValuePlace, State>> m_before;
};

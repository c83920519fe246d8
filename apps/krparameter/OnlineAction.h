#pragma once

#include "apps/online/ActionRun.h"

#include <QtCore/QEventLoop>

class OnlineSession;

/// Starts an action of a drive and follows it until its end, until the time is over or the drive is gone.
class OnlineAction : public QObject {
    Q_OBJECT

public:
    /// `control` is element 0 of the action. **Owner** the caller of both; they outlive the action.
    OnlineAction(ParameterContainer &container, OnlineSession &session, const ValuePlace &control);

    /// Empty where the time is over and it still runs. **Unit** seconds; 0: without end. An action that
    /// runs already is followed.
    std::optional<ActionRun::eEnd> run(int seconds);
    /// "Ergebnis: erfolgreich".
    QString stateText() const { return m_run.stateText(); }

Q_SIGNALS:
    /// A sentence about the progress, or why the drive does not start it.
    void noted(const QString &line);

private:
    void onReported(const OnlineOutcome &outcome);

    OnlineSession &m_session;
    ActionRun m_run;
    QEventLoop m_loop;
};

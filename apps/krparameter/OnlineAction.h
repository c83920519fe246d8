#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QEventLoop>
#include <QtCore/QObject>

#include <memory>
#include <optional>

class ActionParameter;
class OnlineSession;
class ParameterContainer;
struct OnlineOutcome;

/// Starts an action of a drive and follows it until its end, until the time is over or the drive is gone.
class OnlineAction : public QObject {
    Q_OBJECT

public:
    enum class eEnd {
        Done, ///< Idle again, with 100 % behind it.
        NotStartable, ///< In the drive's present state; nothing was written.
        NotStarted, ///< The firmware rejected the start, or the drive refused it.
        StartLost, ///< Nobody knows whether the drive has it.
        BrokenOff, ///< Idle again before 100 %.
        StillRunning, ///< The time is over.
        DriveGone,
    };

    /// `control` is element 0 of the action. **Owner** the caller of both; they outlive the action.
    OnlineAction(ParameterContainer &container, OnlineSession &session, const ValuePlace &control);
    ~OnlineAction() override;

    /// **Unit** seconds; 0: without end. An action that runs already is followed.
    eEnd run(int seconds);
    /// "Ergebnis: erfolgreich".
    QString stateText() const;

Q_SIGNALS:
    /// A sentence about the progress, or why the drive does not start it.
    void noted(const QString &line);

private:
    void onStateChanged();
    void onReported(const OnlineOutcome &outcome);
    /// Of two ends at once the first one counts.
    void end(eEnd end);

    void onProgress(int percent);
    int percent() const;

    ParameterContainer &m_container;
    OnlineSession &m_session;
    const ValuePlace m_control;
    std::unique_ptr<ActionParameter> m_action;
    std::optional<eEnd> m_end;
    QEventLoop m_loop;
};

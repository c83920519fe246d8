#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QObject>

#include <memory>
#include <optional>

class ActionParameter;
class ParameterContainer;
struct OnlineOutcome;

/// One run of an action of a drive, from its start to its end.
class ActionRun : public QObject {
    Q_OBJECT

public:
    enum class eEnd {
        Done, ///< Idle again, with 100 % behind it.
        NotStartable, ///< In the drive's present state; nothing was written.
        NotStarted, ///< The firmware rejected the start, or the drive refused it.
        StartLost, ///< Nobody knows whether the drive has it.
        BrokenOff, ///< Idle again before 100 %.
        DriveGone,
        Vanished, ///< The project has no such parameter, or has it no more.
    };
    Q_ENUM(eEnd)

    /// `control` is element 0 of the action. **Owner** of the container the caller; it outlives the run.
    ActionRun(ParameterContainer &container, const ValuePlace &control);
    ~ActionRun() override;

    const ValuePlace &control() const { return m_control; }
    /// Once, while online. An action that runs already is followed. **Emits** progressed where it does,
    /// ended where it does not start.
    void start();
    /// Somebody has written to the action; what became of it will be heard. Until then the container's
    /// word on whether it runs is not the drive's.
    void await();
    /// What became of a value on its way from or to the drive: of any.
    void hear(const OnlineOutcome &outcome);
    /// The drive is not online any more. **Emits** ended.
    void loseDrive();
    /// Empty while it runs.
    std::optional<eEnd> end() const { return m_end; }
    int percent() const;
    /// "Ergebnis: erfolgreich". Empty where the parameter has vanished.
    QString stateText() const;

Q_SIGNALS:
    void progressed(int percent);
    /// Once; of two ends the first one counts.
    void ended(ActionRun::eEnd end);

private:
    void endWhereIdle();
    void endAs(eEnd end);

    ParameterContainer &m_container;
    const ValuePlace m_control;
    /// Null where the project has no such parameter.
    std::unique_ptr<ActionParameter> m_action;
    std::optional<eEnd> m_end;
    /// What became of the last write is not known yet.
    bool m_isAwaited = false;
    /// That write was the start.
    bool m_isStarting = false;
};

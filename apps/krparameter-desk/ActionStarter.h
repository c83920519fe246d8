#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/online/ActionRun.h"

#include <QtCore/QObject>

#include <memory>
#include <optional>
#include <vector>

class DriveProject;
class OnlineSwitch;
class ParameterInformation;

/// Starts actions of the drive, and follows each one until its end.
class ActionStarter : public QObject {
    Q_OBJECT

public:
    explicit ActionStarter(QObject *parent = nullptr);
    ~ActionStarter() override;

    /// Null for both: no device. What runs is followed no longer. **Owner** the caller; they outlive their
    /// stay here. **Emits** obstacleChanged. **Reports** like loseDrive of a run.
    void setDevice(DriveProject *project, OnlineSwitch *online);

    /// Element 0 of the action that has the value. Empty: it belongs to none.
    std::optional<ValuePlace> actionOf(const ValuePlace &place) const;
    /// Why the action of the value is not to be started now. Empty: it may be.
    QString obstacle(const std::optional<ValuePlace> &place) const;
    /// Nothing where there is an obstacle. One that runs already is followed. **Emits** started, and
    /// progressed and ended, at once or later. **Reports** how it ended: its result as information,
    /// anything else as a warning.
    void start(const ValuePlace &place);

Q_SIGNALS:
    /// The obstacle of an action may be another one.
    void obstacleChanged();
    /// `control` is element 0, `label` its address with the action's name.
    void started(const ValuePlace &control, const QString &label);
    void progressed(const ValuePlace &control, int percent);
    void ended(const ValuePlace &control);

private:
    struct Followed {
        /// Also where the parameter has vanished.
        QString label;
        std::unique_ptr<ActionRun> run;
    };

    void listen();
    void onStateChanged();
    void onValueChanged(const ParameterAddress &address);
    std::vector<Followed>::iterator find(const ValuePlace &control);
    bool isFollowed(const ValuePlace &control) const;
    bool isLocked(const ParameterInformation &action, const ValuePlace &control) const;
    void onEnded(const ValuePlace &control, ActionRun::eEnd end);
    static QString sentence(ActionRun::eEnd end, const ActionRun &run);

    DriveProject *m_project = nullptr;
    OnlineSwitch *m_online = nullptr;
    std::vector<Followed> m_followed;
};

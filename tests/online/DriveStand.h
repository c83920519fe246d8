#pragma once

#include "apps/online/OnlineSession.h"
#include "tests/online/DriveProcess.h"
#include "tests/online/OnlineDevice.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <memory>

/// Impatient, so that a test waits for nothing that does not come.
inline OnlineRules driveRules()
{
    OnlineRules rules;
    rules.answerSpan = std::chrono::milliseconds(200);
    rules.firstPause = std::chrono::milliseconds(10);
    rules.cycleInterval = std::chrono::milliseconds(5);
    rules.firstContactPause = std::chrono::milliseconds(50);
    rules.contactAttempts = 20;
    return rules;
}

/// A host and a drive. Their descriptions may differ in what does not move registers.
struct DriveStand {
    explicit DriveStand(const QByteArray &hostDescription = OnlineDevice::description(),
        const QByteArray &driveDescription = OnlineDevice::description(),
        const QStringList &options = {QStringLiteral("--tick"), QStringLiteral("0")},
        const OnlineRules &rules = driveRules())
        : host(hostDescription)
        , driveDevice(driveDescription)
        , driveOptions(options)
        , project(host.open())
        , container(project->container())
    {
        isUp = drive.start(driveDevice.fileName(), 0, options);
        session = OnlineSession::overModbusTcp(
            container, QStringLiteral("127.0.0.1"), drive.port(), rules);
        QObject::connect(session.get(), &OnlineSession::valueReported, session.get(),
            [this](const OnlineOutcome &outcome) {
                ++reports;
                if (!outcome.isGood())
                    losses.append(outcome.toText());
            });
        QObject::connect(session.get(), &OnlineSession::connectionFailed, session.get(),
            [this](const QString &reason) { failures.append(reason); });
    }

    bool restartDrive()
    {
        drive.kill();
        return drive.start(driveDevice.fileName(), drive.port(), driveOptions);
    }
    QString native(const char *text)
    {
        const ParameterAddress a = address(text);
        return container.readValueNative(
            eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), false);
    }
    void write(const char *text, const QString &display)
    {
        const ParameterAddress a = address(text);
        container.writeValue(eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), display);
    }

    OnlineDevice host;
    OnlineDevice driveDevice;
    QStringList driveOptions;
    std::unique_ptr<DriveProject> project;
    ParameterContainer &container;
    DriveProcess drive;
    bool isUp = false;
    int reports = 0;
    QStringList losses;
    QStringList failures;
    /// Goes first: it tells of its end.
    std::unique_ptr<OnlineSession> session;
};

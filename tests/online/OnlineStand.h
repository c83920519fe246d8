#pragma once

#include "apps/online/OnlineSession.h"
#include "tests/online/FakeClock.h"
#include "tests/online/FakeLink.h"
#include "tests/online/OnlineDevice.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <memory>
#include <utility>

/// Short and few; no heartbeat, so that who counts requests sees none that nobody asked for.
inline OnlineRules onlineRules()
{
    OnlineRules rules;
    rules.window = 4;
    rules.attempts = 2;
    rules.answerSpan = std::chrono::milliseconds(500);
    rules.firstPause = std::chrono::milliseconds(50);
    rules.cycleInterval = std::chrono::milliseconds(100);
    rules.contactSpan = std::chrono::milliseconds(3000);
    rules.firstContactPause = std::chrono::milliseconds(250);
    rules.contactAttempts = 2;
    rules.heartbeatInterval = std::chrono::milliseconds(0);
    return rules;
}

/// A session with a drive that has the same registers as the host, and a log of what it tells.
struct OnlineStand {
    explicit OnlineStand(const OnlineRules &rules = onlineRules(),
        const QByteArray &description = OnlineDevice::description())
        : device(description)
        , project(device.open())
        , container(project->container())
    {
        auto ownedLink = std::make_unique<FakeLink>();
        auto ownedClock = std::make_unique<FakeClock>();
        link = ownedLink.get();
        clock = ownedClock.get();
        const RegisterMap map(container);
        for (const quint8 unit : map.units())
            link->memory.insert(unit, map.header(unit));
        const ContainerValues values(container);
        for (const MappedValue &value : map.values()) {
            QList<quint16> &unit = link->memory[value.span.unit];
            unit.resize(value.span.end());
            const QList<quint16> registers = values.registers(value);
            std::copy(registers.begin(), registers.end(), unit.begin() + value.span.first);
        }
        session = std::make_unique<OnlineSession>(
            container, std::move(ownedLink), std::move(ownedClock), rules);
        QObject::connect(session.get(), &OnlineSession::stateChanged, session.get(),
            [this](OnlineSession::eState state) {
                constexpr const char *Names[] = {"offline", "connecting", "online"};
                note(QLatin1String(Names[int(state)]));
            });
        QObject::connect(session.get(), &OnlineSession::connectionFailed, session.get(),
            [this](const QString &reason) { note(QStringLiteral("failed: ") + reason); });
        QObject::connect(session.get(), &OnlineSession::valueReported, session.get(),
            [this](const OnlineOutcome &outcome) { note(outcome.toText()); });
        QObject::connect(session.get(), &OnlineSession::transferFinished, session.get(),
            [this](const OnlineReport &report) { note(report.summary()); });
        QObject::connect(
            &container, &ParameterProvider::onlineChanged, session.get(), [this](bool isOnline) {
                note(isOnline ? QStringLiteral("container online")
                              : QStringLiteral("container offline"));
            });
    }

    void note(const QString &entry) { log.append(entry); }
    QStringList take() { return std::exchange(log, {}); }
    void beOnline()
    {
        session->goOnline();
        link->comeUp();
        link->answerAll();
        log.clear();
    }
    /// Lets what is planned go out.
    void turn() { clock->advance(0); }
    /// Everything answered, also what follows.
    void settle()
    {
        do
            turn();
        while (link->answerAll() > 0);
    }
    quint16 &registerAt(const char *text)
    {
        const RegisterMap map(container);
        const RegisterSpan span = map.values().at(map.indexOf(address(text))).span;
        return link->memory[span.unit][span.first];
    }
    QString native(const char *text)
    {
        const ParameterAddress a = address(text);
        return container.readValueNative(
            eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), false);
    }
    void write(const char *text, const char *display)
    {
        const ParameterAddress a = address(text);
        container.writeValue(
            eLivingSpace(a.axis() + 1), a.coordinate(), a.element(), QString::fromLatin1(display));
    }

    OnlineDevice device;
    std::unique_ptr<DriveProject> project;
    ParameterContainer &container;
    FakeLink *link;
    FakeClock *clock;
    QStringList log;
    std::unique_ptr<OnlineSession> session;
};

inline QStringList texts(std::initializer_list<const char *> list)
{
    QStringList texts;
    for (const char *text : list)
        texts.append(QString::fromUtf8(text));
    return texts;
}

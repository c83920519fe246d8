#include "apps/online/ActionRun.h"
#include "tests/online/OnlineStand.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <optional>

using eEnd = ActionRun::eEnd;
using eKind = OnlineAnswer::eKind;

namespace {

const ValuePlace Control {at("C01"), eLivingSpace::Axis1, 0};

/// An action of a drive that is online, told what becomes of every value.
struct Stand : OnlineStand {
    explicit Stand(const QByteArray &description = OnlineDevice::description())
        : OnlineStand(onlineRules(), description)
        , run(std::in_place, container, Control)
    {
        beOnline();
        settle();
        QObject::connect(session.get(), &OnlineSession::valueReported, &*run,
            [this](const OnlineOutcome &outcome) { run->hear(outcome); });
    }

    std::optional<ActionRun> run;
};

/// Progress and result are read before the control, each in a block of its own.
QByteArray partedDevice()
{
    return OnlineDevice::description().replace(
        "\"enableOffRequired\": 1,\n        \"onlineOrder\": 6", "\"onlineOrder\": 8");
}

/// An action that is under way, of which one round of reads is sent and not answered.
struct RunningStand : Stand {
    RunningStand()
        : Stand(partedDevice())
    {
        run->start();
        settle();
        clock->advance(100);
    }
    /// The drive ends the action behind the block with the progress.
    void endBetweenTheBlocks(quint16 percent)
    {
        while (link->sent.constFirst().span != RegisterSpan {2, 19, 1})
            link->answer(link->take());
        registerAt("1.C01[1]") = percent;
        registerAt("1.C01[2]") = 1;
        registerAt("1.C01[0]") = 0;
        link->answer(link->take());
    }
};

} // namespace

class tst_ActionRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsThoughAReadFailsMeanwhile();
    void losesAStartWithTheLine();
    void isRefused();
    void believesNoProgressThatIsOlderThanItsEnd();
    void believesNoProgressOfTheRunBefore();
    void endsWhereItsProgressIsRefused();
    void endsBehindAStartThatIsReadBackAlone();
    void runsOnBehindAStopThatIsReadBackAlone_data();
    void runsOnBehindAStopThatIsReadBackAlone();
    void knowsItsProgressWhereItIsScaled();
    void outlivesItsContainerWithoutAWord();
};

void tst_ActionRun::startsThoughAReadFailsMeanwhile()
{
    for (const eKind kind : {eKind::Lost, eKind::Refused}) {
        Stand s;
        s.container.parameterSetup(at("C01"))->setParameterNeedsConsistence(
            eLivingSpace::Axis1, 0, true);
        s.settle();
        s.clock->advance(100);
        QCOMPARE(s.link->sent.size(), 1);
        const FakeLink::Sent read = s.link->take();
        QVERIFY(read.isRead());
        s.run->start();
        QCOMPARE(s.link->sent.size(), 1);
        const FakeLink::Sent start = s.link->take();
        QVERIFY(!start.isRead());
        // The read of element 0 fails, in as many attempts as it has; the drive answers all else.
        s.link->answer(read, kind);
        for (int i = 0; i < 4; ++i) {
            s.container.writeValueNative(eLivingSpace::Axis2, at("B01"), 0, QString::number(i));
            s.clock->advance(50);
            while (!s.link->sent.isEmpty()) {
                const FakeLink::Sent request = s.link->take();
                if (request.span.unit == 2)
                    s.link->answer(request, kind);
                else
                    s.link->answer(request);
            }
        }
        QCOMPARE(s.log.count(kind == eKind::Lost ? QStringLiteral("1.C01[0]: verloren - reason")
                                                 : QStringLiteral("1.C01[0]: abgelehnt - reason")),
            1);
        QVERIFY(!s.run->end());
        s.link->answer(start);
        s.settle();
        QVERIFY(!s.run->end());
        QCOMPARE(s.registerAt("1.C01[0]"), quint16(1));
        s.registerAt("1.C01[1]") = 100;
        s.registerAt("1.C01[0]") = 0;
        s.clock->advance(100);
        s.settle();
        QTRY_VERIFY(s.run->end());
        QCOMPARE(*s.run->end(), eEnd::Done);
    }
}

void tst_ActionRun::losesAStartWithTheLine()
{
    Stand s;
    s.run->start();
    s.link->breakDown();
    QVERIFY(s.run->end());
    QCOMPARE(*s.run->end(), eEnd::StartLost);
}

void tst_ActionRun::isRefused()
{
    Stand s;
    s.run->start();
    s.link->answer(s.link->take(), eKind::Refused);
    s.settle();
    QVERIFY(s.run->end());
    QCOMPARE(*s.run->end(), eEnd::NotStarted);
}

void tst_ActionRun::believesNoProgressThatIsOlderThanItsEnd()
{
    for (const quint16 percent : {quint16(100), quint16(40)}) {
        RunningStand s;
        s.registerAt("1.C01[1]") = 30;
        s.endBetweenTheBlocks(percent);
        QCoreApplication::processEvents();
        QVERIFY(!s.run->end());
        s.settle();
        QCoreApplication::processEvents();
        QVERIFY(s.run->end());
        QCOMPARE(*s.run->end(), percent == 100 ? eEnd::Done : eEnd::BrokenOff);
        QCOMPARE(s.run->stateText(), QStringLiteral("Ergebnis: 1"));
    }
}

void tst_ActionRun::believesNoProgressOfTheRunBefore()
{
    RunningStand s;
    // Of the run before.
    s.registerAt("1.C01[1]") = 100;
    s.endBetweenTheBlocks(40);
    s.settle();
    QCoreApplication::processEvents();
    QCOMPARE(s.run->end(), std::optional(eEnd::BrokenOff));
}

void tst_ActionRun::endsWhereItsProgressIsRefused()
{
    RunningStand s;
    s.endBetweenTheBlocks(100);
    s.turn();
    int refused = 0;
    for (; !s.link->sent.isEmpty(); ++refused)
        s.link->answer(s.link->take(), eKind::Refused);
    QVERIFY(refused > 0);
    QCoreApplication::processEvents();
    QCOMPARE(s.run->end(), std::optional(eEnd::BrokenOff));
}

void tst_ActionRun::endsBehindAStartThatIsReadBackAlone()
{
    Stand s;
    s.run->start();
    s.link->answer(s.link->take());
    // The drive lets nobody read the record as a whole.
    s.link->answer(s.link->take(), eKind::Refused);
    s.registerAt("1.C01[0]") = 0;
    s.registerAt("1.C01[1]") = 100;
    s.link->answer(s.link->take());
    QCoreApplication::processEvents();
    QVERIFY(!s.run->end());
    s.settle();
    QCoreApplication::processEvents();
    QCOMPARE(s.run->end(), std::optional(eEnd::Done));
}

void tst_ActionRun::runsOnBehindAStopThatIsReadBackAlone_data()
{
    QTest::addColumn<bool>("isRefused");
    QTest::newRow("refused") << true;
    QTest::newRow("taken, but not done yet") << false;
}

void tst_ActionRun::runsOnBehindAStopThatIsReadBackAlone()
{
    QFETCH(bool, isRefused);
    Stand s;
    // The drive lets nobody read the record as a whole, and runs the action on.
    const auto answerAll = [&s](bool isRefusing) {
        for (s.turn(); !s.link->sent.isEmpty(); s.turn()) {
            const FakeLink::Sent request = s.link->take();
            const bool isWhole = request.isRead() && request.span.count > 1;
            if (isWhole || (isRefusing && !request.isRead()))
                s.link->answer(request, eKind::Refused);
            else
                s.link->answer(request);
            s.registerAt("1.C01[0]") = 1;
            QCoreApplication::processEvents();
        }
    };
    s.run->start();
    answerAll(false);
    QVERIFY(!s.run->end());
    s.registerAt("1.C01[1]") = 30;
    s.run->await();
    s.container.writeValueNative(eLivingSpace::Axis1, at("C01"), 0, QStringLiteral("0"));
    answerAll(isRefused);
    QVERIFY(!s.run->end());
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("1"));
}

void tst_ActionRun::knowsItsProgressWhereItIsScaled()
{
    Stand s(OnlineDevice::description().replace("\"name\": \"Fortschritt\",",
        "\"name\": \"Fortschritt\", \"scaling\": {\"factor\": 0.1},"));
    s.container.writeValueNative(eLivingSpace::Axis1, at("C01"), 1, QStringLiteral("200"));
    QCOMPARE(s.run->percent(), 20);
}

void tst_ActionRun::outlivesItsContainerWithoutAWord()
{
    auto stand = std::make_unique<Stand>();
    ActionRun run(stand->container, Control);
    const QSignalSpy ended(&run, &ActionRun::ended);
    run.start();
    run.loseDrive();
    QCOMPARE(ended.size(), 1);
    // What is told now waits in the queue until everything is gone.
    stand->settle();
    stand.reset();
    QCoreApplication::processEvents();
    QCOMPARE(ended.size(), 1);
    QCOMPARE(*run.end(), eEnd::DriveGone);
}

QTEST_GUILESS_MAIN(tst_ActionRun)
#include "tst_ActionRun.moc"

#include "tests/online/DriveStand.h"
#include "tests/online/Patience.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <algorithm>

using eState = OnlineSession::eState;

class tst_OnlineDriveRecords : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsAnAction();
    void losesTheDriveInTheMiddleOfAnAction();
    void startsAnActionOnceThoughTheAnswerIsLost();
    void startsAnActionThroughFaults_data();
    void startsAnActionThroughFaults();
    void followsTheState();
    void bringsAllElementsOnce_data();
    void bringsAllElementsOnce();
    void cancelsWithTheDrive();
};

void tst_OnlineDriveRecords::runsAnAction()
{
    const MessageRecorder recorder;
    DriveStand s(OnlineDevice::description(), OnlineDevice::description(),
        {QStringLiteral("--tick"), QStringLiteral("2")});
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis2));
    QVERIFY(action);
    QList<int> percents;
    connect(action.get(), &ActionParameter::progressChanged, action.get(),
        [&percents](int percent) { percents.append(percent); });
    QStringList states;
    connect(action.get(), &ActionParameter::stateChanged, action.get(), [&] {
        states.append(QStringLiteral("%1 %2").arg(
            action->isIdle() ? QStringLiteral("idle") : QStringLiteral("running"),
            action->stateText()));
        // Whoever hears of the end has heard of everything before.
        if (action->isIdle())
            QCOMPARE(percents.value(percents.size() - 1), 100);
    });
    QVERIFY(action->start());
    QTRY_VERIFY_PATIENTLY(percents.size() > 3);
    QVERIFY(!action->isIdle());
    QTRY_COMPARE_PATIENTLY(states,
        (QStringList {QStringLiteral("running Ergebnis: 0"), QStringLiteral("idle Ergebnis: 1")}));
    QVERIFY(std::is_sorted(percents.begin(), percents.end()));
    QCOMPARE(action->stateText(), QStringLiteral("Ergebnis: 1"));
    QCOMPARE(s.native("1.C01[2]"), QStringLiteral("0"));
    QCOMPARE(s.losses, QStringList());
}

void tst_OnlineDriveRecords::losesTheDriveInTheMiddleOfAnAction()
{
    const MessageRecorder recorder;
    OnlineRules rules = driveRules();
    rules.returnsToVanished = true;
    DriveStand s(OnlineDevice::description(), OnlineDevice::description(),
        {QStringLiteral("--tick"), QStringLiteral("0")}, rules);
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis1));
    QVERIFY(action->start());
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    s.drive.order(QStringLiteral("tick 40"));
    QTRY_COMPARE_PATIENTLY(s.native("1.C01[1]"), QStringLiteral("40"));
    s.drive.kill();
    QTRY_VERIFY_PATIENTLY(!s.container.isOnline());
    QCOMPARE(s.failures.size(), 1);
    // What it was doing when it was last heard of.
    QVERIFY(!action->isIdle());

    QVERIFY(s.restartDrive());
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QTRY_VERIFY_PATIENTLY(action->isIdle());
    QTRY_COMPARE_PATIENTLY(s.native("1.C01[1]"), QStringLiteral("0"));
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
    QVERIFY(action->start());
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
}

void tst_OnlineDriveRecords::startsAnActionOnceThoughTheAnswerIsLost()
{
    const MessageRecorder recorder;
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.drive.order(QStringLiteral("lose 1"));
    s.write("1.C01[0]", QStringLiteral("1"));
    QTRY_COMPARE_PATIENTLY(s.reports, 1);
    QCOMPARE(s.losses, QStringList());
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    // One whose end came before the answer was missed is not started again either.
    s.drive.order(QStringLiteral("tick 100"));
    s.session->upload();
    QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    s.drive.order(QStringLiteral("lose 1"));
    s.write("1.C01[0]", QStringLiteral("1"));
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    s.drive.order(QStringLiteral("tick 100"));
    QTRY_COMPARE_PATIENTLY(
        s.losses, QStringList {QStringLiteral("1.C01[0]: verloren - keine Antwort")});
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
}

void tst_OnlineDriveRecords::startsAnActionThroughFaults_data()
{
    QTest::addColumn<QString>("order");

    // A command has 200 ms for its answer; what comes behind them is dropped.
    QTest::newRow("the answer comes late") << QStringLiteral("delay 1 300");
    QTest::newRow("the answer comes late but in time") << QStringLiteral("delay 1 20");
    QTest::newRow("the answer comes twice") << QStringLiteral("double 1");
    QTest::newRow("every answer comes twice") << QStringLiteral("double 1000000");
}

void tst_OnlineDriveRecords::startsAnActionThroughFaults()
{
    QFETCH(QString, order);

    const MessageRecorder recorder;
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    QCOMPARE(s.drive.order(order), QStringLiteral("ok"));
    s.write("1.C01[0]", QStringLiteral("1"));
    QTRY_COMPARE_PATIENTLY(s.reports, 1);
    QCOMPARE(s.losses, QStringList());
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    // It is not started again when it is over, whatever is still on the line.
    s.drive.order(QStringLiteral("tick 100"));
    s.drive.order(QStringLiteral("clear"));
    for (int i = 0; i < 2; ++i) {
        QVERIFY(s.session->upload());
        QTRY_VERIFY_PATIENTLY(!s.session->isTransferring());
    }
    QCOMPARE(s.losses, QStringList());
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
    QCOMPARE(s.native("1.C01[2]"), QStringLiteral("1"));
}

void tst_OnlineDriveRecords::followsTheState()
{
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.container.parameterSetup(at("E48"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis1));
    const QSignalSpy enables(action.get(), &ActionParameter::enableChanged);
    s.drive.order(QStringLiteral("set 1.E48 4"));
    QTRY_COMPARE_PATIENTLY(enables.size(), 1);
    QCOMPARE(enables.at(0).at(0).toBool(), false);
    QVERIFY(!action->start());
    s.drive.order(QStringLiteral("set 1.E48 2"));
    QTRY_COMPARE_PATIENTLY(enables.size(), 2);
    QVERIFY(action->start());
}

void tst_OnlineDriveRecords::bringsAllElementsOnce_data()
{
    QTest::addColumn<QString>("order");
    QTest::addColumn<bool>("isCanceledByTheHost");
    QTest::addColumn<int>("done");
    QTest::addColumn<int>("canceled");

    QTest::newRow("all come") << QString() << false << 1 << 0;
    QTest::newRow("all come though the first answer is lost")
        << QStringLiteral("lose 1") << false << 1 << 0;
    QTest::newRow("all come alone where the block is refused")
        << QStringLiteral("refuse 1") << false << 1 << 0;
    QTest::newRow("one is refused") << QStringLiteral("refuse 2") << false << 0 << 1;
    QTest::newRow("all are refused") << QStringLiteral("refuse 4") << false << 0 << 1;
    QTest::newRow("the host cancels") << QString() << true << 0 << 1;
    QTest::newRow("the host cancels what is refused")
        << QStringLiteral("refuse 4") << true << 0 << 1;
}

void tst_OnlineDriveRecords::bringsAllElementsOnce()
{
    QFETCH(QString, order);
    QFETCH(bool, isCanceledByTheHost);

    const MessageRecorder recorder;
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.drive.order(QStringLiteral("set 2.C01[1] 42"));
    if (!order.isEmpty())
        QCOMPARE(s.drive.order(order), QStringLiteral("ok"));
    const auto parameter = s.container.parameterSetup(at("C01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    QString within;
    connect(parameter, &ParameterInformation::allElementsConsistenceOnceDone, this,
        [&] { within = s.native("2.C01[1]"); });
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis2);
    if (isCanceledByTheHost)
        parameter->cancelAllElementsConsistenceOnce(eLivingSpace::Axis2);
    // Each of the three values is told of in any case.
    QTRY_COMPARE_PATIENTLY(s.reports, 3);
    QTEST(int(done.size()), "done");
    QTEST(int(canceled.size()), "canceled");
    QCOMPARE(within, done.isEmpty() ? QString() : QStringLiteral("42"));
}

void tst_OnlineDriveRecords::cancelsWithTheDrive()
{
    const MessageRecorder recorder;
    DriveStand s;
    QVERIFY(s.isUp);
    s.session->goOnline();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Online);
    s.drive.order(QStringLiteral("silent 0"));
    const auto parameter = s.container.parameterSetup(at("C01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis2);
    s.drive.kill();
    QTRY_COMPARE_PATIENTLY(s.session->state(), eState::Offline);
    QCOMPARE(done.size(), 0);
    QCOMPARE(canceled.size(), 1);
}

QTEST_GUILESS_MAIN(tst_OnlineDriveRecords)
#include "tst_OnlineDriveRecords.moc"

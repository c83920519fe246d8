#include "tests/online/OnlineStand.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using eKind = OnlineAnswer::eKind;

class tst_OnlineWrites : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writesWhatChanges();
    void writesTheLastOfSeveralChanges();
    void reportsWhatTheDriveMadeOfIt();
    void reportsWhatTheDriveRefuses();
    void sendsNothingThatTheTypeDoesNotCarry_data();
    void sendsNothingThatTheTypeDoesNotCarry();
    void sendsWhatFollowsOnWhatIsNotCarried();
    void downloadsAroundWhatIsNotCarried();
    void repeatsALostWrite();
    void findsALostWriteThatArrived();
    void writesTheSameWhileATransferRuns();
    void neverRepeatsACommand();
    void sendsACommandOnceThoughItIsAskedForTwice();
    void writesNoValueThatIsOnlyRead();
    void storesNoOlderReadOverAWrite();
    void downloadsSettingsInOrder();
    void keepsTheOrderThroughRepetitions();
    void readsNothingOverWhatWaitsForItsTurn();
    void endsNoDownloadByARead_data();
    void endsNoDownloadByARead();
    void uploadsWhatIsReadBehindAWrite();
    void readsOnAfterARefusedReadBack();
    void runsAnAction();
    void tellsTheEndOfAnActionWithItsResult();
    void readsBackACommandWithItsRecord();
    void readsBackACommandAloneWhereItsRecordIsRefused();
};

namespace {

/// What a listener finds within the signals of an action.
class ActionLog {
public:
    explicit ActionLog(OnlineStand &stand)
        : m_action(stand.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis1))
    {
        QObject::connect(m_action.get(), &ActionParameter::progressChanged, m_action.get(),
            [this](int percent) { m_entries.append(QString::number(percent)); });
        QObject::connect(m_action.get(), &ActionParameter::stateChanged, m_action.get(), [this] {
            m_entries.append(
                (m_action->isIdle() ? QStringLiteral("idle, ") : QStringLiteral("running, "))
                + m_action->stateText());
        });
        stand.settle();
    }
    ActionParameter &action() { return *m_action; }
    QStringList take() { return std::exchange(m_entries, {}); }

private:
    std::unique_ptr<ActionParameter> m_action;
    QStringList m_entries;
};

} // namespace

void tst_OnlineWrites::writesWhatChanges()
{
    OnlineStand s;
    s.beOnline();
    s.write("2.B01", "-7");
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {3, 16, 1}));
    QCOMPARE(s.link->sent.at(0).registers, QList<quint16> {0xFFF9});
    s.link->answer(s.link->take());
    QVERIFY(s.link->sent.at(0).isRead());
    s.link->answer(s.link->take());
    QCOMPARE(s.take(), texts({"2.B01: geschrieben"}));
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineWrites::writesTheLastOfSeveralChanges()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "1");
    s.write("1.B01", "2");
    s.write("1.B01", "3");
    QCOMPARE(s.link->sent.size(), 1);
    s.settle();
    QCOMPARE(s.registerAt("1.B01"), quint16(3));
    QCOMPARE(s.native("1.B01"), QStringLiteral("3"));
    QCOMPARE(s.take(), texts({"1.B01: geschrieben"}));
}

void tst_OnlineWrites::reportsWhatTheDriveMadeOfIt()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "90");
    s.link->answer(s.link->take());
    s.registerAt("1.B01") = 80;
    s.link->answerAll();
    QCOMPARE(s.take(), texts({"1.B01: geschrieben wurde \"90\", der Antrieb hat \"80\""}));
    QCOMPARE(s.native("1.B01"), QStringLiteral("80"));
}

void tst_OnlineWrites::reportsWhatTheDriveRefuses()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "90");
    s.link->answer(s.link->take(), eKind::Refused);
    s.settle();
    QCOMPARE(s.take(), texts({"1.B01: abgelehnt - reason"}));
    QCOMPARE(s.native("1.B01"), QStringLiteral("5"));
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineWrites::sendsNothingThatTheTypeDoesNotCarry_data()
{
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("expected");

    QTest::newRow("no text") << QString()
                             << QStringLiteral("A01: abgelehnt - \"\" passt nicht, erwartet wird "
                                               "eine ganze Zahl von 0 bis 65535");
    QTest::newRow("no number") << QStringLiteral("abc")
                               << QStringLiteral("A01: abgelehnt - \"abc\" passt nicht, erwartet "
                                                 "wird eine ganze Zahl von 0 bis 65535");
    QTest::newRow("a number that would wrap")
        << QStringLiteral("70000")
        << QStringLiteral("A01: abgelehnt - \"70000\" passt nicht, erwartet wird eine ganze Zahl "
                          "von 0 bis 65535");
}

void tst_OnlineWrites::sendsNothingThatTheTypeDoesNotCarry()
{
    QFETCH(QString, native);
    QFETCH(QString, expected);

    OnlineStand s;
    s.beOnline();
    s.container.writeValueNative(eLivingSpace::Global, at("A01"), 0, native);
    QCOMPARE(s.native("A01"), native);
    QCOMPARE(s.link->sent.size(), 1);
    QVERIFY(s.link->sent.at(0).isRead());
    s.settle();
    QCOMPARE(s.take(), QStringList {expected});
    QCOMPARE(s.native("A01"), QStringLiteral("7"));
    QCOMPARE(s.registerAt("A01"), quint16(7));
}

void tst_OnlineWrites::sendsWhatFollowsOnWhatIsNotCarried()
{
    OnlineStand s;
    s.beOnline();
    s.container.writeValueNative(eLivingSpace::Global, at("A03"), 0, QStringLiteral("abcdefghi"));
    s.container.writeValueNative(eLivingSpace::Global, at("A03"), 0, QStringLiteral("abcdefgh"));
    s.settle();
    QCOMPARE(s.take(), texts({"A03: geschrieben"}));
    QCOMPARE(s.native("A03"), QStringLiteral("abcdefgh"));
    QCOMPARE(s.registerAt("A03"), quint16(0x6162));
}

void tst_OnlineWrites::downloadsAroundWhatIsNotCarried()
{
    OnlineStand s;
    // Before the drive is there, as a project that was read with values missing.
    s.container.writeValueNative(eLivingSpace::Axis2, at("B01"), 0, QString());
    s.container.writeValueNative(eLivingSpace::Global, at("A02"), 0, QStringLiteral("1.5"));
    s.beOnline();
    QVERIFY(s.session->download());
    s.settle();
    const QStringList told = s.take();
    QVERIFY(told.contains(QStringLiteral("A02: abgelehnt - \"1.5\" passt nicht, erwartet wird eine "
                                         "ganze Zahl von 0 bis 4294967295")));
    QCOMPARE(told.constLast(), QStringLiteral("5 Werte: 3 geschrieben, 2 abgelehnt"));
    // 70000 and 5.
    QCOMPARE(s.registerAt("A02"), quint16(1));
    QCOMPARE(s.registerAt("2.B01"), quint16(5));
    QCOMPARE(s.native("A02"), QStringLiteral("70000"));
    QCOMPARE(s.native("2.B01"), QStringLiteral("5"));
}

void tst_OnlineWrites::repeatsALostWrite()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "90");
    s.link->take();
    s.clock->advance(500);
    s.clock->advance(50);
    QCOMPARE(s.link->sent.size(), 1);
    QVERIFY(!s.link->sent.at(0).isRead());
    s.settle();
    QCOMPARE(s.take(), texts({"1.B01: geschrieben"}));
    QCOMPARE(s.registerAt("1.B01"), quint16(90));
}

void tst_OnlineWrites::findsALostWriteThatArrived()
{
    for (const bool hasArrived : {true, false}) {
        OnlineStand s;
        s.beOnline();
        s.write("1.B01", "90");
        s.link->take();
        // Something else is answered meanwhile, so that the drive does not count as vanished.
        s.clock->advance(520);
        s.write("2.B01", "1");
        s.settle();
        s.clock->advance(30);
        s.link->take();
        s.clock->advance(500);
        if (hasArrived)
            s.registerAt("1.B01") = 90;
        s.settle();
        QCOMPARE(s.take(),
            hasArrived ? texts({"2.B01: geschrieben", "1.B01: geschrieben"})
                       : texts({"2.B01: geschrieben", "1.B01: verloren - keine Antwort"}));
        QCOMPARE(s.native("1.B01"), hasArrived ? QStringLiteral("90") : QStringLiteral("5"));
    }
}

void tst_OnlineWrites::writesTheSameWhileATransferRuns()
{
    OnlineStand s;
    const ValuePlace place {at("B01"), eLivingSpace::Axis1, 0};
    QVERIFY(!s.session->writeValue(place));
    s.beOnline();
    s.registerAt("1.B01") = 9;
    QVERIFY(s.session->upload());
    QVERIFY(!s.session->writeValues({place}));
    QVERIFY(s.session->writeValue(place));
    s.settle();
    QCOMPARE(s.registerAt("1.B01"), quint16(5));
    QCOMPARE(s.native("1.B01"), QStringLiteral("5"));
    QVERIFY(s.take().contains(QStringLiteral("1.B01: geschrieben")));
    QVERIFY(s.session->writeValue({at("Z99"), eLivingSpace::Axis1, 0}));
    QCOMPARE(s.take(), texts({"1.Z99: nicht übertragbar - der Antrieb hat kein Register dafür"}));
}

void tst_OnlineWrites::neverRepeatsACommand()
{
    OnlineStand s;
    s.beOnline();
    s.write("A04", "1");
    s.link->take();
    // Its write has 300 ms more than others.
    s.clock->advance(799);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1);
    QCOMPARE(s.link->sent.size(), 1);
    QVERIFY(s.link->sent.at(0).isRead());
    s.settle();
    QCOMPARE(s.take(), texts({"A04: verloren - keine Antwort"}));
    QCOMPARE(s.native("A04"), QStringLiteral("0"));
    // One that was taken is done, whatever stands there afterwards.
    s.write("A04", "1");
    s.link->answer(s.link->take());
    s.registerAt("A04") = 0;
    s.settle();
    QCOMPARE(s.take(), texts({"A04: geschrieben"}));
}

void tst_OnlineWrites::sendsACommandOnceThoughItIsAskedForTwice()
{
    OnlineStand s;
    s.beOnline();
    s.write("A04", "1");
    QVERIFY(s.session->writeValues({{at("A04"), eLivingSpace::Global, 0}}));
    int writes = 0;
    while (!s.link->sent.isEmpty()) {
        const FakeLink::Sent request = s.link->take();
        writes += request.isRead() ? 0 : 1;
        s.link->answer(request);
    }
    QCOMPARE(writes, 1);
    QCOMPARE(s.take(), texts({"A04: geschrieben", "1 Werte: 1 geschrieben"}));
    // A value that went back to what is on its way is there already.
    s.write("1.B01", "1");
    s.write("1.B01", "2");
    s.write("1.B01", "1");
    s.link->answer(s.link->take());
    s.link->answer(s.link->take());
    QVERIFY(s.link->sent.isEmpty());
    QCOMPARE(s.take(), texts({"1.B01: geschrieben"}));
}

void tst_OnlineWrites::writesNoValueThatIsOnlyRead()
{
    OnlineStand s;
    s.beOnline();
    s.container.writeValueNative(eLivingSpace::Axis1, at("B02"), 0, QStringLiteral("99"));
    s.settle();
    QVERIFY(s.log.isEmpty());
    QCOMPARE(s.registerAt("1.B02"), quint16(0xFFFF));
    // It is read again, until it was read.
    QCOMPARE(s.native("1.B02"), QStringLiteral("-3"));
    s.container.writeValueNative(eLivingSpace::Axis1, at("B02"), 0, QStringLiteral("98"));
    s.turn();
    s.link->answer(s.link->take(), eKind::Refused);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(999);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1);
    s.settle();
    QCOMPARE(s.native("1.B02"), QStringLiteral("-3"));
    s.clock->advance(100000);
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineWrites::storesNoOlderReadOverAWrite()
{
    OnlineStand s;
    s.beOnline();
    s.session->readValues({{at("B01"), eLivingSpace::Axis1, 0}});
    s.turn();
    const FakeLink::Sent read = s.link->take();
    s.write("1.B01", "90");
    const FakeLink::Sent write = s.link->take();
    const OnlineAnswer old {eKind::Good, {5}, {}};
    // While the write is under way ...
    Q_EMIT s.link->answered(read.ticket, old);
    QCOMPARE(s.native("1.B01"), QStringLiteral("90"));
    s.link->answer(write);
    s.settle();
    QCOMPARE(s.native("1.B01"), QStringLiteral("90"));
    // Who asked for it gets what is read behind the write.
    QCOMPARE(
        s.take(), texts({"1.B01: geschrieben", "1.B01: unverändert", "1 Werte: 1 unverändert"}));

    // ... and when it is done already.
    s.session->readValues({{at("B01"), eLivingSpace::Axis1, 0}});
    s.turn();
    const FakeLink::Sent late = s.link->take();
    s.write("1.B01", "91");
    s.settle();
    Q_EMIT s.link->answered(late.ticket, old);
    QCOMPARE(s.native("1.B01"), QStringLiteral("91"));
}

void tst_OnlineWrites::downloadsSettingsInOrder()
{
    OnlineStand s;
    s.beOnline();
    for (QList<quint16> &unit : s.link->memory) {
        for (qsizetype i = 16; i < unit.size(); ++i)
            unit[i] = 0;
    }
    QVERIFY(s.session->download());
    QStringList writes;
    while (!s.link->sent.isEmpty()) {
        const FakeLink::Sent request = s.link->take();
        if (!request.isRead())
            writes.append(QStringLiteral("%1:%2").arg(request.span.unit).arg(request.span.first));
        s.link->answer(request);
    }
    QCOMPARE(writes, texts({"1:17", "1:16", "1:19", "2:16", "3:16"}));
    QCOMPARE(s.log.constLast(), QStringLiteral("5 Werte: 5 geschrieben"));
    QCOMPARE(s.registerAt("A03"), quint16(0x6162));
    QCOMPARE(s.registerAt("1.B02"), quint16(0));
}

void tst_OnlineWrites::keepsTheOrderThroughRepetitions()
{
    OnlineStand s;
    s.beOnline();
    QVERIFY(s.session->download());
    // A02 has to come first: nothing goes past it while it pauses.
    QCOMPARE(s.link->sent.size(), 1);
    s.link->answer(s.link->take(), eKind::Busy);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(50);
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {1, 17, 2}));
    s.link->answer(s.link->take());
    // Not even while it is read back.
    QCOMPARE(s.link->sent.size(), 1);
    QVERIFY(s.link->sent.at(0).isRead());
    s.link->answer(s.link->take());
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {1, 16, 1}));
    s.link->answerAll();
    QCOMPARE(s.log.constLast(), QStringLiteral("5 Werte: 5 geschrieben"));
    // Where everything is gone, everything ends.
    QVERIFY(s.session->download());
    s.container.clear();
    s.link->answerAll();
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.log.constLast(), QStringLiteral("5 Werte: 1 geschrieben, 4 nicht übertragbar"));
    // What is not there is not to be written.
    QVERIFY(s.session->download());
    QTRY_VERIFY(!s.session->isTransferring());
    QCOMPARE(s.log.constLast(), QStringLiteral("0 Werte: "));
}

void tst_OnlineWrites::readsNothingOverWhatWaitsForItsTurn()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "9");
    s.settle();
    s.registerAt("1.B01") = 3;
    s.container.parameterSetup(at("B01"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    QVERIFY(s.session->download());
    s.turn();
    // The cyclic read is answered while the download is at its first value.
    QCOMPARE(s.link->sent.size(), 2);
    s.link->answer(s.link->sent.takeLast());
    QCOMPARE(s.native("1.B01"), QStringLiteral("9"));
    s.link->answerAll();
    QCOMPARE(s.registerAt("1.B01"), quint16(9));
}

void tst_OnlineWrites::endsNoDownloadByARead_data()
{
    QTest::addColumn<bool>("isGood");
    QTest::addColumn<bool>("isAgainAndAgain");

    QTest::newRow("that comes once") << true << false;
    QTest::newRow("that comes again and again") << true << true;
    QTest::newRow("that fails") << false << false;
    QTest::newRow("that fails for the first time") << false << true;
}

void tst_OnlineWrites::endsNoDownloadByARead()
{
    QFETCH(bool, isGood);
    QFETCH(bool, isAgainAndAgain);

    OnlineStand s;
    s.beOnline();
    const auto parameter = s.container.parameterSetup(at("B01"));
    QVERIFY(s.session->download());
    if (isAgainAndAgain)
        parameter->setParameterNeedsConsistence(eLivingSpace::Axis1, 0, true);
    else
        parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    s.turn();
    // The download is at its first value; 1.B01 is its last but one.
    QCOMPARE(s.link->sent.size(), 2);
    const FakeLink::Sent read = s.link->sent.takeLast();
    QVERIFY(read.isRead());
    QCOMPARE(read.span, (RegisterSpan {2, 16, 1}));
    if (isGood)
        s.link->answer(read);
    else
        s.link->answer(read, eKind::Refused);
    QCOMPARE(s.session->report().outcomes().size(), 0);
    QCOMPARE(s.take(), isGood ? QStringList() : texts({"1.B01: abgelehnt - reason"}));
    parameter->setParameterNeedsConsistence(eLivingSpace::Axis1, 0, false);
    s.settle();
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.session->report().summary(), QStringLiteral("5 Werte: 5 geschrieben"));
}

void tst_OnlineWrites::uploadsWhatIsReadBehindAWrite()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "90");
    const FakeLink::Sent write = s.link->take();
    QVERIFY(s.session->readValues({{at("B01"), eLivingSpace::Axis1, 0}}));
    s.turn();
    // The read overtakes the write.
    s.link->answer(s.link->take());
    s.link->answer(write);
    s.link->answer(s.link->take());
    // The write is through, and the drive goes on.
    QCOMPARE(s.take(), texts({"1.B01: geschrieben"}));
    QVERIFY(s.session->isTransferring());
    s.registerAt("1.B01") = 91;
    s.settle();
    QCOMPARE(s.take(), texts({"1.B01: geändert", "1 Werte: 1 geändert"}));
    QCOMPARE(s.native("1.B01"), QStringLiteral("91"));
}

void tst_OnlineWrites::readsOnAfterARefusedReadBack()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.B01", "90");
    s.link->answer(s.link->take(), eKind::Refused);
    s.link->answer(s.link->take(), eKind::Refused);
    QCOMPARE(s.take(), texts({"1.B01: abgelehnt - reason"}));
    s.settle();
    QCOMPARE(s.native("1.B01"), QStringLiteral("5"));

    // A drive that goes on refusing is asked every second.
    s.write("1.B01", "91");
    for (int i = 0; i < 2; ++i)
        s.link->answer(s.link->take(), eKind::Refused);
    s.turn();
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(s.link->sent.size(), 1);
        s.link->answer(s.link->take(), eKind::Refused);
        s.clock->advance(999);
        QVERIFY(s.link->sent.isEmpty());
        s.clock->advance(1);
    }
    s.settle();
    QCOMPARE(s.native("1.B01"), QStringLiteral("5"));
    s.clock->advance(100000);
    QVERIFY(s.link->sent.isEmpty());
    // Told was the write alone.
    QCOMPARE(s.take(), texts({"1.B01: abgelehnt - reason"}));
}

void tst_OnlineWrites::runsAnAction()
{
    OnlineStand s;
    s.beOnline();
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis1));
    const QSignalSpy progress(action.get(), &ActionParameter::progressChanged);
    s.settle();
    QVERIFY(action->start());
    s.settle();
    QVERIFY(!action->isIdle());
    QCOMPARE(s.registerAt("1.C01[0]"), quint16(1));
    s.registerAt("1.C01[1]") = 40;
    s.clock->advance(100);
    s.link->answerAll();
    QCOMPARE(progress.size(), 1);
    QCOMPARE(progress.at(0).at(0).toInt(), 40);
    s.registerAt("1.C01[0]") = 0;
    s.clock->advance(100);
    s.link->answerAll();
    QVERIFY(action->isIdle());
}

void tst_OnlineWrites::tellsTheEndOfAnActionWithItsResult()
{
    OnlineStand s;
    s.beOnline();
    ActionLog log(s);
    QVERIFY(log.action().start());
    s.settle();
    QCOMPARE(log.take(), texts({"running, Ergebnis: 0"}));
    s.registerAt("1.C01[1]") = 99;
    s.clock->advance(100);
    s.link->answerAll();
    QCOMPARE(log.take(), texts({"99"}));
    s.registerAt("1.C01[0]") = 0;
    s.registerAt("1.C01[1]") = 100;
    s.registerAt("1.C01[2]") = 1;
    s.clock->advance(100);
    s.link->answerAll();
    QCOMPARE(log.take(), texts({"100", "idle, Ergebnis: 1"}));
}

void tst_OnlineWrites::readsBackACommandWithItsRecord()
{
    OnlineStand s;
    s.beOnline();
    ActionLog log(s);
    s.clock->advance(100);
    const FakeLink::Sent older = s.link->take();
    QVERIFY(log.action().start());
    s.link->answer(s.link->take());
    // It is over before it is read back.
    s.registerAt("1.C01[0]") = 0;
    s.registerAt("1.C01[1]") = 100;
    s.registerAt("1.C01[2]") = 1;
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {2, 19, 3}));
    s.link->answer(s.link->take());
    QCOMPARE(log.take(), texts({"running, Ergebnis: 0", "100", "idle, Ergebnis: 1"}));
    QCOMPARE(s.take(), texts({"1.C01[0]: geschrieben"}));
    // What was asked for before comes late.
    Q_EMIT s.link->answered(older.ticket, {eKind::Good, {0, 0, 0}, {}});
    QVERIFY(log.take().isEmpty());
    QCOMPARE(log.action().stateText(), QStringLiteral("Ergebnis: 1"));
}

void tst_OnlineWrites::readsBackACommandAloneWhereItsRecordIsRefused()
{
    OnlineStand s;
    s.beOnline();
    s.write("1.C01[0]", "1");
    s.link->answer(s.link->take());
    s.link->answer(s.link->take(), eKind::Refused);
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {2, 19, 1}));
    s.registerAt("1.C01[0]") = 0;
    s.settle();
    QCOMPARE(s.take(), texts({"1.C01[0]: geschrieben"}));
    QCOMPARE(s.native("1.C01[0]"), QStringLiteral("0"));
}

QTEST_GUILESS_MAIN(tst_OnlineWrites)
#include "tst_OnlineWrites.moc"

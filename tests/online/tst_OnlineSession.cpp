#include "tests/online/OnlineStand.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QTest>

using eState = OnlineSession::eState;
using eKind = OnlineAnswer::eKind;
using std::chrono::milliseconds;

class tst_OnlineSession : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void goesOnlineWithItsDrive();
    void leavesAnotherDevice_data();
    void leavesAnotherDevice();
    void callsAgainAndGivesUp();
    void callsAgainWhereHeadersAreLost();
    void waitsForTheLineForALimitedTime();
    void isRefusedTransfersWhileOffline();
    void losesEverythingWithTheLine();
    void tellsAWriteFromAReadThatIsLostWithIt();
    void tellsAWriteOfWhatHasNoRegister();
    void letsGoOfASilentDrive();
    void noticesAQuietDriveThatVanished();
    void returnsToADriveThatVanished();
    void leavesADriveThatRefusesItsHeader();
    void returnsToADriveThatRefusesItsHeaderWhileItStarts();
    void costsNothingWhereNothingIsAsked();
    void goesOfflineWhenTold();
};

void tst_OnlineSession::goesOnlineWithItsDrive()
{
    OnlineStand s;
    s.session->goOnline();
    QCOMPARE(s.session->state(), eState::Connecting);
    QCOMPARE(s.link->openings, 1);
    s.session->goOnline();
    QCOMPARE(s.link->openings, 1);
    s.link->comeUp();
    QCOMPARE(s.link->sent.size(), 3);
    QCOMPARE(s.link->sent.at(0).span.count, quint16(16));
    QCOMPARE(s.link->answerAll(), 3);
    QCOMPARE(s.take(), texts({"connecting", "container online", "online"}));
    QVERIFY(s.container.isOnline());
    s.clock->advance(100000);
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineSession::leavesAnotherDevice_data()
{
    QTest::addColumn<int>("registerNumber");

    QTest::newRow("another signature") << 0;
    QTest::newRow("another layout version") << 2;
    QTest::newRow("another living space") << 3;
    QTest::newRow("another family") << 5;
    QTest::newRow("another number of values") << 7;
    QTest::newRow("another checksum") << 9;
    QTest::newRow("anything else") << 15;
}

void tst_OnlineSession::leavesAnotherDevice()
{
    QFETCH(int, registerNumber);

    OnlineStand s;
    s.link->memory[2][registerNumber] ^= 1;
    s.session->goOnline();
    s.link->comeUp();
    s.link->answerAll();
    QCOMPARE(s.take(),
        texts({"connecting", "offline",
            "failed: der Antrieb ist ein anderes Gerät als das beschriebene (Einheit 2)"}));
    QVERIFY(!s.container.isOnline());
    s.clock->advance(100000);
    QCOMPARE(s.link->openings, 1);
}

void tst_OnlineSession::callsAgainAndGivesUp()
{
    OnlineStand s;
    s.session->goOnline();
    s.link->breakDown();
    QCOMPARE(s.link->openings, 1);
    s.clock->advance(249);
    QCOMPARE(s.link->openings, 1);
    s.clock->advance(1);
    QCOMPARE(s.link->openings, 2);
    s.link->breakDown();
    QCOMPARE(s.take(), texts({"connecting", "offline", "failed: broken"}));
    s.clock->advance(100000);
    QCOMPARE(s.link->openings, 2);
    // And once more from the beginning.
    s.beOnline();
    QCOMPARE(s.session->state(), eState::Online);
}

void tst_OnlineSession::callsAgainWhereHeadersAreLost()
{
    OnlineStand s;
    s.session->goOnline();
    s.link->comeUp();
    s.clock->advance(500 + 50 + 500);
    QCOMPARE(s.link->openings, 1);
    s.link->sent.clear();
    s.clock->advance(250);
    QCOMPARE(s.link->openings, 2);
    s.link->comeUp();
    s.link->answerAll();
    QCOMPARE(s.session->state(), eState::Online);
}

void tst_OnlineSession::waitsForTheLineForALimitedTime()
{
    OnlineStand s;
    s.session->goOnline();
    s.clock->advance(2999);
    QCOMPARE(s.link->closings, 0);
    s.clock->advance(1);
    QCOMPARE(s.link->closings, 1);
    s.clock->advance(250 + 3000);
    QCOMPARE(s.take(), texts({"connecting", "offline", "failed: der Antrieb meldet sich nicht"}));
}

void tst_OnlineSession::isRefusedTransfersWhileOffline()
{
    OnlineStand s;
    QVERIFY(!s.session->upload());
    QVERIFY(!s.session->download());
    QVERIFY(!s.session->readValues({{at("A01"), eLivingSpace::Global, 0}}));
    s.session->goOnline();
    QVERIFY(!s.session->upload());
    QVERIFY(!s.session->writeValues({{at("A01"), eLivingSpace::Global, 0}}));
    QVERIFY(!s.session->isTransferring());
}

void tst_OnlineSession::losesEverythingWithTheLine()
{
    OnlineStand s;
    s.beOnline();
    s.session->readValues(
        {{at("A01"), eLivingSpace::Global, 0}, {at("B02"), eLivingSpace::Axis2, 0}});
    s.write("1.B01", "90");
    s.turn();
    s.link->breakDown();
    QCOMPARE(s.take(),
        texts({"A01: verloren - broken", "1.B01: verloren - broken", "2.B02: verloren - broken",
            "2 Werte: 2 verloren", "container offline", "offline", "failed: broken"}));
    QVERIFY(!s.container.isOnline());
    s.clock->advance(100000);
    QCOMPARE(s.link->openings, 1);

    // Back again, the drive has its say.
    s.registerAt("1.B01") = 44;
    s.beOnline();
    s.session->upload();
    s.settle();
    QCOMPARE(s.native("1.B01"), QStringLiteral("44"));
}

void tst_OnlineSession::tellsAWriteFromAReadThatIsLostWithIt()
{
    OnlineStand s;
    s.beOnline();
    QStringList lost;
    connect(s.session.get(), &OnlineSession::valueReported, this,
        [&lost](const OnlineOutcome &outcome) {
            lost.append(outcome.address
                + (outcome.isWrite ? QStringLiteral(" written") : QStringLiteral(" read")));
        });
    s.session->readValues(
        {{at("A01"), eLivingSpace::Global, 0}, {at("B01"), eLivingSpace::Axis1, 0}});
    s.turn();
    s.write("1.B01", "90");
    s.write("2.B01", "91");
    s.link->breakDown();
    QCOMPARE(lost, texts({"A01 read", "1.B01 read", "1.B01 written", "2.B01 written"}));
    QCOMPARE(s.session->report().summary(), QStringLiteral("2 Werte: 2 verloren"));
}

void tst_OnlineSession::tellsAWriteOfWhatHasNoRegister()
{
    OnlineStand s(onlineRules(),
        OnlineDevice::description()
            .replace("\"INT32\", \"STRING8\"", "\"INT32\", \"STRING8\", \"RAW\"")
            .replace("\"dataType\": \"STRING8\", \"kind\": 5, \"default\": \"abc\"",
                "\"dataType\": \"RAW\", \"kind\": 5"));
    s.beOnline();
    QList<bool> areWrites;
    connect(s.session.get(), &OnlineSession::valueReported, this,
        [&areWrites](const OnlineOutcome &outcome) {
            QCOMPARE(outcome.place.coordinate, at("A03"));
            areWrites.append(outcome.isWrite);
        });
    const ValuePlace place {at("A03"), eLivingSpace::Global, 0};
    s.container.writeValueNative(place.livingSpace, place.coordinate, 0, QStringLiteral("61"));
    QVERIFY(s.session->writeValue(place));
    s.container.parameterSetup(at("A03"))->setParameterNeedsConsistence(place.livingSpace, 0, true);
    QVERIFY(s.session->readValues({place}));
    QTRY_VERIFY(!s.session->isTransferring());
    QVERIFY(s.session->writeValues({place}));
    QTRY_VERIFY(!s.session->isTransferring());
    QCOMPARE(areWrites, (QList<bool> {true, true, false, false, true}));
}

void tst_OnlineSession::letsGoOfASilentDrive()
{
    OnlineStand s;
    s.beOnline();
    s.session->upload();
    s.turn();
    s.link->sent.clear();
    // Four at a time: the first four, four others while these pause, the first four again.
    s.clock->advance(1499);
    QVERIFY(s.log.isEmpty());
    s.clock->advance(1);
    QCOMPARE(s.log.constLast(), QStringLiteral("failed: der Antrieb antwortet nicht"));
    QCOMPARE(s.session->report().count(OnlineOutcome::eKind::Lost), 16);
    QCOMPARE(s.session->state(), eState::Offline);
}

void tst_OnlineSession::noticesAQuietDriveThatVanished()
{
    OnlineRules rules = onlineRules();
    rules.heartbeatInterval = milliseconds(1000);
    OnlineStand s(rules);
    s.beOnline();
    s.clock->advance(999);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1);
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {1, 0, 1}));
    QCOMPARE(s.link->answerAll(), 1);
    // Not where the drive has said something else meanwhile.
    s.clock->advance(500);
    s.write("1.B01", "9");
    s.link->answerAll();
    s.clock->advance(500);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1000);
    QCOMPARE(s.link->sent.size(), 1);
    // A refusal is a sign of life.
    s.link->answer(s.link->take(), eKind::Refused);
    s.take();
    s.clock->advance(1000 + 500 + 50 + 499);
    QVERIFY(s.log.isEmpty());
    s.clock->advance(1);
    QCOMPARE(
        s.take(), texts({"container offline", "offline", "failed: der Antrieb antwortet nicht"}));
    s.clock->advance(100000);
    QCOMPARE(s.link->openings, 1);
}

void tst_OnlineSession::returnsToADriveThatVanished()
{
    OnlineRules rules = onlineRules();
    rules.returnsToVanished = true;
    OnlineStand s(rules);
    s.beOnline();
    s.container.parameterSetup(at("B01"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    s.settle();
    s.link->breakDown();
    QCOMPARE(s.take(), texts({"container offline", "connecting", "failed: broken"}));
    s.clock->advance(250);
    QCOMPARE(s.link->openings, 2);
    s.registerAt("1.B01") = 77;
    // Nobody asks for this one again and again.
    s.registerAt("2.B01") = 78;
    s.link->comeUp();
    s.link->answerAll();
    s.settle();
    QCOMPARE(s.log.first(2), texts({"container online", "online"}));
    QCOMPARE(s.take().constLast(), QStringLiteral("16 Werte: 14 unverändert, 2 geändert"));
    QCOMPARE(s.native("1.B01"), QStringLiteral("77"));
    QCOMPARE(s.native("2.B01"), QStringLiteral("78"));
    // Gone for good.
    s.link->breakDown();
    s.clock->advance(250);
    s.link->breakDown();
    s.clock->advance(250);
    s.link->breakDown();
    QCOMPARE(s.log.constLast(), QStringLiteral("failed: broken"));
    QCOMPARE(s.session->state(), eState::Offline);
}

void tst_OnlineSession::leavesADriveThatRefusesItsHeader()
{
    OnlineRules rules = onlineRules();
    rules.returnsToVanished = true;
    OnlineStand s(rules);
    s.session->goOnline();
    s.link->comeUp();
    s.link->answer(s.link->take(), eKind::Refused);
    QCOMPARE(s.take(), texts({"connecting", "offline", "failed: reason"}));
    s.clock->advance(100000);
    QCOMPARE(s.link->openings, 1);
}

void tst_OnlineSession::returnsToADriveThatRefusesItsHeaderWhileItStarts()
{
    OnlineRules rules = onlineRules();
    rules.returnsToVanished = true;
    rules.contactAttempts = 3;
    OnlineStand s(rules);
    s.beOnline();
    s.link->breakDown();
    s.take();
    // The pause doubles, as where nobody answers.
    s.clock->advance(250);
    QCOMPARE(s.link->openings, 2);
    s.link->comeUp();
    s.link->answer(s.link->take(), eKind::Refused);
    s.link->sent.clear();
    QCOMPARE(s.take(), QStringList());
    s.clock->advance(249);
    QCOMPARE(s.link->openings, 2);
    s.clock->advance(1);
    QCOMPARE(s.link->openings, 3);
    s.link->comeUp();
    s.link->answer(s.link->take(), eKind::Refused);
    s.clock->advance(499);
    QCOMPARE(s.link->openings, 3);
    s.clock->advance(1);
    QCOMPARE(s.link->openings, 4);
    s.link->comeUp();
    s.link->answerAll();
    QCOMPARE(s.session->state(), eState::Online);
    QCOMPARE(s.log.first(2), texts({"container online", "online"}));
    // One that never tells is left in the end.
    s.link->breakDown();
    for (const int pause : {250, 250, 500}) {
        QCOMPARE(s.session->state(), eState::Connecting);
        s.clock->advance(pause);
        s.link->comeUp();
        s.link->answer(s.link->take(), eKind::Refused);
    }
    QCOMPARE(s.session->state(), eState::Offline);
    QCOMPARE(s.log.constLast(), QStringLiteral("failed: reason"));
}

void tst_OnlineSession::costsNothingWhereNothingIsAsked()
{
    OnlineStand s;
    s.beOnline();
    s.settle();
    for (const eOnlineAlarm alarm :
        {eOnlineAlarm::Exchange, eOnlineAlarm::Cycle, eOnlineAlarm::Contact})
        QVERIFY(!s.clock->alarm(alarm));
}

void tst_OnlineSession::goesOfflineWhenTold()
{
    OnlineStand s;
    s.session->goOffline();
    QVERIFY(s.log.isEmpty());
    s.session->goOnline();
    s.session->goOffline();
    QCOMPARE(s.take(), texts({"connecting", "offline"}));
    s.beOnline();
    s.session->upload();
    s.session->goOffline();
    QCOMPARE(s.log.constLast(), QStringLiteral("offline"));
    QCOMPARE(s.session->report().count(OnlineOutcome::eKind::Lost), 16);
    QVERIFY(!s.session->isTransferring());
    s.link->answerAll();
    s.clock->advance(100000);
    QVERIFY(!s.container.isOnline());
    // Its end is one too.
    s.beOnline();
    s.session.reset();
    QVERIFY(!s.container.isOnline());
}

QTEST_GUILESS_MAIN(tst_OnlineSession)
#include "tst_OnlineSession.moc"

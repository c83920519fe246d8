#include "tests/online/OnlineStand.h"

#include <QtTest/QTest>

using eState = OnlineSession::eState;

class tst_OnlineListeners : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sendsWhatListenersWrite();
    void reportsAWriteOverWhatCameBack();
    void endsAWriteThatAListenerEnds();
    void endsATransferThatGoesOfflineAtItsBegin();
    void goesOfflineWhenToldWhileItLosesTheDrive();
    void callsOnceWhereAListenerCalls();
    void leavesTheContainerOfflineWhenDeletedWhileItLosesTheDrive();
    void tellsWhatFailedBeforeAListenerEndsTheRun();
    void survivesListeners_data();
    void survivesListeners();
};

void tst_OnlineListeners::sendsWhatListenersWrite()
{
    OnlineStand s;
    s.beOnline();
    QObject context;
    connect(&s.container, &ParameterProvider::parameterNativeValueChanged, &context,
        [&s](const ParameterAddress &changed) {
            if (changed == address("2.B01")) {
                s.write("A01", "8");
                s.container.writeValueNative(
                    eLivingSpace::Axis1, at("Z99"), 0, QStringLiteral("1"));
            }
        });
    s.registerAt("2.B01") = 9;
    s.session->readValues({{at("B01"), eLivingSpace::Axis2, 0}});
    s.settle();
    QCOMPARE(s.registerAt("A01"), quint16(8));
    QCOMPARE(s.native("2.B01"), QStringLiteral("9"));
    QCOMPARE(s.take(), texts({"2.B01: geändert", "1 Werte: 1 geändert", "A01: geschrieben"}));
    // Also while what was written comes back.
    s.write("A01", "7");
    s.settle();
    s.take();
    s.write("2.B01", "11");
    s.settle();
    QCOMPARE(s.registerAt("A01"), quint16(8));
}

void tst_OnlineListeners::reportsAWriteOverWhatCameBack()
{
    OnlineStand s;
    s.beOnline();
    QObject context;
    connect(&s.container, &ParameterProvider::parameterNativeValueChanged, &context, [&s] {
        if (s.native("1.B01") == QLatin1String("80"))
            s.write("1.B01", "70");
    });
    s.write("1.B01", "90");
    s.link->answer(s.link->take());
    s.registerAt("1.B01") = 80;
    s.settle();
    QCOMPARE(s.take(),
        texts({"1.B01: geschrieben wurde \"90\", der Antrieb hat \"80\"", "1.B01: geschrieben"}));
    QCOMPARE(s.registerAt("1.B01"), quint16(70));
    QCOMPARE(s.native("1.B01"), QStringLiteral("70"));
}

void tst_OnlineListeners::endsAWriteThatAListenerEnds()
{
    OnlineStand s;
    s.beOnline();
    QObject context;
    s.session->writeValues({{at("B01"), eLivingSpace::Axis1, 0}});
    s.link->answer(s.link->take());
    s.registerAt("1.B01") = 80;
    connect(&s.container, &ParameterProvider::parameterNativeValueChanged, &context,
        [&s] { s.session->goOffline(); });
    s.link->answerAll();
    QCOMPARE(s.take(),
        texts({"1.B01: verloren - die Verbindung wurde getrennt", "1 Werte: 1 verloren",
            "container offline", "offline"}));
    QVERIFY(!s.session->isTransferring());
}

void tst_OnlineListeners::endsATransferThatGoesOfflineAtItsBegin()
{
    OnlineStand s;
    s.beOnline();
    QObject context;
    connect(
        s.session.get(), &OnlineSession::valueReported, &context, [&s] { s.session->goOffline(); });
    QVERIFY(s.session->readValues(
        {{at("Z99"), eLivingSpace::Axis1, 0}, {at("A01"), eLivingSpace::Global, 0}}));
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.log.constLast(), QStringLiteral("offline"));
    QVERIFY(s.log.contains(QStringLiteral("2 Werte: 1 verloren, 1 nicht übertragbar")));
}

void tst_OnlineListeners::goesOfflineWhenToldWhileItLosesTheDrive()
{
    OnlineRules rules = onlineRules();
    rules.returnsToVanished = true;
    for (const bool isEarly : {true, false}) {
        OnlineStand s(rules);
        s.beOnline();
        QObject context;
        const auto leave = [&s] { s.session->goOffline(); };
        if (isEarly)
            connect(s.session.get(), &OnlineSession::valueReported, &context, leave);
        else
            connect(&s.container, &ParameterProvider::onlineChanged, &context, leave);
        s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
        s.link->breakDown();
        QCOMPARE(s.take(),
            texts(
                {"A01: verloren - broken", "1 Werte: 1 verloren", "container offline", "offline"}));
        QCOMPARE(s.session->state(), eState::Offline);
        s.clock->advance(100000);
        QCOMPARE(s.link->openings, 1);
    }
}

void tst_OnlineListeners::callsOnceWhereAListenerCalls()
{
    OnlineRules rules = onlineRules();
    rules.returnsToVanished = true;
    OnlineStand s(rules);
    s.beOnline();
    QObject context;
    connect(s.session.get(), &OnlineSession::stateChanged, &context, [&] {
        context.disconnect();
        s.session->disconnect(&context);
        s.session->goOffline();
        s.session->goOnline();
    });
    s.link->breakDown();
    QCOMPARE(s.link->openings, 2);
    // The listener's own call has its full time.
    s.clock->advance(2999);
    QCOMPARE(s.session->state(), eState::Connecting);
    s.link->comeUp();
    s.link->answerAll();
    QCOMPARE(s.session->state(), eState::Online);
}

void tst_OnlineListeners::leavesTheContainerOfflineWhenDeletedWhileItLosesTheDrive()
{
    OnlineStand s;
    s.beOnline();
    QObject context;
    connect(s.session.get(), &OnlineSession::valueReported, &context, [&s] { s.session.reset(); });
    s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
    s.link->breakDown();
    QVERIFY(!s.session);
    QVERIFY(!s.container.isOnline());
}

/// The state of the action waits for its result, which does not come; who hears of the state goes offline.
void tst_OnlineListeners::tellsWhatFailedBeforeAListenerEndsTheRun()
{
    OnlineStand s(onlineRules(),
        OnlineDevice::description()
            .replace("\"enableOffRequired\": 1,\n        \"onlineOrder\": 6", "\"onlineOrder\": 5")
            .replace("\"Fortschritt\", \"profile\": \"measured\", \"dataType\": \"UINT8\",\n"
                     "        \"onlineOrder\": 6",
                "\"Fortschritt\", \"profile\": \"measured\", \"dataType\": \"UINT8\",\n"
                "        \"onlineOrder\": 7"));
    s.beOnline();
    s.registerAt("1.C01[0]") = 1;
    QObject context;
    connect(&s.container, &ParameterProvider::parameterValueChanged, &context,
        [&s](const ParameterAddress &changed) {
            if (changed == address("1.C01[0]"))
                s.session->goOffline();
        });
    const ParameterCoordinate action = at("C01");
    s.session->readValues({{action, eLivingSpace::Axis1, 0}, {action, eLivingSpace::Axis1, 1},
        {action, eLivingSpace::Axis1, 2}});
    for (s.turn(); !s.link->sent.isEmpty(); s.clock->advance(50)) {
        const FakeLink::Sent request = s.link->take();
        if (request.span.first <= 19)
            s.link->answer(request);
        else
            s.link->answer(request, OnlineAnswer::eKind::Refused);
    }
    QStringList told;
    for (const OnlineOutcome &outcome : s.session->report().outcomes())
        told.append(outcome.toText());
    told.sort();
    QCOMPARE(told,
        texts({"1.C01[0]: verloren - die Verbindung wurde getrennt", "1.C01[1]: abgelehnt - reason",
            "1.C01[2]: unverändert"}));
}

void tst_OnlineListeners::survivesListeners_data()
{
    QTest::addColumn<int>("act");

    QTest::newRow("that goes offline") << 0;
    QTest::newRow("that goes offline and online") << 1;
    QTest::newRow("that deletes the session") << 2;
    QTest::newRow("that removes every parameter") << 3;
    QTest::newRow("that writes every time") << 4;
    QTest::newRow("that asks for everything once more") << 5;
}

void tst_OnlineListeners::survivesListeners()
{
    QFETCH(int, act);

    for (int signal = 0; signal < 6; ++signal) {
        OnlineStand s;
        int budget = 50;
        QObject context;
        const auto strike = [&] {
            if (!s.session || --budget < 0)
                return;
            if (act == 0 || act == 1)
                s.session->goOffline();
            if (act == 1)
                s.session->goOnline();
            else if (act == 2)
                s.session.reset();
            else if (act == 3)
                s.container.clear();
            else if (act == 4)
                s.container.writeValueNative(
                    eLivingSpace::Global, at("A01"), 0, QString::number(budget));
            else if (act == 5)
                s.session->upload();
        };
        s.session->goOnline();
        s.link->comeUp();
        if (signal == 0)
            connect(s.session.get(), &OnlineSession::stateChanged, &context, strike);
        // The line goes with the session.
        while (s.session && !s.link->sent.isEmpty())
            s.link->answer(s.link->take());
        if (!s.session)
            continue;
        if (signal == 1)
            connect(s.session.get(), &OnlineSession::valueReported, &context, strike);
        else if (signal == 2)
            connect(s.session.get(), &OnlineSession::transferProgress, &context, strike);
        else if (signal == 3)
            connect(s.session.get(), &OnlineSession::transferFinished, &context, strike);
        else if (signal == 4)
            connect(
                &s.container, &ParameterProvider::parameterNativeValueChanged, &context, strike);
        else if (signal == 5)
            connect(&s.container, &ParameterProvider::onlineChanged, &context, strike);
        s.link->memory[1][16] = 9;
        s.write("1.B01", "9");
        for (int i = 0; i < 100 && s.session; ++i) {
            if (i == 20)
                s.session->upload();
            if (i == 60)
                s.link->breakDown();
            if (!s.session)
                break;
            s.clock->advance(50);
            if (s.session && s.link->openings > 0 && s.session->state() == eState::Connecting)
                s.link->comeUp();
            if (s.session && !s.link->sent.isEmpty())
                s.link->answer(s.link->take());
        }
        context.disconnect();
        if (s.session)
            s.session->goOffline();
        QVERIFY(!s.container.isOnline());
    }
}

QTEST_GUILESS_MAIN(tst_OnlineListeners)
#include "tst_OnlineListeners.moc"

#include "tests/online/OnlineStand.h"

#include <QtCore/QSet>
#include <QtTest/QTest>

#include <functional>

namespace {

/// Three values and what becomes of A02 when A01 changes, and of A03 when A02 changes. They are written and
/// read from A03 down to A01.
QByteArray chainDevice(const QByteArray &second, const QByteArray &third)
{
    return QByteArray(R"device({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["UINT16"],
      "functions": {"postWrite": {
        "1": ["writeValueNative(0, 'A02', 0, SECOND)"],
        "2": ["writeValueNative(0, 'A03', 0, THIRD)"]}},
      "parameters": [
        {"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 1}, "onlineOrder": 3}]},
        {"number": 2, "coordinates": ["A02"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 2},
                       "functions": {"postWrite": 1}, "onlineOrder": 2}]},
        {"number": 3, "coordinates": ["A03"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "functions": {"postWrite": 2}, "onlineOrder": 1}]},
        {"number": 4, "coordinates": ["A04"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "onlineOrder": 4}]}]})device")
        .replace("SECOND", second)
        .replace("THIRD", third);
}

/// A02 is ten times A01, A03 is one more than A02.
QByteArray chainDevice()
{
    return chainDevice("10 * readValueNative(0, 'A01')", "1 + readValueNative(0, 'A02')");
}

/// Each of two values writes the other one, ten times itself, when it changes.
QByteArray correctingDevice()
{
    return R"device({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["UINT16"],
      "functions": {"postWrite": {
        "1": ["writeValueNative(0, 'A02', 0, 10 * readValueNative(0, 'A01') % 1000)"],
        "2": ["writeValueNative(0, 'A01', 0, 10 * readValueNative(0, 'A02') % 1000)"]}},
      "parameters": [
        {"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 1},
                       "functions": {"postWrite": 2}}]},
        {"number": 2, "coordinates": ["A02"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 2},
                       "functions": {"postWrite": 1}}]}]})device";
}

struct Stand : OnlineStand {
    explicit Stand(const QByteArray &description)
        : OnlineStand(onlineRules(), description)
    {
        beOnline();
    }

    void put(quint16 first, quint16 second, quint16 third)
    {
        registerAt("A01") = first;
        registerAt("A02") = second;
        registerAt("A03") = third;
    }
    /// Everything answered; the drive's functions run behind each value that is written.
    void settleWith(const std::function<void(int registerNumber)> &function)
    {
        for (clock->advance(0); !link->sent.isEmpty(); clock->advance(0)) {
            const FakeLink::Sent request = link->take();
            isWriting = isWriting || !request.isRead();
            if (request.isRead()) {
                link->answer(request);
                continue;
            }
            // What the drive has is changed before it answers.
            std::copy(request.registers.begin(), request.registers.end(),
                link->memory[request.span.unit].begin() + request.span.first);
            FakeLink::Sent after = request;
            function(request.span.first);
            after.registers =
                link->memory[request.span.unit].sliced(request.span.first, request.span.count);
            link->answer(after);
        }
    }
    QStringList natives() { return {native("A01"), native("A02"), native("A03")}; }
    QStringList registers()
    {
        return {QString::number(registerAt("A01")), QString::number(registerAt("A02")),
            QString::number(registerAt("A03"))};
    }

    bool isWriting = false;
};

void nothing(int)
{
}

} // namespace

class tst_OnlineFunctions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsWhatFunctionsMake();
    void readsWhatAChainOfFunctionsMakes();
    void endsAnUploadWithWhatTheDriveHas();
    void reportsWhatIsLostBehindFunctions();
    void reportsWhatGoesWithTheDriveBehindFunctions();
    void endsWhereFunctionsCorrectEachOther();
    void countsNoCorrectionsWhereEachRoundComesToRest();
    void readsWhatTheDrivesFunctionsMadeOfAWrite();
    void readsWhatTheDrivesFunctionsMadeUntilItComes();
    void readsNothingThatWasAskedForBeforeTheDrivesFunctionsRan();
    void reportsWhatTheDriveHasAtTheEndOfADownload();
    void reportsWhatWasChangedBeforeItsTurn();
    void writesWhatListenersReplyToFunctions();
    void readsNothingMoreWhereTheDriveTakesNothing();
};

void tst_OnlineFunctions::readsWhatFunctionsMake()
{
    // A02 follows A01, but not the other way round.
    Stand s(correctingDevice().replace(
        "10 * readValueNative(0, 'A02') % 1000", "readValueNative(0, 'A01')"));
    s.registerAt("A01") = 7;
    s.registerAt("A02") = 5;
    s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
    s.turn();
    QVERIFY(s.link->sent.constFirst().isRead());
    s.link->answer(s.link->take());
    QCOMPARE(s.native("A01"), QStringLiteral("7"));
    QCOMPARE(s.native("A02"), QStringLiteral("70"));
    // The drive has a result of its own, and keeps it.
    s.settle();
    QCOMPARE(s.native("A01"), QStringLiteral("7"));
    QCOMPARE(s.native("A02"), QStringLiteral("5"));
    QCOMPARE(s.registerAt("A02"), quint16(5));
}

void tst_OnlineFunctions::readsWhatAChainOfFunctionsMakes()
{
    Stand s(chainDevice());
    s.put(7, 5, 3);
    s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
    s.settleWith(nothing);
    // A03 is read before A02, which has it changed once more.
    QCOMPARE(s.natives(), texts({"7", "5", "3"}));
    QCOMPARE(s.registers(), texts({"7", "5", "3"}));
    QVERIFY(!s.isWriting);
    QCOMPARE(s.take(), texts({"A01: geändert", "1 Werte: 1 geändert"}));
}

void tst_OnlineFunctions::endsAnUploadWithWhatTheDriveHas()
{
    Stand s(chainDevice());
    s.put(7, 5, 3);
    QStringList natives;
    connect(s.session.get(), &OnlineSession::transferFinished, s.session.get(),
        [&] { natives = s.natives(); });
    QVERIFY(s.session->upload());
    s.settleWith(nothing);
    QVERIFY(!s.isWriting);
    QCOMPARE(natives, texts({"7", "5", "3"}));
}

/// What came first is not what the drive has once a function wrote over it.
void tst_OnlineFunctions::reportsWhatIsLostBehindFunctions()
{
    Stand s(chainDevice());
    s.put(7, 5, 3);
    QVERIFY(s.session->upload());
    QSet<int> read;
    for (s.turn(); !s.link->sent.isEmpty(); s.clock->advance(50)) {
        const FakeLink::Sent request = s.link->take();
        const bool isAgain = read.contains(request.span.first);
        read.insert(request.span.first);
        if (isAgain)
            s.link->answer(request, OnlineAnswer::eKind::Busy);
        else
            s.link->answer(request);
    }
    QCOMPARE(s.natives(), texts({"7", "70", "71"}));
    QCOMPARE(s.take(),
        texts({"A03: geändert", "A02: geändert", "A01: geändert", "A04: unverändert",
            "A03: verloren - reason", "A02: verloren - reason",
            "4 Werte: 1 unverändert, 1 geändert, 2 verloren"}));
}

void tst_OnlineFunctions::reportsWhatGoesWithTheDriveBehindFunctions()
{
    Stand s(chainDevice());
    s.put(7, 5, 3);
    QVERIFY(s.session->upload());
    s.turn();
    while (s.native("A01") != QLatin1String("7"))
        s.link->answer(s.link->take());
    QVERIFY(s.session->isTransferring());
    s.link->breakDown();
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.take(),
        texts({"A03: geändert", "A02: geändert", "A01: geändert", "A04: unverändert",
            "A02: verloren - broken", "A03: verloren - broken",
            "4 Werte: 1 unverändert, 1 geändert, 2 verloren", "container offline", "offline",
            "failed: broken"}));
}

void tst_OnlineFunctions::endsWhereFunctionsCorrectEachOther()
{
    Stand s(correctingDevice());
    s.registerAt("A01") = 7;
    s.registerAt("A02") = 5;
    s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
    int requests = 0;
    for (s.turn(); !s.link->sent.isEmpty() && requests < 100; s.turn()) {
        const FakeLink::Sent request = s.link->take();
        // The drive has its own results: nothing is written.
        QVERIFY(request.isRead());
        ++requests;
        s.link->answer(request);
    }
    // The first read, and eight of both.
    QCOMPARE(requests, 9);
    // The functions go on until both are 0, whatever is stored; the drive has its own.
    QCOMPARE(s.native("A01"), QStringLiteral("0"));
    QCOMPARE(s.native("A02"), QStringLiteral("0"));
    QCOMPARE(s.registerAt("A01"), quint16(7));
    QCOMPARE(s.registerAt("A02"), quint16(5));
    QVERIFY(!s.session->isTransferring());
    const char *reason =
        "verloren - Funktionen des Geräts ändern den Wert des Antriebs immer wieder";
    const QString first = QStringLiteral("A01: ") + QString::fromUtf8(reason);
    const QString second = QStringLiteral("A02: ") + QString::fromUtf8(reason);
    QStringList told = s.take();
    QCOMPARE(told.takeFirst(), QStringLiteral("A01: geändert"));
    QCOMPARE(told.takeLast(), QStringLiteral("2 Werte: 2 verloren"));
    told.sort();
    QCOMPARE(told, (QStringList {first, second}));
    // It is known: they are read once more, and nobody hears of it again.
    s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
    requests = 0;
    for (s.turn(); !s.link->sent.isEmpty() && requests < 100; s.turn()) {
        ++requests;
        s.link->answer(s.link->take());
    }
    QCOMPARE(requests, 2);
    QCOMPARE(s.take(), texts({"A01: geändert", "1 Werte: 1 geändert"}));
}

/// Twelve values are written of which the drive makes 9; A20 is their sum, and a thousand more in the drive.
void tst_OnlineFunctions::countsNoCorrectionsWhereEachRoundComesToRest()
{
    constexpr int Count = 12;
    const auto place = [](int i) { return QStringLiteral("A%1").arg(i, 2, 10, QLatin1Char('0')); };
    QString parameters;
    QString sum = QStringLiteral("0");
    for (int i = 1; i <= Count; ++i) {
        parameters += QStringLiteral(
            R"({"number": %1, "coordinates": ["%2"], "name": "N", "global": true,
                "elements": [{"dataType": "UINT16", "default": 10, "onlineOrder": %1,
                              "dependencies": {"postWrite": 1}}]},)")
                          .arg(i)
                          .arg(place(i));
        sum += QStringLiteral(" + readValueNative(0, '%1')").arg(place(i));
    }
    Stand s(QByteArray(R"device({"format": "kr-device-description", "version": 1,
          "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
          "languages": ["de"], "dataTypes": ["UINT16"],
          "functions": {"postWrite": {"1": ["writeValueNative(0, 'A20', 0, SUM)"]}},
          "parameters": [PARAMETERS
            {"number": 20, "coordinates": ["A20"], "name": "N", "global": true,
             "elements": [{"dataType": "UINT16", "functions": {"postWrite": 1}, "noWrite": 1,
                           "memoryAllocation": 1}]}]})device")
                .replace("SUM", sum.toUtf8())
                .replace("PARAMETERS", parameters.toUtf8()));
    QVERIFY(s.session->download());
    s.settleWith([&](int registerNumber) {
        quint16 total = 1000;
        for (int i = 1; i <= Count; ++i) {
            quint16 &value = s.registerAt(qPrintable(place(i)));
            if (registerNumber == 15 + i)
                value = 9;
            total += value;
        }
        s.registerAt("A20") = total;
    });
    QCOMPARE(s.native("A20"), QStringLiteral("1108"));
    QCOMPARE(s.session->report().summary(), QStringLiteral("12 Werte: 12 vom Antrieb verändert"));
}

void tst_OnlineFunctions::readsWhatTheDrivesFunctionsMadeOfAWrite()
{
    Stand s(chainDevice());
    s.put(1, 10, 11);
    s.session->upload();
    s.settle();
    s.take();
    // The drive's functions do what these do not.
    s.write("A01", "7");
    s.settleWith([&s](int registerNumber) {
        if (registerNumber == 16)
            s.registerAt("A04") = 9;
    });
    QCOMPARE(s.registers(), texts({"7", "70", "71"}));
    QCOMPARE(s.natives(), texts({"7", "70", "71"}));
    QCOMPARE(s.native("A04"), QStringLiteral("9"));
}

void tst_OnlineFunctions::readsWhatTheDrivesFunctionsMadeUntilItComes()
{
    Stand s(chainDevice());
    s.put(1, 10, 11);
    s.session->upload();
    s.settle();
    s.session->writeValue({at("A01"), eLivingSpace::Global, 0});
    s.link->answer(s.link->take());
    s.registerAt("A04") = 9;
    s.link->answer(s.link->take());
    s.turn();
    // All that the functions may have changed, in both attempts.
    for (int attempt = 0; attempt < 2; ++attempt) {
        QVERIFY(!s.link->sent.isEmpty());
        while (!s.link->sent.isEmpty())
            s.link->answer(s.link->take(), OnlineAnswer::eKind::Busy);
        s.clock->advance(50);
    }
    QVERIFY(s.link->sent.isEmpty());
    QCOMPARE(s.native("A04"), QStringLiteral("0"));
    s.clock->advance(1000);
    s.settle();
    QCOMPARE(s.native("A04"), QStringLiteral("9"));
}

void tst_OnlineFunctions::readsNothingThatWasAskedForBeforeTheDrivesFunctionsRan()
{
    Stand s(chainDevice("readValueNative(0, 'A02')", "readValueNative(0, 'A03')"));
    s.put(1, 10, 11);
    s.session->upload();
    s.settle();
    // A read of A03 is on its way for long.
    s.container.dispatchParameterOnlineConsistenceNeed(address("A03"), true);
    s.turn();
    QCOMPARE(s.link->sent.size(), 1);
    const FakeLink::Sent read = s.link->take();
    s.container.dispatchParameterOnlineConsistenceNeed(address("A03"), false);
    s.write("A01", "7");
    s.settleWith([&s](int registerNumber) {
        if (registerNumber == 16)
            s.put(7, 10, 12);
    });
    // It tells what was there before.
    s.registerAt("A03") = 11;
    s.link->answer(read);
    s.registerAt("A03") = 12;
    s.settle();
    QCOMPARE(s.natives(), texts({"7", "10", "12"}));
}

void tst_OnlineFunctions::reportsWhatTheDriveHasAtTheEndOfADownload()
{
    Stand s(chainDevice());
    // Offline the functions run too.
    s.session->goOffline();
    s.write("A01", "7");
    s.write("A02", "5");
    s.write("A03", "3");
    s.beOnline();
    QVERIFY(s.session->download());
    // The drive's functions run when A02 and A01 come behind A03.
    s.settleWith([&s](int registerNumber) {
        if (registerNumber == 16)
            s.registerAt("A02") = 70;
        if (registerNumber == 16 || registerNumber == 17)
            s.registerAt("A03") = quint16(s.registerAt("A02") + 1);
    });
    QCOMPARE(s.registers(), texts({"7", "70", "71"}));
    QCOMPARE(s.natives(), texts({"7", "70", "71"}));
    QCOMPARE(s.take(),
        texts({"A03: geschrieben", "A02: geschrieben", "A01: geschrieben", "A04: geschrieben",
            "A02: geschrieben wurde \"5\", der Antrieb hat \"70\"",
            "A03: geschrieben wurde \"3\", der Antrieb hat \"71\"",
            "4 Werte: 2 geschrieben, 2 vom Antrieb verändert"}));
    QCOMPARE(s.session->report().outcomes().size(), 4);
}

void tst_OnlineFunctions::reportsWhatWasChangedBeforeItsTurn()
{
    // A02 is at most A01, which comes first.
    Stand s(chainDevice("math.min(readValueNative(0, 'A01'), readValueNative(0, 'A02'))",
        "readValueNative(0, 'A03')")
                .replace("\"onlineOrder\": 3", "\"onlineOrder\": 0"));
    s.session->goOffline();
    s.write("A01", "9");
    s.write("A02", "8");
    s.beOnline();
    QVERIFY(s.session->download());
    // The drive makes 4 of the 9.
    s.settleWith([&s](int registerNumber) {
        if (registerNumber == 16)
            s.registerAt("A01") = 4;
    });
    QCOMPARE(s.registerAt("A02"), quint16(4));
    QCOMPARE(s.native("A02"), QStringLiteral("4"));
    QVERIFY(
        s.take().contains(QStringLiteral("A02: geschrieben wurde \"8\", der Antrieb hat \"4\"")));
    QCOMPARE(s.session->report().summary(),
        QStringLiteral("4 Werte: 2 geschrieben, 2 vom Antrieb verändert"));
}

void tst_OnlineFunctions::writesWhatListenersReplyToFunctions()
{
    Stand s(chainDevice());
    s.put(1, 10, 11);
    s.session->upload();
    s.settle();
    QObject context;
    connect(&s.container, &ParameterProvider::parameterNativeValueChanged, &context,
        [&s](const ParameterAddress &changed) {
            if (changed == address("A02") && s.native("A02") == QLatin1String("70"))
                s.write("A04", "8");
        });
    s.registerAt("A01") = 7;
    s.registerAt("A02") = 70;
    s.registerAt("A03") = 71;
    s.session->readValues({{at("A01"), eLivingSpace::Global, 0}});
    s.settle();
    QCOMPARE(s.registerAt("A04"), quint16(8));
    QCOMPARE(s.native("A04"), QStringLiteral("8"));
    QCOMPARE(s.natives(), texts({"7", "70", "71"}));
}

void tst_OnlineFunctions::readsNothingMoreWhereTheDriveTakesNothing()
{
    Stand s(chainDevice());
    s.put(1, 10, 11);
    s.session->upload();
    s.settle();
    s.take();
    s.session->writeValues({{at("A01"), eLivingSpace::Global, 0}});
    s.link->answer(s.link->take(), OnlineAnswer::eKind::Refused);
    int reads = 0;
    for (s.turn(); !s.link->sent.isEmpty(); s.turn()) {
        ++reads;
        s.link->answer(s.link->take());
    }
    QCOMPARE(reads, 1);
    QCOMPARE(s.take(), texts({"A01: abgelehnt - reason", "1 Werte: 1 abgelehnt"}));
}

QTEST_GUILESS_MAIN(tst_OnlineFunctions)
#include "tst_OnlineFunctions.moc"

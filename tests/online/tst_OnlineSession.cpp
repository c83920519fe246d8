#include "apps/online/OnlineSession.h"
#include "tests/online/FakeClock.h"
#include "tests/online/FakeLink.h"
#include "tests/online/OnlineDevice.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using eState = OnlineSession::eState;
using eKind = OnlineAnswer::eKind;
using std::chrono::milliseconds;

namespace {

OnlineRules rules()
{
    OnlineRules rules;
    rules.window = 4;
    rules.attempts = 2;
    rules.answerSpan = milliseconds(500);
    rules.firstPause = milliseconds(50);
    rules.cycleInterval = milliseconds(100);
    rules.contactSpan = milliseconds(3000);
    rules.firstContactPause = milliseconds(250);
    rules.contactAttempts = 2;
    return rules;
}

/// A session with a drive that has the same registers as the host, and a log of what it tells.
struct Setting {
    explicit Setting(const OnlineRules &rules = ::rules())
        : project(device.open())
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
        QObject::connect(
            session.get(), &OnlineSession::stateChanged, session.get(), [this](eState state) {
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

QStringList texts(std::initializer_list<const char *> list)
{
    QStringList texts;
    for (const char *text : list)
        texts.append(QString::fromUtf8(text));
    return texts;
}

} // namespace

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

    void uploadsEverything();
    void uploadsInTheOrderOfProperty45();
    void readsARefusedBlockValueByValue();
    void losesOnlyWhatIsLost();
    void refusesASecondTransfer();
    void readsSingleValues();
    void endsATransferOfNothing();

    void writesWhatChanges();
    void writesTheLastOfSeveralChanges();
    void reportsWhatTheDriveMadeOfIt();
    void reportsWhatTheDriveRefuses();
    void repeatsALostWrite();
    void findsALostWriteThatArrived();
    void neverRepeatsACommand();
    void writesNoValueThatIsOnlyRead();
    void storesNoOlderReadOverAWrite();
    void downloadsSettingsInOrder();

    void readsAgainAndAgain();
    void keepsTheIntervalOfAValue();
    void tellsAFailingCyclicReadOnce();
    void remembersNeedsFromBefore();
    void bringsAllElementsOnce();
    void cancelsWaitingForWhatDoesNotCome();
    void reportsWhatHasNoRegister();
    void runsAnAction();
    void costsNothingWhereNothingIsAsked();

    void losesEverythingWithTheLine();
    void letsGoOfASilentDrive();
    void returnsToADriveThatVanished();
    void goesOfflineWhenTold();
    void survivesListeners_data();
    void survivesListeners();
};

void tst_OnlineSession::goesOnlineWithItsDrive()
{
    Setting s;
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

    Setting s;
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
    Setting s;
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
    Setting s;
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
    Setting s;
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
    Setting s;
    QVERIFY(!s.session->upload());
    QVERIFY(!s.session->download());
    QVERIFY(!s.session->readValues({{at("A01"), eLivingSpace::Global, 0}}));
    s.session->goOnline();
    QVERIFY(!s.session->upload());
    QVERIFY(!s.session->writeValues({{at("A01"), eLivingSpace::Global, 0}}));
    QVERIFY(!s.session->isTransferring());
}

void tst_OnlineSession::uploadsEverything()
{
    Setting s;
    s.beOnline();
    s.registerAt("A01") = 1234;
    s.registerAt("2.B01") = 0xFFFF;
    const QSignalSpy progress(s.session.get(), &OnlineSession::transferProgress);
    QVERIFY(s.session->upload());
    QVERIFY(s.session->isTransferring());
    s.settle();
    QVERIFY(!s.session->isTransferring());
    QCOMPARE(s.native("A01"), QStringLiteral("1234"));
    QCOMPARE(s.native("2.B01"), QStringLiteral("-1"));
    QCOMPARE(s.log.constLast(), QStringLiteral("16 Werte: 14 unverändert, 2 geändert"));
    QVERIFY(s.log.contains(QStringLiteral("2.B01: geändert")));
    QVERIFY(s.session->report().isGood());
    QCOMPARE(progress.size(), 8);
    QCOMPARE(progress.constLast(), (QList<QVariant> {qsizetype(16), qsizetype(16)}));
    // Nothing of it is written back.
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineSession::uploadsInTheOrderOfProperty45()
{
    Setting s;
    s.beOnline();
    s.session->upload();
    s.turn();
    QStringList spans;
    while (!s.link->sent.isEmpty()) {
        const FakeLink::Sent request = s.link->take();
        spans.append(QStringLiteral("%1:%2+%3")
                         .arg(request.span.unit)
                         .arg(request.span.first)
                         .arg(request.span.count));
        s.link->answer(request);
    }
    // A02 comes first, A01 before it in the registers; the axes have one order for both.
    QCOMPARE(spans,
        texts({"1:17+2", "1:16+8", "2:16+3", "3:16+3", "2:19+3", "3:19+3", "2:22+1", "3:22+1"}));
}

void tst_OnlineSession::readsARefusedBlockValueByValue()
{
    Setting s;
    s.beOnline();
    s.session->readValues(
        {{at("B01"), eLivingSpace::Axis1, 0}, {at("B02"), eLivingSpace::Axis1, 0}});
    s.turn();
    QCOMPARE(s.link->sent.size(), 1);
    s.link->answer(s.link->take(), eKind::Refused);
    QCOMPARE(s.link->sent.size(), 2);
    s.link->answer(s.link->take(), eKind::Refused);
    s.link->answer(s.link->take());
    QCOMPARE(s.take(),
        texts({"1.B01: abgelehnt - reason", "1.B02: unverändert",
            "2 Werte: 1 unverändert, 1 abgelehnt"}));
}

void tst_OnlineSession::losesOnlyWhatIsLost()
{
    Setting s;
    s.beOnline();
    s.session->readValues(
        {{at("A01"), eLivingSpace::Global, 0}, {at("B01"), eLivingSpace::Axis1, 0}});
    s.turn();
    QCOMPARE(s.link->sent.size(), 2);
    s.link->take();
    s.link->answer(s.link->take());
    s.clock->advance(500);
    s.clock->advance(50);
    s.link->take();
    s.clock->advance(500);
    QCOMPARE(s.take(),
        texts({"1.B01: unverändert", "A01: verloren - keine Antwort",
            "2 Werte: 1 unverändert, 1 verloren"}));
    QVERIFY(!s.session->report().isGood());
}

void tst_OnlineSession::refusesASecondTransfer()
{
    Setting s;
    s.beOnline();
    QVERIFY(s.session->upload());
    QVERIFY(!s.session->upload());
    QVERIFY(!s.session->download());
    s.settle();
    QVERIFY(s.session->download());
}

void tst_OnlineSession::readsSingleValues()
{
    Setting s;
    s.beOnline();
    s.registerAt("A01") = 8;
    const ValuePlace place {at("A01"), eLivingSpace::Global, 0};
    // Asked for twice is read once; what the device lacks is told.
    QVERIFY(s.session->readValues({place, {at("Z99"), eLivingSpace::Axis1, 0}, place}));
    s.settle();
    QCOMPARE(s.take(),
        texts({": nicht übertragbar - der Antrieb hat kein Register dafür", "A01: geändert",
            "2 Werte: 1 geändert, 1 nicht übertragbar"}));
}

void tst_OnlineSession::endsATransferOfNothing()
{
    Setting s;
    s.beOnline();
    QVERIFY(s.session->readValues({}));
    QVERIFY(s.session->isTransferring());
    QVERIFY(s.log.isEmpty());
    QTRY_COMPARE(s.log, texts({"0 Werte: "}));
    QVERIFY(!s.session->isTransferring());
}

void tst_OnlineSession::writesWhatChanges()
{
    Setting s;
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

void tst_OnlineSession::writesTheLastOfSeveralChanges()
{
    Setting s;
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

void tst_OnlineSession::reportsWhatTheDriveMadeOfIt()
{
    Setting s;
    s.beOnline();
    s.write("1.B01", "90");
    s.link->answer(s.link->take());
    s.registerAt("1.B01") = 80;
    s.link->answerAll();
    QCOMPARE(s.take(), texts({"1.B01: geschrieben wurde \"90\", der Antrieb hat \"80\""}));
    QCOMPARE(s.native("1.B01"), QStringLiteral("80"));
    // A text that the registers cut.
    s.container.writeValueNative(eLivingSpace::Global, at("A03"), 0, QStringLiteral("abcdefghij"));
    s.settle();
    QCOMPARE(
        s.take(), texts({"A03: geschrieben wurde \"abcdefghij\", der Antrieb hat \"abcdefgh\""}));
    QCOMPARE(s.native("A03"), QStringLiteral("abcdefgh"));
}

void tst_OnlineSession::reportsWhatTheDriveRefuses()
{
    Setting s;
    s.beOnline();
    s.write("1.B01", "90");
    s.link->answer(s.link->take(), eKind::Refused);
    s.settle();
    QCOMPARE(s.take(), texts({"1.B01: abgelehnt - reason"}));
    QCOMPARE(s.native("1.B01"), QStringLiteral("5"));
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineSession::repeatsALostWrite()
{
    Setting s;
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

void tst_OnlineSession::findsALostWriteThatArrived()
{
    for (const bool hasArrived : {true, false}) {
        Setting s;
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

void tst_OnlineSession::neverRepeatsACommand()
{
    Setting s;
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

void tst_OnlineSession::writesNoValueThatIsOnlyRead()
{
    Setting s;
    s.beOnline();
    s.container.writeValueNative(eLivingSpace::Axis1, at("B02"), 0, QStringLiteral("99"));
    s.settle();
    QVERIFY(s.log.isEmpty());
    QCOMPARE(s.registerAt("1.B02"), quint16(0xFFFF));
}

void tst_OnlineSession::storesNoOlderReadOverAWrite()
{
    Setting s;
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
    QCOMPARE(
        s.take(), texts({"1.B01: unverändert", "1 Werte: 1 unverändert", "1.B01: geschrieben"}));

    // ... and when it is done already.
    s.session->readValues({{at("B01"), eLivingSpace::Axis1, 0}});
    s.turn();
    const FakeLink::Sent late = s.link->take();
    s.write("1.B01", "91");
    s.settle();
    Q_EMIT s.link->answered(late.ticket, old);
    QCOMPARE(s.native("1.B01"), QStringLiteral("91"));
}

void tst_OnlineSession::downloadsSettingsInOrder()
{
    Setting s;
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

void tst_OnlineSession::readsAgainAndAgain()
{
    Setting s;
    s.beOnline();
    s.container.parameterSetup(at("B01"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    s.turn();
    QCOMPARE(s.link->sent.size(), 1);
    s.registerAt("1.B01") = 6;
    s.link->answerAll();
    QCOMPARE(s.native("1.B01"), QStringLiteral("6"));
    s.clock->advance(99);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1);
    QCOMPARE(s.link->sent.size(), 1);
    // No further read while one is on its way.
    s.clock->advance(300);
    QCOMPARE(s.link->sent.size(), 1);
    s.link->answerAll();
    s.container.parameterSetup(at("B01"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, false);
    s.clock->advance(10000);
    QVERIFY(s.link->sent.isEmpty());
    QVERIFY(s.log.isEmpty());
}

void tst_OnlineSession::keepsTheIntervalOfAValue()
{
    Setting s;
    s.beOnline();
    s.container.parameterSetup(at("B02"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    s.settle();
    s.clock->advance(249);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1);
    QCOMPARE(s.link->sent.size(), 1);
}

void tst_OnlineSession::tellsAFailingCyclicReadOnce()
{
    Setting s;
    s.beOnline();
    s.container.parameterSetup(at("B01"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    for (int i = 0; i < 3; ++i) {
        s.clock->advance(100);
        s.link->answer(s.link->take(), eKind::Refused);
    }
    QCOMPARE(s.take(), texts({"1.B01: abgelehnt - reason"}));
    s.clock->advance(100);
    s.link->answerAll();
    QVERIFY(s.log.isEmpty());
    s.clock->advance(100);
    s.link->answer(s.link->take(), eKind::Refused);
    QCOMPARE(s.take(), texts({"1.B01: abgelehnt - reason"}));
}

void tst_OnlineSession::remembersNeedsFromBefore()
{
    Setting s;
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis2));
    s.beOnline();
    s.turn();
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {3, 19, 3}));
}

void tst_OnlineSession::bringsAllElementsOnce()
{
    Setting s;
    s.beOnline();
    const auto parameter = s.container.parameterSetup(at("C01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    s.turn();
    // Three elements in one request.
    QCOMPARE(s.link->sent.size(), 1);
    s.link->answerAll();
    QCOMPARE(done.size(), 1);
    QCOMPARE(canceled.size(), 0);
    s.clock->advance(10000);
    QVERIFY(s.link->sent.isEmpty());
}

void tst_OnlineSession::cancelsWaitingForWhatDoesNotCome()
{
    Setting s;
    s.beOnline();
    const auto parameter = s.container.parameterSetup(at("C01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    s.turn();
    s.link->answer(s.link->take(), eKind::Refused);
    s.link->answer(s.link->take(), eKind::Refused);
    s.settle();
    QCOMPARE(done.size(), 0);
    QCOMPARE(canceled.size(), 1);
    QCOMPARE(s.take(),
        texts({"1.C01[0]: abgelehnt - reason", "1.C01[1]: unverändert", "1.C01[2]: unverändert"}));

    // And with the line.
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis2);
    s.turn();
    s.link->breakDown();
    QCOMPARE(canceled.size(), 2);
}

void tst_OnlineSession::reportsWhatHasNoRegister()
{
    Setting s;
    s.container.parameterSetup(at("A01"))->setElementCount(2);
    s.container.dispatchParameterOnlineConsistenceNeed(address("Y01"), true);
    s.session->goOnline();
    s.link->comeUp();
    s.link->answerAll();
    QVERIFY(s.take().contains(
        QStringLiteral("1.Y01[0]: nicht übertragbar - der Antrieb hat kein Register dafür")));

    const auto parameter = s.container.parameterSetup(at("A01"));
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Global);
    QCOMPARE(canceled.size(), 1);
    s.container.writeValueNative(eLivingSpace::Global, at("A01"), 1, QStringLiteral("3"));
    QCOMPARE(s.take(),
        texts({"A01[1]: nicht übertragbar - der Antrieb hat kein Register dafür",
            "A01[1]: nicht übertragbar - der Antrieb hat kein Register dafür"}));
    s.settle();
    s.take();
    QVERIFY(s.session->upload());
    s.settle();
    QVERIFY(s.take().contains(
        QStringLiteral("A01[1]: nicht übertragbar - das Gerät hat dieses Element nicht")));
}

void tst_OnlineSession::runsAnAction()
{
    Setting s;
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

void tst_OnlineSession::costsNothingWhereNothingIsAsked()
{
    Setting s;
    s.beOnline();
    s.settle();
    for (const eOnlineAlarm alarm :
        {eOnlineAlarm::Exchange, eOnlineAlarm::Cycle, eOnlineAlarm::Contact})
        QVERIFY(!s.clock->alarm(alarm));
}

void tst_OnlineSession::losesEverythingWithTheLine()
{
    Setting s;
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

void tst_OnlineSession::letsGoOfASilentDrive()
{
    Setting s;
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

void tst_OnlineSession::returnsToADriveThatVanished()
{
    OnlineRules rules = ::rules();
    rules.returnsToVanished = true;
    Setting s(rules);
    s.beOnline();
    s.container.parameterSetup(at("B01"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    s.settle();
    s.link->breakDown();
    QCOMPARE(s.take(), texts({"container offline", "connecting", "failed: broken"}));
    s.clock->advance(250);
    QCOMPARE(s.link->openings, 2);
    s.registerAt("1.B01") = 77;
    s.link->comeUp();
    s.link->answerAll();
    s.settle();
    QCOMPARE(s.take(), texts({"container online", "online"}));
    QCOMPARE(s.native("1.B01"), QStringLiteral("77"));
    // Gone for good.
    s.link->breakDown();
    s.clock->advance(250);
    s.link->breakDown();
    s.clock->advance(250);
    s.link->breakDown();
    QCOMPARE(s.log.constLast(), QStringLiteral("failed: broken"));
    QCOMPARE(s.session->state(), eState::Offline);
}

void tst_OnlineSession::goesOfflineWhenTold()
{
    Setting s;
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

void tst_OnlineSession::survivesListeners_data()
{
    QTest::addColumn<int>("act");

    QTest::newRow("that goes offline") << 0;
    QTest::newRow("that goes offline and online") << 1;
    QTest::newRow("that deletes the session") << 2;
    QTest::newRow("that removes every parameter") << 3;
    QTest::newRow("that writes every time") << 4;
    QTest::newRow("that asks for everything once more") << 5;
}

void tst_OnlineSession::survivesListeners()
{
    QFETCH(int, act);

    for (int signal = 0; signal < 6; ++signal) {
        Setting s;
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

QTEST_GUILESS_MAIN(tst_OnlineSession)
#include "tst_OnlineSession.moc"

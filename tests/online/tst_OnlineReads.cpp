#include "tests/online/OnlineStand.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using eKind = OnlineAnswer::eKind;

class tst_OnlineReads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void uploadsEverything();
    void uploadsInTheOrderOfProperty45();
    void readsARefusedBlockValueByValue();
    void reportsEveryValueInOrder();
    void readsWhereNobodyListens();
    void losesOnlyWhatIsLost();
    void refusesASecondTransfer();
    void readsSingleValues();
    void endsATransferOfNothing();
    void readsAgainAndAgain();
    void keepsTheIntervalOfAValue();
    void tellsAFailingCyclicReadOnce();
    void remembersNeedsFromBefore();
    void bringsAllElementsOnce();
    void cancelsWaitingForWhatDoesNotCome();
    void cancelsWaitingWhereTheReadBackIsLost();
    void asksAgainForWhatAWriteOvertook();
    void hearsOfASecondCancel();
    void reportsWhatHasNoRegister();
    void reportsAWholeParameterWithoutRegister();
    void reportsWhatTheProjectDoesNotHave();
    void downloadsWhatTheProjectHas();
    void reportsWhatIsDeletedMeanwhile();
};

namespace {

/// A01 (UINT16, three elements) at 16.
QByteArray deviceOfThree()
{
    return R"({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["UINT16"],
      "parameters": [{"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
                      "elementCount": 3, "elements": [{"dataType": "UINT16", "default": 4}]}]})";
}

} // namespace

void tst_OnlineReads::uploadsEverything()
{
    OnlineStand s;
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

void tst_OnlineReads::uploadsInTheOrderOfProperty45()
{
    OnlineStand s;
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

void tst_OnlineReads::readsARefusedBlockValueByValue()
{
    OnlineStand s;
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

void tst_OnlineReads::reportsEveryValueInOrder()
{
    OnlineStand s;
    s.beOnline();
    s.registerAt("1.B02") = 9;
    s.session->readValues({{at("B01"), eLivingSpace::Axis1, 0}, {at("B02"), eLivingSpace::Axis1, 0},
        {at("Z01"), eLivingSpace::Axis1, 0}});
    s.turn();
    s.link->answer(s.link->take(), eKind::Refused);
    s.link->answer(s.link->take(), eKind::Refused);
    s.link->answer(s.link->take());
    QStringList outcomes;
    for (const OnlineOutcome &outcome : s.session->report().outcomes())
        outcomes.append(outcome.toText());
    QCOMPARE(outcomes,
        texts({"1.Z01: nicht übertragbar - der Antrieb hat kein Register dafür",
            "1.B01: abgelehnt - reason", "1.B02: geändert"}));
    const ValuePlace changed {at("B02"), eLivingSpace::Axis1, 0};
    QCOMPARE(s.session->report().outcomes().constLast().place, changed);
    QVERIFY(!s.session->report().isGood());
    // It holds what it says also while the next transfer runs, and when the drive was called anew.
    const OnlineReport report = s.session->report();
    s.session->goOffline();
    s.beOnline();
    QCOMPARE(report.outcomes().constLast().toText(), QStringLiteral("1.B02: geändert"));
}

void tst_OnlineReads::readsWhereNobodyListens()
{
    OnlineStand s;
    QVERIFY(disconnect(s.session.get(), &OnlineSession::valueReported, nullptr, nullptr));
    s.beOnline();
    s.registerAt("1.B02") = 9;
    s.session->upload();
    s.settle();
    QCOMPARE(s.take(), texts({"16 Werte: 15 unverändert, 1 geändert"}));
    QCOMPARE(s.session->report().outcomes().size(), 16);
    QCOMPARE(s.session->report().count(OnlineOutcome::eKind::Changed), 1);
}

void tst_OnlineReads::losesOnlyWhatIsLost()
{
    OnlineStand s;
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

void tst_OnlineReads::refusesASecondTransfer()
{
    OnlineStand s;
    s.beOnline();
    QVERIFY(s.session->upload());
    QVERIFY(!s.session->upload());
    QVERIFY(!s.session->download());
    s.settle();
    QVERIFY(s.session->download());
}

void tst_OnlineReads::readsSingleValues()
{
    OnlineStand s;
    s.beOnline();
    s.registerAt("A01") = 8;
    const ValuePlace place {at("A01"), eLivingSpace::Global, 0};
    // Asked for twice is read once; what the device lacks is told.
    QVERIFY(s.session->readValues({place, {at("Z99"), eLivingSpace::Axis1, 0}, place}));
    s.settle();
    QCOMPARE(s.take(),
        texts({"1.Z99: nicht übertragbar - der Antrieb hat kein Register dafür", "A01: geändert",
            "2 Werte: 1 geändert, 1 nicht übertragbar"}));
}

void tst_OnlineReads::endsATransferOfNothing()
{
    OnlineStand s;
    s.beOnline();
    QVERIFY(s.session->readValues({}));
    QVERIFY(s.session->isTransferring());
    QVERIFY(s.log.isEmpty());
    QTRY_COMPARE(s.log, texts({"0 Werte: "}));
    QVERIFY(!s.session->isTransferring());
}

void tst_OnlineReads::readsAgainAndAgain()
{
    OnlineStand s;
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

void tst_OnlineReads::keepsTheIntervalOfAValue()
{
    OnlineStand s;
    s.beOnline();
    s.container.parameterSetup(at("B02"))->setParameterNeedsConsistence(
        eLivingSpace::Axis1, 0, true);
    s.settle();
    s.clock->advance(249);
    QVERIFY(s.link->sent.isEmpty());
    s.clock->advance(1);
    QCOMPARE(s.link->sent.size(), 1);
}

void tst_OnlineReads::tellsAFailingCyclicReadOnce()
{
    OnlineStand s;
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

void tst_OnlineReads::remembersNeedsFromBefore()
{
    OnlineStand s;
    const std::unique_ptr<ActionParameter> action(
        s.container.createAction(QStringLiteral("C01"), eLivingSpace::Axis2));
    s.beOnline();
    s.turn();
    QCOMPARE(s.link->sent.size(), 1);
    QCOMPARE(s.link->sent.at(0).span, (RegisterSpan {3, 19, 3}));
}

void tst_OnlineReads::bringsAllElementsOnce()
{
    OnlineStand s;
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

void tst_OnlineReads::cancelsWaitingForWhatDoesNotCome()
{
    OnlineStand s;
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
        texts({"1.C01[1]: abgelehnt - reason", "1.C01[2]: unverändert", "1.C01[0]: unverändert"}));

    // And with the line.
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis2);
    s.turn();
    s.link->breakDown();
    QCOMPARE(canceled.size(), 2);
}

void tst_OnlineReads::cancelsWaitingWhereTheReadBackIsLost()
{
    OnlineStand s;
    s.beOnline();
    const auto parameter = s.container.parameterSetup(at("B01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    s.write("1.B01", "90");
    const FakeLink::Sent write = s.link->take();
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    s.turn();
    // The read is answered first and older than the write.
    s.link->answer(s.link->take());
    QCOMPARE(done.size() + canceled.size(), 0);
    s.link->answer(write);
    s.link->answer(s.link->take(), eKind::Refused);
    s.turn();
    // Asked for again, and lost with the line.
    QCOMPARE(s.link->sent.size(), 1);
    s.link->breakDown();
    QCOMPARE(done.size(), 0);
    QCOMPARE(canceled.size(), 1);
}

void tst_OnlineReads::asksAgainForWhatAWriteOvertook()
{
    OnlineStand s;
    s.beOnline();
    const auto parameter = s.container.parameterSetup(at("B01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    s.session->readValues({{at("B01"), eLivingSpace::Axis1, 0}});
    s.turn();
    const FakeLink::Sent read = s.link->take();
    s.write("1.B01", "90");
    s.link->answerAll();
    // The run begins behind the read-back and shares the read that is older than it.
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    s.turn();
    QVERIFY(s.link->sent.isEmpty());
    s.link->answer(read);
    QCOMPARE(done.size(), 0);
    s.settle();
    QCOMPARE(done.size(), 1);
}

void tst_OnlineReads::hearsOfASecondCancel()
{
    OnlineStand s;
    s.beOnline();
    const auto parameter = s.container.parameterSetup(at("C01"));
    const QSignalSpy done(parameter, &ParameterInformation::allElementsConsistenceOnceDone);
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    const auto refuseAll = [&s] {
        for (s.turn(); !s.link->sent.isEmpty();)
            s.link->answer(s.link->take(), eKind::Refused);
    };
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    parameter->cancelAllElementsConsistenceOnce(eLivingSpace::Axis1);
    QCOMPARE(canceled.size(), 1);
    refuseAll();
    QCOMPARE(canceled.size(), 1);
    // Another axis is another run, and so is the next one.
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Axis1);
    parameter->cancelAllElementsConsistenceOnce(eLivingSpace::Axis2);
    QCOMPARE(canceled.size(), 2);
    refuseAll();
    QCOMPARE(canceled.size(), 3);
    QCOMPARE(done.size(), 0);
}

void tst_OnlineReads::reportsWhatHasNoRegister()
{
    OnlineStand s;
    s.container.parameterSetup(at("A01"))->setElementCount(2);
    s.container.dispatchParameterOnlineConsistenceNeed(address("Y01"), true);
    s.session->goOnline();
    s.link->comeUp();
    s.link->answerAll();
    QVERIFY(s.take().contains(
        QStringLiteral("1.Y01: nicht übertragbar - der Antrieb hat kein Register dafür")));

    const auto parameter = s.container.parameterSetup(at("A01"));
    const QSignalSpy canceled(parameter, &ParameterInformation::allElementsConsistenceOnceCanceled);
    parameter->startAllElementsConsistenceOnce(eLivingSpace::Global);
    QCOMPARE(canceled.size(), 1);
    s.container.writeValueNative(eLivingSpace::Global, at("A01"), 1, QStringLiteral("3"));
    QCOMPARE(s.take(),
        texts({"A01[1]: nicht übertragbar - das Gerät hat dieses Element nicht",
            "A01[1]: nicht übertragbar - das Gerät hat dieses Element nicht"}));
    s.settle();
    s.take();
    QVERIFY(s.session->upload());
    s.settle();
    QVERIFY(s.take().contains(
        QStringLiteral("A01[1]: nicht übertragbar - das Gerät hat dieses Element nicht")));
}

void tst_OnlineReads::reportsAWholeParameterWithoutRegister()
{
    // Longer than one request can write.
    OnlineStand s(onlineRules(),
        OnlineDevice::description()
            .replace("\"STRING8\"]", "\"RAW\"]")
            .replace("\"dataType\": \"STRING8\"", "\"dataType\": \"RAW\""));
    s.beOnline();
    s.container.dispatchParameterOnlineConsistenceNeed(address("A03"), true);
    s.write("A03", "x");
    const char *text =
        "A03: nicht übertragbar - der Wert ist länger als die 123 Register, die eine Anfrage "
        "schreibt";
    QCOMPARE(s.take(), texts({text, text}));
}

void tst_OnlineReads::reportsWhatTheProjectDoesNotHave()
{
    OnlineStand s(onlineRules(), deviceOfThree());
    s.container.parameterSetup(at("A01"))->setElementCount(1);
    s.beOnline();
    QVERIFY(s.session->upload());
    s.settle();
    QCOMPARE(s.take(),
        texts({"A01[1]: nicht übertragbar - das Projekt hat den Wert nicht",
            "A01[2]: nicht übertragbar - das Projekt hat den Wert nicht", "A01: unverändert",
            "3 Werte: 1 unverändert, 2 nicht übertragbar"}));
    // Also where it is asked for by name.
    QVERIFY(s.session->readValues({{at("A01"), eLivingSpace::Global, 2}}));
    s.settle();
    QCOMPARE(s.take(),
        texts({"A01[2]: nicht übertragbar - das Projekt hat den Wert nicht",
            "1 Werte: 1 nicht übertragbar"}));
}

void tst_OnlineReads::downloadsWhatTheProjectHas()
{
    OnlineStand s(onlineRules(), deviceOfThree());
    s.container.parameterSetup(at("A01"))->setElementCount(2);
    s.beOnline();
    s.link->memory[1][16] = 1;
    s.link->memory[1][17] = 2;
    s.link->memory[1][18] = 3;
    QVERIFY(s.session->download());
    s.settle();
    QVERIFY(s.session->report().isGood());
    QCOMPARE(s.log.constLast(), QStringLiteral("2 Werte: 2 geschrieben"));
    QCOMPARE(s.link->memory[1].sliced(16), (QList<quint16> {4, 4, 3}));
}

void tst_OnlineReads::reportsWhatIsDeletedMeanwhile()
{
    OnlineStand s;
    s.beOnline();
    QVERIFY(s.session->readValues({{at("A01"), eLivingSpace::Global, 0}}));
    s.turn();
    s.container.deleteParameter(QStringLiteral("Drive.1;{P1}"));
    s.settle();
    QCOMPARE(s.take(),
        texts({"A01: nicht übertragbar - das Projekt hat den Wert nicht",
            "1 Werte: 1 nicht übertragbar"}));
    QVERIFY(s.session->upload());
    s.settle();
    QCOMPARE(s.log.constLast(), QStringLiteral("16 Werte: 15 unverändert, 1 nicht übertragbar"));
}

QTEST_GUILESS_MAIN(tst_OnlineReads)
#include "tst_OnlineReads.moc"

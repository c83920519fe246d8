#include "apps/online/Backoff.h"
#include "apps/online/RequestExchange.h"
#include "tests/online/FakeClock.h"
#include "tests/online/FakeLink.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using eKind = OnlineAnswer::eKind;
using eRepeat = RequestExchange::eRepeat;
using std::chrono::milliseconds;

namespace {

constexpr RegisterSpan Span {1, 16, 2};

OnlineRules rules()
{
    OnlineRules rules;
    rules.window = 2;
    rules.answerSpan = milliseconds(500);
    rules.attempts = 3;
    rules.firstPause = milliseconds(50);
    rules.longestPause = milliseconds(80);
    return rules;
}

/// An exchange with what came of its requests, "1 good".
struct Setting {
    Setting()
        : exchange(link, clock, rules())
    {
        QObject::connect(&exchange, &RequestExchange::finished, &exchange,
            [this](quint32 request, const OnlineAnswer &answer) {
                constexpr const char *Names[] = {"good", "busy", "refused", "lost"};
                outcomes.append(QStringLiteral("%1 %2").arg(request).arg(
                    QLatin1String(Names[int(answer.kind)])));
            });
        QObject::connect(&exchange, &RequestExchange::silent, &exchange,
            [this] { outcomes.append(QStringLiteral("silent")); });
    }

    FakeLink link;
    FakeClock clock;
    RequestExchange exchange;
    QStringList outcomes;
};

} // namespace

class tst_RequestExchange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pausesDouble_data();
    void pausesDouble();
    void sendsAFewAtATime();
    void sendsBeforeItTakesAnswers();
    void takesTheLastAnswersAtOnce();
    void takesAnswersWithAnAlarm();
    void dropsAnswersThatAreNotTaken();
    void survivesAListenerThatDropsTheOtherAnswers();
    void waitsForAnAnswer();
    void waitsLongerWhereTheValueNeedsIt();
    void waitsForOthersWhileTheDriveIsAtWork();
    void leavesWhatIsAnsweredMeanwhile();
    void sendsAgainAfterAGrowingPause();
    void takesBusyForTryAgain();
    void takesRefusedForAnAnswer();
    void ignoresLateAndDoubledAnswers();
    void neverSendsACommandTwice();
    void callsADriveSilentThatAnswersNothing();
    void doesNotCallADriveSilentThatAnswersOthers();
    void forgetsEverything();
    void survivesAListenerThatDropsEverything();
    void survivesAListenerThatDeletesIt();
};

void tst_RequestExchange::pausesDouble_data()
{
    QTest::addColumn<int>("failures");
    QTest::addColumn<int>("pause");

    QTest::newRow("before the second attempt") << 1 << 50;
    QTest::newRow("before the third") << 2 << 100;
    QTest::newRow("before the fourth") << 3 << 200;
    QTest::newRow("the last below the longest") << 4 << 400;
    QTest::newRow("never longer than the longest") << 5 << 700;
    QTest::newRow("however many failures") << 1000000 << 700;
}

void tst_RequestExchange::pausesDouble()
{
    QFETCH(int, failures);
    QFETCH(int, pause);
    QCOMPARE(backoffPause(failures, milliseconds(50), milliseconds(700)).count(), pause);
}

void tst_RequestExchange::sendsAFewAtATime()
{
    Setting s;
    for (int i = 0; i < 3; ++i)
        s.exchange.read(Span, milliseconds(0));
    QCOMPARE(s.link.sent.size(), 2);
    s.link.answer(s.link.take());
    // The third goes out as soon as one is back.
    QCOMPARE(s.link.sent.size(), 2);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 good")});
    QCOMPARE(s.link.answerAll(), 2);
    QVERIFY(s.exchange.isIdle());
    QVERIFY(!s.clock.alarm(eOnlineAlarm::Exchange));
}

void tst_RequestExchange::sendsBeforeItTakesAnswers()
{
    Setting s;
    s.link.holdsAnswers = true;
    for (int i = 0; i < 5; ++i)
        s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.take());
    s.link.answer(s.link.take(), eKind::Busy);
    // The drive has the next ones to do while nothing was taken yet.
    QCOMPARE(s.link.sent.size(), 2);
    QCOMPARE(s.outcomes, QStringList());
    s.link.endAnswers();
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 good")});
    s.link.endAnswers();
    QCOMPARE(s.outcomes.size(), 1);
    // The one that was to come again comes when its pause is over.
    s.link.answer(s.link.take());
    s.link.endAnswers();
    s.clock.advance(50);
    s.link.answer(s.link.take());
    s.link.answer(s.link.take());
    s.link.answer(s.link.take());
    QCOMPARE(s.outcomes.join(u','), QStringLiteral("1 good,3 good,4 good,5 good,2 good"));
}

void tst_RequestExchange::takesTheLastAnswersAtOnce()
{
    Setting s;
    s.link.holdsAnswers = true;
    s.exchange.read(Span, milliseconds(0));
    s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.take());
    QCOMPARE(s.outcomes, QStringList());
    // Nothing else is to come.
    s.link.answer(s.link.take());
    QCOMPARE(s.outcomes.join(u','), QStringLiteral("1 good,2 good"));
    QVERIFY(s.exchange.isIdle());
}

void tst_RequestExchange::takesAnswersWithAnAlarm()
{
    Setting s;
    s.link.holdsAnswers = true;
    s.exchange.read(Span, milliseconds(0));
    s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.take());
    QCOMPARE(s.outcomes, QStringList());
    // A line that never tells the end of its answers holds them back until the next one is overdue.
    s.clock.advance(500);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 good")});
}

void tst_RequestExchange::dropsAnswersThatAreNotTaken()
{
    Setting s;
    s.link.holdsAnswers = true;
    s.exchange.read(Span, milliseconds(0));
    s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.take());
    s.exchange.clear();
    s.link.endAnswers();
    QCOMPARE(s.outcomes, QStringList());
    QVERIFY(s.exchange.isIdle());
}

void tst_RequestExchange::survivesAListenerThatDropsTheOtherAnswers()
{
    Setting s;
    s.link.holdsAnswers = true;
    for (int i = 0; i < 3; ++i)
        s.exchange.read(Span, milliseconds(0));
    connect(&s.exchange, &RequestExchange::finished, &s.exchange, [&s] { s.exchange.clear(); });
    s.link.answer(s.link.take());
    s.link.answer(s.link.take());
    s.link.endAnswers();
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 good")});
    QVERIFY(s.exchange.isIdle());
}

void tst_RequestExchange::waitsForAnAnswer()
{
    Setting s;
    s.exchange.read(Span, milliseconds(0));
    s.clock.advance(499);
    QVERIFY(s.link.forgotten.isEmpty());
    s.clock.advance(1);
    QCOMPARE(s.link.forgotten.size(), 1);
    QVERIFY(s.outcomes.isEmpty());
}

void tst_RequestExchange::waitsLongerWhereTheValueNeedsIt()
{
    Setting s;
    s.exchange.read(Span, milliseconds(300));
    s.clock.advance(799);
    QVERIFY(s.link.forgotten.isEmpty());
    s.clock.advance(1);
    QCOMPARE(s.link.forgotten.size(), 1);
}

/// A drive that saves its parameters answers nothing for seconds: that is no silence.
void tst_RequestExchange::waitsForOthersWhileTheDriveIsAtWork()
{
    Setting s;
    s.exchange.write(Span, {1, 2}, milliseconds(5000), eRepeat::Never);
    s.clock.advance(100);
    s.exchange.read(Span, milliseconds(0));
    s.clock.advance(5300);
    QCOMPARE(s.outcomes, QStringList());
    s.link.answer(s.link.take());
    s.link.answer(s.link.take());
    QCOMPARE(s.outcomes.join(u','), QStringLiteral("1 good,2 good"));
    QCOMPARE(s.link.forgotten.size(), 0);

    // One that comes afterwards has its own time alone.
    s.exchange.read(Span, milliseconds(0));
    s.clock.advance(500);
    QCOMPARE(s.link.forgotten.size(), 1);
}

/// By a listener that waits for something while it is told of one that is overdue.
void tst_RequestExchange::leavesWhatIsAnsweredMeanwhile()
{
    Setting s;
    s.link.holdsAnswers = true;
    s.exchange.write(Span, {1, 2}, milliseconds(0), eRepeat::Never);
    s.exchange.read(Span, milliseconds(0));
    s.link.take();
    const FakeLink::Sent second = s.link.take();
    QObject::connect(&s.exchange, &RequestExchange::finished, &s.exchange, [&](quint32 request) {
        if (request == 1)
            s.link.answer(second);
    });
    s.clock.advance(500);
    QCOMPARE(s.outcomes.join(u','), QStringLiteral("1 lost,2 good"));
    QVERIFY(s.exchange.isIdle());
}

void tst_RequestExchange::sendsAgainAfterAGrowingPause()
{
    Setting s;
    s.exchange.write(Span, {1, 2}, milliseconds(0), eRepeat::Allowed);
    s.clock.advance(500);
    s.clock.advance(49);
    QCOMPARE(s.link.sent.size(), 1);
    s.clock.advance(1);
    QCOMPARE(s.link.sent.size(), 2);
    QCOMPARE(s.link.sent.at(1).registers, (QList<quint16> {1, 2}));
    QVERIFY(s.link.sent.at(1).ticket != s.link.sent.at(0).ticket);
    // The second pause would be 100 ms and is cut to 80.
    s.clock.advance(500 + 79);
    QCOMPARE(s.link.sent.size(), 2);
    s.clock.advance(1);
    QCOMPARE(s.link.sent.size(), 3);
    s.clock.advance(499);
    QVERIFY(s.outcomes.isEmpty());
    s.clock.advance(1);
    QCOMPARE(s.outcomes.constFirst(), QStringLiteral("1 lost"));
    s.clock.advance(100000);
    QCOMPARE(s.link.sent.size(), 3);
    QVERIFY(s.exchange.isIdle());
}

void tst_RequestExchange::takesBusyForTryAgain()
{
    Setting s;
    s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.take(), eKind::Busy);
    QVERIFY(s.link.sent.isEmpty());
    s.clock.advance(50);
    s.link.answer(s.link.take(), eKind::Busy);
    s.clock.advance(80);
    s.link.answer(s.link.take(), eKind::Busy);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 busy")});
}

void tst_RequestExchange::takesRefusedForAnAnswer()
{
    Setting s;
    s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.take(), eKind::Refused);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 refused")});
    s.clock.advance(10000);
    QVERIFY(s.link.sent.isEmpty());
}

void tst_RequestExchange::ignoresLateAndDoubledAnswers()
{
    Setting s;
    s.exchange.read(Span, milliseconds(0));
    const FakeLink::Sent first = s.link.take();
    s.clock.advance(500);
    s.link.answer(first);
    QVERIFY(s.outcomes.isEmpty());
    s.clock.advance(50);
    const FakeLink::Sent second = s.link.take();
    s.link.answer(first);
    QVERIFY(s.outcomes.isEmpty());
    s.link.answer(second);
    s.link.answer(second);
    s.link.answer(first);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 good")});
}

void tst_RequestExchange::neverSendsACommandTwice()
{
    Setting s;
    s.exchange.write(Span, {1, 2}, milliseconds(0), eRepeat::Never);
    s.clock.advance(500);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 lost")});
    s.clock.advance(10000);
    QCOMPARE(s.link.sent.size(), 1);
}

void tst_RequestExchange::callsADriveSilentThatAnswersNothing()
{
    Setting s;
    s.exchange.read(Span, milliseconds(0));
    s.clock.advance(500 + 50 + 500 + 80 + 500);
    QCOMPARE(s.outcomes, (QStringList {QStringLiteral("1 lost"), QStringLiteral("silent")}));
}

void tst_RequestExchange::doesNotCallADriveSilentThatAnswersOthers()
{
    Setting s;
    s.exchange.read(Span, milliseconds(0));
    s.clock.advance(600);
    s.exchange.read(Span, milliseconds(0));
    s.link.answer(s.link.sent.takeLast());
    s.clock.advance(10000);
    QCOMPARE(s.outcomes, (QStringList {QStringLiteral("2 good"), QStringLiteral("1 lost")}));
}

void tst_RequestExchange::forgetsEverything()
{
    Setting s;
    for (int i = 0; i < 3; ++i)
        s.exchange.read(Span, milliseconds(0));
    s.exchange.clear();
    QCOMPARE(s.link.forgotten.size(), 2);
    QVERIFY(s.exchange.isIdle());
    s.link.answerAll();
    s.clock.advance(10000);
    QVERIFY(s.outcomes.isEmpty());
    QCOMPARE(s.exchange.read(Span, milliseconds(0)), 4u);
}

void tst_RequestExchange::survivesAListenerThatDropsEverything()
{
    Setting s;
    QObject::connect(&s.exchange, &RequestExchange::finished, &s.exchange, &RequestExchange::clear);
    s.exchange.read(Span, milliseconds(0));
    s.exchange.read(Span, milliseconds(0));
    s.clock.advance(10000);
    QCOMPARE(s.outcomes, QStringList {QStringLiteral("1 lost")});
}

void tst_RequestExchange::survivesAListenerThatDeletesIt()
{
    FakeLink link;
    FakeClock clock;
    auto *exchange = new RequestExchange(link, clock, rules());
    QObject::connect(exchange, &RequestExchange::finished, &link, [exchange] { delete exchange; });
    exchange->read(Span, milliseconds(0));
    exchange->read(Span, milliseconds(0));
    link.answer(link.take());
    clock.advance(10000);
    QCOMPARE(link.sent.size(), 1);
}

QTEST_GUILESS_MAIN(tst_RequestExchange)
#include "tst_RequestExchange.moc"

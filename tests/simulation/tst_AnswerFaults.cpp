#include "apps/simulation/AnswerFaults.h"

#include <QtTest/QTest>

using Fate = AnswerFaults::Fate;
using std::chrono::milliseconds;

class tst_AnswerFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void spoilsNothingByItself();
    void spoilsAsManyAsTold();
    void spoilsInSeveralWaysAtOnce();
    void fallsSilent();
};

void tst_AnswerFaults::spoilsNothingByItself()
{
    AnswerFaults faults;
    QCOMPARE(faults.next(), Fate());
}

void tst_AnswerFaults::spoilsAsManyAsTold()
{
    AnswerFaults faults;
    faults.lose(2);
    QVERIFY(faults.next().isLost);
    QVERIFY(faults.next().isLost);
    QCOMPARE(faults.next(), Fate());
    faults.refuse(1);
    QVERIFY(faults.next().isRefused);
    QCOMPARE(faults.next(), Fate());
    faults.lose(5);
    faults.lose(0);
    QCOMPARE(faults.next(), Fate());
}

void tst_AnswerFaults::spoilsInSeveralWaysAtOnce()
{
    AnswerFaults faults;
    faults.repeat(1);
    faults.beBusy(1);
    faults.delay(2, milliseconds(70));
    QCOMPARE(faults.next(), (Fate {false, true, false, true, milliseconds(70)}));
    QCOMPARE(faults.next(), (Fate {false, false, false, false, milliseconds(70)}));
    QCOMPARE(faults.next(), Fate());
    faults.delay(2, milliseconds(70));
    faults.clear();
    QCOMPARE(faults.next(), Fate());
}

void tst_AnswerFaults::fallsSilent()
{
    AnswerFaults faults;
    faults.fallSilentAfter(2);
    QVERIFY(!faults.next().isLost);
    QVERIFY(!faults.next().isLost);
    for (int i = 0; i < 10; ++i)
        QVERIFY(faults.next().isLost);
    faults.fallSilentAfter(0);
    QVERIFY(faults.next().isLost);
    faults.clear();
    QVERIFY(!faults.next().isLost);
}

QTEST_GUILESS_MAIN(tst_AnswerFaults)
#include "tst_AnswerFaults.moc"

#include "apps/online/CorrectionBound.h"

#include <QtTest/QTest>

using eDecision = CorrectionBound::eDecision;

class tst_CorrectionBound : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesUpOnce();
    void countsEachValueAlone();
    void beginsAnewAtRest();
    void readsWhatWasGivenUpOnceARound();
    void forgetsWhatFoundItsEnd();
};

namespace {

constexpr qsizetype Value = 3;

/// Until the value is given up.
void exhaust(CorrectionBound &bound)
{
    for (int i = 0; i < 9; ++i)
        bound.ask(Value);
}

} // namespace

void tst_CorrectionBound::givesUpOnce()
{
    CorrectionBound bound;
    for (int i = 0; i < 8; ++i)
        QCOMPARE(bound.ask(Value), eDecision::Read);
    QCOMPARE(bound.ask(Value), eDecision::GiveUp);
    QCOMPARE(bound.ask(Value), eDecision::GivenUp);
}

void tst_CorrectionBound::countsEachValueAlone()
{
    CorrectionBound bound;
    exhaust(bound);
    QCOMPARE(bound.ask(4), eDecision::Read);
}

void tst_CorrectionBound::beginsAnewAtRest()
{
    CorrectionBound bound;
    for (int i = 0; i < 8; ++i)
        bound.ask(Value);
    bound.rest();
    QCOMPARE(bound.ask(Value), eDecision::Read);
}

void tst_CorrectionBound::readsWhatWasGivenUpOnceARound()
{
    CorrectionBound bound;
    exhaust(bound);
    for (int round = 0; round < 2; ++round) {
        bound.rest();
        QCOMPARE(bound.ask(Value), eDecision::Read);
        QCOMPARE(bound.ask(Value), eDecision::GivenUp);
    }
}

void tst_CorrectionBound::forgetsWhatFoundItsEnd()
{
    CorrectionBound bound;
    exhaust(bound);
    bound.rest();
    bound.ask(Value);
    bound.rest();
    for (int i = 0; i < 8; ++i)
        QCOMPARE(bound.ask(Value), eDecision::Read);
    QCOMPARE(bound.ask(Value), eDecision::GiveUp);
    bound.clear();
    QCOMPARE(bound.ask(Value), eDecision::Read);
}

QTEST_GUILESS_MAIN(tst_CorrectionBound)
#include "tst_CorrectionBound.moc"

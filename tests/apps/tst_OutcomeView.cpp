#include "apps/krparameter/OutcomeView.h"

#include <QtTest/QTest>

using eKind = OnlineOutcome::eKind;

class tst_OutcomeView : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writeCode_data();
    void writeCode();
    void theWorstCounts();
};

namespace {

OnlineOutcome outcome(eKind kind, bool isWrite)
{
    OnlineOutcome result;
    result.kind = kind;
    result.isWrite = isWrite;
    return result;
}

} // namespace

void tst_OutcomeView::writeCode_data()
{
    QTest::addColumn<eKind>("kind");
    QTest::addColumn<bool>("isWrite");
    QTest::addColumn<int>("code");
    QTest::newRow("written") << eKind::Written << true << 0;
    QTest::newRow("altered by the drive") << eKind::Altered << true << 1;
    QTest::newRow("refused") << eKind::Refused << true << 4;
    QTest::newRow("the write was lost") << eKind::Lost << true << 6;
    QTest::newRow("what followed was not read") << eKind::Lost << false << 3;
    QTest::newRow("without a register") << eKind::Unmapped << true << 6;
}

void tst_OutcomeView::writeCode()
{
    QFETCH(eKind, kind);
    QFETCH(bool, isWrite);
    OnlineReport report;
    report.add(outcome(kind, isWrite));
    QTEST(int(OutcomeView::writeCode(report)), "code");
}

void tst_OutcomeView::theWorstCounts()
{
    OnlineReport report;
    report.add(outcome(eKind::Altered, true));
    report.add(outcome(eKind::Lost, false));
    report.add(outcome(eKind::Written, true));
    QCOMPARE(int(OutcomeView::writeCode(report)), 3);
    report.add(outcome(eKind::Lost, true));
    QCOMPARE(int(OutcomeView::writeCode(report)), 6);
}

QTEST_GUILESS_MAIN(tst_OutcomeView)
#include "tst_OutcomeView.moc"

#include "FixedFilterElement.h"

#include <KrFilter/FilterCombination.h>
#include <KrFilter/NumberFilterConstraint.h>

#include <QtTest/QtTest>

namespace {

std::unique_ptr<Filter> equals(double number)
{
    return std::make_unique<NumberFilterConstraint>(
        QStringLiteral("Asked"), NumberFilterConstraint::Equal, number);
}

} // namespace

class tst_FilterCombination : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void testElement_data();
    void testElement();
    void ignoresNull();
    void holdsCombinations();
};

void tst_FilterCombination::testElement_data()
{
    QTest::addColumn<QList<double>>("accepted");
    QTest::addColumn<bool>("allOf");
    QTest::addColumn<bool>("anyOf");

    QTest::newRow("no part") << QList<double>() << true << false;
    QTest::newRow("one that accepts") << QList<double>({5.0}) << true << true;
    QTest::newRow("one that refuses") << QList<double>({6.0}) << false << false;
    QTest::newRow("both accept") << QList<double>({5.0, 5.0}) << true << true;
    QTest::newRow("the first accepts") << QList<double>({5.0, 6.0}) << false << true;
    QTest::newRow("the last accepts") << QList<double>({6.0, 5.0}) << false << true;
    QTest::newRow("none accepts") << QList<double>({6.0, 7.0}) << false << false;
}

void tst_FilterCombination::testElement()
{
    QFETCH(QList<double>, accepted);
    QFETCH(bool, allOf);
    QFETCH(bool, anyOf);

    FilterCombination all(FilterCombination::eMethod::AllOf);
    FilterCombination any(FilterCombination::eMethod::AnyOf);
    for (const double number : accepted) {
        all.append(equals(number));
        any.append(equals(number));
    }
    const FixedFilterElement element(5.0);
    QCOMPARE(all.testElement(element), allOf);
    QCOMPARE(any.testElement(element), anyOf);
}

void tst_FilterCombination::ignoresNull()
{
    FilterCombination combination(FilterCombination::eMethod::AllOf);
    combination.append(nullptr);
    QVERIFY(combination.testElement(FixedFilterElement(5.0)));
}

void tst_FilterCombination::holdsCombinations()
{
    auto inner = std::make_unique<FilterCombination>(FilterCombination::eMethod::AnyOf);
    inner->append(equals(5.0));
    inner->append(equals(6.0));
    FilterCombination outer(FilterCombination::eMethod::AllOf);
    outer.append(std::move(inner));
    outer.append(equals(6.0));
    QVERIFY(outer.testElement(FixedFilterElement(6.0)));
    QVERIFY(!outer.testElement(FixedFilterElement(5.0)));
}

QTEST_APPLESS_MAIN(tst_FilterCombination)
#include "tst_FilterCombination.moc"

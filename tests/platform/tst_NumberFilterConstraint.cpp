#include "FixedFilterElement.h"

#include <KrFilter/NumberFilterConstraint.h>

#include <QtTest/QtTest>

#include <limits>

class tst_NumberFilterConstraint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void testElement_data();
    void testElement();
    void asksItsProperty();
};

void tst_NumberFilterConstraint::testElement_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<double>("wanted");
    QTest::addColumn<double>("number");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("less is less or equal") << 0 << 5.0 << 4.999 << true;
    QTest::newRow("equal is less or equal") << 0 << 5.0 << 5.0 << true;
    QTest::newRow("greater is not less or equal") << 0 << 5.0 << 5.001 << false;
    QTest::newRow("less is not greater or equal") << 1 << 5.0 << 4.999 << false;
    QTest::newRow("equal is greater or equal") << 1 << 5.0 << 5.0 << true;
    QTest::newRow("greater is greater or equal") << 1 << 5.0 << 5.001 << true;
    QTest::newRow("equal") << 2 << 5.0 << 5.0 << true;
    QTest::newRow("less is not equal") << 2 << 5.0 << 4.999 << false;
    QTest::newRow("greater is not equal") << 2 << 5.0 << 5.001 << false;
    QTest::newRow("negative") << 0 << -5.0 << -6.0 << true;
    QTest::newRow("NaN equals nothing")
        << 2 << std::numeric_limits<double>::quiet_NaN() << 0.0 << false;
    QTest::newRow("unknown method") << 3 << 5.0 << 5.0 << false;
}

void tst_NumberFilterConstraint::testElement()
{
    QFETCH(int, method);
    QFETCH(double, wanted);
    QFETCH(double, number);
    QFETCH(bool, accepted);

    const auto known = NumberFilterConstraint::eMethod(method);
    const FixedFilterElement element(number);
    const NumberFilterConstraint plain(QStringLiteral("Asked"), known, wanted);
    QVERIFY(!plain.isInverted());
    QCOMPARE(plain.testElement(element), accepted);

    const NumberFilterConstraint inverted(QStringLiteral("Asked"), known, wanted, true);
    QCOMPARE(inverted.testElement(element), !accepted);
}

void tst_NumberFilterConstraint::asksItsProperty()
{
    const FixedFilterElement element(5.0);
    const NumberFilterConstraint other(QStringLiteral("Other"), NumberFilterConstraint::Equal, 5.0);
    QCOMPARE(other.propertyName(), QStringLiteral("Other"));
    QVERIFY(!other.testElement(element));
}

QTEST_APPLESS_MAIN(tst_NumberFilterConstraint)
#include "tst_NumberFilterConstraint.moc"

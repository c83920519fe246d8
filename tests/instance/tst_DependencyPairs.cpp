#include "instance/DependencyPairs.h"
#include "instance/DependencyTable.h"

#include <QtTest/QTest>

using enum eLivingSpace;

class tst_DependencyPairs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void dispatchOrder();
    void receiverProperty_data();
    void receiverProperty();
    void reaches_data();
    void reaches();
};

void tst_DependencyPairs::dispatchOrder()
{
    QList<quint32> order;
    for (const eParameterProperty property : DependencyOrder)
        order.append(quint32(property));
    QCOMPARE(order, (QList<quint32> {32, 33, 34, 35, 36, 37, 38, 39}));
}

void tst_DependencyPairs::receiverProperty_data()
{
    QTest::addColumn<quint32>("dependency");
    QTest::addColumn<quint32>("expected");

    QTest::newRow("limit dependency pairs with the limit function") << 32U << 7U;
    QTest::newRow("scaling dependency pairs with the scaling function") << 33U << 21U;
    QTest::newRow("post write dependency pairs with the post write function") << 34U << 2U;
    QTest::newRow("pre read dependency pairs with the pre read function") << 35U << 0U;
    QTest::newRow("post read dependency pairs with the post read function") << 36U << 3U;
    QTest::newRow("pre write dependency pairs with the pre write function") << 37U << 1U;
    QTest::newRow("hiding dependency pairs with the hiding function") << 38U << 4U;
}

void tst_DependencyPairs::receiverProperty()
{
    QFETCH(quint32, dependency);
    QFETCH(quint32, expected);
    QCOMPARE(quint32(DependencyPairs::receiverProperty(eParameterProperty(dependency))), expected);
}

void tst_DependencyPairs::reaches_data()
{
    QTest::addColumn<eLivingSpace>("source");
    QTest::addColumn<eLivingSpace>("receiver");
    QTest::addColumn<bool>("expected");

    QTest::newRow("global to global") << Global << Global << true;
    QTest::newRow("global to axis 1") << Global << Axis1 << true;
    QTest::newRow("global to axis 4") << Global << Axis4 << true;
    QTest::newRow("axis 1 to axis 1") << Axis1 << Axis1 << true;
    QTest::newRow("axis 4 to axis 4") << Axis4 << Axis4 << true;
    QTest::newRow("axis 1 to axis 2") << Axis1 << Axis2 << false;
    QTest::newRow("axis 2 to axis 1") << Axis2 << Axis1 << false;
    QTest::newRow("axis 3 to global") << Axis3 << Global << true;
}

void tst_DependencyPairs::reaches()
{
    QFETCH(eLivingSpace, source);
    QFETCH(eLivingSpace, receiver);
    QFETCH(bool, expected);
    QCOMPARE(DependencyPairs::reaches(source, receiver), expected);
}

QTEST_GUILESS_MAIN(tst_DependencyPairs)

#include "tst_DependencyPairs.moc"

#include "apps/host/ContainerComparison.h"
#include "tests/apps/SmallDevice.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QTest>

class tst_ContainerComparison : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void equal();
    void differences_data();
    void differences();
};

void tst_ContainerComparison::equal()
{
    const SmallDevice device;
    const auto comparison =
        ContainerComparison::of(device.open()->container(), device.open()->container());
    QCOMPARE(comparison.valuesCompared, 5);
    QCOMPARE(comparison.differences, QStringList());
}

void tst_ContainerComparison::differences_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("value") << QStringLiteral("value") << QStringList {QStringLiteral("2.B01")};
    QTest::newRow("default") << QStringLiteral("default") << QStringList {QStringLiteral("2.B01")};
    QTest::newRow("value tag") << QStringLiteral("tag") << QStringList {QStringLiteral("2.B01")};
    QTest::newRow("default tag") << QStringLiteral("defaultTag")
                                 << QStringList {QStringLiteral("2.B01")};
    QTest::newRow("parameter gone")
        << QStringLiteral("delete") << QStringList {QStringLiteral("A20")};
    QTest::newRow("one element more")
        << QStringLiteral("count") << QStringList {QStringLiteral("A20"), QStringLiteral("A20[1]")};
}

void tst_ContainerComparison::differences()
{
    QFETCH(QString, change);
    const SmallDevice device;
    const auto left = device.open();
    const auto right = device.open();
    // A first read would stamp the value and take the tags set below away.
    QVERIFY(ContainerComparison::of(left->container(), right->container()).differences.isEmpty());
    const auto current = right->container().parameterSetup(at("B01"));
    if (change == QLatin1String("value"))
        current->setOnlineValueText(eLivingSpace::Axis2, 0, QStringLiteral("1"));
    else if (change == QLatin1String("default"))
        current->setDefaultNativeValueText(eLivingSpace::Axis2, 0, QStringLiteral("1"));
    else if (change == QLatin1String("tag"))
        current->setValueChangeTag(eLivingSpace::Axis2, 0, QStringLiteral("t"));
    else if (change == QLatin1String("defaultTag"))
        current->setDefaultValueChangeTag(eLivingSpace::Axis2, 0, QStringLiteral("t"));
    else if (change == QLatin1String("delete"))
        right->container().deleteParameter(QStringLiteral("Drive.1;{P1}"));
    else
        right->container().parameterSetup(at("A20"))->setElementCount(2);
    QTEST(ContainerComparison::of(left->container(), right->container()).differences, "expected");
    if (change == QLatin1String("delete")) {
        QTEST(
            ContainerComparison::of(right->container(), left->container()).differences, "expected");
    }
}

QTEST_GUILESS_MAIN(tst_ContainerComparison)
#include "tst_ContainerComparison.moc"

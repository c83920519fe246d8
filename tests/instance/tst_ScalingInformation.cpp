#include "instance/ScalingInformation.h"

#include <QtTest/QTest>

#include <cmath>
#include <limits>

class tst_ScalingInformation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void fieldbusNativeFactor_data();
    void fieldbusNativeFactor();
};

void tst_ScalingInformation::text_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("expected");

    const QString ampere = QStringLiteral("A");
    QTest::newRow("factor and unit") << 0.5 << ampere << QStringLiteral("1 LSB = 0.5 A");
    QTest::newRow("a widened float shows as typed")
        << double(0.1F) << ampere << QStringLiteral("1 LSB = 0.1 A");
    QTest::newRow("whole factor") << 20.0 << ampere << QStringLiteral("1 LSB = 20 A");
    QTest::newRow("negative factor") << -2.5 << ampere << QStringLiteral("1 LSB = -2.5 A");
    QTest::newRow("without unit no blank") << 0.5 << QString() << QStringLiteral("1 LSB = 0.5");
    QTest::newRow("missing factor") << 0.0 << ampere << QStringLiteral("1 LSB");
    QTest::newRow("beyond a float") << 3e38 / 1e-30 << ampere << QStringLiteral("1 LSB");
    QTest::newRow("beyond a float, negative") << -3e38 / 1e-30 << ampere << QStringLiteral("1 LSB");
    QTest::newRow("0 as a float") << 1e-30 / 1e30 << ampere << QStringLiteral("1 LSB");
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << ampere
                              << QStringLiteral("1 LSB");
    QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << ampere
                               << QStringLiteral("1 LSB");
    QTest::newRow("largest float") << double(std::numeric_limits<float>::max()) << ampere
                                   << QStringLiteral("1 LSB = 3.4028235e+38 A");
    QTest::newRow("next above the largest float")
        << std::nextafter(double(std::numeric_limits<float>::max()), 1e39) << ampere
        << QStringLiteral("1 LSB");
    QTest::newRow("least float") << double(std::numeric_limits<float>::denorm_min()) << ampere
                                 << QStringLiteral("1 LSB = 1e-45 A");
    QTest::newRow("missing factor, no unit") << 0.0 << QString() << QStringLiteral("1 LSB");
    QTest::newRow("place holders stay")
        << 1.0 << QStringLiteral("%1 %2") << QStringLiteral("1 LSB = 1 %1 %2");
}

void tst_ScalingInformation::text()
{
    QFETCH(double, factor);
    QFETCH(QString, unit);
    QFETCH(QString, expected);
    QCOMPARE(ScalingInformation::text(factor, unit), expected);
}

void tst_ScalingInformation::fieldbusNativeFactor_data()
{
    QTest::addColumn<double>("fieldbus");
    QTest::addColumn<double>("scaling");
    QTest::addColumn<double>("expected");

    QTest::newRow("quotient") << 1.0 << 4.0 << 0.25;
    QTest::newRow("no fieldbus factor") << 0.0 << 4.0 << 0.0;
    QTest::newRow("no scaling factor") << 1.0 << 0.0 << 0.0;
    QTest::newRow("no factor at all") << 0.0 << 0.0 << 0.0;
}

void tst_ScalingInformation::fieldbusNativeFactor()
{
    QFETCH(double, fieldbus);
    QFETCH(double, scaling);
    QFETCH(double, expected);
    QCOMPARE(ScalingInformation::fieldbusNativeFactor(fieldbus, scaling), expected);
}

QTEST_GUILESS_MAIN(tst_ScalingInformation)

#include "tst_ScalingInformation.moc"

#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"

#include <KrSystem/System.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

class tst_ComparisonSelection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanupTestCase();

    void livingSpace_data();
    void livingSpace();
    void writeLevel_data();
    void writeLevel();
    void memoryAllocation_data();
    void memoryAllocation();
    void changeTag_data();
    void changeTag();
    void tagOfTheLivingSpaceAskedFor();
    void tagOfAGlobalParameter();
    void missingPropertyCountsAsZero_data();
    void missingPropertyCountsAsZero();
    void overriddenProperty_data();
    void overriddenProperty();
    void oneElementSuffices();
    void oneElementWithoutSkippedTagSuffices();
    void partsMustHoldForOneElementTogether();
    void severalParameters();
    void emptyContainer();
};

void tst_ComparisonSelection::init()
{
    System::information()->setUserAccessLevel(3);
}

void tst_ComparisonSelection::cleanupTestCase()
{
    System::information()->setUserAccessLevel(0);
}

void tst_ComparisonSelection::livingSpace_data()
{
    QTest::addColumn<QString>("locator");
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<int>("asked");
    QTest::addColumn<bool>("expected");

    const auto row = [](const char *rule, const QString &locator, bool isGlobal, int asked,
                         bool expected) {
        QTest::newRow(rule) << locator << isGlobal << asked << expected;
    };
    row("global, asked for 0", u"S;a"_s, true, 0, true);
    row("global, asked for 1", u"S;a"_s, true, 1, true);
    row("global, asked for 4", u"S;a"_s, true, 4, true);
    row("axis 1, asked for 1", u"D.1;a"_s, false, 1, true);
    row("axis 1, asked for 2", u"D.1;a"_s, false, 2, false);
    row("axis 1, asked for 0", u"D.1;a"_s, false, 0, false);
    row("axes 1 to 4, asked for 3", u"S;a"_s, false, 3, true);
    row("axes 1 to 4, asked for 0", u"S;a"_s, false, 0, false);
    row("asked for an unknown one", u"S;a"_s, false, 12, false);
    row("asked for a negative one", u"S;a"_s, false, -1, false);
    row("global, asked for an unknown one", u"S;a"_s, true, 12, true);
}

void tst_ComparisonSelection::livingSpace()
{
    MessageRecorder messages;
    QFETCH(QString, locator);
    QFETCH(bool, isGlobal);
    QFETCH(int, asked);
    QFETCH(bool, expected);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global(isGlobal), locator));
    const QList<ParameterCoordinate> list =
        container->compareParameterCoordinateList(eLivingSpace(asked));
    QCOMPARE(list,
        expected ? QList<ParameterCoordinate> {ParameterCoordinate(u"A12"_s)}
                 : QList<ParameterCoordinate>());
}

void tst_ComparisonSelection::writeLevel_data()
{
    QTest::addColumn<quint32>("writeLevel");
    QTest::addColumn<bool>("expected");

    QTest::newRow("below the user's") << 2U << true;
    QTest::newRow("equal to the user's") << 3U << true;
    QTest::newRow("above the user's") << 4U << false;
}

void tst_ComparisonSelection::writeLevel()
{
    MessageRecorder messages;
    QFETCH(quint32, writeLevel);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).levels(6, writeLevel), u"D.1;a"_s));
    QTEST(!container->compareParameterCoordinateList(Axis1).isEmpty(), "expected");
}

void tst_ComparisonSelection::memoryAllocation_data()
{
    QTest::addColumn<QVariant>("allocation");
    QTest::addColumn<bool>("expected");

    QTest::newRow("0") << QVariant(0U) << true;
    QTest::newRow("1") << QVariant(1U) << false;
    QTest::newRow("2") << QVariant(2U) << false;
}

void tst_ComparisonSelection::memoryAllocation()
{
    MessageRecorder messages;
    QFETCH(QVariant, allocation);
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).property(eParameterProperty::MemoryAllocation, allocation), u"D.1;a"_s));
    QTEST(!container->compareParameterCoordinateList(Axis1).isEmpty(), "expected");
}

void tst_ComparisonSelection::changeTag_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<bool>("expected");

    QTest::newRow("no tag") << QString() << true;
    QTest::newRow("a tag of a user") << u"operator 7"_s << true;
    QTest::newRow("dt_") << u"dt_"_s << false;
    QTest::newRow("da_") << u"da_5"_s << false;
    QTest::newRow("facility") << u"facility"_s << false;
    QTest::newRow("fw_") << u"fw_1.2"_s << false;
    QTest::newRow("checksum") << u"checksum"_s << false;
    QTest::newRow("inside the tag") << u"the checksum of x"_s << false;
    QTest::newRow("two of them") << u"dt_fw_"_s << false;
    QTest::newRow("without the line") << u"dt"_s << true;
    QTest::newRow("in upper case") << u"FW_1"_s << true;
    QTest::newRow("ts_") << u"ts_1"_s << true;
}

void tst_ComparisonSelection::changeTag()
{
    MessageRecorder messages;
    QFETCH(QString, tag);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container.setup(u"A12"_s)->setNativeValue(Axis1, 0, u"5"_s);
    container.setup(u"A12"_s)->setValueChangeTag(Axis1, 0, tag);
    // The default's tag plays no part.
    container.setup(u"A12"_s)->setDefaultValueChangeTag(Axis1, 0, u"fw_1"_s);
    QTEST(!container->compareParameterCoordinateList(Axis1).isEmpty(), "expected");
}

void tst_ComparisonSelection::tagOfTheLivingSpaceAskedFor()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"S;a"_s));
    container.setup(u"A12"_s)->setNativeValue(Axis1, 0, u"5"_s);
    container.setup(u"A12"_s)->setValueChangeTag(Axis1, 0, u"fw_1"_s);
    QVERIFY(container->compareParameterCoordinateList(Axis1).isEmpty());
    QCOMPARE(container->compareParameterCoordinateList(Axis2).size(), 1);
}

/// Its one value is in living space 0, which every question covers.
void tst_ComparisonSelection::tagOfAGlobalParameter()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global(), u"S;a"_s));
    container.setup(u"A12"_s)->setNativeValue(Global, 0, u"5"_s);
    QCOMPARE(container->compareParameterCoordinateList(Axis1).size(), 1);
    container.setup(u"A12"_s)->setValueChangeTag(Global, 0, u"fw_1"_s);
    for (const eLivingSpace asked : {Global, Axis1, Axis4})
        QVERIFY(container->compareParameterCoordinateList(asked).isEmpty());
}

void tst_ComparisonSelection::missingPropertyCountsAsZero_data()
{
    QTest::addColumn<eParameterProperty>("property");

    QTest::newRow("write level") << eParameterProperty::WriteLevel;
    QTest::newRow("memory allocation") << eParameterProperty::MemoryAllocation;
}

void tst_ComparisonSelection::missingPropertyCountsAsZero()
{
    MessageRecorder messages;
    QFETCH(eParameterProperty, property);
    System::information()->setUserAccessLevel(0);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).without(property), u"D.1;a"_s));
    QCOMPARE(container->compareParameterCoordinateList(Axis1).size(), 1);
}

void tst_ComparisonSelection::overriddenProperty_data()
{
    QTest::addColumn<eParameterProperty>("property");
    QTest::addColumn<quint32>("defined");
    QTest::addColumn<quint32>("overridden");
    QTest::addColumn<bool>("expected");

    QTest::newRow("write level up to the user's")
        << eParameterProperty::WriteLevel << 0U << 3U << true;
    QTest::newRow("write level above the user's")
        << eParameterProperty::WriteLevel << 0U << 4U << false;
    QTest::newRow("write level down to the user's")
        << eParameterProperty::WriteLevel << 4U << 3U << true;
    QTest::newRow("no longer stored in the drive")
        << eParameterProperty::MemoryAllocation << 0U << 1U << false;
    QTest::newRow("stored in the drive from now on")
        << eParameterProperty::MemoryAllocation << 1U << 0U << true;
}

void tst_ComparisonSelection::overriddenProperty()
{
    MessageRecorder messages;
    QFETCH(eParameterProperty, property);
    QFETCH(quint32, defined);
    QFETCH(quint32, overridden);
    TestContainer container;
    QVERIFY(
        container.create(at(u"A12"_s).property(property, defined).settable(property), u"D.1;a"_s));
    container.setup(u"A12"_s)->setProperty(0, property, ParameterProperty(overridden));
    QTEST(!container->compareParameterCoordinateList(Axis1).isEmpty(), "expected");
}

void tst_ComparisonSelection::oneElementSuffices()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).element(0, u"Null"_s).levels(0, 6).element(7, u"Sieben"_s).levels(0, 0),
        u"D.1;a"_s));
    QCOMPARE(container->compareParameterCoordinateList(Axis1).size(), 1);
}

void tst_ComparisonSelection::oneElementWithoutSkippedTagSuffices()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(
        container.create(at(u"A12"_s).element(0, u"Null"_s).element(7, u"Sieben"_s), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    for (const quint16 element : {0, 7})
        setup->setNativeValue(Axis1, element, u"5"_s);
    setup->setValueChangeTag(Axis1, 0, u"fw_1"_s);
    QCOMPARE(container->compareParameterCoordinateList(Axis1).size(), 1);
    setup->setValueChangeTag(Axis1, 7, u"dt_2"_s);
    QVERIFY(container->compareParameterCoordinateList(Axis1).isEmpty());
    setup->setValueChangeTag(Axis1, 0, u"operator 7"_s);
    QCOMPARE(container->compareParameterCoordinateList(Axis1).size(), 1);
}

void tst_ComparisonSelection::partsMustHoldForOneElementTogether()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s)
                                 .element(0, u"Null"_s)
                                 .levels(0, 6)
                                 .element(7, u"Sieben"_s)
                                 .levels(0, 0)
                                 .property(eParameterProperty::MemoryAllocation, 1U),
        u"D.1;a"_s));
    QVERIFY(container->compareParameterCoordinateList(Axis1).isEmpty());
}

/// Each is judged by itself; the list is ascending, in whatever order they were created.
void tst_ComparisonSelection::severalParameters()
{
    MessageRecorder messages;
    TestContainer container;
    const auto create = [&](const QString &coordinate, quint32 writeLevel, bool isGlobal,
                            const QString &locator) {
        return container.create(at(coordinate).levels(0, writeLevel).global(isGlobal), locator);
    };
    QVERIFY(create(u"C05"_s, 3, false, u"D.1;c"_s));
    QVERIFY(create(u"B01"_s, 4, false, u"D.1;b"_s));
    QVERIFY(create(u"A100"_s, 0, true, u"S;d"_s));
    QVERIFY(create(u"A12"_s, 0, false, u"D.1;a"_s));
    QVERIFY(create(u"A20"_s, 0, false, u"D.2;e"_s));

    const auto listed = [&](eLivingSpace livingSpace) {
        QStringList texts;
        for (const ParameterCoordinate &coordinate :
            container->compareParameterCoordinateList(livingSpace))
            texts.append(coordinate.toText());
        return texts.join(u' ');
    };
    QCOMPARE(listed(Axis1), u"A12 A100 C05"_s);
    QCOMPARE(listed(Axis2), u"A20 A100"_s);
    QCOMPARE(listed(Global), u"A100"_s);
}

void tst_ComparisonSelection::emptyContainer()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container->compareParameterCoordinateList(Axis1).isEmpty());
}

QTEST_GUILESS_MAIN(tst_ComparisonSelection)
#include "tst_ComparisonSelection.moc"

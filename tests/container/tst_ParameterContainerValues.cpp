#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrSystem/System.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using eSeverity = MessageRecorder::eSeverity;
using enum eLivingSpace;

namespace {

/// Scaled by 0.1, from "mA" to "A", with one decimal place.
DefinitionBuilder current(const QString &coordinate)
{
    return at(coordinate)
        .scaling(0.1F)
        .units(u"A"_s, u"mA"_s)
        .decimals(1)
        .limits(u"0"_s, u"1000"_s)
        .defaultValue(u"15"_s);
}

} // namespace

class tst_ParameterContainerValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void reads_data();
    void reads();
    void readsWithoutParameter_data();
    void readsWithoutParameter();
    void displayIsMaskedOffline();

    void writes_data();
    void writes();
    void writesWithoutParameterDoNothing();
    void writesOfElementsThatAreNotThere();
    void signalOrderOfOneWrite();
    void equalValueRenewsTheTagOnly();
    void rejectedWrite();
    void onlyTheDisplayWriteIsChecked();
    void writesDoNotAskIsWritable();
    void globalParameterTakesEveryLivingSpace();
    void withoutProviderAllFormsAreOne();

    void dispatchDependencyChangeReachesTheDependents();
    void dispatchDependencyChangeOfNothing();
    void consistenceRequestsGoOut();

private:
    std::unique_ptr<ServoDriveFirmware> m_firmware;
};

void tst_ParameterContainerValues::initTestCase()
{
    m_firmware = TestFirmware::load(TestFirmware::PhysicalAxesFamily);
    QVERIFY(m_firmware);
}

void tst_ParameterContainerValues::cleanup()
{
    System::information()->setUserAccessLevel(0);
}

void tst_ParameterContainerValues::reads_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<bool>("withUnit");
    QTest::addColumn<QString>("expected");

    QTest::newRow("display") << u"display"_s << false << u"1.5"_s;
    QTest::newRow("display with unit") << u"display"_s << true << u"1.5 A"_s;
    QTest::newRow("native") << u"native"_s << false << u"15"_s;
    QTest::newRow("native with unit") << u"native"_s << true << u"15 mA"_s;
    QTest::newRow("undecorated") << u"undecorated"_s << false << u"1.5"_s;
    QTest::newRow("undecorated with unit") << u"undecorated"_s << true << u"1.5 A"_s;
}

void tst_ParameterContainerValues::reads()
{
    MessageRecorder messages;
    QFETCH(QString, operation);
    QFETCH(bool, withUnit);
    TestContainer container;
    container->setFirmware(m_firmware.get());
    QVERIFY(container.create(current(u"A12"_s), u"D.2;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    QString text;
    if (operation == "display"_L1)
        text = container->readValue(Axis2, coordinate, 0, withUnit);
    else if (operation == "native"_L1)
        text = container->readValueNative(Axis2, coordinate, 0, withUnit);
    else
        text = container->readUndecoratedValue(Axis2, coordinate, 0, withUnit);
    QTEST(text, "expected");
}

void tst_ParameterContainerValues::readsWithoutParameter_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<int>("element");

    QTest::newRow("no set") << u"A13"_s << 1 << 0;
    QTest::newRow("no coordinate") << u"rubbish"_s << 1 << 0;
    QTest::newRow("no instance") << u"A12"_s << 2 << 0;
    QTest::newRow("living space 0 of a local one") << u"A12"_s << 0 << 0;
    QTest::newRow("negative living space") << u"A12"_s << -1 << 0;
    QTest::newRow("unknown living space") << u"A12"_s << 17 << 0;
    QTest::newRow("no element") << u"A12"_s << 1 << 1;
    QTest::newRow("last number of an element") << u"A12"_s << 1 << 65535;
}

void tst_ParameterContainerValues::readsWithoutParameter()
{
    MessageRecorder messages;
    QFETCH(QString, coordinate);
    QFETCH(int, livingSpace);
    QFETCH(int, element);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate place(coordinate);
    const auto space = eLivingSpace(livingSpace);
    for (const bool withUnit : {false, true}) {
        QCOMPARE(container->readValue(space, place, quint16(element), withUnit), QString());
        QCOMPARE(container->readValueNative(space, place, quint16(element), withUnit), QString());
        QCOMPARE(
            container->readUndecoratedValue(space, place, quint16(element), withUnit), QString());
    }
}

void tst_ParameterContainerValues::displayIsMaskedOffline()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).levels(0, 6), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    QCOMPARE(container->readValue(Axis1, coordinate, 0, false), u"<offline>"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"0"_s);
    QCOMPARE(container->readUndecoratedValue(Axis1, coordinate, 0, false), u"0"_s);
    System::information()->setUserAccessLevel(5);
    QCOMPARE(container->readValue(Axis1, coordinate, 0, false), u"<offline> (0)"_s);
    container->setOnline(true);
    QCOMPARE(container->readValue(Axis1, coordinate, 0, false), u"0"_s);
}

void tst_ParameterContainerValues::writes_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("native");

    QTest::newRow("display text") << u"display"_s << u"2.5"_s << u"25"_s;
    QTest::newRow("display text with unit") << u"display"_s << u"2.5 A"_s << u"25"_s;
    QTest::newRow("native text") << u"native"_s << u"25"_s << u"25"_s;
    QTest::newRow("value text") << u"undecorated"_s << u"2.5"_s << u"25"_s;
}

void tst_ParameterContainerValues::writes()
{
    MessageRecorder messages;
    QFETCH(QString, operation);
    QFETCH(QString, text);
    TestContainer container;
    container->setFirmware(m_firmware.get());
    QVERIFY(container.create(current(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    if (operation == "display"_L1)
        container->writeValue(Axis1, coordinate, 0, text);
    else if (operation == "native"_L1)
        container->writeValueNative(Axis1, coordinate, 0, text);
    else
        container->writeUndecoratedValue(Axis1, coordinate, 0, text);
    QTEST(container->readValueNative(Axis1, coordinate, 0, false), "native");
}

void tst_ParameterContainerValues::writesWithoutParameterDoNothing()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const QString &text : {u"A13"_s, u"rubbish"_s}) {
        const ParameterCoordinate coordinate(text);
        container->writeValue(Axis1, coordinate, 0, u"1"_s);
        container->writeValueNative(Axis1, coordinate, 0, u"1"_s);
        container->writeUndecoratedValue(Axis1, coordinate, 0, u"1"_s);
    }
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(container.coordinates(), QStringList {u"A12"_s});
}

void tst_ParameterContainerValues::writesOfElementsThatAreNotThere()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const auto &[space, element] :
        {std::pair(Axis1, quint16(1)), std::pair(Axis2, quint16(0)), std::pair(Global, quint16(0)),
            std::pair(eLivingSpace(-1), quint16(0)), std::pair(Axis1, quint16(65535))}) {
        container->writeValue(space, coordinate, element, u"1"_s);
        container->writeValueNative(space, coordinate, element, u"1"_s);
        container->writeUndecoratedValue(space, coordinate, element, u"1"_s);
    }
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"0"_s);
}

void tst_ParameterContainerValues::signalOrderOfOneWrite()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(2), u"D.2;a"_s));
    SignalLog log;
    log.attach(container.setup(u"A12"_s), u"s"_s);
    log.attach(container.get(), u"c"_s);
    const QStringList expected {u"s.valueChanged(2.A012[00001])"_s,
        u"s.nativeValueChanged(2.A012[00001])"_s, u"c.parameterValueChanged(2.A012[00001])"_s,
        u"c.parameterNativeValueChanged(2.A012[00001])"_s};
    const ParameterCoordinate coordinate(u"A12"_s);

    container->writeValue(Axis2, coordinate, 1, u"1"_s);
    QCOMPARE(log.take(), expected);
    container->writeValueNative(Axis2, coordinate, 1, u"2"_s);
    QCOMPARE(log.take(), expected);
    container->writeUndecoratedValue(Axis2, coordinate, 1, u"3"_s);
    QCOMPARE(log.take(), expected);
}

void tst_ParameterContainerValues::equalValueRenewsTheTagOnly()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    container->setParameterChangeTag(u"first"_s);
    container->writeValue(Axis1, coordinate, 0, u"7"_s);
    container->setParameterChangeTag(u"second"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"s"_s);
    const auto tag = [&] {
        return container.setup(u"A12"_s)->attribute(Axis1, 0, u"ValueChangeTag"_s);
    };

    // What the device sends again was not changed by anyone.
    container->writeValueNative(Axis1, coordinate, 0, u"7"_s);
    QCOMPARE(tag(), u"first"_s);
    container->writeValue(Axis1, coordinate, 0, u"7"_s);
    QCOMPARE(tag(), u"second"_s);
    container->setParameterChangeTag(u"third"_s);
    container->writeUndecoratedValue(Axis1, coordinate, 0, u"7"_s);
    QCOMPARE(tag(), u"third"_s);
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerValues::rejectedWrite()
{
    MessageRecorder messages;
    TestContainer container;
    container->setDomain(u"Drive 1"_s);
    container->setFirmware(m_firmware.get());
    QVERIFY(container.create(current(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    container->writeValue(Axis1, coordinate, 0, u"20"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->writeValue(Axis1, coordinate, 0, u"100.1"_s);

    QCOMPARE(log.take(), QStringList());
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"200"_s);
    const QList<SystemMessage> reports = messages.take();
    QCOMPARE(reports.size(), 1);
    QCOMPARE(reports.first().severity, eSeverity::Critical);
    QCOMPARE(reports.first().title, u"Drive 1"_s);
    container->writeValue(Axis1, coordinate, 0, u"100"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"1000"_s);
}

void tst_ParameterContainerValues::onlyTheDisplayWriteIsChecked()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_firmware.get());
    QVERIFY(container.create(current(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    container->writeValueNative(Axis1, coordinate, 0, u"99999"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"99999"_s);
    container->writeUndecoratedValue(Axis1, coordinate, 0, u"5000"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"50000"_s);
}

void tst_ParameterContainerValues::writesDoNotAskIsWritable()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).levels(0, 5), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    QVERIFY(!container.setup(u"A12"_s)->isWritable(Axis1, 0));
    container->writeValue(Axis1, coordinate, 0, u"4"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"4"_s);
    container->setReadOnly(true);
    container->writeValue(Axis1, coordinate, 0, u"5"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"5"_s);
}

void tst_ParameterContainerValues::globalParameterTakesEveryLivingSpace()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global(), u"S;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    container->writeValue(Axis3, coordinate, 0, u"4"_s);
    for (const int space : {-1, 0, 1, 2, 17})
        QCOMPARE(container->readValue(eLivingSpace(space), coordinate, 0, false), u"4"_s);
}

void tst_ParameterContainerValues::withoutProviderAllFormsAreOne()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(current(u"A12"_s).decimals(0), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    container->writeUndecoratedValue(Axis1, coordinate, 0, u"99999"_s);
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"99999"_s);
    QCOMPARE(container->readUndecoratedValue(Axis1, coordinate, 0, false), u"99999"_s);
}

void tst_ParameterContainerValues::dispatchDependencyChangeReachesTheDependents()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).property(eParameterProperty::ScalingDependency, 7), u"S;a"_s));
    QVERIFY(container.create(
        at(u"B01"_s).property(eParameterProperty::ScalingFunctionIndex, 7U), u"S;b"_s));
    QVERIFY(container.create(
        at(u"B02"_s).property(eParameterProperty::ScalingFunctionIndex, 8U), u"S;c"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->dispatchDependencyChange(
        eParameterProperty::ScalingDependency, Axis2, ParameterCoordinate(u"A12"_s), 0);

    QCOMPARE(log.take(), QStringList {u"c.parameterValueChanged(2.B001[00000])"_s});
}

void tst_ParameterContainerValues::dispatchDependencyChangeOfNothing()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"B01"_s).property(eParameterProperty::ScalingFunctionIndex, 7U), u"S;b"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const QString &text : {u"A12"_s, u"B01"_s, QString()}) {
        for (const quint32 property : {32U, 33U, 38U, 39U, 0U, 999U}) {
            container->dispatchDependencyChange(
                eParameterProperty(property), Axis1, ParameterCoordinate(text), 3);
        }
    }
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerValues::consistenceRequestsGoOut()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    const ParameterAddress address(u"2.A12[3]"_s, true);
    container->dispatchParameterOnlineConsistenceNeed(address, true);
    container->dispatchParameterOnlineConsistenceNeed(address, false);
    container->dispatchParameterOnlineConsistenceNeedOnce(address);
    QCOMPARE(log.take(),
        (QStringList {u"c.parameterNeedsOnlineConsistence(2.A012[00003], true)"_s,
            u"c.parameterNeedsOnlineConsistence(2.A012[00003], false)"_s,
            u"c.parameterNeedsOnlineConsistenceOnce(2.A012[00003])"_s}));
    container->dispatchParameterOnlineConsistenceNeed(ParameterAddress(), true);
    QCOMPARE(log.take(), QStringList {u"c.parameterNeedsOnlineConsistence(, true)"_s});
}

QTEST_GUILESS_MAIN(tst_ParameterContainerValues)
#include "tst_ParameterContainerValues.moc"

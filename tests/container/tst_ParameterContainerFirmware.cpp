#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

namespace {

std::unique_ptr<ServoDriveFirmware> withSystemParameters(
    quint32 family, const QByteArrayList &parameters)
{
    return TestFirmware::load(family, "\"systemParameters\": [" + parameters.join(", ") + "]");
}

QList<int> livingSpaces(const ParameterInformation *information)
{
    QList<int> numbers;
    for (const eLivingSpace livingSpace :
        information ? information->livingSpaces() : QList<eLivingSpace>())
        numbers.append(int(livingSpace));
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

class tst_ParameterContainerFirmware : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void setFirmware();
    void setFirmwareNull();
    void sameFirmwareAgain();
    void systemParametersComeUnderTheirNumbers();
    void systemParametersOfPhysicalAxes();
    void previousSystemParametersGo();
    void everyTextThatBeginsWithSIsOfTheSystem_data();
    void everyTextThatBeginsWithSIsOfTheSystem();
    void setSharedWithASystemLocatorGoes();
    void ordinaryParametersAndTheirValuesStay();
    void valuesFollowTheNewFunctions();
    void changeOfFamilyDeletesNothing();
    void stateStays();
    void firmwareKnowsItsOwnFamilyOnly();
};

void tst_ParameterContainerFirmware::setFirmware()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(TestFirmware::PlainAxesFamily, {});
    QVERIFY(firmware);
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->setFirmware(firmware.get());
    QCOMPARE(container->firmware(), firmware.get());
    QVERIFY(container->functionProvider());
    QVERIFY(container.coordinates().isEmpty());
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerFirmware::setFirmwareNull()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(
        TestFirmware::PlainAxesFamily, {TestFirmware::parameter(1, "A01", "\"global\": true")});
    QVERIFY(firmware);
    TestContainer container;
    container->setFirmware(nullptr);
    QVERIFY(!container->functionProvider());
    container->setFirmware(firmware.get());
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->setFirmware(nullptr);
    QVERIFY(!container->firmware());
    QVERIFY(!container->functionProvider());
    QVERIFY(container.coordinates().isEmpty());
    QCOMPARE(log.take(), QStringList {u"c.parameterRemoved(A01)"_s});
}

void tst_ParameterContainerFirmware::sameFirmwareAgain()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(
        TestFirmware::PlainAxesFamily, {TestFirmware::parameter(1, "A01", "\"global\": true")});
    QVERIFY(firmware);
    TestContainer container;
    container->setFirmware(firmware.get());
    container->writeValueNative(Global, ParameterCoordinate(u"A01"_s), 0, u"5"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->setFirmware(firmware.get());
    QCOMPARE(log.take(), (QStringList {u"c.parameterRemoved(A01)"_s, u"c.parameterAdded(A01)"_s}));
    QCOMPARE(container->readValueNative(Global, ParameterCoordinate(u"A01"_s), 0, false), u"0"_s);
}

void tst_ParameterContainerFirmware::systemParametersComeUnderTheirNumbers()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(TestFirmware::PlainAxesFamily,
        {TestFirmware::parameter(4294967295U, "A03", "\"global\": true"),
            TestFirmware::parameter(1, "A01"),
            TestFirmware::parameter(20, "A02", "\"global\": true, \"physicalAxis\": true")});
    QVERIFY(firmware);
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->setFirmware(firmware.get());

    QCOMPARE(log.take(),
        (QStringList {u"c.parameterAdded(A01)"_s, u"c.parameterAdded(A01)"_s,
            u"c.parameterAdded(A01)"_s, u"c.parameterAdded(A01)"_s, u"c.parameterAdded(A02)"_s,
            u"c.parameterAdded(A03)"_s}));
    QCOMPARE(container->queryParameterInstance(u"S;{P1}"_s), container.setup(u"A01"_s));
    QCOMPARE(container->queryParameterInstance(u"S;{P20}"_s), container.setup(u"A02"_s));
    QCOMPARE(container->queryParameterInstance(u"S;{P4294967295}"_s), container.setup(u"A03"_s));
    QCOMPARE(container->queryParameterAnchors(u"S"_s, true).size(), 3);
    QCOMPARE(livingSpaces(container.setup(u"A01"_s)), (QList<int> {1, 2, 3, 4}));
    QCOMPARE(livingSpaces(container.setup(u"A02"_s)), QList<int> {0});
    QCOMPARE(livingSpaces(container.setup(u"A03"_s)), QList<int> {0});
    QCOMPARE(container->queryParameter(u"S;{P20}"_s),
        firmware->systemParameterDefinition(TestFirmware::PlainAxesFamily, 20));
}

void tst_ParameterContainerFirmware::systemParametersOfPhysicalAxes()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(TestFirmware::PhysicalAxesFamily,
        {TestFirmware::parameter(1, "A01"),
            TestFirmware::parameter(2, "A02", "\"global\": true, \"physicalAxis\": true"),
            TestFirmware::parameter(3, "A03", "\"global\": true")});
    QVERIFY(firmware);
    TestContainer container;
    container->setFirmware(firmware.get());
    QCOMPARE(livingSpaces(container.setup(u"A01"_s)), (QList<int> {1, 2}));
    QCOMPARE(livingSpaces(container.setup(u"A02"_s)), (QList<int> {1, 2}));
    QCOMPARE(livingSpaces(container.setup(u"A03"_s)), QList<int> {0});
}

void tst_ParameterContainerFirmware::previousSystemParametersGo()
{
    MessageRecorder messages;
    const auto before = withSystemParameters(TestFirmware::PlainAxesFamily,
        {TestFirmware::parameter(1, "A01", "\"global\": true"),
            TestFirmware::parameter(2, "A02", "\"global\": true")});
    const auto after = withSystemParameters(TestFirmware::PhysicalAxesFamily,
        {TestFirmware::parameter(2, "A02", "\"global\": true"),
            TestFirmware::parameter(3, "A03", "\"global\": true")});
    QVERIFY(before && after);
    TestContainer container;
    container->setFirmware(before.get());
    const QPointer<ParameterSetup> a02 = container.setup(u"A02"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->setFirmware(after.get());

    QStringList entries = log.take();
    QCOMPARE(entries.size(), 4);
    // Which of the removed ones goes first carries no meaning.
    std::sort(entries.begin(), entries.begin() + 2);
    QCOMPARE(entries,
        (QStringList {u"c.parameterRemoved(A01)"_s, u"c.parameterRemoved(A02)"_s,
            u"c.parameterAdded(A02)"_s, u"c.parameterAdded(A03)"_s}));
    QVERIFY(!a02);
    QCOMPARE(container.coordinates(), (QStringList {u"A02"_s, u"A03"_s}));
    QVERIFY(!container->queryParameterInstance(u"S;{P1}"_s));
    QCOMPARE(container->queryParameter(u"S;{P2}"_s),
        after->systemParameterDefinition(TestFirmware::PhysicalAxesFamily, 2));
}

void tst_ParameterContainerFirmware::everyTextThatBeginsWithSIsOfTheSystem_data()
{
    QTest::addColumn<QString>("locator");
    QTest::addColumn<bool>("isOfTheSystem");

    QTest::newRow("system locator") << u"S;{P1}"_s << true;
    QTest::newRow("system locator of another path") << u"S;whatever"_s << true;
    QTest::newRow("numbered anchor of that letter") << u"S.1;a"_s << true;
    QTest::newRow("longer name of that letter") << u"Servo.1;a"_s << true;
    QTest::newRow("small letter") << u"s.1;a"_s << false;
    QTest::newRow("letter inside") << u"DS.1;a"_s << false;
    QTest::newRow("leading blank") << u" S.1;a"_s << false;
    QTest::newRow("another letter") << u"D.1;S"_s << false;
    QTest::newRow("semicolon first") << u";S.1"_s << false;
}

void tst_ParameterContainerFirmware::everyTextThatBeginsWithSIsOfTheSystem()
{
    MessageRecorder messages;
    QFETCH(QString, locator);
    QFETCH(bool, isOfTheSystem);
    TestContainer container;
    if (!container.create(at(u"A12"_s), locator)) {
        QCOMPARE(messages.take().size(), 1);
        return;
    }
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->setFirmware(nullptr);
    QCOMPARE(container.coordinates().isEmpty(), isOfTheSystem);
    QCOMPARE(log.count(u"parameterRemoved"_s), isOfTheSystem ? 1 : 0);
}

void tst_ParameterContainerFirmware::setSharedWithASystemLocatorGoes()
{
    MessageRecorder messages;
    TestContainer container;
    ParameterDefinition *definition = container.define(at(u"A12"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"S;a"_s));
    QVERIFY(container->createOrUpdateParameter(definition, u"S;b"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->setFirmware(nullptr);
    QCOMPARE(log.take(), QStringList {u"c.parameterRemoved(A12)"_s});
    QVERIFY(!container->queryParameterInstance(u"D.1;a"_s));
}

void tst_ParameterContainerFirmware::ordinaryParametersAndTheirValuesStay()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(TestFirmware::PlainAxesFamily, {});
    QVERIFY(firmware);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const QPointer<ParameterSetup> setup = container.setup(u"A12"_s);
    container->writeValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, u"5"_s);
    for (ServoDriveFirmware *each : {firmware.get(), static_cast<ServoDriveFirmware *>(nullptr)}) {
        container->setFirmware(each);
        QVERIFY(setup);
        QCOMPARE(
            container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, false), u"5"_s);
    }
}

void tst_ParameterContainerFirmware::valuesFollowTheNewFunctions()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(TestFirmware::PlainAxesFamily, {});
    QVERIFY(firmware);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).scaling(0.1F), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    container->writeValueNative(Axis1, coordinate, 0, u"15"_s);
    QCOMPARE(container->readUndecoratedValue(Axis1, coordinate, 0, false), u"15"_s);
    container->setFirmware(firmware.get());
    QCOMPARE(container->readUndecoratedValue(Axis1, coordinate, 0, false), u"1.5"_s);
    container->setFirmware(nullptr);
    QCOMPARE(container->readUndecoratedValue(Axis1, coordinate, 0, false), u"15"_s);
}

void tst_ParameterContainerFirmware::changeOfFamilyDeletesNothing()
{
    MessageRecorder messages;
    const auto plain = withSystemParameters(TestFirmware::PlainAxesFamily, {});
    const auto physical = withSystemParameters(TestFirmware::PhysicalAxesFamily, {});
    QVERIFY(plain && physical);
    TestContainer container;
    container->setFirmware(plain.get());
    QVERIFY(container.create(at(u"A12"_s), u"D.4;a"_s));
    QVERIFY(container.create(at(u"B01"_s).global().physicalAxis(), u"D.4;b"_s));
    container->setFirmware(physical.get());
    QCOMPARE(livingSpaces(container.setup(u"A12"_s)), QList<int> {4});
    QCOMPARE(livingSpaces(container.setup(u"B01"_s)), QList<int> {0});
}

void tst_ParameterContainerFirmware::stateStays()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(TestFirmware::PlainAxesFamily, {});
    QVERIFY(firmware);
    TestContainer container;
    container->setOnline(true);
    container->setReadOnly(true);
    container->setDomain(u"Drive 1"_s);
    container->setParameterChangeTag(u"tag"_s);
    container->setBlockUsedParameters({u"A12"_s});
    container->setFirmware(firmware.get());
    QVERIFY(container->isOnline());
    QVERIFY(container->isReadOnly());
    QCOMPARE(container->domain(), u"Drive 1"_s);
    QCOMPARE(container->parameterChangeTag(), u"tag"_s);
    QVERIFY(container->isParameterBlockUsed(ParameterAddress(u"A12"_s, true)));
}

void tst_ParameterContainerFirmware::firmwareKnowsItsOwnFamilyOnly()
{
    MessageRecorder messages;
    const auto firmware = withSystemParameters(
        TestFirmware::PhysicalAxesFamily, {TestFirmware::parameter(1, "A01", "\"global\": true")});
    QVERIFY(firmware);
    // The container asks for the firmware's family, whatever the host says.
    TestContainer container;
    container->setFirmware(firmware.get());
    QCOMPARE(container->deviceFamilyIdentifier(), 0U);
    QCOMPARE(container.coordinates(), QStringList {u"A01"_s});
}

QTEST_GUILESS_MAIN(tst_ParameterContainerFirmware)
#include "tst_ParameterContainerFirmware.moc"

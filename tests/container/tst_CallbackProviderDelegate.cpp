#include "TestContainer.h"

#include "tests/support/ContainerInternals.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrMultilingual/LanguageManager.h>
#include <KrSystem/System.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using eSeverity = MessageRecorder::eSeverity;
using enum eLivingSpace;

namespace {

/// Coordinate numbers as the firmware knows them: group * 1000 + line.
constexpr quint16 A12 = 1012;
constexpr quint16 B01 = 2001;
constexpr quint16 C01 = 3001;
constexpr quint16 Z999 = 26999;

CallbackProvider &callbacks(const TestContainer &container)
{
    return ContainerInternals::of(*container)->callbackDelegate;
}

/// A12 for each axis, scaled by 0.1 from "mA" to "A" and holding 10, 20, ... by living space.
void fill(TestContainer &container)
{
    container.create(at(u"A12"_s).scaling(0.1F).units(u"A"_s, u"mA"_s).decimals(1), u"S;a"_s);
    for (const eLivingSpace space : container.setup(u"A12"_s)->livingSpaces()) {
        container->writeValueNative(
            space, ParameterCoordinate(u"A12"_s), 0, QString::number(int(space) * 10));
    }
}

} // namespace

class tst_CallbackProviderDelegate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void reads();
    void livingSpace_data();
    void livingSpace();
    void negativeLivingSpaceAsksForTheActiveAxis_data();
    void negativeLivingSpaceAsksForTheActiveAxis();
    void negativeLivingSpaceWithoutActiveAxis();
    void endedByTheMissingActiveAxis_data();
    void endedByTheMissingActiveAxis();
    void writes();
    void writeIsChecked();
    void nothingThere();
    void parameterProperty_data();
    void parameterProperty();
    void parameterPropertyFallsBack();
    void elementProperty();
    void datatypeProperty();
    void datatypePropertyOfNothing();
    void systemProperty();
    void containerText();
    void runningChange();
    void addMessages();

private:
    std::unique_ptr<ServoDriveFirmware> m_physical;
    std::unique_ptr<ServoDriveFirmware> m_plain;
};

void tst_CallbackProviderDelegate::initTestCase()
{
    m_physical = TestFirmware::load(TestFirmware::PhysicalAxesFamily);
    m_plain = TestFirmware::load(TestFirmware::PlainAxesFamily);
    QVERIFY(m_physical && m_plain);
}

void tst_CallbackProviderDelegate::reads()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_physical.get());
    fill(container);
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(firmware.readValue(2, A12, 0, false), u"2.0"_s);
    QCOMPARE(firmware.readValue(2, A12, 0, true), u"2.0 A"_s);
    QCOMPARE(firmware.readValueNative(2, A12, 0, false), u"20"_s);
    QCOMPARE(firmware.readValueNative(2, A12, 0, true), u"20 mA"_s);
    QCOMPARE(firmware.readUndecoratedValue(2, A12, 0, false), u"2"_s);
    QCOMPARE(firmware.readUndecoratedValue(2, A12, 0, true), u"2 A"_s);
}

void tst_CallbackProviderDelegate::livingSpace_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<QString>("expected");

    QTest::newRow("0 of a local parameter") << 0 << QString();
    QTest::newRow("1") << 1 << u"10"_s;
    QTest::newRow("2") << 2 << u"20"_s;
    QTest::newRow("3, which the family lacks") << 3 << QString();
    QTest::newRow("far beyond") << 2147483647 << QString();
    // Without "E84" on physical axes a negative number stands for its absolute value.
    QTest::newRow("-1") << -1 << u"10"_s;
    QTest::newRow("-2") << -2 << u"20"_s;
    QTest::newRow("-3") << -3 << QString();
    QTest::newRow("lowest number") << -2147483647 - 1 << QString();
}

void tst_CallbackProviderDelegate::livingSpace()
{
    MessageRecorder messages;
    QFETCH(int, livingSpace);
    TestContainer container;
    container->setFirmware(m_physical.get());
    fill(container);
    QTEST(callbacks(container).readValueNative(livingSpace, A12, 0, false), "expected");
    callbacks(container).writeValueNative(livingSpace, A12, 7, u"1"_s);
}

void tst_CallbackProviderDelegate::negativeLivingSpaceAsksForTheActiveAxis_data()
{
    QTest::addColumn<QString>("activeAxis");
    QTest::addColumn<QString>("expected");

    QTest::newRow("axis 0 is living space 1") << u"0"_s << u"10"_s;
    QTest::newRow("axis 3 is living space 4") << u"3"_s << u"40"_s;
    QTest::newRow("axis 4 is living space 1") << u"4"_s << u"10"_s;
    QTest::newRow("axis -1 is living space 0") << u"-1"_s << QString();
    QTest::newRow("axis -2 is living space -1, of which the absolute value") << u"-2"_s << u"10"_s;
    QTest::newRow("axis -3 is living space -2, of which the absolute value") << u"-3"_s << u"20"_s;
}

void tst_CallbackProviderDelegate::negativeLivingSpaceAsksForTheActiveAxis()
{
    MessageRecorder messages;
    QFETCH(QString, activeAxis);
    TestContainer container;
    container->setFirmware(m_plain.get());
    fill(container);
    QVERIFY(container.create(at(u"E84"_s).global(), u"S;e"_s));
    container->writeValueNative(Global, ParameterCoordinate(u"E84"_s), 0, activeAxis);
    for (const int livingSpace : {-1, -2, -17})
        QTEST(callbacks(container).readValueNative(livingSpace, A12, 0, false), "expected");
    QCOMPARE(callbacks(container).readValueNative(2, A12, 0, false), u"20"_s);
}

void tst_CallbackProviderDelegate::negativeLivingSpaceWithoutActiveAxis()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_plain.get());
    fill(container);
    messages.expect(
        eSeverity::Warning, u"ParameterContainer"_s, u"missing parameter \"E84 active axis\""_s);
    QCOMPARE(callbacks(container).readValueNative(-3, A12, 0, false), u"10"_s);
}

void tst_CallbackProviderDelegate::endedByTheMissingActiveAxis_data()
{
    QTest::addColumn<int>("operation");
    const char *const operations[] = {"readValue", "readValueNative", "readUndecoratedValue",
        "writeValue", "writeValueNative", "writeUndecoratedValue"};
    for (int i = 0; i < int(std::size(operations)); ++i)
        QTest::newRow(operations[i]) << i;
}

void tst_CallbackProviderDelegate::endedByTheMissingActiveAxis()
{
    QFETCH(int, operation);
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_plain.get());
    fill(container);
    QObject listener;
    connect(System::instance(), &System::messageAdded, &listener, [&] { container.destroy(); });
    messages.expect(
        eSeverity::Warning, u"ParameterContainer"_s, u"missing parameter \"E84 active axis\""_s);
    CallbackProvider &firmware = callbacks(container);
    switch (operation) {
    case 0:
        QCOMPARE(firmware.readValue(-1, A12, 0, true), QString());
        break;
    case 1:
        QCOMPARE(firmware.readValueNative(-1, A12, 0, true), QString());
        break;
    case 2:
        QCOMPARE(firmware.readUndecoratedValue(-1, A12, 0, true), QString());
        break;
    case 3:
        firmware.writeValue(-1, A12, 0, u"5"_s);
        break;
    case 4:
        firmware.writeValueNative(-1, A12, 0, u"5"_s);
        break;
    default:
        firmware.writeUndecoratedValue(-1, A12, 0, u"5"_s);
    }
    QVERIFY(!container.get());
}

void tst_CallbackProviderDelegate::writes()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_physical.get());
    fill(container);
    CallbackProvider &firmware = callbacks(container);
    firmware.writeValue(1, A12, 0, u"4.5 A"_s);
    QCOMPARE(firmware.readValueNative(1, A12, 0, false), u"45"_s);
    firmware.writeValueNative(1, A12, 0, u"46"_s);
    QCOMPARE(firmware.readValueNative(1, A12, 0, false), u"46"_s);
    firmware.writeUndecoratedValue(-1, A12, 0, u"4.7"_s);
    QCOMPARE(firmware.readValueNative(1, A12, 0, false), u"47"_s);
    QCOMPARE(firmware.readValueNative(2, A12, 0, false), u"20"_s);
}

void tst_CallbackProviderDelegate::writeIsChecked()
{
    MessageRecorder messages;
    TestContainer container;
    container->setDomain(u"Drive 1"_s);
    container->setFirmware(m_physical.get());
    QVERIFY(container.create(at(u"A12"_s).limits(u"0"_s, u"9"_s), u"S;a"_s));
    CallbackProvider &firmware = callbacks(container);
    firmware.writeValue(1, A12, 0, u"10"_s);
    QCOMPARE(messages.take().size(), 1);
    QCOMPARE(firmware.readValueNative(1, A12, 0, false), u"0"_s);
    firmware.writeValueNative(1, A12, 0, u"10"_s);
    QCOMPARE(firmware.readValueNative(1, A12, 0, false), u"10"_s);
}

void tst_CallbackProviderDelegate::nothingThere()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_physical.get());
    fill(container);
    CallbackProvider &firmware = callbacks(container);
    for (const quint16 coordinate : {quint16(0), B01, Z999, quint16(65535)}) {
        QCOMPARE(firmware.readValue(1, coordinate, 0, true), QString());
        QCOMPARE(firmware.readValueNative(1, coordinate, 0, true), QString());
        QCOMPARE(firmware.readUndecoratedValue(1, coordinate, 0, true), QString());
        firmware.writeValue(1, coordinate, 0, u"1"_s);
        firmware.writeValueNative(1, coordinate, 0, u"1"_s);
        firmware.writeUndecoratedValue(1, coordinate, 0, u"1"_s);
        QCOMPARE(firmware.elementProperty(coordinate, 0, 16), QVariant());
        QCOMPARE(firmware.datatypeProperty(coordinate, u"kind"_s), QVariant());
    }
    QCOMPARE(firmware.readValue(1, A12, 65535, true), QString());
    QCOMPARE(firmware.elementProperty(A12, 65535, 16), QVariant());
}

void tst_CallbackProviderDelegate::parameterProperty_data()
{
    QTest::addColumn<quint16>("coordinate");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("global") << B01 << u"isGlobalParameter"_s << QVariant(true);
    QTest::newRow("local") << C01 << u"isGlobalParameter"_s << QVariant(false);
    QTest::newRow("online") << B01 << u"isOnline"_s << QVariant(true);
    QTest::newRow("writable") << B01 << u"isReadOnly"_s << QVariant(false);
    QTest::newRow("elements") << C01 << u"elementCount"_s << QVariant(3U);
    QTest::newRow("name") << B01 << u"name"_s << QVariant(u"Name"_s);
}

void tst_CallbackProviderDelegate::parameterProperty()
{
    MessageRecorder messages;
    QFETCH(quint16, coordinate);
    QFETCH(QString, key);
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s).global().name(u"Name"_s), u"S;b"_s));
    QVERIFY(container.create(at(u"C01"_s).elementCount(3), u"S;c"_s));
    container->setOnline(true);
    QTEST(callbacks(container).parameterProperty(coordinate, key, u"fallback"_s), "expected");
}

void tst_CallbackProviderDelegate::parameterPropertyFallsBack()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s), u"S;b"_s));
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(firmware.parameterProperty(B01, u"unknown"_s, 7), QVariant(7));
    QCOMPARE(firmware.parameterProperty(B01, u"isonline"_s, 7), QVariant(7));
    QCOMPARE(firmware.parameterProperty(B01, QString(), QVariant()), QVariant());
    QCOMPARE(firmware.parameterProperty(C01, u"isGlobalParameter"_s, u"f"_s), QVariant(u"f"_s));
    QCOMPARE(firmware.parameterProperty(0, u"isOnline"_s, u"f"_s), QVariant(u"f"_s));
}

void tst_CallbackProviderDelegate::elementProperty()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"B01"_s).element(3, u"Drei"_s).levels(1, 2).element(5, u"Vier"_s).levels(3, 4),
        u"S;b"_s));
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(firmware.elementProperty(B01, 3, 5).toUInt(), 1U);
    QCOMPARE(firmware.elementProperty(B01, 5, 6).toUInt(), 4U);
    container.setup(u"B01"_s)->setProperty(
        5, eParameterProperty::WriteLevel, ParameterProperty(6U));
    QCOMPARE(firmware.elementProperty(B01, 5, 6).toUInt(), 6U);
    QCOMPARE(firmware.elementProperty(B01, 5, 103).toString(), u"B01"_s);
    QCOMPARE(firmware.elementProperty(B01, 5, 22), QVariant());
    QCOMPARE(firmware.elementProperty(B01, 5, 4294967295U), QVariant());
    QCOMPARE(firmware.elementProperty(B01, 0, 5), QVariant());
}

void tst_CallbackProviderDelegate::datatypeProperty()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s).datatype(u"UINT16"_s), u"S;b"_s));
    QVERIFY(container.create(at(u"C01"_s).datatype(u"REAL64"_s), u"S;c"_s));
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(firmware.datatypeProperty(B01, u"kind"_s).toUInt(), 1U);
    QCOMPARE(firmware.datatypeProperty(B01, u"name"_s), QVariant(u"Unsigned 16 bit"_s));
    QCOMPARE(firmware.datatypeProperty(B01, u"shortName"_s), QVariant(u"UINT16"_s));
    QCOMPARE(firmware.datatypeProperty(B01, u"sizeInBytes"_s).toUInt(), 2U);
    QCOMPARE(firmware.datatypeProperty(C01, u"kind"_s).toUInt(), 2U);
    QCOMPARE(firmware.datatypeProperty(C01, u"sizeInBytes"_s).toUInt(), 8U);
}

void tst_CallbackProviderDelegate::datatypePropertyOfNothing()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s).datatype(quint8(99)), u"S;b"_s));
    QVERIFY(container.create(at(u"C01"_s), u"S;c"_s));
    // It has no element 0, whose data type is asked for.
    QVERIFY(container.create(at(u"A12"_s).element(1, u"Eins"_s), u"S;a"_s));
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(firmware.datatypeProperty(A12, u"kind"_s), QVariant());
    QCOMPARE(firmware.datatypeProperty(B01, u"kind"_s), QVariant());
    QCOMPARE(firmware.datatypeProperty(C01, u"Kind"_s), QVariant());
    QCOMPARE(firmware.datatypeProperty(C01, QString()), QVariant());
}

void tst_CallbackProviderDelegate::systemProperty()
{
    MessageRecorder messages;
    TestContainer container;
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(
        firmware.systemProperty(u"activeLanguage"_s), QVariant(LanguageManager::activeLanguage()));
    QCOMPARE(firmware.systemProperty(u"activelanguage"_s), QVariant());
    QCOMPARE(firmware.systemProperty(QString()), QVariant());
}

void tst_CallbackProviderDelegate::containerText()
{
    MessageRecorder messages;
    TestContainer container;
    container->setDomain(u"Drive 1"_s);
    container->setParameterChangeTag(u"tag"_s);
    CallbackProvider &firmware = callbacks(container);
    QCOMPARE(firmware.containerText(u"domain"_s), u"Drive 1"_s);
    QCOMPARE(firmware.containerText(u"parameterChangeTag"_s), u"tag"_s);
    QCOMPARE(firmware.containerText(u"Domain"_s), QString());
    QCOMPARE(firmware.containerText(QString()), QString());
}

void tst_CallbackProviderDelegate::runningChange()
{
    TestContainer container;
    for (const QString &coordinate : {u"A12"_s, u"B01"_s}) {
        QVERIFY(container.create(at(coordinate).property(eParameterProperty::LimitDependency, 7),
            u"D.1;"_s + coordinate));
    }
    QStringList changes;
    const auto note = [&] { changes.append(callbacks(container).containerText(u"change"_s)); };
    const auto write = [&](const QString &coordinate, const QString &text) {
        container->writeValueNative(Axis1, ParameterCoordinate(coordinate), 0, text);
    };
    QObject listener;
    connect(container.setup(u"A12"_s), &ParameterSetup::valueChanged, &listener, [&] {
        note();
        write(u"B01"_s, u"5"_s);
        note();
    });
    connect(container.setup(u"B01"_s), &ParameterSetup::valueChanged, &listener, note);
    note();
    write(u"A12"_s, u"1"_s);
    note();
    write(u"B01"_s, u"6"_s);
    // One that follows inside another belongs to it.
    QCOMPARE(changes, QStringList({{}, u"1"_s, u"1"_s, u"1"_s, {}, u"2"_s}));
}

void tst_CallbackProviderDelegate::addMessages()
{
    MessageRecorder messages;
    TestContainer container;
    container->setDomain(u"Drive 1"_s);
    CallbackProvider &firmware = callbacks(container);
    messages.expect(eSeverity::Information, u"Drive 1"_s, u"a"_s);
    messages.expect(eSeverity::Warning, u"Drive 1"_s, u"b"_s);
    messages.expect(eSeverity::Critical, u"Drive 2"_s, QString());
    firmware.addInformationMessage(u"a"_s);
    firmware.addWarningMessage(u"b"_s);
    container->setDomain(u"Drive 2"_s);
    firmware.addCriticalMessage(QString());
}

QTEST_GUILESS_MAIN(tst_CallbackProviderDelegate)
#include "tst_CallbackProviderDelegate.moc"

#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

namespace {

const ParameterCoordinate Place(u"A12"_s);

ParameterAddress address(const QString &text)
{
    return ParameterAddress(text, true);
}

} // namespace

class tst_ParameterContainerBinary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readAndWrite_data();
    void readAndWrite();
    void addressNamesTheInstance();
    void globalInstance();
    void nativeTextOfAScaledParameter();
    void noValueGivesNoBytes_data();
    void noValueGivesNoBytes();
    void tooShortAnArrayIsIgnored_data();
    void tooShortAnArrayIsIgnored();
    void writeOfNothing();
    void fromTheDevice();
    void ownWrite();
};

void tst_ParameterContainerBinary::readAndWrite_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bigEndian");
    QTest::addColumn<QByteArray>("littleEndian");

    const auto row = [](const QString &typeName, const QString &text, const QByteArray &bigEndian,
                         const QByteArray &littleEndian) {
        QTest::newRow(qPrintable(typeName)) << typeName << text << QByteArray::fromHex(bigEndian)
                                            << QByteArray::fromHex(littleEndian);
    };
    row(u"INT8"_s, u"-2"_s, "fe", "fe");
    row(u"INT16"_s, u"-2"_s, "fffe", "feff");
    row(u"INT32"_s, u"-2"_s, "fffffffe", "feffffff");
    row(u"INT64"_s, u"-2"_s, "fffffffffffffffe", "feffffffffffffff");
    row(u"UINT8"_s, u"254"_s, "fe", "fe");
    row(u"UINT16"_s, u"513"_s, "0201", "0102");
    row(u"UINT32"_s, u"4278190335"_s, "ff0000ff", "ff0000ff");
    row(u"UINT64"_s, u"18446744073709551614"_s, "fffffffffffffffe", "feffffffffffffff");
    row(u"REAL32"_s, u"0.1"_s, "3dcccccd", "cdcccc3d");
    row(u"REAL64"_s, u"0.1"_s, "3fb999999999999a", "9a9999999999b93f");
    row(u"STRING8"_s, u"Ab\u00fc"_s, "4162fc0000000000", "4162fc0000000000");
    row(u"BYTES4"_s, u"01ff"_s + u"00aa"_s, "01ff00aa", "01ff00aa");
}

void tst_ParameterContainerBinary::readAndWrite()
{
    MessageRecorder messages;
    QFETCH(QString, typeName);
    QFETCH(QString, text);
    QFETCH(QByteArray, bigEndian);
    QFETCH(QByteArray, littleEndian);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).datatype(typeName), u"D.1;a"_s));
    const auto native = [&] { return container->readValueNative(Axis1, Place, 0, false); };

    container->writeValueNative(Axis1, Place, 0, text);
    QCOMPARE(container->nativeValueBinary(address(u"A12"_s), true), bigEndian);
    QCOMPARE(container->nativeValueBinary(address(u"A12"_s), false), littleEndian);

    for (const bool fromDevice : {false, true}) {
        container->writeValueNative(Axis1, Place, 0, u"1"_s);
        container->setNativeValueBinary(address(u"A12"_s), bigEndian, true, fromDevice);
        QCOMPARE(native(), text);
        container->writeValueNative(Axis1, Place, 0, u"1"_s);
        container->setNativeValueBinary(address(u"A12"_s), littleEndian, false, fromDevice);
        QCOMPARE(native(), text);
        container->writeValueNative(Axis1, Place, 0, u"1"_s);
        container->setNativeValueBinary(address(u"A12"_s), bigEndian + '\1', true, fromDevice);
        QCOMPARE(native(), text);
    }
}

void tst_ParameterContainerBinary::addressNamesTheInstance()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).datatype(u"UINT8"_s).elementCount(3), u"S;a"_s));
    container->setNativeValueBinary(address(u"A12"_s), "\x01", true, true);
    container->setNativeValueBinary(address(u"1.A12[2]"_s), "\x02", true, true);
    container->setNativeValueBinary(address(u"4.A12[1]"_s), "\x03", true, true);
    QCOMPARE(container->readValueNative(Axis1, Place, 0, false), u"1"_s);
    QCOMPARE(container->readValueNative(Axis1, Place, 2, false), u"2"_s);
    QCOMPARE(container->readValueNative(Axis4, Place, 1, false), u"3"_s);
    QCOMPARE(container->readValueNative(Axis2, Place, 0, false), u"0"_s);
    QCOMPARE(container->nativeValueBinary(address(u"4.A12[1]"_s), true), QByteArray("\x03"));
}

void tst_ParameterContainerBinary::globalInstance()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global().datatype(u"UINT8"_s), u"S;a"_s));
    container->setNativeValueBinary(address(u"A12"_s), "\x07", true, false);
    QCOMPARE(container->readValueNative(Global, Place, 0, false), u"7"_s);
    QCOMPARE(container->nativeValueBinary(address(u"A12"_s), true), QByteArray("\x07"));
}

void tst_ParameterContainerBinary::nativeTextOfAScaledParameter()
{
    MessageRecorder messages;
    const auto firmware = TestFirmware::load(TestFirmware::PhysicalAxesFamily);
    QVERIFY(firmware);
    TestContainer container;
    container->setFirmware(firmware.get());
    QVERIFY(container.create(
        at(u"A12"_s).datatype(u"UINT16"_s).scaling(0.1F).limits(u"0"_s, u"100"_s), u"D.1;a"_s));
    // Neither scaled nor checked, whoever writes.
    for (const bool fromDevice : {false, true}) {
        container->setNativeValueBinary(
            address(u"A12"_s), QByteArray::fromHex(fromDevice ? "0201" : "0202"), true, fromDevice);
        QCOMPARE(
            container->readValueNative(Axis1, Place, 0, false), fromDevice ? u"513"_s : u"514"_s);
    }
    QCOMPARE(container->nativeValueBinary(address(u"A12"_s), true), QByteArray::fromHex("0201"));
}

void tst_ParameterContainerBinary::noValueGivesNoBytes_data()
{
    QTest::addColumn<ParameterAddress>("place");

    QTest::newRow("no set") << address(u"A13"_s);
    QTest::newRow("invalid address") << ParameterAddress();
    QTest::newRow("no element") << address(u"A12[1]"_s);
    QTest::newRow("unknown data type") << address(u"B01"_s);
    QTest::newRow("data type 0") << address(u"B02"_s);
    QTest::newRow("no data type") << address(u"B03"_s);
    QTest::newRow("no instance") << address(u"2.A12"_s);
}

void tst_ParameterContainerBinary::noValueGivesNoBytes()
{
    MessageRecorder messages;
    QFETCH(ParameterAddress, place);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s).datatype(quint8(99)), u"D.1;b1"_s));
    QVERIFY(container.create(at(u"B02"_s).datatype(quint8(0)), u"D.1;b2"_s));
    QVERIFY(container.create(at(u"B03"_s).without(eParameterProperty::Datatype), u"D.1;b3"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const bool byteOrder : {false, true}) {
        QCOMPARE(container->nativeValueBinary(place, byteOrder), QByteArray());
        container->setNativeValueBinary(place, QByteArray(300, '\1'), byteOrder, false);
        container->setNativeValueBinary(place, QByteArray(300, '\1'), byteOrder, true);
    }
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerBinary::tooShortAnArrayIsIgnored_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<int>("size");

    QTest::newRow("INT8 without byte") << u"INT8"_s << 0;
    QTest::newRow("INT16 without byte") << u"INT16"_s << 0;
    QTest::newRow("INT16 one short") << u"INT16"_s << 1;
    QTest::newRow("UINT32 one short") << u"UINT32"_s << 3;
    QTest::newRow("INT64 one short") << u"INT64"_s << 7;
    QTest::newRow("REAL32 one short") << u"REAL32"_s << 3;
    QTest::newRow("REAL64 one short") << u"REAL64"_s << 7;
    QTest::newRow("STRING8 one short") << u"STRING8"_s << 7;
    QTest::newRow("STRING255 one short") << u"STRING255"_s << 254;
    QTest::newRow("BYTES4 one short") << u"BYTES4"_s << 3;
}

void tst_ParameterContainerBinary::tooShortAnArrayIsIgnored()
{
    MessageRecorder messages;
    QFETCH(QString, typeName);
    QFETCH(int, size);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).datatype(typeName), u"D.1;a"_s));
    container->writeValueNative(Axis1, Place, 0, u"12"_s);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    for (const bool fromDevice : {false, true})
        container->setNativeValueBinary(address(u"A12"_s), QByteArray(size, '1'), true, fromDevice);
    QCOMPARE(container->readValueNative(Axis1, Place, 0, false), u"12"_s);
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerBinary::writeOfNothing()
{
    MessageRecorder messages;
    TestContainer container;
    container->setNativeValueBinary(ParameterAddress(), QByteArray(), false, false);
    QCOMPARE(container->nativeValueBinary(ParameterAddress(), false), QByteArray());
}

void tst_ParameterContainerBinary::fromTheDevice()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).datatype(u"UINT8"_s), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    container->setOnline(true);
    setup->startAllElementsConsistenceOnce(Axis1);
    SignalLog log;
    log.attach(setup, u"s"_s);
    container->setParameterChangeTag(u"first"_s);
    container->setNativeValueBinary(address(u"A12"_s), "\x05", true, true);
    QCOMPARE(log.take(),
        (QStringList {u"s.valueChanged(1.A012[00000])"_s, u"s.nativeValueChanged(1.A012[00000])"_s,
            u"s.allElementsConsistenceOnceDone(A12, 1)"_s}));
    // The same value again is no change.
    container->setParameterChangeTag(u"second"_s);
    container->setNativeValueBinary(address(u"A12"_s), "\x05", true, true);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(setup->attribute(Axis1, 0, u"ValueChangeTag"_s), u"first"_s);
}

void tst_ParameterContainerBinary::ownWrite()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).datatype(u"UINT8"_s), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    container->setOnline(true);
    setup->startAllElementsConsistenceOnce(Axis1);
    SignalLog log;
    log.attach(setup, u"s"_s);
    container->setParameterChangeTag(u"first"_s);
    container->setNativeValueBinary(address(u"A12"_s), "\x05", true, false);
    QCOMPARE(log.take(),
        (QStringList {
            u"s.valueChanged(1.A012[00000])"_s, u"s.nativeValueChanged(1.A012[00000])"_s}));
    container->setParameterChangeTag(u"second"_s);
    container->setNativeValueBinary(address(u"A12"_s), "\x05", true, false);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(setup->attribute(Axis1, 0, u"ValueChangeTag"_s), u"second"_s);
}

QTEST_GUILESS_MAIN(tst_ParameterContainerBinary)
#include "tst_ParameterContainerBinary.moc"

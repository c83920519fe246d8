#include "apps/online/ContainerValues.h"
#include "apps/online/RegisterBytes.h"
#include "apps/online/RegisterMap.h"
#include "tests/online/OnlineDevice.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_ContainerValues : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void carriesWhatTheContainerHas();
    void storesWhatTheDriveHas();
    void storesNumbersOfEveryType_data();
    void storesNumbersOfEveryType();
    void knowsANumberInAnotherForm();
    void tellsChangesMadeHere();
    void tellsWhatWasWrittenOverTheDrives_data();
    void tellsWhatWasWrittenOverTheDrives();
    void tellsFunctionsFromListeners();
    void tellsRepliesToFunctionsFromFunctions_data();
    void tellsRepliesToFunctionsFromFunctions();
    void comparesWhatADriveMeans_data();
    void comparesWhatADriveMeans();
};

void tst_ContainerValues::carriesWhatTheContainerHas()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    const ContainerValues values(project->container());
    const auto registers = [&](const char *text) {
        return values.registers(map.values().at(map.indexOf(address(text))));
    };
    QCOMPARE(registers("A01"), QList<quint16> {7});
    QCOMPARE(registers("A02"), (QList<quint16> {1, 4464}));
    QCOMPARE(registers("A03"), (QList<quint16> {0x6162, 0x6300, 0, 0}));
    QCOMPARE(registers("2.B02"), (QList<quint16> {0xFFFF, 0xFFFD}));
    QCOMPARE(
        values.nativeText(map.values().at(map.indexOf(address("2.B02")))), QStringLiteral("-3"));

    MappedValue gone = map.values().at(0);
    gone.address = address("Z99");
    QVERIFY(values.registers(gone).isEmpty());
}

void tst_ContainerValues::storesWhatTheDriveHas()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    ContainerValues values(project->container());
    const QSignalSpy changes(&values, &ContainerValues::changedHere);
    const MappedValue value = map.values().at(map.indexOf(address("2.B01")));
    QVERIFY(values.adopt(value, QByteArray::fromHex("ffce"), &values).hasChanged);
    QCOMPARE(values.nativeText(value), QStringLiteral("-50"));
    QVERIFY(!values.adopt(value, QByteArray::fromHex("ffce"), &values).hasChanged);
    // What the drive has is not checked.
    QVERIFY(values.adopt(value, QByteArray::fromHex("7fff"), &values).hasChanged);
    QCOMPARE(values.nativeText(value), QStringLiteral("32767"));
    QCOMPARE(changes.size(), 0);
}

void tst_ContainerValues::storesNumbersOfEveryType_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *type, const char *bytes, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(type) << QByteArray::fromHex(bytes)
                            << QString::fromLatin1(text);
    };
    row("INT8", "INT8", "80", "-128");
    row("INT8 above", "INT8", "7f", "127");
    row("UINT8", "UINT8", "ff", "255");
    row("INT16", "INT16", "8000", "-32768");
    row("UINT16", "UINT16", "ffff", "65535");
    row("INT32", "INT32", "80000000", "-2147483648");
    row("UINT32", "UINT32", "ffffffff", "4294967295");
    row("INT64", "INT64", "8000000000000000", "-9223372036854775808");
    row("INT64 -1", "INT64", "ffffffffffffffff", "-1");
    row("UINT64", "UINT64", "ffffffffffffffff", "18446744073709551615");
    row("REAL32", "REAL32", "3fc00000", "1.5");
    row("REAL32 of many digits", "REAL32", "3dfcd6ea", "0.12345679");
    row("REAL32 that is large", "REAL32", "7f7fffff", "3.4028235e+38");
    row("REAL32 that is infinite", "REAL32", "ff800000", "-inf");
    row("REAL32 that is no number", "REAL32", "7fc00000", "nan");
    row("REAL64", "REAL64", "bfb999999999999a", "-0.1");
    row("REAL64 of many digits", "REAL64", "3fd5555555555555", "0.3333333333333333");
    row("STRING8", "STRING8", "e46f750000000000", "\xe4ou");
    row("STRING8 without end", "STRING8", "6162636465666768", "abcdefgh");
    row("BYTES4", "BYTES4", "deadbeef", "deadbeef");
}

void tst_ContainerValues::storesNumbersOfEveryType()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);

    const OnlineDevice device(QStringLiteral(R"({"format": "kr-device-description", "version": 1,
          "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
          "languages": ["de"], "dataTypes": ["%1"],
          "parameters": [{"number": 1, "coordinates": ["A01"], "name": "N",
                          "elements": [{"dataType": "%1", "kind": 5}]}]})")
                                  .arg(type)
                                  .toUtf8());
    const auto project = device.open();
    const RegisterMap map(project->container());
    ContainerValues values(project->container());
    const QSignalSpy changes(&values, &ContainerValues::changedHere);
    QVERIFY(values.adopt(map.values().constFirst(), bytes, &values).hasChanged);
    QVERIFY(!values.adopt(map.values().constFirst(), bytes, &values).hasChanged);
    // What the drive has is not sent back.
    QCOMPARE(changes.size(), 0);
    QCOMPARE(values.nativeText(map.values().constFirst()), text);
    // The longer way leads to the same.
    project->container().setNativeValueBinary(address("1.A01"), bytes, true, true);
    QCOMPARE(values.nativeText(map.values().constFirst()), text);
    QCOMPARE(values.registers(map.values().constFirst()),
        RegisterBytes::fromBytes(bytes, *map.values().constFirst().type));
}

void tst_ContainerValues::knowsANumberInAnotherForm()
{
    const OnlineDevice device(R"({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["REAL32"],
      "parameters": [{"number": 1, "coordinates": ["A01"], "name": "N",
                      "elements": [{"dataType": "REAL32", "default": "1.50"}]}]})");
    const auto project = device.open();
    const RegisterMap map(project->container());
    ContainerValues values(project->container());
    const MappedValue value = map.values().constFirst();
    QVERIFY(!values.adopt(value, QByteArray::fromHex("3fc00000"), &values).hasChanged);
    QCOMPARE(values.nativeText(value), QStringLiteral("1.5"));
    QVERIFY(values.adopt(value, QByteArray::fromHex("3fc00001"), &values).hasChanged);
}

void tst_ContainerValues::tellsChangesMadeHere()
{
    const OnlineDevice device;
    const auto project = device.open();
    ParameterContainer &container = project->container();
    const RegisterMap map(container);
    ContainerValues values(container);
    const QSignalSpy changes(&values, &ContainerValues::changedHere);
    container.writeValue(eLivingSpace::Axis2, at("B01"), 0, QStringLiteral("6"));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes.at(0).at(0).value<ParameterAddress>(), address("2.B01"));

    // A listener that writes while a value of the drive is being stored means the drive.
    connect(&container, &ParameterProvider::parameterNativeValueChanged, &values,
        [&container](const ParameterAddress &changed) {
            if (changed == address("2.B01"))
                container.writeValueNative(eLivingSpace::Global, at("A01"), 0, QStringLiteral("8"));
        });
    const MappedValue value = map.values().at(map.indexOf(address("2.B01")));
    QVERIFY(values.adopt(value, QByteArray::fromHex("0009"), &values).hasChanged);
    QCOMPARE(
        container.readValueNative(eLivingSpace::Global, at("A01"), 0, false), QStringLiteral("8"));
    QCOMPARE(changes.size(), 2);
    QCOMPARE(changes.at(1).at(0).value<ParameterAddress>(), address("A01"));
}

void tst_ContainerValues::tellsWhatWasWrittenOverTheDrives_data()
{
    QTest::addColumn<bool>("isEarlyListener");

    QTest::newRow("by who is told first") << true;
    QTest::newRow("by who is told last") << false;
}

void tst_ContainerValues::tellsWhatWasWrittenOverTheDrives()
{
    QFETCH(bool, isEarlyListener);

    const OnlineDevice device;
    const auto project = device.open();
    ParameterContainer &container = project->container();
    const RegisterMap map(container);
    ContainerValues values(container);
    const auto overwrite = [&container] {
        container.writeValueNative(eLivingSpace::Axis2, at("B01"), 0, QStringLiteral("10"));
    };
    QObject context;
    if (isEarlyListener) {
        connect(container.parameterInformation(at("B01")), &ParameterInformation::valueChanged,
            &context, overwrite);
    } else {
        connect(&container, &ParameterProvider::parameterNativeValueChanged, &context, overwrite);
    }
    const QSignalSpy changes(&values, &ContainerValues::changedHere);
    const MappedValue value = map.values().at(map.indexOf(address("2.B01")));
    const ContainerValues::Adopted adopted =
        values.adopt(value, QByteArray::fromHex("0009"), &values);
    QVERIFY(adopted.hasChanged);
    QCOMPARE(adopted.text, QStringLiteral("9"));
    QCOMPARE(values.nativeText(value), QStringLiteral("10"));
    QVERIFY(!changes.isEmpty());
    for (const QList<QVariant> &change : changes)
        QCOMPARE(change.at(0).value<ParameterAddress>(), address("2.B01"));
}

namespace {

/// Who changed which value, as it is told. `log` outlives the values.
void noteChanges(ContainerValues &values, QStringList &log)
{
    const auto note = [&log](QLatin1String who) {
        return [&log, who](const ParameterAddress &at) { log += who + at.toText(true, false); };
    };
    QObject::connect(&values, &ContainerValues::changedHere, &values, note(QLatin1String("here ")));
    QObject::connect(
        &values, &ContainerValues::changedByFunction, &values, note(QLatin1String("function ")));
}

} // namespace

void tst_ContainerValues::tellsFunctionsFromListeners()
{
    const OnlineDevice device(R"device({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["UINT16"],
      "functions": {"postWrite": {
        "1": ["writeValueNative(0, 'A02', 0, 10 * readValueNative(0, 'A01'))"]}},
      "parameters": [
        {"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 1}}]},
        {"number": 2, "coordinates": ["A02"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "functions": {"postWrite": 1}}]},
        {"number": 3, "coordinates": ["A03"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16"}]}]})device");
    const auto project = device.open();
    ParameterContainer &container = project->container();
    const RegisterMap map(container);
    QStringList log;
    ContainerValues values(container);
    noteChanges(values, log);
    connect(&container, &ParameterProvider::parameterNativeValueChanged, &values,
        [&container](const ParameterAddress &changed) {
            if (changed == address("A01"))
                container.writeValueNative(eLivingSpace::Global, at("A03"), 0, QStringLiteral("8"));
        });
    values.adopt(
        map.values().at(map.indexOf(address("A01"))), QByteArray::fromHex("0007"), &values);
    QCOMPARE(values.nativeText(map.values().at(map.indexOf(address("A02")))), QStringLiteral("70"));
    QCOMPARE(log, (QStringList {QStringLiteral("here A03"), QStringLiteral("function A02")}));
    // After a write of the user the function's effect is his too.
    log.clear();
    container.writeValueNative(eLivingSpace::Global, at("A01"), 0, QStringLiteral("6"));
    QCOMPARE(log, (QStringList {QStringLiteral("here A01"), QStringLiteral("here A02")}));
}

void tst_ContainerValues::tellsRepliesToFunctionsFromFunctions_data()
{
    QTest::addColumn<QString>("replyTo");
    QTest::addColumn<bool>("isValueText");
    QTest::addColumn<QStringList>("told");

    const auto row = [](const char *name, const char *replyTo, bool isValueText,
                         const QStringList &told) {
        QTest::newRow(name) << QString::fromLatin1(replyTo) << isValueText << told;
    };
    const QStringList toFirst {
        QStringLiteral("function A02"), QStringLiteral("here A04"), QStringLiteral("function A03")};
    row("to a function's change", "A02", false, toFirst);
    row("to the shown value of it", "A02", true,
        {QStringLiteral("here A04"), QStringLiteral("function A02"),
            QStringLiteral("function A03")});
    row("to what follows from it", "A03", false,
        {QStringLiteral("function A02"), QStringLiteral("function A03"),
            QStringLiteral("here A04")});
}

void tst_ContainerValues::tellsRepliesToFunctionsFromFunctions()
{
    QFETCH(QString, replyTo);
    QFETCH(bool, isValueText);
    QFETCH(QStringList, told);

    // A02 follows A01, and A03 follows A02.
    const OnlineDevice device(R"device({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["UINT16"],
      "functions": {"postWrite": {
        "1": ["writeValueNative(0, 'A02', 0, 10 * readValueNative(0, 'A01'))"],
        "2": ["writeValueNative(0, 'A03', 0, 1 + readValueNative(0, 'A02'))"]}},
      "parameters": [
        {"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 1}}]},
        {"number": 2, "coordinates": ["A02"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "dependencies": {"postWrite": 2},
                       "functions": {"postWrite": 1}}]},
        {"number": 3, "coordinates": ["A03"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16", "functions": {"postWrite": 2}}]},
        {"number": 4, "coordinates": ["A04"], "name": "N", "global": true,
         "elements": [{"dataType": "UINT16"}]}]})device");
    const auto project = device.open();
    ParameterContainer &container = project->container();
    const RegisterMap map(container);
    QStringList log;
    ContainerValues values(container);
    noteChanges(values, log);
    connect(&container,
        isValueText ? &ParameterProvider::parameterValueChanged
                    : &ParameterProvider::parameterNativeValueChanged,
        &values, [&](const ParameterAddress &changed) {
            if (changed.toText(true, false) == replyTo)
                container.writeValueNative(eLivingSpace::Global, at("A04"), 0, QStringLiteral("8"));
        });
    values.adopt(
        map.values().at(map.indexOf(address("A01"))), QByteArray::fromHex("0007"), &values);
    QCOMPARE(log, told);
    QCOMPARE(values.nativeText(map.values().at(map.indexOf(address("A03")))), QStringLiteral("71"));
}

void tst_ContainerValues::comparesWhatADriveMeans_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("sent");
    QTest::addColumn<QString>("kept");
    QTest::addColumn<bool>("isSame");

    const auto row = [](const char *name, const char *type, const char *sent, const char *kept,
                         bool isSame) {
        QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(sent)
                            << QString::fromLatin1(kept) << isSame;
    };
    row("the same text", "UINT16", "5", "5", true);
    row("the same number", "UINT16", "05", "5", true);
    row("another number", "UINT16", "5", "6", false);
    row("no number", "UINT16", "x", "0", false);
    row("neighbours of 64 bits", "UINT64", "18446744073709551615", "18446744073709551614", false);
    row("the same real", "REAL32", "1.50", "1.5", true);
    row("the same real with an exponent", "REAL32", "1.5e3", "1500", true);
    row("the same real with a sign", "REAL32", "+1.5", "1.5", true);
    row("the same real between blanks", "REAL32", " 1.5 ", "1.5", true);
    row("another real behind the same digits", "REAL32", "1.5", "1.51", false);
    row("a real of more than 32 letters", "REAL64", "0.50000000000000000000000000000000000", "0.5",
        true);
    row("both no number", "REAL32", "nan", "NAN", true);
    row("both infinite", "REAL32", "inf", "INF", true);
    row("infinite on the other side", "REAL32", "inf", "-inf", false);
    row("the same letters that are no number", "REAL32", "1.5x", "1.5x", true);
    row("a letter behind the number", "REAL32", "1.5x", "1.5", false);
    row("an empty text", "REAL32", "", "0", false);
    row("a real that was rounded", "REAL32", "0.1234567890123", "0.12345679", false);
    row("a text that was cut", "STRING8", "abcdefghi", "abcdefgh", false);
    row("a text that looks like the same number", "STRING8", "1.0", "1", false);
    row("bytes in other letters", "BYTES4", "DEADBEEF", "deadbeef", true);
    row("bytes that were filled up", "BYTES4", "de", "de000000", true);
    row("no number", "REAL32", "nan", "nan", true);
    row("no bytes at all", "BYTES4", "", "00000000", true);
    row("bytes that were filled otherwise", "BYTES4", "de", "de000001", false);
    row("bytes that were cut", "BYTES4", "deadbeef01", "deadbeef", false);
}

void tst_ContainerValues::comparesWhatADriveMeans()
{
    QFETCH(QString, type);
    QFETCH(QString, sent);
    QFETCH(QString, kept);
    QFETCH(bool, isSame);

    MappedValue value;
    value.type = DatatypeProvider::instance()->simpleType(type);
    QCOMPARE(ContainerValues::isSame(value, sent, kept), isSame);
}

QTEST_GUILESS_MAIN(tst_ContainerValues)
#include "tst_ContainerValues.moc"

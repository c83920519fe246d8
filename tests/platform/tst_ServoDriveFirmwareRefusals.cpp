#include "DescriptionText.h"

#include <KrProjectRepository/HardwareRepository.h>

#include <QtTest/QtTest>

/// Descriptions that are not taken, with the place and the reason; and the largest that are.
class tst_ServoDriveFirmwareRefusals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void refused_data();
    void refused();
    void largestFile();
    void mostValues();
    void familyThatContradicts();
    void languagesAndDataTypes();
    void nothingIsRegisteredWhenRefused();
    void fileThatIsNotThere();
    void errorMayBeNull();
};

void tst_ServoDriveFirmwareRefusals::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *rule, const QByteArray &json, const char *error) {
        QTest::newRow(rule) << json << QStringLiteral("d.json: ") + QString::fromUtf8(error);
    };
    const QByteArray element = R"("elements": [{"dataType": "INT8"}])";

    row("anchor of the system outside the system parameters",
        withParameter(R"("anchors": ["Drive.1;{P1}", "S;{P1}"], )" + element),
        "parameters[0].anchors: an anchor that begins with \"S\" is for system parameters only");
    row("anchor that merely begins with S",
        withParameter(R"("anchors": ["Servo.1;{P1}"], )" + element),
        "parameters[0].anchors: an anchor that begins with \"S\" is for system parameters only");
    row("empty file", "", "line 1, column 1: expected a value");
    row("no UTF-8", "\"\xff\"", "the file is not UTF-8");
    row("half a file", "{\n \"format\": \"kr",
        "line 2, column 15: expected '\"' at the end of the text");
    row("more than one value", "{} {}", "line 1, column 4: expected the end of the file");
    row("repeated key", R"({"a": 1, "a": 2})",
        "line 1, column 1: the object has the key \"a\" twice");
    row("comma at the end of a list", "[1,]", "line 1, column 4: expected a value");
    row("comma at the end of an object", R"({"a": 1,})",
        "line 1, column 9: expected a key in quotes");
    row("leading zero", "[01]", "line 1, column 3: expected ',' or ']'");
    row("half of a surrogate pair", R"(["\ud83d"])",
        "line 1, column 10: the text has half of a surrogate pair");
    row("unknown escape", R"(["\x"])", "line 1, column 4: unknown escape");
    row("line end in a text", "[\"\n\"]", "line 1, column 3: expected '\"' at the end of the text");
    row("nesting", QByteArray(1'000'000, '['), "line 1, column 33: nested deeper than 32 levels");
    row("no object", "[]", "expected an object");
    row("empty object", "{}", "format: is missing");
    row("another format", R"({"format": "x"})", "format: expected \"kr-device-description\"");
    row("another version", R"({"format": "kr-device-description", "version": 2})",
        "version: expected a whole number from 1 to 1");
    row("unknown key", description(R"("parameters": [], "parameter": [])"),
        "parameter: unknown key; known are format, version, family, languages, dataTypes, "
        "profiles, "
        "systemStrings, functions, parameters, systemParameters");
    row("unknown key that needs quotes", description(R"("parameters": [], "a b": 1)"),
        "[\"a b\"]: unknown key; known are format, version, family, languages, dataTypes, "
        "profiles, "
        "systemStrings, functions, parameters, systemParameters");

    row("number 0", description(R"("parameters": [{"number": 0}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("number above 32 bits", description(R"("parameters": [{"number": 4294967296}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("number with a fraction", description(R"("parameters": [{"number": 1.5}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("number without end", description(R"("parameters": [{"number": 1e999999999}])"),
        "parameters[0].number: expected a whole number from 1 to 4294967295");
    row("unknown key of a parameter", withParameter(R"("unit": 1, "elements": [])"),
        "parameters[0].unit: unknown key; known are number, identifier, version, name, "
        "nameCommonText, description, type, instances, global, physicalAxis, coordinates, anchors, "
        "elementCount, defaults, elements");
    row("parameter number twice",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01"], )"
            + element + R"(},
            {"number": 1, "name": "b", "coordinates": ["A02"], )"
            + element + "}]"),
        "parameters[1].number: another parameter has the number 1");
    row("coordinate twice",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01"], )"
            + element + R"(},
            {"number": 2, "name": "b", "coordinates": ["A1", "A02"], )"
            + element + "}]"),
        "parameters[1].coordinates[0]: A01 is the coordinate of the single-instance parameter P1");
    row("coordinate of a system parameter",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01"], )"
            + element + R"(}],
            "systemParameters": [
            {"number": 1, "name": "b", "coordinates": ["A01"], )"
            + element + "}]"),
        "systemParameters[0].coordinates[0]: A01 is the coordinate of the single-instance "
        "parameter "
        "P1");
    row("invalid coordinate",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01", "A1000"], )"
            + element + "}]"),
        "parameters[0].coordinates[1]: expected a coordinate: a letter from A to Z and one to "
        "three "
        "digits");
    row("coordinate of its own twice",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": ["A01", "A1"], )"
            + element + "}]"),
        "parameters[0].coordinates[1]: is listed twice");
    row("single-instance without coordinate",
        description(R"("parameters": [
            {"number": 1, "name": "a", "coordinates": [], )"
            + element + "}]"),
        "parameters[0].coordinates: expected at least one coordinate for a single-instance "
        "parameter");
    row("multi-instance system parameter",
        description(R"("parameters": [], "systemParameters": [
            {"number": 1, "name": "a", "instances": "multi", "coordinates": ["A01"], )"
            + element + "}]"),
        "systemParameters[0].instances: expected \"single\" for a system parameter");
    row("empty identifier", withParameter(R"("identifier": "", )" + element),
        "parameters[0].identifier: expected a text that is not empty");
    row("type", withParameter(R"("type": "Record", )" + element),
        "parameters[0].type: expected \"simple\" or \"record\"");
    row("simple with two elements",
        withParameter(R"("elements": [{"dataType": "INT8"}, {"dataType": "INT8"}])"),
        "parameters[0].elements: expected exactly one element for a simple parameter");
    row("record without elements", withParameter(R"("type": "record", "elements": [])"),
        "parameters[0].elements: expected 1 to 16000 elements");
    row("element count 0", withParameter(R"("elementCount": 0, )" + element),
        "parameters[0].elementCount: expected a whole number from 1 to 16000");
    row("element count of a record",
        withParameter(R"("type": "record", "elementCount": 1, )" + element),
        "parameters[0].elementCount: is for simple parameters only");
    row("defaults of a record", withParameter(R"("type": "record", "defaults": [1], )" + element),
        "parameters[0].defaults: is for simple parameters only");
    row("more defaults than elements",
        withParameter(R"("elementCount": 2, "defaults": [1, 2, 3], )" + element),
        "parameters[0].defaults: expected at most 2 defaults, as many as elements");
    row("wrong default in the list",
        withParameter(R"("elementCount": 2, "defaults": [1, 128], )" + element),
        "parameters[0].defaults[1]: expected a whole number from -128 to 127");
    row("name of a simple element", withElement(R"("dataType": "INT8", "name": "x")"),
        "parameters[0].elements[0].name: is for elements of a record only");
    row("element number twice", withParameter(R"("type": "record", "elements": [
            {"dataType": "INT8", "number": 5}, {"dataType": "INT8", "number": 5}])"),
        "parameters[0].elements[1].number: another element has the number 5");
    row("element number by position twice", withParameter(R"("type": "record", "elements": [
            {"dataType": "INT8", "number": 1}, {"dataType": "INT8"}])"),
        "parameters[0].elements[1]: another element has the number 1");
    row("element number above 14 bits", withParameter(R"("type": "record", "elements": [
            {"dataType": "INT8", "number": 16384}])"),
        "parameters[0].elements[0].number: expected a whole number from 0 to 16383");

    row("no data type", withElement(R"("kind": 1)"),
        "parameters[0].elements[0].dataType: is missing, in the element and in its profile");
    row("data type that is not listed", withElement(R"("dataType": "INT16")"),
        "parameters[0].elements[0].dataType: expected one of the description's data types INT8, "
        "UINT16, INT64, UINT64, REAL32, REAL64, STRING8, BYTES4, RAW");
    row("unknown key of an element", withElement(R"("dataType": "INT8", "datatype": 1)"),
        "parameters[0].elements[0].datatype: unknown key");
    row("unknown key of a group", withElement(R"("dataType": "INT8", "levels": {"red": 1})"),
        "parameters[0].elements[0].levels.red: unknown key");
    row("key of a group in the element", withElement(R"("dataType": "INT8", "read": 1)"),
        "parameters[0].elements[0].read: unknown key");
    row("kind 12", withElement(R"("dataType": "INT8", "kind": 12)"),
        "parameters[0].elements[0].kind: expected a whole number from 0 to 11");
    row("precision 1101", withElement(R"("dataType": "INT8", "decimals": {"behind": 1101})"),
        "parameters[0].elements[0].decimals.behind: expected a whole number from 0 to 1100");
    row("function index above 16 bits",
        withElement(R"("dataType": "INT8", "functions": {"limit": 65536})"),
        "parameters[0].elements[0].functions.limit: expected a whole number from 0 to 65535");
    row("dependency below 32 bits",
        withElement(R"("dataType": "INT8", "dependencies": {"limit": -2147483649})"),
        "parameters[0].elements[0].dependencies.limit: expected a whole number from -2147483648 to "
        "2147483647");
    row("factor that no float holds",
        withElement(R"("dataType": "INT8", "scaling": {"factor": 1e39})"),
        "parameters[0].elements[0].scaling.factor: expected a number that a 32-bit float holds");
    row("factor that becomes 0", withElement(R"("dataType": "INT8", "scaling": {"factor": 1e-60})"),
        "parameters[0].elements[0].scaling.factor: expected a number that a 32-bit float holds");
    row("choice key with a leading zero",
        withElement(R"("dataType": "INT8", "choices": {"01": "x"})"),
        "parameters[0].elements[0].choices.01: expected a key that is a whole number from "
        "-2147483648 to 2147483647");
    row("choice key above 32 bits",
        withElement(R"("dataType": "INT8", "choices": {"2147483648": "x"})"),
        "parameters[0].elements[0].choices.2147483648: expected a key that is a whole number from "
        "-2147483648 to 2147483647");
    row("language that is not listed",
        withElement(R"("dataType": "INT8", "choices": {"1": {"fr": "x"}})"),
        "parameters[0].elements[0].choices.1.fr: expected one of the languages de, en");
    row("text without short and long",
        withElement(R"("dataType": "INT8", "choices": {"1": {"de": {}}})"),
        "parameters[0].elements[0].choices.1.de.short: is missing");
    row("text without any language", withElement(R"("dataType": "INT8", "choices": {"1": {}})"),
        "parameters[0].elements[0].choices.1: expected a text for at least one language");
    row("absent data type", withElement(R"("dataType": "INT8", "absent": [16])"),
        "parameters[0].elements[0].absent: the data type (16) must not be absent");
    row("absent number that is no property",
        withElement(R"("dataType": "INT8", "absent": [11, 46])"),
        "parameters[0].elements[0].absent[1]: expected the number of an element property");
    row("settable number above the properties",
        withElement(R"("dataType": "INT8", "settable": [51])"),
        "parameters[0].elements[0].settable[0]: expected a whole number from 0 to 50");

    row("limit outside of the type",
        withElement(R"("dataType": "INT8", "limits": {"lower": -129})"),
        "parameters[0].elements[0].limits.lower: expected a whole number from -128 to 127");
    row("limit that is no number", withElement(R"("dataType": "INT8", "limits": {"upper": "5A"})"),
        "parameters[0].elements[0].limits.upper: expected a whole number from -128 to 127");
    row("limit with a fraction", withElement(R"("dataType": "INT8", "limits": {"upper": 5.5})"),
        "parameters[0].elements[0].limits.upper: expected a whole number from -128 to 127");
    row("limit that a double does not hold",
        withElement(R"("dataType": "UINT64", "limits": {"upper": 18446744073709551615})"),
        "parameters[0].elements[0].limits.upper: a double does not hold this number exactly; write "
        "it "
        "as the text \"18446744073709551615\"");
    row("limit above 64 bits",
        withElement(R"("dataType": "UINT64", "limits": {"upper": "18446744073709551616"})"),
        "parameters[0].elements[0].limits.upper: expected a whole number from 0 to "
        "18446744073709551615");
    row("limits the wrong way round",
        withElement(R"("dataType": "INT8", "limits": {"lower": 6, "upper": 5})"),
        "parameters[0].elements[0].limits.lower: expected at most the upper limit 5");
    row("real limits the wrong way round",
        withElement(R"("dataType": "REAL64", "limits": {"lower": 0.2, "upper": "0.1"})"),
        "parameters[0].elements[0].limits.lower: expected at most the upper limit 0.1");
    row("real limit above the type",
        withElement(R"("dataType": "REAL32", "limits": {"lower": 1e39})"),
        "parameters[0].elements[0].limits.lower: expected a number of the data type REAL32");
    row("real limit that is no number",
        withElement(R"("dataType": "REAL64", "limits": {"lower": "nan"})"),
        "parameters[0].elements[0].limits.lower: expected a number of the data type REAL64");
    row("default outside of the type", withElement(R"("dataType": "UINT16", "default": -1)"),
        "parameters[0].elements[0].default: expected a whole number from 0 to 65535");
    row("default 2^53 + 1", withElement(R"("dataType": "INT64", "default": 9007199254740993)"),
        "parameters[0].elements[0].default: a double does not hold this number exactly; write it "
        "as "
        "the text \"9007199254740993\"");
    row("string default too long", withElement(R"("dataType": "STRING8", "default": "123456789")"),
        "parameters[0].elements[0].default: expected at most 8 Latin-1 characters");
    row("string default beyond Latin-1",
        withElement(R"("dataType": "STRING8", "default": "\u0100")"),
        "parameters[0].elements[0].default: expected at most 8 Latin-1 characters");
    row("string default that is a number", withElement(R"("dataType": "STRING8", "default": 5)"),
        "parameters[0].elements[0].default: expected a text");
    row("bytes default", withElement(R"("dataType": "BYTES4", "default": "0011223344")"),
        "parameters[0].elements[0].default: expected pairs of hexadecimal digits for at most 4 "
        "bytes");

    row("profile that names itself", description(R"("profiles": {"a": {"profile": "a"}})"),
        "profiles.a.profile: a profile must not depend on itself");
    row("profiles in a circle", description(R"("profiles": {"a": {"profile": "b"},
            "b": {"profile": "c"}, "c": {"profile": "b"}})"),
        "profiles.c.profile: a profile must not depend on itself");
    row("unknown profile of a profile", description(R"("profiles": {"a": {"profile": "b"}})"),
        "profiles.a.profile: expected the name of a profile");
    row("unknown profile", withElement(R"("profile": "b")"),
        "parameters[0].elements[0].profile: expected the name of a profile");
    row("name of a profile", description(R"("profiles": {"a": {"name": "n"}})"),
        "profiles.a.name: is for elements of a record only");
    row("number of a profile", description(R"("profiles": {"a": {"number": 1}})"),
        "profiles.a.number: is for elements of a record only");
    row("profile that no element uses", description(R"("profiles": {"a": {"kind": 12}})"),
        "profiles.a.kind: expected a whole number from 0 to 11");
    row("limit of a profile outside of the element's type",
        description(R"("profiles": {"a": {"limits": {"lower": -1}}}, "parameters": [{"number": 1,
            "name": "a", "coordinates": ["A01"], "elements": [{"profile": "a", "dataType": "UINT16"}]}])"),
        "profiles.a.limits.lower: expected a whole number from 0 to 65535");

    row("function index 0", description(R"("functions": {"limit": {"0": ""}})"),
        "functions.limit.0: expected a key that is a whole number from 1 to 65535");
    row("function index above 16 bits", description(R"("functions": {"limit": {"65536": ""}})"),
        "functions.limit.65536: expected a key that is a whole number from 1 to 65535");
    row("function that is no text", description(R"("functions": {"limit": {"1": 5}})"),
        "functions.limit.1: expected a text or a list of lines");
    row("line of a function that is no text",
        description(R"("functions": {"limit": {"1": ["return 1", 5]}})"),
        "functions.limit.1[1]: expected a text");
    row("function that is no program", description(R"("functions": {"hiding": {"7": "return ="}})"),
        "functions.hiding.7: line 1: unexpected symbol near '='");
    row("unknown kind of function", description(R"("functions": {"limits": {}})"),
        "functions.limits: unknown key; known are limit, scaling, hiding, preRead, preWrite, "
        "postRead, "
        "postWrite");
    row("system string 0", description(R"("systemStrings": {"0": ""})"),
        "systemStrings.0: expected a key that is a whole number from 1 to 65535");
}

void tst_ServoDriveFirmwareRefusals::refused()
{
    QFETCH(QByteArray, json);
    QTEST(errorOf(json), "error");
}

void tst_ServoDriveFirmwareRefusals::largestFile()
{
    constexpr qsizetype MostBytes = 67108864;
    const QString tooLarge = QStringLiteral("the file is larger than 67108864 bytes");
    QByteArray json = description(R"("parameters": [])");
    json.append(MostBytes - json.size(), ' ');
    QVERIFY(load(json));
    QCOMPARE(errorOf(json + ' '), QStringLiteral("d.json: ") + tooLarge);

    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("large.json"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(file.resize(MostBytes + 1));
    DescriptionError error;
    QVERIFY(!ServoDriveFirmware::loadFromFile(name, &error));
    QCOMPARE(error.reason, tooLarge);
}

/// The list is a value itself.
void tst_ServoDriveFirmwareRefusals::mostValues()
{
    const QByteArray largest = '[' + QByteArray("null,").repeated(3999998) + "null]";
    QCOMPARE(errorOf(largest), QStringLiteral("d.json: expected an object"));
    QCOMPARE(errorOf("[null," + largest.mid(1)),
        QStringLiteral("d.json: line 1, column 19999997: more than 4000000 values"));
}

void tst_ServoDriveFirmwareRefusals::familyThatContradicts()
{
    const auto withFamily = [](const QByteArray &family) {
        return R"({"format": "kr-device-description", "version": 1, "family": )" + family
            + R"(, "languages": ["en"], "dataTypes": [], "parameters": []})";
    };
    QVERIFY(load(
        withFamily(R"({"identifier": 5001, "name": "a", "hasPhysicalAxes": true, "axes": [1]})")));
    QVERIFY(load(withFamily(
        R"({"identifier": 5001, "name": "a", "hasPhysicalAxes": true, "axes": [1, 2]})")));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 5001, "name": "%1", "hasPhysicalAxes": true, "axes": [1]})")),
        QStringLiteral("d.json: family.name: the family 5001 is known already as \"a\", not as "
                       "\"%1\""));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 5001, "name": "a", "hasPhysicalAxes": false, "axes": [1]})")),
        QStringLiteral("d.json: family.hasPhysicalAxes: the family 5001 is known already, with "
                       "another value"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 0, "name": "a", "hasPhysicalAxes": false, "axes": [1]})")),
        QStringLiteral("d.json: family.identifier: expected a whole number from 1 to 4294967295"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 1, "name": "a", "hasPhysicalAxes": false, "axes": []})")),
        QStringLiteral("d.json: family.axes: expected at least one axis"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 1, "name": "a", "hasPhysicalAxes": false, "axes": [2, 1]})")),
        QStringLiteral("d.json: family.axes[1]: expected axes in ascending order"));
    QCOMPARE(errorOf(withFamily(
                 R"({"identifier": 1, "name": "a", "hasPhysicalAxes": false, "axes": [5]})")),
        QStringLiteral("d.json: family.axes[0]: expected a whole number from 1 to 4"));
}

void tst_ServoDriveFirmwareRefusals::languagesAndDataTypes()
{
    const auto withLists = [](const QByteArray &languages, const QByteArray &dataTypes) {
        return R"({"format": "kr-device-description", "version": 1, "family": {"identifier": 5003,
            "name": "a", "hasPhysicalAxes": true, "axes": [1]}, "languages": )"
            + languages + R"(, "dataTypes": )" + dataTypes + R"(, "parameters": []})";
    };
    QByteArray most = "\"l1\"";
    for (int i = 2; i <= 32; ++i)
        most += ", \"l" + QByteArray::number(i) + '"';
    QVERIFY(load(withLists('[' + most + ']', "[]")));
    QCOMPARE(errorOf(withLists('[' + most + ", \"l33\"]", "[]")),
        QStringLiteral("d.json: languages: expected 1 to 32 languages"));
    QCOMPARE(errorOf(withLists("[]", "[]")),
        QStringLiteral("d.json: languages: expected 1 to 32 languages"));
    QCOMPARE(errorOf(withLists(R"(["de", "de"])", "[]")),
        QStringLiteral("d.json: languages[1]: is listed twice"));
    QCOMPARE(errorOf(withLists(R"(["de", ""])", "[]")),
        QStringLiteral("d.json: languages[1]: expected a text that is not empty"));
    QCOMPARE(errorOf(withLists(R"(["de"])", R"(["INT8", "INT8"])")),
        QStringLiteral("d.json: dataTypes[1]: is listed twice"));
    QCOMPARE(errorOf(withLists(R"(["de"])", R"(["INT8", "int8"])")),
        QStringLiteral("d.json: dataTypes[1]: expected the short name of a data type, such as "
                       "\"UINT16\""));
}

void tst_ServoDriveFirmwareRefusals::nothingIsRegisteredWhenRefused()
{
    QCOMPARE(errorOf(R"({"format": "kr-device-description", "version": 1,
        "family": {"identifier": 5002, "name": "a", "hasPhysicalAxes": true, "axes": [1]},
        "languages": ["en"], "dataTypes": [], "parameters": [0]})"),
        QStringLiteral("d.json: parameters[0]: expected an object"));
    QVERIFY(!HardwareRepository::instance().deviceFamily(5002));
}

void tst_ServoDriveFirmwareRefusals::fileThatIsNotThere()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("none.json"));
    DescriptionError error;
    QVERIFY(!ServoDriveFirmware::loadFromFile(name, &error));
    QCOMPARE(error.file, name);
    QCOMPARE(error.path, QString());
    QVERIFY(error.isSet());
    QVERIFY(!ServoDriveFirmware::loadFromFile(folder.path(), &error));
    QVERIFY(error.isSet());
}

void tst_ServoDriveFirmwareRefusals::errorMayBeNull()
{
    QVERIFY(!ServoDriveFirmware::loadFromBytes("{}", QString(), nullptr));
    QVERIFY(!ServoDriveFirmware::loadFromFile(QString(), nullptr));
}

QTEST_APPLESS_MAIN(tst_ServoDriveFirmwareRefusals)

#include "tst_ServoDriveFirmwareRefusals.moc"

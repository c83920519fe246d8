#include "apps/import/EdsReader.h"
#include "apps/import/EdsSectionName.h"
#include "apps/import/ImportRemarks.h"
#include "apps/import/ObjectDictionaryReader.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_ObjectDictionary : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sectionName_data();
    void sectionName();
    void objects_data();
    void objects();
    void skipped_data();
    void skipped();
    void remark_data();
    void remark();
    void access_data();
    void access();
    void dataType_data();
    void dataType();
    void device();
    void nodeId_data();
    void nodeId();
    void valuesAndTheirLines();
    void compactSubObjects();
    void compactSubObjectsAreBounded();
    void anyPrefix();
    void randomSections();
};

namespace {

struct Read {
    ObjectDictionary dictionary;
    ImportRemarks remarks;
};

Read read(const QByteArray &text)
{
    Read result;
    result.dictionary =
        ObjectDictionaryReader::read(EdsReader::read(text, result.remarks), result.remarks);
    return result;
}

QByteArray value(const QByteArray &section)
{
    return "[" + section + "]\nParameterName=N\nDataType=0x0005\nAccessType=rw\n";
}

/// "6040" for a simple object, "1018:0,1" for a record with its sub-indices.
QString objectTexts(const ObjectDictionary &dictionary)
{
    QStringList texts;
    for (const DictionaryObject &object : dictionary.objects) {
        QString text = QString::number(object.index, 16);
        if (object.isRecord) {
            QStringList subs;
            for (const DictionaryEntry &entry : object.entries)
                subs.append(QString::number(entry.subIndex));
            text += u':' + subs.join(u',');
        }
        texts.append(text);
    }
    return texts.join(u' ');
}

QString skippedTexts(const ObjectDictionary &dictionary)
{
    QStringList texts;
    for (const SkippedObject &object : dictionary.skipped)
        texts.append(
            QString::number(object.line) + u' ' + object.place() + u": "_s + object.reason);
    return texts.join(u" | "_s);
}

QString remarkTexts(const ImportRemarks &remarks)
{
    QStringList texts;
    for (const ImportRemark &remark : remarks.sorted())
        texts.append(QString::number(remark.line) + u' ' + remark.text);
    return texts.join(u" | "_s);
}

} // namespace

void tst_ObjectDictionary::sectionName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("subIndex");

    using eKind = EdsSectionName::eKind;
    const auto row = [](const QString &name, eKind kind, int index = 0, int subIndex = 0) {
        QTest::newRow(qPrintable(name)) << name << int(kind) << index << subIndex;
    };
    row(u"6040"_s, eKind::Object, 0x6040);
    row(u"60FF"_s, eKind::Object, 0x60FF);
    row(u"60ff"_s, eKind::Object, 0x60FF);
    row(u"0x60FF"_s, eKind::Object, 0x60FF);
    row(u"FFFF"_s, eKind::Object, 0xFFFF);
    row(u"1018sub0"_s, eKind::SubObject, 0x1018, 0);
    row(u"1A00Sub1"_s, eKind::SubObject, 0x1A00, 1);
    row(u"1a00SUB0a"_s, eKind::SubObject, 0x1A00, 10);
    row(u"1018sub FF"_s, eKind::SubObject, 0x1018, 255);
    row(u"1003Name"_s, eKind::NameList, 0x1003);
    row(u"1003Default"_s, eKind::DefaultList, 0x1003);
    row(u"1003Value"_s, eKind::ValueList, 0x1003);
    row(u"1003Denotation"_s, eKind::Accessory, 0x1003);
    row(u"1003ObjectLinks"_s, eKind::Accessory, 0x1003);
    row(u"MandatoryObjects"_s, eKind::ObjectList);
    row(u"optionalobjects"_s, eKind::ObjectList);
    row(u"ManufacturerObjects"_s, eKind::ObjectList);
    row(u"FileInfo"_s, eKind::Administration);
    row(u"DeviceComissioning"_s, eKind::Administration);
    row(u"DeviceCommissioning"_s, eKind::Administration);
    row(u"0000"_s, eKind::Unknown);
    row(u"604"_s, eKind::Unknown);
    row(u"60400"_s, eKind::Unknown);
    row(u"10G0"_s, eKind::Unknown);
    row(u"+123"_s, eKind::Unknown);
    row(u"1018sub"_s, eKind::Unknown);
    row(u"1018sub100"_s, eKind::Unknown);
    row(u"1018subx"_s, eKind::Unknown);
    row(u"1018sub-1"_s, eKind::Unknown);
    row(u"1018sub0x1"_s, eKind::Unknown);
    row(u"VendorSpecific"_s, eKind::Unknown);
}

void tst_ObjectDictionary::sectionName()
{
    QFETCH(QString, name);
    QFETCH(int, kind);
    QFETCH(int, index);
    QFETCH(int, subIndex);

    const EdsSectionName parsed = EdsSectionName::parse(name);
    QCOMPARE(int(parsed.kind), kind);
    QCOMPARE(int(parsed.index), index);
    QCOMPARE(int(parsed.subIndex), subIndex);
}

void tst_ObjectDictionary::objects_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing") << ""_ba << QString();
    QTest::newRow("simple object") << value("6040") + "ObjectType=0x7\n" << u"6040"_s;
    QTest::newRow("object type decimal") << value("6040") + "ObjectType=7\n" << u"6040"_s;
    QTest::newRow("object type missing") << value("6040") << u"6040"_s;
    QTest::newRow("object type empty") << value("6040") + "ObjectType=\n" << u"6040"_s;
    QTest::newRow("record") << "[1018]\nObjectType=9\nSubNumber=2\n"_ba + value("1018sub0")
            + value("1018sub1")
                            << u"1018:0,1"_s;
    QTest::newRow("array") << "[1003]\nObjectType=0x8\n"_ba + value("1003sub0") << u"1003:0"_s;
    QTest::newRow("record without object type") << "[1018]\n"_ba + value("1018sub1") << u"1018:1"_s;
    QTest::newRow("simple object with sub-objects")
        << value("1018") + "ObjectType=7\n" + value("1018sub1") << u"1018:1"_s;
    QTest::newRow("sub-objects without object") << value("1018sub1") << u"1018:1"_s;
    QTest::newRow("sub-objects before their object") << value("1018sub1") + "[1018]\nObjectType=9\n"
                                                     << u"1018:1"_s;
    QTest::newRow("missing sub-indices")
        << "[1018]\nObjectType=9\n"_ba + value("1018sub0") + value("1018sub4") << u"1018:0,4"_s;
    QTest::newRow("sub-indices out of order, hexadecimal")
        << "[1018]\nObjectType=9\n"_ba + value("1018subA") + value("1018sub9") << u"1018:9,10"_s;
    QTest::newRow("digits in either case")
        << value("60ff") + value("60FE") + value("1a00SUB1") << u"1a00:1 60fe 60ff"_s;
    QTest::newRow("objects out of order") << value("6041") + value("6040") << u"6040 6041"_s;
    QTest::newRow("object twice") << value("6040") + value("6040") << u"6040"_s;
    QTest::newRow("manufacturer keys") << value("6040") + "ObjFlags=0x3\nX-Unit=mm\n;y\nEnum0=a\n"
                                       << u"6040"_s;
    QTest::newRow("manufacturer sections")
        << "[Vendor Stuff]\nA=1\n"_ba + value("6040") << u"6040"_s;
    QTest::newRow("a record keeps the sub-objects that have a value") << "[1018]\nObjectType=9\n"_ba
            + value("1018sub0") + "[1018sub1]\nObjectType=2\n" << u"1018:0"_s;
}

void tst_ObjectDictionary::objects()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);

    QCOMPARE(objectTexts(read(text).dictionary), expected);
}

void tst_ObjectDictionary::skipped_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("DOMAIN object") << value("1F50") + "ObjectType=2\n"
                                   << u"1 0x1F50: DOMAIN, ein Datenblock ohne eigenen Wert"_s;
    QTest::newRow("DOMAIN sub-object")
        << value("1F50sub0") + "[1F50sub1]\nObjectType=0x2\n"
        << u"5 0x1F50 sub 1: DOMAIN, ein Datenblock ohne eigenen Wert"_s;
    QTest::newRow("NULL") << value("2000") + "ObjectType=0\n"
                          << u"1 0x2000: NULL, ein Objekt ohne Inhalt"_s;
    QTest::newRow("DEFTYPE") << value("2000") + "ObjectType=5\n"
                             << u"1 0x2000: beschreibt einen Datentyp"_s;
    QTest::newRow("DEFSTRUCT") << value("2000") + "ObjectType=6\n"
                               << u"1 0x2000: beschreibt einen Datentyp"_s;
    QTest::newRow("unknown object type") << value("2000") + "ObjectType=0x63\n"
                                         << u"1 0x2000: die Objektart 99 ist unbekannt"_s;
    QTest::newRow("index of a data type")
        << value("0005") << u"1 0x0005: Indizes unter 0x1000 beschreiben Datentypen"_s;
    QTest::newRow("no data type") << "[2000]\nAccessType=rw\n"_ba
                                  << u"1 0x2000: hat keinen Datentyp"_s;
    QTest::newRow("data type no number")
        << "[2000]\nDataType=BYTE\n"_ba << u"1 0x2000: der Datentyp \"BYTE\" ist keine Zahl"_s;
    QTest::newRow("record without sub-objects")
        << "[2000]\nObjectType=9\n"_ba << u"1 0x2000: hat keine Unterobjekte"_s;
    QTest::newRow("record without values")
        << "[2000]\nObjectType=9\n[2000sub1]\nObjectType=2\n"_ba
        << u"3 0x2000 sub 1: DOMAIN, ein Datenblock ohne eigenen Wert | "
           "1 0x2000: keines seiner Unterobjekte hat einen Wert"_s;
    QTest::newRow("lists without object")
        << "[2000Name]\n1=A\n"_ba << u"1 0x2000: nur Listen, aber kein Abschnitt des Objekts"_s;
    QTest::newRow("listed without section")
        << "[OptionalObjects]\nSupportedObjects=1\n1=0x2000\n"_ba
        << u"3 0x2000: aufgeführt, aber ohne Abschnitt"_s;
    QTest::newRow("listed twice without section")
        << "[OptionalObjects]\n1=0x2000\n[ManufacturerObjects]\n1=0x2000\n"_ba
        << u"2 0x2000: aufgeführt, aber ohne Abschnitt"_s;
}

void tst_ObjectDictionary::skipped()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);

    QCOMPARE(skippedTexts(read(text).dictionary), expected);
}

void tst_ObjectDictionary::remark_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("nothing odd") << "[OptionalObjects]\nSupportedObjects=1\n1=0x6040\n"_ba
            + value("6040") << QString();
    QTest::newRow("listed without 0x")
        << "[OptionalObjects]\nSupportedObjects=1\n1=6040\n"_ba + value("6040") << QString();
    QTest::newRow("wrong count") << "[OptionalObjects]\nSupportedObjects=0x2\n1=0x6040\n"_ba
            + value("6040") << u"2 \"SupportedObjects=0x2\" weicht ab; die Liste nennt 1"_s;
    QTest::newRow("no index in a list") << "[OptionalObjects]\n1=0x6040\n2=x\n"_ba + value("6040")
                                        << u"3 \"2=x\" ist kein Index, übersprungen"_s;
    QTest::newRow("not listed") << "[OptionalObjects]\nSupportedObjects=0\n"_ba + value("6040")
                                << u"3 0x6040 steht in keiner Objektliste"_s;
    QTest::newRow("no lists at all") << value("6040") << QString();
    QTest::newRow("wrong SubNumber") << "[1018]\nObjectType=9\nSubNumber=0x3\n"_ba
            + value("1018sub0") << u"3 \"SubNumber=0x3\" weicht ab; die Datei nennt 1"_s;
    QTest::newRow("right SubNumber")
        << "[1018]\nObjectType=9\nSubNumber=0x1\n"_ba + value("1018sub0") << QString();
    QTest::newRow("empty SubNumber")
        << "[1018]\nObjectType=9\nSubNumber=\n"_ba + value("1018sub0") << QString();
    QTest::newRow("sub-objects without object")
        << value("1018sub0") << u"1 0x1018 hat Unterobjekte, aber keinen eigenen Abschnitt"_s;
    QTest::newRow("simple object with sub-objects")
        << "[1018]\nObjectType=7\n"_ba + value("1018sub0")
        << u"2 \"ObjectType=7\" nennt einen einzelnen Wert, aber es gibt Unterobjekte"_s;
    QTest::newRow("object type no number") << value("6040")
            + "ObjectType=VAR\n" << u"5 \"ObjectType=VAR\" ist keine Objektart; gilt als fehlend"_s;
    QTest::newRow("same object under two names")
        << value("6040") + value("0x6040")
        << u"5 der Abschnitt \"0x6040\" wiederholt \"6040\" aus Zeile 1, übersprungen"_s;
    QTest::newRow("same sub-object under two names")
        << value("6040sub1") + value("6040sub01") + "[6040]\nObjectType=9\n"
        << u"5 der Abschnitt \"6040sub01\" wiederholt \"6040sub1\" aus Zeile 1, übersprungen"_s;
    QTest::newRow("unknown section") << "[Vendor]\nA=1\n"_ba
            + value("6040") << u"1 der Abschnitt \"Vendor\" nennt kein Objekt, übersprungen"_s;
    QTest::newRow("PDOMapping no number") << value("6040")
            + "PDOMapping=yes\n" << u"5 \"PDOMapping=yes\" ist keine 32-Bit-Zahl und zählt als 0"_s;
    QTest::newRow("CompactPDO")
        << "[DeviceInfo]\nCompactPDO=0x1\n"_ba + value("6040")
        << u"2 \"CompactPDO=0x1\" lässt PDO-Objekte aus; sie werden nicht ergänzt"_s;
    QTest::newRow("CompactSubObj no number")
        << value("1003") + "CompactSubObj=x\n"
        << u"5 \"CompactSubObj=x\" ist keine Anzahl von Unterobjekten von 0 bis 254; übersprungen"_s;
    QTest::newRow("CompactSubObj too large")
        << value("1003") + "CompactSubObj=255\n"
        << u"5 \"CompactSubObj=255\" ist keine Anzahl von Unterobjekten von 0 bis 254; übersprungen"_s;
}

void tst_ObjectDictionary::remark()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, expected);

    QCOMPARE(remarkTexts(read(text).remarks), expected);
}

void tst_ObjectDictionary::access_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("expected");
    QTest::addColumn<QString>("remark");

    const auto row = [](const char *name, const QByteArray &line, eObjectAccess access,
                         const QString &remark = QString()) {
        QTest::newRow(name) << line << int(access) << remark;
    };
    row("ro", "AccessType=ro"_ba, eObjectAccess::ReadOnly);
    row("const", "AccessType=const"_ba, eObjectAccess::ReadOnly);
    row("wo", "AccessType=wo"_ba, eObjectAccess::WriteOnly);
    row("rw", "AccessType=rw"_ba, eObjectAccess::ReadWrite);
    row("rwr", "AccessType=rwr"_ba, eObjectAccess::ReadWrite);
    row("rww", "AccessType=rww"_ba, eObjectAccess::ReadWrite);
    row("upper case", "AccessType=RW"_ba, eObjectAccess::ReadWrite);
    row("mixed case", "AccessType=Const"_ba, eObjectAccess::ReadOnly);
    row("missing", ""_ba, eObjectAccess::ReadOnly,
        u"1 der Abschnitt \"2000\" hat keine Zugriffsart; nur lesbar"_s);
    row("unknown", "AccessType=rx"_ba, eObjectAccess::ReadOnly,
        u"3 \"AccessType=rx\" ist keine Zugriffsart; nur lesbar"_s);
}

void tst_ObjectDictionary::access()
{
    QFETCH(QByteArray, line);
    QFETCH(int, expected);
    QFETCH(QString, remark);

    const Read result = read("[2000]\nDataType=5\n" + line + "\n");
    QCOMPARE(int(result.dictionary.objects.value(0x2000).entries.first().access), expected);
    QCOMPARE(remarkTexts(result.remarks), remark);
}

void tst_ObjectDictionary::dataType_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint32>("expected");

    QTest::newRow("four digits") << "0x0007"_ba << 7U;
    QTest::newRow("one digit") << "0x7"_ba << 7U;
    QTest::newRow("without 0x") << "7"_ba << 7U;
    QTest::newRow("decimal") << "27"_ba << 27U;
    QTest::newRow("upper case") << "0X001B"_ba << 27U;
    QTest::newRow("leading zeros") << "0007"_ba << 7U;
}

void tst_ObjectDictionary::dataType()
{
    QFETCH(QByteArray, text);
    QFETCH(quint32, expected);

    const Read result = read("[2000]\nAccessType=rw\nDataType=" + text + "\n");
    QCOMPARE(result.dictionary.objects.value(0x2000).entries.first().dataType, expected);
}

void tst_ObjectDictionary::device()
{
    const Read result = read("[FileInfo]\nDescription=A drive\n"
                             "[DeviceInfo]\nVendorName=V\tW\nVendorNumber=0x1A3\nProductName=P\n"
                             "ProductNumber=66\n");
    QCOMPARE(result.dictionary.device.vendorName, u"V W"_s);
    QCOMPARE(result.dictionary.device.productName, u"P"_s);
    QCOMPARE(result.dictionary.device.description, u"A drive"_s);
    QCOMPARE(result.dictionary.device.vendorNumber, 419U);
    QCOMPARE(result.dictionary.device.productNumber, 66U);
    QCOMPARE(remarkTexts(result.remarks), QString());

    const Read odd = read("[DeviceInfo]\nVendorNumber=x\nProductNumber=0x100000000\n");
    QCOMPARE(odd.dictionary.device.vendorNumber, 0U);
    QCOMPARE(odd.dictionary.device.productNumber, 0U);
    QCOMPARE(remarkTexts(odd.remarks),
        u"2 \"VendorNumber=x\" ist keine 32-Bit-Zahl und zählt als 0 | "
        "3 \"ProductNumber=0x100000000\" ist keine 32-Bit-Zahl und zählt als 0"_s);
}

void tst_ObjectDictionary::nodeId_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("expected");

    QTest::newRow("as the standard spells it") << "[DeviceComissioning]\nNodeID=3\n"_ba << 3;
    QTest::newRow("spelt right") << "[DeviceCommissioning]\nNodeId=0x7F\n"_ba << 127;
    QTest::newRow("zero") << "[DeviceComissioning]\nNodeID=0\n"_ba << 0;
    QTest::newRow("too large") << "[DeviceComissioning]\nNodeID=128\n"_ba << 0;
    QTest::newRow("empty") << "[DeviceComissioning]\nNodeID=\n"_ba << 0;
    QTest::newRow("no number") << "[DeviceComissioning]\nNodeID=x\n"_ba << 0;
    QTest::newRow("none") << ""_ba << 0;
}

void tst_ObjectDictionary::nodeId()
{
    QFETCH(QByteArray, text);
    QFETCH(int, expected);

    QCOMPARE(int(read(text).dictionary.device.nodeId.value_or(0)), expected);
}

void tst_ObjectDictionary::valuesAndTheirLines()
{
    const Read result = read("[607A]\nParameterName=Target position\nDenotation=lift\nDataType=4\n"
                             "AccessType=rww\nPDOMapping=1\nDefaultValue=0x10\nLowLimit=-5\n"
                             "HighLimit=\nParameterValue=7\n");
    const DictionaryObject object = result.dictionary.objects.value(0x607A);
    QCOMPARE(object.name, u"Target position"_s);
    QCOMPARE(object.denotation, u"lift"_s);
    QVERIFY(!object.isRecord);
    const DictionaryEntry entry = object.entries.first();
    QCOMPARE(entry.name, u"Target position"_s);
    QVERIFY(entry.isMappable);
    QCOMPARE(entry.defaultValue.text, u"0x10"_s);
    QCOMPARE(entry.defaultValue.line, 7);
    QCOMPARE(entry.lowLimit.text, u"-5"_s);
    QCOMPARE(entry.highLimit.text, QString());
    QCOMPARE(entry.highLimit.line, 9);
    QCOMPARE(entry.configuredValue.text, u"7"_s);
    QCOMPARE(entry.configuredValue.line, 10);
}

void tst_ObjectDictionary::compactSubObjects()
{
    const Read result = read(
        "[1003]\nParameterName=Error\nObjectType=8\nDataType=7\nAccessType=ro\nDefaultValue=9\n"
        "ParameterValue=4\nCompactSubObj=4\n"
        "[1003Name]\nNrOfEntries=1\n2=Second\n"
        "[1003Default]\nNrOfEntries=2\n2=5\n3=\n"
        "[1003Value]\nNrOfEntries=1\n4=6\n"
        "[1003sub1]\nParameterName=Own\nDataType=6\nAccessType=rw\nDefaultValue=1\n");
    QCOMPARE(objectTexts(result.dictionary), u"1003:0,1,2,3,4"_s);
    QCOMPARE(remarkTexts(result.remarks), QString());

    QStringList texts;
    for (const DictionaryEntry &entry : result.dictionary.objects.value(0x1003).entries) {
        texts.append(QStringList {entry.name, QString::number(entry.dataType),
            entry.defaultValue.text, entry.configuredValue.text}
                         .join(u'/'));
    }
    QCOMPARE(texts,
        (QStringList {u"NrOfObjects/5/4/"_s, u"Own/6/1/"_s, u"Second/7/5/"_s, u"Error3/7//"_s,
            u"Error4/7/9/6"_s}));
}

void tst_ObjectDictionary::compactSubObjectsAreBounded()
{
    QByteArray text;
    for (int index = 0x2000; index < 0x2200; ++index) {
        text += "[" + QByteArray::number(index, 16)
            + "]\nObjectType=8\nDataType=5\nAccessType=ro\nCompactSubObj=254\n";
    }
    const Read result = read(text);
    // 258 times 254 is the most that stays within 65536.
    QCOMPARE(result.dictionary.objects.size(), 258);
    QCOMPARE(result.dictionary.skipped.size(), 254);
}

void tst_ObjectDictionary::anyPrefix()
{
    const QByteArray whole =
        "[OptionalObjects]\r\nSupportedObjects=2\r\n1=0x1003\r\n2=0x6040\r\n"
        "[1003]\nObjectType=8\nDataType=7\nCompactSubObj=3\n[1003Value]\n1=2\n"_ba
        + value("6040") + value("1018sub1");
    for (qsizetype length = 0; length <= whole.size(); ++length)
        QVERIFY(read(whole.first(length)).dictionary.objects.size() <= 3);
}

void tst_ObjectDictionary::randomSections()
{
    QRandomGenerator random(301);
    const QByteArrayList parts {"[1003]\n", "[1003sub", "0]\n", "1]\n", "[6040]\n", "[1003Name]\n",
        "[1003Value]\n", "[OptionalObjects]\n",
        "ObjectType=", "DataType=", "CompactSubObj=", "SubNumber=", "AccessType=rw\n", "0x", "7\n",
        "9\n", "254\n", "-1\n", "$NODEID+", "\n", "1=", "[", "]", "=", "\xFF", QByteArray(1, '\0')};
    for (int run = 0; run < 500; ++run) {
        QByteArray text;
        for (int count = random.bounded(60); count > 0; --count)
            text += parts.at(random.bounded(int(parts.size())));
        for (const DictionaryObject &object : read(text).dictionary.objects)
            QVERIFY(!object.entries.isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_ObjectDictionary)
#include "tst_ObjectDictionary.moc"

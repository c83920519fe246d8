#include "apps/import/ObjectDictionaryImport.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterDefinition/RecordParameterDefinition.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QLockFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <array>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;
using eStatus = ImportResult::eStatus;

class tst_ObjectDictionaryImport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void wholeImport();
    void reportText();
    void reportJson();
    void configuredValues();
    void firmwareLoadsEveryType();
    void firmwareLoadsDamagedSheets();
    void twice();
    void eitherOrderOfFiles();
    void storedCoordinatesStay();
    void badRequest_data();
    void badRequest();
    void unreadable_data();
    void unreadable();
    void parallelImports();
    void heldTable();
    void nothingUsableIsReported();
    void writeFails_data();
    void writeFails();
    void anyPrefix();
    void randomBytes();

private:
    QString path(const QString &name) const { return m_folder->filePath(name); }
    void put(const QString &name, const QByteArray &bytes) const;
    QByteArray get(const QString &name) const;
    ImportResult import(const QString &source) const;
    std::unique_ptr<ServoDriveFirmware> load(const QString &source, QString &error) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

const QByteArray Sheet =
    "[DeviceInfo]\r\nVendorName=V\r\nVendorNumber=0x1A3\r\nProductName=P\r\n"
    "ProductNumber=66\r\n"
    "[DeviceComissioning]\r\nNodeID=5\r\n"
    "[1014]\r\nParameterName=COB-ID EMCY\r\nObjectType=0x7\r\nDataType=0x0007\r\n"
    "AccessType=rw\r\nDefaultValue=$NODEID+0x80\r\n"
    "[1018]\r\nParameterName=Identity\r\nObjectType=0x9\r\n"
    "[1018sub1]\r\nParameterName=Vendor\r\nDataType=7\r\nAccessType=ro\r\n"
    "[1018sub2]\r\nParameterName=Block\r\nDataType=0xF\r\nAccessType=ro\r\n"
    "[1F50]\r\nParameterName=Program\r\nObjectType=2\r\n"
    "[6040]\r\nParameterName=Controlword\r\nDataType=6\r\nAccessType=rww\r\n"
    "ParameterValue=0x0F\r\n"_ba;

QByteArray simpleObjects(const QByteArrayList &indices)
{
    QByteArray text;
    for (const QByteArray &index : indices)
        text += "[" + index + "]\nDataType=5\nAccessType=rw\n";
    return text;
}

} // namespace

void tst_ObjectDictionaryImport::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_ObjectDictionaryImport::put(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray tst_ObjectDictionaryImport::get(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "(none)"_ba;
}

ImportResult tst_ObjectDictionaryImport::import(const QString &source) const
{
    return importObjectDictionary(
        {path(source), path(u"table.txt"_s), path(source + u".json"_s), std::nullopt});
}

std::unique_ptr<ServoDriveFirmware> tst_ObjectDictionaryImport::load(
    const QString &source, QString &error) const
{
    DescriptionError found;
    auto firmware = ServoDriveFirmware::loadFromFile(path(source + u".json"_s), &found);
    error = found.toText();
    return firmware;
}

void tst_ObjectDictionaryImport::wholeImport()
{
    put(u"a.eds"_s, Sheet);
    const ImportResult result = import(u"a.eds"_s);
    QCOMPARE(result.error, QString());
    QCOMPARE(int(result.status), int(eStatus::Good));
    QVERIFY(get(u"table.txt"_s).endsWith("0x1014 C20\n0x1018 C24\n0x6040 P64\n"));
    const QJsonObject root = QJsonDocument::fromJson(get(u"a.eds.json"_s)).object();
    const QJsonArray parameters = root[u"parameters"_s].toArray();
    QCOMPARE(parameters.size(), 3);
    QCOMPARE(parameters[0][u"elements"_s][0][u"default"_s].toString(), u"133"_s);
    QCOMPARE(parameters[1][u"coordinates"_s][0].toString(), u"C24"_s);
    QCOMPARE(parameters[1][u"elements"_s].toArray().size(), 1);
    QCOMPARE(parameters[2][u"name"_s].toString(), u"Controlword"_s);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files),
        (QStringList {u"a.eds"_s, u"a.eds.json"_s, u"table.txt"_s}));
}

void tst_ObjectDictionaryImport::reportText()
{
    put(u"a.eds"_s, Sheet);
    ImportReport report = import(u"a.eds"_s).report;
    report.fileName = u"a.eds"_s;
    QCOMPARE(report.toText(),
        u"a.eds: 3 Objekte gelesen (3 Elemente), 1 übersprungen\n"
        "  Gerätefamilie 3564946307 (V P)\n"
        "  Knotennummer 5\n"
        "  3 neue Koordinaten\n"
        "  1 konfigurierte Werte\n"
        "  übersprungen 0x1018 sub 2 (Zeile 21): eine Gerätebeschreibung hat keinen Datentyp für "
        "DOMAIN\n"
        "  übersprungen 0x1F50 (Zeile 25): DOMAIN, ein Datenblock ohne eigenen Wert\n"_s);

    report.fileName = u"%2%3.eds"_s;
    QVERIFY(report.toText().startsWith(
        u"%2%3.eds: 3 Objekte gelesen (3 Elemente), 1 übersprungen\n"_s));

    put(u"b.eds"_s, simpleObjects({"6040"}) + "what\nPDOMapping=x\n");
    report = import(u"b.eds"_s).report;
    QVERIFY(report.toText().endsWith(
        u"  Knotennummer nicht bekannt; 0 Werte hängen von ihr ab\n  0 neue Koordinaten\n  0 "
        u"konfigurierte Werte\n"
        "  Zeile 4: weder Abschnitt noch Eintrag noch Kommentar, übersprungen: \"what\"\n"
        "  Zeile 5: \"PDOMapping=x\" ist keine 32-Bit-Zahl und zählt als 0\n"_s));

    put(u"c.eds"_s, simpleObjects({"6040"}) + QByteArray("what\n").repeated(1002));
    QVERIFY(import(u"c.eds"_s).report.toText().endsWith(u"  2 weitere Bemerkungen\n"_s));
}

void tst_ObjectDictionaryImport::reportJson()
{
    put(u"a.eds"_s, Sheet + "what\n");
    QJsonObject report = import(u"a.eds"_s).report.toJson();
    report[u"file"_s] = u"a.eds"_s;
    QCOMPARE(QJsonDocument(report).toJson(QJsonDocument::Compact),
        R"({"configuredValues":1,"elementsRead":3,"family":{"identifier":3564946307,"name":"V P"},)"
        R"("file":"a.eds","newCoordinates":3,"nodeId":5,"objectsRead":3,"objectsSkipped":1,)"
        R"("omittedRemarks":0,)"
        R"("remarks":[{"line":33,"text":"weder Abschnitt noch Eintrag noch Kommentar, übersprungen: \"what\""}],)"
        R"("skipped":[{"index":"0x1018","line":21,)"
        R"("reason":"eine Gerätebeschreibung hat keinen Datentyp für DOMAIN","subIndex":2},)"
        R"({"index":"0x1F50","line":25,)"
        R"("reason":"DOMAIN, ein Datenblock ohne eigenen Wert"}],"valuesWithoutNodeId":0})"_ba);
}

void tst_ObjectDictionaryImport::configuredValues()
{
    put(u"a.dcf"_s, Sheet);
    const ImportResult result = import(u"a.dcf"_s);
    QCOMPARE(result.configuredValues.list().size(), 1);
    QCOMPARE(result.configuredValues.list().first().coordinate.toText(), u"P64"_s);
    QCOMPARE(result.configuredValues.list().first().element, quint16(0));
    QCOMPARE(result.configuredValues.list().first().nativeText, u"15"_s);
}

void tst_ObjectDictionaryImport::firmwareLoadsEveryType()
{
    QByteArray text = "[DeviceInfo]\nVendorName=V\nProductName=Every type\n"
                      "[2000]\nParameterName=Record\nObjectType=9\n"_ba;
    QByteArrayList defaults(0x1C, "1");
    defaults[0x04] = "-2147483648";
    defaults[0x08] = "3.4028235e38";
    defaults[0x09] = "a \"text\" \xC3\xBC";
    defaults[0x0A] = "00 FF";
    defaults[0x11] = "5e-324";
    defaults[0x15] = "0x8000000000000000";
    defaults[0x1B] = "18446744073709551615";
    for (qsizetype type = 0; type < defaults.size(); ++type) {
        const QByteArray keys = "DataType=" + QByteArray::number(type)
            + "\nAccessType=rw\nDefaultValue=" + defaults.at(type) + "\n";
        text += "[2000sub" + QByteArray::number(type, 16) + "]\n" + keys;
        text += "[" + QByteArray::number(0x3000 + type, 16) + "]\n" + keys;
    }
    put(u"a.eds"_s, text);
    const ImportResult result = import(u"a.eds"_s);
    QCOMPARE(result.report.objectsRead, 23);
    QCOMPARE(result.report.elementsRead, 44);

    QString error;
    const auto firmware = load(u"a.eds"_s, error);
    QCOMPARE(error, QString());
    QVERIFY(firmware != nullptr);
    QCOMPARE(firmware->warnings(), QStringList());
    QCOMPARE(firmware->deviceFamilyIdentifier(), result.report.familyIdentifier);
    QCOMPARE(firmware->deviceFamilyName(), u"V Every type"_s);
    QCOMPARE(firmware->parameterNumbers().size(), 23);
    ParameterDefinition *record = firmware->parameterDefinition(0x2000);
    QVERIFY(record != nullptr);
    QVERIFY(record->isRecordParameterDefinition());
    QVERIFY(record->isGlobalParameter());
    QCOMPARE(record->elementCount(), quint16(22));
    QCOMPARE(record->elementDefaultValue(0x1B), u"18446744073709551615"_s);
    const auto defaultOf = [&firmware](quint32 number) {
        return firmware->parameterDefinition(number)->elementDefaultValue(0);
    };
    QCOMPARE(defaultOf(0x3004), u"-2147483648"_s);
    QCOMPARE(defaultOf(0x3009), u"a \"text\" \u00FC"_s);
    QCOMPARE(defaultOf(0x300A), u"00ff"_s);
    QCOMPARE(defaultOf(0x3015), u"-9223372036854775808"_s);
}

void tst_ObjectDictionaryImport::firmwareLoadsDamagedSheets()
{
    QRandomGenerator random(20);
    const QByteArrayList values {"", "0", "1", "-1", "0x7F", "0xFF", "0xFFFFFFFF", "256", "1.5",
        "x", "$NODEID+1", "18446744073709551615", "true", "\xE9", "01 02"};
    const QByteArrayList keys {"DefaultValue", "LowLimit", "HighLimit", "DataType",
        "ParameterValue", "ParameterName", "AccessType", "PDOMapping", "CompactSubObj",
        "ObjectType"};
    int loaded = 0;
    for (int run = 0; run < 60; ++run) {
        QByteArray text = simpleObjects({"6040"});
        for (int object = 0x2000; object < 0x2010; ++object) {
            text += "[" + QByteArray::number(object, 16) + (random.bounded(3) == 0 ? "sub1" : "")
                + "]\nDataType=" + QByteArray::number(random.bounded(0x1C)) + "\n";
            for (int count = random.bounded(6); count > 0; --count) {
                text += keys.at(random.bounded(int(keys.size()))) + "="
                    + values.at(random.bounded(int(values.size()))) + "\n";
            }
        }
        put(u"a.eds"_s, text);
        const ImportResult result = import(u"a.eds"_s);
        QCOMPARE(result.error, QString());
        QString error;
        const auto firmware = load(u"a.eds"_s, error);
        QVERIFY2(firmware != nullptr, qPrintable(error + u'\n' + QString::fromLatin1(text)));
        QCOMPARE(firmware->warnings(), QStringList());
        QCOMPARE(firmware->parameterNumbers().size(), result.report.objectsRead);
        ++loaded;
    }
    QCOMPARE(loaded, 60);
}

void tst_ObjectDictionaryImport::twice()
{
    put(u"a.eds"_s, Sheet);
    QCOMPARE(import(u"a.eds"_s).report.newCoordinates, 3);
    const QByteArray table = get(u"table.txt"_s);
    const QByteArray description = get(u"a.eds.json"_s);
    QCOMPARE(import(u"a.eds"_s).report.newCoordinates, 0);
    QCOMPARE(get(u"table.txt"_s), table);
    QCOMPARE(get(u"a.eds.json"_s), description);
}

void tst_ObjectDictionaryImport::eitherOrderOfFiles()
{
    put(u"a.eds"_s, simpleObjects({"6040", "2000", "5FFF", "1000"}));
    put(u"b.eds"_s, simpleObjects({"5FFE", "6041", "1000", "2001", "B000"}));
    import(u"a.eds"_s);
    import(u"b.eds"_s);
    const QByteArray first = get(u"a.eds.json"_s);
    const QByteArray second = get(u"b.eds.json"_s);
    QVERIFY(QFile::remove(path(u"table.txt"_s)));
    import(u"b.eds"_s);
    import(u"a.eds"_s);
    QCOMPARE(get(u"a.eds.json"_s), first);
    QCOMPARE(get(u"b.eds.json"_s), second);
}

void tst_ObjectDictionaryImport::storedCoordinatesStay()
{
    put(u"table.txt"_s, "0x6040 E40");
    put(u"a.eds"_s, simpleObjects({"6040", "6041"}));
    QCOMPARE(int(import(u"a.eds"_s).status), int(eStatus::Good));
    QCOMPARE(get(u"table.txt"_s), "0x6040 E40\n0x6041 P65\n"_ba);
    const QJsonObject root = QJsonDocument::fromJson(get(u"a.eds.json"_s)).object();
    QCOMPARE(root[u"parameters"_s][0][u"coordinates"_s][0].toString(), u"E40"_s);
}

void tst_ObjectDictionaryImport::badRequest_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("nodeId");

    QTest::newRow("no source") << QStringList {QString(), u"t"_s, u"o"_s} << -1;
    QTest::newRow("no table") << QStringList {u"a.eds"_s, QString(), u"o"_s} << -1;
    QTest::newRow("no output") << QStringList {u"a.eds"_s, u"t"_s, QString()} << -1;
    QTest::newRow("output is the table") << QStringList {u"a.eds"_s, u"t"_s, u"t"_s} << -1;
    QTest::newRow("output is the table by another way")
        << QStringList {u"a.eds"_s, u"t"_s, u"./t"_s} << -1;
    QTest::newRow("output is the source") << QStringList {u"a.eds"_s, u"t"_s, u"a.eds"_s} << -1;
    QTest::newRow("table is the source") << QStringList {u"a.eds"_s, u"a.eds"_s, u"o"_s} << -1;
    QTest::newRow("node id 0") << QStringList {u"a.eds"_s, u"t"_s, u"o"_s} << 0;
    QTest::newRow("node id 128") << QStringList {u"a.eds"_s, u"t"_s, u"o"_s} << 128;
}

void tst_ObjectDictionaryImport::badRequest()
{
    QFETCH(QStringList, names);
    QFETCH(int, nodeId);

    put(u"a.eds"_s, Sheet);
    for (QString &name : names)
        name = name.isEmpty() ? name : path(name);
    const ImportResult result = importObjectDictionary({names.at(0), names.at(1), names.at(2),
        nodeId < 0 ? std::nullopt : std::optional<quint8>(quint8(nodeId))});
    QCOMPARE(int(result.status), int(eStatus::BadRequest));
    QVERIFY(!result.error.isEmpty());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList {u"a.eds"_s});
    QCOMPARE(get(u"a.eds"_s), Sheet);
}

void tst_ObjectDictionaryImport::unreadable_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("error");

    QTest::newRow("no source") << "(none)"_ba
                               << ""_ba << u"a.eds: ist nicht vorhanden"_s;
    QTest::newRow("empty source") << ""_ba
                                  << ""_ba << u"a.eds: enthält kein Objekt mit einem Wert"_s;
    QTest::newRow("source of noise") << "\xFF\x00\x01[[["_ba
                                     << ""_ba << u"a.eds: enthält kein Objekt mit einem Wert"_s;
    QTest::newRow("nothing but skipped objects")
        << "[1F50]\nObjectType=2\n"_ba
        << ""_ba << u"a.eds: enthält kein Objekt mit einem Wert"_s;
    QTest::newRow("malformed table")
        << Sheet << "0x6040 E40\nE41\n"_ba
        << u"table.txt: Zeile 2: erwartet werden ein Index und eine Koordinate"_s;
    QTest::newRow("conflict in the table")
        << Sheet << "0x6040 E40\n0x9FFF E40\n"_ba
        << u"table.txt: Zeile 2: die Koordinate E40 gehört schon zu 0x6040"_s;
}

void tst_ObjectDictionaryImport::unreadable()
{
    QFETCH(QByteArray, source);
    QFETCH(QByteArray, table);
    QFETCH(QString, error);

    if (source != "(none)")
        put(u"a.eds"_s, source);
    put(u"table.txt"_s, table);
    put(u"a.eds.json"_s, "before");
    const ImportResult result = import(u"a.eds"_s);
    QCOMPARE(int(result.status), int(eStatus::UnreadableInput));
    QCOMPARE(result.error, m_folder->path() + u'/' + error);
    QCOMPARE(get(u"table.txt"_s), table);
    QCOMPARE(get(u"a.eds.json"_s), "before"_ba);
}

void tst_ObjectDictionaryImport::parallelImports()
{
    constexpr int Count = 4;
    for (int i = 0; i < Count; ++i)
        put(QString::number(i), simpleObjects({"604" + QByteArray::number(i)}));
    std::array<ImportResult, Count> results;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < Count; ++i)
            threads.emplace_back([&, i] { results.at(size_t(i)) = import(QString::number(i)); });
    }
    for (const ImportResult &result : results)
        QCOMPARE(result.error, QString());
    const QByteArray table = get(u"table.txt"_s);
    for (const char *line : {"0x6040 P64\n", "0x6041 P65\n", "0x6042 P66\n", "0x6043 P67\n"})
        QVERIFY2(table.contains(line), line);
    QVERIFY(!QFile::exists(path(u"table.txt.lock"_s)));
}

void tst_ObjectDictionaryImport::heldTable()
{
    put(u"a.eds"_s, Sheet);
    QLockFile lock(path(u"table.txt.lock"_s));
    QVERIFY(lock.lock());
    const ImportResult result = import(u"a.eds"_s);
    QCOMPARE(int(result.status), int(eStatus::WriteFailed));
    QCOMPARE(result.error, path(u"table.txt"_s) + u": ein anderer Import hält die Tabelle"_s);
    QVERIFY(!QFile::exists(path(u"table.txt"_s)));
    QVERIFY(!QFile::exists(path(u"a.eds.json"_s)));
}

void tst_ObjectDictionaryImport::nothingUsableIsReported()
{
    put(u"a.eds"_s, "[1F50]\nParameterName=Program\nObjectType=2\n");
    const ImportResult result = import(u"a.eds"_s);
    QCOMPARE(int(result.status), int(eStatus::UnreadableInput));
    QVERIFY(result.isReportComplete);
    QCOMPARE(result.report.objectsSkipped(), 1);
    QVERIFY(!import(u"missing.eds"_s).isReportComplete);
}

void tst_ObjectDictionaryImport::writeFails_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QStringList>("files");

    QTest::newRow("table in a folder that is missing")
        << u"none/t"_s << u"o"_s << QStringList {u"a.eds"_s};
    QTest::newRow("output in a folder that is missing")
        << u"t"_s << u"none/o"_s << QStringList {u"a.eds"_s, u"t"_s};
    QTest::newRow("output is a folder")
        << u"t"_s << u"folder"_s << QStringList {u"a.eds"_s, u"t"_s};
}

void tst_ObjectDictionaryImport::writeFails()
{
    QFETCH(QString, table);
    QFETCH(QString, output);
    QFETCH(QStringList, files);

    put(u"a.eds"_s, Sheet);
    QVERIFY(QDir(m_folder->path()).mkdir(u"folder"_s));
    const ImportResult result =
        importObjectDictionary({path(u"a.eds"_s), path(table), path(output), std::nullopt});
    QCOMPARE(int(result.status), int(eStatus::WriteFailed));
    QVERIFY(!result.error.isEmpty());
    QVERIFY(result.isReportComplete);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), files);
}

void tst_ObjectDictionaryImport::anyPrefix()
{
    for (qsizetype length = 0; length < Sheet.size(); length += 29) {
        put(u"a.eds"_s, Sheet.first(length));
        const ImportResult result = import(u"a.eds"_s);
        QCOMPARE(result.status == eStatus::Good, result.report.objectsRead > 0);
    }
}

void tst_ObjectDictionaryImport::randomBytes()
{
    QRandomGenerator random(7);
    for (int run = 0; run < 60; ++run) {
        QByteArray bytes = Sheet;
        for (int count = random.bounded(1, 20); count > 0; --count)
            bytes[random.bounded(int(bytes.size()))] = char(random.bounded(256));
        put(u"a.eds"_s, bytes);
        const ImportResult result = import(u"a.eds"_s);
        QVERIFY(result.status == eStatus::Good || result.status == eStatus::UnreadableInput);
        QCOMPARE(result.error.isEmpty(), result.status == eStatus::Good);
    }
}

QTEST_GUILESS_MAIN(tst_ObjectDictionaryImport)
#include "tst_ObjectDictionaryImport.moc"

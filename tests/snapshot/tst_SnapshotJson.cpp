#include "FakeParameterInformation.h"
#include "snapshot/SnapshotJson.h"
#include "snapshot/SnapshotRecordBuilder.h"

#include <KrFilter/Filter.h>
#include <KrFilter/FilterElement.h>

#include <QtTest/QtTest>

#include <stdexcept>

class tst_SnapshotJson : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeText();
    void emptySnapshot();
    void everythingReadsBack();
    void rejectedElement();
    void textsOfAllKinds();
    void otherLivingSpacesOfTheHost();
    void leftOut();
    void refused_data();
    void refused();
    void cutText();
};

namespace {

constexpr auto Global = eLivingSpace::Global;
constexpr auto Axis1 = eLivingSpace::Axis1;
constexpr auto Axis2 = eLivingSpace::Axis2;
const QSet<eLivingSpace> TakenSpaces {Global, Axis1};

const QByteArray Begin = QByteArrayLiteral(
    "{\"format\": \"kr-parameter-snapshot\", \"version\": 1, \"livingSpaces\": [0,1], "
    "\"parameters\": [\n");
const QByteArray End = QByteArrayLiteral("\n]}\n");
const QByteArray SimpleLine = QByteArrayLiteral(
    "{\"coordinate\":\"A00\",\"elements\":[{\"number\":0,\"readLevel\":3}],\"livingSpaces\":[0],"
    "\"name\":\"Drehzahl\",\"values\":[{\"display\":\"1.50\",\"element\":0,\"livingSpace\":0,"
    "\"native\":\"150\",\"nativeUnit\":\"n\",\"scaledUnit\":\"1/min\",\"value\":\"1.5\"}]}");
const QByteArray RecordLine = QByteArrayLiteral(
    "{\"coordinate\":\"B12\",\"elements\":[{\"name\":\"Eins\",\"number\":1,\"readLevel\":0},"
    "{\"number\":4,\"readLevel\":0}],\"livingSpaces\":[1],\"name\":\"\",\"values\":["
    "{\"display\":\"x\",\"element\":1,\"livingSpace\":1,\"native\":\"x\",\"value\":\"x\"},"
    "{\"display\":\"\",\"element\":4,\"livingSpace\":1,\"native\":\"\",\"value\":\"\"},"
    "{\"display\":\"y\",\"element\":1,\"livingSpace\":2,\"native\":\"y\",\"value\":\"y\"},"
    "{\"display\":\"\",\"element\":4,\"livingSpace\":2,\"native\":\"\",\"value\":\"\"}]}");

/// A00 simple in living space 0, B12 a record on the axes 1 and 2, of which only 1 is taken.
SnapshotJson::Content content()
{
    SnapshotRecordBuilder builder(TakenSpaces, nullptr);
    SnapshotJson::Content result {TakenSpaces, {}};
    FakeParameterInformation simple(QStringLiteral("A00"), QStringLiteral("Drehzahl"));
    simple.setUnits(QStringLiteral("1/min"), QStringLiteral("n"));
    simple.readLevels = {{0, 3}};
    simple.setValue(
        Global, 0, {QStringLiteral("1.50"), QStringLiteral("150"), QStringLiteral("1.5")});
    result.records.insert(simple.coordinateAnswer, *builder.build(&simple));
    FakeParameterInformation record(QStringLiteral("B12"));
    record.isRecord = true;
    record.spaces = {Axis1, Axis2};
    record.elements = {1, 4};
    record.elementNames = {{1, QStringLiteral("Eins")}};
    record.setValue(Axis1, 1, QStringLiteral("x"));
    record.setValue(Axis2, 1, QStringLiteral("y"));
    result.records.insert(record.coordinateAnswer, *builder.build(&record));
    return result;
}

/// Null where the text is refused.
std::optional<SnapshotJson::Content> read(const QByteArray &json)
{
    QString problem;
    return SnapshotJson::read(json, problem);
}

SnapshotRecord recordOf(const QByteArray &parameter)
{
    const auto content = read(Begin + parameter + End);
    if (!content)
        throw std::runtime_error("refused");
    return *content->records.constFind(ParameterCoordinate(QStringLiteral("A00")));
}

/// Rejects one place by its sortable text.
class AllBut final : public Filter {
public:
    explicit AllBut(const char *address)
        : m_address(QString::fromLatin1(address))
    {
    }
    bool testElement(const FilterElement &element) const override
    {
        return element.stringProperty(QStringLiteral("Address")) != m_address;
    }

private:
    QString m_address;
};

} // namespace

void tst_SnapshotJson::wholeText()
{
    QCOMPARE(SnapshotJson::write(content()), Begin + SimpleLine + ",\n" + RecordLine + End);
}

void tst_SnapshotJson::emptySnapshot()
{
    const QByteArray json = QByteArrayLiteral(
        "{\"format\": \"kr-parameter-snapshot\", \"version\": 1, \"livingSpaces\": [], "
        "\"parameters\": [\n\n]}\n");
    QCOMPARE(SnapshotJson::write({}), json);
    const auto content = read(json);
    QVERIFY(content);
    QVERIFY(content->records.isEmpty());
    QVERIFY(content->livingSpaces.isEmpty());
}

void tst_SnapshotJson::everythingReadsBack()
{
    const auto back = read(SnapshotJson::write(content()));
    QVERIFY(back);
    QCOMPARE(back->livingSpaces, TakenSpaces);
    QCOMPARE(back->records.size(), 2);
    const SnapshotRecord simple =
        *back->records.constFind(ParameterCoordinate(QStringLiteral("A00")));
    QCOMPARE(simple.name(), QStringLiteral("Drehzahl"));
    QCOMPARE(simple.elementReadLevel(0), 3U);
    QCOMPARE(simple.elementName(0), QString());
    QCOMPARE(simple.value(Global, 0).displayWithUnit(), QStringLiteral("1.50 1/min"));
    QCOMPARE(simple.value(Global, 0).nativeWithUnit(), QStringLiteral("150 n"));
    QCOMPARE(simple.value(Global, 0).undecoratedWithUnit(), QStringLiteral("1.5 1/min"));
    const SnapshotRecord record =
        *back->records.constFind(ParameterCoordinate(QStringLiteral("B12")));
    QCOMPARE(record.layout().livingSpaces, QList {Axis1});
    QCOMPARE(record.layout().elements, (QList<quint16> {1, 4}));
    QCOMPARE(record.elementName(1), QStringLiteral("Eins"));
    QCOMPARE(record.elementName(4), QString());
    QCOMPARE(record.value(Axis1, 1).display, QStringLiteral("x"));
    QCOMPARE(record.value(Axis2, 1).display, QStringLiteral("y"));
    QCOMPARE(record.value(Axis1, 2).display, QString());
}

void tst_SnapshotJson::rejectedElement()
{
    FakeParameterInformation record(QStringLiteral("B12"));
    record.isRecord = true;
    record.spaces = {Axis1, Axis2};
    record.elements = {0, 1};
    record.setValue(Axis1, 0, QStringLiteral("kept"));
    record.setValue(Axis2, 0, QStringLiteral("gone"));
    record.setValue(Axis2, 1, QStringLiteral("other"));
    const AllBut filter("2.B012[00000]");
    SnapshotRecordBuilder builder(TakenSpaces, &filter);
    const SnapshotRecords records {{record.coordinateAnswer, *builder.build(&record)}};
    const QByteArray json = SnapshotJson::write({TakenSpaces, records});
    QVERIFY(json.contains("{\"isRejected\":true,\"number\":0,\"readLevel\":0}"));
    const auto back = read(json);
    QVERIFY(back);
    const SnapshotRecord &read = *back->records.cbegin();
    QCOMPARE(read.layout().elements, QList<quint16> {1});
    QCOMPARE(read.value(Axis1, 0).display, QStringLiteral("kept"));
    QCOMPARE(read.value(Axis2, 0).display, QString());
    QCOMPARE(read.value(Axis2, 1).display, QStringLiteral("other"));
}

void tst_SnapshotJson::textsOfAllKinds()
{
    const QString text = QStringLiteral("\"\\/\b\f\n\r\t\x01<&> \u00B0\u20AC\U0001F600")
        + QChar(0xD83D); // half a character
    FakeParameterInformation simple(QStringLiteral("A00"), text);
    simple.setValue(Global, 0, text + QChar(0) + text);
    SnapshotRecordBuilder builder(TakenSpaces, nullptr);
    const SnapshotRecords records {{simple.coordinateAnswer, *builder.build(&simple)}};
    const QByteArray json = SnapshotJson::write({TakenSpaces, records});
    // One line a parameter, whatever its texts.
    QCOMPARE(json.count('\n'), 3);
    const auto back = read(json);
    QVERIFY(back);
    QCOMPARE(back->records.cbegin()->name(), text);
    QCOMPARE(back->records.cbegin()->value(Global, 0).display, text + QChar(0) + text);
}

/// A host may offer what is no living space of a value: the text stays one that is read.
void tst_SnapshotJson::otherLivingSpacesOfTheHost()
{
    const QByteArray json = SnapshotJson::write({{eLivingSpace(7), Axis1, eLivingSpace(-1)}, {}});
    QVERIFY(json.contains("\"livingSpaces\": [1]"));
    const auto back = read(json);
    QVERIFY(back);
    QCOMPARE(back->livingSpaces, QSet {Axis1});
}

void tst_SnapshotJson::leftOut()
{
    const SnapshotRecord record = recordOf(
        "{\"coordinate\":\"A00\",\"livingSpaces\":[],\"elements\":[{\"number\":7,\"readLevel\":0}],"
        "\"values\":[{\"livingSpace\":4,\"element\":7}],\"comment\":\"unknown keys are ignored\"}");
    QCOMPARE(record.name(), QString());
    QCOMPARE(record.layout().elements, QList<quint16> {7});
    QCOMPARE(record.value(eLivingSpace::Axis4, 7).displayWithUnit(), QString());
    const SnapshotRecord bare = recordOf("{\"coordinate\":\"A00\",\"livingSpaces\":[]}");
    QCOMPARE(bare.layout().elements, QList<quint16>());
}

void tst_SnapshotJson::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("problem");
    const QString noSnapshot = QStringLiteral("das ist kein Snapshot");
    QTest::newRow("nothing") << QByteArray() << QStringLiteral("das ist kein JSON (ab Byte 0)");
    QTest::newRow("no JSON") << QByteArrayLiteral("{\"a\" 1}")
                             << QStringLiteral("das ist kein JSON (ab Byte 6)");
    QTest::newRow("a list") << QByteArrayLiteral("[]") << noSnapshot;
    QTest::newRow("no format") << QByteArrayLiteral("{}") << noSnapshot;
    QTest::newRow("another format")
        << QByteArrayLiteral("{\"format\":\"kr-device-description\"}") << noSnapshot;
    QTest::newRow("another version")
        << QByteArrayLiteral("{\"format\":\"kr-parameter-snapshot\",\"version\":2}")
        << QStringLiteral("diese Version eines Snapshots ist unbekannt");
    QTest::newRow("no parameters")
        << QByteArrayLiteral("{\"format\":\"kr-parameter-snapshot\",\"version\":1}")
        << QStringLiteral("die Liste der Parameter fehlt");
    const QByteArray head = QByteArrayLiteral(
        "{\"format\":\"kr-parameter-snapshot\",\"version\":1,\"parameters\":[],\"livingSpaces\":");
    const QString badAxes = QStringLiteral("die Liste der Achsen ist fehlerhaft");
    QTest::newRow("axes: no list") << QByteArray(head + "1}") << badAxes;
    QTest::newRow("axes: above the last") << QByteArray(head + "[0,5]}") << badAxes;
    QTest::newRow("axes: negative") << QByteArray(head + "[-1]}") << badAxes;
    QTest::newRow("axes: no whole number") << QByteArray(head + "[0.5]}") << badAxes;
    QTest::newRow("axes: a text") << QByteArray(head + "[\"1\"]}") << badAxes;
    QTest::newRow("axes: descending") << QByteArray(head + "[1,0]}") << badAxes;
    QTest::newRow("axes: twice") << QByteArray(head + "[1,1]}") << badAxes;

    const QString first = QStringLiteral("der 1. Parameter ist fehlerhaft");
    const auto parameter = [](const QByteArray &text) { return QByteArray(Begin + text + End); };
    QTest::newRow("parameter: no object") << parameter("1") << first;
    QTest::newRow("parameter: no coordinate") << parameter("{\"livingSpaces\":[]}") << first;
    QTest::newRow("parameter: no coordinate in the text")
        << parameter("{\"coordinate\":\"A\",\"livingSpaces\":[]}") << first;
    QTest::newRow("parameter: no living spaces") << parameter("{\"coordinate\":\"A00\"}") << first;
    QTest::newRow("parameter: name is a number")
        << parameter("{\"coordinate\":\"A00\",\"livingSpaces\":[],\"name\":1}") << first;
    QTest::newRow("parameter: twice") << QByteArray(Begin + SimpleLine + "," + SimpleLine + End)
                                      << QStringLiteral("der 2. Parameter ist fehlerhaft");
    QTest::newRow("parameter: elements are an object")
        << parameter("{\"coordinate\":\"A00\",\"livingSpaces\":[],\"elements\":{}}") << first;
    QTest::newRow("parameter: values are an object")
        << parameter("{\"coordinate\":\"A00\",\"livingSpaces\":[],\"values\":{}}") << first;
    const auto element = [&](const char *text) {
        return parameter(
            "{\"coordinate\":\"A00\",\"livingSpaces\":[],\"elements\":[" + QByteArray(text) + "]}");
    };
    QTest::newRow("element: no object") << element("0") << first;
    QTest::newRow("element: no number") << element("{\"readLevel\":0}") << first;
    QTest::newRow("element: number above 65535")
        << element("{\"number\":65536,\"readLevel\":0}") << first;
    QTest::newRow("element: no read level") << element("{\"number\":0}") << first;
    QTest::newRow("element: read level above 32 bits")
        << element("{\"number\":0,\"readLevel\":4294967296}") << first;
    QTest::newRow("element: name is a list")
        << element("{\"number\":0,\"readLevel\":0,\"name\":[]}") << first;
    QTest::newRow("element: rejected is a text")
        << element("{\"number\":0,\"readLevel\":0,\"isRejected\":\"true\"}") << first;
    QTest::newRow("element: twice")
        << element("{\"number\":0,\"readLevel\":0},{\"number\":0,\"readLevel\":0}") << first;
    const auto value = [&](const char *text) {
        return parameter("{\"coordinate\":\"A00\",\"livingSpaces\":[],\"elements\":["
                         "{\"number\":0,\"readLevel\":0}],\"values\":["
            + QByteArray(text) + "]}");
    };
    QTest::newRow("value: no object") << value("[]") << first;
    QTest::newRow("value: no living space") << value("{\"element\":0}") << first;
    QTest::newRow("value: living space above the last")
        << value("{\"livingSpace\":5,\"element\":0}") << first;
    QTest::newRow("value: unknown element") << value("{\"livingSpace\":0,\"element\":1}") << first;
    QTest::newRow("value: text is a number")
        << value("{\"livingSpace\":0,\"element\":0,\"display\":1}") << first;
    QTest::newRow("value: unit is null")
        << value("{\"livingSpace\":0,\"element\":0,\"scaledUnit\":null}") << first;
    QTest::newRow("value: twice") << value(
        "{\"livingSpace\":0,\"element\":0},{\"livingSpace\":0,\"element\":0}")
                                  << first;
    QTest::newRow("deeper than any reader goes")
        << QByteArray(QByteArray(100000, '[') + QByteArray(100000, ']'))
        << QStringLiteral("das ist kein JSON (ab Byte 1025)");
}

void tst_SnapshotJson::refused()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, problem);
    QString found;
    QVERIFY(!SnapshotJson::read(json, found));
    QCOMPARE(found, problem);
}

void tst_SnapshotJson::cutText()
{
    const QByteArray whole = SnapshotJson::write(content());
    for (qsizetype size = 0; size < whole.size() - 1; ++size)
        QVERIFY2(!read(whole.first(size)), QByteArray::number(size));
    QVERIFY(read(whole.chopped(1)));
}

QTEST_GUILESS_MAIN(tst_SnapshotJson)
#include "tst_SnapshotJson.moc"

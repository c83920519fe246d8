#include "snapshot/SnapshotTextExport.h"

#include "snapshot/SnapshotRecordBuilder.h"
#include "tests/snapshot/AddressFilter.h"
#include "tests/snapshot/FakeParameterInformation.h"
#include "tests/support/GoldenFile.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

/// The semicolon text, byte by byte.
class tst_SnapshotTextExport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void goldenFile();
    void selection_data();
    void selection();
    void filtered_data();
    void filtered();
    void livingSpaceThatIsNotTaken();
    void longFile();
    void replacesAnEarlierFile();
    void cannotBeOpened_data();
    void cannotBeOpened();
    void fullDisk();
    void removedWhileOpen();

private:
    QByteArray exported(
        const QStringList &coordinates, const QList<eLivingSpace> &livingSpaces) const;
    /// Everything of the records.
    QByteArray exported(const SnapshotRecords &records) const;

    SnapshotRecords m_records;
    QTemporaryDir m_directory;
};

namespace {

constexpr eLivingSpace Global = eLivingSpace::Global;
constexpr eLivingSpace Axis1 = eLivingSpace::Axis1;
constexpr eLivingSpace Axis2 = eLivingSpace::Axis2;
const QList<eLivingSpace> AllSpaces {Axis2, Axis1, Global};
const QByteArray Begin = QByteArrayLiteral("\xEF\xBB\xBF\r\n");

QList<ParameterCoordinate> coordinates(const QStringList &texts)
{
    QList<ParameterCoordinate> result;
    for (const QString &text : texts)
        result.append(ParameterCoordinate(text));
    return result;
}

} // namespace

void tst_SnapshotTextExport::initTestCase()
{
    SnapshotRecordBuilder builder({Global, Axis1, Axis2}, nullptr);
    const auto insert = [&](FakeParameterInformation &information) {
        m_records.insert(information.coordinateAnswer, *builder.build(&information));
    };
    FakeParameterInformation simple(QStringLiteral("A00"), QStringLiteral("Drehzahl"));
    simple.spaces = {Global, Axis1};
    simple.setUnits(QStringLiteral("1/min"), QStringLiteral("inc"));
    simple.setValue(
        Global, 0, {QStringLiteral("1.5"), QStringLiteral("15"), QStringLiteral("1.50")});
    simple.setValue(Axis1, 0, QStringLiteral("-2"));
    insert(simple);

    FakeParameterInformation record(QStringLiteral("A12"), QStringLiteral("Übersicht"));
    record.isRecord = true;
    record.elements = {2, 0};
    record.elementNames = {{2, QStringLiteral("Zweites")}};
    record.spaces = {Axis1, Axis2};
    record.setValue(Axis1, 0, QStringLiteral("10"));
    record.setValue(Axis1, 2, QStringLiteral("12"));
    record.setValue(Axis2, 0, QStringLiteral("20"));
    record.setValue(Axis2, 2, QStringLiteral("22"));
    insert(record);

    FakeParameterInformation special(QStringLiteral("G245"), QStringLiteral("\"%1\" %2;"));
    special.setUnits(QStringLiteral("µm"), QString());
    special.setValue(Global, 0, QStringLiteral("a\"b;c\nd \U0001F600"));
    insert(special);

    FakeParameterInformation single(QStringLiteral("B03"), QStringLiteral("Nur Element 1"));
    single.isRecord = true;
    single.elements = {1};
    single.setValue(Global, 1, QString());
    insert(single);
}

QByteArray tst_SnapshotTextExport::exported(
    const QStringList &texts, const QList<eLivingSpace> &livingSpaces) const
{
    const QString fileName = m_directory.filePath(QStringLiteral("export.txt"));
    if (!SnapshotTextExport::write(fileName, m_records, coordinates(texts), livingSpaces))
        return {};
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray tst_SnapshotTextExport::exported(const SnapshotRecords &records) const
{
    const QString fileName = m_directory.filePath(QStringLiteral("records.txt"));
    if (!SnapshotTextExport::write(fileName, records, records.keys(), AllSpaces))
        return {};
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_SnapshotTextExport::goldenFile()
{
    const QByteArray lines =
        exported({QStringLiteral("G245"), QStringLiteral("B03"), QStringLiteral("A12"),
                     QStringLiteral("A00"), QStringLiteral("C99")},
            AllSpaces);
    QCOMPARE(lines, GoldenFile::expected(QStringLiteral("snapshot/export.txt"), lines));
}

void tst_SnapshotTextExport::selection_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QList<eLivingSpace>>("livingSpaces");
    QTest::addColumn<QByteArray>("lines");
    const QStringList simple {QStringLiteral("A00")};
    const QStringList record {QStringLiteral("A12")};
    QTest::newRow("no coordinate") << QStringList() << AllSpaces << QByteArray();
    QTest::newRow("no living space") << simple << QList<eLivingSpace>() << QByteArray();
    QTest::newRow("unknown coordinate")
        << QStringList {QStringLiteral("Z99")} << AllSpaces << QByteArray();
    QTest::newRow("invalid coordinate") << QStringList {QString()} << AllSpaces << QByteArray();
    QTest::newRow("simple, both living spaces")
        << simple << AllSpaces
        << QByteArrayLiteral("\"A00\";\"Drehzahl\";\"1.5 1/min\"\n"
                             "\"1.A00\";\"Drehzahl\";\"-2 1/min\"\n");
    QTest::newRow("one living space of two")
        << simple << QList {Axis1} << QByteArrayLiteral("\"1.A00\";\"Drehzahl\";\"-2 1/min\"\n");
    QTest::newRow("living space that the parameter lacks")
        << simple << QList {Axis2} << QByteArray();
    QTest::newRow("living space named twice")
        << simple << QList {Axis1, Axis1}
        << QByteArrayLiteral("\"1.A00\";\"Drehzahl\";\"-2 1/min\"\n");
    QTest::newRow("record: element 0 first, parameter name for the unnamed one")
        << record << QList {Axis2}
        << QByteArrayLiteral("\"2.A12[0]\";\"\xC3\x9C"
                             "bersicht\";\"20\"\n\"2.A12[2]\";\"Zweites\";\"22\"\n");
    QTest::newRow("one element other than 0 is shown with its number")
        << QStringList {QStringLiteral("B03")} << AllSpaces
        << QByteArrayLiteral("\"B03[1]\";\"Nur Element 1\";\"\"\n");
    QTest::newRow("coordinate named twice")
        << QStringList {QStringLiteral("B03"), QStringLiteral("B03")} << AllSpaces
        << QByteArrayLiteral("\"B03[1]\";\"Nur Element 1\";\"\"\n"
                             "\"B03[1]\";\"Nur Element 1\";\"\"\n");
}

void tst_SnapshotTextExport::selection()
{
    QFETCH(QStringList, texts);
    QFETCH(QList<eLivingSpace>, livingSpaces);
    QFETCH(QByteArray, lines);
    QCOMPARE(exported(texts, livingSpaces), Begin + lines);
}

/// A12 with the elements 0 and 2 on the axes 1 and 2, of which a filter left something.
void tst_SnapshotTextExport::filtered_data()
{
    QTest::addColumn<QStringList>("rejected");
    QTest::addColumn<QByteArray>("lines");
    const QString zero = QStringLiteral("2.A012[00000]");
    const QString two = QStringLiteral("2.A012[00002]");
    QTest::newRow("nothing rejected")
        << QStringList()
        << QByteArrayLiteral("\"1.A12[0]\";\"Null\";\"10\"\n\"1.A12[2]\";\"Zwei\";\"12\"\n"
                             "\"2.A12[0]\";\"Null\";\"20\"\n\"2.A12[2]\";\"Zwei\";\"22\"\n");
    QTest::newRow("element 0 alone is left: as a simple parameter") << QStringList {
        two} << QByteArrayLiteral("\"1.A12\";\"Name\";\"10\"\n\"2.A12\";\"Name\";\"20\"\n");
    QTest::newRow("another element alone is left") << QStringList {
        zero} << QByteArrayLiteral("\"1.A12[2]\";\"Zwei\";\"12\"\n\"2.A12[2]\";\"Zwei\";\"22\"\n");
    QTest::newRow("no element is left, values are held") << QStringList {zero, two} << QByteArray();
}

void tst_SnapshotTextExport::filtered()
{
    QFETCH(QStringList, rejected);
    QFETCH(QByteArray, lines);
    FakeParameterInformation information(QStringLiteral("A12"), QStringLiteral("Name"));
    information.isRecord = true;
    information.elements = {0, 2};
    information.elementNames = {{0, QStringLiteral("Null")}, {2, QStringLiteral("Zwei")}};
    information.spaces = {Axis1, Axis2};
    for (const auto &[livingSpace, element, text] :
        {std::tuple(Axis1, 0, "10"), {Axis1, 2, "12"}, {Axis2, 0, "20"}, {Axis2, 2, "22"}})
        information.setValue(livingSpace, quint16(element), QString::fromLatin1(text));
    const AddressFilter filter(rejected);
    SnapshotRecordBuilder builder({Global, Axis1, Axis2}, &filter);
    const std::optional<SnapshotRecord> record = builder.build(&information);
    QVERIFY(record);
    QCOMPARE(exported({{information.coordinateAnswer, *record}}), Begin + lines);
}

/// Values of axis 1 are held, but the snapshot takes living space 0 alone.
void tst_SnapshotTextExport::livingSpaceThatIsNotTaken()
{
    FakeParameterInformation information(QStringLiteral("A12"), QStringLiteral("Name"));
    information.spaces = {Global, Axis1};
    information.setValue(Global, 0, QStringLiteral("1"));
    information.setValue(Axis1, 0, QStringLiteral("2"));
    SnapshotRecordBuilder builder({Global}, nullptr);
    const std::optional<SnapshotRecord> record = builder.build(&information);
    QVERIFY(record);
    QCOMPARE(record->value(Axis1, 0).display, QStringLiteral("2"));
    QCOMPARE(exported({{information.coordinateAnswer, *record}}),
        Begin + QByteArrayLiteral("\"A12\";\"Name\";\"1\"\n"));
}

/// Longer than any piece in which lines are written, with characters of several bytes.
void tst_SnapshotTextExport::longFile()
{
    constexpr int Count = 5000;
    const QString unit = QString(30, QChar(0x20AC));
    SnapshotRecordBuilder builder({Global}, nullptr);
    SnapshotRecords records;
    QByteArray expected = Begin;
    for (int i = 0; i < Count; ++i) {
        const ParameterCoordinate coordinate(quint16(i / 1000 + 1), quint16(i % 1000));
        FakeParameterInformation information(coordinate.toText(), QStringLiteral("Name"));
        information.setUnits(unit, QString());
        information.setValue(Global, 0, QString::number(i));
        records.insert(coordinate, *builder.build(&information));
        expected += '"' + coordinate.toText().toLatin1() + "\";\"Name\";\"" + QByteArray::number(i)
            + ' ' + unit.toUtf8() + "\"\n";
    }
    const QString fileName = m_directory.filePath(QStringLiteral("long.txt"));
    QVERIFY(SnapshotTextExport::write(fileName, records, records.keys(), {Global}));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), expected);
}

void tst_SnapshotTextExport::replacesAnEarlierFile()
{
    QVERIFY(exported({QStringLiteral("A00"), QStringLiteral("A12")}, AllSpaces).size() > 100);
    QCOMPARE(exported({}, AllSpaces), Begin);
}

void tst_SnapshotTextExport::cannotBeOpened_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("no name") << QString();
    QTest::newRow("folder is missing") << m_directory.filePath(QStringLiteral("missing/a.txt"));
    QTest::newRow("is a folder") << m_directory.path();
    QTest::newRow("folder in which nobody may write") << QStringLiteral("/proc/export.txt");
}

void tst_SnapshotTextExport::cannotBeOpened()
{
    QFETCH(QString, fileName);
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
    QVERIFY(!SnapshotTextExport::write(
        fileName, m_records, coordinates({QStringLiteral("A00")}), AllSpaces));
}

/// What cannot be written is not noticed.
void tst_SnapshotTextExport::fullDisk()
{
    const QString fullDevice = QStringLiteral("/dev/full");
    QVERIFY(QFile::exists(fullDevice));
    QVERIFY(SnapshotTextExport::write(
        fullDevice, m_records, coordinates({QStringLiteral("A00")}), AllSpaces));
}

/// The place of a file that is gone while it is open is still written to.
void tst_SnapshotTextExport::removedWhileOpen()
{
    QFile removed(m_directory.filePath(QStringLiteral("removed.txt")));
    QVERIFY(removed.open(QIODevice::ReadWrite));
    const QString open = QStringLiteral("/proc/self/fd/%1").arg(removed.handle());
    QVERIFY(QFile::exists(open));
    QVERIFY(QFile::remove(removed.fileName()));
    QVERIFY(SnapshotTextExport::write(
        open, m_records, coordinates({QStringLiteral("B03")}), AllSpaces));
    QVERIFY(!QFile::exists(removed.fileName()));
    QCOMPARE(removed.readAll(), Begin + "\"B03[1]\";\"Nur Element 1\";\"\"\n");
}

QTEST_GUILESS_MAIN(tst_SnapshotTextExport)
#include "tst_SnapshotTextExport.moc"

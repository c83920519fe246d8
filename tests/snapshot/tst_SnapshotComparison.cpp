#include "snapshot/SnapshotComparison.h"

#include "snapshot/SnapshotRecordBuilder.h"
#include "snapshot/SnapshotJson.h"
#include "tests/snapshot/AddressFilter.h"
#include "tests/snapshot/FakeParameterInformation.h"

#include <QtCore/QRandomGenerator>
#include <QtTest/QTest>

#include <algorithm>

/// Which parameters two snapshots do not share.
class tst_SnapshotComparison : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void values_data();
    void values();
    void differentLivingSpaces();
    void differentElements();
    void missingValueIsEmpty();
    void missingLivingSpaceIsEmpty_data();
    void missingLivingSpaceIsEmpty();
    void rejectedElementDoesNotCount();
    void nothingIsLeftToCompare();
    void noLivingSpaceOnBothSides();
    void untakenLivingSpacesDoNotCount();
    void oneSidedComeFirst();
    void emptySides();
    void randomPairs();
};

namespace {

constexpr eLivingSpace Global = eLivingSpace::Global;
const QSet<eLivingSpace> AllSpaces {Global, eLivingSpace::Axis1, eLivingSpace::Axis2};

SnapshotRecord frozen(FakeParameterInformation &information, const Filter *filter = nullptr)
{
    SnapshotRecordBuilder builder(AllSpaces, filter);
    return *builder.build(&information);
}

SnapshotRecord simpleRecord(const QString &display, const QString &native,
    const QString &scaledUnit = {}, const QString &nativeUnit = {})
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(Global, 0, {display, native, QStringLiteral("value")});
    information.setUnits(scaledUnit, nativeUnit);
    return frozen(information);
}

SnapshotRecord simpleRecord(const QString &text)
{
    return simpleRecord(text, text);
}

/// B01 on the axes 1 and 2, with these values.
std::optional<SnapshotRecord> read(const QByteArray &values)
{
    QString problem;
    const auto content = SnapshotJson::read(
        R"({"format": "kr-parameter-snapshot", "version": 1, "livingSpaces": [0, 1, 2],
            "parameters": [{"coordinate": "B01", "livingSpaces": [1, 2],
            "elements": [{"number": 0, "readLevel": 0}], "values": [)"
            + values + "]}]}",
        problem);
    return content ? std::optional(content->records.first()) : std::nullopt;
}

QStringList texts(const QList<ParameterCoordinate> &coordinates)
{
    QStringList result;
    for (const ParameterCoordinate &coordinate : coordinates)
        result.append(coordinate.toText());
    return result;
}

QStringList sortedTexts(const QList<ParameterCoordinate> &coordinates)
{
    QStringList result = texts(coordinates);
    result.sort();
    return result;
}

} // namespace

void tst_SnapshotComparison::values_data()
{
    QTest::addColumn<QStringList>("first");
    QTest::addColumn<QStringList>("second");
    QTest::addColumn<bool>("different");
    const auto row = [](const char *name, const QString &first, const QString &second,
                         bool different) {
        QTest::newRow(name) << first.split(QLatin1Char('|')) << second.split(QLatin1Char('|'))
                            << different;
    };
    // display|native|scaled unit|native unit
    row("equal", QStringLiteral("1|10|rpm|inc"), QStringLiteral("1|10|rpm|inc"), false);
    row("both texts differ", QStringLiteral("1|10|rpm|inc"), QStringLiteral("2|20|rpm|inc"), true);
    row("display alone differs", QStringLiteral("1|10|rpm|inc"), QStringLiteral("2|10|rpm|inc"),
        false);
    row("native alone differs", QStringLiteral("1|10|rpm|inc"), QStringLiteral("1|20|rpm|inc"),
        false);
    row("both units differ", QStringLiteral("1|10|rpm|inc"), QStringLiteral("1|10|1/s|deg"), true);
    row("scaled unit alone differs", QStringLiteral("1|10|rpm|inc"), QStringLiteral("1|10|1/s|inc"),
        false);
    row("native unit alone differs", QStringLiteral("1|10|rpm|inc"), QStringLiteral("1|10|rpm|deg"),
        false);
    row("display and native unit differ", QStringLiteral("1|10|rpm|inc"),
        QStringLiteral("2|10|rpm|deg"), true);
    row("scaled unit and native text differ", QStringLiteral("1|10|rpm|inc"),
        QStringLiteral("1|20|1/s|inc"), true);
    row("unit in the text or beside it", QStringLiteral("1 rpm|10 inc||"),
        QStringLiteral("1|10|rpm|inc"), false);
    row("case differs", QStringLiteral("a|a||"), QStringLiteral("A|A||"), true);
    row("empty and not", QStringLiteral("|||"), QStringLiteral("0|0||"), true);
}

void tst_SnapshotComparison::values()
{
    QFETCH(QStringList, first);
    QFETCH(QStringList, second);
    QFETCH(bool, different);
    const SnapshotRecord a = simpleRecord(first.at(0), first.at(1), first.at(2), first.at(3));
    const SnapshotRecord b = simpleRecord(second.at(0), second.at(1), second.at(2), second.at(3));
    QCOMPARE(SnapshotComparison::areDifferent(a, b), different);
    QCOMPARE(SnapshotComparison::areDifferent(b, a), different);
}

void tst_SnapshotComparison::differentLivingSpaces()
{
    FakeParameterInformation one(QStringLiteral("A00"));
    FakeParameterInformation two(QStringLiteral("A00"));
    one.spaces = {eLivingSpace::Axis1};
    two.spaces = {eLivingSpace::Axis1, eLivingSpace::Axis2};
    QVERIFY(SnapshotComparison::areDifferent(frozen(one), frozen(two)));
    QVERIFY(SnapshotComparison::areDifferent(frozen(two), frozen(one)));
}

void tst_SnapshotComparison::differentElements()
{
    FakeParameterInformation one(QStringLiteral("A00"));
    FakeParameterInformation two(QStringLiteral("A00"));
    one.elements = {0, 2};
    two.elements = {0, 1};
    QVERIFY(SnapshotComparison::areDifferent(frozen(one), frozen(two)));
}

void tst_SnapshotComparison::missingValueIsEmpty()
{
    FakeParameterInformation held(QStringLiteral("A00"));
    held.elements = {0, 1};
    held.setValue(Global, 1, QStringLiteral("5"));
    FakeParameterInformation empty(QStringLiteral("A00"));
    empty.elements = {0, 1};
    QVERIFY(SnapshotComparison::areDifferent(frozen(held), frozen(empty)));
}

/// Equal lists, but one side holds no values of axis 2: a file may say so.
void tst_SnapshotComparison::missingLivingSpaceIsEmpty_data()
{
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<bool>("different");
    QTest::newRow("text") << QByteArray(R"("display": "5", "native": "5")") << true;
    QTest::newRow("display alone") << QByteArray(R"("display": "5")") << false;
    QTest::newRow("units alone") << QByteArray(R"("scaledUnit": "A", "nativeUnit": "mA")") << true;
    QTest::newRow("nothing") << QByteArray(R"("display": "")") << false;
}

void tst_SnapshotComparison::missingLivingSpaceIsEmpty()
{
    QFETCH(QByteArray, value);
    QFETCH(bool, different);
    const QByteArray axis1 = R"({"livingSpace": 1, "element": 0, "display": "1", "native": "1"})";
    const auto held = read(axis1 + R"(, {"livingSpace": 2, "element": 0, )" + value + "}");
    const auto missing = read(axis1);
    QVERIFY(held && missing);
    QCOMPARE(SnapshotComparison::areDifferent(*held, *missing), different);
    QCOMPARE(SnapshotComparison::areDifferent(*missing, *held), different);
}

void tst_SnapshotComparison::rejectedElementDoesNotCount()
{
    const AddressFilter filter({QStringLiteral("1.A012[00001]")});
    const auto record = [&](const char *accepted, const char *rejected, const Filter *used) {
        FakeParameterInformation information(QStringLiteral("A12"));
        information.isRecord = true;
        information.elements = {0, 1};
        information.spaces = {eLivingSpace::Axis1, eLivingSpace::Axis2};
        information.setValue(eLivingSpace::Axis2, 0, QString::fromLatin1(accepted));
        information.setValue(eLivingSpace::Axis2, 1, QString::fromLatin1(rejected));
        return frozen(information, used);
    };
    // Axis 2 holds the values of element 1, which axis 1 rejected.
    QVERIFY(
        !SnapshotComparison::areDifferent(record("1", "2", &filter), record("1", "3", &filter)));
    QVERIFY(SnapshotComparison::areDifferent(record("1", "2", &filter), record("2", "2", &filter)));
    QVERIFY(SnapshotComparison::areDifferent(record("1", "2", nullptr), record("1", "3", nullptr)));
}

/// Rejected on axis 2, the only element is in neither list; the values of axis 1 stay held.
void tst_SnapshotComparison::nothingIsLeftToCompare()
{
    const AddressFilter filter({QStringLiteral("2.A012[00000]")});
    const auto record = [&](const char *text) {
        FakeParameterInformation information(QStringLiteral("A12"));
        information.spaces = {eLivingSpace::Axis1, eLivingSpace::Axis2};
        information.setValue(eLivingSpace::Axis1, 0, QString::fromLatin1(text));
        return frozen(information, &filter);
    };
    const SnapshotRecord one = record("1");
    QCOMPARE(one.layout().elements, QList<quint16>());
    QCOMPARE(one.value(eLivingSpace::Axis1, 0).display, QStringLiteral("1"));
    QVERIFY(!SnapshotComparison::areDifferent(one, record("2")));
}

/// The builder keeps the storage of its lists from one parameter to the next, a file's empty list
/// has none.
void tst_SnapshotComparison::noLivingSpaceOnBothSides()
{
    FakeParameterInformation taken(QStringLiteral("B02"));
    taken.setValue(Global, 0, {QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("1")});
    FakeParameterInformation untaken(QStringLiteral("B01"));
    untaken.spaces = {eLivingSpace::Axis1};
    untaken.setValue(eLivingSpace::Axis1, 0, QStringLiteral("1"));
    SnapshotRecordBuilder builder({Global}, nullptr);
    QCOMPARE(builder.build(&taken)->layout().livingSpaces, QList<eLivingSpace> {Global});
    const auto built = builder.build(&untaken);
    QVERIFY(built && built->layout().livingSpaces.isEmpty());
    QString problem;
    const auto content = SnapshotJson::read(
        R"({"format": "kr-parameter-snapshot", "version": 1, "livingSpaces": [0],
            "parameters": [{"coordinate": "B01", "name": "", "livingSpaces": [],
            "elements": [{"number": 0, "name": "", "readLevel": 0}], "values": []}]})",
        problem);
    QCOMPARE(problem, QString());
    const SnapshotRecord record = content->records.first();
    QCOMPARE(record.layout().livingSpaces, QList<eLivingSpace>());
    QVERIFY(!SnapshotComparison::areDifferent(*built, record));
}

/// Values of axis 2 are held, but the snapshots take axis 1 alone.
void tst_SnapshotComparison::untakenLivingSpacesDoNotCount()
{
    const auto record = [](const char *axis1, const char *axis2) {
        FakeParameterInformation information(QStringLiteral("A12"));
        information.spaces = {eLivingSpace::Axis1, eLivingSpace::Axis2};
        information.setValue(eLivingSpace::Axis1, 0, QString::fromLatin1(axis1));
        information.setValue(eLivingSpace::Axis2, 0, QString::fromLatin1(axis2));
        SnapshotRecordBuilder builder({eLivingSpace::Global, eLivingSpace::Axis1}, nullptr);
        return *builder.build(&information);
    };
    QCOMPARE(record("1", "2").value(eLivingSpace::Axis2, 0).display, QStringLiteral("2"));
    QVERIFY(!SnapshotComparison::areDifferent(record("1", "2"), record("1", "3")));
    QVERIFY(SnapshotComparison::areDifferent(record("1", "2"), record("2", "2")));
}

void tst_SnapshotComparison::oneSidedComeFirst()
{
    SnapshotRecords a;
    SnapshotRecords b;
    a.insert(ParameterCoordinate(QStringLiteral("A01")), simpleRecord(QStringLiteral("1")));
    a.insert(ParameterCoordinate(QStringLiteral("A02")), simpleRecord(QStringLiteral("1")));
    a.insert(ParameterCoordinate(QStringLiteral("A03")), simpleRecord(QStringLiteral("1")));
    b.insert(ParameterCoordinate(QStringLiteral("A02")), simpleRecord(QStringLiteral("2")));
    b.insert(ParameterCoordinate(QStringLiteral("A03")), simpleRecord(QStringLiteral("1")));
    b.insert(ParameterCoordinate(QStringLiteral("A04")), simpleRecord(QStringLiteral("1")));
    const auto different = SnapshotComparison::differentCoordinates(a, b);
    QCOMPARE(different.size(), 3);
    QCOMPARE(sortedTexts(different.first(2)),
        (QStringList {QStringLiteral("A01"), QStringLiteral("A04")}));
    QCOMPARE(different.last().toText(), QStringLiteral("A02"));
}

void tst_SnapshotComparison::emptySides()
{
    SnapshotRecords some;
    some.insert(ParameterCoordinate(QStringLiteral("A01")), simpleRecord(QStringLiteral("1")));
    QCOMPARE(texts(SnapshotComparison::differentCoordinates(some, {})),
        QStringList {QStringLiteral("A01")});
    QCOMPARE(texts(SnapshotComparison::differentCoordinates({}, some)),
        QStringList {QStringLiteral("A01")});
    QCOMPARE(texts(SnapshotComparison::differentCoordinates({}, {})), QStringList());
}

/// Random states of 26 parameters: the difference is symmetric as a set, and empty with itself.
void tst_SnapshotComparison::randomPairs()
{
    QRandomGenerator random(4711);
    const auto state = [&] {
        SnapshotRecords records;
        for (quint16 group = 1; group <= ParameterCoordinate::LastGroup; ++group) {
            if (random.bounded(4) == 0)
                continue;
            records.insert(ParameterCoordinate(group, 0),
                simpleRecord(QString::number(random.bounded(2)), QString::number(random.bounded(2)),
                    QString::number(random.bounded(2)), QString::number(random.bounded(2))));
        }
        return records;
    };
    for (int round = 0; round < 1000; ++round) {
        const SnapshotRecords a = state();
        const SnapshotRecords b = state();
        QCOMPARE(SnapshotComparison::differentCoordinates(a, a), QList<ParameterCoordinate>());
        QCOMPARE(sortedTexts(SnapshotComparison::differentCoordinates(a, b)),
            sortedTexts(SnapshotComparison::differentCoordinates(b, a)));
        SnapshotRecords merged = a;
        merged.insert(b);
        SnapshotRecords again = merged;
        again.insert(b);
        QCOMPARE(
            SnapshotComparison::differentCoordinates(merged, again), QList<ParameterCoordinate>());
    }
}

QTEST_GUILESS_MAIN(tst_SnapshotComparison)
#include "tst_SnapshotComparison.moc"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/MessageRecorder.h"

#include <KrFilter/NumberFilterConstraint.h>
#include <KrFilter/TextFilterConstraint.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

/// A snapshot of a real container, through its exported operations alone.
class tst_ParameterValueSnapshot : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void declaresNoSignalsOrSlots();
    void emptyUntilApplied();
    void everythingOfAParameter();
    void livingSpacesOfTheHost();
    void livingSpacesOfTheHostAsItIsNow();
    void withoutHostInformation();
    void answersFromItsOwnCopy();
    void unknownPlacesAreEmpty();
    void eachApplyStartsAnew();
    void maskedOffline();

    void filterByNumber();
    void filterRejectsEverywhere();
    void filterRejectsInOneLivingSpace();

    void applyOnceDisconnectedEmpties();
    void nullContainer();
    void containerGoesFirst();

    void differences();
    void differencesOfDisplayAloneAreNone();
    void differencesToNothing();

    void uniteNeedsDisconnection();
    void uniteReplacesAndKeeps();
    void uniteTakesLivingSpaces();
    void uniteIsIdempotent();
    void uniteWithNothing();
    void uniteWithItself();

    void jsonKeepsEverything();
    void jsonKeepsTheLivingSpaces();
    void jsonIsRefused();
    void filterPropertyNames();

    void exportFile();
    void exportDisabled();
    void exportCannotBeOpened();
};

namespace {

constexpr eLivingSpace Global = eLivingSpace::Global;
constexpr eLivingSpace Axis1 = eLivingSpace::Axis1;
constexpr eLivingSpace Axis2 = eLivingSpace::Axis2;

/// A00 "Speed" on both axes, B01 "Name" global, C02 "Table" with the elements 2 and 0 on both axes.
void fill(SnapshotFixture &fixture)
{
    fixture.add(SnapshotFixture::parameter("A00", "Speed")
                    .units(QStringLiteral("rpm"), QStringLiteral("inc"))
                    .levels(1, 0));
    fixture.add(SnapshotFixture::parameter("B01", "Name").global());
    fixture.add(SnapshotFixture::parameter("C02", "Table")
                    .element(2, QStringLiteral("Second"))
                    .levels(3, 0)
                    .element(0, QStringLiteral("First"))
                    .levels(4, 0));
    fixture.write(1, "A00", 0, QStringLiteral("11"));
    fixture.write(2, "A00", 0, QStringLiteral("12"));
    fixture.write(0, "B01", 0, QStringLiteral("1"));
    fixture.write(1, "C02", 0, QStringLiteral("21"));
    fixture.write(1, "C02", 2, QStringLiteral("22"));
    fixture.write(2, "C02", 0, QStringLiteral("23"));
    fixture.write(2, "C02", 2, QStringLiteral("24"));
}

QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// A snapshot never listens to its container, and neither does what it holds inside.
void tst_ParameterValueSnapshot::declaresNoSignalsOrSlots()
{
    const int inherited = QObject::staticMetaObject.methodCount();
    QCOMPARE(ParameterValueSnapshot::staticMetaObject.methodCount(), inherited);
    const ParameterValueSnapshot snapshot(nullptr);
    QCOMPARE(snapshot.children().size(), 1);
    QCOMPARE(
        snapshot.children().first()->metaObject()->className(), "ParameterValueSnapshotPrivate");
    QCOMPARE(snapshot.children().first()->metaObject()->methodCount(), inherited);
}

void tst_ParameterValueSnapshot::emptyUntilApplied()
{
    MessageRecorder messages;
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    QCOMPARE(snapshot.sourceContainer(), fixture.container.get());
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
    QVERIFY(snapshot.isSaveToTextFileEnabled());
}

void tst_ParameterValueSnapshot::everythingOfAParameter()
{
    MessageRecorder messages;
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(sortedTexts(snapshot.parameterList()),
        (QStringList {QStringLiteral("A00"), QStringLiteral("B01"), QStringLiteral("C02")}));
    QCOMPARE(snapshot.parameterName(at("A00")), QStringLiteral("Speed"));
    QCOMPARE(snapshot.livingSpaces(at("A00")), (QList {Axis1, Axis2}));
    QCOMPARE(snapshot.elements(at("A00")), QList<quint16> {0});
    QCOMPARE(snapshot.elementName(at("A00"), 0), QString());
    QCOMPARE(snapshot.elementReadLevel(at("A00"), 0), 1U);
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, false), QStringLiteral("11"));
    QCOMPARE(snapshot.value(Axis2, at("A00"), 0, false), QStringLiteral("12"));

    QCOMPARE(snapshot.livingSpaces(at("B01")), QList {Global});
    QCOMPARE(snapshot.value(Global, at("B01"), 0, true), QStringLiteral("1"));
    // A snapshot answers for the living spaces that it holds, also of a global parameter.
    QCOMPARE(snapshot.value(Axis1, at("B01"), 0, true), QString());

    QCOMPARE(snapshot.parameterName(at("C02")), QStringLiteral("Table"));
    QCOMPARE(snapshot.elements(at("C02")), (QList<quint16> {0, 2}));
    QCOMPARE(snapshot.elementName(at("C02"), 0), QStringLiteral("First"));
    QCOMPARE(snapshot.elementName(at("C02"), 2), QStringLiteral("Second"));
    QCOMPARE(snapshot.elementReadLevel(at("C02"), 0), 4U);
    QCOMPARE(snapshot.elementReadLevel(at("C02"), 2), 3U);
    QCOMPARE(snapshot.value(Axis2, at("C02"), 2, false), QStringLiteral("24"));
    QCOMPARE(snapshot.valueNative(Axis1, at("C02"), 0, false), QStringLiteral("21"));
    QCOMPARE(snapshot.undecoratedValue(Axis1, at("C02"), 2, false), QStringLiteral("22"));
}

void tst_ParameterValueSnapshot::livingSpacesOfTheHost()
{
    SnapshotFixture fixture;
    fill(fixture);
    fixture.host.setLivingSpaces({Axis2});
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.livingSpaces(at("A00")), QList {Axis2});
    QCOMPARE(snapshot.livingSpaces(at("B01")), QList {Global});
}

void tst_ParameterValueSnapshot::livingSpacesOfTheHostAsItIsNow()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.livingSpaces(at("A00")), (QList {Axis1, Axis2}));
    fixture.host.setLivingSpaces({Axis2});
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.livingSpaces(at("A00")), QList {Axis2});
    QVERIFY(snapshot.toJson().contains("\"livingSpaces\": [0,2]"));
}

void tst_ParameterValueSnapshot::withoutHostInformation()
{
    SnapshotFixture fixture;
    fill(fixture);
    fixture.container->setHostInformation(nullptr);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.livingSpaces(at("A00")), QList<eLivingSpace>());
    QCOMPARE(snapshot.livingSpaces(at("B01")), QList {Global});
}

void tst_ParameterValueSnapshot::answersFromItsOwnCopy()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    fixture.write(1, "A00", 0, QStringLiteral("99"));
    fixture.container->clear();
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("11 rpm"));
}

void tst_ParameterValueSnapshot::unknownPlacesAreEmpty()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    for (const ParameterCoordinate &unknown : {at("Z99"), ParameterCoordinate()}) {
        QCOMPARE(snapshot.elements(unknown), QList<quint16>());
        QCOMPARE(snapshot.livingSpaces(unknown), QList<eLivingSpace>());
        QCOMPARE(snapshot.parameterName(unknown), QString());
        QCOMPARE(snapshot.elementName(unknown, 0), QString());
        QCOMPARE(snapshot.elementReadLevel(unknown, 0), 0U);
        QCOMPARE(snapshot.value(Axis1, unknown, 0, true), QString());
        QCOMPARE(snapshot.valueNative(Axis1, unknown, 0, true), QString());
        QCOMPARE(snapshot.undecoratedValue(Axis1, unknown, 0, true), QString());
    }
    QCOMPARE(snapshot.value(static_cast<eLivingSpace>(5), at("A00"), 0, true), QString());
    QCOMPARE(snapshot.value(Axis1, at("A00"), 1, true), QString());
    QCOMPARE(snapshot.elementName(at("C02"), 1), QString());
    QCOMPARE(snapshot.elementReadLevel(at("C02"), 1), 0U);
}

void tst_ParameterValueSnapshot::eachApplyStartsAnew()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    fixture.container->deleteParameter(QStringLiteral("S;{A00}"));
    snapshot.applyNoFilter();
    QCOMPARE(sortedTexts(snapshot.parameterList()),
        (QStringList {QStringLiteral("B01"), QStringLiteral("C02")}));
}

void tst_ParameterValueSnapshot::maskedOffline()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Secret").global().levels(0, 6));
    fixture.write(0, "A00", 0, QStringLiteral("7"));
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Global, at("A00"), 0, false), QStringLiteral("<offline>"));
    QCOMPARE(snapshot.valueNative(Global, at("A00"), 0, false), QStringLiteral("7"));
    fixture.container->setOnline(true);
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.value(Global, at("A00"), 0, false), QStringLiteral("7"));
}

void tst_ParameterValueSnapshot::filterByNumber()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.apply(NumberFilterConstraint(
        QStringLiteral("ReadLevel"), NumberFilterConstraint::LessOrEqual, 3));
    QCOMPARE(sortedTexts(snapshot.parameterList()),
        (QStringList {QStringLiteral("A00"), QStringLiteral("B01"), QStringLiteral("C02")}));
    QCOMPARE(snapshot.elements(at("C02")), QList<quint16> {2});
    QCOMPARE(snapshot.value(Axis1, at("C02"), 0, false), QString());
}

void tst_ParameterValueSnapshot::filterRejectsEverywhere()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.apply(TextFilterConstraint(
        QStringLiteral("Coordinate"), TextFilterConstraint::Equals, QStringLiteral("A00")));
    QCOMPARE(sortedTexts(snapshot.parameterList()), QStringList {QStringLiteral("A00")});
    // The next rebuild knows no filter.
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.parameterList().size(), 3);
}

void tst_ParameterValueSnapshot::filterRejectsInOneLivingSpace()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.apply(TextFilterConstraint(
        QStringLiteral("ValueNative"), TextFilterConstraint::Equals, QStringLiteral("23"), true));
    QCOMPARE(snapshot.elements(at("C02")), QList<quint16> {2});
    QCOMPARE(snapshot.livingSpaces(at("C02")), (QList {Axis1, Axis2}));
    QCOMPARE(snapshot.value(Axis1, at("C02"), 0, false), QStringLiteral("21"));
    QCOMPARE(snapshot.value(Axis2, at("C02"), 0, false), QString());
    QCOMPARE(snapshot.value(Axis2, at("C02"), 2, false), QStringLiteral("24"));
}

void tst_ParameterValueSnapshot::applyOnceDisconnectedEmpties()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    snapshot.disconnectFromSourceContainer();
    QCOMPARE(snapshot.sourceContainer(), nullptr);
    QCOMPARE(snapshot.parameterList().size(), 3);
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("11 rpm"));
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
}

void tst_ParameterValueSnapshot::nullContainer()
{
    ParameterValueSnapshot snapshot(nullptr);
    snapshot.applyNoFilter();
    snapshot.apply(
        NumberFilterConstraint(QStringLiteral("ReadLevel"), NumberFilterConstraint::Equal, 0));
    QCOMPARE(snapshot.sourceContainer(), nullptr);
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
}

void tst_ParameterValueSnapshot::containerGoesFirst()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    fixture.container.reset();
    QCOMPARE(snapshot.sourceContainer(), nullptr);
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("11 rpm"));
    QVERIFY(snapshot.unite(nullptr));
    snapshot.applyNoFilter();
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
}

void tst_ParameterValueSnapshot::differences()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot before(fixture.container.get());
    before.applyNoFilter();
    ParameterValueSnapshot after(fixture.container.get());
    after.applyNoFilter();
    QCOMPARE(before.parameterListDifferent(&after), QList<ParameterCoordinate>());

    fixture.write(2, "C02", 2, QStringLiteral("25"));
    fixture.add(SnapshotFixture::parameter("D03", "New"));
    fixture.container->deleteParameter(QStringLiteral("S;{B01}"));
    after.applyNoFilter();
    const auto different = before.parameterListDifferent(&after);
    QCOMPARE(different.size(), 3);
    QCOMPARE(sortedTexts(different.first(2)),
        (QStringList {QStringLiteral("B01"), QStringLiteral("D03")}));
    QCOMPARE(different.last(), at("C02"));
    QCOMPARE(sortedTexts(after.parameterListDifferent(&before)), sortedTexts(different));
}

void tst_ParameterValueSnapshot::differencesOfDisplayAloneAreNone()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Secret").global().levels(0, 6));
    ParameterValueSnapshot offline(fixture.container.get());
    offline.applyNoFilter();
    fixture.container->setOnline(true);
    ParameterValueSnapshot online(fixture.container.get());
    online.applyNoFilter();
    QVERIFY(offline.value(Global, at("A00"), 0, true) != online.value(Global, at("A00"), 0, true));
    QCOMPARE(offline.parameterListDifferent(&online), QList<ParameterCoordinate>());
}

void tst_ParameterValueSnapshot::differencesToNothing()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    ParameterValueSnapshot empty(fixture.container.get());
    const QStringList all {QStringLiteral("A00"), QStringLiteral("B01"), QStringLiteral("C02")};
    QCOMPARE(sortedTexts(snapshot.parameterListDifferent(&empty)), all);
    QCOMPARE(sortedTexts(snapshot.parameterListDifferent(nullptr)), all);
    QCOMPARE(sortedTexts(empty.parameterListDifferent(&snapshot)), all);
    QCOMPARE(sortedTexts(snapshot.parameterListDifferent(&snapshot)), QStringList());
}

void tst_ParameterValueSnapshot::uniteNeedsDisconnection()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    ParameterValueSnapshot other(fixture.container.get());
    other.applyNoFilter();
    QVERIFY(!snapshot.unite(&other));
    QCOMPARE(snapshot.parameterList(), QList<ParameterCoordinate>());
    snapshot.disconnectFromSourceContainer();
    QVERIFY(snapshot.unite(&other));
    QCOMPARE(snapshot.parameterList().size(), 3);
}

void tst_ParameterValueSnapshot::uniteReplacesAndKeeps()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    snapshot.disconnectFromSourceContainer();
    fixture.container->deleteParameter(QStringLiteral("S;{A00}"));
    fixture.write(0, "B01", 0, QStringLiteral("2"));
    fixture.add(SnapshotFixture::parameter("D03", "New"));
    ParameterValueSnapshot other(fixture.container.get());
    other.applyNoFilter();
    QVERIFY(snapshot.unite(&other));
    QCOMPARE(sortedTexts(snapshot.parameterList()),
        (QStringList {QStringLiteral("A00"), QStringLiteral("B01"), QStringLiteral("C02"),
            QStringLiteral("D03")}));
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("11 rpm"));
    QCOMPARE(snapshot.value(Global, at("B01"), 0, true), QStringLiteral("2"));
    QCOMPARE(snapshot.parameterName(at("D03")), QStringLiteral("New"));
    QCOMPARE(snapshot.elementName(at("C02"), 2), QStringLiteral("Second"));
    QCOMPARE(snapshot.elementReadLevel(at("C02"), 2), 3U);
}

void tst_ParameterValueSnapshot::uniteTakesLivingSpaces()
{
    QTemporaryDir directory;
    const QString fileName = directory.filePath(QStringLiteral("united.txt"));
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot other(fixture.container.get());
    other.applyNoFilter();
    ParameterValueSnapshot united(nullptr);
    QVERIFY(united.unite(&other));
    QVERIFY(united.saveToTextFile(fileName, {at("A00")}));
    QCOMPARE(content(fileName),
        QByteArrayLiteral("\xEF\xBB\xBF\r\n"
                          "\"1.A00\";\"Speed\";\"11 rpm\"\n"
                          "\"2.A00\";\"Speed\";\"12 rpm\"\n"));
}

void tst_ParameterValueSnapshot::uniteIsIdempotent()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot other(fixture.container.get());
    other.applyNoFilter();
    ParameterValueSnapshot once(nullptr);
    QVERIFY(once.unite(&other));
    ParameterValueSnapshot twice(nullptr);
    QVERIFY(twice.unite(&other));
    QVERIFY(twice.unite(&other));
    QCOMPARE(once.parameterListDifferent(&twice), QList<ParameterCoordinate>());
    QCOMPARE(once.parameterListDifferent(&other), QList<ParameterCoordinate>());
    // Also in the living spaces.
    QCOMPARE(twice.toJson(), once.toJson());
    QCOMPARE(once.toJson(), other.toJson());
}

void tst_ParameterValueSnapshot::uniteWithNothing()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QVERIFY(!snapshot.unite(nullptr));
    snapshot.disconnectFromSourceContainer();
    QVERIFY(snapshot.unite(nullptr));
    QCOMPARE(snapshot.parameterList().size(), 3);
}

void tst_ParameterValueSnapshot::uniteWithItself()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    snapshot.disconnectFromSourceContainer();
    QVERIFY(snapshot.unite(&snapshot));
    QCOMPARE(snapshot.parameterList().size(), 3);
    QCOMPARE(snapshot.value(Axis1, at("A00"), 0, true), QStringLiteral("11 rpm"));
}

void tst_ParameterValueSnapshot::jsonKeepsEverything()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    ParameterValueSnapshot back(nullptr);
    QVERIFY(back.fromJson(snapshot.toJson()));
    QCOMPARE(back.parameterListDifferent(&snapshot), QList<ParameterCoordinate>());
    QCOMPARE(sortedTexts(back.parameterList()), sortedTexts(snapshot.parameterList()));
    QCOMPARE(back.value(Axis1, at("A00"), 0, true), QStringLiteral("11 rpm"));
    QCOMPARE(back.elementName(at("C02"), 2), QStringLiteral("Second"));
    QCOMPARE(back.elementReadLevel(at("C02"), 2), 3U);
    // Anew from the other's text: what was there before is gone.
    QVERIFY(back.fromJson(ParameterValueSnapshot(nullptr).toJson()));
    QCOMPARE(back.parameterList(), QList<ParameterCoordinate>());
}

void tst_ParameterValueSnapshot::jsonKeepsTheLivingSpaces()
{
    QTemporaryDir directory;
    const QString fileName = directory.filePath(QStringLiteral("export.txt"));
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    ParameterValueSnapshot back(nullptr);
    QVERIFY(back.fromJson(snapshot.toJson()));
    QVERIFY(back.saveToTextFile(fileName, {at("A00")}));
    QCOMPARE(content(fileName),
        QByteArrayLiteral("\xEF\xBB\xBF\r\n"
                          "\"1.A00\";\"Speed\";\"11 rpm\"\n"
                          "\"2.A00\";\"Speed\";\"12 rpm\"\n"));
}

void tst_ParameterValueSnapshot::jsonIsRefused()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    const QByteArray json = snapshot.toJson();
    QString problem;
    QVERIFY(!snapshot.fromJson(json, &problem));
    QCOMPARE(problem, QStringLiteral("der Snapshot hängt noch an seinem Antrieb"));
    snapshot.disconnectFromSourceContainer();
    QVERIFY(!snapshot.fromJson("{}", &problem));
    QCOMPARE(problem, QStringLiteral("das ist kein Snapshot"));
    QVERIFY(!snapshot.fromJson("{}"));
    QCOMPARE(snapshot.toJson(), json);
    QVERIFY(snapshot.fromJson(json, &problem));
    QCOMPARE(problem, QString());
}

void tst_ParameterValueSnapshot::filterPropertyNames()
{
    const QStringList names = ParameterValueSnapshot::filterPropertyNames();
    QCOMPARE(names.size(), 62);
    QCOMPARE(names.first(), QStringLiteral("PrereadFunctionIndex"));
    QCOMPARE(names.last(), QStringLiteral("ChangeTagWriteLevel"));
}

void tst_ParameterValueSnapshot::exportFile()
{
    QTemporaryDir directory;
    const QString fileName = directory.filePath(QStringLiteral("export.txt"));
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    QVERIFY(snapshot.saveToTextFile(fileName, {at("C02"), at("B01"), at("Z99")}));
    QCOMPARE(content(fileName),
        QByteArrayLiteral("\xEF\xBB\xBF\r\n"
                          "\"B01\";\"Name\";\"1\"\n"
                          "\"1.C02[0]\";\"First\";\"21\"\n"
                          "\"1.C02[2]\";\"Second\";\"22\"\n"
                          "\"2.C02[0]\";\"First\";\"23\"\n"
                          "\"2.C02[2]\";\"Second\";\"24\"\n"));
    QVERIFY(snapshot.saveToTextFile(fileName, {at("C02"), at("B01")}, {Global}));
    QCOMPARE(content(fileName), QByteArrayLiteral("\xEF\xBB\xBF\r\n\"B01\";\"Name\";\"1\"\n"));
    QVERIFY(snapshot.saveToTextFile(fileName, {at("C02"), at("B01")}, {}));
    QCOMPARE(content(fileName), QByteArrayLiteral("\xEF\xBB\xBF\r\n"));
}

void tst_ParameterValueSnapshot::exportDisabled()
{
    QTemporaryDir directory;
    const QString fileName = directory.filePath(QStringLiteral("export.txt"));
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot snapshot(fixture.container.get());
    snapshot.applyNoFilter();
    snapshot.setSaveToTextFileEnabled(false);
    QVERIFY(!snapshot.isSaveToTextFileEnabled());
    QVERIFY(!snapshot.saveToTextFile(fileName, {at("A00")}));
    QVERIFY(!snapshot.saveToTextFile(fileName, {at("A00")}, {Axis1}));
    QVERIFY(!QFile::exists(fileName));
    snapshot.setSaveToTextFileEnabled(true);
    QVERIFY(snapshot.saveToTextFile(fileName, {at("A00")}));
    const QByteArray earlier = content(fileName);
    QVERIFY(earlier.contains("11 rpm"));
    snapshot.setSaveToTextFileEnabled(false);
    QVERIFY(!snapshot.saveToTextFile(fileName, {}));
    QCOMPARE(content(fileName), earlier);
}

void tst_ParameterValueSnapshot::exportCannotBeOpened()
{
    QTemporaryDir directory;
    ParameterValueSnapshot snapshot(nullptr);
    QVERIFY(!snapshot.saveToTextFile(directory.filePath(QStringLiteral("none/export.txt")), {}));
}

QTEST_GUILESS_MAIN(tst_ParameterValueSnapshot)
#include "tst_ParameterValueSnapshot.moc"

#include "snapshot/SnapshotRowModel.h"

#include "tests/snapshot/SnapshotFixture.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtTest/QTest>

/// The rows that show snapshots side by side, as texts: "title|cell|cell", children indented.
class tst_SnapshotRowModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void noSnapshot();
    void oneSnapshotListsEverything();
    void severalListTheirDifferences();
    void neighboursAreCompared();
    void missingParameter();
    void missingElement();
    void missingLivingSpace();
    void missingLivingSpaceOfARecord();
    void leftOutLivingSpaceOfARecord();
    void livingSpacesOfAllSnapshots();
    void missingSnapshot();
    void unreadableValuesAreEmpty();
    void undecoratedTexts();
    void nameOfTheConnectedContainer();
    void elementNameOfTheConnectedContainer();
    void withoutName();
    void recordOfElementZeroIsSimple();
    void titlesAreSortedAsText();
};

namespace {

constexpr quint32 HighLevel = 6;

void appendTexts(QStringList &texts, const QList<SnapshotRow> &rows, const QString &indent)
{
    for (const SnapshotRow &row : rows) {
        QString text = indent + row.title;
        for (const SnapshotCell &cell : row.cells)
            text += QLatin1Char('|') + cell.text();
        texts.append(text);
        appendTexts(texts, row.children, indent + QLatin1Char(' '));
    }
}

QStringList rowTexts(
    const QList<ParameterValueSnapshot *> &snapshots, quint32 accessLevel = HighLevel)
{
    const SnapshotRowModel model(snapshots, accessLevel);
    QStringList texts;
    appendTexts(texts, model.table(model.coordinates()).rows, QString());
    return texts;
}

/// A snapshot that has let go of the container.
std::unique_ptr<ParameterValueSnapshot> taken(SnapshotFixture &fixture)
{
    auto snapshot = std::make_unique<ParameterValueSnapshot>(fixture.container.get());
    snapshot->applyNoFilter();
    snapshot->disconnectFromSourceContainer();
    return snapshot;
}

void fill(SnapshotFixture &fixture)
{
    fixture.add(SnapshotFixture::parameter("A00", "Speed").units(QStringLiteral("rpm")));
    fixture.add(SnapshotFixture::parameter("B01", "Table")
                    .global()
                    .element(0, QStringLiteral("First"))
                    .element(2, QStringLiteral("Second")));
    fixture.write(1, "A00", 0, QStringLiteral("11"));
    fixture.write(2, "A00", 0, QStringLiteral("12"));
    fixture.write(0, "B01", 0, QStringLiteral("1"));
    fixture.write(0, "B01", 2, QStringLiteral("2"));
}

} // namespace

void tst_SnapshotRowModel::noSnapshot()
{
    QCOMPARE(rowTexts({}), QStringList());
}

void tst_SnapshotRowModel::oneSnapshotListsEverything()
{
    SnapshotFixture fixture;
    fill(fixture);
    const auto snapshot = taken(fixture);
    QCOMPARE(rowTexts({snapshot.get()}),
        (QStringList {QStringLiteral("1.A00 Speed|11 rpm"), QStringLiteral("2.A00 Speed|12 rpm"),
            QStringLiteral("B01 Table"), QStringLiteral(" B01[0] First|1"),
            QStringLiteral(" B01[2] Second|2")}));
}

void tst_SnapshotRowModel::severalListTheirDifferences()
{
    SnapshotFixture fixture;
    fill(fixture);
    const auto before = taken(fixture);
    QCOMPARE(rowTexts({before.get(), before.get()}), QStringList());
    fixture.write(2, "A00", 0, QStringLiteral("13"));
    const auto after = taken(fixture);
    QCOMPARE(rowTexts({before.get(), after.get()}),
        (QStringList {QStringLiteral("1.A00 Speed|11 rpm|11 rpm"),
            QStringLiteral("2.A00 Speed|12 rpm|13 rpm")}));
}

void tst_SnapshotRowModel::neighboursAreCompared()
{
    SnapshotFixture fixture;
    fill(fixture);
    const auto first = taken(fixture);
    fixture.write(0, "B01", 0, QStringLiteral("5"));
    const auto second = taken(fixture);
    fixture.write(0, "B01", 0, QStringLiteral("1"));
    fixture.write(1, "A00", 0, QStringLiteral("14"));
    const auto third = taken(fixture);
    QCOMPARE(rowTexts({first.get(), second.get(), third.get()}),
        (QStringList {QStringLiteral("1.A00 Speed|11 rpm|11 rpm|14 rpm"),
            QStringLiteral("2.A00 Speed|12 rpm|12 rpm|12 rpm"), QStringLiteral("B01 Table"),
            QStringLiteral(" B01[0] First|1|5|1"), QStringLiteral(" B01[2] Second|2|2|2")}));
}

void tst_SnapshotRowModel::missingParameter()
{
    SnapshotFixture fixture;
    fill(fixture);
    const auto before = taken(fixture);
    fixture.container->deleteParameter(QStringLiteral("S;{A00}"));
    fixture.container->deleteParameter(QStringLiteral("S;{B01}"));
    const auto after = taken(fixture);
    QCOMPARE(rowTexts({before.get(), after.get()}),
        (QStringList {QStringLiteral("1.A00 Speed|11 rpm|<nicht vorhanden>"),
            QStringLiteral("2.A00 Speed|12 rpm|<nicht vorhanden>"), QStringLiteral("B01 Table"),
            QStringLiteral(" B01[0] First|1|<nicht vorhanden>"),
            QStringLiteral(" B01[2] Second|2|<nicht vorhanden>")}));
    // The names are those of the first snapshot, which has none here.
    QCOMPARE(rowTexts({after.get(), before.get()}).first(),
        QStringLiteral("1.A00|<nicht vorhanden>|11 rpm"));

    const SnapshotRowModel model({before.get(), after.get()}, HighLevel);
    const SnapshotTable table = model.table(model.coordinates());
    const SnapshotRow row = table.rows.first();
    QVERIFY(!row.cells.at(0).isMissing());
    QVERIFY(row.cells.at(1).isMissing());
    QCOMPARE(row.cells.at(1).undecorated(), QString());
}

void tst_SnapshotRowModel::missingElement()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("B01", "Table")
                    .global()
                    .element(0, QStringLiteral("First"))
                    .element(2, QStringLiteral("Second")));
    SnapshotFixture other;
    other.add(SnapshotFixture::parameter("B01", "Table")
                  .global()
                  .element(0, QStringLiteral("First"))
                  .element(3, QStringLiteral("Third")));
    const auto before = taken(fixture);
    const auto after = taken(other);
    QCOMPARE(rowTexts({before.get(), after.get()}),
        (QStringList {QStringLiteral("B01 Table"), QStringLiteral(" B01[0] First|0|0"),
            QStringLiteral(" B01[2] Second|0|<nicht vorhanden>"),
            QStringLiteral(" B01[3] |<nicht vorhanden>|0")}));
}

void tst_SnapshotRowModel::missingLivingSpace()
{
    SnapshotFixture fixture;
    fill(fixture);
    const auto before = taken(fixture);
    fixture.host.setLivingSpaces({eLivingSpace::Axis1});
    const auto after = taken(fixture);
    QCOMPARE(rowTexts({before.get(), after.get()}),
        (QStringList {QStringLiteral("1.A00 Speed|11 rpm|11 rpm"),
            QStringLiteral("2.A00 Speed|12 rpm|<nicht vorhanden>")}));
    const SnapshotRowModel model({before.get(), after.get()}, HighLevel);
    const SnapshotTable table = model.table(model.coordinates());
    const SnapshotRow row = table.rows.last();
    QVERIFY(!row.cells.at(0).isMissing());
    QVERIFY(row.cells.at(1).isMissing());
    QCOMPARE(row.cells.at(1).undecorated(), QString());
}

/// Of a record the element alone counts: it is there, though without a value in that living space.
void tst_SnapshotRowModel::missingLivingSpaceOfARecord()
{
    const DefinitionBuilder record = SnapshotFixture::parameter("C02", "Table")
                                         .element(1, QStringLiteral("First"))
                                         .element(2, QStringLiteral("Second"));
    SnapshotFixture onAxes;
    onAxes.add(record);
    SnapshotFixture once;
    once.add(DefinitionBuilder(record).global());
    const auto before = taken(onAxes);
    const auto after = taken(once);
    QCOMPARE(rowTexts({before.get(), after.get()}),
        (QStringList {QStringLiteral("1.C02 Table"), QStringLiteral(" 1.C02[1] First|0|"),
            QStringLiteral(" 1.C02[2] Second|0|"), QStringLiteral("2.C02 Table"),
            QStringLiteral(" 2.C02[1] First|0|"), QStringLiteral(" 2.C02[2] Second|0|"),
            QStringLiteral("C02 Table"), QStringLiteral(" C02[1] First||0"),
            QStringLiteral(" C02[2] Second||0")}));
    const SnapshotRowModel model({before.get(), after.get()}, HighLevel);
    const SnapshotTable table = model.table(model.coordinates());
    QVERIFY(!table.rows.first().children.first().cells.at(1).isMissing());
}

/// A snapshot keeps the values of all living spaces, also of those that the host left out.
void tst_SnapshotRowModel::leftOutLivingSpaceOfARecord()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("C02", "Table").element(1, QStringLiteral("First")));
    fixture.write(2, "C02", 1, QStringLiteral("7"));
    const auto before = taken(fixture);
    fixture.host.setLivingSpaces({eLivingSpace::Axis1});
    const auto after = taken(fixture);
    QCOMPARE(rowTexts({before.get(), after.get()}),
        (QStringList {QStringLiteral("1.C02 Table"), QStringLiteral(" 1.C02[1] First|0|0"),
            QStringLiteral("2.C02 Table"), QStringLiteral(" 2.C02[1] First|7|7")}));
}

void tst_SnapshotRowModel::livingSpacesOfAllSnapshots()
{
    SnapshotFixture fixture;
    fill(fixture);
    fixture.host.setLivingSpaces({eLivingSpace::Axis2});
    const auto second = taken(fixture);
    fixture.host.setLivingSpaces({eLivingSpace::Axis1});
    const auto first = taken(fixture);
    QCOMPARE(rowTexts({second.get(), first.get()}),
        (QStringList {QStringLiteral("1.A00 Speed|<nicht vorhanden>|11 rpm"),
            QStringLiteral("2.A00 Speed|12 rpm|<nicht vorhanden>")}));
}

void tst_SnapshotRowModel::missingSnapshot()
{
    SnapshotFixture fixture;
    fill(fixture);
    const auto snapshot = taken(fixture);
    QCOMPARE(rowTexts({nullptr}), QStringList());
    QCOMPARE(rowTexts({nullptr, nullptr}), QStringList());
    QCOMPARE(rowTexts({snapshot.get(), nullptr}).first(),
        QStringLiteral("1.A00 Speed|11 rpm|<nicht vorhanden>"));
    QCOMPARE(rowTexts({nullptr, snapshot.get()}).first(),
        QStringLiteral("1.A00|<nicht vorhanden>|11 rpm"));
}

void tst_SnapshotRowModel::unreadableValuesAreEmpty()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Secret").global().levels(4, 0));
    fixture.add(SnapshotFixture::parameter("B01", "Table")
                    .global()
                    .element(0, QStringLiteral("First"))
                    .levels(3, 0)
                    .element(1, QStringLiteral("Second"))
                    .levels(5, 0));
    const auto snapshot = taken(fixture);
    QCOMPARE(rowTexts({snapshot.get()}, 3),
        (QStringList {QStringLiteral("A00 Secret|"), QStringLiteral("B01 Table"),
            QStringLiteral(" B01[0] First|0"), QStringLiteral(" B01[1] Second|")}));
    QCOMPARE(rowTexts({snapshot.get()}, 4).first(), QStringLiteral("A00 Secret|0"));
    // A snapshot that lacks the value has no level for it.
    QCOMPARE(rowTexts({snapshot.get(), nullptr}, 0).first(),
        QStringLiteral("A00 Secret||<nicht vorhanden>"));
}

void tst_SnapshotRowModel::undecoratedTexts()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "Secret")
                    .global()
                    .levels(0, 6)
                    .units(QStringLiteral("rpm"), QStringLiteral("inc")));
    fixture.write(0, "A00", 0, QStringLiteral("7"));
    const auto snapshot = taken(fixture);
    const SnapshotRowModel model({snapshot.get()}, HighLevel);
    const SnapshotTable table = model.table(model.coordinates());
    const SnapshotCell cell = table.rows.first().cells.first();
    QCOMPARE(cell.text(), QStringLiteral("<offline> rpm"));
    QCOMPARE(cell.undecorated(), QStringLiteral("7 rpm"));
    QVERIFY(!cell.isMissing());
}

void tst_SnapshotRowModel::nameOfTheConnectedContainer()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot connected(fixture.container.get());
    connected.applyNoFilter();
    fixture.container->clear();
    fixture.add(SnapshotFixture::parameter("A00", "Velocity").units(QStringLiteral("rpm")));
    // Of a parameter that the container lacks by now, the snapshot still knows the name.
    QCOMPARE(rowTexts({&connected}),
        (QStringList {QStringLiteral("1.A00 Velocity|11 rpm"),
            QStringLiteral("2.A00 Velocity|12 rpm"), QStringLiteral("B01 Table"),
            QStringLiteral(" B01[0] First|1"), QStringLiteral(" B01[2] Second|2")}));
    connected.disconnectFromSourceContainer();
    QCOMPARE(rowTexts({&connected}).first(), QStringLiteral("1.A00 Speed|11 rpm"));
}

void tst_SnapshotRowModel::elementNameOfTheConnectedContainer()
{
    SnapshotFixture fixture;
    fill(fixture);
    ParameterValueSnapshot connected(fixture.container.get());
    connected.applyNoFilter();
    fixture.container->clear();
    fixture.add(SnapshotFixture::parameter("B01", "Table")
                    .global()
                    .element(0, QStringLiteral("Renamed"))
                    .element(2, QStringLiteral("Second")));
    QCOMPARE(rowTexts({&connected}).mid(2),
        (QStringList {QStringLiteral("B01 Table"), QStringLiteral(" B01[0] Renamed|1"),
            QStringLiteral(" B01[2] Second|2")}));
    connected.disconnectFromSourceContainer();
    QCOMPARE(rowTexts({&connected}).at(3), QStringLiteral(" B01[0] First|1"));
}

/// The blank in front of the name goes with a parameter's, and stays with an element's.
void tst_SnapshotRowModel::withoutName()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", "").global());
    fixture.add(SnapshotFixture::parameter("B01", "").global().element(1, QString()));
    const auto snapshot = taken(fixture);
    QCOMPARE(rowTexts({snapshot.get()}),
        (QStringList {
            QStringLiteral("A00|0"), QStringLiteral("B01"), QStringLiteral(" B01[1] |0")}));
}

void tst_SnapshotRowModel::recordOfElementZeroIsSimple()
{
    SnapshotFixture fixture;
    fixture.add(
        SnapshotFixture::parameter("A00", "Record").global().element(0, QStringLiteral("First")));
    fixture.add(
        SnapshotFixture::parameter("A01", "Record").global().element(1, QStringLiteral("Only")));
    const auto snapshot = taken(fixture);
    QCOMPARE(rowTexts({snapshot.get()}),
        (QStringList {QStringLiteral("A00 Record|0"), QStringLiteral("A01 Record"),
            QStringLiteral(" A01[1] Only|0")}));
}

void tst_SnapshotRowModel::titlesAreSortedAsText()
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("B00", "x").global());
    fixture.add(SnapshotFixture::parameter("A100", "x").global());
    for (const char *coordinate : {"A110", "A11", "A10"})
        fixture.add(SnapshotFixture::parameter(coordinate, "x").global());
    fixture.add(SnapshotFixture::parameter("A99", "x"));
    DefinitionBuilder record = SnapshotFixture::parameter("C00", "x").global();
    for (const quint16 element : {65535, 2, 10, 1, 0, 100, 9})
        record.element(element, QStringLiteral("y"));
    fixture.add(record);
    const auto snapshot = taken(fixture);
    QCOMPARE(rowTexts({snapshot.get()}),
        (QStringList {QStringLiteral("1.A99 x|0"), QStringLiteral("2.A99 x|0"),
            QStringLiteral("A10 x|0"), QStringLiteral("A100 x|0"), QStringLiteral("A11 x|0"),
            QStringLiteral("A110 x|0"), QStringLiteral("B00 x|0"), QStringLiteral("C00 x"),
            QStringLiteral(" C00[0] y|0"), QStringLiteral(" C00[100] y|0"),
            QStringLiteral(" C00[10] y|0"), QStringLiteral(" C00[1] y|0"),
            QStringLiteral(" C00[2] y|0"), QStringLiteral(" C00[65535] y|0"),
            QStringLiteral(" C00[9] y|0")}));
}

QTEST_GUILESS_MAIN(tst_SnapshotRowModel)
#include "tst_SnapshotRowModel.moc"

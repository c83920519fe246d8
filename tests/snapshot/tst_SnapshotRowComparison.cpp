#include "snapshot/SnapshotRowComparison.h"
#include "tests/snapshot/SnapshotCells.h"

#include <QtTest/QTest>

/// Which rows are hidden. A text stands for the undecorated text of a cell.
class tst_SnapshotRowComparison : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parameter_data();
    void parameter();
    void shownTextPlaysNoPart();
    void unitIsPartOfTheText_data();
    void unitIsPartOfTheText();
    void record_data();
    void record();
    void oneColumnHidesNothing();
    void rowWithoutCells();
};

namespace {

SnapshotRow row(const QString &cells)
{
    SnapshotRow result;
    const QStringList texts = cells.split(QLatin1Char('|'));
    for (const QString &text : texts)
        result.cells.append(snapshotCell(QStringLiteral("shown"), text));
    return result;
}

QList<SnapshotRow> hidden(QList<SnapshotRow> rows, qsizetype columnCount)
{
    SnapshotRowComparison::hideEqualRows(rows, columnCount);
    return rows;
}

} // namespace

void tst_SnapshotRowComparison::parameter_data()
{
    QTest::addColumn<QString>("cells");
    QTest::addColumn<bool>("isHidden");
    QTest::newRow("two equal") << QStringLiteral("1|1") << true;
    QTest::newRow("two different") << QStringLiteral("1|2") << false;
    QTest::newRow("three equal") << QStringLiteral("1|1|1") << true;
    QTest::newRow("last differs") << QStringLiteral("1|1|2") << false;
    QTest::newRow("first differs") << QStringLiteral("2|1|1") << false;
    QTest::newRow("middle differs") << QStringLiteral("1|2|1") << false;
    QTest::newRow("both empty") << QStringLiteral("|") << true;
    QTest::newRow("one empty") << QStringLiteral("|0") << false;
    QTest::newRow("compared as text") << QStringLiteral("1|1.0") << false;
}

void tst_SnapshotRowComparison::parameter()
{
    QFETCH(QString, cells);
    QFETCH(bool, isHidden);
    const qsizetype columnCount = cells.count(QLatin1Char('|')) + 1;
    QCOMPARE(hidden({row(cells)}, columnCount).first().isHidden, isHidden);
}

void tst_SnapshotRowComparison::shownTextPlaysNoPart()
{
    SnapshotRow missing = row(QStringLiteral("|"));
    missing.cells[1] = snapshotCell(QStringLiteral("<nicht vorhanden>"), QString());
    missing.cells[1].state = SnapshotCell::eState::Missing;
    QVERIFY(hidden({missing}, 2).first().isHidden);
}

void tst_SnapshotRowComparison::unitIsPartOfTheText_data()
{
    QTest::addColumn<SnapshotCell>("left");
    QTest::addColumn<SnapshotCell>("right");
    QTest::addColumn<bool>("isHidden");
    const auto cell = [](const char *text, const char *unit) {
        return snapshotCell(QString(), QString::fromLatin1(text), QString::fromLatin1(unit));
    };
    QTest::newRow("both alike") << cell("1", "A") << cell("1", "A") << true;
    QTest::newRow("another unit") << cell("1", "A") << cell("1", "mA") << false;
    QTest::newRow("no unit") << cell("1", "A") << cell("1", "") << false;
    QTest::newRow("unit in the text") << cell("1", "A") << cell("1 A", "") << true;
    QTest::newRow("another text") << cell("1", "A") << cell("2", "A") << false;
}

void tst_SnapshotRowComparison::unitIsPartOfTheText()
{
    QFETCH(SnapshotCell, left);
    QFETCH(SnapshotCell, right);
    QFETCH(bool, isHidden);
    SnapshotRow row;
    row.cells = {left, right};
    QCOMPARE(hidden({row}, 2).first().isHidden, isHidden);
}

void tst_SnapshotRowComparison::record_data()
{
    QTest::addColumn<QStringList>("children");
    QTest::addColumn<QList<bool>>("areHidden");
    QTest::addColumn<bool>("isHidden");
    QTest::newRow("all equal") << QStringList {QStringLiteral("1|1"), QStringLiteral("2|2")}
                               << QList {true, true} << true;
    QTest::newRow("first differs") << QStringList {QStringLiteral("1|3"), QStringLiteral("2|2")}
                                   << QList {false, true} << false;
    QTest::newRow("last differs") << QStringList {QStringLiteral("1|1"), QStringLiteral("2|3")}
                                  << QList {true, false} << false;
    QTest::newRow("all differ") << QStringList {QStringLiteral("1|2"), QStringLiteral("2|1")}
                                << QList {false, false} << false;
}

void tst_SnapshotRowComparison::record()
{
    QFETCH(QStringList, children);
    QFETCH(QList<bool>, areHidden);
    QFETCH(bool, isHidden);
    SnapshotRow parent;
    for (const QString &child : std::as_const(children))
        parent.children.append(row(child));
    parent = hidden({parent}, 2).first();
    QCOMPARE(parent.isHidden, isHidden);
    for (qsizetype i = 0; i < areHidden.size(); ++i)
        QCOMPARE(parent.children.at(i).isHidden, areHidden.at(i));
}

void tst_SnapshotRowComparison::oneColumnHidesNothing()
{
    SnapshotRow parent;
    parent.children = {row(QStringLiteral("1"))};
    const auto rows = hidden({row(QStringLiteral("1")), parent}, 1);
    QVERIFY(!rows.at(0).isHidden);
    QVERIFY(!rows.at(1).isHidden);
    QVERIFY(!rows.at(1).children.first().isHidden);
}

void tst_SnapshotRowComparison::rowWithoutCells()
{
    QVERIFY(hidden({SnapshotRow()}, 2).first().isHidden);
}

QTEST_GUILESS_MAIN(tst_SnapshotRowComparison)
#include "tst_SnapshotRowComparison.moc"

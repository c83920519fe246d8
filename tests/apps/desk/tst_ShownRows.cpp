#include "apps/krparameter-desk/ShownRows.h"
#include "tests/apps/desk/DeskDevice.h"

#include <QtTest/QTest>

class tst_ShownRows : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsVisibleAtFirst();
    void visibility();
    void axis();
    void found();
    void places();
};

namespace {

/// A global value, one of each axis, another global one.
ShownRows rows()
{
    ShownRows result;
    result.setPlaces({place("A20"), place("B01", 1), place("B01", 2), place("E30", 0, 1)});
    for (int row = 0; row < 4; ++row)
        result.setVisible(row, true);
    result.update();
    return result;
}

QList<int> shown(const ShownRows &rows)
{
    QList<int> result;
    for (int row = 0; row < rows.count(); ++row)
        result.append(rows.rowAt(row));
    return result;
}

} // namespace

void tst_ShownRows::nothingIsVisibleAtFirst()
{
    ShownRows rows;
    QCOMPARE(rows.count(), 0);
    rows.setPlaces({place("A20")});
    QCOMPARE(rows.count(), 0);
    QCOMPARE(rows.shownRowOf(0), -1);
}

void tst_ShownRows::visibility()
{
    ShownRows shownRows = rows();
    QCOMPARE(shown(shownRows), (QList<int> {0, 1, 2, 3}));
    shownRows.setVisible(1, false);
    QCOMPARE(shown(shownRows), (QList<int> {0, 1, 2, 3}));
    shownRows.update();
    QCOMPARE(shown(shownRows), (QList<int> {0, 2, 3}));
    QCOMPARE(shownRows.searchableCount(), 3);
    QCOMPARE(shownRows.shownRowOf(0), 0);
    QCOMPARE(shownRows.shownRowOf(1), -1);
    QCOMPARE(shownRows.shownRowOf(3), 2);
}

void tst_ShownRows::axis()
{
    ShownRows shownRows = rows();
    shownRows.setAxis(eLivingSpace::Axis2);
    shownRows.update();
    QCOMPARE(shown(shownRows), (QList<int> {0, 2, 3}));
    shownRows.setAxis({});
    shownRows.update();
    QCOMPARE(shownRows.count(), 4);
}

void tst_ShownRows::found()
{
    ShownRows shownRows = rows();
    shownRows.setFound({false, true, false, true});
    shownRows.setAxis(eLivingSpace::Axis2);
    shownRows.update();
    QCOMPARE(shown(shownRows), QList<int> {3});
    QCOMPARE(shownRows.searchableCount(), 3);
    shownRows.setFound({});
    shownRows.update();
    QCOMPARE(shownRows.count(), 3);
}

void tst_ShownRows::places()
{
    ShownRows shownRows = rows();
    shownRows.setFound({false, true, false, true});
    shownRows.setPlaces({place("A20")});
    QCOMPARE(shownRows.count(), 0);
    shownRows.setVisible(0, true);
    shownRows.update();
    QCOMPARE(shown(shownRows), QList<int> {0});
}

QTEST_GUILESS_MAIN(tst_ShownRows)
#include "tst_ShownRows.moc"

#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtWidgets/QListView>
#include <QtWidgets/QTreeWidget>

/// Snapshots are taken, named, compared and removed, and rows of a comparison lead back to the table.
class tst_DeskComparison : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<DeskOnScreen>(DeskDevice::description()); }
    void cleanup() { m_desk.reset(); }

    void snapshotAndCompare();
    void snapshotIsRefused();
    void renameSnapshot();
    void removeSnapshot();
    void rowLeadsToItsParameter();

private:
    DeskOnScreen &desk() const { return *m_desk; }
    QStringList comparedRows() const;

    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

QStringList tst_DeskComparison::comparedRows() const
{
    QStringList result;
    const auto *widget = desk().window->findChild<ParameterValueSnapshotWidget *>();
    const auto *tree = widget ? widget->findChild<QTreeWidget *>() : nullptr;
    for (int row = 0; tree && row < tree->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = tree->topLevelItem(row);
        if (!item->isHidden())
            result.append(item->text(0) + u'|' + item->text(1) + u'|' + item->text(2));
    }
    return result;
}

void tst_DeskComparison::snapshotAndCompare()
{
    desk().press(DeskActions::TakeSnapshot);
    QCOMPARE(desk().dialogs.asked, QStringList(QStringLiteral("snapshot: Snapshot 1")));
    desk().doubleClick(place("B01", 1));
    desk().type("5");
    desk().press(Qt::Key_Return);
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::CompareSnapshots);
    QCOMPARE(comparedRows(), QStringList(QStringLiteral("1.B01 Strom|4.200 A|5.000 A")));
    QVERIFY(desk().window->findChild<ParameterValueSnapshotWidget *>()->isVisible());
    // The second one alone shows everything.
    auto *list = desk().child<QListView>("snapshots");
    desk().press(DeskActions::GoToSnapshots);
    QVERIFY(list->hasFocus());
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_Space);
    QCOMPARE(comparedRows().size(), 9);
    desk().press(Qt::Key_Space);
    QCOMPARE(comparedRows().size(), 1);
}

void tst_DeskComparison::snapshotIsRefused()
{
    desk().dialogs.takesSuggestedName = false;
    desk().press(DeskActions::TakeSnapshot);
    QCOMPARE(desk().window->snapshots().rowCount(), 0);
    desk().dialogs.takesSuggestedName = true;
    desk().dialogs.cancels = true;
    desk().press(DeskActions::TakeSnapshot);
    QCOMPARE(desk().window->snapshots().rowCount(), 0);
}

void tst_DeskComparison::renameSnapshot()
{
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::GoToSnapshots);
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_F2);
    QVERIFY(!desk().field());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("Vorher"));
    desk().press(Qt::Key_Return);
    QTRY_COMPARE(desk().window->snapshots().checkedNames(), QStringList(QStringLiteral("Vorher")));
}

void tst_DeskComparison::removeSnapshot()
{
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::GoToSnapshots);
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_Delete);
    QCOMPARE(desk().window->snapshots().checkedNames(), QStringList(QStringLiteral("Snapshot 2")));
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_Delete);
    QVERIFY(!desk().window->findChild<ParameterValueSnapshotWidget *>());
}

void tst_DeskComparison::rowLeadsToItsParameter()
{
    snapshotAndCompare();
    auto *tree =
        desk().window->findChild<ParameterValueSnapshotWidget *>()->findChild<QTreeWidget *>();
    QTRY_VERIFY(tree->isVisible());
    int shown = 0;
    while (tree->topLevelItem(shown)->isHidden())
        ++shown;
    const QPoint cell = tree->visualItemRect(tree->topLevelItem(shown)).center();
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
    QTest::mouseDClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, cell);
    QVERIFY(desk().table().isVisible());
    QCOMPARE(desk().window->navigation().currentAddress().toSortableText(),
        QStringLiteral("1.B001[00000]"));
    // And a whole record, which has no value of its own.
    desk().click(place("E30", 0, 2));
    desk().press(Qt::Key_4);
    desk().press(Qt::Key_Return);
    desk().press(DeskActions::TakeSnapshot);
    desk().click(place("A20"));
    desk().press(DeskActions::ShowComparison);
    tree = desk().window->findChild<ParameterValueSnapshotWidget *>()->findChild<QTreeWidget *>();
    QTreeWidgetItem *record = tree->topLevelItem(tree->topLevelItemCount() - 1);
    QCOMPARE(record->text(0), QStringLiteral("E30 Faktor"));
    tree->setCurrentItem(record);
    tree->setFocus();
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().window->navigation().currentAddress().toSortableText(),
        QStringLiteral("1.E030[00001]"));
}

QTEST_MAIN(tst_DeskComparison)
#include "tst_DeskComparison.moc"

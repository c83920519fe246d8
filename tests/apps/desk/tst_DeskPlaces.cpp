#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTreeWidget>

/// Where keys lead on the desk, and what is in view there.
class tst_DeskPlaces : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<DeskOnScreen>(description()); }
    void cleanup() { m_desk.reset(); }

    void parametersByKey();
    void comparisonByKey();
    void comparisonWithoutSnapshots();
    void compareGoesToTheComparison();
    void tickingStaysInTheList();
    void searchOnTheComparison();
    void searchLeftOnTheComparison();
    void rowStaysInViewAfterTheSearch_data();
    void rowStaysInViewAfterTheSearch();
    void rowIsCurrentAgainAfterTheSearch();
    void searchThatFindsNothingOfThePlace();
    void rowStaysInViewOnAnotherAxis();
    void editOnlyOnTheTable();
    void searchCannotBeHidden();
    void hiddenSearchComesBack();
    void docksAreRestored();
    void undoIsNamed();
    void undoGoesToItsRow();
    void undoGoesThroughSearchAndComparison();
    void undoOfWhatMayNotBeSeen();

private:
    static QByteArray description();
    DeskOnScreen &desk() const { return *m_desk; }
    QTabWidget *pages() const { return desk().window->findChild<QTabWidget *>(); }
    QTreeWidget *tree() const
    {
        const auto *widget = desk().window->findChild<ParameterValueSnapshotWidget *>();
        return widget ? widget->findChild<QTreeWidget *>() : nullptr;
    }
    void write(const ValuePlace &at, const char *text) const;

    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

/// More rows than the table shows at once: P00 to P399, whose defaults are their numbers. The last one is
/// read from level 2 on.
QByteArray tst_DeskPlaces::description()
{
    QByteArrayList parameters;
    for (int number = 0; number < 400; ++number) {
        parameters.append(
            QStringLiteral(R"({"number": %4, "coordinates": ["P%2"], "name": "Platz %2",
"global": true, "elements": [{"dataType": "UINT16", "kind": 0, "default": %1,
"limits": {"lower": 0, "upper": 1000}, "levels": {"read": %3, "write": 2}}]})")
                .arg(number)
                .arg(number, 3, 10, QLatin1Char('0'))
                .arg(number == 399 ? 2 : 0)
                .arg(number + 1)
                .toUtf8());
    }
    return R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 81, "name": "Places", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de", "en"], "dataTypes": ["UINT16"], "parameters": [)"
        + parameters.join(',') + "]}";
}

void tst_DeskPlaces::write(const ValuePlace &at, const char *text) const
{
    desk().table().goTo(desk().model().indexOf(at));
    desk().type(text);
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().value(at), QString::fromLatin1(text));
}

void tst_DeskPlaces::parametersByKey()
{
    desk().press(DeskActions::ShowComparison);
    desk().press(DeskActions::ShowParameters);
    QVERIFY(desk().table().hasFocus());
    QCOMPARE(pages()->currentIndex(), 0);
    // From the list of snapshots too, where the table stood in front all the time.
    desk().press(DeskActions::GoToSnapshots);
    QVERIFY(!desk().table().hasFocus());
    desk().press(DeskActions::ShowParameters);
    QVERIFY(desk().table().hasFocus());
}

void tst_DeskPlaces::comparisonByKey()
{
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::ShowComparison);
    QVERIFY(tree());
    QVERIFY(tree()->hasFocus());
    desk().press(Qt::Key_Down);
    QVERIFY(tree()->currentItem());
    desk().press(DeskActions::GoToSnapshots);
    desk().press(DeskActions::ShowComparison);
    QVERIFY(tree()->hasFocus());
}

void tst_DeskPlaces::comparisonWithoutSnapshots()
{
    desk().press(DeskActions::GoToSnapshots);
    desk().press(DeskActions::ShowComparison);
    QCOMPARE(pages()->currentIndex(), 1);
    QVERIFY(pages()->currentWidget()->hasFocus());
    desk().press(DeskActions::ShowParameters);
    QVERIFY(desk().table().hasFocus());
}

void tst_DeskPlaces::compareGoesToTheComparison()
{
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::GoToSnapshots);
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_Space);
    desk().press(Qt::Key_Space);
    desk().press(DeskActions::CompareSnapshots);
    QVERIFY(tree()->hasFocus());
    // And again from the comparison itself, which is made anew.
    desk().press(DeskActions::CompareSnapshots);
    QVERIFY(tree()->hasFocus());
}

void tst_DeskPlaces::tickingStaysInTheList()
{
    desk().press(DeskActions::TakeSnapshot);
    desk().press(DeskActions::ShowComparison);
    desk().press(DeskActions::GoToSnapshots);
    desk().press(Qt::Key_Home);
    desk().press(Qt::Key_Space);
    QVERIFY(desk().child<QListView>("snapshots")->hasFocus());
}

void tst_DeskPlaces::searchOnTheComparison()
{
    desk().press(DeskActions::ShowComparison);
    QTest::mouseClick(desk().child<QLineEdit>("search"), Qt::LeftButton);
    QCOMPARE(pages()->currentIndex(), 1);
    desk().type("p17");
    QCOMPARE(pages()->currentIndex(), 0);
    QVERIFY(desk().child<QLineEdit>("search")->hasFocus());
    // P17 and P170 to P179.
    QCOMPARE(desk().model().rowCount(), 11);
}

void tst_DeskPlaces::searchLeftOnTheComparison()
{
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return}) {
        desk().press(DeskActions::ShowComparison);
        QTest::mouseClick(desk().child<QLineEdit>("search"), Qt::LeftButton);
        desk().press(key);
        QCOMPARE(pages()->currentIndex(), 0);
        QVERIFY(desk().table().hasFocus());
    }
}

void tst_DeskPlaces::rowStaysInViewAfterTheSearch_data()
{
    QTest::addColumn<bool>("byEscape");
    QTest::newRow("Escape clears") << true;
    QTest::newRow("Backspace clears") << false;
}

void tst_DeskPlaces::rowStaysInViewAfterTheSearch()
{
    QFETCH(bool, byEscape);
    desk().press(DeskActions::Search);
    desk().type("p317");
    desk().press(Qt::Key_Down);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P317")));
    desk().press(DeskActions::Search);
    if (byEscape)
        desk().press(Qt::Key_Escape);
    else
        desk().press(Qt::Key_Backspace);
    QCOMPARE(desk().model().rowCount(), 400);
    QVERIFY(desk().isInView(place("P317")));
    desk().press(Qt::Key_Down);
    QVERIFY(desk().table().hasFocus());
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P317")));
    QVERIFY(desk().isInView(place("P317")));
}

/// Who finds nothing and gives up is where he was.
void tst_DeskPlaces::rowIsCurrentAgainAfterTheSearch()
{
    desk().table().goTo(desk().model().indexOf(place("P200")));
    desk().press(DeskActions::Search);
    desk().type("p17");
    QVERIFY(!desk().table().currentIndex().isValid());
    desk().press(Qt::Key_Escape);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P200")));
    QVERIFY(desk().isInView(place("P200")));
    desk().press(Qt::Key_Down);
    QVERIFY(desk().isInView(place("P200")));
}

void tst_DeskPlaces::searchThatFindsNothingOfThePlace()
{
    desk().table().goTo(desk().model().indexOf(place("P200")));
    desk().press(DeskActions::Search);
    desk().type("p3");
    QVERIFY(!desk().table().currentIndex().isValid());
    QVERIFY(desk().isInView(place("P30")));
    desk().press(Qt::Key_Down);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P30")));
    // From now on this is the place.
    desk().press(DeskActions::Search);
    desk().press(Qt::Key_Escape);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P30")));
    QVERIFY(desk().isInView(place("P30")));
}

/// All parameters are global: every axis has all of them.
void tst_DeskPlaces::rowStaysInViewOnAnotherAxis()
{
    desk().table().goTo(desk().model().indexOf(place("P200")));
    desk().table().scrollToTop();
    auto *axis = desk().child<QComboBox>("axis");
    axis->setFocus();
    QTest::keyClick(axis, Qt::Key_Down);
    QVERIFY(desk().isInView(place("P200")));
}

void tst_DeskPlaces::editOnlyOnTheTable()
{
    const QAction *edit = desk().action(DeskActions::EditValue);
    QVERIFY(edit->isEnabled());
    desk().press(DeskActions::ShowComparison);
    QVERIFY(!edit->isEnabled());
    desk().press(DeskActions::EditValue);
    QVERIFY(!desk().field());
    desk().press(DeskActions::ShowParameters);
    QVERIFY(edit->isEnabled());
    desk().press(DeskActions::EditValue);
    QVERIFY(desk().field());
}

/// The window's own menu has the docks.
void tst_DeskPlaces::searchCannotBeHidden()
{
    const std::unique_ptr<QMenu> menu(desk().window->createPopupMenu());
    QStringList offered;
    for (const QAction *action : menu->actions()) {
        if (action->isVisible() && !action->isSeparator())
            offered.append(action->text());
    }
    offered.sort();
    QCOMPARE(offered.join(u' '), QStringLiteral("Meldungen Snapshots"));
}

void tst_DeskPlaces::hiddenSearchComesBack()
{
    desk().window->selectors().hide();
    desk().window->saveState();
    desk().open();
    desk().window->restoreState();
    QVERIFY(desk().window->selectors().isVisible());
    desk().press(DeskActions::Search);
    QVERIFY(desk().child<QLineEdit>("search")->hasFocus());
}

void tst_DeskPlaces::docksAreRestored()
{
    auto *snapshots = desk().child<QDockWidget>("snapshotDock");
    desk().window->addDockWidget(Qt::LeftDockWidgetArea, snapshots);
    desk().child<QDockWidget>("messageDock")->close();
    desk().window->close();
    desk().open();
    desk().window->restoreState();
    snapshots = desk().child<QDockWidget>("snapshotDock");
    QCOMPARE(desk().window->dockWidgetArea(snapshots), Qt::LeftDockWidgetArea);
    QVERIFY(snapshots->isVisible());
    auto *messages = desk().child<QDockWidget>("messageDock");
    QVERIFY(!messages->isVisible());
    desk().press(DeskActions::GoToMessages);
    QVERIFY(messages->isVisible());
    QVERIFY(desk().child<QListView>("messages")->hasFocus());
}

void tst_DeskPlaces::undoIsNamed()
{
    const QAction *undo = desk().action(DeskActions::Undo);
    const QAction *redo = desk().action(DeskActions::Redo);
    QCOMPARE(undo->text(), QStringLiteral("&Rückgängig"));
    QCOMPARE(redo->text(), QStringLiteral("&Wiederholen"));
    write(place("P3"), "13");
    write(place("P5"), "15");
    QCOMPARE(undo->text(), QStringLiteral("&Rückgängig: P05"));
    desk().press(DeskActions::Undo);
    QCOMPARE(undo->text(), QStringLiteral("&Rückgängig: P03"));
    QCOMPARE(redo->text(), QStringLiteral("&Wiederholen: P05"));
    desk().window->language().choose(QStringLiteral("en"));
    QCOMPARE(undo->text(), QStringLiteral("&Undo: P03"));
    QCOMPARE(redo->text(), QStringLiteral("&Redo: P05"));
    desk().press(DeskActions::Undo);
    QCOMPARE(undo->text(), QStringLiteral("&Undo"));
    QVERIFY(!undo->isEnabled());
    desk().window->language().choose(QStringLiteral("de"));
    QCOMPARE(redo->text(), QStringLiteral("&Wiederholen: P03"));
}

void tst_DeskPlaces::undoGoesToItsRow()
{
    write(place("P300"), "13");
    write(place("P5"), "15");
    desk().table().goTo(desk().model().indexOf(place("P200")));
    desk().press(DeskActions::Undo);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P5")));
    QVERIFY(desk().isInView(place("P5")));
    desk().press(DeskActions::Undo);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P300")));
    QVERIFY(desk().isInView(place("P300")));
    desk().press(DeskActions::Redo);
    desk().press(DeskActions::Redo);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P5")));
    QVERIFY(desk().table().hasFocus());
}

void tst_DeskPlaces::undoGoesThroughSearchAndComparison()
{
    write(place("P300"), "13");
    desk().press(DeskActions::Search);
    desk().type("p17");
    desk().press(Qt::Key_Down);
    desk().press(DeskActions::ShowComparison);
    desk().press(DeskActions::Undo);
    QCOMPARE(pages()->currentIndex(), 0);
    QCOMPARE(desk().child<QLineEdit>("search")->text(), QString());
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P300")));
    QVERIFY(desk().isInView(place("P300")));
    QCOMPARE(desk().value(place("P300")), QStringLiteral("300"));
}

/// It is taken back all the same; the row that is current stays so.
void tst_DeskPlaces::undoOfWhatMayNotBeSeen()
{
    write(place("P399"), "13");
    desk().table().goTo(desk().model().indexOf(place("P5")));
    desk().window->setAccessLevel(0);
    QVERIFY(!desk().model().indexOf(place("P399")).isValid());
    desk().press(DeskActions::Undo);
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("P5")));
    desk().window->setAccessLevel(4);
    QCOMPARE(desk().value(place("P399")), QStringLiteral("399"));
}

QTEST_MAIN(tst_DeskPlaces)
#include "tst_DeskPlaces.moc"

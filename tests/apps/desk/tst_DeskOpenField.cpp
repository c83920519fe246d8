#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

#include <QtWidgets/QListView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QToolButton>

/// Commands while a field is open: what is typed belongs to them.
class tst_DeskOpenField : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<DeskOnScreen>(DeskDevice::description()); }
    void cleanup() { m_desk.reset(); }

    void save_data();
    void save();
    void saveIsRefused_data() { save_data(); }
    void saveIsRefused();
    void quit_data();
    void quit();
    void quitIsRefused_data() { quit_data(); }
    void quitIsRefused();
    void command_data();
    void command();
    void commandIsRefused_data() { command_data(); }
    void commandIsRefused();
    void switchesStayWhereRefused_data();
    void switchesStayWhereRefused();
    void snapshotByItsButton();
    void menuThatIsLeftByEscape();
    void unmadeChoice();
    void refusedChoice();

private:
    DeskOnScreen &desk() const { return *m_desk; }
    void open(const char *text) const;
    void saveBy(const QString &way) const;
    void quitBy(const QString &way) const;
    void expectSaved() const;
    void expectRefusal() const;
    void verifyRefused() const;

    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

namespace {

const QString TooLarge = QStringLiteral(
    "Parameter 1.B01: Fehler beim Übernehmen des Werts - Wert \"40.000 A\" ist zu groß");

} // namespace

/// A current of 4.2 A, at most 40 A.
void tst_DeskOpenField::open(const char *text) const
{
    desk().doubleClick(place("B01", 1));
    desk().type(text);
    QVERIFY(desk().field());
}

void tst_DeskOpenField::saveBy(const QString &way) const
{
    if (way == QLatin1String("Ctrl+S")) {
        desk().press(DeskActions::SaveProject);
    } else if (way == QLatin1String("Ctrl+Shift+S")) {
        desk().press(DeskActions::SaveProjectAs);
    } else {
        QMenuBar *bar = desk().window->menuBar();
        QAction *file = bar->actions().constFirst();
        if (way == QLatin1String("menu by mouse"))
            QTest::mouseClick(
                bar, Qt::LeftButton, Qt::NoModifier, bar->actionGeometry(file).center());
        else
            desk().press(Qt::Key_D, Qt::AltModifier);
        QMenu *menu = file->menu();
        QVERIFY(menu->isVisible());
        QAction *save = desk().action(DeskActions::SaveProject);
        if (way == QLatin1String("menu by mouse"))
            QTest::mouseClick(
                menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(save).center());
        else
            QTest::keyClick(menu, Qt::Key_S);
        QVERIFY(!menu->isVisible());
    }
}

void tst_DeskOpenField::quitBy(const QString &way) const
{
    if (way == QLatin1String("Ctrl+Q"))
        desk().press(DeskActions::Quit);
    else
        desk().window->close();
}

void tst_DeskOpenField::expectSaved() const
{
    desk().messages.expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("gespeichert und zurückgelesen"));
}

void tst_DeskOpenField::expectRefusal() const
{
    desk().messages.expect(
        MessageRecorder::eSeverity::Critical, QStringLiteral("Desk drive"), TooLarge);
}

void tst_DeskOpenField::verifyRefused() const
{
    QVERIFY(desk().window->isVisible());
    QVERIFY(desk().field());
    QVERIFY(desk().field()->hasFocus());
    QCOMPARE(desk().field()->text(), QStringLiteral("41"));
    QVERIFY(desk().note()->isVisible());
    QCOMPARE(desk().note()->text(), TooLarge);
    QCOMPARE(desk().value(place("B01", 1)), QStringLiteral("4.200"));
    QCOMPARE(desk().dialogs.asked, QStringList());
}

void tst_DeskOpenField::save_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Ctrl+S", "Ctrl+Shift+S", "menu by mouse", "menu by keys"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_DeskOpenField::save()
{
    QFETCH(QString, way);
    desk().dialogs.folderAnswer = desk().device.path("plant");
    open("15.5");
    expectSaved();
    saveBy(way);
    QVERIFY(!desk().field());
    QCOMPARE(desk().value(place("B01", 1)), QStringLiteral("15.500"));
    QVERIFY(!desk().window->isWindowModified());
    // And that is what the folder has.
    desk().open();
    desk().messages.expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("10 Werte und 10 Defaultwerte gelesen"));
    QVERIFY(desk().window->session().load(desk().device.path("plant")));
    QCOMPARE(desk().value(place("B01", 1)), QStringLiteral("15.500"));
}

void tst_DeskOpenField::saveIsRefused()
{
    QFETCH(QString, way);
    desk().dialogs.folderAnswer = desk().device.path("plant");
    open("41");
    expectRefusal();
    saveBy(way);
    verifyRefused();
    QVERIFY(!QFile::exists(desk().device.path("plant")));
}

void tst_DeskOpenField::quit_data()
{
    QTest::addColumn<QString>("way");
    for (const char *way : {"Ctrl+Q", "the window's own button"})
        QTest::newRow(way) << QString::fromLatin1(way);
}

void tst_DeskOpenField::quit()
{
    QFETCH(QString, way);
    open("15.5");
    quitBy(way);
    QCOMPARE(desk().dialogs.asked, QStringList(QStringLiteral("unsaved")));
    QVERIFY(desk().window->isVisible());
    QCOMPARE(desk().value(place("B01", 1)), QStringLiteral("15.500"));
    desk().dialogs.unsavedAnswer = DeskDialogs::eUnsaved::Discard;
    quitBy(way);
    QVERIFY(!desk().window->isVisible());
}

void tst_DeskOpenField::quitIsRefused()
{
    QFETCH(QString, way);
    open("41");
    expectRefusal();
    quitBy(way);
    verifyRefused();
}

void tst_DeskOpenField::command_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("asked");
    QTest::newRow("open a device") << int(DeskActions::OpenDevice) << "device";
    QTest::newRow("load a project") << int(DeskActions::LoadProject) << "load";
    QTest::newRow("take a snapshot") << int(DeskActions::TakeSnapshot) << "snapshot: Snapshot 1";
    QTest::newRow("go online") << int(DeskActions::GoOnline) << "drive: 127.0.0.1:502";
    QTest::newRow("choose the drive") << int(DeskActions::ChooseDrive) << "drive: 127.0.0.1:502";
}

void tst_DeskOpenField::command()
{
    QFETCH(int, action);
    QFETCH(QString, asked);
    open("15.5");
    desk().press(DeskActions::eAction(action));
    QCOMPARE(desk().dialogs.asked, QStringList(asked));
    QVERIFY(!desk().field());
    QCOMPARE(desk().value(place("B01", 1)), QStringLiteral("15.500"));
}

void tst_DeskOpenField::commandIsRefused()
{
    QFETCH(int, action);
    open("41");
    expectRefusal();
    desk().press(DeskActions::eAction(action));
    verifyRefused();
    // Once the field is given up it goes on.
    desk().press(Qt::Key_Escape);
    desk().press(DeskActions::eAction(action));
    QCOMPARE(desk().dialogs.asked.size(), 1);
}

void tst_DeskOpenField::switchesStayWhereRefused_data()
{
    QTest::addColumn<int>("action");
    QTest::newRow("online") << int(DeskActions::GoOnline);
    QTest::newRow("read only") << int(DeskActions::ReadOnly);
}

void tst_DeskOpenField::switchesStayWhereRefused()
{
    QFETCH(int, action);
    open("41");
    expectRefusal();
    desk().press(DeskActions::eAction(action));
    QVERIFY(!desk().action(DeskActions::eAction(action))->isChecked());
    verifyRefused();
}

void tst_DeskOpenField::snapshotByItsButton()
{
    open("15.5");
    for (QToolButton *button : desk().window->findChildren<QToolButton *>()) {
        if (button->defaultAction() == desk().action(DeskActions::TakeSnapshot))
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QCOMPARE(desk().window->snapshots().rowCount(), 1);
    QCOMPARE(desk().value(place("B01", 1)), QStringLiteral("15.500"));
}

/// A menu gives the focus back to the field.
void tst_DeskOpenField::menuThatIsLeftByEscape()
{
    open("15.5");
    desk().press(Qt::Key_D, Qt::AltModifier);
    QVERIFY(QApplication::activePopupWidget());
    desk().press(Qt::Key_Escape);
    QTest::keyClick(desk().window->menuBar(), Qt::Key_Escape);
    QVERIFY(desk().field());
    QVERIFY(desk().field()->hasFocus());
    QCOMPARE(desk().field()->text(), QStringLiteral("15.5"));
    QVERIFY(!desk().window->session().undoStack()->canUndo());
}

/// Who only looks through a list chooses nothing, whatever command comes next.
void tst_DeskOpenField::unmadeChoice()
{
    desk().doubleClick(place("B02", 1));
    desk().press(Qt::Key_Down);
    desk().dialogs.unsavedAnswer = DeskDialogs::eUnsaved::Discard;
    desk().window->close();
    QVERIFY(!desk().window->isVisible());
    QCOMPARE(desk().dialogs.asked, QStringList());
    QVERIFY(!desk().window->session().undoStack()->canUndo());
}

/// The brake takes 0 and 1 on this device, but not while it is read only.
void tst_DeskOpenField::refusedChoice()
{
    desk().doubleClick(place("B02", 1));
    desk().press(Qt::Key_Down);
    desk().window->navigation().parameterContainer()->setReadOnly(true);
    desk().press(Qt::Key_Return);
    QVERIFY(desk().list());
    QVERIFY(desk().note()->isVisible());
    desk().press(DeskActions::TakeSnapshot);
    QCOMPARE(desk().dialogs.asked, QStringList());
    QVERIFY(desk().list());
    QVERIFY(desk().list()->hasFocus());
    desk().press(Qt::Key_Escape);
    desk().press(DeskActions::TakeSnapshot);
    QCOMPARE(desk().dialogs.asked.size(), 1);
}

QTEST_MAIN(tst_DeskOpenField)
#include "tst_DeskOpenField.moc"

#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/RejectionNote.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/apps/desk/DeskDevice.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterNavigationHost.h>
#include <KrSystem/System.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QMenuBar>

/// The desk with real clicks and keys.
class tst_DeskWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void search();
    void searchByKeysAlone();
    void edit();
    void editByTyping();
    void editGivenUp();
    void editorKeepsWhatIsTyped();
    void refuse();
    void refusedAndLeft();
    void refusedNearTheEdge();
    void tabGoesOn();
    void chooseFromAList();
    void readOnlyValuesOpenNoEditor();
    void undoAndRedo();
    void axis();
    void accessLevel();
    void language();
    void online();
    void readOnly();
    void messageLeadsToItsParameter();
    void saveAndReopen();
    void openAsksForUnsavedChanges();
    void closeAsksForUnsavedChanges();
    void stateIsRestored();
    void senselessStateIsLeftAside();
    void withoutDevice();

private:
    void open();
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void press(DeskActions::eAction action);
    void click(const ValuePlace &at);
    void doubleClick(const ValuePlace &at);
    QLineEdit *field() const { return table().findChild<QLineEdit *>(); }
    RejectionNote *note() const { return table().findChild<RejectionNote *>(); }
    ParameterTableView &table() const { return m_window->tableView(); }
    ParameterTableModel &model() const { return m_window->tableModel(); }
    template <typename T>
    T *child(const char *name) const
    {
        return m_window->findChild<T *>(QLatin1String(name));
    }
    QString value(const ValuePlace &at) const { return model().indexOf(at).data().toString(); }
    QStringList addresses() const;
    void expectRefusal(const QString &text)
    {
        m_messages->expect(
            MessageRecorder::eSeverity::Critical, QStringLiteral("Desk drive"), text);
    }

    const TestSettings m_settings;
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<DeskDevice> m_device;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<DeskWindow> m_window;
};

namespace {

const QString TooLarge = QStringLiteral(
    "Parameter 1.B01: Fehler beim Übernehmen des Werts - Wert \"40.000 A\" ist zu groß");

} // namespace

void tst_DeskWindow::init()
{
    // What the platform without screen cannot do is no fault of the desk.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    QSettings().clear();
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_device = std::make_unique<DeskDevice>();
    m_dialogs = std::make_unique<AnsweringDialogs>();
    open();
}

void tst_DeskWindow::cleanup()
{
    m_window.reset();
    m_messages.reset();
}

void tst_DeskWindow::open()
{
    m_window = std::make_unique<DeskWindow>(*m_dialogs);
    QVERIFY(m_window->session().open(m_device->fileName()));
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    table().setFocus();
}

void tst_DeskWindow::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(
        QApplication::focusWidget() ? QApplication::focusWidget() : m_window.get(), key, modifiers);
}

/// By the action's own key.
void tst_DeskWindow::press(DeskActions::eAction action)
{
    const QKeyCombination keys = m_window->actions()[action]->shortcut()[0];
    press(keys.key(), keys.keyboardModifiers());
}

void tst_DeskWindow::click(const ValuePlace &at)
{
    const QRect cell = table().visualRect(model().indexOf(at));
    QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
}

void tst_DeskWindow::doubleClick(const ValuePlace &at)
{
    click(at);
    const QRect cell = table().visualRect(model().indexOf(at));
    QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
}

QStringList tst_DeskWindow::addresses() const
{
    QStringList result;
    for (int row = 0; row < model().rowCount(); ++row)
        result.append(model().index(row, ParameterTableModel::Address).data().toString());
    return result;
}

void tst_DeskWindow::search()
{
    QTest::mouseClick(child<QLineEdit>("search"), Qt::LeftButton);
    QTest::keyClicks(child<QLineEdit>("search"), QStringLiteral("strom"));
    QCOMPARE(addresses().join(u' '), QStringLiteral("1.B01 2.B01"));
    QTest::keyClicks(child<QLineEdit>("search"), QStringLiteral(" 2.b"));
    QCOMPARE(addresses().join(u' '), QStringLiteral("2.B01"));
    press(Qt::Key_Escape);
    QCOMPARE(model().rowCount(), 9);
}

void tst_DeskWindow::searchByKeysAlone()
{
    press(DeskActions::Search);
    QVERIFY(child<QLineEdit>("search")->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("zehn"));
    press(Qt::Key_Down);
    QVERIFY(table().hasFocus());
    QCOMPARE(table().currentIndex().data().toString(), QStringLiteral("10"));
    press(Qt::Key_Return);
    QVERIFY(field());
    QTest::keyClicks(field(), QStringLiteral("12"));
    press(Qt::Key_Return);
    QCOMPARE(value(place("B10")), QStringLiteral("12"));
}

void tst_DeskWindow::edit()
{
    doubleClick(place("B01", 1));
    QVERIFY(field());
    QCOMPARE(field()->text(), QStringLiteral("4.200"));
    QCOMPARE(field()->selectedText(), QStringLiteral("4.200"));
    QTest::keyClicks(field(), QStringLiteral("5 A"));
    QTest::keyClick(field(), Qt::Key_Return);
    QCOMPARE(value(place("B01", 1)), QStringLiteral("5.000"));
    QVERIFY(m_window->isWindowModified());
    QVERIFY(!note()->isVisible());
}

void tst_DeskWindow::editByTyping()
{
    click(place("E30", 0, 2));
    press(Qt::Key_3);
    QVERIFY(field());
    press(Qt::Key_Return);
    QCOMPARE(value(place("E30", 0, 2)), QStringLiteral("3"));
    QVERIFY(table().hasFocus());
}

void tst_DeskWindow::editGivenUp()
{
    click(place("B10"));
    press(DeskActions::EditValue);
    QTest::keyClicks(field(), QStringLiteral("77"));
    press(Qt::Key_Escape);
    QCOMPARE(value(place("B10")), QStringLiteral("10"));
    QVERIFY(!m_window->isWindowModified());
}

/// The device reports another value while somebody types.
void tst_DeskWindow::editorKeepsWhatIsTyped()
{
    doubleClick(place("B10"));
    QTest::keyClicks(field(), QStringLiteral("77"));
    m_window->navigation().parameterContainer()->writeValueNative(
        eLivingSpace::Global, place("B10").coordinate, 0, QStringLiteral("50"));
    QCOMPARE(field()->text(), QStringLiteral("77"));
    press(Qt::Key_Return);
    QCOMPARE(value(place("B10")), QStringLiteral("77"));
}

void tst_DeskWindow::refuse()
{
    doubleClick(place("B01", 1));
    QTest::keyClicks(field(), QStringLiteral("41"));
    expectRefusal(TooLarge);
    press(Qt::Key_Return);
    QVERIFY(field());
    QVERIFY(field()->hasFocus());
    QCOMPARE(field()->text(), QStringLiteral("41"));
    QVERIFY(note()->isVisible());
    QCOMPARE(note()->text(), TooLarge);
    QVERIFY(note()->geometry().top() > field()->geometry().bottom());
    QVERIFY(note()->geometry().top() < field()->geometry().bottom() + 10);
    QVERIFY(table().viewport()->rect().contains(note()->geometry()));
    QCOMPARE(value(place("B01", 1)), QStringLiteral("4.200"));

    QTest::keyClick(field(), Qt::Key_Backspace);
    QVERIFY(!note()->isVisible());
    press(Qt::Key_Return);
    QCOMPARE(value(place("B01", 1)), QStringLiteral("4.000"));
}

/// What was refused is given up with the field, and told once.
void tst_DeskWindow::refusedAndLeft()
{
    doubleClick(place("B01", 1));
    QTest::keyClicks(field(), QStringLiteral("41"));
    expectRefusal(TooLarge);
    click(place("A20"));
    QTRY_VERIFY(!field());
    QCOMPARE(value(place("B01", 1)), QStringLiteral("4.200"));
    QVERIFY(!note()->isVisible());
}

void tst_DeskWindow::tabGoesOn()
{
    m_window->setAccessLevel(2);
    doubleClick(place("B10"));
    QTest::keyClicks(field(), QStringLiteral("11"));
    press(Qt::Key_Tab);
    QCOMPARE(value(place("B10")), QStringLiteral("11"));
    // B100 needs level 4.
    QCOMPARE(
        m_window->navigation().currentAddress().toSortableText(), QStringLiteral("1.E030[00001]"));
    QVERIFY(field());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("2"));
    press(Qt::Key_Backtab);
    QCOMPARE(value(place("E30", 0, 1)), QStringLiteral("2"));
    QCOMPARE(
        m_window->navigation().currentAddress().toSortableText(), QStringLiteral("1.B010[00000]"));
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("x"));
    m_messages->expect(MessageRecorder::eSeverity::Critical, QStringLiteral("Desk drive"),
        QStringLiteral(
            "Parameter B10: Fehler beim Übernehmen des Werts - Wert \"x\" ist ungültig"));
    press(Qt::Key_Tab);
    QVERIFY(note()->isVisible());
    QCOMPARE(
        m_window->navigation().currentAddress().toSortableText(), QStringLiteral("1.B010[00000]"));
}

/// Below the last row and right of the last column there is no room.
void tst_DeskWindow::refusedNearTheEdge()
{
    const QRect field(0, 0, 100, 20);
    QWidget parent;
    parent.resize(300, 120);
    RejectionNote note(&parent);
    note.showBeside(field.translated(0, 100), TooLarge);
    QVERIFY(parent.rect().contains(note.geometry()));
    QVERIFY(note.geometry().bottom() < 100);
    note.showBeside(field.translated(250, 0), TooLarge);
    QVERIFY(parent.rect().contains(note.geometry()));
    QVERIFY(note.geometry().top() > 20);
}

void tst_DeskWindow::chooseFromAList()
{
    doubleClick(place("B02", 2));
    auto *list = table().findChild<QComboBox *>();
    QVERIFY(list);
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->currentText(), QStringLiteral("0: Aus"));
    QCOMPARE(list->itemText(1), QStringLiteral("1: Ein"));
    QTest::keyClick(list->view(), Qt::Key_Down);
    QTest::keyClick(list->view(), Qt::Key_Return);
    QCOMPARE(value(place("B02", 2)), QStringLiteral("1: Ein"));
    QCOMPARE(value(place("B02", 1)), QStringLiteral("0: Aus"));
}

void tst_DeskWindow::readOnlyValuesOpenNoEditor()
{
    m_window->setAccessLevel(2);
    doubleClick(place("B100"));
    press(Qt::Key_Return);
    press(DeskActions::EditValue);
    QVERIFY(!field());
}

void tst_DeskWindow::undoAndRedo()
{
    const QAction *undo = m_window->actions()[DeskActions::Undo];
    const QAction *redo = m_window->actions()[DeskActions::Redo];
    QVERIFY(!undo->isEnabled());
    edit();
    QVERIFY(undo->isEnabled());
    press(DeskActions::Undo);
    QCOMPARE(value(place("B01", 1)), QStringLiteral("4.200"));
    QVERIFY(!undo->isEnabled());
    QVERIFY(redo->isEnabled());
    QVERIFY(!m_window->isWindowModified());
    press(DeskActions::Redo);
    QCOMPARE(value(place("B01", 1)), QStringLiteral("5.000"));
}

void tst_DeskWindow::axis()
{
    auto *selector = child<QComboBox>("axis");
    QCOMPARE(selector->count(), 3);
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Down);
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(addresses().join(u' '), QStringLiteral("A20 2.B01 2.B02 B10 B100 E30[1] E30[2]"));
    QTest::keyClick(selector, Qt::Key_Home);
    QCOMPARE(model().rowCount(), 9);
}

void tst_DeskWindow::accessLevel()
{
    auto *selector = child<QComboBox>("accessLevel");
    QCOMPARE(selector->currentIndex(), 4);
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(System::information()->userAccessLevel(), 5U);
    QCOMPARE(addresses().constLast(), QStringLiteral("P01"));
}

void tst_DeskWindow::language()
{
    auto *selector = child<QComboBox>("language");
    QCOMPARE(selector->currentText(), QStringLiteral("Deutsch"));
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(selector->currentText(), QStringLiteral("English"));
    QCOMPARE(m_window->menuBar()->actions().constFirst()->text(), QStringLiteral("&File"));
    QCOMPARE(
        model().headerData(2, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Value"));
    QCOMPARE(model().indexOf(place("B01", 1), ParameterTableModel::Name).data().toString(),
        QStringLiteral("Current"));
    QCOMPARE(value(place("B02", 1)), QStringLiteral("0: Off"));
    QTest::keyClick(selector, Qt::Key_Up);
    QCOMPARE(m_window->menuBar()->actions().constFirst()->text(), QStringLiteral("&Datei"));
    QCOMPARE(value(place("B02", 1)), QStringLiteral("0: Aus"));
}

void tst_DeskWindow::online()
{
    const QAction *action = m_window->actions()[DeskActions::GoOnline];
    // The user gives up when asked for the drive.
    press(DeskActions::GoOnline);
    QCOMPARE(m_dialogs->asked, QStringList(QStringLiteral("drive: 127.0.0.1:502")));
    QVERIFY(!m_window->navigation().parameterContainer()->isOnline());
    QVERIFY(!action->isChecked());
    press(DeskActions::ChooseDrive);
    QCOMPARE(m_dialogs->asked.size(), 2);
    QVERIFY(!m_window->navigation().parameterContainer()->isOnline());
}

void tst_DeskWindow::readOnly()
{
    press(DeskActions::ReadOnly);
    QVERIFY(m_window->navigation().parameterContainer()->isReadOnly());
    doubleClick(place("B10"));
    QVERIFY(!field());
    press(DeskActions::ReadOnly);
    doubleClick(place("B10"));
    QVERIFY(field());
}

void tst_DeskWindow::messageLeadsToItsParameter()
{
    refuse();
    click(place("A20"));
    auto *messages = child<QListView>("messages");
    press(DeskActions::GoToMessages);
    QVERIFY(messages->hasFocus());
    press(Qt::Key_End);
    press(Qt::Key_Return);
    QVERIFY(table().hasFocus());
    QCOMPARE(
        m_window->navigation().currentAddress().toSortableText(), QStringLiteral("1.B001[00000]"));
    m_window->actions()[DeskActions::ClearMessages]->trigger();
    QCOMPARE(messages->model()->rowCount(), 0);
}

void tst_DeskWindow::saveAndReopen()
{
    edit();
    m_dialogs->folderAnswer = m_device->path("plant");
    m_messages->expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("gespeichert und zurückgelesen"));
    press(DeskActions::SaveProject);
    QCOMPARE(m_dialogs->asked, QStringList(QStringLiteral("save")));
    QVERIFY(!m_window->isWindowModified());
    QVERIFY(m_window->windowTitle().contains(QStringLiteral("plant – Desk drive")));
    // The next save knows the folder.
    m_messages->expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("gespeichert und zurückgelesen"));
    press(DeskActions::SaveProject);
    QCOMPARE(m_dialogs->asked.size(), 1);

    m_window.reset();
    open();
    QCOMPARE(value(place("B01", 1)), QStringLiteral("4.200"));
    m_messages->expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("10 Werte und 10 Defaultwerte gelesen"));
    press(DeskActions::LoadProject);
    QCOMPARE(value(place("B01", 1)), QStringLiteral("5.000"));
    QVERIFY(model().indexOf(place("B01", 1)).data(ParameterTableModel::DiffersRole).toBool());
    QVERIFY(!m_window->isWindowModified());
}

void tst_DeskWindow::openAsksForUnsavedChanges()
{
    edit();
    m_dialogs->fileAnswer = m_device->fileName();
    press(DeskActions::OpenDevice);
    QCOMPARE(m_dialogs->asked, (QStringList {QStringLiteral("device"), QStringLiteral("unsaved")}));
    QCOMPARE(value(place("B01", 1)), QStringLiteral("5.000"));
    m_dialogs->unsavedAnswer = DeskDialogs::eUnsaved::Discard;
    press(DeskActions::OpenDevice);
    QCOMPARE(value(place("B01", 1)), QStringLiteral("4.200"));
    QVERIFY(!m_window->actions()[DeskActions::Undo]->isEnabled());
}

void tst_DeskWindow::closeAsksForUnsavedChanges()
{
    edit();
    press(DeskActions::Quit);
    QVERIFY(m_window->isVisible());
    m_dialogs->unsavedAnswer = DeskDialogs::eUnsaved::Discard;
    press(DeskActions::Quit);
    QVERIFY(!m_window->isVisible());
}

void tst_DeskWindow::stateIsRestored()
{
    m_window->resize(1000, 640);
    table().horizontalHeader()->resizeSection(ParameterTableModel::Name, 333);
    m_window->setAccessLevel(2);
    m_window->language().choose(QStringLiteral("en"));
    m_window->close();
    m_window.reset();
    System::information()->setUserAccessLevel(4);

    open();
    m_window->restoreState();
    QCOMPARE(m_window->size(), QSize(1000, 640));
    QCOMPARE(table().columnWidth(ParameterTableModel::Name), 333);
    QCOMPARE(System::information()->userAccessLevel(), 2U);
    QCOMPARE(child<QComboBox>("accessLevel")->currentIndex(), 2);
    QCOMPARE(child<QComboBox>("language")->currentText(), QStringLiteral("English"));
}

void tst_DeskWindow::senselessStateIsLeftAside()
{
    QSettings settings;
    settings.setValue(QStringLiteral("window/geometry"), QByteArray("x"));
    settings.setValue(QStringLiteral("window/docks"), QByteArray("x"));
    settings.setValue(QStringLiteral("window/columns2"), QByteArray("x"));
    settings.setValue(QStringLiteral("language"), QStringLiteral("fr"));
    settings.setValue(QStringLiteral("accessLevel"), 77);
    const int width = table().columnWidth(ParameterTableModel::Name);
    m_window->restoreState();
    QCOMPARE(table().columnWidth(ParameterTableModel::Name), width);
    QCOMPARE(System::information()->userAccessLevel(), 4U);
    QCOMPARE(child<QComboBox>("language")->currentText(), QStringLiteral("Deutsch"));
}

void tst_DeskWindow::withoutDevice()
{
    m_window = std::make_unique<DeskWindow>(*m_dialogs);
    m_window->show();
    for (const auto action : {DeskActions::SaveProject, DeskActions::LoadProject,
             DeskActions::TakeSnapshot, DeskActions::GoOnline, DeskActions::ReadOnly})
        QVERIFY(!m_window->actions()[action]->isEnabled());
    m_window->actions()[DeskActions::CompareSnapshots]->trigger();
    m_window->actions()[DeskActions::EditValue]->trigger();
    m_window->actions()[DeskActions::RemoveSnapshot]->trigger();
    QVERIFY(!m_window->navigation().parameterContainer());
    QVERIFY(!m_window->navigation().currentAddress().isValid());
    QVERIFY(!m_window->navigation().canNavigateToParameter(place("B01").coordinate));
    m_window->navigation().navigateToParameter(place("B01").coordinate);
}

QTEST_MAIN(tst_DeskWindow)
#include "tst_DeskWindow.moc"

#include "apps/krparameter-desk/ComparisonPage.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/RejectionNote.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/apps/desk/FollowingDevice.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterNavigationHost.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>
#include <KrSystem/System.h>

#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

#include <functional>

/// The desk on a device whose values follow one another.
class tst_DeskFollowing : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void textThatLooksLikeTheNativeOne();
    void unchangedTextIsNoWrite();
    void choiceThatTheListLacks();
    void correctionIsTold_data();
    void correctionIsTold();
    void noteStaysAtItsField();
    void navigationToWhatJustBecameVisible();
    void navigationWhileTheLevelChanges();
    void undoTakesBackWhatChangedAlong();
    void noUndoWhileReadOnly();
    void comparisonFollowsTheAccessLevel();
    void cancelledComparison_data();
    void cancelledComparison();
    void cancelledComparisonFollowsTheLanguage();
    void removedSnapshotExportsNothing();
    void comparisonWithoutVisibleDifference();
    void reportNamesTheDevicesOfItsSnapshots();
    void exportsByItsButtons();
    void everyLetterOnce_data();
    void everyLetterOnce();

private:
    void press(Qt::Key key);
    void edit(const char *coordinate);
    void type(const char *coordinate, const QString &text);
    void answerFileDialog(const QString &fileName);
    void clickExport(const QString &text, const QString &fileName);
    QString value(const char *coordinate) const
    {
        return m_window->tableModel().indexOf(place(coordinate)).data().toString();
    }
    QLineEdit *field() const { return m_window->tableView().findChild<QLineEdit *>(); }
    RejectionNote *note() const { return m_window->tableView().findChild<RejectionNote *>(); }
    ParameterContainer &container() const { return m_window->session().project()->container(); }
    /// What stands above the comparison.
    QString summary() const
    {
        return m_window->findChild<ComparisonPage *>()->findChild<QLabel *>()->text();
    }
    QTreeWidget *tree() const
    {
        const auto *widget = m_window->findChild<ParameterValueSnapshotWidget *>();
        return widget ? widget->findChild<QTreeWidget *>() : nullptr;
    }

    const TestSettings m_settings;
    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<FollowingDevice> m_device;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<DeskWindow> m_window;
};

namespace {

QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Lower-case; none for a text without.
QString mnemonicOf(const QString &text)
{
    const qsizetype mark = text.indexOf(u'&');
    return mark < 0 ? QString() : text.mid(mark + 1, 1).toLower();
}

QStringList mnemonicsOf(const QList<QAction *> &actions)
{
    QStringList letters;
    for (const QAction *action : actions) {
        if (!action->isSeparator())
            letters.append(mnemonicOf(action->text()));
    }
    return letters;
}

} // namespace

void tst_DeskFollowing::initTestCase()
{
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
}

void tst_DeskFollowing::init()
{
    // What the platform without screen cannot do is no fault of the desk.
    QTest::failOnWarning(QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_device = std::make_unique<FollowingDevice>();
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_window = std::make_unique<DeskWindow>(*m_dialogs);
    QVERIFY(m_window->session().open(m_device->fileName()));
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_window->tableView().setFocus();
}

void tst_DeskFollowing::cleanup()
{
    m_window.reset();
    m_messages.reset();
}

void tst_DeskFollowing::press(Qt::Key key)
{
    QTest::keyClick(QApplication::focusWidget(), key);
}

void tst_DeskFollowing::edit(const char *coordinate)
{
    const QModelIndex index = m_window->tableModel().indexOf(place(coordinate));
    // An editor that was closed goes late.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_window->tableView().goTo(index);
    press(Qt::Key_F2);
}

void tst_DeskFollowing::type(const char *coordinate, const QString &text)
{
    edit(coordinate);
    QVERIFY(field());
    QTest::keyClicks(field(), text);
    press(Qt::Key_Return);
}

/// 300 is stored and 30.0 shown: who types 300 means 300.
void tst_DeskFollowing::textThatLooksLikeTheNativeOne()
{
    QCOMPARE(value("K08"), QStringLiteral("30.0"));
    type("K08", QStringLiteral("300"));
    QCOMPARE(value("K08"), QStringLiteral("300.0"));
    QVERIFY(m_window->session().isModified());
}

void tst_DeskFollowing::unchangedTextIsNoWrite()
{
    type("K08", QStringLiteral("30.0"));
    QTRY_VERIFY(!field());
    QVERIFY(!m_window->session().isModified());
}

/// The stored 7 is no entry: leaving the list as it is writes nothing.
void tst_DeskFollowing::choiceThatTheListLacks()
{
    container().writeValueNative(
        eLivingSpace::Global, place("K09").coordinate, 0, QStringLiteral("7"));
    edit("K09");
    auto *list = m_window->tableView().findChild<QComboBox *>();
    QVERIFY(list);
    QCOMPARE(list->currentIndex(), -1);
    press(Qt::Key_Return);
    QCOMPARE(m_window->tableModel().indexOf(place("K09")).data(ParameterTableModel::NativeRole),
        QVariant(QStringLiteral("7")));
    QVERIFY(!note()->isVisible());
    QVERIFY(!m_window->session().undoStack()->canUndo());
}

void tst_DeskFollowing::correctionIsTold_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("the field closes") << int(Qt::Key_Return);
    QTest::newRow("the next field opens") << int(Qt::Key_Tab);
}

void tst_DeskFollowing::correctionIsTold()
{
    QFETCH(int, key);
    m_messages->expect(MessageRecorder::eSeverity::Warning, QStringLiteral("Following drive"),
        QStringLiteral("K06 ist höchstens 50"));
    edit("K06");
    QTest::keyClicks(field(), QStringLiteral("60"));
    press(Qt::Key(key));
    QCOMPARE(value("K06"), QStringLiteral("50"));
    QVERIFY(note()->isVisible());
    QCOMPARE(note()->text(), QStringLiteral("K06 ist höchstens 50"));
    if (key == Qt::Key_Tab)
        QTest::keyClicks(field(), QStringLiteral("1"));
    else
        press(Qt::Key_Up);
    QVERIFY(!note()->isVisible());
}

/// Rows above it go while it is shown.
void tst_DeskFollowing::noteStaysAtItsField()
{
    container().writeValueNative(
        eLivingSpace::Global, place("K01").coordinate, 0, QStringLiteral("101"));
    const QString refusal =
        QStringLiteral("Parameter K08: Fehler beim Übernehmen des Werts - Wert \"x\" ist ungültig");
    m_messages->expect(
        MessageRecorder::eSeverity::Critical, QStringLiteral("Following drive"), refusal);
    type("K08", QStringLiteral("x"));
    const QPersistentModelIndex index = m_window->tableModel().indexOf(place("K08"));
    const auto distance = [&] {
        return note()->geometry().top() - m_window->tableView().visualRect(index).bottom();
    };
    QCoreApplication::processEvents();
    QCOMPARE(m_window->tableModel().rowCount(), 8);
    QCOMPARE(index.row(), 5);
    QVERIFY(note()->isVisible());
    QCOMPARE(note()->text(), refusal);
    QVERIFY(distance() > 0 && distance() < 10);
    // The row goes, and with it what is told of it.
    m_window->selectors().searchField()->setText(QStringLiteral("Quelle"));
    QVERIFY(!note()->isVisible());
}

/// Rows are shown and hidden once the event is over, but who goes to one does not wait.
void tst_DeskFollowing::navigationToWhatJustBecameVisible()
{
    const DeskDevice device(
        FollowingDevice::description().replace("default\": 10,", "default\": 101,"));
    const ParameterAddress hidden(QStringLiteral("K04"), true);
    QVERIFY(m_window->session().open(device.fileName()));
    QVERIFY(!m_window->tableModel().indexOf(place("K04")).isValid());
    container().writeValueNative(
        eLivingSpace::Global, place("K01").coordinate, 0, QStringLiteral("10"));
    QVERIFY(!m_window->tableModel().indexOf(place("K04")).isValid());
    QVERIFY(m_window->navigation().canNavigateToAddress(hidden));
    m_window->navigation().navigateToAddress(hidden);
    QCOMPARE(m_window->navigation().currentAddress(), hidden);
    QVERIFY(m_window->tableModel().indexOf(place("K05")).isValid());
}

/// Its row is not there before the change is over: the cursor stays where it is.
void tst_DeskFollowing::navigationWhileTheLevelChanges()
{
    const ParameterAddress secret(QStringLiteral("K10"), true);
    m_window->setAccessLevel(2);
    m_window->tableView().goTo(m_window->tableModel().indexOf(place("K08")));
    int count = 0;
    connect(&container(), &ParameterContainer::parameterVisibilityChanged, m_window.get(), [&] {
        if (!m_window->navigation().canNavigateToAddress(secret))
            return;
        m_window->navigation().navigateToAddress(secret);
        ++count;
    });
    m_window->setAccessLevel(4);
    QVERIFY(count > 0);
    QCOMPARE(
        m_window->navigation().currentAddress(), ParameterAddress(QStringLiteral("K08"), true));
}

void tst_DeskFollowing::undoTakesBackWhatChangedAlong()
{
    type("K01", QStringLiteral("30"));
    QCOMPARE(value("K02"), QStringLiteral("60"));
    m_window->actions()[DeskActions::Undo]->trigger();
    QCOMPARE(value("K01"), QStringLiteral("10"));
    QCOMPARE(value("K02"), QStringLiteral("7"));
    QVERIFY(!m_window->isWindowModified());
    m_window->actions()[DeskActions::Redo]->trigger();
    QCOMPARE(value("K02"), QStringLiteral("60"));
    QVERIFY(m_window->isWindowModified());
}

void tst_DeskFollowing::noUndoWhileReadOnly()
{
    type("K08", QStringLiteral("40"));
    type("K08", QStringLiteral("50"));
    DeskActions &actions = m_window->actions();
    actions[DeskActions::Undo]->trigger();
    QVERIFY(actions[DeskActions::Undo]->isEnabled());
    QVERIFY(actions[DeskActions::Redo]->isEnabled());
    // By whomever.
    container().setReadOnly(true);
    QVERIFY(actions[DeskActions::ReadOnly]->isChecked());
    QVERIFY(!actions[DeskActions::Undo]->isEnabled());
    QVERIFY(!actions[DeskActions::Redo]->isEnabled());
    m_window->session().undo();
    m_window->session().redo();
    QCOMPARE(value("K08"), QStringLiteral("40.0"));
    container().setReadOnly(false);
    QVERIFY(actions[DeskActions::Redo]->isEnabled());
    actions[DeskActions::Redo]->trigger();
    QCOMPARE(value("K08"), QStringLiteral("50.0"));
}

/// What the user may no longer see is neither shown nor in the HTML.
void tst_DeskFollowing::comparisonFollowsTheAccessLevel()
{
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    m_window->showComparison();
    QCOMPARE(tree()->topLevelItemCount(), 10);
    QCOMPARE(tree()->topLevelItem(9)->text(1), QStringLiteral("1234"));
    m_window->setAccessLevel(2);
    QCOMPARE(tree()->topLevelItem(9)->text(0), QStringLiteral("K10 Geheim"));
    QCOMPARE(tree()->topLevelItem(9)->text(1), QString());
    const QString report = m_device->path("report.html");
    clickExport(QStringLiteral("HTML exportieren"), report);
    QVERIFY(content(report).contains("K10 Geheim"));
    QVERIFY(!content(report).contains("1234"));
    // The text holds every value of the parameters that are listed.
    const QString text = m_device->path("all.txt");
    clickExport(QStringLiteral("Spalte \"Snapshot 1\" exportieren"), text);
    QVERIFY(content(text).endsWith("\"K10\";\"Geheim\";\"1234\"\n"));
    // Also where somebody else changes the level.
    System::information()->setUserAccessLevel(3);
    QCOMPARE(tree()->topLevelItem(9)->text(1), QStringLiteral("1234"));
}

void tst_DeskFollowing::cancelledComparison_data()
{
    QTest::addColumn<std::function<void(DeskWindow &)>>("change");
    QTest::addColumn<bool>("stays");
    const auto row = [](const char *name, bool stays, std::function<void(DeskWindow &)> change) {
        QTest::newRow(name) << change << stays;
    };
    row("what was shown stays where another one is ticked", true, [](DeskWindow &window) {
        SnapshotListModel &model = window.snapshots();
        model.setData(model.index(0), Qt::Checked, Qt::CheckStateRole);
    });
    row("and where one is renamed", true, [](DeskWindow &window) {
        window.snapshots().setData(
            window.snapshots().index(1), QStringLiteral("Danach"), Qt::EditRole);
    });
    row("and in another language", true,
        [](DeskWindow &window) { window.language().choose(QStringLiteral("en")); });
    row("and where it is asked for", true, [](DeskWindow &window) { window.showComparison(); });
    row("nothing stays of another access level", false,
        [](DeskWindow &window) { window.setAccessLevel(2); });
    row("nothing is shown of nothing", false, [](DeskWindow &window) {
        SnapshotListModel &model = window.snapshots();
        model.setData(model.index(1), Qt::Unchecked, Qt::CheckStateRole);
    });
}

void tst_DeskFollowing::cancelledComparison()
{
    QFETCH(std::function<void(DeskWindow &)>, change);
    QFETCH(bool, stays);
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    type("K08", QStringLiteral("40"));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    SnapshotListModel &model = m_window->snapshots();
    model.setData(model.index(0), Qt::Unchecked, Qt::CheckStateRole);
    const QPointer<QTreeWidget> before(tree());
    QCOMPARE(before->topLevelItemCount(), 10);
    m_dialogs->cancels = true;
    change(*m_window);
    QCOMPARE(!before.isNull(), stays);
    QVERIFY(tree() == before);
    m_dialogs->cancels = false;
    m_window->showComparison();
    QVERIFY(before.isNull());
}

void tst_DeskFollowing::answerFileDialog(const QString &fileName)
{
    QTimer::singleShot(0, this, [fileName] {
        auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
        QVERIFY(dialog);
        auto *name = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        name->setText(fileName);
        QTest::keyClick(name, Qt::Key_Return);
    });
}

void tst_DeskFollowing::clickExport(const QString &text, const QString &fileName)
{
    const auto *widget = m_window->findChild<ParameterValueSnapshotWidget *>();
    for (QPushButton *button : widget->findChildren<QPushButton *>()) {
        if (button->text() != text)
            continue;
        answerFileDialog(fileName);
        QTest::mouseClick(button, Qt::LeftButton);
        return;
    }
    QFAIL("no such button");
}

void tst_DeskFollowing::exportsByItsButtons()
{
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    type("K08", QStringLiteral("40"));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    m_window->showComparison();
    const QString before = m_device->path("before.txt");
    const QString after = m_device->path("after.txt");
    clickExport(QStringLiteral("Spalte \"Snapshot 1\" exportieren"), before);
    clickExport(QStringLiteral("Spalte \"Snapshot 2\" exportieren"), after);
    QCOMPARE(content(before), QByteArray("\xEF\xBB\xBF\r\n\"K08\";\"Zehntel\";\"30.0\"\n"));
    QCOMPARE(content(after), QByteArray("\xEF\xBB\xBF\r\n\"K08\";\"Zehntel\";\"40.0\"\n"));
}

/// The rows stay as they are, and may be exported.
void tst_DeskFollowing::cancelledComparisonFollowsTheLanguage()
{
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    type("K08", QStringLiteral("40"));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    QCOMPARE(summary(), QStringLiteral("Snapshot 1 → Snapshot 2: was sich ändert"));
    const QPointer<QTreeWidget> before(tree());
    m_dialogs->cancels = true;
    m_window->language().choose(QStringLiteral("en"));
    QTRY_COMPARE(summary(), QStringLiteral("Snapshot 1 → Snapshot 2: what changes"));
    QVERIFY(tree() == before);
    QStringList buttons;
    for (const QPushButton *button :
        m_window->findChild<ParameterValueSnapshotWidget *>()->findChildren<QPushButton *>())
        buttons.append(button->text());
    QCOMPARE(buttons.join(u'|'),
        QStringLiteral("Export column \"Snapshot 1\"|Export column \"Snapshot 2\"|Export HTML"));
    QCOMPARE(before->headerItem()->text(0), QStringLiteral("Parameter"));
    QCOMPARE(before->headerItem()->text(2), QStringLiteral("Snapshot 2"));
    const QString after = m_device->path("after.txt");
    clickExport(QStringLiteral("Export column \"Snapshot 2\""), after);
    QCOMPARE(content(after), QByteArray("\xEF\xBB\xBF\r\n\"K08\";\"Zehntel\";\"40.0\"\n"));
}

/// What is left of it is the table that stays where the next comparison is cancelled.
void tst_DeskFollowing::removedSnapshotExportsNothing()
{
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    type("K08", QStringLiteral("40"));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    m_window->showComparison();
    const QPointer<QTreeWidget> before(tree());
    m_dialogs->cancels = true;
    m_window->snapshots().removeAt(0);
    QVERIFY(tree() == before);
    const QString gone = m_device->path("gone.txt");
    const QString there = m_device->path("there.txt");
    clickExport(QStringLiteral("Spalte \"Snapshot 1\" exportieren"), gone);
    clickExport(QStringLiteral("Spalte \"Snapshot 2\" exportieren"), there);
    QVERIFY(!QFile::exists(gone));
    QCOMPARE(content(there), QByteArray("\xEF\xBB\xBF\r\n\"K08\";\"Zehntel\";\"40.0\"\n"));
}

void tst_DeskFollowing::comparisonWithoutVisibleDifference()
{
    QVERIFY(summary().startsWith(QStringLiteral("Noch kein Vergleich.")));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    QCOMPARE(summary(), QStringLiteral("Alle Werte von \"Snapshot 1\""));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    QCOMPARE(summary(), QStringLiteral("Snapshot 1 → Snapshot 2: kein Unterschied"));
    type("K10", QStringLiteral("4321"));
    m_window->snapshots().removeAt(0);
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    const QString chain = m_window->snapshots().checkedNames().join(QStringLiteral(" → "));
    QCOMPARE(summary(), chain + QStringLiteral(": was sich ändert"));
    // It may not be read any more.
    m_window->setAccessLevel(2);
    QCOMPARE(summary(),
        chain
            + QStringLiteral(": kein Unterschied, der zu sehen ist. Was sich unterscheidet, liest "
                             "sich gleich, oder die Zugriffsstufe reicht dafür nicht aus."));
    m_window->setAccessLevel(3);
    QCOMPARE(summary(), chain + QStringLiteral(": was sich ändert"));
}

void tst_DeskFollowing::reportNamesTheDevicesOfItsSnapshots()
{
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    type("K08", QStringLiteral("40"));
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    const DeskDevice other;
    QVERIFY(m_window->session().open(other.fileName()));
    SnapshotListModel &model = m_window->snapshots();
    model.setData(model.index(0), Qt::Unchecked, Qt::CheckStateRole);
    model.setData(model.index(0), Qt::Checked, Qt::CheckStateRole);
    m_window->showComparison();
    const QString report = m_device->path("report.html");
    clickExport(QStringLiteral("HTML exportieren"), report);
    QVERIFY(content(report).contains("Following drive"));
    QVERIFY(!content(report).contains("Desk drive"));
    // Each device once.
    m_window->actions()[DeskActions::TakeSnapshot]->trigger();
    const QString both = m_device->path("both.html");
    clickExport(QStringLiteral("HTML exportieren"), both);
    QVERIFY(content(both).contains("Following drive, Desk drive"));
}

void tst_DeskFollowing::everyLetterOnce_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("German") << QStringLiteral("de");
    QTest::newRow("English") << QStringLiteral("en");
}

/// Of the letters that lead to menus and selectors, and of those within one menu.
void tst_DeskFollowing::everyLetterOnce()
{
    QFETCH(QString, language);
    QVERIFY(m_window->language().choose(language));
    const QList<QAction *> menus = m_window->menuBar()->actions();
    QStringList letters = mnemonicsOf(menus);
    for (const QLabel *label : m_window->selectors().findChildren<QLabel *>()) {
        if (label->buddy())
            letters.append(mnemonicOf(label->text()));
    }
    QCOMPARE(letters.size(), 8);
    QVERIFY(!letters.contains(QString()));
    QCOMPARE(letters.removeDuplicates(), 0);
    for (const QAction *menu : menus) {
        QStringList inside = mnemonicsOf(menu->menu()->actions());
        QVERIFY(!inside.contains(QString()));
        QCOMPARE(inside.removeDuplicates(), 0);
    }
}

QTEST_MAIN(tst_DeskFollowing)
#include "tst_DeskFollowing.moc"

#include "apps/krparameter-desk/ActionProgress.h"
#include "apps/krparameter-desk/ActionStarter.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/ValueWriter.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/online/DriveProcess.h"
#include "tests/online/OnlineDevice.h"
#include "tests/online/Patience.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestSettings.h"

#include <KrSystem/System.h>

#include <QtCore/QLoggingCategory>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>
#include <QtWidgets/QProgressBar>

using eSeverity = MessageRecorder::eSeverity;
using eState = OnlineSwitch::eState;

namespace {

const ValuePlace First {at("C01"), eLivingSpace::Axis1, 0};
const ValuePlace Second {at("C01"), eLivingSpace::Axis2, 0};

QByteArray with(const char *before, const char *after)
{
    return OnlineDevice::description().replace(before, after);
}

/// Without the host's knowledge that the action needs a disabled axis.
QByteArray unaware()
{
    return with("\"enableOffRequired\": 1", "\"enableOffRequired\": 0");
}

/// A desk with a device, and its drive in a process of its own that moves by order alone.
struct Stand {
    explicit Stand(const QByteArray &description = OnlineDevice::description())
        : device(description)
        , window(dialogs)
    {
        isUp =
            drive.start(driveDevice.fileName(), 0, {QStringLiteral("--tick"), QStringLiteral("0")})
            && window.session().open(device.fileName());
        dialogs.driveAnswer = QStringLiteral("127.0.0.1:%1").arg(drive.port());
        // What is read first is told by other tests.
        QObject::connect(System::instance(), &System::messageAdded, &window,
            [this](const SystemMessage &message) {
                if (message.text.startsWith(QStringLiteral("Vom Antrieb ")))
                    ++reads;
            });
        window.show();
        window.activateWindow();
        window.tableView().setFocus();
    }

    /// Until all values are read.
    void goOnline()
    {
        const int before = reads;
        window.actions()[DeskActions::GoOnline]->trigger();
        waitUntil([&] { return reads > before; });
        messages.take();
    }
    eState state() { return window.session().onlineSwitch()->state(); }
    ParameterContainer &container() { return window.session().project()->container(); }
    void select(const ValuePlace &place)
    {
        window.tableView().goTo(window.tableModel().indexOf(place));
    }
    QAction &start() { return *window.actions()[DeskActions::StartAction]; }
    QString obstacle() { return start().isEnabled() ? QString() : start().toolTip(); }
    void pressStart() { QTest::keyClick(&window.tableView(), Qt::Key_F7, Qt::ControlModifier); }
    /// Starts it and waits until the drive runs it.
    void run(const ValuePlace &place, const char *address)
    {
        select(place);
        pressStart();
        waitUntil([&] { return drive.value(address) == QStringLiteral("1"); });
    }
    void expect(eSeverity severity, const char *text)
    {
        messages.expect(severity, QStringLiteral("Online drive"), QString::fromUtf8(text));
    }
    /// "1.C01[0] Suche 40 %", one for each bar.
    QString progress()
    {
        QStringList texts;
        const auto bars = window.findChild<ActionProgress *>()->findChildren<QProgressBar *>();
        for (const QProgressBar *bar : bars) {
            const auto *label = bar->parentWidget()->findChild<QLabel *>();
            texts.append(
                label->text() + u' ' + QString::number(bar->value()) + QStringLiteral(" %"));
        }
        return texts.join(u'|');
    }

    MessageRecorder messages;
    OnlineDevice device;
    OnlineDevice driveDevice;
    DriveProcess drive;
    AnsweringDialogs dialogs;
    DeskWindow window;
    bool isUp = false;
    int reads = 0;
};

} // namespace

class tst_ActionStarter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void marksWhatStartsAnAction();
    void saysWhyNot_data();
    void saysWhyNot();
    void speaksEnglish();
    void showsProgressAndResult();
    void startsFromTheContextMenu();
    void runsTwice();
    void runsOnTwoAxes();
    void isBrokenOff();
    void goesOnWhereItIsStartedAgain();
    void isRefusedByTheDrive();
    void startIsLost();
    void driveDies();
    void deskGoesOffline();
    void anotherDeviceIsOpened();
    void parameterVanishes();
    void parameterHasVanishedAtTheStart();
    void levelTakesTheRow();
    void deskIsClosed();

private:
    const TestSettings m_settings;
};

void tst_ActionStarter::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.modbus*=false"));
}

void tst_ActionStarter::init()
{
    System::information()->setUserAccessLevel(4);
}

void tst_ActionStarter::marksWhatStartsAnAction()
{
    Stand s;
    QVERIFY(s.isUp);
    QStringList marked;
    const ParameterTableModel &model = s.window.tableModel();
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex name = model.index(row, ParameterTableModel::Name);
        const bool hasIcon = !name.data(Qt::DecorationRole).value<QIcon>().isNull();
        QCOMPARE(name.data(Qt::AccessibleDescriptionRole).toString(),
            hasIcon ? QStringLiteral("startet eine Aktion des Antriebs") : QString());
        if (hasIcon)
            marked.append(name.siblingAtColumn(ParameterTableModel::Address).data().toString());
    }
    QCOMPARE(marked.join(u' '), QStringLiteral("1.C01[0] 2.C01[0]"));
}

void tst_ActionStarter::saysWhyNot_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("driveState");
    QTest::addColumn<QString>("obstacle");

    const QString none;
    QTest::newRow("a value that is no action")
        << QStringLiteral("B01") << true << false << 4 << QStringLiteral("2")
        << QStringLiteral("Die gewählte Zeile gehört zu keiner Aktion.");
    QTest::newRow("a command that is no record")
        << QStringLiteral("A04") << true << false << 4 << QStringLiteral("2")
        << QStringLiteral("Die gewählte Zeile gehört zu keiner Aktion.");
    QTest::newRow("offline") << QStringLiteral("C01") << false << false << 4 << QStringLiteral("2")
                             << QStringLiteral("Eine Aktion startet nur online.");
    QTest::newRow("read only") << QStringLiteral("C01") << true << true << 4 << QStringLiteral("2")
                               << QStringLiteral("Das Gerät ist auf nur lesen gestellt.");
    QTest::newRow("below the level")
        << QStringLiteral("C01") << true << false << 1 << QStringLiteral("2")
        << QStringLiteral("Die Zugriffsstufe reicht nicht aus.");
    QTest::newRow("of the level") << QStringLiteral("C01") << true << false << 2
                                  << QStringLiteral("2") << none;
    const QString locked =
        QStringLiteral("Die Aktion startet nicht, solange die Achse eingeschaltet ist.");
    QTest::newRow("state 2 of the drive")
        << QStringLiteral("C01") << true << false << 4 << QStringLiteral("2") << none;
    QTest::newRow("state 3 of the drive")
        << QStringLiteral("C01") << true << false << 4 << QStringLiteral("3") << locked;
    QTest::newRow("state 4 of the drive")
        << QStringLiteral("C01") << true << false << 4 << QStringLiteral("4") << locked;
    QTest::newRow("state 5 of the drive")
        << QStringLiteral("C01") << true << false << 4 << QStringLiteral("5") << none;
    QTest::newRow("state 7 of the drive")
        << QStringLiteral("C01") << true << false << 4 << QStringLiteral("7") << locked;
    QTest::newRow("state 8 of the drive")
        << QStringLiteral("C01") << true << false << 4 << QStringLiteral("8") << none;
}

void tst_ActionStarter::saysWhyNot()
{
    QFETCH(QString, address);
    QFETCH(bool, isOnline);
    QFETCH(bool, isReadOnly);
    QFETCH(int, level);
    QFETCH(QString, driveState);
    QFETCH(QString, obstacle);

    Stand s(with(R"("memoryAllocation": 1, "limits")",
        R"("levels": {"read": 0, "write": 2}, "memoryAllocation": 1, "limits")"));
    QVERIFY(s.isUp);
    s.drive.order(QStringLiteral("set 1.E48 ") + driveState);
    if (isOnline)
        s.goOnline();
    s.select({at(qPrintable(address)),
        address.startsWith(u'A') ? eLivingSpace::Global : eLivingSpace::Axis1, 0});
    // The row is there already: every change has to be heard.
    s.window.setAccessLevel(quint32(level));
    if (isReadOnly)
        s.window.actions()[DeskActions::ReadOnly]->trigger();
    QTRY_COMPARE_PATIENTLY(s.obstacle(), obstacle);
    QCOMPARE(s.start().isEnabled(), obstacle.isEmpty());
    QCOMPARE(s.start().statusTip(), obstacle);
    // The key does nothing then, and edits nothing.
    if (!obstacle.isEmpty())
        s.pressStart();
    QCOMPARE(s.progress(), QString());
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
}

void tst_ActionStarter::speaksEnglish()
{
    Stand s;
    s.select(First);
    s.window.language().choose(QStringLiteral("en"));
    QCOMPARE(s.start().text(), QStringLiteral("S&tart action"));
    QCOMPARE(s.obstacle(), QStringLiteral("An action starts online only."));
    s.window.language().choose(QStringLiteral("de"));
    QCOMPARE(s.start().text(), QStringLiteral("A&ktion starten"));
    QCOMPARE(s.obstacle(), QStringLiteral("Eine Aktion startet nur online."));
}

void tst_ActionStarter::showsProgressAndResult()
{
    Stand s;
    s.goOnline();
    // Any element of the action will do.
    s.run({Second.coordinate, Second.livingSpace, 2}, "2.C01[0]");
    QCOMPARE(s.progress(), QStringLiteral("2.C01[0] Suche 0 %"));
    QCOMPARE(s.obstacle(), QStringLiteral("Die Aktion läuft."));
    s.drive.order(QStringLiteral("tick 40"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("2.C01[0] Suche 40 %"));
    s.drive.order(QStringLiteral("tick 59"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("2.C01[0] Suche 99 %"));
    s.expect(eSeverity::Information, "2.C01[0] Suche: Ergebnis: 1");
    s.drive.order(QStringLiteral("tick 1"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
    QCOMPARE(s.obstacle(), QString());
    QCOMPARE(s.drive.value("1.C01[2]"), QStringLiteral("0"));
    // Nothing of it is undone.
    QVERIFY(!s.window.session().canUndo());
}

void tst_ActionStarter::startsFromTheContextMenu()
{
    Stand s;
    QStringList texts;
    QString obstacle;
    QTimer click;
    click.setSingleShot(true);
    bool isChosen = false;
    // While the menu is open it waits for its user.
    connect(&click, &QTimer::timeout, &click, [&] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (!menu)
            return;
        texts.clear();
        for (const QAction *action : menu->actions())
            texts.append(action->text());
        obstacle = s.obstacle();
        QVERIFY(menu->toolTipsVisible());
        QTest::keyClick(menu, isChosen ? Qt::Key_K : Qt::Key_Escape);
    });
    const auto open = [&] {
        click.start(0);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(10, 10),
            s.window.tableView().viewport()->mapToGlobal(QPoint(10, 10)));
        QApplication::sendEvent(s.window.tableView().viewport(), &event);
    };
    s.select(First);
    open();
    QCOMPARE(texts.join(u'|'), QStringLiteral("Wert ä&ndern|A&ktion starten"));
    QCOMPARE(obstacle, QStringLiteral("Eine Aktion startet nur online."));
    s.goOnline();
    isChosen = true;
    open();
    QCOMPARE(obstacle, QString());
    QTRY_COMPARE_PATIENTLY(s.drive.value("1.C01[0]"), QStringLiteral("1"));
    s.expect(eSeverity::Information, "1.C01[0] Suche: Ergebnis: 1");
    s.drive.order(QStringLiteral("tick 100"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
}

void tst_ActionStarter::runsTwice()
{
    Stand s;
    s.goOnline();
    for (int i = 0; i < 2; ++i) {
        s.run(First, "1.C01[0]");
        // What is left of the last time is no progress.
        QCOMPARE(s.progress(), QStringLiteral("1.C01[0] Suche 0 %"));
        s.expect(eSeverity::Information, "1.C01[0] Suche: Ergebnis: 1");
        s.drive.order(QStringLiteral("tick 100"));
        QTRY_COMPARE_PATIENTLY(s.progress(), QString());
    }
}

void tst_ActionStarter::runsOnTwoAxes()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 30"));
    s.run(Second, "2.C01[0]");
    s.drive.order(QStringLiteral("tick 20"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 50 %|2.C01[0] Suche 20 %"));
    s.expect(eSeverity::Information, "1.C01[0] Suche: Ergebnis: 1");
    s.drive.order(QStringLiteral("tick 50"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("2.C01[0] Suche 70 %"));
    s.expect(eSeverity::Information, "2.C01[0] Suche: Ergebnis: 1");
    s.drive.order(QStringLiteral("tick 30"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
}

void tst_ActionStarter::isBrokenOff()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.expect(eSeverity::Warning, "1.C01[0] Suche: endete vor 100 % - Ergebnis: 2");
    QVERIFY(s.window.session().writer()->write(First, QStringLiteral("0")).isAccepted);
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
}

void tst_ActionStarter::goesOnWhereItIsStartedAgain()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    QVERIFY(s.window.session().writer()->write(First, QStringLiteral("1")).isAccepted);
    s.drive.order(QStringLiteral("tick 1"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 8 %"));
    s.expect(eSeverity::Information, "1.C01[0] Suche: Ergebnis: 1");
    s.drive.order(QStringLiteral("tick 92"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
}

void tst_ActionStarter::isRefusedByTheDrive()
{
    Stand s(unaware());
    s.drive.order(QStringLiteral("set 1.E48 4"));
    s.goOnline();
    s.select(First);
    s.expect(
        eSeverity::Warning, "1.C01[0]: abgelehnt - der Antrieb kann das in seinem Zustand nicht");
    s.expect(eSeverity::Warning, "1.C01[0] Suche: nicht gestartet");
    s.pressStart();
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
    QCOMPARE(s.obstacle(), QString());
}

void tst_ActionStarter::startIsLost()
{
    Stand s;
    s.goOnline();
    s.select(First);
    s.drive.order(QStringLiteral("silent 0"));
    s.pressStart();
    QCOMPARE(s.progress(), QStringLiteral("1.C01[0] Suche 0 %"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
    QStringList texts;
    for (const SystemMessage &message : s.messages.take())
        texts.append(message.text);
    QVERIFY2(
        texts.contains(QStringLiteral("1.C01[0] Suche: ob sie gestartet wurde, ist nicht bekannt")),
        qPrintable(texts.join(u'\n')));
}

void tst_ActionStarter::driveDies()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.drive.kill();
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
    QCOMPARE(s.progress(), QString());
    QCOMPARE(s.obstacle(), QStringLiteral("Eine Aktion startet nur online."));
    const QList<SystemMessage> messages = s.messages.take();
    QVERIFY(messages.size() >= 2);
    const SystemMessage &end = messages.at(messages.size() - 2);
    QVERIFY(end.severity == eSeverity::Warning);
    QCOMPARE(end.text,
        QStringLiteral("1.C01[0] Suche: nicht mehr online; wie sie endet, ist nicht bekannt"));
    QVERIFY(messages.constLast().text.startsWith(QStringLiteral("Nicht mehr online: ")));
}

void tst_ActionStarter::deskGoesOffline()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    QTRY_COMPARE_PATIENTLY(
        s.window.tableModel().indexOf(First).data().toString(), QStringLiteral("1"));
    s.expect(
        eSeverity::Warning, "1.C01[0] Suche: nicht mehr online; wie sie endet, ist nicht bekannt");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.window.actions()[DeskActions::GoOnline]->trigger();
    QCOMPARE(s.progress(), QString());
    QVERIFY(s.state() == eState::Offline);
    // The drive goes on, and is followed again.
    s.messages.verify();
    s.goOnline();
    s.pressStart();
    QCOMPARE(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.expect(eSeverity::Information, "1.C01[0] Suche: Ergebnis: 1");
    s.drive.order(QStringLiteral("tick 93"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QString());
}

void tst_ActionStarter::anotherDeviceIsOpened()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.expect(
        eSeverity::Warning, "1.C01[0] Suche: nicht mehr online; wie sie endet, ist nicht bekannt");
    QVERIFY(s.window.session().open(s.device.fileName()));
    QCOMPARE(s.progress(), QString());
}

void tst_ActionStarter::parameterVanishes()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.expect(eSeverity::Warning,
        "1.C01[0] Suche: den Parameter gibt es nicht mehr; wie sie endet, ist nicht bekannt");
    s.container().deleteParameter(QStringLiteral("Drive.1;{P7}"));
    QCOMPARE(s.progress(), QString());
    QCOMPARE(s.obstacle(), QStringLiteral("Die gewählte Zeile gehört zu keiner Aktion."));
    QVERIFY(s.state() == eState::Online);
}

void tst_ActionStarter::parameterHasVanishedAtTheStart()
{
    Stand s;
    s.container().deleteParameter(QStringLiteral("Drive.1;{P7}"));
    ActionRun run(s.container(), First);
    QList<ActionRun::eEnd> ends;
    connect(&run, &ActionRun::ended, &run, [&ends](ActionRun::eEnd end) { ends.append(end); });
    run.start();
    QCOMPARE(ends, QList<ActionRun::eEnd>({ActionRun::eEnd::Vanished}));
    QCOMPARE(run.stateText(), QString());
    run.loseDrive();
    QCOMPARE(ends.size(), 1);
}

void tst_ActionStarter::levelTakesTheRow()
{
    Stand s(with(R"("memoryAllocation": 1, "limits")",
        R"("levels": {"read": 3, "write": 3}, "memoryAllocation": 1, "limits")"));
    s.goOnline();
    s.select(First);
    QCOMPARE(s.obstacle(), QString());
    s.window.setAccessLevel(2);
    QVERIFY(!s.start().isEnabled());
    s.pressStart();
    QCOMPARE(s.drive.value("1.C01[0]"), QStringLiteral("0"));
}

void tst_ActionStarter::deskIsClosed()
{
    Stand s;
    s.goOnline();
    s.run(First, "1.C01[0]");
    s.drive.order(QStringLiteral("tick 7"));
    QTRY_COMPARE_PATIENTLY(s.progress(), QStringLiteral("1.C01[0] Suche 7 %"));
    s.expect(
        eSeverity::Warning, "1.C01[0] Suche: nicht mehr online; wie sie endet, ist nicht bekannt");
    // The desk goes in the middle of it.
}

QTEST_MAIN(tst_ActionStarter)
#include "tst_ActionStarter.moc"

#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/ReadingProgress.h"
#include "apps/krparameter-desk/ValueWriter.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/online/DriveProcess.h"
#include "tests/online/OnlineDevice.h"
#include "tests/online/Patience.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestSettings.h"

#include <KrSystem/System.h>

#include <QtCore/QLoggingCategory>
#include <QtCore/QRegularExpression>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QToolButton>

using eSeverity = MessageRecorder::eSeverity;
using eState = OnlineSwitch::eState;
using eUnsaved = DeskDialogs::eUnsaved;

namespace {

const ValuePlace Number {at("A01"), eLivingSpace::Global, 0};
const ValuePlace Target {at("B01"), eLivingSpace::Axis2, 0};

/// 104 settings, A01 to A04, B01 and so on, none read together with another: the last one first.
QByteArray scattered()
{
    QByteArray parameters;
    for (int number = 1; number <= 104; ++number) {
        parameters += QStringLiteral(R"(,{"number": %1, "coordinates": ["%2%3"], "name": "N",
            "global": true, "elements": [{"dataType": "STRING32", "kind": 5, "default": "abc",
            "levels": {"read": 0, "write": 0}, "onlineOrder": %4}]})")
                          .arg(number)
                          .arg(QChar(u'A' + (number - 1) / 4))
                          .arg(1 + (number - 1) % 4, 2, 10, QLatin1Char('0'))
                          .arg(1000 - number)
                          .toUtf8();
    }
    return R"({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Online drive", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["STRING32"], "parameters": [)"
        + parameters.sliced(1) + "]}";
}

/// Each answer: far from the 500 ms behind which it counts as lost, and two seconds for all 104 of them,
/// four under way at a time.
const QString Slowly = QStringLiteral("delay 1000 80");

QString addressOf(const DriveProcess &drive)
{
    return QStringLiteral("127.0.0.1:%1").arg(drive.port());
}

/// A desk with a device, and drives in processes of their own that move by order alone.
struct Stand {
    explicit Stand(const QByteArray &description = OnlineDevice::description())
        : device(description)
        , window(dialogs)
    {
        isUp = start(first) && window.session().open(device.fileName());
        dialogs.driveAnswer = addressOf(first);
        QObject::connect(System::instance(), &System::messageAdded, &window,
            [this](const SystemMessage &message) {
                if (message.text.startsWith(QStringLiteral("Vom Antrieb ")))
                    ++reads;
            });
        window.show();
        window.activateWindow();
        isUp = isUp && QTest::qWaitForWindowActive(&window);
        window.tableView().setFocus();
    }

    bool start(DriveProcess &drive)
    {
        return drive.start(device.fileName(), 0, {QStringLiteral("--tick"), QStringLiteral("0")});
    }
    eState state() { return window.session().onlineSwitch()->state(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&window.tableView(), key, modifiers);
    }
    /// Until all values are read.
    void waitForReading()
    {
        waitUntil([&] { return state() == eState::Online; });
        messages.take();
    }
    void goOnline()
    {
        press(Qt::Key_F9);
        waitForReading();
    }
    bool write(const ValuePlace &place, const char *text)
    {
        return window.session().writer()->write(place, QString::fromLatin1(text)).isAccepted;
    }
    QString shown(const ValuePlace &place)
    {
        return window.tableModel().indexOf(place).data().toString();
    }
    /// The last label of the status bar.
    QString stateText()
    {
        const auto labels =
            window.statusBar()->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        return labels.constLast()->text();
    }
    ReadingProgress &progress() { return *window.findChild<ReadingProgress *>(); }

    MessageRecorder messages;
    OnlineDevice device;
    DriveProcess first;
    DriveProcess second;
    AnsweringDialogs dialogs;
    DeskWindow window;
    bool isUp = false;
    int reads = 0;
};

} // namespace

/// What happens to values, undo and connection when the desk goes to its drive or to another one.
class tst_DriveCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void nothingUndoneOnTheDrive_data();
    void nothingUndoneOnTheDrive();
    void nothingUndoneOnAnotherDrive();
    void keepsUndoWhereNoDriveAnswers();
    void staysWithItsDriveUnlessAgreed();
    void asksBeforeAnotherDriveIsRead();
    void tellsHowManyValuesAreRead();
    void isCancelledWhileItReads();
    void writtenWhileItReads();
    void measuredValuesAreNoChange();

private:
    const TestSettings m_settings;
};

void tst_DriveCommands::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.modbus*=false"));
    System::information()->setUserAccessLevel(4);
}

void tst_DriveCommands::nothingUndoneOnTheDrive_data()
{
    QTest::addColumn<bool>("isUndone");
    QTest::addColumn<int>("answer");
    QTest::newRow("undo of what was discarded") << false << int(eUnsaved::Discard);
    QTest::newRow("undo of what was saved") << false << int(eUnsaved::Save);
    QTest::newRow("redo of what was undone") << true << int(eUnsaved::Cancel);
}

void tst_DriveCommands::nothingUndoneOnTheDrive()
{
    QFETCH(bool, isUndone);
    QFETCH(int, answer);
    Stand s;
    QVERIFY(s.isUp);
    const QTemporaryDir folder;
    s.first.order(QStringLiteral("set 2.B01 20"));
    QVERIFY(s.write(Target, "-7"));
    if (isUndone)
        s.press(Qt::Key_Z, Qt::ControlModifier);
    s.dialogs.unsavedAnswer = eUnsaved(answer);
    s.dialogs.folderAnswer = folder.filePath(QStringLiteral("plant"));
    s.goOnline();
    QCOMPARE(s.shown(Target), QStringLiteral("20"));
    QVERIFY(!s.window.actions()[DeskActions::Undo]->isEnabled());
    QVERIFY(!s.window.actions()[DeskActions::Redo]->isEnabled());
    s.press(Qt::Key_Z, Qt::ControlModifier);
    s.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    // What goes out later overtakes nothing.
    QVERIFY(s.write(Number, "8"));
    QTRY_COMPARE_PATIENTLY(s.first.value("A01"), QStringLiteral("8"));
    QCOMPARE(s.first.value("2.B01"), QStringLiteral("20"));
    QCOMPARE(s.shown(Target), QStringLiteral("20"));
    // The values are not those of a file.
    QVERIFY(s.window.isWindowModified());
    // What is written to this drive can be undone on it.
    s.press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE_PATIENTLY(s.first.value("A01"), QStringLiteral("7"));
    QVERIFY(!s.window.session().canUndo());
}

void tst_DriveCommands::nothingUndoneOnAnotherDrive()
{
    Stand s;
    QVERIFY(s.isUp && s.start(s.second));
    s.second.order(QStringLiteral("set 2.B01 20"));
    s.goOnline();
    QVERIFY(s.write(Target, "-7"));
    QTRY_COMPARE_PATIENTLY(s.first.value("2.B01"), QStringLiteral("-7"));
    s.dialogs.driveAnswer = addressOf(s.second);
    s.dialogs.unsavedAnswer = eUnsaved::Discard;
    s.press(Qt::Key_F9, Qt::ControlModifier);
    s.waitForReading();
    QCOMPARE(s.shown(Target), QStringLiteral("20"));
    QVERIFY(!s.window.session().canUndo());
    s.press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(s.write(Number, "8"));
    QTRY_COMPARE_PATIENTLY(s.second.value("A01"), QStringLiteral("8"));
    QCOMPARE(s.second.value("2.B01"), QStringLiteral("20"));
    QCOMPARE(s.first.value("2.B01"), QStringLiteral("-7"));
}

void tst_DriveCommands::keepsUndoWhereNoDriveAnswers()
{
    Stand s;
    QVERIFY(s.isUp);
    s.first.kill();
    QVERIFY(s.write(Target, "-7"));
    s.dialogs.unsavedAnswer = eUnsaved::Discard;
    s.press(Qt::Key_F9);
    QVERIFY(s.state() == eState::Opening);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
    s.messages.take();
    QVERIFY(s.window.session().canUndo());
    s.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.shown(Target), QStringLiteral("5"));
    QVERIFY(!s.window.isWindowModified());
}

/// Nobody saved what the first drive has.
void tst_DriveCommands::staysWithItsDriveUnlessAgreed()
{
    Stand s;
    QVERIFY(s.isUp && s.start(s.second));
    s.first.order(QStringLiteral("set A01 1234"));
    s.goOnline();
    QCOMPARE(s.shown(Number), QStringLiteral("1234"));
    s.dialogs.asked.clear();
    s.dialogs.driveAnswer = addressOf(s.second);
    s.dialogs.unsavedAnswer = eUnsaved::Cancel;
    s.press(Qt::Key_F9, Qt::ControlModifier);
    QCOMPARE(s.dialogs.asked,
        (QStringList {QStringLiteral("drive: ") + addressOf(s.first), QStringLiteral("unsaved")}));
    QVERIFY(s.state() == eState::Online);
    QVERIFY(s.write(Target, "-7"));
    QTRY_COMPARE_PATIENTLY(s.first.value("2.B01"), QStringLiteral("-7"));
    QCOMPARE(s.second.value("2.B01"), QStringLiteral("5"));
    // Also the next time it is the first one.
    s.press(Qt::Key_Z, Qt::ControlModifier);
    s.press(Qt::Key_F9);
    s.goOnline();
    QCOMPARE(s.shown(Number), QStringLiteral("1234"));
    s.dialogs.unsavedAnswer = eUnsaved::Discard;
    s.press(Qt::Key_F9, Qt::ControlModifier);
    s.waitForReading();
    QCOMPARE(s.shown(Number), QStringLiteral("7"));
}

/// Who chooses a drive while offline has lost nothing yet.
void tst_DriveCommands::asksBeforeAnotherDriveIsRead()
{
    Stand s;
    QVERIFY(s.isUp && s.start(s.second));
    s.first.order(QStringLiteral("set A01 1234"));
    s.goOnline();
    s.press(Qt::Key_F9);
    QVERIFY(s.state() == eState::Offline);
    s.dialogs.asked.clear();
    s.dialogs.driveAnswer = addressOf(s.second);
    s.press(Qt::Key_F9, Qt::ControlModifier);
    QCOMPARE(s.dialogs.asked, QStringList(QStringLiteral("drive: ") + addressOf(s.first)));
    s.dialogs.unsavedAnswer = eUnsaved::Cancel;
    s.press(Qt::Key_F9);
    QCOMPARE(s.dialogs.asked.constLast(), QStringLiteral("unsaved"));
    QVERIFY(s.state() == eState::Offline);
    QCOMPARE(s.shown(Number), QStringLiteral("1234"));
    s.dialogs.unsavedAnswer = eUnsaved::Discard;
    s.goOnline();
    QCOMPARE(s.shown(Number), QStringLiteral("7"));
}

void tst_DriveCommands::tellsHowManyValuesAreRead()
{
    Stand s(scattered());
    QVERIFY(s.isUp);
    s.first.order(QStringLiteral("set Z01 xyz"));
    s.first.order(Slowly);
    QStringList texts;
    connect(&s.window.session(), &DeskSession::readingProgressed, &s.window,
        [&] { texts.append(s.stateText()); });
    s.press(Qt::Key_F9);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Reading);
    QCOMPARE(texts.constFirst(), QStringLiteral("liest 0 von 104 Werten …"));
    QVERIFY(s.progress().isHidden());
    QVERIFY(s.window.actions()[DeskActions::GoOnline]->isChecked());
    QTRY_VERIFY_PATIENTLY(s.progress().isVisible());
    QVERIFY(s.state() == eState::Reading);
    s.window.language().choose(QStringLiteral("en"));
    static const QRegularExpression english(QStringLiteral("^reading \\d+ of 104 values …$"));
    QVERIFY(english.match(s.stateText()).hasMatch());
    QCOMPARE(s.progress().findChild<QToolButton *>()->text(), QStringLiteral("Cancel"));
    s.window.language().choose(QStringLiteral("de"));
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Online);
    QCOMPARE(s.stateText(), QStringLiteral("online"));
    QVERIFY(s.progress().isHidden());
    QVERIFY(texts.contains(QStringLiteral("liest 104 von 104 Werten …")));
    QVERIFY(texts.size() > 5);
    s.messages.take();
}

void tst_DriveCommands::isCancelledWhileItReads()
{
    Stand s(scattered());
    QVERIFY(s.isUp);
    s.first.order(Slowly);
    s.press(Qt::Key_F9);
    QTRY_VERIFY_PATIENTLY(s.progress().isVisible());
    auto *bar = s.progress().findChild<QProgressBar *>();
    QTRY_VERIFY_PATIENTLY(bar->value() > 0);
    QTest::mouseClick(s.progress().findChild<QToolButton *>(), Qt::LeftButton);
    QVERIFY(s.state() == eState::Offline);
    QVERIFY(s.progress().isHidden());
    QCOMPARE(s.stateText(), QStringLiteral("offline"));
    QVERIFY(!s.window.actions()[DeskActions::GoOnline]->isChecked());
    const QList<SystemMessage> messages = s.messages.take();
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.constFirst().severity == eSeverity::Warning);
    static const QRegularExpression cancelled(QStringLiteral(
        "^Lesen vom Antrieb 127\\.0\\.0\\.1:\\d+ abgebrochen: (\\d+) von 104 Werten sind "
        "gelesen, die anderen sind die von vorher$"));
    const QRegularExpressionMatch match = cancelled.match(messages.constFirst().text);
    QVERIFY2(match.hasMatch(), qPrintable(messages.constFirst().text));
    QVERIFY(match.captured(1).toInt() > 0 && match.captured(1).toInt() < 104);
    // The drive does not come back by itself, and can be called again.
    s.first.order(QStringLiteral("clear"));
    s.goOnline();
    QCOMPARE(s.reads, 1);
}

/// It goes to the drive, and nothing else that stood there before the drive's own values came.
void tst_DriveCommands::writtenWhileItReads()
{
    Stand s(scattered());
    QVERIFY(s.isUp);
    const ValuePlace last {at("A01"), eLivingSpace::Global, 0};
    s.first.order(QStringLiteral("set A01 xyz"));
    s.first.order(Slowly);
    s.press(Qt::Key_F9);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Reading);
    QVERIFY(s.write(last, "new"));
    QVERIFY(!s.window.actions()[DeskActions::Undo]->isEnabled());
    s.press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.shown(last), QStringLiteral("new"));
    s.waitForReading();
    QTRY_COMPARE_PATIENTLY(s.first.value("A01"), QStringLiteral("new"));
    QCOMPARE(s.shown(last), QStringLiteral("new"));
    QVERIFY(!s.window.session().canUndo());
    QVERIFY(s.window.isWindowModified());
}

/// Seconds after a save the desk is as saved as it was.
void tst_DriveCommands::measuredValuesAreNoChange()
{
    Stand s;
    QVERIFY(s.isUp);
    const QTemporaryDir folder;
    const ValuePlace actual {at("B02"), eLivingSpace::Axis1, 0};
    s.goOnline();
    QVERIFY(s.write(Target, "-7"));
    QTRY_COMPARE_PATIENTLY(s.first.value("2.B01"), QStringLiteral("-7"));
    QVERIFY(s.window.isWindowModified());
    QVERIFY(s.window.session().save(folder.filePath(QStringLiteral("plant"))));
    s.messages.take();
    const QString before = s.shown(actual);
    s.first.order(QStringLiteral("tick 5"));
    QTRY_VERIFY_PATIENTLY(s.shown(actual) != before);
    QVERIFY(!s.window.isWindowModified());
    s.dialogs.asked.clear();
    QVERIFY(s.window.session().mayClose());
    QCOMPARE(s.dialogs.asked, QStringList());
    // What somebody else set there is one.
    s.first.order(QStringLiteral("set 1.B01 6"));
    s.press(Qt::Key_F9);
    s.goOnline();
    QVERIFY(s.window.isWindowModified());
}

QTEST_MAIN(tst_DriveCommands)
#include "tst_DriveCommands.moc"

#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ValueWriter.h"
#include "apps/online/OnlineOutcome.h"
#include "apps/simulation/DriveServer.h"
#include "apps/simulation/SimulatedDrive.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/online/OnlineDevice.h"
#include "tests/online/Patience.h"
#include "tests/support/MessageRecorder.h"
#include "tests/support/TestSettings.h"

#include <KrSystem/System.h>

#include <QtCore/QLoggingCategory>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>

#include <functional>
#include <utility>

using eSeverity = MessageRecorder::eSeverity;
using eState = OnlineSwitch::eState;

namespace {

/// Thirty settings of one parameter.
QByteArray thirtyValues()
{
    return R"({"format": "kr-device-description", "version": 1,
      "family": {"identifier": 9, "name": "Online drive", "hasPhysicalAxes": true, "axes": [1]},
      "languages": ["de"], "dataTypes": ["UINT16"],
      "parameters": [{"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
                      "elementCount": 30, "elements": [{"dataType": "UINT16"}]}]})";
}

/// A desk with a device, and its drive in the same process.
struct Stand {
    explicit Stand(const QByteArray &description = OnlineDevice::description(),
        const QByteArray &driveDescription = {})
        : device(description)
        , driveDevice(driveDescription.isEmpty() ? description : driveDescription)
        , driveProject(driveDevice.open())
        , drive(*driveProject)
        , server(std::make_unique<DriveServer>(drive))
        , isUp(server->listen(QStringLiteral("127.0.0.1"), 0))
        , address(QStringLiteral("127.0.0.1:%1").arg(server->port()))
        , window(dialogs)
    {
        isUp = isUp && window.session().open(device.fileName());
        dialogs.driveAnswer = address;
        QObject::connect(System::instance(), &System::messageAdded, &window,
            [this](const SystemMessage &message) {
                if (message.text.startsWith(QStringLiteral("Vom Antrieb ")))
                    ++reads;
            });
        QObject::connect(window.session().onlineSwitch(), &OnlineSwitch::reported, &window,
            [this](const OnlineOutcome &outcome) { writes += outcome.isWrite ? 1 : 0; });
        window.show();
    }

    eState state() { return window.session().onlineSwitch()->state(); }
    /// As soon as the drive has agreed: none of its values has been asked for by then.
    void whenItReads(std::function<void()> then)
    {
        QObject::connect(window.session().onlineSwitch(), &OnlineSwitch::stateChanged, &window,
            [this, then = std::move(then)] {
                if (state() == eState::Reading)
                    then();
            });
    }
    void press(DeskActions::eAction action) { window.actions()[action]->trigger(); }
    void expect(eSeverity severity, const QString &text)
    {
        messages.expect(severity, QStringLiteral("Online drive"), text);
    }
    void expectRead(const char *summary)
    {
        expect(eSeverity::Information,
            QStringLiteral("Vom Antrieb %1 gelesen: %2").arg(address, QString::fromUtf8(summary)));
    }
    /// The desk's table shows it once it is read.
    QString shown(const ValuePlace &place)
    {
        return window.tableModel().indexOf(place).data().toString();
    }
    QString atDrive(const ValuePlace &place)
    {
        return driveProject->container().readValueNative(
            place.livingSpace, place.coordinate, place.element, false);
    }
    void setAtDrive(const ValuePlace &place, const char *native)
    {
        driveProject->container().writeValueNative(
            place.livingSpace, place.coordinate, place.element, QString::fromLatin1(native));
    }
    QString stateText()
    {
        const auto labels = window.statusBar()->findChildren<QLabel *>();
        QStringList texts;
        for (const QLabel *label : labels)
            texts.append(label->text());
        return texts.join(u'|');
    }

    MessageRecorder messages;
    OnlineDevice device;
    OnlineDevice driveDevice;
    std::unique_ptr<DriveProject> driveProject;
    SimulatedDrive drive;
    std::unique_ptr<DriveServer> server;
    bool isUp;
    QString address;
    AnsweringDialogs dialogs;
    DeskWindow window;
    /// How often all values were read.
    int reads = 0;
    /// Writes that came to their end: what the drive made of them has been read back.
    int writes = 0;
};

const ValuePlace Number {at("A01"), eLivingSpace::Global, 0};
const ValuePlace Target {at("B01"), eLivingSpace::Axis2, 0};
const ValuePlace Actual {at("B02"), eLivingSpace::Axis1, 0};

} // namespace

class tst_DeskOnline : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void showsWhatTheDriveHas();
    void writesToTheDrive();
    void writesTheSameWhileItReads();
    void tellsWhatTheDriveRefuses();
    void losesItsDrive();
    void losesItsDriveWhileItReads();
    void losesWhatIsWrittenWhileItReads();
    void findsNoDrive();
    void isGivenUpWhileItConnects();
    void asksForTheDriveOnce();
    void asksBeforeItReplacesChanges();
    void replacesWhatTheDriveChanged();
    void goesToAnotherDrive();
    void loadsOffline();
    void savesOverAProjectIfAgreed();
    void isClosedWhileOnline();

private:
    const TestSettings m_settings;
};

void tst_DeskOnline::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("qt.modbus*=false"));
    System::information()->setUserAccessLevel(4);
}

void tst_DeskOnline::showsWhatTheDriveHas()
{
    Stand s;
    QVERIFY(s.isUp);
    s.setAtDrive(Number, "1234");
    QVERIFY(s.stateText().contains(QStringLiteral("offline")));
    s.expectRead("16 Werte: 15 unverändert, 1 geändert");
    s.press(DeskActions::GoOnline);
    QVERIFY(s.stateText().contains(QStringLiteral("verbindet")));
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    QCOMPARE(s.shown(Number), QStringLiteral("1234"));
    QVERIFY(s.state() == eState::Online);
    QVERIFY(s.stateText().contains(QStringLiteral("online")));
    QVERIFY(s.window.actions()[DeskActions::GoOnline]->isChecked());
    QVERIFY(s.window.session().project()->container().isOnline());
    // What the drive measures is followed.
    for (int i = 0; i < 5; ++i)
        s.drive.tick();
    QTRY_COMPARE_PATIENTLY(s.shown(Actual), QStringLiteral("-2"));
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Offline);
    QVERIFY(!s.window.session().project()->container().isOnline());
    QVERIFY(!s.window.actions()[DeskActions::GoOnline]->isChecked());
}

void tst_DeskOnline::writesToTheDrive()
{
    Stand s;
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    ValueWriter &writer = *s.window.session().writer();
    QVERIFY(writer.write(Target, QStringLiteral("-7")).isAccepted);
    QTRY_COMPARE_PATIENTLY(s.writes, 1);
    QCOMPARE(s.atDrive(Target), QStringLiteral("-7"));
    s.window.session().undo();
    QTRY_COMPARE_PATIENTLY(s.writes, 2);
    QCOMPARE(s.atDrive(Target), QStringLiteral("5"));
    // Also the same once more, where the drive has something else meanwhile.
    QCOMPARE(s.shown(Target), QStringLiteral("5"));
    s.setAtDrive(Target, "9");
    QVERIFY(writer.write(Target, QStringLiteral("5")).isAccepted);
    QTRY_COMPARE_PATIENTLY(s.writes, 3);
    QCOMPARE(s.atDrive(Target), QStringLiteral("5"));
}

void tst_DeskOnline::writesTheSameWhileItReads()
{
    Stand s;
    s.setAtDrive(Target, "9");
    QObject context;
    bool isAccepted = false;
    s.whenItReads([&] {
        QMetaObject::invokeMethod(
            &context,
            [&] {
                isAccepted =
                    s.window.session().writer()->write(Target, QStringLiteral("5")).isAccepted;
            },
            Qt::QueuedConnection);
    });
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    QVERIFY(isAccepted);
    QTRY_COMPARE_PATIENTLY(s.atDrive(Target), QStringLiteral("5"));
    QCOMPARE(s.shown(Target), QStringLiteral("5"));
}

void tst_DeskOnline::tellsWhatTheDriveRefuses()
{
    QByteArray narrow = OnlineDevice::description();
    narrow.replace("\"upper\": 100", "\"upper\": 50");
    Stand s(OnlineDevice::description(), narrow);
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    s.expect(eSeverity::Warning,
        QStringLiteral("2.B01: abgelehnt - der Antrieb nimmt diesen Wert nicht an"));
    QVERIFY(s.window.session().writer()->write(Target, QStringLiteral("51")).isAccepted);
    QCOMPARE(s.shown(Target), QStringLiteral("51"));
    QTRY_COMPARE_PATIENTLY(s.shown(Target), QStringLiteral("5"));
}

void tst_DeskOnline::losesItsDrive()
{
    Stand s;
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    s.server.reset();
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
    QVERIFY(!s.window.session().project()->container().isOnline());
    const QList<SystemMessage> messages = s.messages.take();
    QVERIFY(!messages.isEmpty());
    QVERIFY(messages.constLast().severity == eSeverity::Critical);
    QVERIFY(messages.constLast().text.startsWith(QStringLiteral("Nicht mehr online: ")));
    QVERIFY(s.stateText().contains(QStringLiteral("offline")));
}

void tst_DeskOnline::losesItsDriveWhileItReads()
{
    Stand s(thirtyValues());
    s.whenItReads([&] { s.server->faults().fallSilentAfter(0); });
    s.expectRead("30 Werte: 30 verloren");
    for (int i = 0; i < 20; ++i) {
        s.expect(eSeverity::Warning, QStringLiteral("A01[%1]: verloren - keine Antwort").arg(i));
    }
    s.expect(eSeverity::Warning, QStringLiteral("und 10 weitere Werte nicht gelesen"));
    s.expect(eSeverity::Critical, QStringLiteral("Nicht mehr online: der Antrieb antwortet nicht"));
    s.press(DeskActions::GoOnline);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Reading);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
}

void tst_DeskOnline::losesWhatIsWrittenWhileItReads()
{
    Stand s(thirtyValues());
    const ValuePlace last {at("A01"), eLivingSpace::Global, 29};
    QObject context;
    s.whenItReads([&] {
        s.server->faults().fallSilentAfter(0);
        QMetaObject::invokeMethod(
            &context, [&] { s.window.session().writer()->write(last, QStringLiteral("8")); },
            Qt::QueuedConnection);
    });
    s.press(DeskActions::GoOnline);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Reading);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
    // The list of what was not read ends before it.
    int count = 0;
    for (const SystemMessage &message : s.messages.take()) {
        if (message.severity == eSeverity::Warning
            && message.text.startsWith(QStringLiteral("A01[29]: verloren - ")))
            ++count;
    }
    QCOMPARE(count, 1);
}

void tst_DeskOnline::findsNoDrive()
{
    Stand s;
    s.server.reset();
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Opening);
    QTRY_VERIFY_PATIENTLY(s.state() == eState::Offline);
    const QList<SystemMessage> messages = s.messages.take();
    QCOMPARE(messages.size(), 1);
    QVERIFY(messages.constFirst().severity == eSeverity::Critical);
    QCOMPARE(messages.constFirst().title, QStringLiteral("Online drive"));
    QVERIFY(!s.window.actions()[DeskActions::GoOnline]->isChecked());
}

void tst_DeskOnline::isGivenUpWhileItConnects()
{
    Stand s;
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Opening);
    // It would be replaced as soon as the drive answers.
    QVERIFY(!s.window.session().writer()->write(Target, QStringLiteral("-7")).isAccepted);
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Offline);
    QVERIFY(s.stateText().contains(QStringLiteral("offline")));
    QCOMPARE(s.shown(Target), QStringLiteral("5"));
    QVERIFY(s.window.session().writer()->write(Target, QStringLiteral("-7")).isAccepted);
}

void tst_DeskOnline::asksForTheDriveOnce()
{
    Stand s;
    s.dialogs.driveAnswer.reset();
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Offline);
    QVERIFY(!s.window.actions()[DeskActions::GoOnline]->isChecked());
    s.dialogs.driveAnswer = QStringLiteral("no address");
    s.messages.expect(eSeverity::Critical, QStringLiteral("no address"),
        QStringLiteral("keine Adresse eines Antriebs, wie zum Beispiel 10.0.0.7:502"));
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Offline);
    s.dialogs.driveAnswer = s.address;
    s.press(DeskActions::GoOnline);
    QVERIFY(s.state() == eState::Opening);
    s.press(DeskActions::GoOnline);
    s.press(DeskActions::GoOnline);
    QCOMPARE(s.dialogs.asked, QStringList(3, QStringLiteral("drive: 127.0.0.1:502")));
    // Until it is to be another one.
    s.dialogs.asked.clear();
    s.press(DeskActions::GoOnline);
    s.press(DeskActions::ChooseDrive);
    QCOMPARE(s.dialogs.asked, QStringList(QStringLiteral("drive: ") + s.address));
    QVERIFY(s.state() == eState::Offline);
}

void tst_DeskOnline::asksBeforeItReplacesChanges()
{
    Stand s;
    QVERIFY(s.window.session().writer()->write(Target, QStringLiteral("-7")).isAccepted);
    s.dialogs.unsavedAnswer = DeskDialogs::eUnsaved::Cancel;
    s.press(DeskActions::GoOnline);
    QCOMPARE(s.dialogs.asked.constLast(), QStringLiteral("unsaved"));
    QVERIFY(s.state() == eState::Offline);
    QCOMPARE(s.shown(Target), QStringLiteral("-7"));
    s.dialogs.unsavedAnswer = DeskDialogs::eUnsaved::Discard;
    s.expectRead("16 Werte: 15 unverändert, 1 geändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    QCOMPARE(s.shown(Target), QStringLiteral("5"));
    QCOMPARE(s.atDrive(Target), QStringLiteral("5"));
}

void tst_DeskOnline::replacesWhatTheDriveChanged()
{
    Stand s;
    s.setAtDrive(Number, "1234");
    s.expectRead("16 Werte: 15 unverändert, 1 geändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    s.press(DeskActions::GoOnline);
    QVERIFY(s.window.session().isModified());
    // Nobody typed it.
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 2);
    QCOMPARE(s.dialogs.asked, QStringList(QStringLiteral("drive: 127.0.0.1:502")));
}

void tst_DeskOnline::goesToAnotherDrive()
{
    Stand s;
    const auto otherProject = s.device.open();
    SimulatedDrive other(*otherProject);
    DriveServer otherServer(other);
    QVERIFY(otherServer.listen(QStringLiteral("127.0.0.1"), 0));
    otherProject->container().writeValueNative(
        Number.livingSpace, Number.coordinate, 0, QStringLiteral("77"));
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    s.address = QStringLiteral("127.0.0.1:%1").arg(otherServer.port());
    s.dialogs.driveAnswer = s.address;
    s.expectRead("16 Werte: 15 unverändert, 1 geändert");
    s.press(DeskActions::ChooseDrive);
    QTRY_COMPARE_PATIENTLY(s.reads, 2);
    QCOMPARE(s.shown(Number), QStringLiteral("77"));
}

void tst_DeskOnline::loadsOffline()
{
    Stand s;
    const QTemporaryDir folder;
    QVERIFY(s.window.session().writer()->write(Target, QStringLiteral("-7")).isAccepted);
    QVERIFY(s.window.session().save(folder.path()));
    s.messages.take();
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    QCOMPARE(s.shown(Target), QStringLiteral("5"));
    QVERIFY(s.window.session().load(folder.path()));
    s.messages.take();
    QVERIFY(s.state() == eState::Offline);
    QCOMPARE(s.shown(Target), QStringLiteral("-7"));
    QCOMPARE(s.atDrive(Target), QStringLiteral("5"));
}

/// The project was loaded before the drive's values came.
void tst_DeskOnline::savesOverAProjectIfAgreed()
{
    Stand s;
    const QTemporaryDir folder;
    const QString project = folder.filePath(QStringLiteral("plant"));
    const auto block = [&project] {
        QFile file(project + QStringLiteral("/Parameter.ini"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QVERIFY(s.window.session().save(project));
    QVERIFY(s.window.session().load(project));
    const QByteArray before = block();
    QVERIFY(before.contains("[A001]\r\nV_0_0=7\r\n"));
    s.setAtDrive(Number, "1234");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    s.messages.take();
    s.press(DeskActions::SaveProject);
    QCOMPARE(s.dialogs.asked.constLast(),
        QStringLiteral("from drive: %1, %2, ").arg(project, s.address));
    QCOMPARE(block(), before);
    s.dialogs.agrees = true;
    s.press(DeskActions::SaveProject);
    QVERIFY(block().contains("[A001]\r\nV_0_0=1234\r\n"));
    s.messages.take();
    // From now on the folder is this drive's.
    const qsizetype asked = s.dialogs.asked.size();
    s.press(DeskActions::SaveProject);
    QCOMPARE(s.dialogs.asked.size(), asked);
    s.messages.take();
}

void tst_DeskOnline::isClosedWhileOnline()
{
    Stand s;
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 1);
    // Another device takes the place of the one that is online.
    QVERIFY(s.window.session().open(s.device.fileName()));
    QVERIFY(s.state() == eState::Offline);
    s.expectRead("16 Werte: 16 unverändert");
    s.press(DeskActions::GoOnline);
    QTRY_COMPARE_PATIENTLY(s.reads, 2);
    // The desk goes while it is online.
}

QTEST_MAIN(tst_DeskOnline)
#include "tst_DeskOnline.moc"

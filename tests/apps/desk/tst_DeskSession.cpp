#include "apps/krparameter-desk/DeskSession.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ValueWriter.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/apps/desk/FollowingDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrSystem/System.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_DeskSession : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingOpen();
    void open();
    void unusableDescription();
    void cancelledOpening();
    void modified();
    void undoLeadsBackToTheFile();
    void valueFromElsewhereIsAChange();
    void measuredValueIsNoChange_data();
    void measuredValueIsNoChange();
    void saveAndLoad();
    void loadReportsFindings();
    void folderWithoutProject();
    void cutBlock_data();
    void cutBlock();
    void losses_data();
    void losses();
    void leavesNothingBehindUnasked();
    void savesOverAnotherProjectIfAgreed_data();
    void savesOverAnotherProjectIfAgreed();
    void savesOverItsOwnProjectUnasked();
    void refusedLoadChangesNothing_data();
    void refusedLoadChangesNothing();
    void cancelledSave();
    void mayClose_data();
    void mayClose();
    void linkOfTheDevice();
    void savesWhatAnotherDriveGaveIfAgreed_data();
    void savesWhatAnotherDriveGaveIfAgreed();

private:
    QString native(const ValuePlace &at)
    {
        return m_session->project()->container().readValueNative(
            at.livingSpace, at.coordinate, at.element, false);
    }
    void expect(MessageRecorder::eSeverity severity, const QString &title, const QString &text)
    {
        m_messages->expect(severity, title, text);
    }
    void expectSaved()
    {
        expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
            QStringLiteral("gespeichert und zurückgelesen"));
    }

    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<DeskDevice> m_device;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<DeskSession> m_session;
};

using eSeverity = MessageRecorder::eSeverity;
using eUnsaved = DeskDialogs::eUnsaved;

void tst_DeskSession::init()
{
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_device = std::make_unique<DeskDevice>();
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_session = std::make_unique<DeskSession>(*m_dialogs);
}

void tst_DeskSession::cleanup()
{
    m_session.reset();
    m_messages.reset();
}

void tst_DeskSession::nothingOpen()
{
    QVERIFY(!m_session->project());
    QVERIFY(!m_session->isModified());
    QVERIFY(m_session->mayClose());
    QVERIFY(!m_session->load(m_device->path("plant")));
    QVERIFY(!m_session->save(m_device->path("plant")));
    QCOMPARE(m_session->deviceName(), QString());
}

void tst_DeskSession::open()
{
    const QSignalSpy before(m_session.get(), &DeskSession::aboutToChange);
    const QSignalSpy after(m_session.get(), &DeskSession::changed);
    QVERIFY(m_session->open(m_device->fileName()));
    QCOMPARE(m_session->deviceName(), QStringLiteral("Desk drive"));
    QCOMPARE(native(place("B01", 1)), QStringLiteral("4200"));
    QVERIFY(m_session->writer());
    QVERIFY(m_session->onlineSwitch());
    QCOMPARE(before.count(), 1);
    QCOMPARE(after.count(), 1);
    QVERIFY(!m_session->isModified());
}

void tst_DeskSession::unusableDescription()
{
    QVERIFY(m_session->open(m_device->fileName()));
    const QString missing = m_device->path("missing.json");
    expect(eSeverity::Critical, QStringLiteral("missing.json"),
        missing + QStringLiteral(": No such file or directory"));
    QVERIFY(!m_session->open(missing));
    QCOMPARE(m_session->deviceName(), QStringLiteral("Desk drive"));
}

void tst_DeskSession::cancelledOpening()
{
    m_dialogs->cancels = true;
    expect(eSeverity::Critical, QStringLiteral("desk.json"), QStringLiteral("abgebrochen"));
    QVERIFY(!m_session->open(m_device->fileName()));
    QVERIFY(!m_session->project());
}

void tst_DeskSession::modified()
{
    QVERIFY(m_session->open(m_device->fileName()));
    const QSignalSpy changes(m_session.get(), &DeskSession::modifiedChanged);
    QVERIFY(m_session->writer()->write(place("B10"), QStringLiteral("11")).isAccepted);
    QVERIFY(m_session->isModified());
    m_session->undo();
    QVERIFY(!m_session->isModified());
    QCOMPARE(changes.count(), 2);
}

/// Also where a function of the device wrote along.
void tst_DeskSession::undoLeadsBackToTheFile()
{
    const FollowingDevice device;
    const auto block = [&device](const char *folder) {
        QFile file(device.path(folder) + QStringLiteral("/Parameter.ini"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    QVERIFY(m_session->open(device.fileName()));
    expectSaved();
    QVERIFY(m_session->save(device.path("plant")));
    QVERIFY(m_session->writer()->write(place("K01"), QStringLiteral("30")).isAccepted);
    QCOMPARE(native(place("K02")), QStringLiteral("60"));
    QVERIFY(m_session->isModified());
    m_session->undo();
    QVERIFY(!m_session->isModified());
    expect(eSeverity::Information, QStringLiteral("other"),
        QStringLiteral("gespeichert und zurückgelesen"));
    QVERIFY(m_session->save(device.path("other")));
    QVERIFY(block("plant").contains("[K002]\r\nV_0_0=7\r\n"));
    QCOMPARE(block("other"), block("plant"));
}

void tst_DeskSession::valueFromElsewhereIsAChange()
{
    QVERIFY(m_session->open(m_device->fileName()));
    m_session->project()->container().writeValueNative(
        eLivingSpace::Global, place("B10").coordinate, 0, QStringLiteral("12"));
    QVERIFY(m_session->isModified());
    QVERIFY(!m_session->undoStack()->canUndo());
}

void tst_DeskSession::measuredValueIsNoChange_data()
{
    QTest::addColumn<QByteArray>("property");
    QTest::newRow("the drive does not keep it") << QByteArray(R"("memoryAllocation": 1)");
    QTest::newRow("nobody may write it") << QByteArray(R"("noWrite": 1)");
}

/// It changes by itself; what the user writes is a change nevertheless.
void tst_DeskSession::measuredValueIsNoChange()
{
    QFETCH(QByteArray, property);
    const DeskDevice device(DeskDevice::description().replace(
        R"("default": 10,)", R"("default": 10, )" + property + ','));
    QVERIFY(m_session->open(device.fileName()));
    m_session->project()->container().writeValueNative(
        eLivingSpace::Global, place("B10").coordinate, 0, QStringLiteral("12"));
    QCOMPARE(native(place("B10")), QStringLiteral("12"));
    QVERIFY(!m_session->isModified());
    QVERIFY(m_session->writer()->write(place("B01", 1), QStringLiteral("5")).isAccepted);
    QVERIFY(m_session->isModified());
}

void tst_DeskSession::saveAndLoad()
{
    QVERIFY(m_session->open(m_device->fileName()));
    QVERIFY(m_session->writer()->write(place("B01", 2), QStringLiteral("5")).isAccepted);
    expectSaved();
    const QSignalSpy saved(m_session.get(), &DeskSession::saved);
    QVERIFY(m_session->save(m_device->path("plant")));
    QCOMPARE(saved.count(), 1);
    QVERIFY(!m_session->isModified());
    QCOMPARE(m_session->folder(), m_device->path("plant"));
    QCOMPARE(m_session->project()->container().domain(), QStringLiteral("plant"));

    QVERIFY(m_session->writer()->write(place("B01", 2), QStringLiteral("6")).isAccepted);
    expect(eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("10 Werte und 10 Defaultwerte gelesen"));
    QVERIFY(m_session->load(m_device->path("plant")));
    QCOMPARE(native(place("B01", 2)), QStringLiteral("5000"));
    QVERIFY(!m_session->isModified());
    QVERIFY(!m_session->undoStack()->canUndo());
}

void tst_DeskSession::loadReportsFindings()
{
    QVERIFY(m_session->open(m_device->fileName()));
    expectSaved();
    QVERIFY(m_session->save(m_device->path("plant")));
    QFile block(m_device->path("plant/Parameter.ini"));
    QVERIFY(block.open(QIODevice::ReadOnly));
    const QByteArray bytes = block.readAll() + "[X099]\r\nV_0_0=1\r\nDV_0_0=1\r\n";
    block.close();
    QVERIFY(block.open(QIODevice::WriteOnly));
    QCOMPARE(block.write(bytes), bytes.size());
    block.close();
    QVERIFY(QFile::remove(m_device->path("plant/Manifest.ini")));
    expect(eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("10 Werte und 10 Defaultwerte gelesen"));
    expect(eSeverity::Warning, QStringLiteral("plant"),
        QStringLiteral("1 Abschnitte übersprungen, das Gerät hat diese Parameter nicht: X099"));
    QVERIFY(m_session->load(m_device->path("plant")));
}

void tst_DeskSession::folderWithoutProject()
{
    QVERIFY(m_session->open(m_device->fileName()));
    QVERIFY(QDir().mkpath(m_device->path("plant")));
    expect(eSeverity::Critical, QStringLiteral("plant"),
        m_device->path("plant") + QStringLiteral(" enthält kein Projekt: \"Parameter.ini\" fehlt"));
    QVERIFY(!m_session->load(m_device->path("plant")));
    QCOMPARE(m_session->folder(), QString());
}

void tst_DeskSession::cutBlock_data()
{
    QTest::addColumn<bool>("agrees");
    QTest::newRow("the user agrees") << true;
    QTest::newRow("the user does not agree") << false;
}

void tst_DeskSession::cutBlock()
{
    QFETCH(bool, agrees);
    QVERIFY(m_session->open(m_device->fileName()));
    expectSaved();
    QVERIFY(m_session->save(m_device->path("plant")));
    QVERIFY(QFile::resize(m_device->path("plant/Parameter.ini"), 100));
    m_dialogs->agrees = agrees;
    if (!agrees) {
        expect(eSeverity::Critical, QStringLiteral("plant"),
            m_device->path("plant")
                + QStringLiteral(": der Block \"Parameter.ini\" ist abgeschnitten"));
    }
    QCOMPARE(m_session->load(m_device->path("plant")), agrees);
    QCOMPARE(m_dialogs->asked.size(), 1);
    QVERIFY(m_dialogs->asked.constFirst().startsWith(QLatin1String("cut: ")));
    QCOMPARE(m_messages->take().isEmpty(), !agrees);
}

void tst_DeskSession::losses_data()
{
    cutBlock_data();
}

void tst_DeskSession::losses()
{
    QFETCH(bool, agrees);
    QVERIFY(m_session->open(m_device->fileName()));
    m_session->project()->container().writeValueNative(
        eLivingSpace::Global, place("A20").coordinate, 0, QStringLiteral("10 €"));
    m_dialogs->agrees = agrees;
    if (agrees)
        expectSaved();
    else
        expect(eSeverity::Critical, QStringLiteral("plant"),
            QStringLiteral("nicht gespeichert: 1 Texte gingen verloren"));
    QCOMPARE(m_session->save(m_device->path("plant")), agrees);
    QCOMPARE(m_dialogs->asked,
        QStringList(QStringLiteral("lose: Parameter A20: Wert \"10 €\" enthält Zeichen, die "
                                   "Latin-1 nicht kennt\n")));
    QCOMPARE(QFile::exists(m_device->path("plant/Parameter.ini")), agrees);
    QCOMPARE(m_session->isModified(), !agrees);
}

/// What the device does not know was not loaded, and would be gone from the folder.
void tst_DeskSession::leavesNothingBehindUnasked()
{
    loadReportsFindings();
    QVERIFY(!m_session->save(m_device->path("plant")));
    QCOMPARE(m_dialogs->asked,
        QStringList(QStringLiteral(
            "lose: Das Projekt enthält, was dieses Gerät nicht kennt; es ginge verloren.")));
    expect(eSeverity::Information, QStringLiteral("other"),
        QStringLiteral("gespeichert und zurückgelesen"));
    QVERIFY(m_session->save(m_device->path("other")));
    QCOMPARE(m_dialogs->asked.size(), 1);
}

void tst_DeskSession::savesOverAnotherProjectIfAgreed_data()
{
    QTest::addColumn<bool>("agrees");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("hasBlock");
    QTest::newRow("the user agrees") << true << false << true;
    QTest::newRow("the user does not agree") << false << false << true;
    QTest::newRow("the user agrees while closing") << true << true << true;
    QTest::newRow("the user does not agree while closing") << false << true << true;
    QTest::newRow("a manifest alone is a project too") << false << false << false;
}

/// The folder is chosen, and holds what belongs to another machine.
void tst_DeskSession::savesOverAnotherProjectIfAgreed()
{
    QFETCH(bool, agrees);
    QFETCH(bool, closes);
    QFETCH(bool, hasBlock);
    const QString folder = m_device->path("plant");
    QVERIFY(QDir().mkpath(folder));
    QFile other(
        folder + (hasBlock ? QStringLiteral("/Parameter.ini") : QStringLiteral("/Manifest.ini")));
    const QByteArray before("[X099]\r\nV_0_0=1\r\n");
    QVERIFY(other.open(QIODevice::WriteOnly));
    QCOMPARE(other.write(before), before.size());
    other.close();
    QVERIFY(m_session->open(m_device->fileName()));
    QVERIFY(m_session->writer()->write(place("B10"), QStringLiteral("11")).isAccepted);
    m_dialogs->agrees = agrees;
    m_dialogs->unsavedAnswer = eUnsaved::Save;
    m_dialogs->folderAnswer = folder;
    if (agrees)
        expectSaved();
    QCOMPARE(closes ? m_session->mayClose() : m_session->save(folder), agrees);
    QCOMPARE(m_dialogs->asked.constLast(), QStringLiteral("replace: ") + folder);
    QVERIFY(other.open(QIODevice::ReadOnly));
    QCOMPARE(other.readAll() == before, !agrees);
    QCOMPARE(m_session->isModified(), !agrees);
    QCOMPARE(m_session->folder(), agrees ? folder : QString());
}

void tst_DeskSession::savesOverItsOwnProjectUnasked()
{
    const QString folder = m_device->path("plant");
    QVERIFY(m_session->open(m_device->fileName()));
    for (int i = 0; i < 2; ++i) {
        expectSaved();
        QVERIFY(m_session->save(folder));
    }
    // By whatever name.
    expectSaved();
    QVERIFY(m_session->save(folder + QStringLiteral("/../plant/")));
    QCOMPARE(m_dialogs->asked, QStringList());
    // Another device knows nothing of it.
    QVERIFY(m_session->open(m_device->fileName()));
    QVERIFY(!m_session->save(folder));
    QCOMPARE(m_dialogs->asked, QStringList(QStringLiteral("replace: ") + folder));
    expect(eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("10 Werte und 10 Defaultwerte gelesen"));
    QVERIFY(m_session->load(folder));
    expectSaved();
    QVERIFY(m_session->save(folder));
    QCOMPARE(m_dialogs->asked.size(), 1);
}

void tst_DeskSession::refusedLoadChangesNothing_data()
{
    QTest::addColumn<std::function<void(const QString &, AnsweringDialogs &)>>("spoil");
    const auto row = [](const char *name,
                         std::function<void(const QString &, AnsweringDialogs &)> spoil) {
        QTest::newRow(name) << spoil;
    };
    row("no project", [](const QString &folder, AnsweringDialogs &) {
        QVERIFY(QDir(folder).removeRecursively());
    });
    row("cancelled", [](const QString &, AnsweringDialogs &dialogs) { dialogs.cancels = true; });
    row("cut, and not wanted so", [](const QString &folder, AnsweringDialogs &) {
        QVERIFY(QFile::resize(folder + QStringLiteral("/Parameter.ini"), 100));
    });
}

/// Neither the connection nor what could be undone, nor what a view shows.
void tst_DeskSession::refusedLoadChangesNothing()
{
    QFETCH(std::function<void(const QString &, AnsweringDialogs &)>, spoil);
    QVERIFY(m_session->open(m_device->fileName()));
    expectSaved();
    QVERIFY(m_session->save(m_device->path("plant")));
    m_session->onlineSwitch()->turn(true);
    QVERIFY(m_session->writer()->write(place("B10"), QStringLiteral("11")).isAccepted);
    spoil(m_device->path("plant"), *m_dialogs);
    const QSignalSpy before(m_session.get(), &DeskSession::aboutToChange);
    const QSignalSpy after(m_session.get(), &DeskSession::changed);
    QVERIFY(!m_session->load(m_device->path("plant")));
    QCOMPARE(m_messages->take().size(), 1);
    QCOMPARE(before.count(), 0);
    QCOMPARE(after.count(), 0);
    QVERIFY(m_session->onlineSwitch()->state() == OnlineSwitch::eState::Online);
    QVERIFY(m_session->project()->container().isOnline());
    QCOMPARE(native(place("B10")), QStringLiteral("11"));
    QVERIFY(m_session->canUndo());
}

void tst_DeskSession::cancelledSave()
{
    QVERIFY(m_session->open(m_device->fileName()));
    m_dialogs->cancels = true;
    expect(eSeverity::Critical, QStringLiteral("plant"), QStringLiteral("abgebrochen"));
    QVERIFY(!m_session->save(m_device->path("plant")));
    QVERIFY(!QFile::exists(m_device->path("plant/Parameter.ini")));
}

void tst_DeskSession::mayClose_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("expected");
    QTest::addColumn<bool>("isSaved");
    QTest::newRow("discard") << int(eUnsaved::Discard) << true << false;
    QTest::newRow("cancel") << int(eUnsaved::Cancel) << false << false;
    QTest::newRow("save") << int(eUnsaved::Save) << true << true;
}

void tst_DeskSession::mayClose()
{
    QFETCH(int, answer);
    QFETCH(bool, expected);
    QFETCH(bool, isSaved);
    QVERIFY(m_session->open(m_device->fileName()));
    QVERIFY(m_session->mayClose());
    QVERIFY(m_session->writer()->write(place("B10"), QStringLiteral("11")).isAccepted);
    m_dialogs->unsavedAnswer = eUnsaved(answer);
    m_dialogs->folderAnswer = m_device->path("plant");
    if (isSaved)
        expectSaved();
    QCOMPARE(m_session->mayClose(), expected);
    QCOMPARE(QFile::exists(m_device->path("plant/Parameter.ini")), isSaved);
}

void tst_DeskSession::linkOfTheDevice()
{
    class RecordingLink : public DriveLink {
    public:
        explicit RecordingLink(QStringList &calls)
            : m_calls(calls)
        {
        }
        QString drive() const override { return QStringLiteral("drive 1"); }
        void open() override { Q_EMIT opened(); }
        void close() override { Q_EMIT closed(QString()); }
        void write(const ValuePlace &place) override { m_calls.append(place.coordinate.toText()); }

    private:
        QStringList &m_calls;
    };
    QStringList calls;
    m_session->setMakeLink(
        [&calls](ParameterContainer &) { return std::make_unique<RecordingLink>(calls); });
    QVERIFY(m_session->open(m_device->fileName()));
    m_session->onlineSwitch()->turn(true);
    QVERIFY(m_session->project()->container().isOnline());
    QVERIFY(m_session->writer()->write(place("B10"), QStringLiteral("11")).isAccepted);
    m_session->undo();
    QCOMPARE(calls, (QStringList {QStringLiteral("B10"), QStringLiteral("B10")}));
    m_session.reset();
}

void tst_DeskSession::savesWhatAnotherDriveGaveIfAgreed_data()
{
    QTest::addColumn<QStringList>("steps");
    QTest::addColumn<QStringList>("asked");
    const auto row = [](const char *name, const char *steps, const QStringList &asked) {
        QTest::newRow(name) << QString::fromLatin1(steps).split(u' ') << asked;
    };
    const QStringList unknown(QStringLiteral("from drive: plant, A, "));
    row("a project, then a drive", "load A save", unknown);
    row("a project that was saved, then a drive", "save A save", unknown);
    row("also while closing", "load A write close", unknown);
    row("also where the reading was cut short", "load A/cut save", unknown);
    row("also offline", "load A off save", unknown);
    row("another drive than the folder's", "A elsewhere B save",
        {QStringLiteral("from drive: new, B, A")});
    row("once", "load A save save A save", unknown);
    row("each time another", "load A save B save A save",
        unknown
            + QStringList {QStringLiteral("from drive: plant, B, A"),
                QStringLiteral("from drive: plant, A, B")});
    row("not where the folder is the drive's", "A elsewhere write off save A save", {});
    row("not where the project came last", "load A load save", {});
    row("not where no drive answered", "load none save", {});
    row("not into a folder of its own", "load A elsewhere save", {});
}

/// By drives that answer at once. "/cut": amid the values no more; "none" is never there.
void tst_DeskSession::savesWhatAnotherDriveGaveIfAgreed()
{
    QFETCH(QStringList, steps);
    QFETCH(QStringList, asked);
    class NamedLink : public DriveLink {
    public:
        explicit NamedLink(const QString &name)
            : m_name(name)
        {
        }
        QString drive() const override { return m_name.section(u'/', 0, 0); }
        void open() override
        {
            if (m_name == QLatin1String("none")) {
                Q_EMIT closed(QString());
                return;
            }
            Q_EMIT reading(0, 10);
            if (m_name.endsWith(QLatin1String("/cut")))
                Q_EMIT closed(QString());
            else
                Q_EMIT opened();
        }
        void close() override { Q_EMIT closed(QString()); }
        void write(const ValuePlace &) override { }

    private:
        const QString &m_name;
    };
    QString name;
    m_session->setMakeLink(
        [&name](ParameterContainer &) { return std::make_unique<NamedLink>(name); });
    QVERIFY(m_session->open(m_device->fileName()));
    QVERIFY(m_session->save(m_device->path("plant")));
    m_dialogs->agrees = true;
    m_dialogs->unsavedAnswer = eUnsaved::Save;
    const QHash<QString, std::function<bool()>> does {
        {QStringLiteral("load"), [this] { return m_session->load(m_device->path("plant")); }},
        {QStringLiteral("save"), [this] { return m_session->save(m_session->folder()); }},
        {QStringLiteral("elsewhere"), [this] { return m_session->save(m_device->path("new")); }},
        {QStringLiteral("close"), [this] { return m_session->mayClose(); }},
        {QStringLiteral("write"),
            [this] {
                const auto written = m_session->writer()->write(place("B10"), QStringLiteral("11"));
                return written.isAccepted;
            }},
        {QStringLiteral("off"),
            [this] {
                m_session->onlineSwitch()->turn(false);
                return true;
            }},
    };
    for (const QString &step : std::as_const(steps)) {
        if (const auto action = does.value(step)) {
            QVERIFY2(action(), qPrintable(step));
            continue;
        }
        m_session->onlineSwitch()->turn(false);
        name = step;
        m_session->onlineSwitch()->turn(true);
    }
    m_messages->take();
    m_dialogs->asked.removeAll(QStringLiteral("unsaved"));
    m_dialogs->asked.replaceInStrings(m_device->path("plant"), QStringLiteral("plant"));
    m_dialogs->asked.replaceInStrings(m_device->path("new"), QStringLiteral("new"));
    QCOMPARE(m_dialogs->asked, asked);
}

QTEST_GUILESS_MAIN(tst_DeskSession)
#include "tst_DeskSession.moc"

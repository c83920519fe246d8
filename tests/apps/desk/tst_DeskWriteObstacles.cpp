#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/krparameter-desk/ValueWriter.h"
#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

/// Who tries to write what cannot be written now reads why, beside the value.
class tst_DeskWriteObstacles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_desk = std::make_unique<DeskOnScreen>(description()); }
    void cleanup() { m_desk.reset(); }

    void saysWhy_data();
    void saysWhy();
    void saysWhyWhereTheUserTries_data();
    void saysWhyWhereTheUserTries();
    void keysThatWriteNothingSayNothing_data();
    void keysThatWriteNothingSayNothing();
    void staysOnItsRow();
    void nothingIsWrittenWhileItConnects_data();
    void nothingIsWrittenWhileItConnects();

private:
    static QByteArray description();
    DeskOnScreen &desk() const { return *m_desk; }
    QString note() const { return desk().note()->isVisible() ? desk().note()->text() : QString(); }

    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

namespace {

/// Answers when a test says so.
class PatientLink : public DriveLink {
public:
    QString drive() const override { return QStringLiteral("drive 1"); }
    void open() override { }
    void close() override { Q_EMIT closed(QString()); }
    void write(const ValuePlace &) override { }
};

} // namespace

/// Beside what every desk has: a value that nobody writes, and a choice that is written online only.
QByteArray tst_DeskWriteObstacles::description()
{
    return DeskDevice::description()
        .replace(R"("name": "Zehn", "global": true,
     "elements": [{)",
            R"("name": "Zehn", "global": true,
     "elements": [{"noWrite": 1, )")
        .replace(R"("kind": 1)", R"("kind": 2)");
}

void tst_DeskWriteObstacles::saysWhy_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<QString>("german");
    QTest::addColumn<QString>("english");
    QTest::newRow("above the level")
        << QStringLiteral("B100") << 0 << false
        << QStringLiteral("B100 ist erst ab Zugriffsstufe 4 schreibbar.")
        << QStringLiteral("B100 can be written from access level 4 on.");
    QTest::newRow("never") << QStringLiteral("B10") << 0 << false
                           << QStringLiteral("B10 wird nur gelesen.")
                           << QStringLiteral("B10 is only read.");
    QTest::newRow("online only") << QStringLiteral("B02") << 2 << false
                                 << QStringLiteral("2.B02 ist nur online schreibbar.")
                                 << QStringLiteral("2.B02 can be written online only.");
    QTest::newRow("read only")
        << QStringLiteral("B01") << 1 << true
        << QStringLiteral("1.B01 ist nicht schreibbar: Das Gerät ist auf nur lesen gestellt (F8).")
        << QStringLiteral("1.B01 cannot be written: the device is set to read only (F8).");
}

void tst_DeskWriteObstacles::saysWhy()
{
    QFETCH(QString, address);
    QFETCH(int, livingSpace);
    QFETCH(bool, isReadOnly);
    QFETCH(QString, german);
    QFETCH(QString, english);
    const ValuePlace at = place(qPrintable(address), livingSpace);
    desk().window->setAccessLevel(2);
    if (isReadOnly)
        desk().press(DeskActions::ReadOnly);
    desk().table().goTo(desk().model().indexOf(at));
    desk().press(Qt::Key_Return);
    QCOMPARE(note(), german);
    QVERIFY(!desk().field() && !desk().list());
    desk().window->language().choose(QStringLiteral("en"));
    desk().press(Qt::Key_Return);
    QCOMPARE(note(), english);
    desk().window->language().choose(QStringLiteral("de"));
}

void tst_DeskWriteObstacles::saysWhyWhereTheUserTries_data()
{
    QTest::addColumn<std::function<void(const DeskOnScreen &)>>("attempt");
    const auto row = [](const char *name, std::function<void(const DeskOnScreen &)> attempt) {
        QTest::newRow(name) << attempt;
    };
    row("Return", [](const DeskOnScreen &desk) { desk.press(Qt::Key_Return); });
    row("the action's key", [](const DeskOnScreen &desk) { desk.press(DeskActions::EditValue); });
    row("a letter", [](const DeskOnScreen &desk) { desk.type("1"); });
    row("clicked twice", [](const DeskOnScreen &desk) { desk.doubleClick(place("B10")); });
}

void tst_DeskWriteObstacles::saysWhyWhereTheUserTries()
{
    QFETCH(std::function<void(const DeskOnScreen &)>, attempt);
    desk().click(place("B10"));
    attempt(desk());
    QCOMPARE(note(), QStringLiteral("B10 wird nur gelesen."));
    const QRect cell = desk().table().visualRect(desk().model().indexOf(place("B10")));
    QVERIFY(desk().note()->y() > cell.bottom());
    QVERIFY(desk().note()->y() < cell.bottom() + 10);
    // The next key takes it away.
    desk().press(Qt::Key_Down);
    QCOMPARE(note(), QString());
}

void tst_DeskWriteObstacles::keysThatWriteNothingSayNothing_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Escape") << Qt::Key_Escape;
    QTest::newRow("Backspace") << Qt::Key_Backspace;
    QTest::newRow("Up") << Qt::Key_Up;
}

void tst_DeskWriteObstacles::keysThatWriteNothingSayNothing()
{
    QFETCH(Qt::Key, key);
    desk().click(place("B10"));
    desk().press(key);
    QCOMPARE(note(), QString());
}

/// A letter is no search for another row.
void tst_DeskWriteObstacles::staysOnItsRow()
{
    desk().click(place("B10"));
    desk().type("a");
    QCOMPARE(desk().table().currentIndex(), desk().model().indexOf(place("B10")));
}

void tst_DeskWriteObstacles::nothingIsWrittenWhileItConnects_data()
{
    QTest::addColumn<std::function<void(DriveLink &)>>("end");
    const auto row = [](const char *name, std::function<void(DriveLink &)> end) {
        QTest::newRow(name) << end;
    };
    row("its values are being read", [](DriveLink &link) { Q_EMIT link.reading(0, 40); });
    row("no drive answers", [](DriveLink &link) { Q_EMIT link.closed(QString()); });
    row("given up", [](DriveLink &link) { link.close(); });
}

/// It would be gone as soon as the drive's values come. What is written while they come goes to the drive.
void tst_DeskWriteObstacles::nothingIsWrittenWhileItConnects()
{
    QFETCH(std::function<void(DriveLink &)>, end);
    DeskSession &session = desk().window->session();
    QPointer<DriveLink> link;
    session.setMakeLink([&link](ParameterContainer &) {
        auto made = std::make_unique<PatientLink>();
        link = made.get();
        return made;
    });
    QVERIFY(session.open(desk().device.fileName()));
    QVERIFY(session.writer()->write(place("A20"), QStringLiteral("before")).isAccepted);
    QVERIFY(session.canUndo());
    session.onlineSwitch()->turn(true);
    desk().click(place("B100"));
    desk().type("5");
    QVERIFY(!desk().field());
    QCOMPARE(note(),
        QStringLiteral("B100 ist noch nicht schreibbar: Der Antrieb wird verbunden, und seine "
                       "Werte ersetzen gleich alle. F9 bricht das ab."));
    QVERIFY(!(desk().model().indexOf(place("B100")).flags() & Qt::ItemIsEditable));
    QVERIFY(!desk().action(DeskActions::Undo)->isEnabled());
    QCOMPARE(desk().native(place("A20")), QStringLiteral("before"));
    end(*link);
    QVERIFY(desk().model().indexOf(place("B100")).flags() & Qt::ItemIsEditable);
    desk().type("5");
    QVERIFY(desk().field());
    desk().press(Qt::Key_Return);
    QCOMPARE(desk().native(place("B100")), QStringLiteral("5"));
}

QTEST_MAIN(tst_DeskWriteObstacles)
#include "tst_DeskWriteObstacles.moc"

#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/MessagePane.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/apps/desk/FollowingDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ParameterNavigationHost.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>
#include <KrSystem/System.h>

#include <QtTest/QTest>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTreeWidget>

/// Messages and compared rows lead to their parameters, and say why where they do not.
class tst_DeskNavigation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void leadsToItsParameter_data();
    void leadsToItsParameter();
    void saysWhyNot_data();
    void saysWhyNot();
    void recordThatMayNotBeRead();
    void messageOfAnotherDevice();
    void messageOfAnotherProject();
    void navigationHost();
    void navigationTakesAwayTheSearch();
    void rowOfTheComparison_data();
    void rowOfTheComparison();

private:
    void tell(const QString &text)
    {
        m_messages->expect(MessageRecorder::eSeverity::Warning, QStringLiteral("plant"), text);
        System::addWarningMessage(QStringLiteral("plant"), text);
    }
    /// With Return on the message of this row.
    void activate(int row)
    {
        auto *pane = m_window->findChild<MessagePane *>();
        pane->setCurrentIndex(pane->model()->index(row, 0));
        QTest::keyClick(pane, Qt::Key_Return);
    }
    QString notice() const { return m_window->statusBar()->currentMessage(); }
    QString current() const { return m_window->navigation().currentAddress().toSortableText(); }
    void open(const DeskDevice &device) { QVERIFY(m_window->session().open(device.fileName())); }

    std::unique_ptr<MessageRecorder> m_messages;
    std::unique_ptr<AnsweringDialogs> m_dialogs;
    std::unique_ptr<DeskWindow> m_window;
};

void tst_DeskNavigation::init()
{
    System::information()->setUserAccessLevel(4);
    m_messages = std::make_unique<MessageRecorder>();
    m_dialogs = std::make_unique<AnsweringDialogs>();
    m_window = std::make_unique<DeskWindow>(*m_dialogs);
    m_window->show();
}

void tst_DeskNavigation::cleanup()
{
    m_window.reset();
    m_messages.reset();
}

void tst_DeskNavigation::leadsToItsParameter_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("an address") << QStringLiteral("Parameter K08: zu groß");
    QTest::newRow("behind what only looks like one") << QStringLiteral("Stecker M12 fehlt an K08");
    QTest::newRow("a key of a section") << QStringLiteral("1 Schlüssel nicht verstanden: K008/Foo");
}

void tst_DeskNavigation::leadsToItsParameter()
{
    QFETCH(QString, text);
    open(FollowingDevice());
    tell(text);
    activate(0);
    QCOMPARE(current(), QStringLiteral("1.K008[00000]"));
    QCOMPARE(notice(), QString());
}

void tst_DeskNavigation::saysWhyNot_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("notice");
    const QString german = QStringLiteral("de");
    const QString english = QStringLiteral("en");
    const QString level = QStringLiteral("K10: x");
    const QString hidden = QStringLiteral("K04: x");
    const QString missing = QStringLiteral("X99: x");
    const QString elsewhere = QStringLiteral("2.X99[3]: x");
    QTest::newRow("above the level")
        << level << german << QStringLiteral("K10 ist erst ab Zugriffsstufe 3 zu sehen.");
    QTest::newRow("above the level, in English")
        << level << english << QStringLiteral("K10 can be seen from access level 3 on.");
    QTest::newRow("hidden") << hidden << german << QStringLiteral("K04 ist zurzeit ausgeblendet.");
    QTest::newRow("hidden, in English")
        << hidden << english << QStringLiteral("K04 is hidden at present.");
    QTest::newRow("not of this device")
        << missing << german << QStringLiteral("X99 gibt es in diesem Gerät nicht.");
    QTest::newRow("not of this device, in English")
        << missing << english << QStringLiteral("This device has no X99.");
    QTest::newRow("on another axis")
        << elsewhere << german << QStringLiteral("2.X99[3] gibt es in diesem Gerät nicht.");
    QTest::newRow("a word that looks like an address")
        << QStringLiteral("Stecker M12 fehlt") << german << QString();
    QTest::newRow("without address") << QStringLiteral("gespeichert") << german << QString();
}

void tst_DeskNavigation::saysWhyNot()
{
    QFETCH(QString, text);
    QFETCH(QString, language);
    QFETCH(QString, notice);
    open(FollowingDevice());
    m_window->language().choose(language);
    m_window->setAccessLevel(2);
    m_window->session().project()->container().writeValueNative(
        eLivingSpace::Global, place("K01").coordinate, 0, QStringLiteral("101"));
    const QString before = current();
    tell(text);
    activate(0);
    QCOMPARE(this->notice(), notice);
    QCOMPARE(current(), before);
}

/// Its title has no element, which none of its values is called.
void tst_DeskNavigation::recordThatMayNotBeRead()
{
    QByteArray description = DeskDevice::description();
    const qsizetype record = description.indexOf("\"E30\"");
    const qsizetype next = description.indexOf("\"P01\"");
    QByteArray part = description.mid(record, next - record);
    description.replace(record, next - record, part.replace("\"read\": 0", "\"read\": 5"));
    open(DeskDevice(description));
    tell(QStringLiteral("E30 Faktor: x"));
    activate(0);
    QCOMPARE(notice(), QStringLiteral("E30[1] ist erst ab Zugriffsstufe 5 zu sehen."));
}

void tst_DeskNavigation::messageOfAnotherDevice()
{
    tell(QStringLiteral("K03: ohne Gerät"));
    activate(0);
    QCOMPARE(notice(), QStringLiteral("Es ist kein Gerät offen."));
    const FollowingDevice device;
    open(device);
    tell(QStringLiteral("K08: x"));
    // It has the same parameters, and is another one.
    open(device);
    const QString before = current();
    tell(QStringLiteral("K08: y"));
    activate(1);
    QCOMPARE(current(), before);
    QCOMPARE(
        notice(), QStringLiteral("Die Meldung gehört zu einem Gerät, das nicht mehr offen ist."));
    activate(2);
    QCOMPARE(current(), QStringLiteral("1.K008[00000]"));
}

void tst_DeskNavigation::messageOfAnotherProject()
{
    const FollowingDevice device;
    open(device);
    m_messages->expect(MessageRecorder::eSeverity::Information, QStringLiteral("plant"),
        QStringLiteral("gespeichert und zurückgelesen"));
    QVERIFY(m_window->session().save(device.path("plant")));
    tell(QStringLiteral("K08: x"));
    QVERIFY(m_window->session().load(device.path("plant")));
    m_messages->take();
    activate(1);
    QCOMPARE(current(), QStringLiteral("1.K008[00000]"));
}

void tst_DeskNavigation::rowOfTheComparison_data()
{
    QTest::addColumn<QStringList>("compared");
    QTest::addColumn<QString>("open");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("notice");
    const QString german = QStringLiteral("de");
    const QString first = QStringLiteral("Desk drive");
    const QString other = QStringLiteral("Other drive");
    const QString third = QStringLiteral("Third drive");
    QTest::newRow("of the open device") << QStringList(first) << first << german << QString();
    QTest::newRow("of another one")
        << QStringList(first) << other << german
        << QStringLiteral("Der Vergleich gehört zu Desk drive; offen ist Other drive.");
    QTest::newRow("of another one, in English")
        << QStringList(first) << other << QStringLiteral("en")
        << QStringLiteral("The comparison belongs to Desk drive; Other drive is open.");
    QTest::newRow("of the open one and another")
        << QStringList {first, other} << other << german << QString();
    QTest::newRow("of two others")
        << QStringList {first, other} << third << german
        << QStringLiteral(
               "Der Vergleich gehört zu Desk drive, Other drive; offen ist Third drive.");
}

/// All of them have a B10, which is the same in one device alone.
void tst_DeskNavigation::rowOfTheComparison()
{
    QFETCH(QStringList, compared);
    QFETCH(QString, open);
    QFETCH(QString, language);
    QFETCH(QString, notice);
    int value = 20;
    const auto openNamed = [&](const QString &name) {
        // One family has one name.
        const QStringList names {QStringLiteral("Desk drive"), QStringLiteral("Other drive"),
            QStringLiteral("Third drive")};
        const QByteArray family = QByteArray::number(178 + names.indexOf(name));
        this->open(DeskDevice(DeskDevice::description()
                                  .replace("Desk drive", name.toUtf8())
                                  .replace("\"identifier\": 78", "\"identifier\": " + family)));
    };
    for (const QString &name : std::as_const(compared)) {
        openNamed(name);
        ParameterContainer &container = m_window->session().project()->container();
        container.writeValueNative(
            eLivingSpace::Global, place("B10").coordinate, 0, QString::number(++value));
        QVERIFY(m_window->snapshots().take(container, name));
    }
    openNamed(open);
    m_window->language().choose(language);
    const QString before = current();
    m_window->showComparison();
    auto *tree = m_window->findChild<ParameterValueSnapshotWidget *>()->findChild<QTreeWidget *>();
    const auto rows = tree->findItems(QStringLiteral("B10 Zehn"), Qt::MatchExactly);
    QCOMPARE(rows.size(), 1);
    tree->setCurrentItem(rows.constFirst());
    QTest::keyClick(tree, Qt::Key_Return);
    QCOMPARE(this->notice(), notice);
    QCOMPARE(current(), notice.isEmpty() ? QStringLiteral("1.B010[00000]") : before);
    m_window->language().choose(QStringLiteral("de"));
}

void tst_DeskNavigation::navigationHost()
{
    open(DeskDevice());
    ParameterNavigationHost &host = m_window->navigation();
    const auto coordinate = [](const char *text) { return place(text).coordinate; };
    const auto address = [](const char *text) {
        return ParameterAddress(QString::fromLatin1(text), true);
    };
    QVERIFY(host.canNavigateToParameter(coordinate("B01")));
    QVERIFY(!host.canNavigateToParameter(coordinate("X99")));
    QVERIFY(!host.canNavigateToParameter(coordinate("P01")));
    QVERIFY(host.canNavigateToAddress(address("2.B01")));
    QVERIFY(host.canNavigateToAddress(address("E30[2]")));
    QVERIFY(!host.canNavigateToAddress(address("E30[3]")));
    QVERIFY(!host.canNavigateToAddress(address("3.B01")));
    QVERIFY(!host.canNavigateToAddress(address("P01")));
    QVERIFY(!host.canNavigateToAddress(ParameterAddress()));
    host.navigateToAddress(address("2.B01"));
    QCOMPARE(host.currentAddress().toSortableText(), QStringLiteral("2.B001[00000]"));
    host.navigateToAddress(address("X99"));
    QCOMPARE(host.currentAddress().toSortableText(), QStringLiteral("2.B001[00000]"));
    host.navigateToParameter(coordinate("E30"));
    QCOMPARE(host.currentAddress().toSortableText(), QStringLiteral("1.E030[00001]"));
    QCOMPARE(host.parameterContainer(), &m_window->session().project()->container());
}

void tst_DeskNavigation::navigationTakesAwayTheSearch()
{
    open(DeskDevice());
    m_window->selectors().searchField()->setText(QStringLiteral("zehn"));
    auto *selector = m_window->findChild<QComboBox *>(QStringLiteral("axis"));
    selector->setFocus();
    QTest::keyClick(selector, Qt::Key_Down);
    QCOMPARE(m_window->tableModel().rowCount(), 1);
    m_window->navigation().navigateToAddress(ParameterAddress(QStringLiteral("2.B01"), true));
    QCOMPARE(
        m_window->navigation().currentAddress().toSortableText(), QStringLiteral("2.B001[00000]"));
    QCOMPARE(m_window->selectors().searchField()->text(), QString());
    QCOMPARE(selector->currentIndex(), 0);
}

QTEST_MAIN(tst_DeskNavigation)
#include "tst_DeskNavigation.moc"

#include "tests/apps/desk/DeskOnScreen.h"

#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QToolButton>

/// What changes with the language beside menus and table, at run time.
class tst_DeskLanguage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_desk = std::make_unique<DeskOnScreen>(DeskDevice::description()); }
    void cleanup() { m_desk.reset(); }

    void frame();
    void statusWithoutDevice();

private:
    DeskOnScreen &desk() const { return *m_desk; }
    void choose(Qt::Key key) const;
    QString status() const;
    QString texts() const;

    QTemporaryDir m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

void tst_DeskLanguage::initTestCase()
{
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_settings.path());
    QCoreApplication::setOrganizationName(QStringLiteral("KrTest"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_DeskLanguage"));
}

/// German stands above English.
void tst_DeskLanguage::choose(Qt::Key key) const
{
    auto *selector = desk().child<QComboBox>("language");
    selector->setFocus();
    QTest::keyClick(selector, key);
}

QString tst_DeskLanguage::status() const
{
    QStringList texts;
    for (const QLabel *label : desk().window->statusBar()->findChildren<QLabel *>()) {
        if (label->isVisible())
            texts.append(label->text());
    }
    return texts.join(u'|');
}

QString tst_DeskLanguage::texts() const
{
    const auto *pages = desk().window->findChild<QTabWidget *>();
    QStringList buttons;
    for (const QToolButton *button :
        desk().child<QDockWidget>("snapshotDock")->widget()->findChildren<QToolButton *>())
        buttons.append(button->defaultAction()->text());
    return QStringList {desk().child<QDockWidget>("snapshotDock")->windowTitle(),
        desk().child<QDockWidget>("messageDock")->windowTitle(), pages->tabText(0),
        pages->tabText(1), desk().child<QLineEdit>("search")->placeholderText(), buttons.join(u','),
        pages->widget(1)->findChild<QLabel *>()->text().section(u'.', 0, 0), status()}
        .join(u'\n');
}

void tst_DeskLanguage::frame()
{
    const QString german = QStringLiteral("Snapshots\n"
                                          "Meldungen\n"
                                          "Parameter\n"
                                          "Vergleich\n"
                                          "Suchen in Adresse, Name, Einheit und Wert\n"
                                          "&Snapshot …,&Vergleichen,&Entfernen\n"
                                          "Noch kein Vergleich\n"
                                          "9 von 9 Werten|offline, nur lesen");
    desk().press(DeskActions::ReadOnly);
    QCOMPARE(texts(), german);
    choose(Qt::Key_Down);
    QCOMPARE(texts(),
        QStringLiteral("Snapshots\n"
                       "Messages\n"
                       "Parameters\n"
                       "Comparison\n"
                       "Search in address, name, unit and value\n"
                       "&Snapshot …,&Compare,&Remove\n"
                       "No comparison yet\n"
                       "9 of 9 values|offline, read only"));
    choose(Qt::Key_Up);
    QCOMPARE(texts(), german);
}

void tst_DeskLanguage::statusWithoutDevice()
{
    desk().window = std::make_unique<DeskWindow>(desk().dialogs);
    desk().window->show();
    QCOMPARE(status(),
        QStringLiteral("Kein Gerät offen: Strg+O öffnet eine Gerätebeschreibung|offline"));
    choose(Qt::Key_Down);
    QCOMPARE(
        status(), QStringLiteral("No device is open: Ctrl+O opens a device description|offline"));
}

QTEST_MAIN(tst_DeskLanguage)
#include "tst_DeskLanguage.moc"

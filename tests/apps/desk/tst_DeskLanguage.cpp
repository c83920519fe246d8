#include "tests/apps/desk/DeskOnScreen.h"
#include "tests/support/TestSettings.h"

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
    void init() { m_desk = std::make_unique<DeskOnScreen>(DeskDevice::description()); }
    void cleanup() { m_desk.reset(); }

    void frame();
    void toolTips();
    void statusWithoutDevice();

private:
    DeskOnScreen &desk() const { return *m_desk; }
    void choose(Qt::Key key) const;
    QString status() const;
    QString texts() const;
    QString tips() const;

    const TestSettings m_settings;
    std::unique_ptr<DeskOnScreen> m_desk;
};

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

QString tst_DeskLanguage::tips() const
{
    QStringList result {desk().child<QLineEdit>("search")->toolTip(),
        desk().child<QComboBox>("axis")->toolTip(),
        desk().child<QComboBox>("accessLevel")->toolTip(),
        desk().child<QComboBox>("language")->toolTip()};
    for (const QToolButton *button :
        desk().child<QDockWidget>("snapshotDock")->widget()->findChildren<QToolButton *>())
        result.append(button->toolTip());
    return result.join(u'\n');
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

void tst_DeskLanguage::toolTips()
{
    QCOMPARE(tips(),
        QStringLiteral("Zeilen, die jedes der Wörter enthalten (Strg+F); Escape zeigt alle\n"
                       "Zeilen einer Achse; globale Parameter gehören zu jeder\n"
                       "Was zu sehen ist und was geschrieben werden kann\n"
                       "Sprache der Texte\n"
                       "Alle Werte unter einem Namen festhalten (Strg+T)\n"
                       "Die angekreuzten Snapshots nebeneinander zeigen (Strg+D)\n"
                       "Den gewählten Snapshot entfernen (Entf in der Liste)"));
    choose(Qt::Key_Down);
    QCOMPARE(tips(),
        QStringLiteral("Rows that hold each of the words (Ctrl+F); Escape shows all\n"
                       "Rows of one axis; global parameters belong to each\n"
                       "What can be seen and what can be written\n"
                       "Language of the texts\n"
                       "Keep all values under a name (Ctrl+T)\n"
                       "Show the checked snapshots side by side (Ctrl+D)\n"
                       "Remove the chosen snapshot (Del in the list)"));
    choose(Qt::Key_Up);
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

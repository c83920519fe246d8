#include "apps/krparameter-desk/WindowDialogs.h"

#include "apps/host/Progress.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

#include <functional>

using eUnsaved = DeskDialogs::eUnsaved;

/// The questions with real clicks and keys.
class tst_WindowDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs); }

    void unsavedChanges_data();
    void unsavedChanges();
    void choosesFiles_data();
    void choosesFiles();
    void agreement_data();
    void agreement();
    void snapshotName_data();
    void snapshotName();
    void driveAddress();
    void agreesToReplace();
    void agreesToSaveFromDrive_data();
    void agreesToSaveFromDrive();
    void losesSnapshots();
    void run();

private:
    /// Does something with the dialog as soon as it stands there.
    static void inDialog(const std::function<void(QDialog &)> &act)
    {
        QTimer::singleShot(0, [act] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            act(*dialog);
        });
    }
    static void click(QDialog &dialog, const QString &button)
    {
        for (QPushButton *found : dialog.findChildren<QPushButton *>()) {
            if (found->text() == button) {
                QTest::mouseClick(found, Qt::LeftButton);
                return;
            }
        }
        dialog.reject();
        QFAIL(qPrintable(QStringLiteral("no button ") + button));
    }
};

void tst_WindowDialogs::unsavedChanges_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<int>("expected");
    QTest::newRow("save") << QStringLiteral("Speichern") << int(eUnsaved::Save);
    QTest::newRow("discard") << QStringLiteral("Verwerfen") << int(eUnsaved::Discard);
    QTest::newRow("cancel") << QStringLiteral("Abbrechen") << int(eUnsaved::Cancel);
    QTest::newRow("Escape cancels") << QString() << int(eUnsaved::Cancel);
}

void tst_WindowDialogs::unsavedChanges()
{
    QFETCH(QString, button);
    QFETCH(int, expected);
    inDialog([button](QDialog &dialog) {
        if (button.isEmpty())
            QTest::keyClick(&dialog, Qt::Key_Escape);
        else
            click(dialog, button);
    });
    WindowDialogs dialogs;
    QCOMPARE(int(dialogs.unsavedChanges()), expected);
}

void tst_WindowDialogs::choosesFiles_data()
{
    using Choose = std::function<QString(WindowDialogs &, const QString &)>;
    QTest::addColumn<Choose>("choose");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expected");
    const Choose device = [](WindowDialogs &dialogs, const QString &folder) {
        return dialogs.descriptionFile(folder);
    };
    const Choose load = [](WindowDialogs &dialogs, const QString &) {
        return dialogs.projectToLoad();
    };
    const Choose save = [](WindowDialogs &dialogs, const QString &) {
        return dialogs.projectToSave();
    };
    const QString none;
    const QString file = QStringLiteral("drive.json");
    const QString folder = QStringLiteral("plant");
    QTest::newRow("a description") << device << QStringLiteral("Gerät öffnen") << file << file;
    QTest::newRow("no description") << device << QStringLiteral("Gerät öffnen") << none << none;
    QTest::newRow("a project to load")
        << load << QStringLiteral("Projekt laden") << folder << folder;
    QTest::newRow("no project to load") << load << QStringLiteral("Projekt laden") << none << none;
    QTest::newRow("where to save")
        << save << QStringLiteral("Projekt speichern in") << folder << folder;
    QTest::newRow("saved nowhere")
        << save << QStringLiteral("Projekt speichern in") << none << none;
}

/// Nothing typed: Escape.
void tst_WindowDialogs::choosesFiles()
{
    QFETCH(std::function<QString(WindowDialogs &, const QString &)>, choose);
    QFETCH(QString, title);
    QFETCH(QString, typed);
    QFETCH(QString, expected);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("plant")));
    QFile file(folder.filePath(QStringLiteral("drive.json")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QString shownTitle;
    inDialog([&](QDialog &dialog) {
        shownTitle = dialog.windowTitle();
        auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (!typed.isEmpty())
            name->setText(folder.filePath(typed));
        QTest::keyClick(name, typed.isEmpty() ? Qt::Key_Escape : Qt::Key_Return);
    });
    WindowDialogs dialogs;
    QCOMPARE(
        choose(dialogs, folder.path()), expected.isEmpty() ? expected : folder.filePath(expected));
    QCOMPARE(shownTitle, title);
}

void tst_WindowDialogs::agreement_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<bool>("expected");
    QTest::newRow("the button that says so") << QStringLiteral("Trotzdem speichern") << true;
    QTest::newRow("the other button") << QStringLiteral("Abbrechen") << false;
    QTest::newRow("Return chooses what loses nothing") << QString() << false;
}

void tst_WindowDialogs::agreement()
{
    QFETCH(QString, button);
    QFETCH(bool, expected);
    QString told;
    inDialog([&](QDialog &dialog) {
        told = static_cast<QMessageBox &>(dialog).informativeText();
        if (button.isEmpty())
            QTest::keyClick(&dialog, Qt::Key_Return);
        else
            click(dialog, button);
    });
    WindowDialogs dialogs;
    QCOMPARE(dialogs.agreesToLose(QStringLiteral("A20 <b>10 €</b>")), expected);
    QCOMPARE(told, QStringLiteral("A20 <b>10 €</b>"));
}

void tst_WindowDialogs::snapshotName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("isAccepted");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the suggestion") << QString() << true << QStringLiteral("Snapshot 1");
    QTest::newRow("what is typed") << QStringLiteral("Vorher") << true << QStringLiteral("Vorher");
    QTest::newRow("blanks are no name") << QStringLiteral("  ") << true << QString();
    QTest::newRow("given up") << QStringLiteral("Vorher") << false << QString();
}

void tst_WindowDialogs::snapshotName()
{
    QFETCH(QString, typed);
    QFETCH(bool, isAccepted);
    QFETCH(QString, expected);
    inDialog([=](QDialog &dialog) {
        auto *field = dialog.findChild<QLineEdit *>();
        field->selectAll();
        QTest::keyClicks(field, typed);
        QTest::keyClick(field, isAccepted ? Qt::Key_Return : Qt::Key_Escape);
    });
    WindowDialogs dialogs;
    QCOMPARE(dialogs.snapshotName(QStringLiteral("Snapshot 1")).value_or(QString()), expected);
}

void tst_WindowDialogs::driveAddress()
{
    WindowDialogs dialogs;
    inDialog([](QDialog &dialog) {
        auto *field = dialog.findChild<QLineEdit *>();
        QCOMPARE(field->text(), QStringLiteral("127.0.0.1:502"));
        field->selectAll();
        QTest::keyClicks(field, QStringLiteral(" drive7:503 "));
        QTest::keyClick(field, Qt::Key_Return);
    });
    QCOMPARE(dialogs.driveAddress(QStringLiteral("127.0.0.1:502")).value_or(QString()),
        QStringLiteral("drive7:503"));
    inDialog([](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QVERIFY(!dialogs.driveAddress(QStringLiteral("127.0.0.1:502")));
}

void tst_WindowDialogs::agreesToReplace()
{
    WindowDialogs dialogs;
    QString question;
    inDialog([&](QDialog &dialog) {
        question = static_cast<QMessageBox &>(dialog).text();
        click(dialog, QStringLiteral("Ersetzen"));
    });
    QVERIFY(dialogs.agreesToReplace(QStringLiteral("/machines/press 7")));
    QCOMPARE(question,
        QStringLiteral(
            "Der Ordner \"press 7\" enthält ein anderes Projekt. Soll es ersetzt werden?"));
    inDialog([](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    QVERIFY(!dialogs.agreesToReplace(QStringLiteral("/machines/press 7")));
}

void tst_WindowDialogs::agreesToSaveFromDrive_data()
{
    QTest::addColumn<QString>("folderDrive");
    QTest::addColumn<QString>("details");
    QTest::newRow("of another drive")
        << QStringLiteral("10.0.0.7:502")
        << QStringLiteral("Im Ordner stehen die Werte des Antriebs 10.0.0.7:502.\n"
                          "Strg+Umschalt+S speichert in einen anderen Ordner.");
    QTest::newRow("of one that nobody knows")
        << QString()
        << QStringLiteral("Von welchem Antrieb die Werte im Ordner sind, ist nicht bekannt.\n"
                          "Strg+Umschalt+S speichert in einen anderen Ordner.");
}

void tst_WindowDialogs::agreesToSaveFromDrive()
{
    QFETCH(QString, folderDrive);
    QFETCH(QString, details);
    WindowDialogs dialogs;
    const auto agrees = [&] {
        return dialogs.agreesToSaveFromDrive(
            QStringLiteral("/machines/press 7"), QStringLiteral("10.0.0.8:502"), folderDrive);
    };
    QString question;
    inDialog([&](QDialog &dialog) {
        const auto &box = static_cast<QMessageBox &>(dialog);
        question = box.text() + u'|' + box.informativeText();
        click(dialog, QStringLiteral("Ersetzen"));
    });
    QVERIFY(agrees());
    QCOMPARE(question,
        QStringLiteral("Die Werte sind die des Antriebs 10.0.0.8:502. Sollen sie die Werte im "
                       "Ordner \"press 7\" ersetzen?|")
            + details);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        inDialog([key](QDialog &dialog) { QTest::keyClick(&dialog, key); });
        QVERIFY(!agrees());
    }
}

void tst_WindowDialogs::losesSnapshots()
{
    WindowDialogs dialogs;
    QString asked;
    const auto ask = [&asked](QDialog &dialog) {
        const auto &box = static_cast<QMessageBox &>(dialog);
        asked = box.text() + u'|' + box.informativeText();
    };
    inDialog([&](QDialog &dialog) {
        ask(dialog);
        click(dialog, QStringLiteral("Entfernen"));
    });
    QVERIFY(dialogs.agreesToRemoveSnapshot(QStringLiteral("Vorher")));
    QCOMPARE(asked,
        QStringLiteral("Soll der Snapshot \"Vorher\" entfernt werden?|Er lässt sich nicht "
                       "zurückholen."));
    inDialog([](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    QVERIFY(!dialogs.agreesToRemoveSnapshot(QStringLiteral("Vorher")));
    inDialog([&](QDialog &dialog) {
        ask(dialog);
        click(dialog, QStringLiteral("Beenden"));
    });
    QVERIFY(dialogs.agreesToLoseSnapshots({QStringLiteral("Vorher"), QStringLiteral("Nachher")}));
    QCOMPARE(asked,
        QStringLiteral("Snapshots bleiben nicht über das Ende hinaus. Trotzdem beenden?|Vorher\n"
                       "Nachher"));
    inDialog([](QDialog &dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    QVERIFY(!dialogs.agreesToLoseSnapshots({QStringLiteral("Vorher")}));
}

void tst_WindowDialogs::run()
{
    WindowDialogs dialogs;
    bool isGoing = false;
    dialogs.run(
        QStringLiteral("Job"), [&](Progress &progress) { isGoing = progress.advance(1, 2); });
    QVERIFY(isGoing);
}

QTEST_MAIN(tst_WindowDialogs)
#include "tst_WindowDialogs.moc"

#include "apps/krparameter-desk/WindowDialogs.h"

#include "apps/host/Progress.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

using eUnsaved = DeskDialogs::eUnsaved;

/// The questions with real clicks and keys.
class tst_WindowDialogs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void unsavedChanges_data();
    void unsavedChanges();
    void agreement_data();
    void agreement();
    void snapshotName_data();
    void snapshotName();
    void driveAddress();
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

#include "apps/krparameter-desk/WindowDialogs.h"

#include "apps/krparameter-desk/DelayedProgress.h"

#include <QtCore/QDir>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>

QString WindowDialogs::descriptionFile(const QString &folder)
{
    return QFileDialog::getOpenFileName(
        m_parent, tr("Gerät öffnen"), folder, tr("Gerätebeschreibungen (*.json)"));
}

QString WindowDialogs::projectToLoad()
{
    return QFileDialog::getExistingDirectory(m_parent, tr("Projekt laden"));
}

QString WindowDialogs::projectToSave()
{
    return QFileDialog::getExistingDirectory(m_parent, tr("Projekt speichern in"));
}

std::optional<QString> WindowDialogs::snapshotName(const QString &suggestion)
{
    return text(tr("Snapshot aufnehmen"), tr("Name des Snapshots:"), suggestion, tr("Aufnehmen"));
}

std::optional<QString> WindowDialogs::driveAddress(const QString &suggestion)
{
    return text(
        tr("Antrieb"), tr("Adresse und Anschluss des Antriebs:"), suggestion, tr("Verbinden"));
}

DeskDialogs::eUnsaved WindowDialogs::unsavedChanges()
{
    QMessageBox box(QMessageBox::Question, tr("Ungespeicherte Änderungen"),
        tr("Es gibt ungespeicherte Änderungen."), QMessageBox::NoButton, m_parent);
    const auto *save = box.addButton(tr("Speichern"), QMessageBox::AcceptRole);
    const auto *discard = box.addButton(tr("Verwerfen"), QMessageBox::DestructiveRole);
    box.addButton(tr("Abbrechen"), QMessageBox::RejectRole);
    box.exec();
    if (box.clickedButton() == save)
        return eUnsaved::Save;
    return box.clickedButton() == discard ? eUnsaved::Discard : eUnsaved::Cancel;
}

bool WindowDialogs::agreesToLoadCut(const QString &report)
{
    return agrees(
        tr("Der Parameterblock ist abgeschnitten. Trotzdem laden?"), report, tr("Trotzdem laden"));
}

bool WindowDialogs::agreesToLose(const QString &losses)
{
    return agrees(tr("Beim Speichern geht etwas verloren. Trotzdem speichern?"), losses,
        tr("Trotzdem speichern"));
}

bool WindowDialogs::agreesToReplace(const QString &folder)
{
    const QDir directory(folder);
    return agrees(tr("Der Ordner \"%1\" enthält ein anderes Projekt. Soll es ersetzt werden?")
                      .arg(directory.dirName()),
        QDir::toNativeSeparators(directory.absolutePath()), tr("Ersetzen"));
}

bool WindowDialogs::agreesToSaveFromDrive(
    const QString &folder, const QString &drive, const QString &folderDrive)
{
    const QString question =
        tr("Die Werte sind die des Antriebs %1. Sollen sie die Werte im Ordner \"%2\" ersetzen?")
            .arg(drive, QDir(folder).dirName());
    const QString before = folderDrive.isEmpty()
        ? tr("Von welchem Antrieb die Werte im Ordner sind, ist nicht bekannt.")
        : tr("Im Ordner stehen die Werte des Antriebs %1.").arg(folderDrive);
    return agrees(question,
        before + QLatin1Char('\n') + tr("Strg+Umschalt+S speichert in einen anderen Ordner."),
        tr("Ersetzen"));
}

bool WindowDialogs::agreesToRemoveSnapshot(const QString &name)
{
    return agrees(tr("Soll der Snapshot \"%1\" entfernt werden?").arg(name),
        tr("Er lässt sich nicht zurückholen."), tr("Entfernen"));
}

bool WindowDialogs::agreesToLoseSnapshots(const QStringList &names)
{
    return agrees(tr("Snapshots bleiben nicht über das Ende hinaus. Trotzdem beenden?"),
        names.join(QLatin1Char('\n')), tr("Beenden"));
}

void WindowDialogs::run(const QString &title, const std::function<void(Progress &)> &job)
{
    DelayedProgress progress(m_parent, title);
    job(progress);
}

std::optional<QString> WindowDialogs::text(
    const QString &title, const QString &label, const QString &suggestion, const QString &yes)
{
    QInputDialog dialog(m_parent);
    dialog.setWindowTitle(title);
    dialog.setLabelText(label);
    dialog.setTextValue(suggestion);
    dialog.setOkButtonText(yes);
    dialog.setCancelButtonText(tr("Abbrechen"));
    const bool isAccepted = dialog.exec() == QDialog::Accepted;
    const QString answer = dialog.textValue().trimmed();
    return isAccepted && !answer.isEmpty() ? std::optional(answer) : std::nullopt;
}

bool WindowDialogs::agrees(const QString &question, const QString &details, const QString &yes)
{
    QMessageBox box(
        QMessageBox::Warning, tr("Rückfrage"), question, QMessageBox::NoButton, m_parent);
    box.setInformativeText(details);
    box.setTextFormat(Qt::PlainText);
    const auto *agree = box.addButton(yes, QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(tr("Abbrechen"), QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == agree;
}

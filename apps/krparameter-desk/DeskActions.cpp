#include "apps/krparameter-desk/DeskActions.h"

#include <QtGui/QKeySequence>
#include <QtWidgets/QWidget>

namespace {

struct Entry {
    DeskActions::eAction action;
    const char *text;
    const char *keys;
    bool isCheckable;
};

constexpr Entry Entries[] = {
    {DeskActions::OpenDevice, QT_TRANSLATE_NOOP("DeskActions", "&Gerät öffnen …"), "Ctrl+O", false},
    {DeskActions::LoadProject, QT_TRANSLATE_NOOP("DeskActions", "Projekt &laden …"), "Ctrl+L",
        false},
    {DeskActions::SaveProject, QT_TRANSLATE_NOOP("DeskActions", "Projekt &speichern"), "Ctrl+S",
        false},
    {DeskActions::SaveProjectAs, QT_TRANSLATE_NOOP("DeskActions", "Projekt speichern &in …"),
        "Ctrl+Shift+S", false},
    {DeskActions::Quit, QT_TRANSLATE_NOOP("DeskActions", "&Beenden"), "Ctrl+Q", false},
    {DeskActions::Undo, QT_TRANSLATE_NOOP("DeskActions", "&Rückgängig"), "Ctrl+Z", false},
    {DeskActions::Redo, QT_TRANSLATE_NOOP("DeskActions", "&Wiederholen"), "Ctrl+Shift+Z", false},
    {DeskActions::Search, QT_TRANSLATE_NOOP("DeskActions", "&Suchen"), "Ctrl+F", false},
    {DeskActions::EditValue, QT_TRANSLATE_NOOP("DeskActions", "Wert ä&ndern"), "F2", false},
    {DeskActions::TakeSnapshot, QT_TRANSLATE_NOOP("DeskActions", "&Snapshot …"), "Ctrl+T", false},
    {DeskActions::CompareSnapshots, QT_TRANSLATE_NOOP("DeskActions", "&Vergleichen"), "Ctrl+D",
        false},
    {DeskActions::RemoveSnapshot, QT_TRANSLATE_NOOP("DeskActions", "&Entfernen"), "Del", false},
    {DeskActions::GoOnline, QT_TRANSLATE_NOOP("DeskActions", "&Online"), "F9", true},
    {DeskActions::ChooseDrive, QT_TRANSLATE_NOOP("DeskActions", "&Antrieb …"), "Ctrl+F9", false},
    {DeskActions::ReadOnly, QT_TRANSLATE_NOOP("DeskActions", "&Nur lesen"), "F8", true},
    {DeskActions::StartAction, QT_TRANSLATE_NOOP("DeskActions", "A&ktion starten"), "Ctrl+F7",
        false},
    {DeskActions::ShowParameters, QT_TRANSLATE_NOOP("DeskActions", "&Parameter"), "Alt+1", false},
    {DeskActions::ShowComparison, QT_TRANSLATE_NOOP("DeskActions", "&Vergleich"), "Alt+2", false},
    {DeskActions::GoToSnapshots, QT_TRANSLATE_NOOP("DeskActions", "&Snapshots"), "Alt+3", false},
    {DeskActions::GoToMessages, QT_TRANSLATE_NOOP("DeskActions", "&Meldungen"), "Alt+4", false},
    {DeskActions::ClearMessages, QT_TRANSLATE_NOOP("DeskActions", "Meldungen &leeren"), "", false},
};

struct Hint {
    DeskActions::eAction action;
    const char *text;
};

/// Of those that have buttons.
constexpr Hint Hints[] = {
    {DeskActions::TakeSnapshot,
        QT_TRANSLATE_NOOP("DeskActions", "Alle Werte unter einem Namen festhalten (Strg+T)")},
    {DeskActions::CompareSnapshots,
        QT_TRANSLATE_NOOP(
            "DeskActions", "Die angekreuzten Snapshots nebeneinander zeigen (Strg+D)")},
    {DeskActions::RemoveSnapshot,
        QT_TRANSLATE_NOOP("DeskActions", "Den gewählten Snapshot entfernen (Entf in der Liste)")},
};

} // namespace

DeskActions::DeskActions(QWidget *window)
    : QObject(window)
{
    for (const Entry &entry : Entries) {
        auto *action = new QAction(this);
        action->setShortcut(QKeySequence(QLatin1String(entry.keys)));
        action->setCheckable(entry.isCheckable);
        m_actions.insert(entry.action, action);
        window->addAction(action);
    }
    retranslate();
}

void DeskActions::retranslate()
{
    for (const Entry &entry : Entries)
        m_actions.value(entry.action)->setText(tr(entry.text));
    for (const Hint &hint : Hints)
        m_actions.value(hint.action)->setToolTip(tr(hint.text));
}

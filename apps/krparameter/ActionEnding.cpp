#include "apps/krparameter/ActionEnding.h"

using eEnd = ActionRun::eEnd;

eExitCode ActionEnding::codeOf(std::optional<eEnd> end)
{
    if (!end)
        return eExitCode::UnreadableInput;
    switch (*end) {
    case eEnd::Done:
        return eExitCode::Good;
    case eEnd::NotStartable:
        return eExitCode::NotWritable;
    case eEnd::NotStarted:
    case eEnd::BrokenOff:
        return eExitCode::ValueRejected;
    case eEnd::StartLost:
        return eExitCode::WriteFailed;
    case eEnd::DriveGone:
    case eEnd::Vanished: // Nothing deletes parameters here.
        return eExitCode::UnreadableInput;
    }
    return eExitCode::Good;
}

QString ActionEnding::sentence(std::optional<eEnd> end, const QString &address)
{
    if (!end)
        return tr("die Aktion %1 läuft noch").arg(address);
    switch (*end) {
    case eEnd::NotStartable:
        return tr("die Aktion %1 ist im Zustand des Antriebs nicht startbar").arg(address);
    case eEnd::NotStarted:
        return tr("die Aktion %1 wurde nicht gestartet").arg(address);
    case eEnd::StartLost:
        return tr("ob die Aktion %1 gestartet wurde, ist nicht bekannt").arg(address);
    case eEnd::BrokenOff:
        return tr("die Aktion %1 endete vor 100 %").arg(address);
    case eEnd::Done:
    case eEnd::DriveGone:
    case eEnd::Vanished:
        break;
    }
    return {};
}

#include "apps/online/OnlineOutcome.h"

#include "apps/online/MappedValue.h"

OnlineOutcome OnlineOutcome::ofRead(const MappedValue &value, eKind kind)
{
    return {value.place, value.addressText(), kind, {}, {},
        kind == eKind::Unmapped ? tr("das Projekt hat den Wert nicht") : QString()};
}

OnlineOutcome OnlineOutcome::ofWrite(const MappedValue &value, eKind kind, const QString &reason,
    const QString &sent, const QString &kept)
{
    return {value.place, value.addressText(), kind, sent, kept, reason, true};
}

QString OnlineOutcome::key(eKind kind)
{
    switch (kind) {
    case eKind::Unchanged:
        return QStringLiteral("unchanged");
    case eKind::Changed:
        return QStringLiteral("changed");
    case eKind::Written:
        return QStringLiteral("written");
    case eKind::Altered:
        return QStringLiteral("altered");
    case eKind::Refused:
        return QStringLiteral("refused");
    case eKind::Lost:
        return QStringLiteral("lost");
    case eKind::Unmapped:
        return QStringLiteral("unmapped");
    }
    return {};
}

QString OnlineOutcome::toText() const
{
    switch (kind) {
    case eKind::Unchanged:
        return tr("%1: unverändert").arg(address);
    case eKind::Changed:
        return tr("%1: geändert").arg(address);
    case eKind::Written:
        return tr("%1: geschrieben").arg(address);
    case eKind::Altered:
        return tr("%1: geschrieben wurde \"%2\", der Antrieb hat \"%3\"").arg(address, sent, kept);
    case eKind::Refused:
        return tr("%1: abgelehnt - %2").arg(address, reason);
    case eKind::Lost:
        return tr("%1: verloren - %2").arg(address, reason);
    case eKind::Unmapped:
        return tr("%1: nicht übertragbar - %2").arg(address, reason);
    }
    return {};
}

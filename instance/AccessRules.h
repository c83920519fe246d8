#pragma once

#include <QtCore/QString>
#include <QtCore/QtGlobal>

/// Decides what the user may see and write: pure functions of the facts at hand.
namespace AccessRules {

/// Parameter kind whose values are written online only.
constexpr int OnlineChoiceKind = 2;
/// Values of this write level and above are masked offline.
constexpr int MaskedWriteLevel = 6;
/// The one user who sees masked values in brackets.
constexpr quint32 BracketUserLevel = 5;

struct WriteFacts {
    bool isReadOnly;
    bool isRecordWritable;
    bool isOnline;
    int writeLevel;
    int kind;
    quint32 userLevel;
};

constexpr bool isWritable(const WriteFacts &facts)
{
    if (facts.isReadOnly || !facts.isRecordWritable)
        return false;
    if (qint64(facts.writeLevel) > qint64(facts.userLevel))
        return false;
    return facts.kind != OnlineChoiceKind || facts.isOnline;
}

constexpr bool isVisible(bool isHidden, quint32 readLevel, quint32 userLevel)
{
    return !isHidden && readLevel <= userLevel;
}

struct MaskFacts {
    bool isOnline;
    bool isReadOnly;
    bool isShownOffline;
    int writeLevel;
    quint32 userLevel;
};

/// The text as this user sees it.
inline QString masked(const QString &text, const MaskFacts &facts)
{
    if (facts.isOnline || facts.isReadOnly || facts.isShownOffline
        || facts.writeLevel < MaskedWriteLevel)
        return text;
    if (facts.userLevel == BracketUserLevel)
        return QLatin1String("<offline> (") + text + QLatin1Char(')');
    return QStringLiteral("<offline>");
}

} // namespace AccessRules

#include "apps/krparameter/OutcomeView.h"

#include <QtCore/QJsonObject>

#include <algorithm>

using eKind = OnlineOutcome::eKind;

namespace {

/// The worst last.
eExitCode writeCode(const OnlineOutcome &outcome)
{
    switch (outcome.kind) {
    case eKind::Altered:
        return eExitCode::Differences;
    case eKind::Refused:
        return eExitCode::ValueRejected;
    case eKind::Lost:
        return outcome.isWrite ? eExitCode::WriteFailed : eExitCode::UnreadableInput;
    case eKind::Unmapped:
        return eExitCode::WriteFailed;
    default:
        return eExitCode::Good;
    }
}

} // namespace

eExitCode OutcomeView::writeCode(const OnlineReport &report)
{
    eExitCode code = eExitCode::Good;
    for (const OnlineOutcome &outcome : report.outcomes())
        code = std::max(code, ::writeCode(outcome));
    return code;
}

bool OutcomeView::isExpected(eKind kind)
{
    return kind == eKind::Unchanged || kind == eKind::Written;
}

QJsonObject OutcomeView::toJson(const OnlineOutcome &outcome)
{
    QJsonObject object {{QStringLiteral("address"), outcome.address},
        {QStringLiteral("outcome"), OnlineOutcome::key(outcome.kind)}};
    const auto insert = [&object](const QString &key, const QString &text) {
        if (!text.isEmpty())
            object.insert(key, text);
    };
    insert(QStringLiteral("sent"), outcome.sent);
    insert(QStringLiteral("kept"), outcome.kept);
    insert(QStringLiteral("reason"), outcome.reason);
    return object;
}

#pragma once

#include "apps/krparameter/eExitCode.h"
#include "apps/online/OnlineReport.h"

class QJsonObject;

/// What the outcomes of transfers mean for the program and its output: pure functions.
namespace OutcomeView {

/// The worst of a report of writes.
eExitCode writeCode(const OnlineReport &report);
/// What a transfer does to most values and nobody asks about.
bool isExpected(OnlineOutcome::eKind kind);
QJsonObject toJson(const OnlineOutcome &outcome);

} // namespace OutcomeView

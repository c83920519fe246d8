#pragma once

#include <QtCore/QString>

class CallbackProvider;

namespace RunningChange {

/// The change of a value, or the round of questions, that runs in the container at the moment, with all
/// that follows from it: the same text as long as it lasts, another one for each. Empty: none, or null for
/// the container.
QString of(CallbackProvider *callbacks);

} // namespace RunningChange

#pragma once

#include "apps/online/OnlineReport.h"

#include <functional>
#include <optional>

class OnlineSession;

/// Waits for what a session is to come to, while events are served.
namespace OnlineWaiting {

/// Calls the drive. Whether it is online now.
bool goOnline(OnlineSession &session);
/// Begins a transfer. Empty where the drive is gone before it begins.
std::optional<OnlineReport> transfer(OnlineSession &session, const std::function<bool()> &begin);

} // namespace OnlineWaiting

#include "apps/online/OnlineClock.h"

OnlineClock::~OnlineClock() = default;

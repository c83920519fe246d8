#include "apps/online/OnlineLink.h"

OnlineLink::~OnlineLink() = default;

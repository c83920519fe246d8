#pragma once

#include "apps/online/OnlineOutcome.h"
#include "apps/online/RegisterMap.h"

class ParameterContainer;

/// Says why a value cannot be transferred: pure functions.
namespace UnmappedOutcome {

/// Of a place that has no register.
OnlineOutcome of(const RegisterMap &map, ParameterContainer &container, const ValuePlace &place,
    OnlineOutcome::eDirection direction);
OnlineOutcome of(const RegisterMap::Refusal &refusal, OnlineOutcome::eDirection direction);

} // namespace UnmappedOutcome

#pragma once

#include "apps/online/OnlineTransfer.h"

#include <functional>

class ParameterContainer;
class RegisterMap;

/// What belongs to a transfer: pure functions.
namespace TransferScope {

using IsInProject = std::function<bool(const MappedValue &)>;

/// Every value. What the project does not have cannot be read into it.
OnlineTransfer::Scope ofUpload(const RegisterMap &map, const IsInProject &isInProject);
/// What the drive stores and lets be written. What the project does not have is not to be written.
OnlineTransfer::Scope ofDownload(const RegisterMap &map, const IsInProject &isInProject);
/// Each place once.
OnlineTransfer::Scope ofPlaces(const RegisterMap &map, ParameterContainer &container,
    const QList<ValuePlace> &places, OnlineTransfer::eDirection direction);

/// Position in the map; -1 where the place has no register.
qsizetype positionOf(
    const RegisterMap &map, ParameterContainer &container, const ValuePlace &place);

} // namespace TransferScope

#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

class ParameterContainer;

/// The state of a drive's axis, "E48". A drive without it is in state -1.
namespace DeviceState {

/// "E48".
const ParameterCoordinate &coordinate();

constexpr int NotReady = 0;
constexpr int SwitchOnDisabled = 1;
constexpr int ReadyToSwitchOn = 2;
constexpr int OperationEnabled = 4;

/// Deliberate: 5, a fault, is not among the enabled states though its neighbours are.
constexpr bool isEnabled(int state)
{
    return state == 3 || state == 4 || state == 6 || state == 7;
}

int read(const ParameterContainer &container, eLivingSpace livingSpace);
/// Nothing where there is no "E48".
void write(ParameterContainer &container, eLivingSpace livingSpace, int state);

} // namespace DeviceState

#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

/// What an instance set tells the keeper of the sets about its addresses.
class CoordinateRegistry {
public:
    /// Called before coordinateChanged is heard by anyone else.
    virtual void onCoordinateChanged(ParameterAddress oldAddress, ParameterAddress newAddress) = 0;
    /// Called when a set has more or fewer elements, before definitionChanged is heard by anyone.
    virtual void onElementsChanged() = 0;

protected:
    ~CoordinateRegistry() = default;
};

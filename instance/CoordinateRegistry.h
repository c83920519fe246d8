#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

/// What an instance set tells the keeper of the sets about its coordinate.
class CoordinateRegistry {
public:
    /// Called before coordinateChanged is heard by anyone else.
    virtual void onCoordinateChanged(ParameterAddress oldAddress, ParameterAddress newAddress) = 0;

protected:
    ~CoordinateRegistry() = default;
};

#pragma once

#include "instance/DependencyKey.h"
#include "instance/DependencyReceiver.h"

#include <KrParameterDefinition/ParameterAddress.h>

class CoordinateInstanceSet;
class ParameterDefinition;

/// What an instance set tells the keeper of the sets, and asks it.
class CoordinateRegistry {
public:
    /// Called once when a set moved, before anyone hears coordinateChanged. Only the coordinates count.
    virtual void onCoordinateChanged(ParameterAddress oldAddress, ParameterAddress newAddress) = 0;
    /// Called when a set has more or fewer elements, before definitionChanged is heard by anyone.
    virtual void onElementsChanged() = 0;
    /// Called when overrides or the definition changed, before anyone hears of it.
    virtual void onPropertiesChanged(CoordinateInstanceSet *set) = 0;
    /// The sets of which values may depend on the key, by coordinate.
    virtual QList<DependencyReceiver> receivers(const DependencyKey &key) = 0;
    /// Stand around a change of a value that others follow. They nest.
    virtual void beginChange() = 0;
    virtual void endChange() = 0;
    /// Stand around the questions before a change. False: too many run inside each other or followed from
    /// the change; then nothing is to be ended.
    virtual bool beginPreparation() = 0;
    virtual void endPreparation() = 0;
    /// Whether a parameter of this definition is global in the device's family.
    virtual bool isGlobal(const ParameterDefinition *definition) const = 0;

protected:
    ~CoordinateRegistry() = default;
};

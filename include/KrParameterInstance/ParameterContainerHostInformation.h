#pragma once

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>

/// What a container asks its host. Implemented by the host.
/// Declaration order is binary interface; do not reorder.
class ParameterContainerHostInformation {
public:
    /// The living spaces that the host offers.
    virtual QList<eLivingSpace> livingSpaces() const = 0;
    virtual unsigned int deviceFamilyIdentifier() const = 0;

protected:
    ~ParameterContainerHostInformation() = default;
};

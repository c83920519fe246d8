#pragma once

#include <KrParameterInstance/ParameterContainerHostInformation.h>

/// What a container is told about the device of one description.
class DriveHostInformation final : public ParameterContainerHostInformation {
public:
    DriveHostInformation(const QList<int> &axes, unsigned int deviceFamilyIdentifier)
        : m_livingSpaces {eLivingSpace::Global}
        , m_deviceFamilyIdentifier(deviceFamilyIdentifier)
    {
        for (const int axis : axes)
            m_livingSpaces.append(eLivingSpace(axis));
    }

    QList<eLivingSpace> livingSpaces() const override { return m_livingSpaces; }
    unsigned int deviceFamilyIdentifier() const override { return m_deviceFamilyIdentifier; }

private:
    QList<eLivingSpace> m_livingSpaces;
    unsigned int m_deviceFamilyIdentifier;
};

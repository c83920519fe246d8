#pragma once

#include <KrParameterInstance/ParameterContainerHostInformation.h>

/// A host for tests: a two-axis drive of family 4096 unless told otherwise.
class TestHostInformation final : public ParameterContainerHostInformation {
public:
    TestHostInformation() = default;
    TestHostInformation(QList<eLivingSpace> livingSpaces, unsigned int deviceFamilyIdentifier)
        : m_livingSpaces(std::move(livingSpaces))
        , m_deviceFamilyIdentifier(deviceFamilyIdentifier)
    {
    }

    QList<eLivingSpace> livingSpaces() const override { return m_livingSpaces; }
    unsigned int deviceFamilyIdentifier() const override { return m_deviceFamilyIdentifier; }

    void setLivingSpaces(const QList<eLivingSpace> &livingSpaces) { m_livingSpaces = livingSpaces; }
    void setDeviceFamilyIdentifier(unsigned int identifier)
    {
        m_deviceFamilyIdentifier = identifier;
    }

private:
    QList<eLivingSpace> m_livingSpaces {
        eLivingSpace::Global, eLivingSpace::Axis1, eLivingSpace::Axis2};
    unsigned int m_deviceFamilyIdentifier = 4096;
};

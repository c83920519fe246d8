#pragma once

#include <KrProjectRepository/DeviceFamilyInformation.h>
#include <KrProjectRepository/KrProjectRepositoryExport.h>

#include <QtCore/QList>

#include <map>
#include <memory>

/// The device families known to the process. They come from the loaded device descriptions and
/// stay.
class KrProjectRepository_EXPORT HardwareRepository {
public:
    static HardwareRepository &instance();

    /// Null for an unknown family. **Owner** the repository; valid for the process.
    const DeviceFamilyInformation *deviceFamily(quint32 identifier) const;
    /// Ascending by identifier.
    QList<const DeviceFamilyInformation *> deviceFamilies() const;

    /// True when the family is known afterwards. The first registration of an identifier stays.
    /// **Refused** a family whose name or axis property contradicts the known one: false, nothing
    /// changes.
    bool registerDeviceFamily(const DeviceFamilyInformation &family);

private:
    HardwareRepository() = default;

    std::map<quint32, std::unique_ptr<const DeviceFamilyInformation>> m_families;
};

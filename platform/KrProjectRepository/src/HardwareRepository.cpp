#include <KrProjectRepository/HardwareRepository.h>

HardwareRepository &HardwareRepository::instance()
{
    // Never destroyed: families are valid for the process.
    static HardwareRepository *const repository = new HardwareRepository;
    return *repository;
}

const DeviceFamilyInformation *HardwareRepository::deviceFamily(quint32 identifier) const
{
    const auto family = m_families.find(identifier);
    return family == m_families.end() ? nullptr : family->second.get();
}

QList<const DeviceFamilyInformation *> HardwareRepository::deviceFamilies() const
{
    QList<const DeviceFamilyInformation *> families;
    families.reserve(qsizetype(m_families.size()));
    for (const auto &[identifier, family] : m_families)
        families.append(family.get());
    return families;
}

bool HardwareRepository::registerDeviceFamily(const DeviceFamilyInformation &family)
{
    if (const DeviceFamilyInformation *known = deviceFamily(family.identifier()))
        return *known == family;
    m_families.emplace(
        family.identifier(), std::make_unique<const DeviceFamilyInformation>(family));
    return true;
}

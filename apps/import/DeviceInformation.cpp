#include "apps/import/DeviceInformation.h"

#include "apps/import/EdsFile.h"
#include "apps/import/EdsNumber.h"
#include "apps/import/ImportRemarks.h"

namespace {

constexpr quint8 LastNodeId = 127;

// The standard itself writes the first.
constexpr QLatin1String CommissioningNames[] = {
    QLatin1String("DeviceComissioning"), QLatin1String("DeviceCommissioning")};

void readNodeId(DeviceInformation &device, const EdsSection &section, ImportRemarks &remarks)
{
    const EdsEntry entry = section.entry(QStringLiteral("NodeID"));
    const EdsNumber id = EdsNumber::parse(entry.value);
    const auto value = id.unsignedValue(LastNodeId);
    if (value && *value != 0)
        device.nodeId = quint8(*value);
    else if (id.state() != EdsNumber::eState::Empty)
        remarks.add(entry, DeviceInformation::tr("ist keine Knotennummer von 1 bis 127"));
}

void readDeviceInfo(DeviceInformation &device, const EdsSection &section, ImportRemarks &remarks)
{
    device.vendorName = section.printable(QStringLiteral("VendorName"));
    device.productName = section.printable(QStringLiteral("ProductName"));
    device.vendorNumber = section.number(QStringLiteral("VendorNumber"), remarks);
    device.productNumber = section.number(QStringLiteral("ProductNumber"), remarks);
    if (section.number(QStringLiteral("CompactPDO"), remarks) != 0) {
        remarks.add(section.entry(QStringLiteral("CompactPDO")),
            DeviceInformation::tr("lässt PDO-Objekte aus; sie werden nicht ergänzt"));
    }
}

} // namespace

DeviceInformation DeviceInformation::read(const EdsFile &file, ImportRemarks &remarks)
{
    DeviceInformation device;
    for (const QLatin1String name : CommissioningNames) {
        if (const EdsSection *section = file.section(name))
            readNodeId(device, *section, remarks);
    }
    if (const EdsSection *section = file.section(QStringLiteral("FileInfo")))
        device.description = section->printable(QStringLiteral("Description"));
    if (const EdsSection *section = file.section(QStringLiteral("DeviceInfo")))
        readDeviceInfo(device, *section, remarks);
    return device;
}

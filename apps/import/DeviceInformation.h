#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <optional>

class EdsFile;
class ImportRemarks;

/// What a file says about the device as a whole.
struct DeviceInformation {
    Q_DECLARE_TR_FUNCTIONS(DeviceInformation)

public:
    /// 1 to 127, from the device commissioning.
    std::optional<quint8> nodeId;
    /// 0 where not given.
    quint32 vendorNumber = 0;
    quint32 productNumber = 0;
    QString vendorName;
    QString productName;
    QString description;

    /// **Reports** numbers that are none.
    static DeviceInformation read(const EdsFile &file, ImportRemarks &remarks);
};

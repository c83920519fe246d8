#pragma once

#include <QtCore/QString>

struct DeviceInformation;

/// The device family that a file describes.
struct DeviceFamily {
    /// Never 0. FNV-1a of 32 bits over the eight bytes of vendor and product number, least
    /// significant first; where one of them is missing, over those bytes and the UTF-8 text of the
    /// name. The same device always gives the same number.
    quint32 identifier = 0;
    /// Vendor and product, or what the file has instead.
    QString name;

    static DeviceFamily of(const DeviceInformation &device);
};

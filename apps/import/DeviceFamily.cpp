#include "apps/import/DeviceFamily.h"

#include "apps/import/DeviceInformation.h"

#include <QtCore/QByteArray>
#include <QtCore/QtEndian>

namespace {

constexpr quint32 HashStart = 2166136261U;
constexpr quint32 HashFactor = 16777619U;

quint32 hashOf(const QByteArray &bytes)
{
    quint32 hash = HashStart;
    for (const char byte : bytes)
        hash = (hash ^ uchar(byte)) * HashFactor;
    return hash;
}

QByteArray bytesOf(quint32 number)
{
    const quint32 little = qToLittleEndian(number);
    return QByteArray(reinterpret_cast<const char *>(&little), sizeof little);
}

QString nameOf(const DeviceInformation &device)
{
    const QString &product = device.productName.isEmpty() ? device.description : device.productName;
    if (product.isEmpty() && device.vendorName.isEmpty())
        return QStringLiteral("CANopen device");
    return (device.vendorName + QLatin1Char(' ') + product).trimmed();
}

} // namespace

DeviceFamily DeviceFamily::of(const DeviceInformation &device)
{
    DeviceFamily family;
    family.name = nameOf(device);
    QByteArray key = bytesOf(device.vendorNumber) + bytesOf(device.productNumber);
    if (device.vendorNumber == 0 || device.productNumber == 0)
        key += family.name.toUtf8();
    const quint32 hash = hashOf(key);
    family.identifier = hash == 0 ? 1 : hash;
    return family;
}

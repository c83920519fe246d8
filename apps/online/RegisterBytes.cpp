#include "apps/online/RegisterBytes.h"

#include <KrDatatype/SimpleType.h>

namespace {

constexpr qsizetype RegisterSize = 2;

bool standsInLowHalf(const SimpleType &type)
{
    return type.sizeInBytes() % RegisterSize != 0 && type.kind() != SimpleType::CharacterString
        && type.kind() != SimpleType::ByteString;
}

} // namespace

quint16 RegisterBytes::registerCount(const SimpleType &type)
{
    return quint16((type.sizeInBytes() + 1) / RegisterSize);
}

QList<quint16> RegisterBytes::fromBytes(const QByteArray &bytes, const SimpleType &type)
{
    QByteArray padded = bytes;
    if (standsInLowHalf(type))
        padded.prepend('\0');
    else if (padded.size() % RegisterSize != 0)
        padded.append('\0');
    QList<quint16> registers(padded.size() / RegisterSize);
    for (qsizetype i = 0; i < registers.size(); ++i)
        registers[i] = quint16(quint8(padded[2 * i]) << 8 | quint8(padded[2 * i + 1]));
    return registers;
}

QByteArray RegisterBytes::flat(const QList<quint16> &registers)
{
    QByteArray bytes(registers.size() * RegisterSize, Qt::Uninitialized);
    char *out = bytes.data();
    for (const quint16 content : registers) {
        *out++ = char(content >> 8);
        *out++ = char(content & 0xFF);
    }
    return bytes;
}

QByteArray RegisterBytes::valueAt(
    const QByteArray &flat, qsizetype firstRegister, const SimpleType &type)
{
    const qsizetype offset = firstRegister * RegisterSize + (standsInLowHalf(type) ? 1 : 0);
    return QByteArray::fromRawData(flat.constData() + offset, type.sizeInBytes());
}

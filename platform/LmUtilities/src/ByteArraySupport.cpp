#include <LmUtilities/ByteArraySupport.h>

#include <bit>

namespace LmByteArraySupport {

namespace {

bool isIntegerSize(int size)
{
    return size >= 1 && size <= 8;
}

/// How far the byte at `offset` of an integer of `size` bytes is shifted, in bits.
int shiftAt(int offset, int size, eByteOrder order)
{
    return 8 * (order == eByteOrder::LittleEndian ? offset : size - 1 - offset);
}

} // namespace

ByteArraySupport::ByteArraySupport(eByteOrder order, const QByteArray &bytes)
    : m_bytes(bytes)
    , m_order(order)
{
}

void ByteArraySupport::appendInteger(quint64 value, int size)
{
    if (!isIntegerSize(size))
        return;
    for (int offset = 0; offset < size; ++offset)
        m_bytes.append(static_cast<char>(value >> shiftAt(offset, size, m_order)));
}

void ByteArraySupport::appendFloat(float value)
{
    appendInteger(std::bit_cast<quint32>(value), sizeof value);
}

void ByteArraySupport::appendDouble(double value)
{
    appendInteger(std::bit_cast<quint64>(value), sizeof value);
}

void ByteArraySupport::appendBytes(const QByteArray &bytes, qsizetype size)
{
    m_bytes.append(bytes.leftJustified(qMax(size, qsizetype(0)), '\0', true));
}

quint64 ByteArraySupport::unsignedInteger(int size) const
{
    if (!isIntegerSize(size) || m_bytes.size() < size)
        return 0;
    quint64 value = 0;
    for (int offset = 0; offset < size; ++offset)
        value |= quint64(static_cast<quint8>(m_bytes[offset])) << shiftAt(offset, size, m_order);
    return value;
}

qint64 ByteArraySupport::signedInteger(int size) const
{
    if (!isIntegerSize(size))
        return 0;
    // The sign bit moves to the top and spreads on the way back.
    const int unusedBits = 64 - 8 * size;
    return static_cast<qint64>(unsignedInteger(size) << unusedBits) >> unusedBits;
}

float ByteArraySupport::toFloat() const
{
    return std::bit_cast<float>(static_cast<quint32>(unsignedInteger(sizeof(float))));
}

double ByteArraySupport::toDouble() const
{
    return std::bit_cast<double>(unsignedInteger(sizeof(double)));
}

} // namespace LmByteArraySupport

#pragma once

#include <LmUtilities/LmUtilitiesExport.h>

#include <QtCore/QByteArray>

namespace LmByteArraySupport {

enum class eByteOrder { LittleEndian, BigEndian };

/// Appends numbers to and reads numbers from the front of a byte array in one byte order.
class LmUtilities_EXPORT ByteArraySupport {
public:
    explicit ByteArraySupport(eByteOrder order, const QByteArray &bytes = {});

    QByteArray bytes() const { return m_bytes; }
    /// Appends the low `size` bytes of `value`. **Range** size 1 to 8. **Refused** any other size:
    /// nothing is appended.
    void appendInteger(quint64 value, int size);
    /// **Encoding** IEEE 754, 4 bytes.
    void appendFloat(float value);
    /// **Encoding** IEEE 754, 8 bytes.
    void appendDouble(double value);
    /// Appends `bytes` cut or filled with zero bytes to `size`; the order plays no part.
    void appendBytes(const QByteArray &bytes, qsizetype size);

    /// From offset 0. Too short an array gives 0, and so does a size outside 1 to 8; test size()
    /// first.
    quint64 unsignedInteger(int size) const;
    /// As unsignedInteger(), the highest bit of the `size` bytes being the sign.
    qint64 signedInteger(int size) const;
    float toFloat() const;
    double toDouble() const;
    qsizetype size() const { return m_bytes.size(); }

private:
    QByteArray m_bytes;
    eByteOrder m_order;
};

} // namespace LmByteArraySupport

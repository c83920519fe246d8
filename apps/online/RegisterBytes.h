#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>

class SimpleType;

/// The bytes of values in registers of 16 bits: pure functions.
///
/// **Encoding** big-endian, the first byte in the high half of the first register. Of an odd number of
/// bytes a number stands in the low half of its register, a string leaves the low half of the last one
/// free; the free half is 0.
namespace RegisterBytes {

/// As many registers as the bytes of a type need.
quint16 registerCount(const SimpleType &type);
/// **Range** as many bytes as the type has.
QList<quint16> fromBytes(const QByteArray &bytes, const SimpleType &type);
/// The bytes of all registers as they are sent.
QByteArray flat(const QList<quint16> &registers);
/// The bytes of one value; they belong to `flat`, which outlives them. **Range** `flat` has the registers of the type at `firstRegister`.
QByteArray valueAt(const QByteArray &flat, qsizetype firstRegister, const SimpleType &type);

} // namespace RegisterBytes

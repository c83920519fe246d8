#pragma once

#include <LmUtilities/ByteArraySupport.h>

#include <QtCore/QByteArray>
#include <QtCore/QString>

class ParameterInformation;
class SimpleType;

/// Packs native texts into the bytes of their data type and back: pure functions.
///
/// **Encoding** integers and floating types in the byte order asked for; character strings as Latin-1,
/// cut or filled with zero bytes to the field size; byte strings as two hexadecimal digits a byte.
namespace BinaryValue {

LmByteArraySupport::eByteOrder byteOrder(bool isBigEndian);
/// Null for an element without known data type. **Owner** the table of data types.
const SimpleType *typeOf(const ParameterInformation &information, quint16 element);
/// Text that is no number counts as 0.
QByteArray pack(
    const QString &nativeText, const SimpleType &type, LmByteArraySupport::eByteOrder order);
/// **Range** at least as many bytes as the data type has. Floating types give the shortest text that
/// reads back as the same number; a character string ends at its first zero byte.
QString unpack(
    const QByteArray &bytes, const SimpleType &type, LmByteArraySupport::eByteOrder order);

} // namespace BinaryValue

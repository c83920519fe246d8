#include "container/BinaryValue.h"

#include "value/NumberText.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterInstance/ParameterInformation.h>

using LmByteArraySupport::ByteArraySupport;
using LmByteArraySupport::eByteOrder;

namespace {

QByteArray packInteger(const QString &text, const SimpleType &type, eByteOrder order)
{
    ByteArraySupport support(order);
    const quint64 value =
        type.kind() == SimpleType::SignedInteger ? quint64(text.toLongLong()) : text.toULongLong();
    support.appendInteger(value, int(type.sizeInBytes()));
    return support.bytes();
}

QByteArray packFloat(const QString &text, const SimpleType &type, eByteOrder order)
{
    ByteArraySupport support(order);
    // QString reads a number only from a whole text, in the "C" locale, and gives 0 for any other.
    const double value = text.toDouble();
    if (type.sizeInBytes() == sizeof(double))
        support.appendDouble(value);
    else
        support.appendFloat(float(value));
    return support.bytes();
}

QByteArray packBytes(const QByteArray &bytes, const SimpleType &type, eByteOrder order)
{
    ByteArraySupport support(order);
    support.appendBytes(bytes, qsizetype(type.sizeInBytes()));
    return support.bytes();
}

QString unpackCharacters(const QByteArray &field)
{
    const qsizetype end = field.indexOf('\0');
    return QString::fromLatin1(end < 0 ? field : field.first(end));
}

} // namespace

eByteOrder BinaryValue::byteOrder(bool isBigEndian)
{
    return isBigEndian ? eByteOrder::BigEndian : eByteOrder::LittleEndian;
}

const SimpleType *BinaryValue::typeOf(const ParameterInformation &information, quint16 element)
{
    const quint32 id =
        information.elementProperty(element, eParameterProperty::Datatype).asUint32();
    return DatatypeProvider::instance()->simpleType(quint8(id));
}

QByteArray BinaryValue::pack(const QString &nativeText, const SimpleType &type, eByteOrder order)
{
    switch (type.kind()) {
    case SimpleType::SignedInteger:
    case SimpleType::UnsignedInteger:
        return packInteger(nativeText, type, order);
    case SimpleType::FloatingPoint:
        return packFloat(nativeText, type, order);
    case SimpleType::CharacterString:
        return packBytes(nativeText.toLatin1(), type, order);
    case SimpleType::ByteString:
        return packBytes(QByteArray::fromHex(nativeText.toLatin1()), type, order);
    }
    return {};
}

QString BinaryValue::unpack(const QByteArray &bytes, const SimpleType &type, eByteOrder order)
{
    const int size = int(type.sizeInBytes());
    const QByteArray field = bytes.first(size);
    const ByteArraySupport support(order, field);
    switch (type.kind()) {
    case SimpleType::SignedInteger:
        return NumberText::integer(support.signedInteger(size));
    case SimpleType::UnsignedInteger:
        return NumberText::integer(support.unsignedInteger(size));
    case SimpleType::FloatingPoint:
        return size == sizeof(double) ? NumberText::shortest(support.toDouble())
                                      : NumberText::shortest(support.toFloat());
    case SimpleType::CharacterString:
        return unpackCharacters(field);
    case SimpleType::ByteString:
        return QString::fromLatin1(field.toHex());
    }
    return {};
}

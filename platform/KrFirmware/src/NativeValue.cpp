#include "NativeValue.h"

#include "RealText.h"

#include <KrDatatype/DatatypeProvider.h>
#include <KrFirmware/CallbackProvider.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <array>
#include <charconv>
#include <cmath>

namespace {

/// Below this, whole numbers are written without an exponent.
constexpr double ExponentFrom = 1e21;
/// Sign and digits of such a number.
constexpr size_t WholeSize = 32;

QString writtenDouble(double value)
{
    // Without the sign that it may have.
    if (std::isnan(value))
        return QStringLiteral("nan");
    if (value != std::trunc(value) || std::abs(value) >= ExponentFrom)
        return RealText::write(value);
    std::array<char, WholeSize> text;
    const char *const end = std::to_chars(
        text.data(), text.data() + text.size(), value == 0 ? 0.0 : value, std::chars_format::fixed)
                                .ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

} // namespace

QVariant NativeValue::read(const QString &nativeText, const SimpleType *type)
{
    if (!type)
        return nativeText;
    if (type->kind() == SimpleType::FloatingPoint) {
        const std::optional<double> number = RealText::read(nativeText, *type);
        return number ? QVariant(*number) : QVariant(nativeText);
    }
    if (type->kind() != SimpleType::SignedInteger && type->kind() != SimpleType::UnsignedInteger)
        return nativeText;
    bool isNumber = false;
    const qlonglong number = nativeText.toLongLong(&isNumber);
    return isNumber ? QVariant(number) : QVariant(nativeText);
}

QVariant NativeValue::ask(
    CallbackProvider &callbacks, int livingSpace, quint16 coordinate, quint16 element)
{
    // The value last: what reading it leads to may end the container, and the callbacks with it.
    const QVariant type =
        callbacks.elementProperty(coordinate, element, quint32(eParameterProperty::Datatype));
    const QString text = callbacks.readValueNative(livingSpace, coordinate, element, false);
    return read(text, DatatypeProvider::instance()->simpleType(quint8(type.toUInt())));
}

QString NativeValue::write(const FunctionValue &value)
{
    if (const qint64 *integer = std::get_if<qint64>(&value))
        return QString::number(*integer);
    if (const double *real = std::get_if<double>(&value))
        return writtenDouble(*real);
    const QString *const text = std::get_if<QString>(&value);
    return text ? *text : QString();
}

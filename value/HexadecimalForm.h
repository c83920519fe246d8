#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>

class SimpleType;

/// Integers as hexadecimal digits of their data type's width: "00ff hex".
namespace HexadecimalForm {

/// Lower-case digits and " hex". A negative value is shown in two's complement.
/// A type that is null, no integer or not of 1, 2, 4 or 8 bytes: the value text as it stands.
QString show(const QString &valueText, const SimpleType *type);

/// Answers like the pattern "^(0x)?([0-9a-fA-F ]+)[ ]*$", in linear time; blanks between the digits
/// are dropped. The result is decimal: of a signed type the 64 bits are a signed number, of every
/// other type an unsigned one.
/// **Refused** what the pattern refuses, and more than 64 bits: the result is empty.
std::optional<QString> read(QStringView text, const SimpleType *type);

} // namespace HexadecimalForm

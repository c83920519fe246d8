#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>

class SimpleType;

/// Integers as binary digits of their data type's width, in groups of four: "0000 1010 bin".
namespace BinaryForm {

/// Most significant bit first, and " bin". A negative value is shown in two's complement.
/// A type that is null, no integer or not of 1, 2, 4 or 8 bytes: an empty text.
QString show(const QString &valueText, const SimpleType *type);

/// Answers like the pattern "^((1|0| )+)$", in linear time; blanks are dropped. The result is
/// decimal: of a signed type the 64 bits are a signed number, of every other type an unsigned one.
/// **Refused** what the pattern refuses, and more than 64 bits: the result is empty.
std::optional<QString> read(QStringView text, const SimpleType *type);

} // namespace BinaryForm

#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>

class SimpleType;

/// Digits of a base that is a power of two: what the hexadecimal and the binary form share.
namespace DigitText {

bool isInteger(const SimpleType *type);

/// One or more digits and blanks, at the end of which a line feed is allowed; the blanks are
/// dropped, blanks alone are 0. The result is decimal, signed for a signed type.
/// **Refused** any other character, no character at all, more than 64 bits: the result is empty.
std::optional<QString> toDecimal(QStringView text, int bitsOfDigit, const SimpleType *type);

} // namespace DigitText

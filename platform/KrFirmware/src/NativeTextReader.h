#pragma once

#include "DescriptionReader.h"

class SimpleType;

/// Reads limits and defaults: numbers or texts of the file to native texts of a data type.
///
/// Integer types: a text of digits, or a number that is whole and that a double holds exactly
/// (other tools would change any other); the result has no "+" and no leading zeros. Floating-point
/// types: a number, or a text that std::from_chars reads; kept as it is written. Strings: a text
/// that fits.
class NativeTextReader {
public:
    /// Empty where refused.
    static QString read(
        const JsonValue &value, const SimpleType &type, const DescriptionReader &reader);
};

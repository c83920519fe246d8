#pragma once

#include "ValueBounds.h"
#include "eCheckResult.h"

#include <QtCore/QStringView>

class SimpleType;

/// Whether a native text is acceptable.
///
/// **Shape** Integers: optional sign and decimal digits, no blanks. Floating point: what
/// std::from_chars reads completely. Character strings: Latin-1, at most the field size. Byte
/// strings: pairs of hexadecimal digits, at most the field size.
/// The range of the type and the limits come first (too small, too large), then the choice keys.
/// A value of the data type that is never formatted is always acceptable.
class ValueCheck {
public:
    static eCheckResult result(
        const QString &nativeText, const SimpleType &type, const ValueBounds &bounds);
};

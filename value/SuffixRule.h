#pragma once

#include <QtCore/QStringView>

/// A number as typed may end with the name of its form: "1f hex", "0101 bin", "12 dec".
namespace SuffixRule {

enum class eFormat : int { Decimal = 0, Hexadecimal = 3, Binary = 4 };

struct Number {
    eFormat format;
    /// Without the suffix and what follows it.
    QStringView text;
};

/// Answers like the pattern "(.*)(hex|bin|dec)", in linear time: unanchored, case-sensitive and
/// greedy. The last suffix of the first line that has one counts; what follows it and the lines
/// before it are dropped. A text without suffix keeps the requested format.
Number apply(QStringView text, eFormat requested);

} // namespace SuffixRule

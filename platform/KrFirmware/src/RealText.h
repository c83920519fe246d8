#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>

class SimpleType;

/// Texts of floating-point numbers, read by std::from_chars and written by std::to_chars, so never
/// by the locale.
class RealText {
public:
    /// As a double, whatever type it is meant for.
    static std::optional<double> read(QStringView text);
    /// Rounded to the type. Numbers too large for it are infinite, too small ones 0; NaN is read
    /// too. Nothing where the text is no number as a whole.
    static std::optional<double> read(QStringView text, const SimpleType &type);
    /// The shortest text that reads back as the same double.
    static QString write(double value);
    /// The shortest text that reads back as the same number of the type; a number too large for the
    /// type keeps a double's text.
    static QString write(double value, const SimpleType &type);
    /// The largest finite number of the type.
    static double largest(const SimpleType &type);
};

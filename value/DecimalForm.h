#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

class SimpleType;

/// Numbers in the scaled unit: "12.50 A", and the engineering form "12.3E+6".
namespace DecimalForm {

/// How many digits are shown.
struct Places {
    /// After the point.
    int behind = 0;
    /// Of a floating-point number; 0: as many as the type holds, with `behind` of them after the
    /// point.
    quint32 significant = 0;
};

/// Of the system locale, as it was when first asked for.
const QString &systemDecimalPoint();

/// The number that the value text begins with, and one blank and the unit where there is one. The
/// point of the result is `decimalPoint`, which the value text may contain too.
/// A null type: an empty text.
QString show(const QString &valueText, const SimpleType *type, const Places &places,
    const QString &unit, const QString &decimalPoint);

/// `digits` significant digits and an exponent that is a multiple of three, once the magnitude
/// leaves the range from 0.001 to 9999999.4; "%.*G" within it, and for what is not finite. The
/// point is ".".
QString engineering(double value, quint32 digits);
/// In single precision.
QString engineering(float value, quint32 digits);

/// Drops the outer blanks and a trailing unit, which a blank must precede; makes every decimal
/// point ".". Whether the rest is a number is for the firmware to decide.
QString read(const QString &text, const QString &unit, const QString &decimalPoint);

} // namespace DecimalForm

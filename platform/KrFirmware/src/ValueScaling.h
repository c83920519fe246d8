#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

class SimpleType;

/// The two directions between native and scaled texts.
///
///     value = native * factor                    without a full-scale value
///     value = native * factor / fullScale        with one
///
/// **Unit** native: one step of the drive's own number; value: the scaled measuring unit. The
/// factor is scaled units per native step, or scaled units at full scale where there is a
/// full-scale value. It counts as the shortest decimal that reads back as its 32-bit float (0.1f is
/// 0.1). A factor that is absent or 0 switches scaling off, whatever the full-scale value.
///
/// Integer types: exact decimal arithmetic. A quotient that ends is written in full. One that does
/// not end is rounded, half away from zero, to the fewest decimals that give 17 significant digits
/// and whose last place is smaller than one native step; the error is then below half a step, so
/// that nativeText(valueText(n)) is n for every n. Floating-point types: double arithmetic, written
/// as the shortest text that reads back. Strings are never scaled.
class ValueScaling {
public:
    /// **Range** factor is a widened 32-bit float.
    ValueScaling(double factor, quint32 fullScale)
        : m_factor(factor)
        , m_fullScale(fullScale)
    {
    }

    /// "0", or digits without a leading zero after an optional "-".
    static bool isPlainInteger(QStringView text);

    /// Neither direction changes a number.
    bool isIdentity() const { return m_factor == 0 || (m_factor == 1 && m_fullScale == 0); }

    /// Native to scaled, a plain decimal for integer types. What is no native text of the type
    /// comes back unchanged.
    QString valueText(const QString &nativeText, const SimpleType &type) const;
    /// Scaled to native. A text that is no number comes back unchanged.
    /// Integer types round to the nearest whole number, half away from zero; digits beyond the 64th
    /// significant one are dropped; a result of more than 40 digits is answered as 40 nines.
    /// Without scaling nothing is rounded: a number that is whole is written plainly ("1e3" is
    /// "1000"), any other comes back unchanged.
    QString nativeText(const QString &valueText, const SimpleType &type) const;

private:
    double m_factor;
    quint32 m_fullScale;
};

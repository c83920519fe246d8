#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>

/// Numbers as text: the one place that reads and prints them. Independent of the process locale.
namespace NumberText {

/// More digits than any double has.
constexpr int MaximumPrecision = 1100;
/// Of a negative precision.
constexpr int DefaultPrecision = 6;

/// Whether the whole text, blanks around it apart, is one decimal number; "inf" and "nan" are.
bool isNumber(QStringView text);

/// Reads like C `strtod` in the "C" locale: leading blanks, a sign, then the longest start that is
/// a decimal number, a hexadecimal one ("0x1.8p3"), "inf", "infinity" or "nan"; 0 where there is
/// none. Beyond the range the result is infinite, below it 0.
double toDouble(QStringView text);

/// Appends what C `printf` prints for "%.*f" in the "C" locale.
/// **Range** of the precision: at most MaximumPrecision, a negative one is DefaultPrecision.
void appendFixed(QString &out, double value, int precision);

/// Appends what C `printf` prints for "%.*G". Precision as above.
void appendGeneral(QString &out, double value, int precision);

/// The shortest text that reads back as the same number; "inf" and "nan" where it is none.
QString shortest(double value);
QString shortest(float value);

/// Appends the number in decimal.
void appendInteger(QString &out, qint64 value);
QString integer(qint64 value);
QString integer(quint64 value);

/// A whole text that is one decimal integer, blanks around it allowed; empty for any other text and
/// for a number beyond 64 bits.
std::optional<qint64> toInteger(QStringView text);

/// As toInteger(), without sign.
std::optional<quint64> toUnsigned(QStringView text);

/// Takes the decimal digits at the start off the text, at most that many, and tells their number;
/// empty where there is none. **Range** of the most digits: 1 to 9, so that 32 bits hold them.
std::optional<quint32> takeDigits(QStringView &text, qsizetype mostDigits);

/// The 64 bits of a decimal integer, of a negative one in two's complement; 0 for any other text.
quint64 toBits(QStringView text);

/// A decimal integer of at most 32 bits; 0 for any other text.
quint32 toUnsigned32(QStringView text);

} // namespace NumberText

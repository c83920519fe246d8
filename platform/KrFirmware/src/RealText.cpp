#include "RealText.h"

#include "Decimal.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QVarLengthArray>

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace {

/// Twice what the longest exact text of a double needs. Longer texts are no numbers.
constexpr qsizetype LongestText = 2200;
/// "-2.2250738585072014e-308" and some more.
constexpr size_t ShortestTextSize = 40;

bool isSingle(const SimpleType &type)
{
    return type.sizeInBytes() == sizeof(float);
}

/// What std::from_chars leaves open where a number is out of its range.
double outOfRange(QStringView text)
{
    const std::optional<Decimal> number = Decimal::fromText(text);
    if (!number || number->integerDigits() <= 0)
        return 0.0;
    const double infinite = std::numeric_limits<double>::infinity();
    return text.front() == u'-' ? -infinite : infinite;
}

template <typename Real>
std::optional<double> readText(QStringView text)
{
    if (text.isEmpty() || text.size() > LongestText)
        return std::nullopt;
    QVarLengthArray<char, 64> bytes(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i].unicode() > 0x7F)
            return std::nullopt;
        bytes[i] = char(text[i].unicode());
    }

    Real value = 0;
    const char *const end = bytes.constData() + bytes.size();
    const auto [next, error] = std::from_chars(bytes.constData(), end, value);
    if (next != end || error == std::errc::invalid_argument)
        return std::nullopt;
    return error == std::errc::result_out_of_range ? outOfRange(text) : double(value);
}

template <typename Real>
QString writeShortest(Real value)
{
    std::array<char, ShortestTextSize> bytes;
    const char *const end = std::to_chars(bytes.data(), bytes.data() + bytes.size(), value).ptr;
    return QString::fromLatin1(bytes.data(), end - bytes.data());
}

} // namespace

std::optional<double> RealText::read(QStringView text)
{
    return readText<double>(text);
}

std::optional<double> RealText::read(QStringView text, const SimpleType &type)
{
    return isSingle(type) ? readText<float>(text) : readText<double>(text);
}

QString RealText::write(double value)
{
    return writeShortest(value);
}

QString RealText::write(double value, const SimpleType &type)
{
    const bool isOutOfSingle = std::isfinite(value) && std::abs(value) > largest(type);
    return isSingle(type) && !isOutOfSingle ? writeShortest(float(value)) : writeShortest(value);
}

double RealText::largest(const SimpleType &type)
{
    return isSingle(type) ? double(std::numeric_limits<float>::max())
                          : std::numeric_limits<double>::max();
}

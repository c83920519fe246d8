#include "apps/simulation/MeasuredMotion.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>
#include <cmath>

namespace {

constexpr int PlainKind = 0;
/// Beyond it a double does not name every integer.
constexpr double LargestNumber = 9007199254740992.0;

struct Range {
    double lower = -LargestNumber;
    double upper = LargestNumber;
};

Range rangeOf(const ParameterInformation &parameter, const MappedValue &value)
{
    Range range;
    const double bits = 8.0 * value.type->sizeInBytes();
    if (value.type->kind() == SimpleType::UnsignedInteger)
        range = {0.0, std::min(std::exp2(bits) - 1.0, LargestNumber)};
    else if (value.type->kind() == SimpleType::SignedInteger)
        range = {std::max(-std::exp2(bits - 1.0), -LargestNumber),
            std::min(std::exp2(bits - 1.0) - 1.0, LargestNumber)};
    bool isLimit = false;
    const ValuePlace &place = value.place;
    const double lower =
        parameter.lowerLimitText(place.livingSpace, place.element).toDouble(&isLimit);
    if (isLimit)
        range.lower = std::max(range.lower, lower);
    const double upper =
        parameter.upperLimitText(place.livingSpace, place.element).toDouble(&isLimit);
    if (isLimit)
        range.upper = std::min(range.upper, upper);
    return range;
}

double startOf(const ParameterInformation &parameter, const ValuePlace &place, bool *ok)
{
    return parameter.nativeValueText(place.livingSpace, place.element, false).toDouble(ok);
}

} // namespace

bool MeasuredMotion::isMeasured(const ParameterInformation &parameter, const MappedValue &value)
{
    if (!value.isReadOnly || value.isStored || parameter.kind(value.place.element) != PlainKind
        || value.type->kind() == SimpleType::CharacterString
        || value.type->kind() == SimpleType::ByteString)
        return false;
    bool isNumber = false;
    const double start = startOf(parameter, value.place, &isNumber);
    const Range range = rangeOf(parameter, value);
    return isNumber && start >= range.lower && start <= range.upper
        && (start + Reach <= range.upper || start - Reach >= range.lower);
}

MeasuredMotion::MeasuredMotion(const ParameterInformation &parameter, const MappedValue &value)
    : m_place(value.place)
    , m_start(startOf(parameter, value.place, nullptr))
    , m_stride(m_start + Reach <= rangeOf(parameter, value).upper ? 1.0 : -1.0)
{
}

QString MeasuredMotion::textAt(quint64 step) const
{
    const int phase = int(step % (2 * Reach));
    const int distance = phase <= Reach ? phase : 2 * Reach - phase;
    const double number = m_start + distance * m_stride;
    return number == std::floor(number) ? QString::number(qint64(number)) : QString::number(number);
}

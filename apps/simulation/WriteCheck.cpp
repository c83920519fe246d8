#include "apps/simulation/WriteCheck.h"

#include "apps/online/MappedValue.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <LmUtilities/ByteArraySupport.h>

#include <cmath>

namespace {

struct Limits {
    QString lower;
    QString upper;
};

/// A limit that is no number confines nothing.
template <typename Number>
bool isWithin(Number number, const Limits &limits, Number (QString::*read)(bool *, int) const)
{
    bool isLimit = false;
    const Number lower = (limits.lower.*read)(&isLimit, 10);
    if (isLimit && number < lower)
        return false;
    const Number upper = (limits.upper.*read)(&isLimit, 10);
    return !isLimit || number <= upper;
}

bool isWithin(double number, const Limits &limits)
{
    bool isLimit = false;
    const double lower = limits.lower.toDouble(&isLimit);
    if (isLimit && number < lower)
        return false;
    const double upper = limits.upper.toDouble(&isLimit);
    return std::isfinite(number) && (!isLimit || number <= upper);
}

bool isChoice(const ParameterInformation &parameter, const ValuePlace &place, qint64 number)
{
    const ParameterTextMap texts = parameter.selectionTexts(place.livingSpace, place.element);
    const auto keys = texts.keys();
    return keys.isEmpty()
        || std::any_of(keys.begin(), keys.end(), [number](qint64 key) { return key == number; });
}

} // namespace

bool WriteCheck::accepts(
    const ParameterInformation &parameter, const MappedValue &value, const QByteArray &bytes)
{
    using namespace LmByteArraySupport;
    const ByteArraySupport support(eByteOrder::BigEndian, bytes);
    const int size = int(value.type->sizeInBytes());
    const ValuePlace &place = value.place;
    const Limits limits {parameter.lowerLimitText(place.livingSpace, place.element),
        parameter.upperLimitText(place.livingSpace, place.element)};
    switch (value.type->kind()) {
    case SimpleType::SignedInteger: {
        const qint64 number = support.signedInteger(size);
        return isWithin<qlonglong>(number, limits, &QString::toLongLong)
            && isChoice(parameter, place, number);
    }
    case SimpleType::UnsignedInteger: {
        const quint64 number = support.unsignedInteger(size);
        return isWithin<qulonglong>(number, limits, &QString::toULongLong)
            && isChoice(parameter, place, qint64(number));
    }
    case SimpleType::FloatingPoint:
        return isWithin(
            size == int(sizeof(double)) ? support.toDouble() : double(support.toFloat()), limits);
    case SimpleType::CharacterString:
    case SimpleType::ByteString:
        return true;
    }
    return false;
}

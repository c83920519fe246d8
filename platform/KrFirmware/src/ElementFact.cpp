#include "ElementFact.h"

#include <limits>

namespace {

using enum eParameterProperty;
using enum eFactForm;
using enum eFactDefault;

constexpr qint64 MostUint16 = std::numeric_limits<quint16>::max();
constexpr qint64 MostUint32 = std::numeric_limits<quint32>::max();
constexpr qint64 LeastInt32 = std::numeric_limits<qint32>::min();
constexpr qint64 MostInt32 = std::numeric_limits<qint32>::max();
constexpr qint64 LastParameterKind = 11;
/// More places than any double has.
constexpr qint64 MostDecimals = 1100;

constexpr QLatin1StringView operator""_L1(const char *text, size_t size)
{
    return QLatin1StringView(text, qsizetype(size));
}

constexpr std::array<ElementFact, ElementFactCount> Facts {{
    {"functions"_L1, "preRead"_L1, PrereadFunctionIndex, Number, Zero, 0, MostUint16},
    {"functions"_L1, "preWrite"_L1, PrewriteFunctionIndex, Number, Zero, 0, MostUint16},
    {"functions"_L1, "postWrite"_L1, PostwriteFunctionIndex, Number, Zero, 0, MostUint16},
    {"functions"_L1, "postRead"_L1, PostreadFunctionIndex, Number, Zero, 0, MostUint16},
    {"functions"_L1, "hiding"_L1, HidingFunctionIndex, Number, Zero, 0, MostUint16},
    {"levels"_L1, "read"_L1, ReadLevel, Number, Zero, 0, MostUint16},
    {"levels"_L1, "write"_L1, WriteLevel, Number, Zero, 0, MostUint16},
    {"functions"_L1, "limit"_L1, LimitFunctionIndex, Number, Zero, 0, MostUint16},
    {"limits"_L1, "lower"_L1, LowerLimitValue, Limit, None, 0, 0},
    {"limits"_L1, "upper"_L1, UpperLimitValue, Limit, None, 0, 0},
    {""_L1, "memoryAllocation"_L1, MemoryAllocation, Number, Zero, 0, MostUint16},
    {""_L1, "kind"_L1, ParameterKind, SignedNumber, Zero, 0, LastParameterKind},
    {""_L1, "enableOffRequired"_L1, EnableOffRequired, Number, Zero, 0, MostUint16},
    {""_L1, "processDataMappable"_L1, ProcessDataMappable, Number, Zero, 0, MostUint16},
    {""_L1, "automaticOnlineUpdate"_L1, AutomaticOnlineUpdate, Number, Zero, 0, MostUint16},
    {""_L1, "noWrite"_L1, NoWrite, Number, Zero, 0, MostUint16},
    {""_L1, "dataType"_L1, Datatype, DataType, None, 0, 0},
    {""_L1, "choices"_L1, ChoiceMap, Choices, None, LeastInt32, MostInt32},
    {"units"_L1, "scaled"_L1, ScaledMeasuringUnit, Unit, EmptyText, 0, 0},
    {"units"_L1, "native"_L1, NativeMeasuringUnit, Unit, EmptyText, 0, 0},
    {"scaling"_L1, "factor"_L1, ScalingFactor, Real, None, 0, 0},
    {"functions"_L1, "scaling"_L1, ScalingFunctionIndex, Number, Zero, 0, MostUint16},
    {"scaling"_L1, "fullScale"_L1, FullScaleValue, Number, None, 0, MostUint32},
    {"decimals"_L1, "behind"_L1, DecimalPlacesBehind, SignedNumber, Zero, 0, MostDecimals},
    {"decimals"_L1, "significant"_L1, DecimalPlacesSignificant, Number, Zero, 0, MostDecimals},
    {""_L1, "editStartStepSize"_L1, EditStartStepSize, Real, None, 0, 0},
    {"units"_L1, "fieldbus"_L1, FieldbusMeasuringUnit, Unit, EmptyText, 0, 0},
    {"fieldbus"_L1, "factor"_L1, FieldbusScalingFactor, Real, None, 0, 0},
    {"fieldbus"_L1, "decimals"_L1, FieldbusDecimalPlacesBehind, SignedNumber, None, 0,
        MostDecimals},
    {"timeouts"_L1, "read"_L1, AdditionalReadTimeout, Number, Zero, 0, MostUint32},
    {"timeouts"_L1, "write"_L1, AdditionalWriteTimeout, Number, Zero, 0, MostUint32},
    {""_L1, "cyclicOnlineUpdateRate"_L1, CyclicOnlineUpdateRate, Number, Zero, 0, MostUint32},
    {"dependencies"_L1, "limit"_L1, LimitDependency, SignedNumber, Zero, LeastInt32, MostInt32},
    {"dependencies"_L1, "scaling"_L1, ScalingDependency, SignedNumber, Zero, LeastInt32, MostInt32},
    {"dependencies"_L1, "postWrite"_L1, PostwriteDependency, SignedNumber, Zero, LeastInt32,
        MostInt32},
    {"dependencies"_L1, "preRead"_L1, PrereadDependency, SignedNumber, Zero, LeastInt32, MostInt32},
    {"dependencies"_L1, "postRead"_L1, PostreadDependency, SignedNumber, Zero, LeastInt32,
        MostInt32},
    {"dependencies"_L1, "preWrite"_L1, PrewriteDependency, SignedNumber, Zero, LeastInt32,
        MostInt32},
    {"dependencies"_L1, "hiding"_L1, HidingDependency, SignedNumber, Zero, LeastInt32, MostInt32},
    {"dependencies"_L1, "measuringUnit"_L1, MeasuringUnitDependency, SignedNumber, Zero, LeastInt32,
        MostInt32},
    {""_L1, "scopeChoice"_L1, IsScopeChoice, Number, Zero, 0, MostUint16},
    {"commonTexts"_L1, "choices"_L1, ChoiceMapCommonTextIndex, NumberList, None, 0, MostUint16},
    {"commonTexts"_L1, "scaledUnit"_L1, ScaledMeasuringUnitCommonTextIndex, Number, None, 0,
        MostUint16},
    {"commonTexts"_L1, "nativeUnit"_L1, NativeMeasuringUnitCommonTextIndex, Number, None, 0,
        MostUint16},
    {"commonTexts"_L1, "fieldbusUnit"_L1, FieldbusMeasuringUnitCommonTextIndex, Number, None, 0,
        MostUint16},
    {""_L1, "onlineOrder"_L1, OnlineOrder, Number, Zero, 0, MostUint32},
    {""_L1, "shownOffline"_L1, ShownOffline, Number, None, 0, MostUint16},
    {""_L1, "descriptionReference"_L1, DescriptionReference, TextOrNumber, None, 0, MostUint32},
}};

} // namespace

std::span<const ElementFact, ElementFactCount> elementFacts()
{
    return Facts;
}

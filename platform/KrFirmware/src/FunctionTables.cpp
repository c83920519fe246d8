#include "FunctionTables.h"

#include "FindingText.h"
#include "FunctionEvaluator.h"

#include <algorithm>
#include <limits>

namespace {

using enum eParameterProperty;

struct FunctionKey {
    QLatin1StringView key;
    eParameterProperty property;
};

constexpr FunctionKey FunctionKeys[] = {
    {QLatin1StringView("limit"), LimitFunctionIndex},
    {QLatin1StringView("scaling"), ScalingFunctionIndex},
    {QLatin1StringView("hiding"), HidingFunctionIndex},
    {QLatin1StringView("preRead"), PrereadFunctionIndex},
    {QLatin1StringView("preWrite"), PrewriteFunctionIndex},
    {QLatin1StringView("postRead"), PostreadFunctionIndex},
    {QLatin1StringView("postWrite"), PostwriteFunctionIndex},
};

constexpr eParameterProperty SystemStringProperties[] = {
    ChoiceMapCommonTextIndex,
    ScaledMeasuringUnitCommonTextIndex,
    NativeMeasuringUnitCommonTextIndex,
    FieldbusMeasuringUnitCommonTextIndex,
};

constexpr qint32 LastIndex = std::numeric_limits<quint16>::max();

bool namesSystemString(eParameterProperty property)
{
    return std::find(std::begin(SystemStringProperties), std::end(SystemStringProperties), property)
        != std::end(SystemStringProperties);
}

/// One text, or one for each line.
QString programText(const JsonValue &value, const DescriptionReader &reader)
{
    if (value.toList())
        return reader.textList(value).join(u'\n');
    if (!value.toText())
        reader.findings().refuse(value, FindingText::tr("expected a text or a list of lines"));
    return value.toText() ? *value.toText() : QString();
}

template <typename Value>
quint16 lastKey(const QMap<qint32, Value> &table)
{
    return table.isEmpty() ? 0 : quint16(table.lastKey());
}

} // namespace

void FunctionTables::readFunctions(const JsonValue &functions, const DescriptionReader &reader)
{
    reader.expectKeys(functions,
        {FunctionKeys[0].key, FunctionKeys[1].key, FunctionKeys[2].key, FunctionKeys[3].key,
            FunctionKeys[4].key, FunctionKeys[5].key, FunctionKeys[6].key});
    FunctionEvaluator evaluator;
    for (const FunctionKey &kind : FunctionKeys) {
        const JsonValue *table = functions.member(kind.key);
        if (!table)
            continue;
        for (const JsonValue::Member &member : reader.object(*table)) {
            const std::optional<qint32> index = reader.numberKey(member, 1, LastIndex);
            const QString text = programText(member.value, reader);
            const QString reason =
                index ? evaluator.add(kind.property, quint16(*index), text) : QString();
            if (!reason.isEmpty())
                reader.findings().refuse(member.value, reason);
            // The first error counts; what stands behind it needs no second look.
            if (reader.findings().hasError())
                return;
            m_functions[kind.property].insert(*index, text);
        }
    }
}

void FunctionTables::readSystemStrings(const JsonValue &strings, const DescriptionReader &reader)
{
    for (const JsonValue::Member &member : reader.object(strings)) {
        const std::optional<qint32> number = reader.numberKey(member, 1, LastIndex);
        if (number)
            m_systemStrings.insert(*number, reader.multilingualText(member.value));
    }
}

quint16 FunctionTables::maximum(eParameterProperty indexProperty) const
{
    if (namesSystemString(indexProperty))
        return lastKey(m_systemStrings);
    const auto table = m_functions.find(indexProperty);
    return table == m_functions.end() ? 0 : lastKey(table->second);
}

std::unique_ptr<FunctionEvaluator> FunctionTables::makeEvaluator() const
{
    if (m_functions.empty())
        return nullptr;
    auto evaluator = std::make_unique<FunctionEvaluator>();
    for (const auto &[kind, table] : m_functions) {
        for (auto it = table.cbegin(); it != table.cend(); ++it)
            evaluator->add(kind, quint16(it.key()), it.value());
    }
    return evaluator;
}

bool FunctionTables::isThere(eParameterProperty indexProperty, qint64 index) const
{
    if (index != qint32(index))
        return false;
    if (namesSystemString(indexProperty))
        return m_systemStrings.contains(qint32(index));
    const auto table = m_functions.find(indexProperty);
    return table != m_functions.end() && table->second.contains(qint32(index));
}

void FunctionTables::checkIndex(eParameterProperty indexProperty, qint64 index, const JsonValue &at,
    DescriptionFindings &findings) const
{
    if (index == 0 || isThere(indexProperty, index))
        return;
    const QString text = namesSystemString(indexProperty)
        ? FindingText::tr("there is no system string %1; the highest is %2")
        : FindingText::tr("there is no function %1; the highest is %2");
    findings.warn(at, text.arg(index).arg(maximum(indexProperty)));
}

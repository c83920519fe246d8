#include "IndexedFunctions.h"

#include "FindingText.h"
#include "FunctionAnswer.h"
#include "FunctionCall.h"
#include "FunctionTables.h"
#include "NativeValue.h"
#include "RunningChange.h"

#include <KrDatatype/SimpleType.h>
#include <KrFirmware/CallbackProvider.h>
#include <KrParameterInstance/ParameterData.h>
#include <KrSystem/System.h>

namespace {

using enum eParameterProperty;

/// Failures beyond this count within one question, and within one change, are not reported.
constexpr qsizetype MostFailures = 16;
/// Characters of a text that a message names.
constexpr qsizetype MostShown = 40;

bool isNil(const FunctionValue &value)
{
    return std::holds_alternative<std::monostate>(value);
}

/// A value as a message names it.
QString shown(const FunctionValue &value)
{
    if (const FunctionValueType *type = std::get_if<FunctionValueType>(&value))
        return FindingText::tr("a %1").arg(QLatin1StringView(type->name));
    if (const QString *text = std::get_if<QString>(&value))
        return u'"' + text->left(MostShown) + u'"';
    if (const bool *truth = std::get_if<bool>(&value))
        return *truth ? QStringLiteral("true") : QStringLiteral("false");
    return NativeValue::write(value);
}

} // namespace

IndexedFunctions::IndexedFunctions(const FunctionTables &tables)
    : m_evaluator(tables.makeEvaluator())
{
}

void IndexedFunctions::setCallbackProvider(CallbackProvider *callbacks)
{
    m_callbacks = callbacks;
    if (m_evaluator)
        m_evaluator->setCallbackProvider(callbacks);
}

std::array<QString, 2> IndexedFunctions::limits(const ParameterData &data, quint16 element)
{
    if (!m_evaluator)
        return {};
    const quint16 index = data.limitFunctionIndex(element);
    const FunctionOutcome answer = outcome(LimitFunctionIndex, index, data, element);
    const SimpleType *const type = answer.hasReturned() ? data.simpleType(element) : nullptr;
    if (!type)
        return {};
    std::array<QString, 2> result;
    for (size_t i = 0; i < result.size(); ++i) {
        const FunctionValue &value = answer.values[i];
        if (isNil(value))
            continue;
        const auto side = i == 0 ? FunctionAnswer::eLimit::Lower : FunctionAnswer::eLimit::Upper;
        const std::optional<QString> text = FunctionAnswer::limit(value, *type, side);
        if (!text) {
            note(LimitFunctionIndex, index, data, element,
                FindingText::tr("expected a number or nil as limit, not %1").arg(shown(value)));
            return {};
        }
        result[i] = *text;
    }
    return result;
}

std::optional<ValueScaling> IndexedFunctions::scaling(const ParameterData &data, quint16 element)
{
    if (!m_evaluator)
        return std::nullopt;
    const quint16 index = data.scalingFunctionIndex(element);
    const FunctionOutcome answer = outcome(ScalingFunctionIndex, index, data, element);
    const auto &[factorValue, fullScaleValue] = answer.values;
    if (!answer.hasReturned() || isNil(factorValue))
        return std::nullopt;
    const std::optional<double> factor = FunctionAnswer::scalingFactor(factorValue);
    if (!factor) {
        note(ScalingFunctionIndex, index, data, element,
            FindingText::tr("expected a factor other than 0 that 32 bits hold, not %1")
                .arg(shown(factorValue)));
        return std::nullopt;
    }
    const std::optional<quint32> fullScale =
        isNil(fullScaleValue) ? 0 : FunctionAnswer::fullScale(fullScaleValue);
    if (!fullScale) {
        note(ScalingFunctionIndex, index, data, element,
            FindingText::tr("expected a full-scale value from 0 to 4294967295, not %1")
                .arg(shown(fullScaleValue)));
        return std::nullopt;
    }
    return ValueScaling(*factor, *fullScale);
}

bool IndexedFunctions::isHidden(const ParameterData &data, quint16 element)
{
    if (!m_evaluator)
        return false;
    const quint16 index = data.hidingFunctionIndex(element);
    const FunctionOutcome answer = outcome(HidingFunctionIndex, index, data, element);
    const FunctionValue &value = answer.values[0];
    if (!answer.hasReturned() || isNil(value))
        return false;
    if (const bool *isHidden = std::get_if<bool>(&value))
        return *isHidden;
    note(HidingFunctionIndex, index, data, element,
        FindingText::tr("expected true, false or nil, not %1").arg(shown(value)));
    return false;
}

void IndexedFunctions::run(eFunctionKind kind, const ParameterData &data, quint16 element)
{
    if (!m_evaluator)
        return;
    const auto index = [&]() -> quint16 {
        switch (kind) {
        case eFunctionKind::Preread:
            return data.prereadFunctionIndex(element);
        case eFunctionKind::Prewrite:
            return data.prewriteFunctionIndex(element);
        case eFunctionKind::Postwrite:
            return data.postwriteFunctionIndex(element);
        case eFunctionKind::Postread:
            return data.postreadFunctionIndex(element);
        }
        return 0;
    };
    // The kinds are numbered as the properties that hold their indices.
    outcome(eParameterProperty(kind), index(), data, element);
}

void IndexedFunctions::report()
{
    if (m_failures.isEmpty() || m_evaluator->isRunning())
        return;
    const QStringList failures = std::exchange(m_failures, {});
    const QString title = m_title;
    const QString change = m_change;
    for (const QString &text : failures)
        tell(title, change, text);
}

void IndexedFunctions::tell(const QString &title, const QString &change, const QString &text)
{
    if (change.isEmpty()) {
        System::addCriticalMessage(title, text);
        return;
    }
    if (std::exchange(m_toldChange, change) != change)
        m_toldOfChange.clear();
    if (m_toldOfChange.size() >= MostFailures || m_toldOfChange.contains(text))
        return;
    m_toldOfChange.append(text);
    const bool isLast = m_toldOfChange.size() == MostFailures;
    System::addCriticalMessage(title, text);
    if (isLast) {
        System::addCriticalMessage(
            title, FindingText::tr("further failures of functions are not told for this change"));
    }
}

FunctionOutcome IndexedFunctions::outcome(
    eParameterProperty kind, quint16 index, const ParameterData &data, quint16 element)
{
    const int function = m_evaluator->find(kind, index);
    if (function == FunctionEvaluator::NoFunction)
        return {};
    FunctionCall call(kind, index, data, element);
    FunctionOutcome outcome = m_evaluator->run(function, call);
    if (outcome.end == FunctionOutcome::eEnd::Failed)
        note(call, outcome.reason);
    return outcome;
}

void IndexedFunctions::note(FunctionCall &call, const QString &reason)
{
    const QString text = call.name() + QLatin1StringView(": ") + reason;
    if (m_callbacks) {
        m_title = m_callbacks->containerText(QStringLiteral("domain"));
        m_change = RunningChange::of(m_callbacks);
    }
    if (m_failures.size() < MostFailures && !m_failures.contains(text))
        m_failures.append(text);
}

void IndexedFunctions::note(eParameterProperty kind, quint16 index, const ParameterData &data,
    quint16 element, const QString &reason)
{
    FunctionCall call(kind, index, data, element);
    note(call, reason);
}

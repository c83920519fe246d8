#include "IndexedFunctions.h"

#include "FunctionAnswer.h"
#include "FunctionCall.h"
#include "FunctionTables.h"

#include <KrDatatype/SimpleType.h>
#include <KrFirmware/CallbackProvider.h>
#include <KrParameterInstance/ParameterData.h>
#include <KrSystem/System.h>

namespace {

using enum eParameterProperty;

/// Failures beyond this count within one question are not reported.
constexpr qsizetype MostFailures = 16;

/// A value as a message names it.
QString shown(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return QStringLiteral("nil");
    case QMetaType::QByteArray:
        return QStringLiteral("a ") + QString::fromLatin1(value.toByteArray());
    case QMetaType::QString:
        return u'"' + value.toString().left(40) + u'"';
    default:
        return value.toString();
    }
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
    const auto answer = outcome(LimitFunctionIndex, index, data, element);
    const SimpleType *const type = answer ? data.simpleType(element) : nullptr;
    if (!type)
        return {};
    std::array<QString, 2> result;
    for (size_t i = 0; i < result.size(); ++i) {
        const QVariant &value = answer->values[i];
        if (!value.isValid())
            continue;
        const auto side = i == 0 ? FunctionAnswer::eLimit::Lower : FunctionAnswer::eLimit::Upper;
        const std::optional<QString> text = FunctionAnswer::limit(value, *type, side);
        if (!text) {
            note(LimitFunctionIndex, index, data, element,
                QStringLiteral("expected a number or nil as limit, not %1").arg(shown(value)));
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
    const auto answer = outcome(ScalingFunctionIndex, index, data, element);
    if (!answer || !answer->values[0].isValid())
        return std::nullopt;
    const auto [factorValue, fullScaleValue] = answer->values;
    const std::optional<double> factor = FunctionAnswer::scalingFactor(factorValue);
    if (!factor) {
        note(ScalingFunctionIndex, index, data, element,
            QStringLiteral("expected a factor other than 0 that 32 bits hold, not %1")
                .arg(shown(factorValue)));
        return std::nullopt;
    }
    const std::optional<quint32> fullScale =
        fullScaleValue.isValid() ? FunctionAnswer::fullScale(fullScaleValue) : 0;
    if (!fullScale) {
        note(ScalingFunctionIndex, index, data, element,
            QStringLiteral("expected a full-scale value from 0 to 4294967295, not %1")
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
    const auto answer = outcome(HidingFunctionIndex, index, data, element);
    if (!answer || !answer->values[0].isValid())
        return false;
    if (answer->values[0].typeId() == QMetaType::Bool)
        return answer->values[0].toBool();
    note(HidingFunctionIndex, index, data, element,
        QStringLiteral("expected true, false or nil, not %1").arg(shown(answer->values[0])));
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
    const QString title =
        m_callbacks ? m_callbacks->containerText(QStringLiteral("domain")) : QString();
    for (const QString &text : failures)
        System::addCriticalMessage(title, text);
}

std::optional<FunctionOutcome> IndexedFunctions::outcome(
    eParameterProperty kind, quint16 index, const ParameterData &data, quint16 element)
{
    if (index == 0 || !m_evaluator->contains(kind, index))
        return std::nullopt;
    FunctionCall call(kind, index, data, element);
    FunctionOutcome outcome = m_evaluator->run(call);
    if (outcome.end == FunctionOutcome::eEnd::Returned)
        return outcome;
    if (outcome.end == FunctionOutcome::eEnd::Failed)
        note(call, outcome.reason);
    return std::nullopt;
}

void IndexedFunctions::note(FunctionCall &call, const QString &reason)
{
    const QString text = call.name() + QLatin1StringView(": ") + reason;
    if (m_failures.size() < MostFailures && !m_failures.contains(text))
        m_failures.append(text);
}

void IndexedFunctions::note(eParameterProperty kind, quint16 index, const ParameterData &data,
    quint16 element, const QString &reason)
{
    FunctionCall call(kind, index, data, element);
    note(call, reason);
}

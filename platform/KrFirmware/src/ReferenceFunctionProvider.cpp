#include "ReferenceFunctionProvider.h"

#include "ValueCheck.h"
#include "ValueCorrection.h"

#include <KrParameterInstance/ParameterData.h>

namespace {

/// The two parameter kinds whose values are keys of the choice map.
bool isChoice(qint32 parameterKind)
{
    return parameterKind == 1 || parameterKind == 2;
}

} // namespace

void ReferenceFunctionProvider::setCallbackProvider(CallbackProvider *callbacks)
{
    m_functions.setCallbackProvider(callbacks);
}

quint32 ReferenceFunctionProvider::checkValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    return answer([&] {
        const SimpleType *type = data->simpleType(element);
        if (!type)
            return quint32(eCheckResult::Acceptable);
        return quint32(ValueCheck::result(nativeText, *type, bounds(*data, element)));
    });
}

QString ReferenceFunctionProvider::correctValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    return answer([&] {
        const SimpleType *type = data->simpleType(element);
        return type ? ValueCorrection::corrected(nativeText, *type, bounds(*data, element))
                    : nativeText;
    });
}

QString ReferenceFunctionProvider::valueText(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    return answer([&] {
        // Every question costs a property look-up: most elements are answered by the first one.
        const ValueScaling asked = scaling(*data, element);
        if (asked.isIdentity())
            return nativeText;
        const SimpleType *type = data->simpleType(element);
        return type ? asked.valueText(nativeText, *type) : nativeText;
    });
}

QString ReferenceFunctionProvider::nativeText(
    const QString &valueText, const ParameterData *data, quint16 element)
{
    return answer([&] {
        const ValueScaling asked = scaling(*data, element);
        if (asked.isIdentity() && ValueScaling::isPlainInteger(valueText))
            return valueText;
        const SimpleType *type = data->simpleType(element);
        return type ? asked.nativeText(valueText, *type) : valueText;
    });
}

QString ReferenceFunctionProvider::lowerLimit(const ParameterData *data, quint16 element)
{
    return answer([&] {
        const QString limit = m_functions.limits(*data, element)[0];
        return limit.isNull() ? data->lowerLimitValue(element) : limit;
    });
}

QString ReferenceFunctionProvider::upperLimit(const ParameterData *data, quint16 element)
{
    return answer([&] {
        const QString limit = m_functions.limits(*data, element)[1];
        return limit.isNull() ? data->upperLimitValue(element) : limit;
    });
}

bool ReferenceFunctionProvider::isHidden(const ParameterData *data, quint16 element)
{
    return answer([&] { return m_functions.isHidden(*data, element); });
}

void ReferenceFunctionProvider::runFunction(
    eFunctionKind kind, const ParameterData *data, quint16 element)
{
    m_functions.run(kind, *data, element);
    m_functions.report();
}

ValueBounds ReferenceFunctionProvider::bounds(const ParameterData &data, quint16 element)
{
    const auto [lower, upper] = m_functions.limits(data, element);
    ValueBounds result;
    result.lowerLimit = lower.isNull() ? data.lowerLimitValue(element) : lower;
    result.upperLimit = upper.isNull() ? data.upperLimitValue(element) : upper;
    if (isChoice(data.kind(element)))
        result.choiceKeys = data.choiceMapKeys(element);
    return result;
}

ValueScaling ReferenceFunctionProvider::scaling(const ParameterData &data, quint16 element)
{
    if (const std::optional<ValueScaling> own = m_functions.scaling(data, element))
        return *own;
    const double factor = data.scalingFactor(element);
    return factor == 0 ? ValueScaling(0, 0) : ValueScaling(factor, data.fullScaleValue(element));
}

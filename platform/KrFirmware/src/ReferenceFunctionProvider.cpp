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

void ReferenceFunctionProvider::setCallbackProvider(CallbackProvider *)
{
    // Every answer comes from the element's own properties.
}

quint32 ReferenceFunctionProvider::checkValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    const SimpleType *type = data->simpleType(element);
    if (!type)
        return quint32(eCheckResult::Acceptable);
    return quint32(ValueCheck::result(nativeText, *type, bounds(*data, element)));
}

QString ReferenceFunctionProvider::correctValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    const SimpleType *type = data->simpleType(element);
    return type ? ValueCorrection::corrected(nativeText, *type, bounds(*data, element))
                : nativeText;
}

QString ReferenceFunctionProvider::valueText(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    // Every question costs a property look-up: most elements are answered by the first one.
    const ValueScaling asked = scaling(*data, element);
    if (asked.isIdentity())
        return nativeText;
    const SimpleType *type = data->simpleType(element);
    return type ? asked.valueText(nativeText, *type) : nativeText;
}

QString ReferenceFunctionProvider::nativeText(
    const QString &valueText, const ParameterData *data, quint16 element)
{
    const ValueScaling asked = scaling(*data, element);
    if (asked.isIdentity() && ValueScaling::isPlainInteger(valueText))
        return valueText;
    const SimpleType *type = data->simpleType(element);
    return type ? asked.nativeText(valueText, *type) : valueText;
}

QString ReferenceFunctionProvider::lowerLimit(const ParameterData *data, quint16 element)
{
    return data->lowerLimitValue(element);
}

QString ReferenceFunctionProvider::upperLimit(const ParameterData *data, quint16 element)
{
    return data->upperLimitValue(element);
}

bool ReferenceFunctionProvider::isHidden(const ParameterData *, quint16)
{
    return false;
}

void ReferenceFunctionProvider::runFunction(eFunctionKind, const ParameterData *, quint16)
{
    // The functions of this firmware have no effect of their own.
}

ValueBounds ReferenceFunctionProvider::bounds(const ParameterData &data, quint16 element)
{
    ValueBounds result;
    result.lowerLimit = lowerLimit(&data, element);
    result.upperLimit = upperLimit(&data, element);
    if (isChoice(data.kind(element)))
        result.choiceKeys = data.choiceMapKeys(element);
    return result;
}

ValueScaling ReferenceFunctionProvider::scaling(const ParameterData &data, quint16 element)
{
    const double factor = data.scalingFactor(element);
    return factor == 0 ? ValueScaling(0, 0) : ValueScaling(factor, data.fullScaleValue(element));
}

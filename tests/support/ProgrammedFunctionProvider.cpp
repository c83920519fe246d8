#include "tests/support/ProgrammedFunctionProvider.h"

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterInstance/ParameterData.h>

namespace {

QString callText(const char *operation, const ParameterData *data, quint16 element)
{
    return QLatin1String(operation) + u' '
        + ParameterAddress(data->addressNumber(element)).toSortableText();
}

QString callText(
    const char *operation, const ParameterData *data, quint16 element, const QString &text)
{
    return callText(operation, data, element) + u' ' + text;
}

} // namespace

ProgrammedFunctionProvider::ProgrammedFunctionProvider(
    std::shared_ptr<ProgrammedFunctions> functions)
    : m_functions(std::move(functions))
{
    ++m_functions->providerCount;
}

ProgrammedFunctionProvider::~ProgrammedFunctionProvider()
{
    --m_functions->providerCount;
}

void ProgrammedFunctionProvider::setCallbackProvider(CallbackProvider *callbacks)
{
    m_functions->callbacks = callbacks;
}

// A function may have the provider destroyed: each operation holds the functions for its own call.

quint32 ProgrammedFunctionProvider::checkValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("checkValue", data, element, nativeText));
    const ProgrammedFunctions::Code answer = functions->checkValue;
    return answer ? answer(nativeText, *data, element) : 0;
}

QString ProgrammedFunctionProvider::correctValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("correctValue", data, element, nativeText));
    const ProgrammedFunctions::Text answer = functions->correctValue;
    return answer ? answer(nativeText, *data, element) : nativeText;
}

QString ProgrammedFunctionProvider::valueText(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("valueText", data, element, nativeText));
    const ProgrammedFunctions::Text answer = functions->valueText;
    return answer ? answer(nativeText, *data, element) : nativeText;
}

QString ProgrammedFunctionProvider::nativeText(
    const QString &valueText, const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("nativeText", data, element, valueText));
    const ProgrammedFunctions::Text answer = functions->nativeText;
    return answer ? answer(valueText, *data, element) : valueText;
}

QString ProgrammedFunctionProvider::lowerLimit(const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("lowerLimit", data, element));
    const ProgrammedFunctions::Limit answer = functions->lowerLimit;
    return answer ? answer(*data, element) : QString();
}

QString ProgrammedFunctionProvider::upperLimit(const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("upperLimit", data, element));
    const ProgrammedFunctions::Limit answer = functions->upperLimit;
    return answer ? answer(*data, element) : QString();
}

bool ProgrammedFunctionProvider::isHidden(const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("isHidden", data, element));
    const ProgrammedFunctions::Question answer = functions->isHidden;
    return answer && answer(*data, element);
}

void ProgrammedFunctionProvider::runFunction(
    eFunctionKind kind, const ParameterData *data, quint16 element)
{
    const std::shared_ptr<ProgrammedFunctions> functions = m_functions;
    functions->calls.append(callText("runFunction", data, element, QString::number(quint32(kind))));
    const ProgrammedFunctions::Action act = functions->runFunction;
    if (act)
        act(kind, *data, element);
}

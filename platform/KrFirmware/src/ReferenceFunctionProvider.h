#pragma once

#include "IndexedFunctions.h"

#include <KrFirmware/ParameterFunctionProvider.h>

/// Runs a device's functions from what the parameter's properties say, and the functions that the
/// description defines. An element of unknown data type takes every text as it stands.
class ReferenceFunctionProvider final : public ParameterFunctionProvider {
public:
    explicit ReferenceFunctionProvider(const FunctionTables &tables)
        : m_functions(tables)
    {
    }

    void setCallbackProvider(CallbackProvider *callbacks) override;

    quint32 checkValue(
        const QString &nativeText, const ParameterData *data, quint16 element) override;
    QString correctValue(
        const QString &nativeText, const ParameterData *data, quint16 element) override;
    QString valueText(
        const QString &nativeText, const ParameterData *data, quint16 element) override;
    QString nativeText(
        const QString &valueText, const ParameterData *data, quint16 element) override;
    QString lowerLimit(const ParameterData *data, quint16 element) override;
    QString upperLimit(const ParameterData *data, quint16 element) override;
    bool isHidden(const ParameterData *data, quint16 element) override;
    void runFunction(eFunctionKind kind, const ParameterData *data, quint16 element) override;

private:
    /// The answer of a question, after whose end the failures are reported.
    template <typename Question>
    auto answer(Question question)
    {
        const auto result = question();
        m_functions.report();
        return result;
    }

    ValueBounds bounds(const ParameterData &data, quint16 element);
    ValueScaling scaling(const ParameterData &data, quint16 element);

    IndexedFunctions m_functions;
};

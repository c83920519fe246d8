#pragma once

#include "ValueBounds.h"
#include "ValueScaling.h"

#include <KrFirmware/ParameterFunctionProvider.h>

/// Runs a device's functions from what the parameter's properties say, the same for every device.
/// An element of unknown data type takes every text as it stands.
class ReferenceFunctionProvider final : public ParameterFunctionProvider {
public:
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
    ValueBounds bounds(const ParameterData &data, quint16 element);
    static ValueScaling scaling(const ParameterData &data, quint16 element);
};

#pragma once

#include <KrFirmware/KrFirmwareExport.h>
#include <KrFirmware/eFunctionKind.h>

#include <QtCore/QString>

class CallbackProvider;
class ParameterData;

/// The firmware's functions, run on the host side for one container.
///
/// Three arguments name the value at hand: its text, the record's read-only view (borrowed for the
/// call, never null) and the element. Native texts are plain decimals or plain texts as the drive
/// holds them; value texts are in the scaled unit.
class KrFirmware_EXPORT ParameterFunctionProvider {
public:
    virtual ~ParameterFunctionProvider();

    /// **Owner** the container, which outlives the provider. Null: no way back.
    virtual void setCallbackProvider(CallbackProvider *callbacks) = 0;

    /// 0 acceptable, 2 below the lower limit, 3 above the upper limit, any other number not
    /// acceptable.
    virtual quint32 checkValue(
        const QString &nativeText, const ParameterData *data, quint16 element) = 0;
    /// The acceptable native text closest to the given one. A text that is no number where a number
    /// is asked for is corrected to itself, so that a rejection names what was typed.
    virtual QString correctValue(
        const QString &nativeText, const ParameterData *data, quint16 element) = 0;
    /// Native to scaled: value = native * factor, divided by the full-scale value where there is one
    /// (properties 20 and 22). **Unit** of the value: the scaled measuring unit, of the native number
    /// one step of the drive.
    virtual QString valueText(
        const QString &nativeText, const ParameterData *data, quint16 element) = 0;
    /// Scaled to native. A text that is no number comes back unchanged.
    virtual QString nativeText(
        const QString &valueText, const ParameterData *data, quint16 element) = 0;
    /// Native texts; empty where there is no limit.
    virtual QString lowerLimit(const ParameterData *data, quint16 element) = 0;
    virtual QString upperLimit(const ParameterData *data, quint16 element) = 0;
    virtual bool isHidden(const ParameterData *data, quint16 element) = 0;
    virtual void runFunction(eFunctionKind kind, const ParameterData *data, quint16 element) = 0;
};

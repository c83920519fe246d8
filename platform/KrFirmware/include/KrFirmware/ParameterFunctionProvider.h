#pragma once

#include <KrFirmware/KrFirmwareExport.h>
#include <KrFirmware/eFunctionKind.h>

#include <QtCore/QString>

#include <optional>
#include <utility>

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
    /// Lower and upper limit, for whoever needs both, where one question answers the two. Nothing:
    /// they are to be asked for one by one.
    virtual std::optional<std::pair<QString, QString>> limits(
        const ParameterData *data, quint16 element);

    /// Stand around a change of a value and all that follows from it, so that what its functions
    /// use together can be bounded. They nest.
    virtual void beginChange();
    virtual void endChange();
};

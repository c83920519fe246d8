#pragma once

#include <KrFirmware/ParameterFunctionProvider.h>

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <functional>
#include <memory>

class CallbackProvider;
class ParameterData;

/// What a ProgrammedFunctionProvider answers and what it was asked. Outlives the provider, so that a test
/// may read it after the provider is gone. A function that is not set answers like no firmware:
/// every text is acceptable, correct and the same in both forms, there is no limit, nothing is
/// hidden.
struct ProgrammedFunctions {
    using Code = std::function<quint32(const QString &, const ParameterData &, quint16)>;
    using Text = std::function<QString(const QString &, const ParameterData &, quint16)>;
    using Limit = std::function<QString(const ParameterData &, quint16)>;
    using Question = std::function<bool(const ParameterData &, quint16)>;
    using Action = std::function<void(eFunctionKind, const ParameterData &, quint16)>;

    Code checkValue;
    Text correctValue;
    Text valueText;
    Text nativeText;
    Limit lowerLimit;
    Limit upperLimit;
    Question isHidden;
    Action runFunction;

    /// "operation address text": the sortable address, and where the operation has a text that.
    QStringList calls;
    /// Null before the provider was bound and after it was told to forget it.
    CallbackProvider *callbacks = nullptr;
    /// Providers that answer with these functions.
    int providerCount = 0;

    QStringList takeCalls() { return std::exchange(calls, {}); }
    /// Of one operation.
    QStringList callsOf(const QString &operation) const { return calls.filter(operation + u' '); }
};

/// A firmware function provider whose answers a test chooses and whose calls it reads.
class ProgrammedFunctionProvider final : public ParameterFunctionProvider {
public:
    explicit ProgrammedFunctionProvider(std::shared_ptr<ProgrammedFunctions> functions);
    ~ProgrammedFunctionProvider() override;
    Q_DISABLE_COPY_MOVE(ProgrammedFunctionProvider)

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
    std::shared_ptr<ProgrammedFunctions> m_functions;
};

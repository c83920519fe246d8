#pragma once

#include <KrFirmware/ParameterFunctionProvider.h>

#include <memory>

/// Stands before a firmware's provider so that it outlives its own running functions: a function may
/// lead to a listener that replaces the firmware or destroys the container.
class GuardedFunctionProvider final : public ParameterFunctionProvider {
public:
    explicit GuardedFunctionProvider(std::unique_ptr<ParameterFunctionProvider> provider);
    ~GuardedFunctionProvider() override;

    /// Cuts the provider off from its container and destroys it, at once or when the outermost of its
    /// running functions returns. Until then every further question has an empty answer: a value is
    /// accepted, a text unchanged.
    static void retire(std::unique_ptr<GuardedFunctionProvider> provider);

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
    template <typename Answer, typename Function>
    Answer answer(const Answer &empty, Function function);

    std::unique_ptr<ParameterFunctionProvider> m_provider;
    int m_running = 0;
    bool m_isRetired = false;
};

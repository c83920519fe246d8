#include "container/GuardedFunctionProvider.h"

#include "value/RunningFunctions.h"

GuardedFunctionProvider::GuardedFunctionProvider(
    std::unique_ptr<ParameterFunctionProvider> provider)
    : m_provider(std::move(provider))
{
}

GuardedFunctionProvider::~GuardedFunctionProvider() = default;

void GuardedFunctionProvider::retire(std::unique_ptr<GuardedFunctionProvider> provider)
{
    if (!provider)
        return;
    provider->m_isRetired = true;
    provider->m_provider->setCallbackProvider(nullptr);
    // The outermost running function destroys it on its return.
    if (provider->m_running > 0)
        static_cast<void>(provider.release());
}

/// Counts the running functions; exceptions of a provider pass through.
template <typename Answer, typename Function>
Answer GuardedFunctionProvider::answer(const Answer &empty, Function function)
{
    if (m_isRetired)
        return empty;
    struct Running {
        explicit Running(GuardedFunctionProvider *guarded)
            : provider(guarded)
        {
            ++provider->m_running;
        }
        ~Running()
        {
            if (--provider->m_running == 0 && provider->m_isRetired)
                delete provider;
        }
        Q_DISABLE_COPY_MOVE(Running)

        GuardedFunctionProvider *const provider;
    };
    const RunningFunctions keptInUse;
    const Running running(this);
    return function(*m_provider);
}

void GuardedFunctionProvider::setCallbackProvider(CallbackProvider *callbacks)
{
    m_provider->setCallbackProvider(callbacks);
}

quint32 GuardedFunctionProvider::checkValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    return answer(quint32(0), [&](ParameterFunctionProvider &provider) {
        return provider.checkValue(nativeText, data, element);
    });
}

QString GuardedFunctionProvider::correctValue(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    return answer(nativeText, [&](ParameterFunctionProvider &provider) {
        return provider.correctValue(nativeText, data, element);
    });
}

QString GuardedFunctionProvider::valueText(
    const QString &nativeText, const ParameterData *data, quint16 element)
{
    return answer(nativeText, [&](ParameterFunctionProvider &provider) {
        return provider.valueText(nativeText, data, element);
    });
}

QString GuardedFunctionProvider::nativeText(
    const QString &valueText, const ParameterData *data, quint16 element)
{
    return answer(valueText, [&](ParameterFunctionProvider &provider) {
        return provider.nativeText(valueText, data, element);
    });
}

QString GuardedFunctionProvider::lowerLimit(const ParameterData *data, quint16 element)
{
    return answer(QString(),
        [&](ParameterFunctionProvider &provider) { return provider.lowerLimit(data, element); });
}

QString GuardedFunctionProvider::upperLimit(const ParameterData *data, quint16 element)
{
    return answer(QString(),
        [&](ParameterFunctionProvider &provider) { return provider.upperLimit(data, element); });
}

bool GuardedFunctionProvider::isHidden(const ParameterData *data, quint16 element)
{
    return answer(false,
        [&](ParameterFunctionProvider &provider) { return provider.isHidden(data, element); });
}

void GuardedFunctionProvider::runFunction(
    eFunctionKind kind, const ParameterData *data, quint16 element)
{
    answer(false, [&](ParameterFunctionProvider &provider) {
        provider.runFunction(kind, data, element);
        return true;
    });
}

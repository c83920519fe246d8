#include "FunctionEvaluator.h"

#include "FunctionCall.h"
#include "LuaState.h"

FunctionEvaluator::FunctionEvaluator()
    : m_state(std::make_unique<LuaState>())
{
}

FunctionEvaluator::~FunctionEvaluator() = default;

QString FunctionEvaluator::add(eParameterProperty kind, quint16 index, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    if (bytes.size() > MostTextBytes)
        return QStringLiteral("the function is longer than %1 bytes").arg(MostTextBytes);
    return m_state->add(kind, index, bytes);
}

bool FunctionEvaluator::contains(eParameterProperty kind, quint16 index) const
{
    return m_state->contains(kind, index);
}

void FunctionEvaluator::setCallbackProvider(CallbackProvider *callbacks)
{
    m_state->setCallbackProvider(callbacks);
}

FunctionOutcome FunctionEvaluator::run(FunctionCall &call)
{
    return m_state->run(call);
}

bool FunctionEvaluator::isRunning() const
{
    return m_state->isRunning();
}

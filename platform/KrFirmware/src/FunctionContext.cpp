#include "FunctionContext.h"

#include "FunctionCall.h"

void FunctionContext::setCallbacks(CallbackProvider *callbacks)
{
    m_callbacks = callbacks;
    if (!callbacks && m_call)
        stop(QString());
}

void FunctionContext::begin(FunctionCall &call)
{
    if (!m_call) {
        m_budget.renew();
        m_isStopped = false;
    }
    call.outer = m_call;
    m_call = &call;
}

void FunctionContext::end(FunctionCall &call)
{
    m_call = call.outer;
}

void FunctionContext::stop(const QString &reason)
{
    if (m_isStopped)
        return;
    m_isStopped = true;
    m_reason = reason;
}

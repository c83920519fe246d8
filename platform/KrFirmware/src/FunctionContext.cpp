#include "FunctionContext.h"

#include "FunctionCall.h"

void FunctionContext::setCallbacks(CallbackProvider *callbacks)
{
    m_callbacks = callbacks;
    if (!callbacks && m_call)
        stop(QString(), nullptr);
}

void FunctionContext::begin(FunctionCall &call)
{
    if (!m_call) {
        m_budget.renew();
        m_isStopped = false;
    }
    call.outer = m_call;
    call.usedBefore = m_budget.used();
    m_call = &call;
}

void FunctionContext::end(FunctionCall &call)
{
    m_call = call.outer;
    if (!m_call)
        m_leftOfChange -= m_budget.used();
}

void FunctionContext::stop(const QString &reason)
{
    stop(reason, m_call);
}

void FunctionContext::giveUp(const QString &reason)
{
    if (m_isStopped)
        return;
    FunctionCall *blamed = m_call;
    while (blamed->outer && m_budget.used() - blamed->usedBefore < FunctionBudget::Instructions / 2)
        blamed = blamed->outer;
    blamed->isGivenUp = true;
    stop(reason, blamed);
}

QString FunctionContext::takeReason(const FunctionCall &call)
{
    return &call == m_teller ? std::exchange(m_reason, QString()) : QString();
}

void FunctionContext::beginChange()
{
    if (m_changes++ > 0)
        return;
    m_leftOfChange = FunctionBudget::InstructionsOfChange;
    m_isChangeReported = false;
}

void FunctionContext::endChange()
{
    // One that began before the functions were there ends without a beginning.
    m_changes = qMax(m_changes - 1, 0);
}

void FunctionContext::stop(const QString &reason, FunctionCall *teller)
{
    if (m_isStopped)
        return;
    m_isStopped = true;
    m_reason = reason;
    m_teller = teller;
}

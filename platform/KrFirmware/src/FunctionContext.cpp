#include "FunctionContext.h"

#include "FunctionCall.h"
#include "RunningChange.h"

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
    if (!m_call && m_budget.used() >= ChangeBudget::LeastCounted)
        m_changeBudget.charge(RunningChange::of(m_callbacks), m_budget.used());
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

bool FunctionContext::isChangeSpent() const
{
    return m_changeBudget.isSpent() && m_changeBudget.isSpent(RunningChange::of(m_callbacks));
}

void FunctionContext::stop(const QString &reason, FunctionCall *teller)
{
    if (m_isStopped)
        return;
    m_isStopped = true;
    m_reason = reason;
    m_teller = teller;
}

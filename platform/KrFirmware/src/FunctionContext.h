#pragma once

#include "ChangeBudget.h"
#include "FunctionBudget.h"

#include <QtCore/QString>

class CallbackProvider;
class FunctionCall;

/// The functions that run at the moment, from the outermost to the one that runs its own code, with
/// the budget that they share.
class FunctionContext {
public:
    FunctionContext() = default;
    Q_DISABLE_COPY_MOVE(FunctionContext)

    FunctionBudget &budget() { return m_budget; }
    /// The innermost call; null while no function runs.
    FunctionCall *call() const { return m_call; }
    CallbackProvider *callbacks() const { return m_callbacks; }
    /// Null while functions run stops them.
    void setCallbacks(CallbackProvider *callbacks);

    /// The outermost call begins with a full budget.
    void begin(FunctionCall &call);
    void end(FunctionCall &call);

    /// All that run are to end, because of what happened in the innermost call, which tells the
    /// reason. The first reason counts.
    void stop(const QString &reason);
    /// All that run are to end, because they used up what they share. Told by the call that is to
    /// blame, which is given up: the innermost that used half of the budget with what it led to.
    void giveUp(const QString &reason);
    bool isStopped() const { return m_isStopped; }
    /// Hands the reason out to the call that tells it, once; empty for others.
    QString takeReason(const FunctionCall &call);

    /// The calls of the running change used up what they share.
    bool isChangeSpent() const;
    /// True once a change.
    bool takeChangeReport() { return m_changeBudget.takeReport(); }

private:
    void stop(const QString &reason, FunctionCall *teller);

    FunctionBudget m_budget;
    FunctionCall *m_call = nullptr;
    CallbackProvider *m_callbacks = nullptr;
    bool m_isStopped = false;
    QString m_reason;
    /// Compared only: null where nobody tells the reason.
    const FunctionCall *m_teller = nullptr;
    ChangeBudget m_changeBudget;
};

#pragma once

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

    /// All that run are to end, because of what happened in one. The first reason counts; an
    /// empty one is not reported.
    void stop(const QString &reason);
    bool isStopped() const { return m_isStopped; }
    /// Hands the reason out to whoever asks first.
    QString takeReason() { return std::exchange(m_reason, QString()); }

private:
    FunctionBudget m_budget;
    FunctionCall *m_call = nullptr;
    CallbackProvider *m_callbacks = nullptr;
    bool m_isStopped = false;
    QString m_reason;
};

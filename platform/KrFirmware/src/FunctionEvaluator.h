#pragma once

#include "FunctionOutcome.h"

#include <KrParameterDefinition/eParameterProperty.h>

#include <memory>

class CallbackProvider;
class FunctionCall;
class LuaState;

/// Runs the function texts of a device description for one container.
class FunctionEvaluator {
public:
    /// **Unit** bytes of UTF-8. Longer texts are refused.
    static constexpr qsizetype MostTextBytes = qsizetype(64) * 1024;

    FunctionEvaluator();
    ~FunctionEvaluator();
    Q_DISABLE_COPY_MOVE(FunctionEvaluator)

    /// Takes a function in. **Refused** what is no program text: the answer is the reason with its
    /// line, otherwise empty.
    QString add(eParameterProperty kind, quint16 index, const QString &text);
    bool contains(eParameterProperty kind, quint16 index) const;
    /// **Owner** the container. Null cuts the functions off: those that run stop at their
    /// next question, unreported.
    void setCallbackProvider(CallbackProvider *callbacks);
    /// **Range** a call of a function that is contained.
    FunctionOutcome run(FunctionCall &call);
    /// A function runs, and led here.
    bool isRunning() const;

private:
    std::unique_ptr<LuaState> m_state;
};

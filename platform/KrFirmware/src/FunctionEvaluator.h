#pragma once

#include "FunctionOutcome.h"

#include <KrParameterDefinition/eParameterProperty.h>

#include <array>
#include <memory>
#include <vector>

class CallbackProvider;
class FunctionCall;
class LuaState;

/// Runs the function texts of a device description for one container.
class FunctionEvaluator {
public:
    /// **Unit** bytes of UTF-8. Longer texts are refused.
    static constexpr qsizetype MostTextBytes = qsizetype(64) * 1024;

    /// Functions that are given up; at the last of them all are.
    static constexpr int MostGivenUp = 32;

    static constexpr int NoFunction = 0;

    FunctionEvaluator();
    ~FunctionEvaluator();
    Q_DISABLE_COPY_MOVE(FunctionEvaluator)

    /// Takes a function in. **Refused** what is no program text: the answer is the reason with its
    /// line, otherwise empty.
    QString add(eParameterProperty kind, quint16 index, const QString &text);
    /// NoFunction where the description has none of that index, and where it was given up; otherwise
    /// what run() takes.
    int find(eParameterProperty kind, quint16 index) const;
    /// **Owner** the container. Null cuts the functions off: those that run stop at their
    /// next question, unreported.
    void setCallbackProvider(CallbackProvider *callbacks);
    /// A function that uses up what a call may use is given up: it would do so again, for each of
    /// the elements that name it.
    FunctionOutcome run(int function, FunctionCall &call);
    /// A function runs, and led here.
    bool isRunning() const;

private:
    /// The last property that holds a function's index.
    static constexpr auto LastKind = eParameterProperty::ScalingFunctionIndex;

    /// What is added to the reason.
    QString giveUp(const FunctionCall &call);

    std::unique_ptr<LuaState> m_state;
    /// By kind, then by index. A look-up stands before every question of an element.
    std::array<std::vector<int>, size_t(LastKind) + 1> m_places;
    int m_givenUp = 0;
};

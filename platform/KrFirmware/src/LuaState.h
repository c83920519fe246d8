#pragma once

#include "FunctionContext.h"
#include "FunctionOutcome.h"
#include "LuaHeap.h"

#include <QtCore/QByteArray>

#include <memory>

struct lua_Debug;
struct lua_State;

/// A Lua state with the functions of one description, compiled once.
///
/// No operation of Lua that may raise an error is called outside of a protected call: nested calls
/// stand on the same state, where such an error would skip the container's frames in between.
class LuaState {
public:
    /// **Unit** bytes that the functions may need before they run.
    static constexpr size_t MostCompiledBytes = size_t(1024) * 1024;

    /// **Throws** std::bad_alloc.
    LuaState();
    ~LuaState();
    Q_DISABLE_COPY_MOVE(LuaState)

    /// The reason of a refusal; empty where the function has got a place, from 1.
    QString compile(const QByteArray &text, int &place);
    void setCallbackProvider(CallbackProvider *callbacks) { m_context.setCallbacks(callbacks); }
    FunctionOutcome run(int place, FunctionCall &call);
    bool isRunning() const { return m_context.call() != nullptr; }

private:
    static void countStep(lua_State *state, lua_Debug *record);

    void call(int place, const FunctionCall &call, FunctionOutcome &outcome);
    void fail(int status, const FunctionCall &call, FunctionOutcome &outcome);
    void refuse(FunctionOutcome &outcome);

    FunctionContext m_context;
    LuaHeap m_heap;
    std::unique_ptr<lua_State, void (*)(lua_State *)> m_state;
};

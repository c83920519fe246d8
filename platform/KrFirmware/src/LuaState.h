#pragma once

#include "FunctionContext.h"
#include "FunctionOutcome.h"
#include "LuaHeap.h"

#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QByteArray>
#include <QtCore/QHash>

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

    /// The reason of a refusal; empty where the function was taken in.
    QString add(eParameterProperty kind, quint16 index, const QByteArray &text);
    bool contains(eParameterProperty kind, quint16 index) const
    {
        return m_functions.contains(key(kind, index));
    }
    void setCallbackProvider(CallbackProvider *callbacks) { m_context.setCallbacks(callbacks); }
    FunctionOutcome run(FunctionCall &call);
    bool isRunning() const { return m_context.call() != nullptr; }

private:
    static quint32 key(eParameterProperty kind, quint16 index)
    {
        return quint32(kind) << 16 | index;
    }
    static void countStep(lua_State *state, lua_Debug *record);

    FunctionOutcome called(int function);
    FunctionOutcome failure(int status);

    FunctionContext m_context;
    LuaHeap m_heap;
    std::unique_ptr<lua_State, void (*)(lua_State *)> m_state;
    /// Kind and index to the function's place in Lua's registry.
    QHash<quint32, int> m_functions;
};

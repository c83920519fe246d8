#include "LuaQuestion.h"

namespace {

/// Its address is the error value that no function can make.
char stopMark = 0;

} // namespace

void LuaQuestion::charge(qint64 instructions) const
{
    m_context.budget().charge(instructions);
    goOn();
}

void LuaQuestion::stop(lua_State *state)
{
    // Needs no memory.
    lua_pushlightuserdata(state, &stopMark);
    lua_error(state);
    Q_UNREACHABLE();
}

bool LuaQuestion::isStop(lua_State *state, int position)
{
    return lua_touserdata(state, position) == &stopMark;
}

void LuaQuestion::goOn() const
{
    if (m_context.isStopped() || m_context.budget().isSpent())
        stop(m_state);
}

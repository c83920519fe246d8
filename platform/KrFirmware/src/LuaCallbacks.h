#pragma once

struct lua_State;

/// The operations of the callback provider as Lua functions of the same names and arguments.
namespace LuaCallbacks {

/// Into the table on top of the stack. **Throws** Lua errors.
void install(lua_State *state);

} // namespace LuaCallbacks

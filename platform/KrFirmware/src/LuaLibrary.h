#pragma once

struct lua_State;

/// What the functions of a description find under global names. Nothing there reads or writes
/// anything outside of the state, catches an error, makes a program out of a text, or runs long by
/// itself; and nothing can be changed, so that no function disturbs another.
namespace LuaLibrary {

/// Leaves the table of the names on the stack. **Throws** Lua errors.
void push(lua_State *state);

} // namespace LuaLibrary

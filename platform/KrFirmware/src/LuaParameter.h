#pragma once

struct lua_State;

/// The object "parameter": the view of the value record that the running function is called for.
namespace LuaParameter {

/// Into the table on top of the stack. **Throws** Lua errors.
void install(lua_State *state);

} // namespace LuaParameter

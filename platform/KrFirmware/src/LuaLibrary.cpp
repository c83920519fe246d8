#include "LuaLibrary.h"

#include "FindingText.h"
#include "LuaCallbacks.h"
#include "LuaParameter.h"
#include "LuaValue.h"

#include <lua.hpp>

#include <initializer_list>

namespace {

/// pcall, load, require and the metatable functions are left out: errors end a function, programs
/// are the description's own, and objects are as they are.
constexpr auto BaseNames = {
    "assert", "error", "ipairs", "next", "pairs", "select", "tonumber", "tostring", "type"};
/// Without random numbers: a function's answer follows from the values alone.
constexpr auto MathNames = {"abs", "acos", "asin", "atan", "ceil", "cos", "deg", "exp", "floor",
    "fmod", "huge", "log", "max", "maxinteger", "min", "mininteger", "modf", "pi", "rad", "sin",
    "sqrt", "tan", "tointeger", "type", "ult"};
/// Without patterns, whose matching takes exponential time, and without rep.
constexpr auto StringNames = {"byte", "char", "format", "len", "lower", "reverse", "sub", "upper"};

int refuseWrite(lua_State *state)
{
    const char *const name =
        lua_type(state, 2) == LUA_TSTRING ? lua_tostring(state, 2) : luaL_typename(state, 2);
    LuaValue::raise(state,
        FindingText::tr("'%1' is not a local and cannot be set").arg(QString::fromUtf8(name)));
}

/// Copies named fields of the table on top of the stack into a new one, which takes its place.
void keepFields(lua_State *state, std::initializer_list<const char *> names)
{
    lua_newtable(state);
    for (const char *const name : names) {
        lua_getfield(state, -2, name);
        lua_setfield(state, -2, name);
    }
    lua_remove(state, -2);
}

/// Puts an empty table that answers from the one on top of the stack in its place.
void protect(lua_State *state)
{
    lua_newtable(state);
    lua_newtable(state);
    lua_pushvalue(state, -3);
    lua_setfield(state, -2, "__index");
    lua_pushcfunction(state, refuseWrite);
    lua_setfield(state, -2, "__newindex");
    lua_setmetatable(state, -2);
    lua_remove(state, -2);
}

void open(lua_State *state, lua_CFunction library, std::initializer_list<const char *> names)
{
    lua_pushcfunction(state, library);
    lua_call(state, 0, 1);
    keepFields(state, names);
}

/// Texts answer their operations ("s:sub(1, 2)"), and do not count as numbers.
void setTextOperations(lua_State *state)
{
    lua_pushliteral(state, "");
    lua_newtable(state);
    lua_pushvalue(state, -3);
    lua_setfield(state, -2, "__index");
    lua_setmetatable(state, -2);
    lua_pop(state, 1);
}

} // namespace

void LuaLibrary::push(lua_State *state)
{
    open(state, luaopen_base, BaseNames);
    open(state, luaopen_math, MathNames);
    protect(state);
    lua_setfield(state, -2, "math");
    open(state, luaopen_string, StringNames);
    setTextOperations(state);
    protect(state);
    lua_setfield(state, -2, "string");
    LuaCallbacks::install(state);
    LuaParameter::install(state);
    protect(state);
}

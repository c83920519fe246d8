#pragma once

#include "FunctionOutcome.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <lua.hpp>

/// Values on Lua's stack. Pushing needs memory, so it may raise a Lua error; reading does not.
namespace LuaValue {

void push(lua_State *state, const QString &text);
/// Numbers and texts as such, an unsigned number beyond 63 bits as its digits, a text in languages
/// as its long text in the active one, a choice as a table from key to text, a list as a table from
/// 1. Invalid: nil.
void push(lua_State *state, const QVariant &value);
void read(lua_State *state, int position, FunctionValue &value);
/// A truth value, number or text as such; invalid for anything else.
QVariant toVariant(const FunctionValue &value);

/// An argument within a range. **Throws** a Lua error that names it.
qint64 numberArgument(lua_State *state, int position, qint64 least, qint64 most);
/// A number or a text, as text.
QString valueArgument(lua_State *state, int position);
QString textArgument(lua_State *state, int position);
/// A coordinate as text or number, as its number.
quint16 coordinateArgument(lua_State *state, int position);

/// Raises the reason, with the line of the function that is to blame.
[[noreturn]] void raise(lua_State *state, const QString &reason);

} // namespace LuaValue

#include "LuaValue.h"

#include "NativeValue.h"
#include "RealText.h"

#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/ParameterProperty.h>

#include <limits>

namespace {

/// Slots that one level of a value needs.
constexpr int Slots = 4;

void pushUnsigned(lua_State *state, qulonglong number)
{
    if (number <= qulonglong(std::numeric_limits<qint64>::max()))
        lua_pushinteger(state, lua_Integer(number));
    else
        LuaValue::push(state, QString::number(number));
}

void pushList(lua_State *state, const QVariantList &list)
{
    lua_newtable(state);
    for (qsizetype i = 0; i < list.size(); ++i) {
        LuaValue::push(state, list.at(i));
        lua_rawseti(state, -2, i + 1);
    }
}

void pushChoices(lua_State *state, const ParameterTextMap &choices)
{
    lua_newtable(state);
    for (const qint32 key : choices.keys()) {
        LuaValue::push(state, choices.text(key).longText());
        lua_rawseti(state, -2, key);
    }
}

bool isText(lua_State *state, int position)
{
    return lua_type(state, position) == LUA_TSTRING;
}

/// Of a text, which reading leaves as it is.
QString text(lua_State *state, int position)
{
    size_t size = 0;
    const char *const bytes = lua_tolstring(state, position, &size);
    return QString::fromUtf8(bytes, qsizetype(size));
}

} // namespace

void LuaValue::push(lua_State *state, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    lua_pushlstring(state, bytes.constData(), size_t(bytes.size()));
}

void LuaValue::push(lua_State *state, const QVariant &value)
{
    luaL_checkstack(state, Slots, nullptr);
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        lua_pushnil(state);
        return;
    case QMetaType::Bool:
        lua_pushboolean(state, value.toBool() ? 1 : 0);
        return;
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::Short:
        lua_pushinteger(state, value.toLongLong());
        return;
    case QMetaType::UInt:
    case QMetaType::ULongLong:
    case QMetaType::UShort:
        pushUnsigned(state, value.toULongLong());
        return;
    case QMetaType::Double:
        lua_pushnumber(state, value.toDouble());
        return;
    case QMetaType::Float:
        // 0.1f is 0.1, not 0.10000000149.
        lua_pushnumber(state, RealText::read(ParameterProperty(value).asString()).value_or(0));
        return;
    case QMetaType::QVariantList:
        pushList(state, value.toList());
        return;
    default:
        if (value.metaType() == QMetaType::fromType<ParameterTextMap>())
            pushChoices(state, value.value<ParameterTextMap>());
        else
            push(state, ParameterProperty(value).asString());
    }
}

void LuaValue::read(lua_State *state, int position, FunctionValue &value)
{
    switch (lua_type(state, position)) {
    case LUA_TNONE:
    case LUA_TNIL:
        value = std::monostate();
        return;
    case LUA_TBOOLEAN:
        value = lua_toboolean(state, position) != 0;
        return;
    case LUA_TNUMBER:
        if (lua_isinteger(state, position))
            value = qint64(lua_tointeger(state, position));
        else
            value = double(lua_tonumber(state, position));
        return;
    case LUA_TSTRING:
        value = text(state, position);
        return;
    default:
        value = FunctionValueType {luaL_typename(state, position)};
    }
}

QVariant LuaValue::toVariant(const FunctionValue &value)
{
    return std::visit(
        [](const auto &held) -> QVariant {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held,
                              std::monostate> || std::is_same_v<Held, FunctionValueType>)
                return {};
            else
                return held;
        },
        value);
}

qint64 LuaValue::numberArgument(lua_State *state, int position, qint64 least, qint64 most)
{
    const lua_Integer number = luaL_checkinteger(state, position);
    luaL_argcheck(state, number >= least && number <= most, position, "number out of range");
    return number;
}

QString LuaValue::valueArgument(lua_State *state, int position)
{
    const bool isValue = isText(state, position) || lua_type(state, position) == LUA_TNUMBER;
    luaL_argexpected(state, isValue, position, "number or text");
    FunctionValue value;
    read(state, position, value);
    return NativeValue::write(value);
}

QString LuaValue::textArgument(lua_State *state, int position)
{
    luaL_checktype(state, position, LUA_TSTRING);
    return text(state, position);
}

quint16 LuaValue::coordinateArgument(lua_State *state, int position)
{
    if (!isText(state, position))
        return quint16(numberArgument(state, position, 0, std::numeric_limits<quint16>::max()));
    const ParameterCoordinate coordinate(text(state, position));
    luaL_argexpected(state, coordinate.isValid(), position, "coordinate");
    return coordinate.toNumber();
}

void LuaValue::raise(lua_State *state, const QString &reason)
{
    luaL_error(state, "%s", reason.toUtf8().constData());
    Q_UNREACHABLE();
}

#include "LuaParameter.h"

#include "FindingText.h"
#include "FunctionCall.h"
#include "LuaQuestion.h"
#include "NativeValue.h"

#include <KrDatatype/SimpleType.h>
#include <KrFirmware/CallbackProvider.h>
#include <KrParameterInstance/ParameterData.h>

#include <limits>

namespace {

/// What reading a fact counts as, in instructions.
constexpr qint64 Price = 20;
/// What reading the value counts as: it asks the container.
constexpr qint64 ValuePrice = 100;

/// Facts of the element, which are answered while its record is known to live.
struct Fact {
    const char *name;
    QVariant (*read)(const ParameterData &data, quint16 element);
};

/// A widened 32-bit float as the number that it was written as.
QVariant shortest(double value)
{
    return float(value);
}

QVariant choiceKeys(const ParameterData &data, quint16 element)
{
    QVariantList keys;
    for (const qint32 key : data.choiceMapKeys(element))
        keys.append(key);
    return keys;
}

QVariant typeName(const ParameterData &data, quint16 element)
{
    const SimpleType *const type = data.simpleType(element);
    return type ? QVariant(type->shortName()) : QVariant();
}

constexpr Fact Facts[] = {
    {"datatype", [](const ParameterData &d, quint16 e) { return QVariant(uint(d.datatype(e))); }},
    {"typeName", typeName},
    {"kind", [](const ParameterData &d, quint16 e) { return QVariant(d.kind(e)); }},
    {"decimalPlacesBehind",
        [](const ParameterData &d, quint16 e) { return QVariant(d.decimalPlacesBehind(e)); }},
    {"decimalPlacesSignificant",
        [](const ParameterData &d, quint16 e) { return QVariant(d.decimalPlacesSignificant(e)); }},
    {"fullScaleValue",
        [](const ParameterData &d, quint16 e) { return QVariant(d.fullScaleValue(e)); }},
    {"scalingFactor",
        [](const ParameterData &d, quint16 e) { return shortest(d.scalingFactor(e)); }},
    {"editStartStepSize",
        [](const ParameterData &d, quint16 e) { return shortest(d.editStartStepSize(e)); }},
    {"lowerLimitValue",
        [](const ParameterData &d, quint16 e) {
            return NativeValue::read(d.lowerLimitValue(e), d.simpleType(e));
        }},
    {"upperLimitValue",
        [](const ParameterData &d, quint16 e) {
            return NativeValue::read(d.upperLimitValue(e), d.simpleType(e));
        }},
    {"hidingFunctionIndex",
        [](const ParameterData &d, quint16 e) { return QVariant(uint(d.hidingFunctionIndex(e))); }},
    {"limitFunctionIndex",
        [](const ParameterData &d, quint16 e) { return QVariant(uint(d.limitFunctionIndex(e))); }},
    {"scalingFunctionIndex",
        [](const ParameterData &d, quint16 e) {
            return QVariant(uint(d.scalingFunctionIndex(e)));
        }},
    {"prereadFunctionIndex",
        [](const ParameterData &d, quint16 e) {
            return QVariant(uint(d.prereadFunctionIndex(e)));
        }},
    {"prewriteFunctionIndex",
        [](const ParameterData &d, quint16 e) {
            return QVariant(uint(d.prewriteFunctionIndex(e)));
        }},
    {"postreadFunctionIndex",
        [](const ParameterData &d, quint16 e) {
            return QVariant(uint(d.postreadFunctionIndex(e)));
        }},
    {"postwriteFunctionIndex",
        [](const ParameterData &d, quint16 e) {
            return QVariant(uint(d.postwriteFunctionIndex(e)));
        }},
    {"choiceMapKeys", choiceKeys},
};

/// What stays known of the place, whatever became of the record.
struct Place {
    const char *name;
    QVariant (*read)(FunctionCall &call);
};

constexpr Place Places[] = {
    {"coordinate", [](FunctionCall &c) { return QVariant(c.address().coordinate().toText()); }},
    {"element", [](FunctionCall &c) { return QVariant(uint(c.element())); }},
    {"livingSpace", [](FunctionCall &c) { return QVariant(c.livingSpace()); }},
    {"axis", [](FunctionCall &c) { return QVariant(uint(c.address().axis())); }},
    {"addressNumber", [](FunctionCall &c) { return QVariant(c.address().toNumber()); }},
    {"isGlobalParameter", [](FunctionCall &c) { return QVariant(c.livingSpace() == 0); }},
};

const ParameterData &dataOf(lua_State *state, const FunctionCall &call)
{
    if (!call.data())
        LuaValue::raise(state,
            FindingText::tr("after a write or a message this is not known any more; read it into a "
                            "local before"));
    return *call.data();
}

template <typename Ask>
int pushAnswer(lua_State *state, qint64 price, Ask ask)
{
    const LuaQuestion question(state);
    question.charge(price);
    LuaValue::push(state, question.answer([&] { return QVariant(ask()); }));
    return 1;
}

FunctionCall &callOf(lua_State *state)
{
    return *LuaQuestion::contextOf(state).call();
}

int readValue(lua_State *state)
{
    FunctionCall &call = callOf(state);
    CallbackProvider *const callbacks = LuaQuestion::contextOf(state).callbacks();
    if (!callbacks)
        LuaValue::raise(state, FindingText::tr("there is no container"));
    return pushAnswer(state, ValuePrice, [&] {
        return NativeValue::ask(
            *callbacks, call.livingSpace(), call.address().coordinate().toNumber(), call.element());
    });
}

eParameterProperty propertyArgument(lua_State *state)
{
    return eParameterProperty(
        LuaValue::numberArgument(state, 1, 0, std::numeric_limits<quint32>::max()));
}

int hasProperty(lua_State *state)
{
    const eParameterProperty property = propertyArgument(state);
    const FunctionCall &call = callOf(state);
    const ParameterData &data = dataOf(state, call);
    return pushAnswer(state, Price, [&] { return data.hasProperty(call.element(), property); });
}

int property(lua_State *state)
{
    const eParameterProperty property = propertyArgument(state);
    const FunctionCall &call = callOf(state);
    const ParameterData &data = dataOf(state, call);
    return pushAnswer(state, Price, [&] { return data.property(call.element(), property); });
}

/// What the name leads to in the object's upvalue: the value (true), an operation, a fact by its
/// position from 0, or a place by -1 - its position.
int index(lua_State *state)
{
    lua_settop(state, 2);
    lua_pushvalue(state, 2);
    lua_rawget(state, lua_upvalueindex(1));
    switch (lua_type(state, -1)) {
    case LUA_TBOOLEAN:
        return readValue(state);
    case LUA_TFUNCTION:
        return 1;
    case LUA_TNUMBER:
        break;
    default:
        LuaValue::raise(state, FindingText::tr("the parameter has no such field"));
    }
    FunctionCall &call = callOf(state);
    const lua_Integer position = lua_tointeger(state, -1);
    if (position < 0)
        return pushAnswer(state, Price, [&] { return Places[-1 - position].read(call); });
    const ParameterData &data = dataOf(state, call);
    return pushAnswer(state, Price, [&] { return Facts[position].read(data, call.element()); });
}

int refuseWrite(lua_State *state)
{
    LuaValue::raise(state, FindingText::tr("the parameter's fields are read only"));
}

void pushNames(lua_State *state)
{
    lua_newtable(state);
    for (size_t i = 0; i < std::size(Facts); ++i) {
        lua_pushinteger(state, lua_Integer(i));
        lua_setfield(state, -2, Facts[i].name);
    }
    for (size_t i = 0; i < std::size(Places); ++i) {
        lua_pushinteger(state, -1 - lua_Integer(i));
        lua_setfield(state, -2, Places[i].name);
    }
    lua_pushboolean(state, 1);
    lua_setfield(state, -2, "value");
    lua_pushcfunction(state, hasProperty);
    lua_setfield(state, -2, "hasProperty");
    lua_pushcfunction(state, property);
    lua_setfield(state, -2, "property");
}

} // namespace

void LuaParameter::install(lua_State *state)
{
    lua_newuserdatauv(state, 0, 0);
    lua_newtable(state);
    pushNames(state);
    lua_pushcclosure(state, index, 1);
    lua_setfield(state, -2, "__index");
    lua_pushcfunction(state, refuseWrite);
    lua_setfield(state, -2, "__newindex");
    lua_setmetatable(state, -2);
    lua_setfield(state, -2, "parameter");
}

#include "LuaCallbacks.h"

#include "FindingText.h"
#include "FunctionCall.h"
#include "LuaQuestion.h"
#include "NativeValue.h"

#include <KrFirmware/CallbackProvider.h>

#include <limits>

namespace {

/// What the callbacks count as, in instructions.
constexpr qint64 ReadPrice = 100;
constexpr qint64 WritePrice = 1000;
constexpr qint64 MessagePrice = 10000;

constexpr qint64 MostUint16 = std::numeric_limits<quint16>::max();
constexpr qint64 LeastInt32 = std::numeric_limits<qint32>::min();
constexpr qint64 MostInt32 = std::numeric_limits<qint32>::max();
constexpr qint64 MostUint32 = std::numeric_limits<quint32>::max();

/// The first three arguments of reading and writing.
struct Place {
    int livingSpace;
    quint16 coordinate;
    quint16 element;
};

quint16 elementArgument(lua_State *state, int position)
{
    return lua_isnoneornil(state, position)
        ? quint16(0)
        : quint16(LuaValue::numberArgument(state, position, 0, MostUint16));
}

Place placeArguments(lua_State *state)
{
    return {int(LuaValue::numberArgument(state, 1, LeastInt32, MostInt32)),
        LuaValue::coordinateArgument(state, 2), elementArgument(state, 3)};
}

CallbackProvider &callbacks(lua_State *state, const FunctionContext &context)
{
    if (!context.callbacks())
        LuaValue::raise(state, FindingText::tr("there is no container"));
    return *context.callbacks();
}

/// Asks the container without an effect on it.
template <typename Ask>
auto read(lua_State *state, Ask ask)
{
    const LuaQuestion question(state);
    question.charge(ReadPrice);
    CallbackProvider &provider = callbacks(state, question.context());
    return question.answer([&] { return ask(provider); });
}

/// Has an effect, which may lead to listeners that delete what they like.
template <typename Act>
void act(lua_State *state, qint64 price, Act action)
{
    const LuaQuestion question(state);
    FunctionCall *const call = question.context().call();
    if (!call->mayAct())
        LuaValue::raise(state, FindingText::tr("limit, scaling and hiding functions only read"));
    question.charge(price);
    CallbackProvider &provider = callbacks(state, question.context());
    question.answer([&] {
        for (FunctionCall *each = call; each; each = each->outer)
            each->releaseData();
        action(provider);
        return true;
    });
}

using ReadOperation = QString (CallbackProvider::*)(
    int livingSpace, unsigned short coordinate, unsigned short element, bool withUnit);
using WriteOperation = void (CallbackProvider::*)(
    int livingSpace, unsigned short coordinate, unsigned short element, const QString &text);
using MessageOperation = void (CallbackProvider::*)(const QString &text);

template <ReadOperation Operation>
int readText(lua_State *state)
{
    const Place at = placeArguments(state);
    const bool withUnit = lua_toboolean(state, 4) != 0;
    const QString text = read(state, [&](CallbackProvider &provider) {
        return (provider.*Operation)(at.livingSpace, at.coordinate, at.element, withUnit);
    });
    LuaValue::push(state, text);
    return 1;
}

int readValueNative(lua_State *state)
{
    const Place at = placeArguments(state);
    const bool withUnit = lua_toboolean(state, 4) != 0;
    const QVariant value = read(state, [&](CallbackProvider &provider) -> QVariant {
        if (withUnit)
            return provider.readValueNative(at.livingSpace, at.coordinate, at.element, true);
        return NativeValue::ask(provider, at.livingSpace, at.coordinate, at.element);
    });
    LuaValue::push(state, value);
    return 1;
}

template <WriteOperation Operation>
int writeText(lua_State *state)
{
    const Place at = placeArguments(state);
    const QString text = LuaValue::valueArgument(state, 4);
    act(state, WritePrice, [&](CallbackProvider &provider) {
        (provider.*Operation)(at.livingSpace, at.coordinate, at.element, text);
    });
    return 0;
}

int parameterProperty(lua_State *state)
{
    const quint16 coordinate = LuaValue::coordinateArgument(state, 1);
    const QString key = LuaValue::textArgument(state, 2);
    FunctionValue fallbackValue;
    LuaValue::read(state, 3, fallbackValue);
    const QVariant fallback = LuaValue::toVariant(fallbackValue);
    const QVariant value = read(state, [&](CallbackProvider &provider) {
        return provider.parameterProperty(coordinate, key, fallback);
    });
    LuaValue::push(state, value);
    return 1;
}

int elementProperty(lua_State *state)
{
    const quint16 coordinate = LuaValue::coordinateArgument(state, 1);
    const quint16 element = elementArgument(state, 2);
    const auto property = quint32(LuaValue::numberArgument(state, 3, 0, MostUint32));
    const QVariant value = read(state, [&](CallbackProvider &provider) {
        return provider.elementProperty(coordinate, element, property);
    });
    LuaValue::push(state, value);
    return 1;
}

int datatypeProperty(lua_State *state)
{
    const quint16 coordinate = LuaValue::coordinateArgument(state, 1);
    const QString key = LuaValue::textArgument(state, 2);
    const QVariant value = read(state,
        [&](CallbackProvider &provider) { return provider.datatypeProperty(coordinate, key); });
    LuaValue::push(state, value);
    return 1;
}

int systemProperty(lua_State *state)
{
    const QString key = LuaValue::textArgument(state, 1);
    const QVariant value =
        read(state, [&](CallbackProvider &provider) { return provider.systemProperty(key); });
    LuaValue::push(state, value);
    return 1;
}

int containerText(lua_State *state)
{
    const QString key = LuaValue::textArgument(state, 1);
    const QString text =
        read(state, [&](CallbackProvider &provider) { return provider.containerText(key); });
    LuaValue::push(state, text);
    return 1;
}

template <MessageOperation Operation>
int addMessage(lua_State *state)
{
    const QString text = LuaValue::textArgument(state, 1);
    act(state, MessagePrice, [&](CallbackProvider &provider) { (provider.*Operation)(text); });
    return 0;
}

constexpr luaL_Reg Functions[] = {
    {"readValue", readText<&CallbackProvider::readValue>},
    {"readValueNative", readValueNative},
    {"readUndecoratedValue", readText<&CallbackProvider::readUndecoratedValue>},
    {"writeValue", writeText<&CallbackProvider::writeValue>},
    {"writeValueNative", writeText<&CallbackProvider::writeValueNative>},
    {"writeUndecoratedValue", writeText<&CallbackProvider::writeUndecoratedValue>},
    {"parameterProperty", parameterProperty},
    {"elementProperty", elementProperty},
    {"datatypeProperty", datatypeProperty},
    {"systemProperty", systemProperty},
    {"containerText", containerText},
    {"addInformationMessage", addMessage<&CallbackProvider::addInformationMessage>},
    {"addWarningMessage", addMessage<&CallbackProvider::addWarningMessage>},
    {"addCriticalMessage", addMessage<&CallbackProvider::addCriticalMessage>},
    {nullptr, nullptr},
};

} // namespace

void LuaCallbacks::install(lua_State *state)
{
    luaL_setfuncs(state, Functions, 0);
}

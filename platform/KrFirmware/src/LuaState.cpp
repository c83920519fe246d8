#include "LuaState.h"

#include "FindingText.h"
#include "FunctionCall.h"
#include "LuaLibrary.h"
#include "LuaQuestion.h"

#include <new>

namespace {

/// Its address is the key of the global names in the registry.
char libraryKey = 0;
/// What a call needs: the function and its results.
constexpr int Slots = 4;
constexpr int MostReasonSize = 300;
/// Texts of errors begin with it and a line.
constexpr char ChunkName[] = "=line";
constexpr QLatin1StringView LinePrefix("line:");
constexpr QLatin1StringView TooDeep("C stack overflow");

/// An error text of Lua, "line:3: reason", as "line 3: reason".
QString readable(const QString &error)
{
    const QString text = error.left(MostReasonSize);
    const qsizetype end = text.indexOf(u':', LinePrefix.size());
    if (!text.startsWith(LinePrefix) || end < 0)
        return text;
    const QString line = text.mid(LinePrefix.size(), end - LinePrefix.size());
    return FindingText::tr("line %1:%2").arg(line, text.mid(end + 1));
}

/// What an error was raised with.
QString reasonOf(lua_State *state)
{
    FunctionValue value;
    LuaValue::read(state, -1, value);
    if (const QString *text = std::get_if<QString>(&value))
        return readable(*text);
    if (const FunctionValueType *type = std::get_if<FunctionValueType>(&value))
        return FindingText::tr("an error without a text (a %1)").arg(QLatin1StringView(type->name));
    const QString shown = LuaValue::toVariant(value).toString();
    return shown.isEmpty() ? FindingText::tr("an error without a text") : shown;
}

struct Chunk {
    const QByteArray &text;
    int place;
};

int openLibrary(lua_State *state)
{
    LuaLibrary::push(state);
    lua_rawsetp(state, LUA_REGISTRYINDEX, &libraryKey);
    return 0;
}

/// Compiles the chunk and puts it into the registry.
int keepFunction(lua_State *state)
{
    auto &chunk = *static_cast<Chunk *>(lua_touserdata(state, 1));
    const int status =
        luaL_loadbufferx(state, chunk.text.constData(), size_t(chunk.text.size()), ChunkName, "t");
    if (status != LUA_OK)
        return lua_error(state);
    lua_rawgetp(state, LUA_REGISTRYINDEX, &libraryKey);
    lua_setupvalue(state, -2, 1);
    chunk.place = luaL_ref(state, LUA_REGISTRYINDEX);
    return 0;
}

void close(lua_State *state)
{
    if (state)
        lua_close(state);
}

/// A function's own code runs: its time counts, and its numbers are written plainly.
class Running {
public:
    Running(FunctionContext &context, FunctionCall &call)
        : m_context(context)
        , m_call(call)
    {
        context.begin(call);
        context.budget().enter();
    }
    ~Running()
    {
        m_context.budget().leave();
        m_context.end(m_call);
    }
    Q_DISABLE_COPY_MOVE(Running)

private:
    FunctionContext &m_context;
    FunctionCall &m_call;
    NumberLocale m_locale {NumberLocale::eLocale::Plain};
};

} // namespace

LuaState::LuaState()
    : m_heap(m_context.budget())
    , m_state(lua_newstate(LuaHeap::allocate, &m_heap), close)
{
    if (!m_state)
        throw std::bad_alloc();
    *static_cast<FunctionContext **>(lua_getextraspace(m_state.get())) = &m_context;
    lua_pushcfunction(m_state.get(), openLibrary);
    if (lua_pcall(m_state.get(), 0, 0, 0) != LUA_OK)
        throw std::bad_alloc();
    lua_sethook(m_state.get(), countStep, LUA_MASKCOUNT, FunctionBudget::Step);
}

LuaState::~LuaState() = default;

QString LuaState::compile(const QByteArray &text, int &place)
{
    m_context.budget().renew();
    m_heap.setMostBytes(MostCompiledBytes);
    Chunk chunk {text, LUA_NOREF};
    lua_pushcfunction(m_state.get(), keepFunction);
    lua_pushlightuserdata(m_state.get(), &chunk);
    const int status = lua_pcall(m_state.get(), 1, 0, 0);
    m_heap.setMostBytes(LuaHeap::MostBytes);
    if (status == LUA_OK) {
        place = chunk.place;
        return {};
    }
    QString reason = reasonOf(m_state.get());
    if (status == LUA_ERRMEM)
        reason = FindingText::tr("the functions need too much memory");
    else if (reason.endsWith(TooDeep))
        reason = FindingText::tr("the function is nested too deeply");
    lua_settop(m_state.get(), 0);
    return reason;
}

FunctionOutcome LuaState::run(int place, FunctionCall &call)
{
    FunctionOutcome outcome;
    // What is to end asks nothing more.
    if (isRunning() && m_context.isStopped())
        return outcome;
    if (!isRunning() && m_context.isChangeSpent()) {
        refuse(outcome);
        return outcome;
    }
    lua_State *const state = m_state.get();
    const int top = lua_gettop(state);
    const Running running(m_context, call);
    this->call(place, call, outcome);
    lua_settop(state, top);
    // The next call is to find the memory that this one needed.
    if (!outcome.hasReturned() && !call.outer)
        lua_gc(state, LUA_GCCOLLECT);
    return outcome;
}

void LuaState::call(int place, const FunctionCall &call, FunctionOutcome &outcome)
{
    lua_State *const state = m_state.get();
    if (!lua_checkstack(state, Slots))
        return fail(LUA_ERRMEM, call, outcome);
    lua_rawgeti(state, LUA_REGISTRYINDEX, place);
    const int status = lua_pcall(state, 0, int(outcome.values.size()), 0);
    if (status != LUA_OK)
        return fail(status, call, outcome);
    outcome.end = FunctionOutcome::eEnd::Returned;
    LuaValue::read(state, -2, outcome.values[0]);
    LuaValue::read(state, -1, outcome.values[1]);
}

void LuaState::fail(int status, const FunctionCall &call, FunctionOutcome &outcome)
{
    if (m_context.budget().isSpent()) {
        m_context.giveUp(FindingText::tr("the budget of %1 instructions is spent")
                             .arg(FunctionBudget::Instructions));
    } else if (status == LUA_ERRMEM) {
        m_context.giveUp(
            FindingText::tr("more than %1 bytes of memory, or %2 in one piece, are needed")
                .arg(LuaHeap::MostBytes)
                .arg(LuaHeap::MostBlockBytes));
    } else if (!m_context.isStopped()) {
        const QString reason = reasonOf(m_state.get());
        if (status == LUA_ERRERR || reason.endsWith(TooDeep))
            m_context.stop(FindingText::tr("the functions are nested too deeply"));
        else
            outcome.reason = reason;
    }
    if (m_context.isStopped())
        outcome.reason = m_context.takeReason(call);
    outcome.end =
        outcome.reason.isEmpty() ? FunctionOutcome::eEnd::Stopped : FunctionOutcome::eEnd::Failed;
}

void LuaState::refuse(FunctionOutcome &outcome)
{
    if (!m_context.takeChangeReport())
        return;
    outcome.end = FunctionOutcome::eEnd::Failed;
    outcome.reason = FindingText::tr("the functions that follow from one change need more than %1 "
                                     "instructions; the rest of them is not run")
                         .arg(ChangeBudget::Instructions);
}

void LuaState::countStep(lua_State *state, lua_Debug *)
{
    FunctionContext &context = LuaQuestion::contextOf(state);
    context.budget().countStep();
    if (context.budget().isSpent() || context.isStopped())
        LuaQuestion::stop(state);
}

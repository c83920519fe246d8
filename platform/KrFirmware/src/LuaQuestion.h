#pragma once

#include "FunctionContext.h"
#include "LuaValue.h"
#include "NumberLocale.h"

#include <exception>
#include <optional>

/// What a function asks of C++, from inside of Lua. Arguments are read from Lua before, answers
/// given to it after; in between no exception crosses Lua's frames and none of Lua's crosses ours.
class LuaQuestion {
public:
    explicit LuaQuestion(lua_State *state)
        : m_state(state)
        , m_context(contextOf(state))
    {
    }

    static FunctionContext &contextOf(lua_State *state)
    {
        return **static_cast<FunctionContext **>(lua_getextraspace(state));
    }

    FunctionContext &context() const { return m_context; }
    /// Counts as so many instructions. **Throws** a Lua error where the budget is spent.
    void charge(qint64 instructions) const;
    /// **Throws** a Lua error where `ask` throws anything, and where all functions are to end.
    template <typename Ask>
    auto answer(Ask ask) const -> decltype(ask())
    {
        decltype(ask()) result {};
        const std::optional<QByteArray> failure = attempt([&] { result = ask(); });
        if (failure)
            LuaValue::raise(m_state, QString::fromUtf8(*failure));
        goOn();
        return result;
    }

    /// What all functions end with that are stopped.
    [[noreturn]] static void stop(lua_State *state);
    static bool isStop(lua_State *state, int position);

private:
    template <typename Attempt>
    std::optional<QByteArray> attempt(Attempt run) const
    {
        const Outside outside(m_context.budget());
        try {
            run();
        } catch (const std::exception &exception) {
            return QByteArray(exception.what());
        } catch (...) {
            return QByteArrayLiteral("an exception without a text");
        }
        return std::nullopt;
    }

    /// The function waits meanwhile: neither its time nor its locale counts.
    class Outside {
    public:
        explicit Outside(FunctionBudget &budget)
            : m_budget(budget)
        {
            m_budget.leave();
        }
        ~Outside() { m_budget.enter(); }
        Q_DISABLE_COPY_MOVE(Outside)

    private:
        FunctionBudget &m_budget;
        NumberLocale m_locale {NumberLocale::eLocale::Process};
    };

    void goOn() const;

    lua_State *m_state;
    FunctionContext &m_context;
};

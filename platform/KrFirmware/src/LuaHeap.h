#pragma once

#include "FunctionBudget.h"

#include <cstddef>

/// The memory of one Lua state, which is bounded.
class LuaHeap {
public:
    /// **Unit** bytes, for everything that the state holds.
    static constexpr size_t MostBytes = size_t(4) * 1024 * 1024;
    /// **Unit** bytes. One text or one part of a table is not larger, so that no single instruction
    /// takes long.
    static constexpr size_t MostBlockBytes = size_t(256) * 1024;

    explicit LuaHeap(FunctionBudget &budget)
        : m_budget(budget)
    {
    }
    Q_DISABLE_COPY_MOVE(LuaHeap)

    /// **Range** up to MostBytes.
    void setMostBytes(size_t bytes) { m_mostBytes = bytes; }

    /// Lua's allocation function; `heap` is this heap. Shrinking never fails.
    static void *allocate(void *heap, void *block, size_t oldSize, size_t newSize) noexcept;

private:
    void *resize(void *block, size_t oldSize, size_t newSize) noexcept;

    FunctionBudget &m_budget;
    size_t m_mostBytes = MostBytes;
    size_t m_bytes = 0;
};

#include "LuaHeap.h"

#include <cstdlib>

namespace {

/// What an instruction's time fills.
constexpr size_t BytesPerInstruction = 16;
/// Lua answers a refusal with a full collection, which goes through up to 4 MiB.
constexpr qint64 RefusalInstructions = FunctionBudget::Instructions / 4;

} // namespace

void *LuaHeap::allocate(void *heap, void *block, size_t oldSize, size_t newSize) noexcept
{
    // Without a block the old size tells the kind of the new one.
    return static_cast<LuaHeap *>(heap)->resize(block, block ? oldSize : 0, newSize);
}

void *LuaHeap::resize(void *block, size_t oldSize, size_t newSize) noexcept
{
    if (newSize == 0) {
        std::free(block);
        m_bytes -= oldSize;
        return nullptr;
    }
    if (newSize > oldSize) {
        const size_t growth = newSize - oldSize;
        if (m_budget.isSpent())
            return nullptr;
        if (newSize > MostBlockBytes || growth > m_mostBytes - qMin(m_bytes, m_mostBytes)) {
            m_budget.charge(RefusalInstructions);
            return nullptr;
        }
        m_budget.charge(qint64(growth / BytesPerInstruction));
    }
    void *const result = std::realloc(block, newSize);
    if (result)
        m_bytes = m_bytes - oldSize + newSize;
    // Lua relies on shrinking: the larger block serves as well.
    return !result && newSize <= oldSize ? block : result;
}

#include "snapshot/SnapshotPool.h"

namespace {

size_t contentHash(const SnapshotLayout &layout)
{
    size_t seed = 0;
    for (const eLivingSpace livingSpace : layout.livingSpaces)
        seed = qHashMulti(seed, static_cast<qint32>(livingSpace));
    for (const eLivingSpace livingSpace : layout.tables)
        seed = qHashMulti(seed, static_cast<qint32>(livingSpace));
    return qHashMulti(seed, layout.elements, layout.positions, layout.readLevels);
}

} // namespace

SnapshotPool::Units SnapshotPool::units(const QString &scaled, const QString &native)
{
    if (scaled.isEmpty() && native.isEmpty())
        return {};
    if (m_lastUnits && m_lastUnits->scaled == scaled && m_lastUnits->native == native)
        return m_lastUnits;
    Units &known = m_units[{scaled, native}];
    if (!known) {
        auto *units = new SnapshotUnits;
        units->scaled = scaled;
        units->native = native;
        known.reset(units);
    }
    m_lastUnits = known;
    return known;
}

SnapshotPool::Layout SnapshotPool::layout(const SnapshotLayout &layout)
{
    if (m_lastLayout && *m_lastLayout == layout)
        return m_lastLayout;
    const size_t hash = contentHash(layout);
    for (auto known = m_layouts.constFind(hash); known != m_layouts.cend() && known.key() == hash;
         ++known) {
        if (**known == layout)
            return m_lastLayout = *known;
    }
    m_lastLayout.reset(new SnapshotLayout(layout));
    m_layouts.insert(hash, m_lastLayout);
    return m_lastLayout;
}

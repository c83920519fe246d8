#pragma once

#include "instance/CoordinateRegistry.h"
#include "value/LifeGuard.h"

/// Stands around a change of a value that others follow, for the keeper's count of what comes of it.
class DependencyChange {
public:
    /// Null: nobody counts. The registry may go meanwhile.
    explicit DependencyChange(CoordinateRegistry *registry)
        : m_registry(registry)
        , m_guard(registry)
    {
        if (m_registry)
            m_registry->beginChange();
    }
    ~DependencyChange()
    {
        if (m_registry && m_guard)
            m_registry->endChange();
    }
    Q_DISABLE_COPY_MOVE(DependencyChange)

private:
    CoordinateRegistry *const m_registry;
    const LifeGuard m_guard;
};

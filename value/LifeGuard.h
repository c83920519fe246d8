#pragma once

#include <cstddef>
#include <vector>

/// Tells after a call into foreign code whether an object is still there. Cheap enough for every read:
/// while at least one guard stands, the objects that go are noted; nothing is allocated otherwise.
///
/// Watches objects that report their end with died(). All of them live on one thread.
class LifeGuard {
public:
    /// **Owner** the caller; the object is only compared, never touched.
    explicit LifeGuard(const void *object)
        : m_object(object)
        , m_deathsBefore(deaths)
    {
        ++standing;
    }
    ~LifeGuard()
    {
        if (--standing == 0 && !dead.empty())
            dead.clear();
    }
    LifeGuard(const LifeGuard &) = delete;
    LifeGuard &operator=(const LifeGuard &) = delete;

    /// What was given; dangling once the guard is false.
    const void *object() const { return m_object; }
    explicit operator bool() const { return deaths == m_deathsBefore || !hasDied(); }

    /// To be called by the destructor of a watched object.
    static void died(const void *object)
    {
        if (standing == 0)
            return;
        dead.push_back(object);
        ++deaths;
    }

private:
    bool hasDied() const;

    static int standing;
    static std::vector<const void *> dead;
    /// Noted since the program started; of these the last are in `dead`.
    static std::size_t deaths;

    const void *m_object;
    /// Objects noted before this guard stood are others, whatever their address.
    std::size_t m_deathsBefore;
};

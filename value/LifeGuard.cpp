#include "value/LifeGuard.h"

#include <algorithm>

int LifeGuard::standing = 0;
std::vector<const void *> LifeGuard::dead;
std::size_t LifeGuard::deaths = 0;

bool LifeGuard::hasDied() const
{
    return std::find(dead.end() - std::ptrdiff_t(deaths - m_deathsBefore), dead.end(), m_object)
        != dead.end();
}

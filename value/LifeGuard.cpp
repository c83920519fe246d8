#include "value/LifeGuard.h"

#include <algorithm>

int LifeGuard::standing = 0;
std::vector<const void *> LifeGuard::dead;

bool LifeGuard::hasDied() const
{
    return std::find(dead.begin() + std::ptrdiff_t(m_first), dead.end(), m_object) != dead.end();
}

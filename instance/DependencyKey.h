#pragma once

#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QHashFunctions>

/// What a receiver waits for: the kind of dependency, and the number that it shares with the sources. For
/// a measuring unit that is the number of the coordinate which the unit locator names.
struct DependencyKey {
    eParameterProperty dependency;
    qint32 reference;

    friend bool operator==(const DependencyKey &, const DependencyKey &) = default;
    friend size_t qHash(const DependencyKey &key, size_t seed = 0)
    {
        return qHashMulti(seed, quint32(key.dependency), key.reference);
    }
};

#pragma once

#include "tests/instance/InstanceStand.h"

/// Source A12 with a dependency, receiver B07 with a function index.
struct DependencyPair {
    CoordinateInstanceSet *source;
    CoordinateInstanceSet *receiver;
};

inline DependencyPair addPair(InstanceStand &stand, eParameterProperty dependency,
    const QVariant &reference, eParameterProperty index, const QVariant &receiverIndex)
{
    return {stand.add(DefinitionBuilder().property(dependency, reference), QStringLiteral("A12")),
        stand.add(DefinitionBuilder().property(index, receiverIndex), QStringLiteral("B07"))};
}

/// A time of day that the test moves.
struct TestClock {
    explicit TestClock(InstanceStand &stand)
    {
        ContainerInternals::of(*stand.container)->clock = [this] { return now; };
    }
    QTime now {12, 0};
};

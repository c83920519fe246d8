#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QList>

/// Where an index of the object dictionary stands by itself, before a table knows it.
///
/// The place follows from the index alone, so that it does not depend on the order in which files
/// are read. Ranges of the dictionary that drives use have a place of their own; every other index
/// shares the lines of the groups A, B, Y and Z.
class CoordinatePlan {
public:
    /// May be given to an index: neither the moveable group nor the parameter that selects the
    /// active axis.
    static bool isUsable(ParameterCoordinate coordinate);
    /// The index's own place; invalid where it has none.
    static ParameterCoordinate ownPlace(quint16 index);

    /// Lines that indices share.
    static constexpr int SharedCount = 4000;
    /// The shared place number `position`. **Range** 0 to SharedCount - 1.
    static ParameterCoordinate sharedPlace(int position);
    /// Where the search for a shared place begins.
    static int firstSharedPosition(quint16 index) { return index % SharedCount; }
};

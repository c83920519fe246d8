#pragma once

#include "SmallDevice.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

/// Snapshots of the small device.
inline std::unique_ptr<ParameterValueSnapshot> frozen(DriveProject &project)
{
    auto snapshot = std::make_unique<ParameterValueSnapshot>(&project.container());
    snapshot->applyNoFilter();
    snapshot->disconnectFromSourceContainer();
    return snapshot;
}

inline void write(DriveProject &project, int livingSpace, const char *coordinate, quint16 element,
    const char *text)
{
    project.container().writeValueNative(
        eLivingSpace(livingSpace), at(coordinate), element, QString::fromUtf8(text));
}

#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/online/RegisterSpan.h"

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QString>

#include <chrono>

class SimpleType;

/// One value of a device with the registers that carry it and what its definition says about its way
/// to the drive.
struct MappedValue {
    ValuePlace place;
    ParameterAddress address;
    RegisterSpan span;
    /// **Owner** the table of data types.
    const SimpleType *type = nullptr;
    /// Property 45: values are read and written in ascending order.
    quint32 onlineOrder = 0;
    /// The drive keeps it; any other writable value is a command.
    bool isStored = true;
    bool isReadOnly = false;
    /// Element 0 of a record: what it says holds for the other ones, as the idle action for its result.
    bool leadsRecord = false;
    /// Functions of the device may write when it changes.
    bool leadsToFunctions = false;
    /// It is one of several elements.
    bool isOneOfSeveral = false;
    /// What the drive may need beyond the usual for an answer.
    std::chrono::milliseconds additionalReadTime {0};
    std::chrono::milliseconds additionalWriteTime {0};
    /// The least time between two cyclic reads.
    std::chrono::milliseconds cyclicInterval {0};

    /// "2.B01", as users know it.
    QString addressText() const
    {
        return address.toText(place.livingSpace == eLivingSpace::Global, isOneOfSeveral);
    }
    /// What a project holds and a download writes.
    bool isSetting() const { return isStored && !isReadOnly; }
};

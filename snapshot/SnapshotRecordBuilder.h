#pragma once

#include "snapshot/ParameterFilterElement.h"
#include "snapshot/SnapshotPool.h"
#include "snapshot/SnapshotRecord.h"

#include <QtCore/QSet>

#include <optional>

class Filter;
class ParameterInformation;

/// Freezes one parameter after the other. Records that it made share what they have in common.
class SnapshotRecordBuilder {
public:
    /// Whether the container hides values of a high write level, as it does while it is offline.
    enum class eMasking { None, ByWriteLevel };

    /// Filter null: everything is accepted. **Owner** of the filter the caller.
    SnapshotRecordBuilder(const QSet<eLivingSpace> &livingSpaces, const Filter *filter);

    /// Nothing where no value is held in the end, and where the parameter goes away meanwhile (its
    /// texts come from the firmware's functions).
    ///
    /// An element that is rejected in one living space leaves the element list for good; the values
    /// of a living space are held only while that list is not empty.
    std::optional<SnapshotRecord> build(
        ParameterInformation *information, eMasking masking = eMasking::ByWriteLevel);

private:
    class Draft;

    bool isAccepted(
        const ParameterInformation &information, eLivingSpace livingSpace, quint16 element);

    QSet<eLivingSpace> m_livingSpaces;
    const Filter *m_filter;
    ParameterFilterElement m_filterElement;
    SnapshotPool m_pool;
    /// Of the parameter at hand.
    SnapshotLayout m_layout;
};

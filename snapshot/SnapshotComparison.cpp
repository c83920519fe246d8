#include "snapshot/SnapshotComparison.h"

#include <algorithm>

namespace {

const SnapshotUnits &unitsOf(const SnapshotValue &value)
{
    static const SnapshotUnits none;
    return value.units ? *value.units : none;
}

/// Nothing of the texts is read: a value that nobody wrote shares its native text with the
/// container, and so do all snapshots of it.
bool shareNativeText(const SnapshotValue &a, const SnapshotValue &b)
{
    return a.native.constData() == b.native.constData() && a.native.size() == b.native.size();
}

/// Texts are put together with their units only where the units differ.
bool areDifferent(const SnapshotValue &a, const SnapshotValue &b)
{
    const SnapshotUnits &units = unitsOf(a);
    const SnapshotUnits &otherUnits = unitsOf(b);
    const bool hasSameNative = units.native == otherUnits.native
        ? shareNativeText(a, b) || a.native == b.native
        : a.nativeWithUnit() == b.nativeWithUnit();
    if (hasSameNative)
        return false;
    return units.scaled == otherUnits.scaled ? a.display != b.display
                                             : a.displayWithUnit() != b.displayWithUnit();
}

/// In one living space.
bool areDifferent(
    const SnapshotRecord &record, const SnapshotRecord &other, eLivingSpace livingSpace)
{
    const QList<quint16> &elements = record.layout().elements;
    const auto values = record.sequence(livingSpace);
    const auto others = other.sequence(livingSpace);
    // Elements are among the positions: as many of both are the same ones.
    const auto size = static_cast<size_t>(elements.size());
    if (values.size() == size && others.size() == size) {
        return !std::equal(values.begin(), values.end(), others.begin(),
            [](const SnapshotValue &a, const SnapshotValue &b) { return !areDifferent(a, b); });
    }
    return std::any_of(elements.cbegin(), elements.cend(), [&](quint16 element) {
        return areDifferent(record.value(livingSpace, element), other.value(livingSpace, element));
    });
}

} // namespace

QList<ParameterCoordinate> SnapshotComparison::differentCoordinates(
    const SnapshotRecords &records, const SnapshotRecords &others)
{
    QList<ParameterCoordinate> onOneSide;
    QList<ParameterCoordinate> different;
    auto record = records.cbegin();
    auto other = others.cbegin();
    while (record != records.cend() && other != others.cend()) {
        if (record.key() < other.key()) {
            onOneSide.append(record++.key());
        } else if (other.key() < record.key()) {
            onOneSide.append(other++.key());
        } else {
            if (areDifferent(*record, *other))
                different.append(record.key());
            ++record;
            ++other;
        }
    }
    for (; record != records.cend(); ++record)
        onOneSide.append(record.key());
    for (; other != others.cend(); ++other)
        onOneSide.append(other.key());
    return onOneSide + different;
}

bool SnapshotComparison::areDifferent(const SnapshotRecord &record, const SnapshotRecord &other)
{
    const SnapshotLayout &layout = record.layout();
    if (!layout.coversTheSame(other.layout()))
        return true;
    return std::any_of(layout.livingSpaces.cbegin(), layout.livingSpaces.cend(),
        [&](eLivingSpace livingSpace) { return ::areDifferent(record, other, livingSpace); });
}

#include "snapshot/SnapshotComparison.h"

namespace {

bool haveSameUnits(const SnapshotValue &a, const SnapshotValue &b)
{
    if (a.units == b.units)
        return true;
    return a.scaledUnit() == b.scaledUnit() && a.nativeUnit() == b.nativeUnit();
}

/// Texts are put together with their units only where the units differ.
bool areDifferent(const SnapshotValue &a, const SnapshotValue &b)
{
    if (haveSameUnits(a, b))
        return a.display != b.display && a.native != b.native;
    return a.displayWithUnit() != b.displayWithUnit() && a.nativeWithUnit() != b.nativeWithUnit();
}

/// The coordinates of the records that the others lack.
void appendMissing(QList<ParameterCoordinate> &result, const SnapshotRecords &records,
    const SnapshotRecords &others)
{
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        if (!others.contains(record.key()))
            result.append(record.key());
    }
}

} // namespace

QList<ParameterCoordinate> SnapshotComparison::differentCoordinates(
    const SnapshotRecords &records, const SnapshotRecords &others)
{
    QList<ParameterCoordinate> result;
    appendMissing(result, records, others);
    appendMissing(result, others, records);
    for (auto record = records.cbegin(); record != records.cend(); ++record) {
        const auto other = others.constFind(record.key());
        if (other != others.cend() && areDifferent(*record, *other))
            result.append(record.key());
    }
    return result;
}

bool SnapshotComparison::areDifferent(const SnapshotRecord &record, const SnapshotRecord &other)
{
    const QList<eLivingSpace> &livingSpaces = record.layout().livingSpaces;
    const QList<quint16> &elements = record.layout().elements;
    if (livingSpaces != other.layout().livingSpaces || elements != other.layout().elements)
        return true;
    for (const eLivingSpace livingSpace : livingSpaces) {
        for (const quint16 element : elements) {
            if (::areDifferent(
                    record.value(livingSpace, element), other.value(livingSpace, element)))
                return true;
        }
    }
    return false;
}

#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtCore/QList>
#include <QtCore/QString>

class ParameterValueSnapshot;

/// Makes the rows that show snapshots side by side.
class SnapshotRowModel {
public:
    /// Null among the snapshots counts as an empty one. **Owner** of the snapshots the caller.
    SnapshotRowModel(const QList<ParameterValueSnapshot *> &snapshots, quint32 accessLevel);

    /// Of one snapshot all coordinates, of several those that differ between neighbours; in no
    /// particular order.
    QList<ParameterCoordinate> coordinates() const;
    /// The rows of the coordinates, ascending by title on both levels, none hidden.
    QList<SnapshotRow> rows(QList<ParameterCoordinate> coordinates) const;

private:
    void appendRows(QList<SnapshotRow> &rows, const ParameterCoordinate &coordinate) const;
    QList<SnapshotRow> elementRows(
        const SnapshotRow &parent, const QString &place, const QList<quint16> &elements) const;
    SnapshotCell parameterCell(ParameterValueSnapshot *snapshot, const SnapshotRow &row) const;
    SnapshotCell elementCell(ParameterValueSnapshot *snapshot, const SnapshotRow &row) const;
    bool isReadable(const ParameterValueSnapshot *snapshot, const SnapshotRow &row) const;
    QString parameterName(const ParameterCoordinate &coordinate) const;
    QString elementName(const ParameterCoordinate &coordinate, quint16 element) const;

    QList<ParameterValueSnapshot *> m_snapshots;
    quint32 m_accessLevel;
};

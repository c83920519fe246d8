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
    /// What a snapshot has of one parameter.
    struct Holding {
        /// Null for one that is gone, which has nothing.
        ParameterValueSnapshot *snapshot = nullptr;
        QList<eLivingSpace> livingSpaces;
        QList<quint16> elements;
        /// Whether the user may read the value of a parameter that has but one element.
        bool isFirstReadable = true;
    };

    /// One for each living space, ascending.
    QList<SnapshotRow> parameterRows(const ParameterCoordinate &coordinate) const;
    QList<SnapshotRow> elementRows(const SnapshotRow &parent, const QString &place,
        const QList<quint16> &elements, const QList<Holding> &holdings) const;
    QList<Holding> holdingsOf(const ParameterCoordinate &coordinate) const;
    static QList<SnapshotCell> parameterCells(
        const SnapshotRow &row, const QList<Holding> &holdings);
    QList<SnapshotCell> elementCells(const SnapshotRow &row, const QList<Holding> &holdings) const;
    bool isReadable(const ParameterValueSnapshot *snapshot, const ParameterCoordinate &coordinate,
        quint16 element) const;
    QString parameterName(const ParameterCoordinate &coordinate) const;
    QString elementName(const ParameterCoordinate &coordinate, quint16 element) const;

    QList<ParameterValueSnapshot *> m_snapshots;
    quint32 m_accessLevel;
};

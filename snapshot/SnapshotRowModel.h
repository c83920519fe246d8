#pragma once

#include "snapshot/SnapshotRow.h"

#include <QtCore/QList>
#include <QtCore/QVarLengthArray>
#include <QtCore/QString>

class FillingProgress;
class ParameterValueSnapshot;
class ParameterValueSnapshotPrivate;
class SnapshotRecord;

/// Makes the rows that show snapshots side by side.
class SnapshotRowModel {
public:
    /// Null among the snapshots counts as an empty one. **Owner** of the snapshots the caller.
    SnapshotRowModel(const QList<ParameterValueSnapshot *> &snapshots, quint32 accessLevel);

    /// Of one snapshot all coordinates, of several those that differ between neighbours; in no
    /// particular order.
    QList<ParameterCoordinate> coordinates() const;
    /// The rows of the coordinates, ascending by title on both levels, none hidden.
    QList<SnapshotRow> rows(const QList<ParameterCoordinate> &coordinates) const;
    /// None where the progress is ended.
    QList<SnapshotRow> rows(
        QList<ParameterCoordinate> coordinates, FillingProgress &progress) const;

private:
    /// What a snapshot has of one parameter.
    struct Holding {
        bool hasLivingSpace(eLivingSpace livingSpace) const;
        bool hasElement(quint16 element) const;

        /// Null where it lacks the parameter, and for a snapshot that is gone.
        const SnapshotRecord *record = nullptr;
    };
    using Holdings = QVarLengthArray<Holding, 8>;

    /// One for each living space, ascending.
    QList<SnapshotRow> parameterRows(const ParameterCoordinate &coordinate) const;
    QList<SnapshotRow> elementRows(const SnapshotRow &parent, const QString &place,
        const QList<quint16> &elements, const Holdings &holdings) const;
    Holdings holdingsOf(const ParameterCoordinate &coordinate) const;
    QList<SnapshotCell> parameterCells(const SnapshotRow &row, const Holdings &holdings) const;
    QList<SnapshotCell> elementCells(const SnapshotRow &row, const Holdings &holdings) const;
    /// What a snapshot lacks has no level.
    bool isReadable(const Holding &holding, quint16 element) const;
    QString parameterName(const ParameterCoordinate &coordinate, const Holdings &holdings) const;
    QString elementName(const ParameterCoordinate &coordinate, quint16 element) const;

    QList<ParameterValueSnapshot *> m_snapshots;
    /// Theirs; null for one that is gone.
    QList<const ParameterValueSnapshotPrivate *> m_contents;
    quint32 m_accessLevel;
};

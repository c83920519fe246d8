#pragma once

#include "snapshot/SnapshotTable.h"

#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVarLengthArray>

#include <map>
#include <memory>

class FillingProgress;
class ParameterInformation;
class ParameterValueSnapshot;

/// Makes the rows that show snapshots side by side.
class SnapshotRowModel {
public:
    /// Null among the snapshots counts as an empty one. **Owner** of the snapshots the caller.
    SnapshotRowModel(const QList<ParameterValueSnapshot *> &snapshots, quint32 accessLevel);

    /// Of one snapshot all coordinates, of several those that differ between neighbours; in no
    /// particular order.
    QList<ParameterCoordinate> coordinates() const;
    /// The rows of the coordinates, none hidden.
    SnapshotTable table(const QList<ParameterCoordinate> &coordinates) const;
    /// No rows where the progress is ended.
    SnapshotTable table(
        const QList<ParameterCoordinate> &coordinates, FillingProgress &progress) const;

private:
    /// A title without prefix stands behind those that begin with a digit.
    struct GlobalIsLast {
        bool operator()(eLivingSpace a, eLivingSpace b) const
        {
            return a != eLivingSpace::Global && (b == eLivingSpace::Global || a < b);
        }
    };
    using RowNumbers = std::map<eLivingSpace, qsizetype, GlobalIsLast>;

    class RecordWalk;

    /// What a snapshot has of one parameter.
    struct Holding {
        bool hasLivingSpace(eLivingSpace livingSpace) const;
        bool hasElement(quint16 element) const;

        /// Null where it lacks the parameter, and for a snapshot that is gone.
        const SnapshotRecord *record = nullptr;
    };

    /// What all snapshots have of it. Both lists are ascending.
    struct Parameter {
        bool isSimple() const { return elements.size() == 1 && elements.first() == 0; }

        ParameterCoordinate coordinate;
        QString name;
        QVarLengthArray<Holding, 2> holdings;
        QList<eLivingSpace> livingSpaces;
        QList<quint16> elements;
    };

    /// Turns how many rows each living space has into the number of its first one. Answers how many
    /// there are in all.
    static qsizetype toFirstRows(RowNumbers &numbers);
    /// By coordinate.
    QList<Parameter> parameters(QList<ParameterCoordinate> coordinates) const;
    Parameter parameter(const ParameterCoordinate &coordinate, QList<RecordWalk> &walks) const;
    /// Each into the place that its living space has next.
    void fillRows(QList<SnapshotRow> &rows, RowNumbers &numbers, const Parameter &parameter) const;
    QList<SnapshotRow> elementRows(
        const Parameter &parameter, eLivingSpace livingSpace, const QString &place) const;
    SnapshotCell parameterCell(const Holding &holding, eLivingSpace livingSpace) const;
    SnapshotCell elementCell(
        const Holding &holding, eLivingSpace livingSpace, quint16 element) const;
    SnapshotCell missingCell() const { return {m_missing.get(), SnapshotCell::eState::Missing}; }
    static SnapshotCell heldCell(const SnapshotValue &value)
    {
        return {&value, SnapshotCell::eState::Held};
    }
    /// What a snapshot lacks has no level.
    bool isReadable(const Holding &holding, quint16 element) const;
    QString parameterName(const Parameter &parameter) const;
    QStringList elementNames(const Parameter &parameter, const QList<quint16> &elements) const;

    QList<QPointer<ParameterValueSnapshot>> m_snapshots;
    /// Theirs; none for one that is gone.
    QList<SnapshotRecords> m_records;
    std::shared_ptr<const SnapshotValue> m_missing;
    quint32 m_accessLevel;
};

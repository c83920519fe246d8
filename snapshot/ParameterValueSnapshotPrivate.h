#pragma once

#include "snapshot/SnapshotRecord.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>

class Filter;
class ParameterContainer;
class ParameterValueSnapshot;

/// The content of a snapshot. **Owner** the snapshot.
class ParameterValueSnapshotPrivate : public QObject {
    Q_OBJECT

public:
    ParameterValueSnapshotPrivate(ParameterContainer *container, ParameterValueSnapshot *owner);
    ~ParameterValueSnapshotPrivate() override;

    /// Null where there is none.
    const SnapshotRecord *record(const ParameterCoordinate &coordinate) const;
    /// The empty value where there is none.
    const SnapshotValue &value(
        eLivingSpace livingSpace, const ParameterCoordinate &coordinate, quint16 element) const;
    /// Replaces the records by what the container holds and the filter accepts; null accepts all.
    /// Holds nothing where the filter throws.
    void rebuild(const Filter *filter);
    bool readJson(const QByteArray &json, QString &problem);
    bool unite(const ParameterValueSnapshotPrivate *other);

    /// Null once disconnected or destroyed.
    QPointer<ParameterContainer> sourceContainer;
    SnapshotRecords records;
    /// The living spaces that the snapshot takes. Order carries no meaning.
    QSet<eLivingSpace> livingSpaceSet;
    bool saveToTextFileEnabled = true;
    ParameterValueSnapshot *owner;
};

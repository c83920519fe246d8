#pragma once

#include "snapshot/SnapshotPool.h"
#include "snapshot/SnapshotRecord.h"

#include <QtCore/QJsonObject>

#include <optional>

class QJsonArray;

/// One parameter of a snapshot as a JSON object, see SnapshotJson. Records that it read share what
/// they have in common.
class SnapshotJsonParameter {
public:
    static QJsonObject write(const ParameterCoordinate &coordinate, const SnapshotRecord &record);
    static QJsonArray write(QList<eLivingSpace> livingSpaces);

    /// Nothing where the object is not of the form.
    std::optional<SnapshotRecord> read(const QJsonObject &object);
    /// Ascending, each once.
    static std::optional<QList<eLivingSpace>> readLivingSpaces(const QJsonValue &value);

private:
    class Draft;

    SnapshotPool m_pool;
};

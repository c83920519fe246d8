#pragma once

#include "apps/import/ImportRemarks.h"
#include "apps/import/SkippedObject.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

/// What an import found in one file and what became of it.
struct ImportReport {
    Q_DECLARE_TR_FUNCTIONS(ImportReport)

public:
    QString fileName;
    QString familyName;
    quint32 familyIdentifier = 0;
    /// With which expressions of the file were computed.
    std::optional<quint8> nodeId;
    /// Expressions of the node id that have no value, since it is not known.
    qsizetype valuesWithoutNodeId = 0;
    qsizetype objectsRead = 0;
    qsizetype elementsRead = 0;
    qsizetype configuredValues = 0;
    /// Coordinates that the table did not know before.
    qsizetype newCoordinates = 0;
    /// Ascending by index.
    QList<SkippedObject> skipped;
    ImportRemarks remarks;

    /// Objects among the skipped, without sub-objects.
    qsizetype objectsSkipped() const;
    /// One finding a line, with a line end behind each.
    QString toText() const;
    QJsonObject toJson() const;
};

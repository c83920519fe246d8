#pragma once

#include "snapshot/SnapshotRecord.h"

#include <QtCore/QByteArray>
#include <QtCore/QSet>

#include <optional>

/// Writes the content of a snapshot as JSON text and reads it again.
///
/// **Shape**
///   {"format": "kr-parameter-snapshot", "version": 1, "livingSpaces": [numbers],
///    "parameters": [one object a line, ascending by coordinate]}
/// A parameter has "coordinate", "name", "livingSpaces", "elements" and "values"; an element
/// "number", "readLevel", "name" and "isRejected"; a value "livingSpace", "element", "display",
/// "native", "value", "scaledUnit" and "nativeUnit". Names and units that are empty, and false, are
/// left out. **Encoding** UTF-8.
class SnapshotJson {
public:
    struct Content {
        QSet<eLivingSpace> livingSpaces;
        SnapshotRecords records;
    };

    static QByteArray write(const Content &content);
    /// **Refused** any other form: nothing; `problem` then says what is wrong.
    static std::optional<Content> read(const QByteArray &json, QString &problem);
};

#pragma once

#include "snapshot/SnapshotRecord.h"

#include <QtCore/QList>
#include <QtCore/QString>

/// Writes the semicolon text of records.
///
/// **Shape**
///   file  = EF BB BF 0D 0A, then lines
///   line  = '"' place '";"' name '";"' value '"' LF
///   place = [ living space "." ] coordinate [ "[" element "]" ]
/// Living space 0 has no prefix; the element stands where a parameter has others than element 0
/// alone; the name is the element's, or else the parameter's; the value is the display text with
/// unit. Lines go by coordinate, living space and element. **Encoding** UTF-8; line ends as the
/// platform has them, but for the five bytes at the beginning. Deliberate: quotes inside a field
/// stand as they are.
class SnapshotTextExport {
public:
    /// Parameters without record are skipped, those named twice are written twice.
    /// **Refused** where the file cannot be opened: false. Errors while writing are not noticed.
    static bool write(const QString &fileName, const SnapshotRecords &records,
        QList<ParameterCoordinate> coordinates, const QList<eLivingSpace> &livingSpaces);
};

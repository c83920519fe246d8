#pragma once

#include "apps/import/ConfiguredValues.h"
#include "apps/import/ImportReport.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <optional>

/// What is to be imported into where.
struct ImportRequest {
    /// Electronic data sheet or device configuration file.
    QString sourceFile;
    /// Coordinate table; made when it is missing, extended where an index is new.
    QString coordinateTable;
    /// Device description; replaced where it exists.
    QString outputFile;
    /// **Range** 1 to 127. Goes before the file's own.
    std::optional<quint8> nodeId;
    /// Asked before anything is written, where the file configures values: a text is the reason why
    /// they have no place, which refuses the whole import. May be null.
    std::function<QString()> refusalOfConfiguredValues = {};
};

/// What came of an import.
struct ImportResult {
    enum class eStatus {
        Good,
        /// The request contradicts itself.
        BadRequest,
        /// The source or the table cannot be read or used.
        UnreadableInput,
        WriteFailed,
    };

    eStatus status = eStatus::Good;
    /// With the name of the file; empty when good.
    QString error;
    /// Filled as far as the import came.
    ImportReport report;
    /// The source was read to its end: the report says what became of every object, also where
    /// nothing usable remained or nothing could be written.
    bool isReportComplete = false;
    /// The source is named as a configuration (".dcf") or has a ParameterValue, usable or not.
    bool isConfiguration = false;
    /// Empty for a file that configures nothing.
    ConfiguredValues configuredValues;
};

/// Turns a CiA 306 object dictionary into a device description.
///
/// Nothing is written unless the source and the table could be used. The table is written before
/// the description, so that no description names a coordinate that the table does not hold; each
/// file is replaced as a whole or stays as it was.
/// **Refused** a source without a single object that has a value, a table with a bad line, requests
/// whose files are one and the same, and configured values that have no place.
/// Imports on one table wait for each other, for a few seconds at most: a lock file beside the table
/// is held from its reading to its replacing, so that no line is lost.
ImportResult importObjectDictionary(const ImportRequest &request);

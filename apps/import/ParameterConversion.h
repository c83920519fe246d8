#pragma once

#include "apps/import/ImportedParameter.h"
#include "apps/import/ObjectDictionary.h"

#include <QtCore/QCoreApplication>

class ImportRemarks;

/// Turns objects into parameters: data types, limits, defaults and configured values.
///
/// A limit that its type does not hold, that is no number or that contradicts the other one is left
/// out. A default that is missing, unreadable or outside of the limits is replaced by the nearest
/// acceptable value, counted from 0 where there is none to start from. A configured value is taken
/// as it stands when its type holds it, also outside of the limits: it is what the device was
/// given.
class ParameterConversion {
    Q_DECLARE_TR_FUNCTIONS(ParameterConversion)

public:
    struct Result {
        /// Ascending by index.
        QList<ImportedParameter> parameters;
        QList<SkippedObject> skipped;
        /// Expressions of the node id that have no value, since it is not known.
        qsizetype valuesWithoutNodeId = 0;
    };

    /// `nodeId` goes before the node id of the dictionary.
    /// **Reports** every value that was left out or replaced.
    static Result convert(
        const ObjectDictionary &dictionary, std::optional<quint8> nodeId, ImportRemarks &remarks);
};

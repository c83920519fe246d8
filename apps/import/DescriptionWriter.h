#pragma once

#include "apps/import/DeviceFamily.h"
#include "apps/import/ImportedParameter.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>

class CoordinateTable;

/// Writes a device description (JSON) of imported parameters.
///
/// Every object is a parameter of the whole device whose number is its index: a simple one for an
/// object with one value, a record with one element a sub-index otherwise. The same parameters
/// always give the same bytes.
class DescriptionWriter {
public:
    /// **Range** every parameter has a coordinate in the table.
    static QByteArray write(const DeviceFamily &family, const QList<ImportedParameter> &parameters,
        const CoordinateTable &coordinates);

private:
    static QJsonObject parameterObject(
        const ImportedParameter &parameter, const CoordinateTable &coordinates);
    static QJsonObject elementObject(const ImportedElement &element);
};

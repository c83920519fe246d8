#pragma once

#include "apps/import/ImportedParameter.h"

#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QList>
#include <QtCore/QString>

class CoordinateTable;

/// One value that a device configuration gives the device.
struct ConfiguredValue {
    ParameterCoordinate coordinate;
    quint16 element = 0;
    QString nativeText;
};

/// The values that a device configuration gives the device, ascending by index and sub-index. A
/// value that equals its default is among them: the file names it.
class ConfiguredValues {
public:
    ConfiguredValues() = default;
    ConfiguredValues(
        const QList<ImportedParameter> &parameters, const CoordinateTable &coordinates);

    const QList<ConfiguredValue> &list() const { return m_values; }
    /// True for a file that configures nothing.
    bool isEmpty() const { return m_values.isEmpty(); }

private:
    QList<ConfiguredValue> m_values;
};

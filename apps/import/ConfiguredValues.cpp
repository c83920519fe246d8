#include "apps/import/ConfiguredValues.h"

#include "apps/import/CoordinateTable.h"

ConfiguredValues::ConfiguredValues(
    const QList<ImportedParameter> &parameters, const CoordinateTable &coordinates)
{
    for (const ImportedParameter &parameter : parameters) {
        const ParameterCoordinate coordinate = coordinates.coordinate(parameter.index);
        for (const ImportedElement &element : parameter.elements) {
            if (element.configuredText)
                m_values.append({coordinate, element.subIndex, *element.configuredText});
        }
    }
}

#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/ParameterProperty.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QString>

#include <vector>

class ElementCatalogue;

/// Answers the properties of a parameter's elements: an override of the instance first, then the
/// definition.
class PropertyResolver {
public:
    enum class eFault { Missing, UnknownValue, InconvertibleValue, InvalidDefinition };

    struct Override {
        /// 0 for a simple parameter.
        quint16 element;
        eParameterProperty property;
        ParameterProperty value;
        QString changeTag;
    };

    /// **Owner** the instance set owns both.
    explicit PropertyResolver(const ElementCatalogue &elements)
        : m_elements(elements)
    {
    }

    /// Whether the definition knows the property for the element.
    bool isDefined(quint16 element, eParameterProperty property) const;
    bool isSettable(quint16 element, eParameterProperty property) const;
    /// As the definition has it; invalid where there is none.
    ParameterProperty readDefined(quint16 element, eParameterProperty property) const;
    /// Invalid where there is none; silent.
    ParameterProperty read(quint16 element, eParameterProperty property) const;
    /// The same. **Reports** a missing one as warning, naming the coordinate.
    ParameterProperty readReported(
        quint16 element, eParameterProperty property, const ParameterCoordinate &coordinate) const;
    /// **Reports** a level that is missing or no number from 0 on; it answers 0.
    int writeLevel(quint16 element, const ParameterCoordinate &coordinate) const;

    /// Null where there is none.
    const Override *find(quint16 element, eParameterProperty property) const;
    void setOverride(quint16 element, eParameterProperty property, const ParameterProperty &value,
        const QString &changeTag);
    /// By element, then by property.
    const std::vector<Override> &overrides() const { return m_overrides; }
    void replaceOverrides(std::vector<Override> overrides);

    /// **Reports** a warning titled "CoordinateInstanceSet" that names property and coordinate.
    static void report(
        eFault fault, eParameterProperty property, const ParameterCoordinate &coordinate);

private:
    std::vector<Override>::const_iterator lowerBound(
        quint16 element, eParameterProperty property) const;

    const ElementCatalogue &m_elements;
    std::vector<Override> m_overrides;
};

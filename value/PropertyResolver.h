#pragma once

#include "value/ElementCatalogue.h"
#include "value/ElementFacts.h"

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/ParameterProperty.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QString>

#include <memory>
#include <vector>

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
    explicit PropertyResolver(const ElementCatalogue &elements);
    ~PropertyResolver();
    Q_DISABLE_COPY_MOVE(PropertyResolver)

    const ElementCatalogue &elements() const { return m_elements; }
    /// The elements have another definition now; overrides stay.
    void onDefinitionChanged();

    /// Whether the library answers the property itself, so that no instance overrides it.
    static bool isFixed(eParameterProperty property);
    /// Whether an override can be saved and loaded: of an element that is there, of a property that any
    /// definition may hold. A newer definition may lack the property of a stored override.
    bool isOverridable(quint16 element, eParameterProperty property) const;
    /// Whether the definition knows the property for the element.
    bool isDefined(quint16 element, eParameterProperty property) const;
    bool isSettable(quint16 element, eParameterProperty property) const;
    /// As the definition has it; invalid where there is none.
    ParameterProperty readDefined(quint16 element, eParameterProperty property) const;
    /// A stored override, also of a property that the definition lacks, else as the definition has it.
    /// Invalid where there is none; silent.
    ParameterProperty read(quint16 element, eParameterProperty property) const;
    /// The typed properties; empty for an element that the parameter lacks. Valid until an override
    /// or the definition changes.
    const ElementFacts &facts(quint16 element) const
    {
        return m_facts && !m_overrides && m_elements.contains(element) ? *m_facts
                                                                       : soughtFacts(element);
    }

    /// Null where there is none.
    const Override *find(quint16 element, eParameterProperty property) const;
    void setOverride(quint16 element, eParameterProperty property, const ParameterProperty &value,
        const QString &changeTag);
    bool hasOverrides() const { return m_overrides != nullptr; }
    /// By element, then by property.
    std::vector<Override> overrides() const;
    void replaceOverrides(std::vector<Override> overrides);

    /// **Reports** a warning titled "CoordinateInstanceSet" that names property and coordinate.
    static void report(
        eFault fault, eParameterProperty property, const ParameterCoordinate &coordinate);

private:
    struct Overrides;
    struct RecordFacts;

    const ElementFacts &soughtFacts(quint16 element) const;
    std::shared_ptr<const ElementFacts> factsOf(quint16 element) const;

    const ElementCatalogue &m_elements;
    /// Null where there are none, as in most parameters.
    std::unique_ptr<Overrides> m_overrides;
    /// Of a simple parameter; null until asked for.
    mutable std::shared_ptr<const ElementFacts> m_facts;
    /// Of a record; null until asked for.
    mutable std::unique_ptr<RecordFacts> m_recordFacts;
};

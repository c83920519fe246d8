#pragma once

#include <KrParameterDefinition/ParameterProperty.h>
#include <KrParameterDefinition/eParameterProperty.h>

/// What a definition says of one element.
class KrParameterDefinition_EXPORT IParameterElementInformation {
public:
    virtual ~IParameterElementInformation() = default;

    virtual bool hasProperty(eParameterProperty property) const = 0;
    /// Invalid when the element lacks the property.
    virtual ParameterProperty property(eParameterProperty property) const = 0;
    /// Whether an instance may override the property.
    virtual bool isPropertySettable(eParameterProperty property) const = 0;
};

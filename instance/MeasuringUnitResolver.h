#pragma once

#include <KrMultilingual/ParameterText.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/ParameterProperty.h>
#include <KrParameterDefinition/eLivingSpace.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QString>

class ParameterContainer;

/// Turns a measuring-unit property into the unit: the text itself, or the text of the parameter that
/// a unit locator ("<localAxis:E12>", "<activeAxis:E12>") names.
namespace MeasuringUnitResolver {

enum class eProblem {
    None,
    Unknown, ///< A locator of an absent parameter, or other text that begins with "<".
    Inconvertible, ///< A value that is no text at all.
};

struct Outcome {
    ParameterText unit;
    eProblem problem = eProblem::None;
};

/// A locator takes the referenced parameter's display text without unit, in the given living space or
/// in the active axis, as the unit in every language.
Outcome resolve(
    const ParameterProperty &property, ParameterContainer *container, eLivingSpace livingSpace);

/// Says nothing where there is no problem. **Reports** warning "CoordinateInstanceSet".
void report(eProblem problem, eParameterProperty unit, const ParameterCoordinate &coordinate);

/// The coordinate that a locator names; invalid where the property is none.
ParameterCoordinate locatedCoordinate(const ParameterProperty &property);

/// Short and long text in every language, for telling whether a listener could see a difference.
QString allTexts(const ParameterText &unit);

} // namespace MeasuringUnitResolver

#pragma once

#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QVarLengthArray>

class Locator;
class ParameterDefinition;

/// Decides where a parameter is created: pure functions of definition, locator and device family.
namespace CreationRules {

/// Whether a parameter has one value for the device. On a family with physical axes each axis keeps
/// its own copy of a physical-axis parameter even though its definition calls it global.
bool isGlobal(const ParameterDefinition *definition, bool hasPhysicalAxes);

enum class eProblem {
    None,
    SystemMultiInstance, ///< A system locator for a multi-instance definition.
    RelativeLocator,
};

struct LivingSpaces {
    /// In the order of creation.
    QVarLengthArray<eLivingSpace, 4> list;
    eProblem problem = eProblem::None;
};

/// The living spaces that a valid locator asks for.
LivingSpaces livingSpaces(
    const Locator &locator, const ParameterDefinition *definition, bool hasPhysicalAxes);

} // namespace CreationRules

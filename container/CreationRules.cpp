#include "container/CreationRules.h"

#include <KrLocator/Locator.h>
#include <KrParameterDefinition/ParameterDefinition.h>

bool CreationRules::isGlobal(const ParameterDefinition *definition, bool hasPhysicalAxes)
{
    if (!definition->isGlobalParameter())
        return false;
    return !definition->isPhysicalAxisParameter() || !hasPhysicalAxes;
}

CreationRules::LivingSpaces CreationRules::livingSpaces(
    const Locator &locator, const ParameterDefinition *definition, bool hasPhysicalAxes)
{
    const bool isOne = isGlobal(definition, hasPhysicalAxes);
    if (locator.isSystem()) {
        if (!definition->isSingleInstance())
            return {{}, eProblem::SystemMultiInstance};
        if (isOne)
            return {{eLivingSpace::Global}};
        if (hasPhysicalAxes)
            return {{eLivingSpace::Axis1, eLivingSpace::Axis2}};
        return {
            {eLivingSpace::Axis1, eLivingSpace::Axis2, eLivingSpace::Axis3, eLivingSpace::Axis4}};
    }
    if (!locator.hasLivingSpace())
        return {{}, eProblem::RelativeLocator};
    if (isOne)
        return {{eLivingSpace::Global}};
    if (locator.livingSpace() == eLivingSpace::Global)
        return {};
    return {{locator.livingSpace()}};
}

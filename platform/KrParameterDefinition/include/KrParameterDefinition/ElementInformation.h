#pragma once

#include <KrParameterDefinition/IParameterElementInformation.h>

#include <array>
#include <bitset>
#include <vector>

/// Element information held in memory: a table of positions by property number beside the values,
/// so that every question costs one index.
class KrParameterDefinition_EXPORT ElementInformation final : public IParameterElementInformation {
public:
    ElementInformation();

    bool hasProperty(eParameterProperty property) const override;
    ParameterProperty property(eParameterProperty property) const override;
    bool isPropertySettable(eParameterProperty property) const override;

    /// **Refused** numbers from DefinitionPropertyEnd on: nothing changes.
    void setProperty(eParameterProperty property, QVariant value);
    void removeProperty(eParameterProperty property);
    void setPropertySettable(eParameterProperty property, bool settable);

private:
    /// Property number to position in m_values, -1 where absent.
    std::array<qint8, DefinitionPropertyEnd> m_positions;
    std::vector<ParameterProperty> m_values;
    std::bitset<DefinitionPropertyEnd> m_settable;
};

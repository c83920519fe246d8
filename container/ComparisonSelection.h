#pragma once

#include <KrFilter/FilterCombination.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>

class ParameterInformation;

/// Selects the parameters whose values take part in a comparison of two devices: written by users of
/// this level, stored in the drive, not marked by the suite itself.
class ComparisonSelection {
public:
    /// Covers living space 0 and the given one.
    explicit ComparisonSelection(eLivingSpace livingSpace);

    /// Whether one of the parameter's values passes.
    bool accepts(const ParameterInformation *information) const;

private:
    QList<eLivingSpace> m_livingSpaces;
    FilterCombination m_filter;
};

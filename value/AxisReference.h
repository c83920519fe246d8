#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <optional>

class ParameterContainer;

/// A placeholder that stands for the display text of another parameter: "<localAxis:E12>" in the
/// living space at hand, "<activeAxis:E12>" in that of the active axis.
class AxisReference {
public:
    enum class eAxis { Local, Active };

    /// Reads exactly "<localAxis:E12>" or "<activeAxis:E12>" with one to three digits, behind which a
    /// line feed is allowed; empty for any other text.
    static std::optional<AxisReference> parse(QStringView text);

    eAxis axis() const { return m_axis; }
    ParameterCoordinate coordinate() const { return m_coordinate; }

    /// The display text of the referenced parameter's element 0 without unit; of a choice the entry
    /// text alone. Empty where the container is null or lacks the parameter, where the parameter is a
    /// record without that element, where the living space has no instance of it, and where references
    /// go round in a circle or too deep.
    std::optional<QString> resolve(ParameterContainer *container, eLivingSpace livingSpace) const;

private:
    AxisReference(eAxis axis, const ParameterCoordinate &coordinate);

    eAxis m_axis;
    ParameterCoordinate m_coordinate;
};

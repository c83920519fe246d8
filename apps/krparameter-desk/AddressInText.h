#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QString>

#include <functional>

/// Finds the parameter that a message or a row is about. A key behind a slash does not belong to its
/// address: "H000/V_0_0".
class AddressInText {
public:
    using IsKnown = std::function<bool(const ParameterAddress &)>;

    /// The one that a row begins with; invalid where it begins with something else.
    static ParameterAddress ofTitle(const QString &title);
    /// The one that the message names as what it is about, "Parameter B01" or "B01: " at its beginning;
    /// otherwise the first one that is known. Invalid where there is none. What stands in quotation marks is
    /// a value or a name.
    static ParameterAddress ofMessage(const QString &text, const IsKnown &isKnown);
};

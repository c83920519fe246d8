#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QString>

/// Finds the parameter that a message or the title of a row is about.
class AddressInText {
public:
    /// The first word that is an address; invalid where there is none. Signs behind a word do not
    /// belong to it, nor does a key behind a slash: "H000/V_0_0".
    static ParameterAddress find(const QString &text);
};

#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QString>

#include <optional>

/// The number of a parameter address with what it names: "1.E12[3] Motor current".
namespace AddressForm {

/// The address whose number the value text is; empty for a text that names none.
std::optional<ParameterAddress> addressOf(const QString &valueText);

/// The address text, a blank and the name.
QString show(const QString &addressText, const QString &name);

/// The number of a typed number or address text; a name that follows it is not read. Any other text
/// is unchanged, which the firmware refuses.
QString read(const QString &text);

} // namespace AddressForm

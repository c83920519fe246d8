#pragma once

#include <QtCore/QString>

#include <optional>

/// An IPv4 address: "192.168.0.1". The most significant byte of the value is the first part.
namespace Ipv4Form {

/// A text that is no unsigned 32-bit number is shown as 0.
QString show(const QString &valueText);

/// Blanks are dropped, then answers like the pattern
/// "^([0-9]{1,3})\.([0-9]{1,3})\.([0-9]{1,3})\.([0-9]{1,3})". The result is decimal.
/// **Refused** what the pattern refuses, and a part above 255: the result is empty.
std::optional<QString> read(const QString &text);

} // namespace Ipv4Form

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class SimpleType;

/// What the bytes of a value mean as text, and which texts mean the same: pure functions.
namespace CarriedValue {

/// The native text is what the bytes say, letter for letter.
bool hasPlainText(const SimpleType &type);
/// Means the same as the native text that the container makes of the bytes.
QString textOf(const SimpleType &type, const QByteArray &bytes);
/// Whether both native texts mean the same to a drive: numbers by value, byte strings without case and
/// with zero bytes behind.
bool isSame(const SimpleType &type, const QString &sent, const QString &kept);

} // namespace CarriedValue

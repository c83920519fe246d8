#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QString>

/// Renders what a parameter says about itself.
namespace DescriptionRenderer {

/// Whether descriptions of this group are texts of their own instead of keys: groups P and Q.
bool isInline(const ParameterCoordinate &coordinate);
/// The HTML body: heading of coordinate and name, a rule, the text as it stands.
QString html(const ParameterCoordinate &coordinate, const QString &name, const QString &text);
/// "address_reference_version": the key under which the suite keeps the text.
QString referenceKey(const QString &addressText, const QString &reference, quint32 version);

} // namespace DescriptionRenderer

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

class ParameterContainerPrivate;

/// Writes and reads a container's block of saved values.
///
/// block   = header, INI text without byte-order mark
/// header  = ';type="parametervalues" version="0"' CR LF
/// section = one for each parameter, named by its sortable coordinate text, in coordinate order
namespace ContainerPersistence {

/// Name of the block in a project's map.
QString blockName();
QByteArray save(const ParameterContainerPrivate &container);
/// Fills the parameters that exist. Sections of others are passed over.
void load(const QByteArray &block, ParameterContainerPrivate &container);

} // namespace ContainerPersistence

#pragma once

#include "tests/support/DefinitionBuilder.h"
#include "tests/support/TestHostInformation.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <memory>
#include <vector>

/// A container for snapshots: parameters are added by a line each and take texts as they come. The
/// host offers the living spaces 0 to 2.
class SnapshotFixture {
public:
    SnapshotFixture();
    ~SnapshotFixture();
    Q_DISABLE_COPY_MOVE(SnapshotFixture)

    /// The builder starts with the coordinate and a name; its texts may be anything.
    static DefinitionBuilder parameter(const char *coordinate, const char *name);
    /// In living space 0 for a global parameter, otherwise on axes 1 to 4.
    void add(const DefinitionBuilder &builder);
    /// Native text.
    void write(int livingSpace, const char *coordinate, quint16 element, const QString &text);

    TestHostInformation host;
    /// Borrowed by the container, which goes first.
    std::vector<std::unique_ptr<ParameterDefinition>> definitions;
    std::unique_ptr<ParameterContainer> container;
};

ParameterCoordinate at(const char *coordinate);
QStringList sortedTexts(const QList<ParameterCoordinate> &coordinates);

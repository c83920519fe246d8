#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>
#include <QtCore/QString>

/// What a row shows of one snapshot. Two empty texts where the user may not read the value.
struct SnapshotCell {
    QString text;
    /// The value text with unit; rows are compared by it.
    QString undecorated;
    /// The snapshot lacks the value; the text says so.
    bool isMissing = false;
};

/// One line of the comparison: a parameter in one living space, or one element of a record below
/// it.
struct SnapshotRow {
    eLivingSpace livingSpace = eLivingSpace::Global;
    ParameterCoordinate coordinate;
    quint16 element = 0;
    QString title;
    /// One for each snapshot; none for a row that stands above elements.
    QList<SnapshotCell> cells;
    QList<SnapshotRow> children;
    bool isHidden = false;
};

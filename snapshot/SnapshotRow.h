#pragma once

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>
#include <QtCore/QString>

/// What a row shows of one snapshot. Empty where the user may not read the value. The texts are those
/// of the snapshot, shared: with their unit they are put together where they are shown.
struct SnapshotCell {
    QString text() const { return withUnit(display); }
    /// The value text with unit; rows are compared by it.
    QString undecorated() const { return withUnit(plain); }

    QString display;
    QString plain;
    /// The snapshot lacks the value; the display text says so.
    bool isMissing = false;
    QString unit {};

private:
    QString withUnit(const QString &text) const
    {
        return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
    }
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

#pragma once

#include "snapshot/SnapshotRecord.h"

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVarLengthArray>

/// What a row shows of one snapshot. Texts are put together with their units where they are shown.
struct SnapshotCell {
    enum class eState {
        Unreadable, ///< The user may not read it. The value is the empty one.
        Missing, ///< The snapshot lacks the value; the display text says so.
        Held, ///< Also where the value is empty.
    };

    bool isMissing() const { return state == eState::Missing; }
    bool isHeld() const { return state == eState::Held; }
    QString text() const { return value->displayWithUnit(); }
    /// The value text with unit; rows are compared by it.
    QString undecorated() const { return value->undecoratedWithUnit(); }

    /// **Owner** what the SnapshotTable of the row holds.
    const SnapshotValue *value = &SnapshotValue::none();
    eState state = eState::Unreadable;
};

/// One line of the comparison: a parameter in one living space, or one element of a record below
/// it.
struct SnapshotRow {
    eLivingSpace livingSpace = eLivingSpace::Global;
    ParameterCoordinate coordinate;
    quint16 element = 0;
    QString title;
    /// One for each snapshot; none for a row that stands above elements. Two are the rule.
    QVarLengthArray<SnapshotCell, 2> cells;
    QList<SnapshotRow> children;
    bool isHidden = false;
};

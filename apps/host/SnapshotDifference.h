#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QList>
#include <QtCore/QString>

class ParameterValueSnapshot;

/// One value by which two snapshots differ.
struct SnapshotDifference {
    struct Side {
        /// All texts with unit.
        QString display;
        QString value;
        QString native;
        bool isHeld = false;
        /// False: the texts are empty because the user may not read them.
        bool isReadable = true;
    };

    ValuePlace place;
    /// "E84", "1.B01", "2.E30[1]".
    QString address;
    /// The parameter's, of a record with the element's behind it.
    QString name;
    Side left;
    Side right;

    /// Ascending by coordinate, living space and element; empty exactly when the snapshots do not
    /// differ. A value that both hold differs when its display and its native text do.
    static QList<SnapshotDifference> between(
        ParameterValueSnapshot &left, ParameterValueSnapshot &right, quint32 accessLevel);
};

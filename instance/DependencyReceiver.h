#pragma once

#include <QtCore/QList>
#include <QtCore/QPointer>

class CoordinateInstanceSet;

/// A set with elements that follow a key.
struct DependencyReceiver {
    QPointer<CoordinateInstanceSet> set;
    /// In the order of the definition. Empty: all that the set has.
    QList<quint16> elements;
};

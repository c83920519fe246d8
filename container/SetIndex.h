#pragma once

#include "instance/DependencyKey.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPointer>

class CoordinateInstanceSet;

/// Finds sets by what their properties say: those that hold addresses of parameters, and those that
/// follow another value. A set is looked at when somebody asks, not when it comes.
///
/// All sets are borrowed; one that goes is to be removed first.
class SetIndex {
public:
    void add(CoordinateInstanceSet *set) { m_new.append(set); }
    void remove(CoordinateInstanceSet *set);
    /// Its properties or its coordinate are others now.
    void update(CoordinateInstanceSet *set);
    void clear();

    /// The sets with an element of kind 11 (parameter address), in the order of their creation.
    const QList<CoordinateInstanceSet *> &mappingSets();
    /// The sets that may follow, by coordinate.
    QList<QPointer<CoordinateInstanceSet>> receivers(const DependencyKey &key);

private:
    struct Receivers {
        QList<CoordinateInstanceSet *> sets;
        bool isSorted = true;
    };

    void lookAtNew();
    void enter(CoordinateInstanceSet *set);
    void leave(CoordinateInstanceSet *set);

    QList<CoordinateInstanceSet *> m_new;
    QList<CoordinateInstanceSet *> m_mappingSets;
    QHash<DependencyKey, Receivers> m_receivers;
    /// No key: the set follows nothing.
    QHash<CoordinateInstanceSet *, QList<DependencyKey>> m_keys;
};

#pragma once

#include "instance/DependencyKey.h"
#include "instance/DependencyReceiver.h"

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>

#include <map>

/// Finds sets by what their properties say: those that hold addresses of parameters, and those that
/// follow another value. A set is looked at when somebody asks, not when it comes or changes: many
/// changes of a large record cost one look.
///
/// All sets are borrowed; one that goes is to be removed first.
class SetIndex {
public:
    void add(CoordinateInstanceSet *set) { m_new.append(set); }
    void remove(CoordinateInstanceSet *set);
    /// Its properties or its coordinate are others now.
    void update(CoordinateInstanceSet *set) { m_changed.insert(set); }
    void clear();

    /// The sets with an element of kind 11 (parameter address), by coordinate.
    QList<CoordinateInstanceSet *> mappingSets();
    /// The sets that may follow, by coordinate.
    QList<DependencyReceiver> receivers(const DependencyKey &key);

private:
    struct Receiver {
        CoordinateInstanceSet *set;
        QList<quint16> elements;
    };
    /// Where a set stands; its own coordinate may be another already.
    struct Place {
        quint16 coordinate = 0;
        QList<DependencyKey> keys;
    };

    void lookAtNew();
    /// All that came or changed stands in its place then.
    void lookAtAll();
    void enter(CoordinateInstanceSet *set);
    void leave(CoordinateInstanceSet *set);

    QList<CoordinateInstanceSet *> m_new;
    /// May stand in places that they left. Order carries no meaning.
    QSet<CoordinateInstanceSet *> m_changed;
    /// Both by the coordinate number of the set's place.
    std::map<quint16, CoordinateInstanceSet *> m_mappingSets;
    QHash<DependencyKey, std::map<quint16, Receiver>> m_receivers;
    /// No key: the set stands nowhere.
    QHash<CoordinateInstanceSet *, Place> m_places;
};

#pragma once

#include "snapshot/GuardedInformation.h"
#include "snapshot/SnapshotPool.h"

#include <optional>

/// The units of one parameter's elements. A unit that is a locator is asked for in every living
/// space, any other once.
class SnapshotUnitReader {
public:
    /// **Owner** of the pool the caller.
    SnapshotUnitReader(SnapshotPool &pool, const GuardedInformation &information);

    /// The units in every living space; nothing where one of them is a locator.
    std::optional<SnapshotPool::Units> everywhere(quint16 element);
    /// Of an element of which everywhere() answered nothing.
    SnapshotPool::Units in(eLivingSpace livingSpace, quint16 element) const;

private:
    struct Place;
    static const Place Scaled;
    static const Place Native;

    /// Nothing for a locator.
    using Unit = std::optional<QString>;

    struct UnitPair {
        Unit scaled;
        Unit native;
    };

    Unit unit(quint16 element, const Place &place) const;
    QString accessorUnit(quint16 element, const Place &place) const;
    QString localUnit(eLivingSpace livingSpace, quint16 element, const Place &place) const;

    SnapshotPool &m_pool;
    const GuardedInformation &m_information;
    /// By element.
    QHash<quint16, UnitPair> m_locators;
};

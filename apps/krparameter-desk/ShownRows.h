#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QList>

#include <optional>

/// Which rows of all are shown, and where.
class ShownRows {
public:
    static constexpr int NotShown = -1;

    /// None is visible yet.
    void setPlaces(const QList<ValuePlace> &places);
    void setVisible(int row, bool isVisible) { m_isVisible[row] = isVisible; }
    bool isVisible(int row) const { return m_isVisible.at(row); }
    void setAxis(std::optional<eLivingSpace> axis) { m_axis = axis; }
    /// For each row; empty where every row is found.
    void setFound(const QList<bool> &found) { m_found = found; }

    /// Takes effect what was set since.
    void update();

    int count() const { return int(m_rows.size()); }
    /// Rows that are shown while nothing is searched.
    int searchableCount() const { return m_searchableCount; }
    /// The row of all that stands in a shown row.
    int rowAt(int shownRow) const { return m_rows.at(shownRow); }
    int shownRowOf(int row) const { return m_shownRowOf.at(row); }

private:
    bool isOnAxis(int row) const;

    /// Of all rows.
    QList<eLivingSpace> m_livingSpaces;
    QList<bool> m_isVisible;
    QList<bool> m_found;
    QList<int> m_shownRowOf;
    std::optional<eLivingSpace> m_axis;

    QList<int> m_rows;
    int m_searchableCount = 0;
};

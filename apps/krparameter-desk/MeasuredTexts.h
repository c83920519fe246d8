#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter-desk/TableColumns.h"

#include <QtCore/QStringList>

#include <functional>

class RowTexts;
class ShownRows;

/// Chooses the texts by which columns are measured: the longest among all rows that the user may see,
/// whatever is searched. Of parameters with axes the first one's; numbers, which are short, are left out.
class MeasuredTexts {
public:
    /// **Owner** of all the caller. As many rows as places.
    MeasuredTexts(
        const RowTexts &texts, const QList<ValuePlace> &places, const ShownRows &shownRows);

    /// Of an address, a name or a value; nothing of another column.
    QStringList ofColumn(TableColumns::eColumn column) const;
    /// That values have or can have.
    QStringList choices() const;

private:
    QStringList longest(const std::function<QString(const ValuePlace &)> &textOf) const;

    const RowTexts &m_texts;
    const QList<ValuePlace> &m_places;
    const ShownRows &m_shownRows;
};

#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter-desk/TableColumns.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QVariant>

class RowTexts;

/// What the cells of a row answer: texts, and how they are to be shown.
class TableCells {
    Q_DECLARE_TR_FUNCTIONS(TableCells)

public:
    using eColumn = TableColumns::eColumn;

    /// **Owner** of the texts the caller.
    explicit TableCells(const RowTexts &texts)
        : m_texts(texts)
    {
    }

    static QVariant header(eColumn column, int role);
    /// `role` is one of Qt's or of TableColumns::eRole.
    QVariant data(const ValuePlace &place, eColumn column, int role) const;

private:
    QString text(const ValuePlace &place, eColumn column) const;
    QVariant mark(const ValuePlace &place, eColumn column, int role) const;

    const RowTexts &m_texts;
};

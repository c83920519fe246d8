#pragma once

#include <QtWidgets/QStyledItemDelegate>

/// Gives rows air above and below, and columns between them.
class SpaciousDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// A list has no columns to keep apart.
    enum class eShape { Columns, List };

    explicit SpaciousDelegate(QObject *parent, eShape shape = eShape::Columns)
        : QStyledItemDelegate(parent)
        , m_shape(shape)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    eShape m_shape;
};

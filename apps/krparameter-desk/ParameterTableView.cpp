#include "apps/krparameter-desk/ParameterTableView.h"

#include "apps/krparameter-desk/ColumnFitter.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/RejectionNote.h"
#include "apps/krparameter-desk/ValueDelegate.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <utility>

namespace {

constexpr int LinePadding = 8;

bool isTyped(QAbstractItemView::EditTrigger trigger, const QEvent *event)
{
    if (trigger != QAbstractItemView::AnyKeyPressed || !event || event->type() != QEvent::KeyPress)
        return false;
    const QString text = static_cast<const QKeyEvent *>(event)->text();
    return !text.isEmpty() && text.front().isPrint();
}

} // namespace

ParameterTableView::ParameterTableView(ParameterTableModel &model, QWidget *parent)
    : QTableView(parent)
    , m_delegate(new ValueDelegate(this))
    , m_note(new RejectionNote(viewport()))
{
    setModel(&model);
    setItemDelegate(m_delegate);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + LinePadding);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    m_columns = new ColumnFitter(model, *this);
    connect(
        &model, &ParameterTableModel::writeAnswered, this, &ParameterTableView::onWriteAnswered);
    connect(m_delegate, &ValueDelegate::typed, m_note, &QWidget::hide);
    connect(&model, &QAbstractItemModel::modelReset, m_note, &QWidget::hide);
    connect(&model, &QAbstractItemModel::layoutChanged, this, &ParameterTableView::returnToPlace);
    connect(&model, &QAbstractItemModel::layoutChanged, this, &ParameterTableView::moveNote);
    connect(&model, &QAbstractItemModel::modelReset, this, [this] { m_place.reset(); });
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
        [this, &model](const QModelIndex &current) {
            if (current.isValid())
                m_place = model.placeAt(current);
        });
}

void ParameterTableView::goTo(const QModelIndex &index)
{
    setCurrentIndex(index);
    scrollTo(index, PositionAtCenter);
    setFocus();
}

void ParameterTableView::showCurrent()
{
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        scrollToTop();
    else if (!viewport()->rect().contains(visualRect(current)))
        scrollTo(current, PositionAtCenter);
}

void ParameterTableView::editCurrentValue()
{
    const QModelIndex value = currentIndex().siblingAtColumn(ParameterTableModel::Value);
    if (!value.isValid())
        return;
    setCurrentIndex(value);
    edit(value, EditKeyPressed, nullptr);
}

bool ParameterTableView::commitOpenField()
{
    return m_delegate->commitOpenEditor();
}

void ParameterTableView::keyPressEvent(QKeyEvent *event)
{
    m_note->hide();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isReturn || state() == EditingState || !currentIndex().isValid()) {
        QTableView::keyPressEvent(event);
        return;
    }
    editCurrentValue();
}

void ParameterTableView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    menu.setToolTipsVisible(true);
    menu.addActions(actions());
    menu.exec(event->globalPos());
}

bool ParameterTableView::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const bool isTried = index.column() == ParameterTableModel::Value
        && (trigger == DoubleClicked || trigger == EditKeyPressed || isTyped(trigger, event));
    const QString obstacle = isTried
        ? static_cast<const ParameterTableModel *>(model())->writeObstacle(index)
        : QString();
    if (obstacle.isEmpty())
        return QTableView::edit(index, trigger, event);
    // The click may have led to a row that is cut at the edge; scrolling later would take the note away.
    scrollTo(index);
    note(index, obstacle);
    // Otherwise the letter would look for another row.
    return true;
}

void ParameterTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    // Neither another height nor a scroll bar that comes or goes moves what the user scrolled to.
    const bool isWider = width() > std::exchange(m_width, width());
    if (!isWider)
        return;
    const int end = horizontalHeader()->sectionPosition(ParameterTableModel::Value)
        + columnWidth(ParameterTableModel::Value);
    const int needed = std::max(0, end - viewport()->width());
    horizontalScrollBar()->setValue(std::min(horizontalScrollBar()->value(), needed));
}

void ParameterTableView::scrollContentsBy(int dx, int dy)
{
    QTableView::scrollContentsBy(dx, dy);
    m_note->hide();
}

void ParameterTableView::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    const int row = currentIndex().row();
    const bool hasCorrection = std::exchange(m_hasCorrection, false);
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    m_note->hide();
    if (hint == QAbstractItemDelegate::EditNextItem)
        editFrom(row + 1, 1);
    else if (hint == QAbstractItemDelegate::EditPreviousItem)
        editFrom(row - 1, -1);
    m_note->setVisible(hasCorrection);
}

/// The first value from the row on that can be written.
void ParameterTableView::editFrom(int row, int step)
{
    for (; row >= 0 && row < model()->rowCount(); row += step) {
        const QModelIndex value = model()->index(row, ParameterTableModel::Value);
        if (!(value.flags() & Qt::ItemIsEditable))
            continue;
        setCurrentIndex(value);
        edit(value);
        return;
    }
}

void ParameterTableView::onWriteAnswered(
    const QModelIndex &index, bool isAccepted, const QString &message)
{
    m_hasCorrection = isAccepted && !message.isEmpty() && index.isValid();
    note(index, message);
}

void ParameterTableView::note(const QModelIndex &index, const QString &message)
{
    m_noted = index;
    if (message.isEmpty() || !index.isValid())
        m_note->hide();
    else
        m_note->showBeside(visualRect(index), message);
}

/// Who searched and gave up is where he was.
void ParameterTableView::returnToPlace()
{
    if (!m_place || currentIndex().isValid())
        return;
    const QModelIndex place = static_cast<ParameterTableModel *>(model())->indexOf(*m_place);
    if (place.isValid())
        setCurrentIndex(place);
}

/// A write may move its own row, or hide it.
void ParameterTableView::moveNote()
{
    const QRect field = m_noted.isValid() ? visualRect(m_noted) : QRect();
    if (m_note->isVisible() && viewport()->rect().intersects(field))
        m_note->showBeside(field, m_note->text());
    else
        m_note->hide();
}

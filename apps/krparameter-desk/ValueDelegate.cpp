#include "apps/krparameter-desk/ValueDelegate.h"

#include "apps/krparameter-desk/ChoiceEditor.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/RowTexts.h"

#include <QtCore/QScopedValueRollback>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>

#include <optional>

namespace {

/// Of the mark's colour in 256; the rest is the background, dark or light.
constexpr int MarkShare = 56;

QColor mixed(const QColor &color, const QColor &base)
{
    const auto mix = [](int part, int other) {
        return (part * MarkShare + other * (256 - MarkShare)) / 256;
    };
    return QColor(mix(color.red(), base.red()), mix(color.green(), base.green()),
        mix(color.blue(), base.blue()));
}

/// Nothing where the editor still says what stands in the row. A choice is known by its native text,
/// which may be none of the list's; a typed text means what is shown, also where it looks like the
/// native one.
std::optional<QString> changedText(const QWidget &editor, const QModelIndex &index)
{
    if (const auto *list = qobject_cast<const ChoiceEditor *>(&editor)) {
        const QString native = list->currentData().toString();
        const bool isChosen = list->currentIndex() >= 0
            && native != index.data(ParameterTableModel::NativeRole).toString();
        return isChosen ? std::optional(native) : std::nullopt;
    }
    const auto *field = qobject_cast<const QLineEdit *>(&editor);
    const bool isTyped = field && field->text() != index.data(Qt::EditRole).toString();
    return isTyped ? std::optional(field->text()) : std::nullopt;
}

} // namespace

bool ValueDelegate::commitOpenEditor()
{
    if (!m_editor)
        return true;
    if (!commit(m_editor)) {
        m_editor->setFocus();
        return false;
    }
    Q_EMIT closeEditor(m_editor);
    return true;
}

QWidget *ValueDelegate::createEditor(
    QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    Q_UNUSED(option)
    const auto choices =
        index.data(ParameterTableModel::ChoicesRole).value<QList<RowTexts::Choice>>();
    m_editor = choices.isEmpty() ? createField(parent) : createChoice(choices, parent);
    return m_editor;
}

void ValueDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    m_editor.clear();
    QStyledItemDelegate::destroyEditor(editor, index);
}

QWidget *ValueDelegate::createField(QWidget *parent) const
{
    auto *field = new QLineEdit(parent);
    field->setFrame(false);
    field->setAutoFillBackground(true);
    connect(field, &QLineEdit::textEdited, this, &ValueDelegate::typed);
    return field;
}

QWidget *ValueDelegate::createChoice(const QList<RowTexts::Choice> &choices, QWidget *parent) const
{
    auto *list = new ChoiceEditor(choices, parent);
    connect(list, &ChoiceEditor::moved, this, &ValueDelegate::typed);
    connect(list, &ChoiceEditor::clicked, this, [this, list] {
        auto *self = const_cast<ValueDelegate *>(this);
        if (self->commit(list))
            Q_EMIT self->closeEditor(list);
    });
    return list;
}

void ValueDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    if (auto *list = qobject_cast<ChoiceEditor *>(editor)) {
        list->follow(index.data(ParameterTableModel::NativeRole).toString());
        return;
    }
    auto *field = qobject_cast<QLineEdit *>(editor);
    // What the user is typing stays, also when the device reports another value meanwhile.
    if (!field || field->isModified())
        return;
    field->setText(index.data(Qt::EditRole).toString());
    field->selectAll();
}

/// A field that is left writes what was typed; a choice that nobody made writes nothing.
void ValueDelegate::setModelData(
    QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const
{
    const bool isMeant = m_isCommitting || qobject_cast<const QLineEdit *>(editor);
    const std::optional<QString> text =
        isMeant && index.isValid() ? changedText(*editor, index) : std::nullopt;
    m_isAccepted = !text || model->setData(index, *text, Qt::EditRole);
}

void ValueDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(ParameterTableModel::DiffersRole).toBool()) {
        option->font.setBold(true);
        option->backgroundBrush = mixed(QColor(255, 170, 0), option->palette.color(QPalette::Base));
    }
    const bool isQuiet =
        index.column() == ParameterTableModel::Value && !(index.flags() & Qt::ItemIsEditable);
    if (isQuiet) {
        option->palette.setColor(
            QPalette::Text, option->palette.color(QPalette::Disabled, QPalette::Text));
    }
}

bool ValueDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(object);
    // A menu gives the focus back: its commands are about what is typed.
    if (event->type() == QEvent::FocusOut
        && static_cast<QFocusEvent *>(event)->reason() == Qt::MenuBarFocusReason)
        return false;
    if (!editor || event->type() != QEvent::KeyPress)
        return QStyledItemDelegate::eventFilter(object, event);
    EndEditHint hint = NoHint;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Tab:
        hint = EditNextItem;
        break;
    case Qt::Key_Backtab:
        hint = EditPreviousItem;
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        break;
    default:
        return QStyledItemDelegate::eventFilter(object, event);
    }
    if (commit(editor))
        Q_EMIT closeEditor(editor, hint);
    return true;
}

bool ValueDelegate::commit(QWidget *editor)
{
    const QScopedValueRollback committing(m_isCommitting, true);
    m_isAccepted = true;
    Q_EMIT commitData(editor);
    return m_isAccepted;
}

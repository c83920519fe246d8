#include "apps/krparameter-desk/ChoiceEditor.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>

#include <algorithm>
#include <utility>

namespace {

/// Frame and air of the open list.
constexpr int ListMargin = 8;

bool isStep(int key)
{
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp
        || key == Qt::Key_PageDown || key == Qt::Key_Home || key == Qt::Key_End;
}

bool isEnd(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab
        || key == Qt::Key_Backtab || key == Qt::Key_Escape;
}

/// Opens and closes a list.
bool isToggle(const QKeyEvent &event)
{
    return event.key() == Qt::Key_F4
        || (isStep(event.key()) && event.modifiers() & Qt::AltModifier);
}

bool isLetter(const QKeyEvent &event)
{
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier);
    return !isCommand && !event.text().isEmpty() && event.text().at(0).isPrint();
}

} // namespace

ChoiceEditor::ChoiceEditor(const QList<Choice> &choices, QWidget *parent)
    : QComboBox(parent)
{
    for (const auto &[native, shown] : choices)
        addItem(shown, native);
    setCurrentIndex(-1);
    view()->installEventFilter(this);
    view()->viewport()->installEventFilter(this);
    // Keys and wheel do not get as far.
    connect(this, &QComboBox::activated, this, &ChoiceEditor::clicked);
}

void ChoiceEditor::follow(const QString &native)
{
    const bool isMoved = selectedRow() != m_storedRow;
    m_storedRow = findData(native);
    if (!isMoved)
        select(m_storedRow);
}

void ChoiceEditor::showPopup()
{
    m_hasOpened = true;
    m_isPressed = false;
    m_typed.clear();
    // The cell may be narrower than the texts.
    view()->setMinimumWidth(view()->sizeHintForColumn(0)
        + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + ListMargin);
    QComboBox::showPopup();
}

/// Of the open list.
bool ChoiceEditor::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress)
        m_isPressed = true;
    if (event->type() == QEvent::MouseButtonRelease && !std::exchange(m_isPressed, false))
        return true;
    if (object != view())
        return QComboBox::eventFilter(object, event);
    if (event->type() == QEvent::ShortcutOverride) {
        // Unless it is taken, the list closes and chooses before the key is pressed.
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QComboBox::eventFilter(object, event);
    return takeKey(static_cast<QKeyEvent &>(*event)) || QComboBox::eventFilter(object, event);
}

void ChoiceEditor::focusInEvent(QFocusEvent *event)
{
    QComboBox::focusInEvent(event);
    if (!m_hasOpened)
        showPopup();
}

/// Also the key that opened the editor, while the list is open already.
void ChoiceEditor::keyPressEvent(QKeyEvent *event)
{
    const bool isForList =
        isStep(event->key()) || isLetter(*event) || event->key() == Qt::Key_Backspace;
    if (!isForList && !isToggle(*event)) {
        event->ignore();
        return;
    }
    const bool wasOpen = isOpen();
    if (!wasOpen) {
        showPopup();
        Q_EMIT moved();
    }
    if (wasOpen || !isToggle(*event))
        QApplication::sendEvent(view(), event);
}

/// Of the closed list.
void ChoiceEditor::wheelEvent(QWheelEvent *event)
{
    const int steps = event->angleDelta().y();
    if (steps != 0 && count() > 0)
        select(std::clamp(currentIndex() + (steps > 0 ? -1 : 1), 0, count() - 1));
    Q_EMIT moved();
    event->accept();
}

bool ChoiceEditor::isOpen() const
{
    return view()->isVisible();
}

int ChoiceEditor::selectedRow() const
{
    if (!isOpen())
        return currentIndex();
    // An open list has a current entry also where none is selected.
    const QModelIndexList selected = view()->selectionModel()->selectedIndexes();
    return selected.isEmpty() ? -1 : selected.constFirst().row();
}

void ChoiceEditor::select(int row)
{
    if (isOpen())
        view()->setCurrentIndex(model()->index(row, modelColumn()));
    else
        setCurrentIndex(row);
}

bool ChoiceEditor::takeKey(QKeyEvent &event)
{
    if (isEnd(event.key())) {
        end(event);
        return true;
    }
    if (isToggle(event)) {
        hidePopup();
        return true;
    }
    if (isStep(event.key())) {
        m_typed.clear();
        return false;
    }
    if (event.key() == Qt::Key_Backspace)
        setTyped(m_typed.left(m_typed.size() - 1));
    else if (isLetter(event))
        setTyped(m_typed + event.text());
    else
        return false;
    return true;
}

/// The list closes; what the key means without it is the delegate's. Letters that no entry has choose
/// nothing: the list stays.
void ChoiceEditor::end(QKeyEvent &event)
{
    const bool isGivenUp = event.key() == Qt::Key_Escape;
    const int row = selectedRow();
    if (!isGivenUp && !m_typed.isEmpty() && row < 0)
        return;
    hidePopup();
    if (!isGivenUp)
        setCurrentIndex(row);
    QKeyEvent key(event.type(), event.key(), event.modifiers(), event.text());
    QApplication::sendEvent(this, &key);
}

void ChoiceEditor::setTyped(const QString &typed)
{
    m_typed = typed.trimmed().isEmpty() ? QString() : typed;
    select(m_typed.isEmpty() ? m_storedRow : rowOf(m_typed));
}

/// What starts with a digit is a number. Negative where there is none.
int ChoiceEditor::rowOf(const QString &typed) const
{
    if (const int row = findData(typed); row >= 0)
        return row;
    if (const int row = findText(typed, Qt::MatchStartsWith); row >= 0)
        return row;
    if (typed.at(0).isDigit() || typed.at(0) == QLatin1Char('-'))
        return -1;
    for (int row = 0; row < count(); ++row) {
        const QString text = itemText(row);
        const qsizetype name = text.indexOf(QLatin1String(": ")) + 2;
        if (QStringView(text).sliced(name).startsWith(typed, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

#pragma once

#include <QtCore/QPair>
#include <QtWidgets/QComboBox>

/// A list to choose from that opens with the first focus. Keys and wheel only move the selection; Return,
/// Tab and a click choose. What is typed selects by number, or by the beginning of the text, as long as
/// no other key moves the selection.
class ChoiceEditor : public QComboBox {
    Q_OBJECT

public:
    /// Native text and shown text, "10: Ten".
    using Choice = QPair<QString, QString>;

    ChoiceEditor(const QList<Choice> &choices, QWidget *parent);

    /// Selects what is stored, nothing where the list lacks it; what the user selected stays.
    void follow(const QString &native);
    void showPopup() override;

Q_SIGNALS:
    void clicked();
    /// To something else than what was refused.
    void moved();

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    bool isOpen() const;
    int selectedRow() const;
    void select(int row);
    bool takeKey(QKeyEvent &event);
    void end(QKeyEvent &event);
    void setTyped(const QString &typed);
    int rowOf(const QString &typed) const;

    QString m_typed;
    /// Of the stored value.
    int m_storedRow = -1;
    bool m_hasOpened = false;
    /// In the list; the click that opened it is none.
    bool m_isPressed = false;
};

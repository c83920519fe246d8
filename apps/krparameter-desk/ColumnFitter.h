#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>

class ParameterTableModel;
class QTableView;

/// Gives address, name and value the widths that the texts of the device need, as far as the table has
/// room, until the user sets a width. The other columns are as wide as numbers and titles are.
class ColumnFitter : public QObject {
    Q_OBJECT

public:
    /// What two columns would have.
    struct Needs {
        int name = 0;
        int value = 0;
        /// Of the longest choice that a value could have.
        int choice = 0;
        /// Less than these shows no text that can be told from others.
        int leastName = 0;
        int leastValue = 0;
    };
    struct Widths {
        int name = 0;
        int value = 0;
    };

    /// **Owner** of both the caller; they outlive the fitter.
    ColumnFitter(const ParameterTableModel &model, QTableView &view);

    /// Without room for both the wider one gives way, at most until they are equal; room that is left is for
    /// choices. Neither is narrower than the least, for which the table has to scroll.
    static Widths share(const Needs &needs, int room);

    /// Empty until the user set a width.
    QByteArray state() const;
    /// **Refused** what is no state: the widths stay and go on following the texts.
    void restore(const QByteArray &state);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void measure();
    void fit();
    void onResized(int column);

    const ParameterTableModel &m_model;
    QTableView &m_view;
    Needs m_needs;
    /// The least that the last column has, which takes what the others leave.
    int m_tagWidth = 0;
    /// The widths that are set now are not the user's.
    bool m_isFitting = false;
    bool m_isUsers = false;
};

#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtGui/QAction>

/// Everything that can be done by menu, button and key.
class DeskActions : public QObject {
    Q_OBJECT

public:
    enum eAction {
        OpenDevice,
        LoadProject,
        SaveProject,
        SaveProjectAs,
        Quit,
        Undo,
        Redo,
        Search,
        EditValue,
        TakeSnapshot,
        CompareSnapshots,
        RemoveSnapshot,
        GoOnline,
        ChooseDrive,
        ReadOnly,
        StartAction,
        ShowParameters,
        ShowComparison,
        GoToSnapshots,
        GoToMessages,
        ClearMessages,
    };

    explicit DeskActions(QWidget *window);

    QAction *operator[](eAction action) const { return m_actions.value(action); }
    /// The texts in the language of the program.
    void retranslate();

private:
    QHash<int, QAction *> m_actions;
};

#pragma once

#include "apps/krparameter-desk/ChoiceEditor.h"
#include "apps/krparameter-desk/DeskActions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/RejectionNote.h"
#include "apps/krparameter-desk/SelectorBar.h"
#include "tests/apps/desk/AnsweringDialogs.h"
#include "tests/apps/desk/DeskDevice.h"
#include "tests/support/MessageRecorder.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterNavigationHost.h>
#include <KrSystem/System.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QSettings>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

/// A desk that stands open with a device, for clicks and keys.
class DeskOnScreen {
public:
    explicit DeskOnScreen(const QByteArray &description)
        : device(description)
    {
        // What the platform without screen cannot do is no fault of the desk.
        QTest::failOnWarning(
            QRegularExpression(QStringLiteral("^(?!This plugin does not support)")));
        QSettings().clear();
        System::information()->setUserAccessLevel(4);
        open();
    }

    /// Anew, as the next run of the program.
    void open()
    {
        window = std::make_unique<DeskWindow>(dialogs);
        QVERIFY(window->session().open(device.fileName()));
        window->show();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        table().setFocus();
    }

    ParameterTableView &table() const { return window->tableView(); }
    ParameterTableModel &model() const { return window->tableModel(); }
    QLineEdit *field() const { return editor<QLineEdit>(); }
    ChoiceEditor *list() const { return editor<ChoiceEditor>(); }
    RejectionNote *note() const { return table().findChild<RejectionNote *>(); }
    QAction *action(DeskActions::eAction which) const { return window->actions()[which]; }
    template <typename T>
    T *child(const char *name) const
    {
        return window->findChild<T *>(QLatin1String(name));
    }
    QString value(const ValuePlace &at) const { return model().indexOf(at).data().toString(); }
    QString native(const ValuePlace &at) const
    {
        return model().indexOf(at).data(ParameterTableModel::NativeRole).toString();
    }
    /// Whole in the table.
    bool isInView(const ValuePlace &at) const
    {
        const QRect cell = table().visualRect(model().indexOf(at));
        return !cell.isEmpty() && cell.top() >= 0
            && cell.bottom() <= table().viewport()->rect().bottom();
    }

    /// Where a key goes: to an open list or menu first.
    QWidget *receiver() const
    {
        if (QWidget *popup = QApplication::activePopupWidget())
            return popup->focusWidget() ? popup->focusWidget() : popup;
        return QApplication::focusWidget() ? QApplication::focusWidget() : window.get();
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::keyClick(receiver(), key, modifiers);
    }
    /// By the action's own key.
    void press(DeskActions::eAction which) const
    {
        const QKeyCombination keys = action(which)->shortcut()[0];
        press(keys.key(), keys.keyboardModifiers());
    }
    void type(const char *text) const
    {
        for (const char letter : QByteArray(text))
            QTest::keyClick(receiver(), letter);
    }
    void click(const ValuePlace &at) const
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, center(at));
    }
    void doubleClick(const ValuePlace &at) const
    {
        click(at);
        QTest::mouseDClick(table().viewport(), Qt::LeftButton, Qt::NoModifier, center(at));
    }

    DeskDevice device;
    AnsweringDialogs dialogs;
    MessageRecorder messages;
    std::unique_ptr<DeskWindow> window;

private:
    /// One that is closed is hidden until it goes.
    template <typename T>
    T *editor() const
    {
        for (T *candidate : table().template findChildren<T *>()) {
            if (!candidate->isHidden())
                return candidate;
        }
        return nullptr;
    }
    QPoint center(const ValuePlace &at) const
    {
        return table().visualRect(model().indexOf(at)).center();
    }
};

#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>

#include <functional>

class ParameterAddress;
class QStatusBar;
class TableNavigation;

/// Leads the user from what tells of a parameter to its row, or says in the status bar why there is none.
class AddressGuide : public QObject {
    Q_OBJECT

public:
    /// `showTable` is called before a row of it is gone to. **Owner** of all the caller.
    AddressGuide(TableNavigation &navigation, const std::function<void()> &showTable,
        QStatusBar &statusBar, QObject *parent);

    /// An address may name a record as a whole, which has no value of its own: to its first one.
    void goTo(const ParameterAddress &address);
    /// From a row that compares values of these devices.
    void goToCompared(const ParameterAddress &address, const QStringList &devices);
    void tell(const QString &reason);

private:
    TableNavigation &m_navigation;
    std::function<void()> m_showTable;
    QStatusBar &m_statusBar;
};

#include "apps/krparameter-desk/AddressGuide.h"

#include "apps/krparameter-desk/TableNavigation.h"

#include <QtWidgets/QStatusBar>

namespace {

/// Of a note in the status bar. **Unit** ms.
constexpr int NoticeSpan = 8000;

} // namespace

AddressGuide::AddressGuide(TableNavigation &navigation, const std::function<void()> &showTable,
    QStatusBar &statusBar, QObject *parent)
    : QObject(parent)
    , m_navigation(navigation)
    , m_showTable(showTable)
    , m_statusBar(statusBar)
{
}

void AddressGuide::goTo(const ParameterAddress &address)
{
    if (m_navigation.canNavigateToAddress(address)) {
        m_showTable();
        m_navigation.navigateToAddress(address);
    } else if (m_navigation.canNavigateToParameter(address.coordinate())) {
        m_showTable();
        m_navigation.navigateToParameter(address.coordinate());
    } else {
        tell(m_navigation.obstacle(address));
    }
}

void AddressGuide::goToCompared(const ParameterAddress &address, const QStringList &devices)
{
    const QString obstacle = m_navigation.comparisonObstacle(devices);
    if (obstacle.isEmpty())
        goTo(address);
    else
        tell(obstacle);
}

void AddressGuide::tell(const QString &reason)
{
    m_statusBar.showMessage(reason, NoticeSpan);
}

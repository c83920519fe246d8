#include "apps/krparameter-desk/Screenshot.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/DeskOptions.h"
#include "apps/krparameter-desk/DeskWindow.h"
#include "apps/krparameter-desk/ParameterTableView.h"
#include "apps/krparameter-desk/SelectorBar.h"

#include <KrParameterInstance/ParameterNavigationHost.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLineEdit>

namespace {

/// Where something took long a progress dialog was the active window, and the frame of what has the focus is
/// part of the picture.
void comeToRest(DeskWindow &window)
{
    constexpr int LongestTime = 1000;
    window.activateWindow();
    QApplication::processEvents(QEventLoop::AllEvents, LongestTime);
}

} // namespace

Screenshot::Screenshot(DeskWindow &window, const DeskOptions &options)
    : m_window(window)
    , m_options(options)
{
}

QString Screenshot::take()
{
    m_window.resize(m_options.size);
    m_window.show();
    comeToRest(m_window);
    if (const QString problem = prepare(); !problem.isEmpty())
        return problem;
    comeToRest(m_window);
    return m_window.grab().save(m_options.screenshotFile)
        ? QString()
        : tr("das Bild \"%1\" kann nicht geschrieben werden").arg(m_options.screenshotFile);
}

QString Screenshot::prepare()
{
    DriveProject *project = m_window.session().project();
    const bool compares = m_options.page == DeskOptions::ePage::Comparison && project;
    const bool hasEarlier = m_window.snapshots().rowCount() > 0;
    if (compares && !hasEarlier)
        m_window.snapshots().take(project->container(), tr("Vorher"));
    for (const auto &[address, text] : m_options.writes) {
        if (const QString problem = write(address, text); !problem.isEmpty())
            return problem;
    }
    if (compares) {
        m_window.snapshots().take(
            project->container(), hasEarlier ? m_window.session().deviceName() : tr("Nachher"));
        m_window.showComparison();
    }
    m_window.selectors().searchField()->setText(m_options.searchedText);
    m_window.tableModel().settle();
    return m_options.edit ? leaveOpen(m_options.edit->first, m_options.edit->second) : QString();
}

QString Screenshot::write(const QString &address, const QString &text)
{
    if (const QString problem = goTo(address); !problem.isEmpty())
        return problem;
    const QModelIndex value =
        m_window.tableView().currentIndex().siblingAtColumn(ParameterTableModel::Value);
    if (const QString obstacle = m_window.tableModel().writeObstacle(value); !obstacle.isEmpty())
        return obstacle;
    return m_window.tableModel().setData(value, text, Qt::EditRole)
        ? QString()
        : tr("%1 nimmt \"%2\" nicht an").arg(address, text);
}

QString Screenshot::leaveOpen(const QString &address, const QString &text)
{
    if (const QString problem = goTo(address); !problem.isEmpty())
        return problem;
    ParameterTableView &view = m_window.tableView();
    const QModelIndex value = view.currentIndex().siblingAtColumn(ParameterTableModel::Value);
    if (const QString obstacle = m_window.tableModel().writeObstacle(value); !obstacle.isEmpty())
        return obstacle;
    view.edit(value);
    auto *field = view.findChild<QLineEdit *>();
    if (!field)
        return tr("%1 hat kein Feld zum Tippen").arg(address);
    field->setText(text);
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    QApplication::sendEvent(field, &enter);
    return {};
}

QString Screenshot::goTo(const QString &address)
{
    ParameterNavigationHost &navigation = m_window.navigation();
    const ParameterAddress target(address, true);
    if (!navigation.canNavigateToAddress(target))
        return tr("%1 ist nicht zu sehen").arg(address);
    navigation.navigateToAddress(target);
    return {};
}

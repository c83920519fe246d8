#include "apps/krparameter-desk/TableNavigation.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/ParameterTableView.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

namespace {

/// Empty where the user may see none of them.
std::optional<ValuePlace> firstVisible(const ParameterInformation *parameter)
{
    if (!parameter)
        return {};
    for (const ValuePlace &place : ValuePlace::allOf(*parameter)) {
        if (parameter->isVisible(place.livingSpace, place.element))
            return place;
    }
    return {};
}

} // namespace

TableNavigation::TableNavigation(ParameterTableModel &model, ParameterTableView &view,
    const std::function<void()> &reveal, QObject *parent)
    : ParameterNavigationHost(parent)
    , m_model(model)
    , m_view(view)
    , m_reveal(reveal)
{
}

bool TableNavigation::canNavigateToParameter(const ParameterCoordinate &coordinate) const
{
    return m_project
        && firstVisible(m_project->container().parameterInformation(coordinate)).has_value();
}

void TableNavigation::navigateToParameter(const ParameterCoordinate &coordinate)
{
    if (!m_project)
        return;
    const auto parameter = m_project->container().parameterInformation(coordinate);
    if (const auto place = firstVisible(parameter))
        navigateToAddress(parameter->address(place->livingSpace, place->element));
}

bool TableNavigation::canNavigateToAddress(const ParameterAddress &address) const
{
    if (!m_project || !address.isValid())
        return false;
    const auto parameter = m_project->container().parameterInformation(address.coordinate());
    if (!parameter)
        return false;
    const ValuePlace place = ValuePlace::of(address, *parameter);
    return m_model.contains(place) && parameter->isVisible(place.livingSpace, place.element);
}

void TableNavigation::navigateToAddress(const ParameterAddress &address)
{
    if (!canNavigateToAddress(address))
        return;
    const auto parameter = m_project->container().parameterInformation(address.coordinate());
    const ValuePlace place = ValuePlace::of(address, *parameter);
    m_model.settle();
    if (!m_model.indexOf(place).isValid())
        m_reveal();
    // While the access level changes, a value may be visible before its row is.
    if (const QModelIndex index = m_model.indexOf(place); index.isValid())
        m_view.goTo(index);
}

ParameterAddress TableNavigation::currentAddress() const
{
    const std::optional<ValuePlace> place = m_model.placeAt(m_view.currentIndex());
    const auto parameter = place && m_project
        ? m_project->container().parameterInformation(place->coordinate)
        : nullptr;
    return parameter ? parameter->address(place->livingSpace, place->element) : ParameterAddress();
}

ParameterContainer *TableNavigation::parameterContainer() const
{
    return m_project ? &m_project->container() : nullptr;
}

bool TableNavigation::isKnown(const ParameterAddress &address) const
{
    return m_project && m_project->container().parameterInformation(address.coordinate());
}

QString TableNavigation::obstacle(const ParameterAddress &address) const
{
    if (!m_project)
        return tr("Es ist kein Gerät offen.");
    const auto parameter = m_project->container().parameterInformation(address.coordinate());
    const QList<ValuePlace> places =
        parameter ? ValuePlace::allOf(*parameter) : QList<ValuePlace>();
    if (places.isEmpty()) {
        return tr("%1 gibt es in diesem Gerät nicht.")
            .arg(address.toText(address.axis() == 0, address.element() > 0));
    }
    // A title may name a record as a whole.
    ValuePlace place = ValuePlace::of(address, *parameter);
    if (!places.contains(place))
        place = places.constFirst();
    const QString text = place.addressText(*parameter);
    const quint32 level = parameter->readLevel(place.element);
    return level > System::information()->userAccessLevel()
        ? tr("%1 ist erst ab Zugriffsstufe %2 zu sehen.").arg(text).arg(level)
        : tr("%1 ist zurzeit ausgeblendet.").arg(text);
}

/// What another device calls so is another parameter.
QString TableNavigation::comparisonObstacle(const QStringList &devices) const
{
    const QString open = m_project ? m_project->firmware().deviceFamilyName() : QString();
    if (!m_project || devices.contains(open))
        return {};
    return tr("Der Vergleich gehört zu %1; offen ist %2.")
        .arg(devices.join(QStringLiteral(", ")), open);
}

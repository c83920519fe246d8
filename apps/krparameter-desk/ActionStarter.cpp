#include "apps/krparameter-desk/ActionStarter.h"

#include "apps/host/ActionForm.h"
#include "apps/host/DeviceState.h"
#include "apps/host/DriveProject.h"
#include "apps/krparameter-desk/OnlineSwitch.h"
#include "apps/online/OnlineOutcome.h"

#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QPointer>

#include <algorithm>
#include <utility>

using eEnd = ActionRun::eEnd;

ActionStarter::ActionStarter(QObject *parent)
    : QObject(parent)
{
}

ActionStarter::~ActionStarter() = default;

void ActionStarter::setDevice(DriveProject *project, OnlineSwitch *online)
{
    if (m_project)
        m_project->container().disconnect(this);
    if (m_online)
        m_online->disconnect(this);
    m_online = nullptr;
    onStateChanged();
    m_project = project;
    m_online = online;
    listen();
    Q_EMIT obstacleChanged();
}

void ActionStarter::listen()
{
    if (!m_project || !m_online)
        return;
    const ParameterContainer *container = &m_project->container();
    connect(m_online, &OnlineSwitch::stateChanged, this, &ActionStarter::onStateChanged);
    connect(m_online, &OnlineSwitch::sending, this, [this](const ValuePlace &place) {
        if (const auto found = find(place); found != m_followed.end())
            found->run->await();
    });
    connect(m_online, &OnlineSwitch::reported, this, [this](const OnlineOutcome &outcome) {
        if (const auto found = find(outcome.place); found != m_followed.end())
            found->run->hear(outcome);
    });
    connect(container, &ParameterContainer::readOnlyChanged, this, &ActionStarter::obstacleChanged);
    connect(container, &ParameterContainer::accessLevelUpdateFinished, this,
        &ActionStarter::obstacleChanged);
    connect(container, &ParameterContainer::parameterNativeValueChanged, this,
        &ActionStarter::onValueChanged);
}

std::optional<ValuePlace> ActionStarter::actionOf(const ValuePlace &place) const
{
    const auto parameter =
        m_project ? m_project->container().parameterInformation(place.coordinate) : nullptr;
    if (!parameter || !ActionForm::isAction(*parameter))
        return {};
    return ValuePlace {place.coordinate, place.livingSpace, 0};
}

QString ActionStarter::obstacle(const std::optional<ValuePlace> &place) const
{
    const std::optional<ValuePlace> control = place ? actionOf(*place) : std::nullopt;
    if (!control)
        return tr("Die gewählte Zeile gehört zu keiner Aktion.");
    const auto action = m_project->container().parameterInformation(control->coordinate);
    if (!m_online || m_online->state() != OnlineSwitch::eState::Online)
        return tr("Eine Aktion startet nur online.");
    if (m_project->container().isReadOnly())
        return tr("Das Gerät ist auf nur lesen gestellt.");
    if (isFollowed(*control))
        return tr("Die Aktion läuft.");
    if (!action->isWritable(control->livingSpace, control->element))
        return tr("Die Zugriffsstufe reicht nicht aus.");
    if (isLocked(*action, *control))
        return tr("Die Aktion startet nicht, solange die Achse eingeschaltet ist.");
    return {};
}

void ActionStarter::start(const ValuePlace &place)
{
    if (!obstacle(place).isEmpty())
        return;
    const ValuePlace control = *actionOf(place);
    ParameterContainer &container = m_project->container();
    const auto parameter = container.parameterInformation(control.coordinate);
    const QString label =
        control.addressText(*parameter) + QLatin1Char(' ') + parameter->name().longText();
    m_followed.push_back({label, std::make_unique<ActionRun>(container, control)});
    const QPointer<ActionRun> run(m_followed.back().run.get());
    connect(run, &ActionRun::progressed, this,
        [this, control](int percent) { Q_EMIT progressed(control, percent); });
    connect(run, &ActionRun::ended, this, [this, control](eEnd end) { onEnded(control, end); });
    Q_EMIT started(control, label);
    Q_EMIT obstacleChanged();
    if (run)
        run->start();
}

void ActionStarter::onStateChanged()
{
    const bool isOnline = m_online && m_online->state() == OnlineSwitch::eState::Online;
    while (!isOnline && !m_followed.empty())
        m_followed.back().run->loseDrive();
    Q_EMIT obstacleChanged();
}

void ActionStarter::onValueChanged(const ParameterAddress &address)
{
    // Whether an axis is enabled decides about all of its actions.
    if (address.coordinate() == DeviceState::coordinate())
        Q_EMIT obstacleChanged();
}

std::vector<ActionStarter::Followed>::iterator ActionStarter::find(const ValuePlace &control)
{
    return std::find_if(m_followed.begin(), m_followed.end(),
        [&control](const Followed &followed) { return followed.run->control() == control; });
}

bool ActionStarter::isFollowed(const ValuePlace &control) const
{
    return std::any_of(m_followed.cbegin(), m_followed.cend(),
        [&control](const Followed &followed) { return followed.run->control() == control; });
}

/// One that runs already can be followed whatever the axis does.
bool ActionStarter::isLocked(const ParameterInformation &action, const ValuePlace &control) const
{
    const bool isRunning =
        action.nativeValueText(control.livingSpace, control.element, false).toInt() != 0;
    return !isRunning && ActionForm::needsDisabledAxis(action)
        && DeviceState::isEnabled(DeviceState::read(m_project->container(), control.livingSpace));
}

void ActionStarter::onEnded(const ValuePlace &control, eEnd end)
{
    const auto found = find(control);
    if (found == m_followed.end())
        return;
    Followed followed = std::move(*found);
    m_followed.erase(found);
    const QString text = followed.label + QLatin1String(": ") + sentence(end, *followed.run);
    // It is telling of its end.
    followed.run.release()->deleteLater();
    const QString title = m_project->container().domain();
    const QPointer<ActionStarter> self(this);
    Q_EMIT ended(control);
    if (end == eEnd::Done)
        System::addInformationMessage(title, text);
    else
        System::addWarningMessage(title, text);
    if (self)
        Q_EMIT obstacleChanged();
}

QString ActionStarter::sentence(eEnd end, const ActionRun &run)
{
    switch (end) {
    case eEnd::Done:
        break;
    case eEnd::NotStartable:
        return tr("im Zustand des Antriebs nicht startbar");
    case eEnd::NotStarted:
        return tr("nicht gestartet");
    case eEnd::StartLost:
        return tr("ob sie gestartet wurde, ist nicht bekannt");
    case eEnd::BrokenOff:
        return tr("endete vor 100 % - %1").arg(run.stateText());
    case eEnd::DriveGone:
        return tr("nicht mehr online; wie sie endet, ist nicht bekannt");
    case eEnd::Vanished:
        return tr("den Parameter gibt es nicht mehr; wie sie endet, ist nicht bekannt");
    }
    return run.stateText();
}

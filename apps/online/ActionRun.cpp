#include "apps/online/ActionRun.h"

#include "apps/online/OnlineOutcome.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QPointer>

#include <utility>

using eKind = OnlineOutcome::eKind;

namespace {

constexpr quint16 ProgressElement = 1;
constexpr int LastPercent = 100;

} // namespace

ActionRun::ActionRun(ParameterContainer &container, const ValuePlace &control)
    : m_container(container)
    , m_control(control)
    , m_action(container.createAction(control.coordinate.toText(), control.livingSpace))
{
    if (!m_action)
        return;
    // Later: whoever writes to a running action tells it afterwards.
    connect(m_action.get(), &ActionParameter::stateChanged, this, &ActionRun::endWhereIdle,
        Qt::QueuedConnection);
    connect(m_action.get(), &ActionParameter::progressChanged, this, [this](int percent) {
        if (!m_end)
            Q_EMIT progressed(percent);
    });
    connect(&container, &ParameterContainer::parameterRemoved, this,
        [this](const ParameterCoordinate &coordinate) {
            if (coordinate == m_control.coordinate)
                endAs(eEnd::Vanished);
        });
}

ActionRun::~ActionRun() = default;

void ActionRun::start()
{
    if (!m_action) {
        endAs(eEnd::Vanished);
        return;
    }
    const bool isRunning = !m_action->isIdle();
    m_isStarting = !isRunning;
    m_isAwaited = m_isStarting;
    const QPointer<ActionRun> guard(this);
    const bool isStartable = m_action->start();
    // Whoever hears of the write may have ended the run, or deleted it.
    if (!guard || m_end)
        return;
    if (!isStartable)
        endAs(eEnd::NotStartable);
    else if (m_action->isIdle()) // The firmware's check has told why.
        endAs(eEnd::NotStarted);
    else if (isRunning)
        Q_EMIT progressed(percent());
}

void ActionRun::await()
{
    m_isAwaited = true;
}

void ActionRun::hear(const OnlineOutcome &outcome)
{
    if (m_end || !m_isAwaited || outcome.place != m_control || !outcome.isWrite)
        return;
    m_isAwaited = false;
    const bool wasStarting = std::exchange(m_isStarting, false);
    if (wasStarting && !outcome.isGood())
        endAs(outcome.kind == eKind::Lost ? eEnd::StartLost : eEnd::NotStarted);
    else
        endWhereIdle();
}

void ActionRun::loseDrive()
{
    endAs(eEnd::DriveGone);
}

int ActionRun::percent() const
{
    return m_container
        .readUndecoratedValue(m_control.livingSpace, m_control.coordinate, ProgressElement, false)
        .toInt();
}

QString ActionRun::stateText() const
{
    return m_action ? m_action->stateText() : QString();
}

void ActionRun::endWhereIdle()
{
    // A change that is told later may find the run ended, and its container gone. What was written here
    // is not what the drive does.
    if (!m_end && !m_isAwaited && m_action->isIdle())
        endAs(percent() == LastPercent ? eEnd::Done : eEnd::BrokenOff);
}

void ActionRun::endAs(eEnd end)
{
    if (m_end)
        return;
    m_end = end;
    Q_EMIT ended(end);
}

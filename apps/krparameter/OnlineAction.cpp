#include "apps/krparameter/OnlineAction.h"

#include "apps/online/OnlineSession.h"

#include <KrParameterInstance/ActionParameter.h>
#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QTimer>

using eKind = OnlineOutcome::eKind;

namespace {

constexpr quint16 ProgressElement = 1;
constexpr int LastPercent = 100;

} // namespace

OnlineAction::OnlineAction(
    ParameterContainer &container, OnlineSession &session, const ValuePlace &control)
    : m_container(container)
    , m_session(session)
    , m_control(control)
    , m_action(container.createAction(control.coordinate.toText(), control.livingSpace))
{
    connect(&session, &OnlineSession::valueReported, this, &OnlineAction::onReported);
    connect(&session, &OnlineSession::stateChanged, this, [this](OnlineSession::eState state) {
        if (state != OnlineSession::eState::Online)
            end(eEnd::DriveGone);
    });
    connect(m_action.get(), &ActionParameter::stateChanged, this, &OnlineAction::onStateChanged);
    connect(m_action.get(), &ActionParameter::progressChanged, this, &OnlineAction::onProgress);
}

OnlineAction::~OnlineAction() = default;

OnlineAction::eEnd OnlineAction::run(int seconds)
{
    const bool isRunning = !m_action->isIdle();
    if (!m_action->start())
        return eEnd::NotStartable;
    // The firmware's check has told why.
    if (m_action->isIdle())
        return eEnd::NotStarted;
    if (isRunning)
        onProgress(percent());
    if (seconds > 0)
        QTimer::singleShot(
            std::chrono::seconds(seconds), this, [this] { end(eEnd::StillRunning); });
    if (m_session.state() != OnlineSession::eState::Online)
        end(eEnd::DriveGone);
    if (!m_end)
        m_loop.exec();
    return *m_end;
}

QString OnlineAction::stateText() const
{
    return m_action->stateText();
}

void OnlineAction::onStateChanged()
{
    if (!m_action->isIdle())
        return;
    // Behind the report on the start: a drive that refused it makes the action idle too.
    QMetaObject::invokeMethod(
        this, [this] { end(percent() == LastPercent ? eEnd::Done : eEnd::BrokenOff); },
        Qt::QueuedConnection);
}

void OnlineAction::onReported(const OnlineOutcome &outcome)
{
    if (outcome.isGood() || m_end)
        return;
    Q_EMIT noted(outcome.toText());
    // What was only read has nothing that was sent; what goes with the line has neither.
    const bool isOfStart = !outcome.sent.isEmpty() || outcome.kind == eKind::Lost;
    if (outcome.place != m_control || !isOfStart)
        return;
    end(outcome.kind == eKind::Refused ? eEnd::NotStarted : eEnd::StartLost);
}

void OnlineAction::end(eEnd end)
{
    if (m_end)
        return;
    m_end = end;
    m_loop.quit();
}

void OnlineAction::onProgress(int percent)
{
    Q_EMIT noted(QStringLiteral("%1 %").arg(percent));
}

int OnlineAction::percent() const
{
    return m_container
        .readValueNative(m_control.livingSpace, m_control.coordinate, ProgressElement, false)
        .toInt();
}

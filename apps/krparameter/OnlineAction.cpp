#include "apps/krparameter/OnlineAction.h"

#include "apps/online/OnlineSession.h"

#include <QtCore/QTimer>

OnlineAction::OnlineAction(
    ParameterContainer &container, OnlineSession &session, const ValuePlace &control)
    : m_session(session)
    , m_run(container, control)
{
    connect(&session, &OnlineSession::valueReported, this, &OnlineAction::onReported);
    connect(&session, &OnlineSession::stateChanged, &m_run, [this](OnlineSession::eState state) {
        if (state != OnlineSession::eState::Online)
            m_run.loseDrive();
    });
    connect(&m_run, &ActionRun::ended, &m_loop, &QEventLoop::quit);
    connect(&m_run, &ActionRun::progressed, this,
        [this](int percent) { Q_EMIT noted(QStringLiteral("%1 %").arg(percent)); });
}

std::optional<ActionRun::eEnd> OnlineAction::run(int seconds)
{
    m_run.start();
    if (m_session.state() != OnlineSession::eState::Online)
        m_run.loseDrive();
    if (seconds > 0)
        QTimer::singleShot(std::chrono::seconds(seconds), &m_loop, &QEventLoop::quit);
    if (!m_run.end())
        m_loop.exec();
    return m_run.end();
}

void OnlineAction::onReported(const OnlineOutcome &outcome)
{
    if (m_run.end())
        return;
    if (!outcome.isGood())
        Q_EMIT noted(outcome.toText());
    m_run.hear(outcome);
}

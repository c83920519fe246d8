#include "apps/krparameter/OnlineWatch.h"

#include "apps/online/OnlineSession.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QTimer>

using eState = OnlineSession::eState;

OnlineWatch::OnlineWatch(
    ParameterContainer &container, OnlineSession &session, const QList<ValuePlace> &places)
    : m_container(container)
    , m_session(session)
    , m_places(places)
{
    connect(
        &container, &ParameterProvider::parameterValueChanged, this, &OnlineWatch::onValueChanged);
    connect(&session, &OnlineSession::valueReported, this, &OnlineWatch::onReported);
    connect(&session, &OnlineSession::connectionFailed, this, [this](const QString &reason) {
        Q_EMIT noted(tr("Der Antrieb ist fort: %1").arg(reason));
    });
    connect(&session, &OnlineSession::stateChanged, this, [this](eState state) {
        if (state == eState::Offline)
            m_loop.exit(1);
        else if (state == eState::Online)
            Q_EMIT noted(tr("Der Antrieb antwortet wieder."));
    });
}

bool OnlineWatch::run(int seconds)
{
    for (const ValuePlace &place : m_places) {
        const auto parameter = m_container.parameterInformation(place.coordinate);
        Q_EMIT valueShown(place);
        // Whoever names a value wants it, also one that is read by itself only while mapped.
        m_container.dispatchParameterOnlineConsistenceNeed(
            parameter->address(place.livingSpace, place.element), true);
    }
    if (seconds > 0)
        QTimer::singleShot(std::chrono::seconds(seconds), &m_loop, [this] { m_loop.exit(0); });
    return m_session.state() != eState::Offline && m_loop.exec() == 0;
}

void OnlineWatch::onValueChanged(const ParameterAddress &address)
{
    for (const ValuePlace &place : m_places) {
        const auto parameter = m_container.parameterInformation(place.coordinate);
        if (parameter && parameter->address(place.livingSpace, place.element) == address)
            Q_EMIT valueShown(place);
    }
}

void OnlineWatch::onReported(const OnlineOutcome &outcome)
{
    if (!outcome.isGood())
        Q_EMIT noted(outcome.toText());
}

#include "apps/online/OnlineSession.h"

#include "apps/online/Backoff.h"
#include "apps/online/ModbusTcpLink.h"
#include "apps/online/SystemOnlineClock.h"
#include "apps/online/TransferScope.h"
#include "apps/online/UnmappedOutcome.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>

#include <utility>

std::unique_ptr<OnlineSession> OnlineSession::overModbusTcp(
    ParameterContainer &container, const QString &host, quint16 port, const OnlineRules &rules)
{
    return std::make_unique<OnlineSession>(container, std::make_unique<ModbusTcpLink>(host, port),
        std::make_unique<SystemOnlineClock>(), rules);
}

OnlineSession::OnlineSession(ParameterContainer &container, std::unique_ptr<OnlineLink> link,
    std::unique_ptr<OnlineClock> clock, const OnlineRules &rules)
    : m_container(container)
    , m_rules(rules)
    , m_link(std::move(link))
    , m_clock(std::move(clock))
    , m_exchange(*m_link, *m_clock, rules)
    , m_contact(m_exchange)
    , m_cycle(container, m_exchange, *m_clock, rules)
    , m_heartbeat(m_exchange, *m_clock, rules.heartbeatInterval)
    , m_transfers(m_cycle, m_map, [this] {
        static const QMetaMethod reported = QMetaMethod::fromSignal(&OnlineSession::valueReported);
        return isSignalConnected(reported);
    })
{
    connect(m_link.get(), &OnlineLink::opened, this, &OnlineSession::onOpened);
    connect(m_link.get(), &OnlineLink::closed, this, &OnlineSession::onLineLost);
    connect(m_clock.get(), &OnlineClock::rang, this, &OnlineSession::onRang);
    connect(&m_exchange, &RequestExchange::silent, this,
        [this] { onLineLost(tr("der Antrieb antwortet nicht")); });
    connect(&m_contact, &FirstContact::agreed, this, &OnlineSession::onAgreed);
    connect(&m_contact, &FirstContact::disagreed, this, &OnlineSession::giveUp);
    connect(&m_contact, &FirstContact::refused, this, &OnlineSession::onHeaderRefused);
    connect(&m_contact, &FirstContact::unanswered, this, &OnlineSession::onLineLost);
    connect(&m_transfers, &TransferRun::valueReported, this, &OnlineSession::valueReported);
    connect(&m_transfers, &TransferRun::progressed, this, &OnlineSession::transferProgress);
    connect(&m_transfers, &TransferRun::finished, this, &OnlineSession::transferFinished);
}

OnlineSession::~OnlineSession()
{
    goOffline();
}

void OnlineSession::goOnline()
{
    if (m_state != eState::Offline || m_isLeaving)
        return;
    m_failedCalls = 0;
    m_isReturning = false;
    m_state = eState::Connecting;
    const quint32 turn = ++m_turns;
    const QPointer<OnlineSession> guard(this);
    Q_EMIT stateChanged(m_state);
    if (guard && m_turns == turn)
        call();
}

void OnlineSession::goOffline()
{
    if (m_state == eState::Offline)
        return;
    if (m_isLeaving)
        m_state = eState::Offline;
    else
        leave(eState::Offline, tr("die Verbindung wurde getrennt"));
}

bool OnlineSession::upload()
{
    const auto isInProject = [this](
                                 const MappedValue &value) { return m_cycle.isInProject(value); };
    if (!canTransfer())
        return false;
    m_transfers.read(TransferScope::ofUpload(*m_map, isInProject));
    return true;
}

bool OnlineSession::download()
{
    const auto isInProject = [this](
                                 const MappedValue &value) { return m_cycle.isInProject(value); };
    if (!canTransfer())
        return false;
    m_transfers.write(TransferScope::ofDownload(*m_map, isInProject), {});
    return true;
}

bool OnlineSession::readValues(const QList<ValuePlace> &places)
{
    if (!canTransfer())
        return false;
    m_transfers.read(scopeOf(places, eDirection::FromDrive));
    return true;
}

bool OnlineSession::writeValues(
    const QList<ValuePlace> &places, const QHash<ValuePlace, QString> &asked)
{
    if (!canTransfer())
        return false;
    m_transfers.write(scopeOf(places, eDirection::ToDrive), asked);
    return true;
}

bool OnlineSession::writeValue(const ValuePlace &place)
{
    if (m_state != eState::Online)
        return false;
    const qsizetype value = TransferScope::positionOf(*m_map, m_container, place);
    if (value < 0)
        Q_EMIT valueReported(UnmappedOutcome::of(*m_map, m_container, place, eDirection::ToDrive));
    else
        m_cycle.writeNow(value);
    return true;
}

void OnlineSession::call()
{
    m_map.emplace(m_container);
    m_isCalling = true;
    m_clock->setAlarm(eOnlineAlarm::Contact, m_clock->now() + m_rules.contactSpan);
    m_link->open();
}

void OnlineSession::callLater()
{
    const auto pause =
        backoffPause(m_failedCalls, m_rules.firstContactPause, m_rules.longestContactPause);
    m_clock->setAlarm(eOnlineAlarm::Contact, m_clock->now() + pause);
}

void OnlineSession::onOpened()
{
    if (!m_isCalling)
        return;
    m_isCalling = false;
    m_clock->clearAlarm(eOnlineAlarm::Contact);
    m_contact.ask(*m_map);
}

void OnlineSession::onAgreed()
{
    m_failedCalls = 0;
    const bool isBack = std::exchange(m_isReturning, false);
    m_state = eState::Online;
    const quint32 turn = ++m_turns;
    const QPointer<OnlineSession> guard(this);
    // Before the container tells of it: its listeners ask for values at once.
    m_heartbeat.start(m_map->units());
    m_cycle.start(*m_map);
    if (guard && m_turns == turn)
        m_container.setOnline(true);
    if (guard && m_turns == turn)
        Q_EMIT stateChanged(m_state);
    // A listener may read it as well.
    if (isBack && guard && m_turns == turn)
        upload();
}

void OnlineSession::onHeaderRefused(const QString &reason)
{
    // A drive that agreed before and is back may not have started up yet.
    if (m_isReturning)
        onLineLost(reason);
    else
        giveUp(reason);
}

void OnlineSession::onRang(eOnlineAlarm alarm)
{
    if (alarm != eOnlineAlarm::Contact || m_state != eState::Connecting)
        return;
    if (m_isCalling)
        onLineLost(tr("der Antrieb meldet sich nicht"));
    else
        call();
}

void OnlineSession::onLineLost(const QString &reason)
{
    const bool wasOnline = m_state == eState::Online;
    if (m_state == eState::Offline || m_isLeaving)
        return;
    if (!wasOnline)
        ++m_failedCalls;
    const bool isLastCall =
        !wasOnline && m_rules.contactAttempts > 0 && m_failedCalls >= m_rules.contactAttempts;
    if (isLastCall || (wasOnline && !m_rules.returnsToVanished)) {
        giveUp(reason);
        return;
    }
    m_isReturning = m_isReturning || wasOnline;
    if (!leave(eState::Connecting, reason))
        return;
    callLater();
    if (wasOnline)
        Q_EMIT connectionFailed(reason);
}

void OnlineSession::giveUp(const QString &reason)
{
    const QPointer<OnlineSession> guard(this);
    leave(eState::Offline, reason);
    if (guard)
        Q_EMIT connectionFailed(reason);
}

bool OnlineSession::leave(eState next, const QString &reason)
{
    const eState before = std::exchange(m_state, next);
    const quint32 turn = ++m_turns;
    m_isCalling = false;
    m_clock->clearAlarm(eOnlineAlarm::Contact);
    m_contact.stop();
    m_heartbeat.stop();
    m_exchange.clear();
    m_link->close();
    const QPointer<OnlineSession> guard(this);
    const QPointer<ParameterContainer> container(&m_container);
    m_isLeaving = true;
    m_cycle.stop(reason);
    if (guard)
        m_transfers.finish();
    // Also where a listener has deleted the session: nobody else would tell the container.
    if (container && before == eState::Online)
        container->setOnline(false);
    if (!guard)
        return false;
    m_isLeaving = false;
    if (before != m_state)
        Q_EMIT stateChanged(m_state);
    return guard && m_turns == turn && m_state == next;
}

OnlineTransfer::Scope OnlineSession::scopeOf(
    const QList<ValuePlace> &places, eDirection direction) const
{
    return TransferScope::ofPlaces(*m_map, m_container, places, direction);
}

#include "apps/online/OnlineSession.h"

#include "apps/online/Backoff.h"
#include "apps/online/ModbusTcpLink.h"
#include "apps/online/SystemOnlineClock.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QMetaMethod>
#include <QtCore/QPointer>

#include <utility>
#include <vector>

struct OnlineSession::Transfer {
    eDirection direction;
    /// By position in the map.
    std::vector<bool> isAwaited;
    qsizetype total = 0;
    qsizetype done = 0;
};

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
    connect(&m_cycle, &OnlineCycle::came, this, &OnlineSession::onCame);
    connect(&m_cycle, &OnlineCycle::finished, this, &OnlineSession::onFinished);
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
    if (!canTransfer())
        return false;
    QList<qsizetype> values;
    values.reserve(m_map->values().size());
    QList<OnlineOutcome> unmapped;
    for (qsizetype i = 0; i < m_map->values().size(); ++i) {
        const MappedValue &value = m_map->values().at(i);
        if (m_cycle.isInProject(value))
            values.append(i);
        else
            unmapped.append(OnlineOutcome::ofRead(value, OnlineOutcome::eKind::Unmapped));
    }
    for (const RegisterMap::Refusal &refusal : m_map->refusals())
        unmapped.append(unmappedOutcome(refusal, eDirection::FromDrive));
    return transfer(values, unmapped, eDirection::FromDrive);
}

bool OnlineSession::download()
{
    if (!canTransfer())
        return false;
    QList<qsizetype> values;
    for (qsizetype i = 0; i < m_map->values().size(); ++i) {
        const MappedValue &value = m_map->values().at(i);
        // What the project does not have is not to be written.
        if (value.isSetting() && m_cycle.isInProject(value))
            values.append(i);
    }
    QList<OnlineOutcome> unmapped;
    for (const RegisterMap::Refusal &refusal : m_map->refusals()) {
        if (refusal.isSetting)
            unmapped.append(unmappedOutcome(refusal, eDirection::ToDrive));
    }
    return transfer(values, unmapped, eDirection::ToDrive);
}

bool OnlineSession::readValues(const QList<ValuePlace> &places)
{
    return transferPlaces(places, eDirection::FromDrive);
}

bool OnlineSession::writeValues(const QList<ValuePlace> &places)
{
    return transferPlaces(places, eDirection::ToDrive);
}

bool OnlineSession::writeValue(const ValuePlace &place)
{
    if (m_state != eState::Online)
        return false;
    const auto parameter = m_container.parameterInformation(place.coordinate);
    const qsizetype value =
        parameter ? m_map->indexOf(parameter->address(place.livingSpace, place.element)) : -1;
    if (value < 0)
        Q_EMIT valueReported(unmappedOutcome(place, eDirection::ToDrive));
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
        finishTransfer();
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

bool OnlineSession::transferPlaces(const QList<ValuePlace> &places, eDirection direction)
{
    if (!canTransfer())
        return false;
    QList<qsizetype> values;
    std::vector<bool> isNamed(std::size_t(m_map->values().size()));
    QList<OnlineOutcome> unmapped;
    for (const ValuePlace &place : places) {
        const auto parameter = m_container.parameterInformation(place.coordinate);
        const qsizetype value =
            parameter ? m_map->indexOf(parameter->address(place.livingSpace, place.element)) : -1;
        if (value < 0)
            unmapped.append(unmappedOutcome(place, direction));
        else if (!isNamed[std::size_t(value)])
            values.append(value);
        if (value >= 0)
            isNamed[std::size_t(value)] = true;
    }
    return transfer(values, unmapped, direction);
}

bool OnlineSession::transfer(
    const QList<qsizetype> &values, const QList<OnlineOutcome> &unmapped, eDirection direction)
{
    m_report = OnlineReport(m_map->values());
    m_transfer = std::make_unique<Transfer>();
    m_transfer->direction = direction;
    m_transfer->isAwaited.resize(std::size_t(m_map->values().size()));
    m_transfer->total = values.size();
    m_report.reserve(values.size() + unmapped.size());
    for (const qsizetype value : values)
        m_transfer->isAwaited[std::size_t(value)] = true;
    for (const OnlineOutcome &outcome : unmapped)
        m_report.add(outcome);
    const quint32 number = ++m_transfers;
    const QPointer<OnlineSession> guard(this);
    if (direction == eDirection::FromDrive)
        m_cycle.read(values);
    else
        m_cycle.write(values);
    for (const OnlineOutcome &outcome : unmapped) {
        if (guard)
            Q_EMIT valueReported(outcome);
    }
    if (!guard || !values.isEmpty())
        return true;
    // Also where there is nothing to wait for the end comes behind this call.
    QMetaObject::invokeMethod(
        this,
        [this, number] {
            if (m_transfers == number)
                finishTransfer();
        },
        Qt::QueuedConnection);
    return true;
}

void OnlineSession::onCame(const std::vector<OnlineCycle::Came> &values)
{
    const QPointer<OnlineSession> guard(this);
    // A listener may call the drive anew, by another map.
    const QList<MappedValue> mapped = m_map->values();
    // Not for nobody: of most values there is nothing else to say.
    static const QMetaMethod reported = QMetaMethod::fromSignal(&OnlineSession::valueReported);
    const bool isHeard = isSignalConnected(reported);
    bool hasProgress = false;
    for (const auto &[value, kind] : values) {
        if (takeOff(value, eDirection::FromDrive)) {
            m_report.add(value, kind);
            hasProgress = true;
        }
        if (!isHeard)
            continue;
        Q_EMIT valueReported(OnlineOutcome::ofRead(mapped.at(value), kind));
        if (!guard)
            return;
    }
    if (hasProgress)
        tellProgress();
}

void OnlineSession::onFinished(const QList<OnlineCycle::Ended> &ended)
{
    const QPointer<OnlineSession> guard(this);
    bool hasProgress = false;
    for (const auto &[value, outcome] : ended) {
        if (takeOff(value, outcome.isWrite ? eDirection::ToDrive : eDirection::FromDrive)) {
            m_report.add(outcome);
            hasProgress = true;
        }
        Q_EMIT valueReported(outcome);
        if (!guard)
            return;
    }
    if (hasProgress)
        tellProgress();
}

bool OnlineSession::takeOff(qsizetype value, eDirection direction)
{
    if (!m_transfer || m_transfer->direction != direction || value < 0
        || !m_transfer->isAwaited.at(std::size_t(value)))
        return false;
    m_transfer->isAwaited[std::size_t(value)] = false;
    ++m_transfer->done;
    return true;
}

void OnlineSession::tellProgress()
{
    if (!m_transfer)
        return;
    const QPointer<OnlineSession> guard(this);
    Q_EMIT transferProgress(m_transfer->done, m_transfer->total);
    if (guard && m_transfer && m_transfer->done == m_transfer->total)
        finishTransfer();
}

void OnlineSession::finishTransfer()
{
    if (!m_transfer)
        return;
    m_transfer.reset();
    // A listener may start the next transfer.
    const OnlineReport report = m_report;
    Q_EMIT transferFinished(report);
}

OnlineOutcome OnlineSession::unmappedOutcome(const ValuePlace &place, eDirection direction) const
{
    const auto parameter = m_container.parameterInformation(place.coordinate);
    const RegisterMap::Refusal *refusal = parameter
        ? m_map->refusalOf(parameter->address(place.livingSpace, place.element))
        : nullptr;
    if (refusal)
        return unmappedOutcome(*refusal, direction);
    return {place, parameter ? place.addressText(*parameter) : QString(),
        OnlineOutcome::eKind::Unmapped, {}, {}, tr("der Antrieb hat kein Register dafür"),
        direction == eDirection::ToDrive};
}

OnlineOutcome OnlineSession::unmappedOutcome(
    const RegisterMap::Refusal &refusal, eDirection direction)
{
    return {refusal.place, refusal.address, OnlineOutcome::eKind::Unmapped, {}, {},
        RegisterMap::reasonText(refusal.reason), direction == eDirection::ToDrive};
}

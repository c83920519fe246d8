#include "apps/online/RequestExchange.h"

#include "apps/online/Backoff.h"
#include "apps/online/OnlineClock.h"
#include "apps/online/OnlineLink.h"

#include <QtCore/QPointer>

#include <algorithm>
#include <limits>
#include <optional>

using std::chrono::milliseconds;

RequestExchange::RequestExchange(OnlineLink &link, OnlineClock &clock, const OnlineRules &rules)
    : m_link(link)
    , m_clock(clock)
    , m_rules(rules)
{
    connect(&m_link, &OnlineLink::answered, this, &RequestExchange::onAnswered);
    connect(&m_link, &OnlineLink::allAnswered, this, &RequestExchange::takeAnswers);
    connect(&m_clock, &OnlineClock::rang, this, &RequestExchange::onRang);
}

quint32 RequestExchange::read(const RegisterSpan &span, milliseconds additionalTime)
{
    return add({span, {}, additionalTime, m_rules.attempts});
}

quint32 RequestExchange::write(const RegisterSpan &span, const QList<quint16> &registers,
    milliseconds additionalTime, eRepeat repeat)
{
    const int attempts = repeat == eRepeat::Allowed ? m_rules.attempts : 1;
    return add({span, registers, additionalTime, attempts});
}

void RequestExchange::clear()
{
    ++m_clearings;
    for (auto it = m_underWay.cbegin(); it != m_underWay.cend(); ++it)
        m_link.forget(it.key());
    m_requests.clear();
    m_waiting.clear();
    m_underWay.clear();
    m_pausing.clear();
    m_answers.clear();
    m_clock.clearAlarm(eOnlineAlarm::Exchange);
}

quint32 RequestExchange::add(const Request &request)
{
    const quint32 number = ++m_lastNumber;
    m_requests.insert(number, request);
    m_waiting.push_back(number);
    pump();
    arm();
    return number;
}

void RequestExchange::pump()
{
    while (!m_waiting.empty() && m_underWay.size() < m_rules.window) {
        const quint32 number = m_waiting.front();
        m_waiting.pop_front();
        const auto found = m_requests.find(number);
        if (found != m_requests.end())
            send(*found, number);
    }
}

void RequestExchange::send(Request &request, quint32 number)
{
    const milliseconds now = m_clock.now();
    if (request.failures == 0)
        request.heardBefore = m_heard;
    --request.attemptsLeft;
    // A drive that takes its time for one request answers the others when it is through.
    request.due = std::max(now, longestWork()) + m_rules.answerSpan + request.additionalTime;
    request.ticket = ++m_lastTicket;
    m_underWay.insert(request.ticket, number);
    if (request.registers.isEmpty())
        m_link.read(request.ticket, request.span);
    else
        m_link.write(request.ticket, request.span, request.registers);
}

milliseconds RequestExchange::longestWork() const
{
    milliseconds until {0};
    for (const quint32 number : m_underWay) {
        const Request &request = *m_requests.constFind(number);
        if (request.additionalTime.count() > 0)
            until = std::max(until, request.due);
    }
    return until;
}

void RequestExchange::onAnswered(quint32 ticket, const OnlineAnswer &answer)
{
    const auto found = m_underWay.constFind(ticket);
    if (found == m_underWay.cend())
        return;
    const quint32 number = *found;
    m_underWay.erase(found);
    m_requests[number].ticket = 0;
    if (answer.kind != OnlineAnswer::eKind::Lost)
        ++m_heard;
    m_answers.emplace_back(number, answer);
    // The next ones go out first: the drive works on them while the answers are taken in.
    pump();
    // Otherwise something is to come, be it an alarm.
    if (m_underWay.isEmpty())
        takeAnswers();
}

void RequestExchange::takeAnswers()
{
    if (m_answers.empty())
        return;
    const QPointer<RequestExchange> guard(this);
    // A listener may drop the rest.
    while (!m_answers.empty()) {
        const auto [number, answer] = std::move(m_answers.front());
        m_answers.pop_front();
        if (answer.kind == OnlineAnswer::eKind::Good || answer.kind == OnlineAnswer::eKind::Refused)
            finish(number, answer);
        else
            fail(number, answer);
        if (!guard)
            return;
    }
    arm();
}

void RequestExchange::onRang(eOnlineAlarm alarm)
{
    if (alarm != eOnlineAlarm::Exchange)
        return;
    const QPointer<RequestExchange> guard(this);
    const milliseconds now = m_clock.now();
    // The one whose pause ended first goes first.
    auto over = m_pausing.upper_bound({now, std::numeric_limits<quint32>::max()});
    while (over != m_pausing.begin()) {
        --over;
        m_waiting.push_front(over->second);
        over = m_pausing.erase(over);
    }
    onOverdue();
    if (guard)
        takeAnswers();
    if (!guard)
        return;
    pump();
    arm();
}

void RequestExchange::onOverdue()
{
    const QPointer<RequestExchange> guard(this);
    const milliseconds now = m_clock.now();
    QList<quint32> overdue;
    for (auto it = m_underWay.cbegin(); it != m_underWay.cend(); ++it) {
        if (m_requests.value(*it).due <= now)
            overdue.append(*it);
    }
    std::sort(overdue.begin(), overdue.end());
    const OnlineAnswer noAnswer {OnlineAnswer::eKind::Lost, {}, tr("keine Antwort")};
    for (const quint32 number : std::as_const(overdue)) {
        // A listener of an earlier one may have dropped everything.
        const auto found = guard ? m_requests.find(number) : m_requests.end();
        if (!guard || found == m_requests.end())
            continue;
        // Or have let its answer come meanwhile.
        if (found->ticket == 0)
            continue;
        m_underWay.remove(found->ticket);
        m_link.forget(std::exchange(found->ticket, 0));
        fail(number, noAnswer);
    }
}

void RequestExchange::fail(quint32 number, const OnlineAnswer &answer)
{
    const auto found = m_requests.find(number);
    if (found == m_requests.end())
        return;
    if (found->attemptsLeft > 0) {
        ++found->failures;
        found->due =
            m_clock.now() + backoffPause(found->failures, m_rules.firstPause, m_rules.longestPause);
        m_pausing.insert({found->due, number});
        return;
    }
    // A command is sent once; that its answer is missing says nothing about the line yet.
    const bool isSilent = answer.kind == OnlineAnswer::eKind::Lost && m_heard == found->heardBefore
        && found->failures + 1 >= m_rules.attempts;
    const QPointer<RequestExchange> guard(this);
    const quint32 clearing = m_clearings;
    finish(number, answer);
    if (guard && isSilent && m_clearings == clearing)
        Q_EMIT silent();
}

void RequestExchange::finish(quint32 number, const OnlineAnswer &answer)
{
    m_requests.remove(number);
    Q_EMIT finished(number, answer);
}

void RequestExchange::arm()
{
    std::optional<milliseconds> next;
    if (!m_pausing.empty())
        next = m_pausing.begin()->first;
    for (const quint32 number : std::as_const(m_underWay)) {
        const milliseconds due = m_requests.value(number).due;
        if (!next || due < *next)
            next = due;
    }
    if (next)
        m_clock.setAlarm(eOnlineAlarm::Exchange, *next);
    else
        m_clock.clearAlarm(eOnlineAlarm::Exchange);
}

#pragma once

#include "apps/online/OnlineAnswer.h"
#include "apps/online/OnlineRules.h"
#include "apps/online/RegisterSpan.h"

#include <QtCore/QHash>
#include <QtCore/QObject>

#include <deque>
#include <set>
#include <utility>

class OnlineClock;
class OnlineLink;
enum class eOnlineAlarm;

/// Brings every request to exactly one answer: sends a few at a time, waits for a limited time, sends
/// again after a growing pause.
class RequestExchange : public QObject {
    Q_OBJECT

public:
    using milliseconds = std::chrono::milliseconds;

    enum class eRepeat {
        Allowed,
        Never, ///< A second arrival would do something else than the first.
    };

    /// **Owner** the caller of all; they outlive the exchange.
    RequestExchange(OnlineLink &link, OnlineClock &clock, const OnlineRules &rules);

    /// The number of the request. **Emits** finished, later.
    quint32 read(const RegisterSpan &span, milliseconds additionalTime);
    quint32 write(const RegisterSpan &span, const QList<quint16> &registers,
        milliseconds additionalTime, eRepeat repeat);
    /// Drops all requests. **Emits** nothing.
    void clear();
    bool isIdle() const { return m_requests.isEmpty(); }
    /// Answers that came so far, whatever they said.
    quint64 heard() const { return m_heard; }

Q_SIGNALS:
    void finished(quint32 request, const OnlineAnswer &answer);
    /// A request got no answer in all its attempts, nor did any other one since its first.
    void silent();

private:
    struct Request {
        RegisterSpan span;
        /// Empty: a read.
        QList<quint16> registers;
        milliseconds additionalTime {0};
        int attemptsLeft = 0;
        int failures = 0;
        /// Answers that had come when it was sent first.
        quint64 heardBefore = 0;
        /// Of the answer while under way, of the pause otherwise.
        milliseconds due {0};
        /// 0 while it is not under way.
        quint32 ticket = 0;
    };

    quint32 add(const Request &request);
    void pump();
    void send(Request &request, quint32 number);
    /// When the last of those under way that may take longer has had its time; 0 where there is none.
    milliseconds longestWork() const;
    void onAnswered(quint32 ticket, const OnlineAnswer &answer);
    void takeAnswers();
    void onRang(eOnlineAlarm alarm);
    void onOverdue();
    /// Sends it again later, or ends it with the answer when it was the last attempt.
    void fail(quint32 number, const OnlineAnswer &answer);
    void finish(quint32 number, const OnlineAnswer &answer);
    void arm();

    OnlineLink &m_link;
    OnlineClock &m_clock;
    const OnlineRules m_rules;
    QHash<quint32, Request> m_requests;
    /// Numbers in the order of sending; those that are gone are passed over.
    std::deque<quint32> m_waiting;
    /// Ticket to number of what is under way.
    QHash<quint32, quint32> m_underWay;
    /// Ends and numbers of the pauses.
    std::set<std::pair<milliseconds, quint32>> m_pausing;
    /// Numbers and answers that are not taken yet: others come with them.
    std::deque<std::pair<quint32, OnlineAnswer>> m_answers;
    /// Answers that came, whatever they said.
    quint64 m_heard = 0;
    quint32 m_lastNumber = 0;
    quint32 m_lastTicket = 0;
    /// Whoever clears knows that the line is gone.
    quint32 m_clearings = 0;
};

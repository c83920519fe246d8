#pragma once

#include "apps/online/FirstContact.h"
#include "apps/online/Heartbeat.h"
#include "apps/online/OnlineCycle.h"
#include "apps/online/OnlineRules.h"
#include "apps/online/RegisterMap.h"
#include "apps/online/RequestExchange.h"
#include "apps/online/TransferRun.h"

#include <QtCore/QObject>

#include <memory>
#include <optional>

class OnlineClock;
class OnlineLink;
class ParameterContainer;

/// A container's time with its drive: calls the drive, switches the container online while it answers,
/// transfers values both ways, and lets go of a drive that vanishes.
///
/// A drive that vanished and is back is read as a whole: nobody knows what it did meanwhile.
/// While online, what the container's parameters ask for is read, and what is changed in the container
/// is written and read back. What cannot be brought across is told by valueReported.
class OnlineSession : public QObject {
    Q_OBJECT

public:
    enum class eState { Offline, Connecting, Online };
    Q_ENUM(eState)

    /// A session with a drive that speaks Modbus TCP. **Owner** the caller; the container outlives
    /// the session.
    static std::unique_ptr<OnlineSession> overModbusTcp(ParameterContainer &container,
        const QString &host, quint16 port, const OnlineRules &rules = {});

    /// Over any line, by any clock.
    OnlineSession(ParameterContainer &container, std::unique_ptr<OnlineLink> link,
        std::unique_ptr<OnlineClock> clock, const OnlineRules &rules);
    ~OnlineSession() override;

    eState state() const { return m_state; }
    /// Nothing where the session is not offline. **Emits** stateChanged; Online or Offline follows.
    void goOnline();
    /// **Emits** stateChanged; a transfer ends before it. Nothing where the session is offline. Called
    /// while a lost drive is let go of, it makes that final.
    void goOffline();

    /// Which registers carry the values; from the first goOnline() on.
    const RegisterMap *registerMap() const { return m_map ? &*m_map : nullptr; }

    /// Reads every value. **Refused** while not online or while another transfer runs: false.
    /// **Emits** transferProgress, transferFinished.
    bool upload();
    /// Writes every value that the drive stores and lets be written, and reads each one back.
    bool download();
    bool readValues(const QList<ValuePlace> &places);
    /// `asked` are native texts: what was to be written where functions have changed it since.
    bool writeValues(const QList<ValuePlace> &places, const QHash<ValuePlace, QString> &asked = {});
    /// Writes what the container has and reads it back, also while a transfer runs and where it is what
    /// the container had before. **Refused** while not online: false. **Emits** valueReported.
    bool writeValue(const ValuePlace &place);
    bool isTransferring() const { return m_transfers.isRunning(); }
    /// Of the running transfer, or of the last one.
    const OnlineReport &report() const { return m_transfers.report(); }

Q_SIGNALS:
    void stateChanged(OnlineSession::eState state);
    /// The drive could not be reached, is another one, or vanished. Behind stateChanged.
    void connectionFailed(const QString &reason);
    /// Every value that is read on request or written, within a transfer and outside of one, and the
    /// first failure of a cyclic read.
    void valueReported(const OnlineOutcome &outcome);
    /// Now and then, and at the end.
    void transferProgress(qsizetype done, qsizetype total);
    void transferFinished(const OnlineReport &report);

private:
    using eDirection = OnlineOutcome::eDirection;

    void call();
    void onOpened();
    void onAgreed();
    void onHeaderRefused(const QString &reason);
    void onRang(eOnlineAlarm alarm);
    /// The line broke, or could not be opened.
    void onLineLost(const QString &reason);
    /// Calling is of no use any more.
    void giveUp(const QString &reason);
    /// False where a listener has taken the session elsewhere, or deleted it.
    bool leave(eState next, const QString &reason);
    void callLater();

    bool canTransfer() const { return m_state == eState::Online && !m_transfers.isRunning(); }
    OnlineTransfer::Scope scopeOf(const QList<ValuePlace> &places, eDirection direction) const;

    ParameterContainer &m_container;
    const OnlineRules m_rules;
    std::unique_ptr<OnlineLink> m_link;
    std::unique_ptr<OnlineClock> m_clock;
    RequestExchange m_exchange;
    FirstContact m_contact;
    OnlineCycle m_cycle;
    Heartbeat m_heartbeat;
    std::optional<RegisterMap> m_map;
    TransferRun m_transfers;
    eState m_state = eState::Offline;
    /// Calls in a row that the drive did not answer.
    int m_failedCalls = 0;
    /// The line is being opened; otherwise the alarm means the next call.
    bool m_isCalling = false;
    bool m_isLeaving = false;
    /// The drive vanished and is called again.
    bool m_isReturning = false;
    /// Changes of the state so far.
    quint32 m_turns = 0;
};

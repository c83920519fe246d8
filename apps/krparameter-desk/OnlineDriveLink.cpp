#include "apps/krparameter-desk/OnlineDriveLink.h"

#include "apps/krparameter-desk/DriveAddress.h"
#include "apps/online/OnlineSession.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

using eState = OnlineSession::eState;
using eKind = OnlineOutcome::eKind;

namespace {

/// As often as a reader can follow.
constexpr std::chrono::milliseconds ReadingInterval {250};
/// More would hide everything else.
constexpr int LongestList = 20;

} // namespace

OnlineDriveLink::OnlineDriveLink(ParameterContainer &container, const DriveAddress &address)
    : m_container(container)
    , m_address(address)
{
}

OnlineDriveLink::~OnlineDriveLink()
{
    // It tells of its end.
    if (m_session)
        m_session->disconnect(this);
}

QString OnlineDriveLink::drive() const
{
    return m_address.toText();
}

void OnlineDriveLink::open()
{
    m_isClosing = false;
    m_isReadingAll = false;
    OnlineRules rules;
    rules.cycleInterval = ReadingInterval;
    m_session = OnlineSession::overModbusTcp(m_container, m_address.host, m_address.port, rules);
    connect(m_session.get(), &OnlineSession::stateChanged, this, &OnlineDriveLink::onStateChanged);
    connect(m_session.get(), &OnlineSession::connectionFailed, this, &DriveLink::closed);
    connect(m_session.get(), &OnlineSession::valueReported, this, &OnlineDriveLink::onReported);
    connect(m_session.get(), &OnlineSession::transferProgress, this, &OnlineDriveLink::onProgress);
    connect(
        m_session.get(), &OnlineSession::transferFinished, this, &OnlineDriveLink::onTransferred);
    m_session->goOnline();
}

void OnlineDriveLink::close()
{
    m_isClosing = true;
    if (m_session)
        m_session->goOffline();
}

void OnlineDriveLink::write(const ValuePlace &place)
{
    // What changed is on its way already; a value that was written once more goes to the drive too.
    if (m_session)
        m_session->writeValue(place);
}

void OnlineDriveLink::onStateChanged()
{
    const QPointer<OnlineSession> session(m_session.get());
    if (session->state() == eState::Offline && m_isClosing)
        Q_EMIT closed({});
    else if (session->state() == eState::Online)
        readAll();
}

void OnlineDriveLink::readAll()
{
    const QPointer<OnlineSession> session(m_session.get());
    const auto isOnline = [&session] { return session && session->state() == eState::Online; };
    m_isReadingAll = true;
    Q_EMIT reading(0, session->registerMap()->values().size());
    // A listener may have closed the link, or deleted it.
    if (isOnline())
        session->upload();
    if (isOnline())
        follow();
}

/// What the drive does not keep changes by itself.
void OnlineDriveLink::follow()
{
    const QPointer<OnlineSession> session(m_session.get());
    const QList<MappedValue> values = session->registerMap()->values();
    for (const MappedValue &value : values) {
        if (!session)
            return;
        if (!value.isStored)
            m_container.dispatchParameterOnlineConsistenceNeed(value.address, true);
    }
}

void OnlineDriveLink::onReported(const OnlineOutcome &outcome)
{
    // What is not read of all values is told at their end; what is not written has been sent.
    if ((!m_isReadingAll || outcome.isWrite) && !outcome.isGood())
        warn(outcome.toText());
    Q_EMIT reported(outcome);
}

void OnlineDriveLink::onProgress(qsizetype done, qsizetype total)
{
    // The end of a connection counts everything as done.
    if (m_isReadingAll && m_session->state() == eState::Online)
        Q_EMIT reading(done, total);
}

void OnlineDriveLink::onTransferred(const OnlineReport &report)
{
    if (!std::exchange(m_isReadingAll, false))
        return;
    const QPointer<OnlineSession> session(m_session.get());
    if (m_isClosing)
        tellCancelled(report);
    else
        tellRead(report);
    if (session && session->state() == eState::Online)
        Q_EMIT opened();
}

void OnlineDriveLink::tellCancelled(const OnlineReport &report) const
{
    const qsizetype count = report.count(eKind::Unchanged) + report.count(eKind::Changed);
    warn(tr(
        "Lesen vom Antrieb %1 abgebrochen: %2 von %3 Werten sind gelesen, die anderen sind die von "
        "vorher")
             .arg(m_address.toText())
             .arg(count)
             .arg(report.outcomes().size() - report.count(eKind::Unmapped)));
}

void OnlineDriveLink::tellRead(const OnlineReport &report) const
{
    const QString title = m_container.domain();
    System::addInformationMessage(
        title, tr("Vom Antrieb %1 gelesen: %2").arg(m_address.toText(), report.summary()));
    int count = 0;
    for (const OnlineOutcome &outcome : report.outcomes()) {
        // What has no register is never read.
        if (outcome.isGood() || outcome.kind == eKind::Unmapped)
            continue;
        if (++count <= LongestList)
            System::addWarningMessage(title, outcome.toText());
    }
    if (count > LongestList) {
        System::addWarningMessage(
            title, tr("und %1 weitere Werte nicht gelesen").arg(count - LongestList));
    }
}

void OnlineDriveLink::warn(const QString &text) const
{
    System::addWarningMessage(m_container.domain(), text);
}

#include "apps/krparameter-desk/OnlineSwitch.h"

#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrSystem/System.h>

OnlineSwitch::OnlineSwitch(ParameterContainer &container, std::unique_ptr<DriveLink> link)
    : m_container(&container)
    , m_link(std::move(link))
{
    if (!m_link)
        return;
    connect(m_link.get(), &DriveLink::reading, this, &OnlineSwitch::onReading);
    connect(m_link.get(), &DriveLink::opened, this, &OnlineSwitch::onOpened);
    connect(m_link.get(), &DriveLink::closed, this, &OnlineSwitch::onClosed);
    connect(m_link.get(), &DriveLink::reported, this, &OnlineSwitch::reported);
}

OnlineSwitch::~OnlineSwitch() = default;

void OnlineSwitch::turn(bool on)
{
    if (on == (m_state != eState::Offline))
        return;
    if (!m_link) {
        setState(on ? eState::Online : eState::Offline);
        return;
    }
    if (!on) {
        m_link->close();
        return;
    }
    setState(eState::Opening);
    m_link->open();
}

void OnlineSwitch::write(const ValuePlace &place)
{
    if (!m_link || !isConnected())
        return;
    const QPointer<OnlineSwitch> self(this);
    Q_EMIT sending(place);
    if (self)
        m_link->write(place);
}

void OnlineSwitch::onReading(qsizetype done, qsizetype total)
{
    m_readCount = done;
    m_countToRead = total;
    const QPointer<OnlineSwitch> self(this);
    setState(eState::Reading);
    if (self && m_state == eState::Reading)
        Q_EMIT progressed();
}

void OnlineSwitch::onOpened()
{
    setState(eState::Online);
}

void OnlineSwitch::onClosed(const QString &reason)
{
    const QPointer<OnlineSwitch> self(this);
    setState(eState::Offline);
    if (self && m_container && !reason.isEmpty())
        System::addCriticalMessage(m_container->domain(), tr("Nicht mehr online: %1").arg(reason));
}

void OnlineSwitch::setState(eState state)
{
    if (m_state == state)
        return;
    m_state = state;
    const QPointer<OnlineSwitch> self(this);
    const bool isOnline = isConnected();
    if (m_container && m_container->isOnline() != isOnline)
        m_container->setOnline(isOnline);
    if (self)
        Q_EMIT stateChanged();
}

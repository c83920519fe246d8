#pragma once

#include "apps/krparameter-desk/DriveLink.h"

#include <QtCore/QPointer>

#include <memory>

class ParameterContainer;

/// Takes a container online and offline, by way of its link where it has one.
class OnlineSwitch : public QObject {
    Q_OBJECT

public:
    enum class eState { Offline, Opening, Reading, Online };

    /// Null for the link: the switch sets the container's state alone.
    OnlineSwitch(ParameterContainer &container, std::unique_ptr<DriveLink> link);
    ~OnlineSwitch() override;

    eState state() const { return m_state; }
    /// Connected: Reading or Online.
    bool isConnected() const { return m_state == eState::Reading || m_state == eState::Online; }
    /// Of the link; empty without one.
    QString drive() const { return m_link ? m_link->drive() : QString(); }
    /// How many values are read while the state is Reading.
    qsizetype readCount() const { return m_readCount; }
    qsizetype countToRead() const { return m_countToRead; }
    /// **Emits** stateChanged where it differs.
    void turn(bool on);
    /// Passes what the user wrote on to the drive.
    void write(const ValuePlace &place);

Q_SIGNALS:
    void stateChanged();
    /// While the state is Reading.
    void progressed();
    /// The value is on its way to the drive.
    void sending(const ValuePlace &place);
    /// What became of a value on its way from or to the drive.
    void reported(const OnlineOutcome &outcome);

private:
    void onReading(qsizetype done, qsizetype total);
    void onOpened();
    /// **Reports** critical, titled with the container's domain, where there is a reason.
    void onClosed(const QString &reason);
    void setState(eState state);

    QPointer<ParameterContainer> m_container;
    std::unique_ptr<DriveLink> m_link;
    eState m_state = eState::Offline;
    qsizetype m_readCount = 0;
    qsizetype m_countToRead = 0;
};

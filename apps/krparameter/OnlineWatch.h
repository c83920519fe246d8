#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QEventLoop>
#include <QtCore/QList>
#include <QtCore/QObject>

class OnlineSession;
class ParameterAddress;
class ParameterContainer;
struct OnlineOutcome;

/// Follows values of a drive until the time is over or the drive is gone for good.
class OnlineWatch : public QObject {
    Q_OBJECT

public:
    /// **Owner** the caller of both; they outlive the watch.
    OnlineWatch(
        ParameterContainer &container, OnlineSession &session, const QList<ValuePlace> &places);

    /// **Unit** seconds; 0: without end. False when the drive was gone before.
    bool run(int seconds);

Q_SIGNALS:
    /// Once for each value at the beginning, then with every change.
    void valueShown(const ValuePlace &place);
    /// A sentence about the connection or a value that cannot be read.
    void noted(const QString &line);

private:
    void onValueChanged(const ParameterAddress &address);
    void onReported(const OnlineOutcome &outcome);

    ParameterContainer &m_container;
    OnlineSession &m_session;
    const QList<ValuePlace> m_places;
    QEventLoop m_loop;
};

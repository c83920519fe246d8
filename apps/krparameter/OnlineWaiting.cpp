#include "apps/krparameter/OnlineWaiting.h"

#include "apps/online/OnlineSession.h"

#include <QtCore/QEventLoop>

bool OnlineWaiting::goOnline(OnlineSession &session)
{
    QEventLoop loop;
    QObject::connect(
        &session, &OnlineSession::stateChanged, &loop, [&loop](OnlineSession::eState state) {
            if (state != OnlineSession::eState::Connecting)
                QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
    session.goOnline();
    loop.exec();
    return session.state() == OnlineSession::eState::Online;
}

std::optional<OnlineReport> OnlineWaiting::transfer(
    OnlineSession &session, const std::function<bool()> &begin)
{
    QEventLoop loop;
    OnlineReport report;
    QObject::connect(&session, &OnlineSession::transferFinished, &loop,
        [&loop, &report](const OnlineReport &finished) {
            report = finished;
            QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection);
        });
    if (!begin())
        return {};
    loop.exec();
    return report;
}

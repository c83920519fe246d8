#pragma once

#include <KrSystem/SystemMessage.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QStringList>

/// Listens to the message sink from construction on and fails the running test for every message
/// that was not expected and for every expected one that did not come.
///
/// Stands first in a test function, so that it is destroyed last and sees the messages of
/// destructors too; as a member of a test class it needs verify() in cleanup().
class MessageRecorder {
public:
    using eSeverity = SystemMessage::eSeverity;

    MessageRecorder();
    /// Like verify().
    ~MessageRecorder();
    Q_DISABLE_COPY_MOVE(MessageRecorder)

    /// Announces the next message. Expected messages come in the order in which they were
    /// announced; others in between are problems of their own.
    void expect(eSeverity severity, const QString &title, const QString &text);
    /// Hands out the messages that came without being expected; they are no problems any more.
    QList<SystemMessage> take();
    /// Fails the running test where there are problems. True when there are none.
    bool verify();
    /// Hands out the problems as texts and forgets them with all expectations.
    QStringList takeProblems();

private:
    void receive(const SystemMessage &message);

    QList<SystemMessage> m_expected;
    QList<SystemMessage> m_unexpected;
    QObject m_listener;
};

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>

/// The lines of the standard input as they come. **Encoding** UTF-8.
class StandardInput : public QObject {
    Q_OBJECT

public:
    StandardInput();

Q_SIGNALS:
    void lineRead(const QString &line);

private:
    void read();

    QSocketNotifier m_notifier;
    QByteArray m_pending;
};

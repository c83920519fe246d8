#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QString>

/// Where a command writes: data to the standard output, collected in large pieces, and everything
/// else to the standard error. **Encoding** UTF-8, whatever the locale.
class Console {
public:
    Console() = default;
    ~Console() { flush(); }
    Q_DISABLE_COPY_MOVE(Console)

    void write(const QString &text);
    void writeLine(const QString &text);
    /// One object, one line.
    void writeLine(const QJsonObject &object);
    /// Behind the data written so far.
    void report(const QString &line);
    /// False when data could not be written, now or before.
    bool flush();

private:
    QByteArray m_pending;
    bool m_hasFailed = false;
};

#pragma once

#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>

/// A simulated drive in a process of its own, which a test can kill and give orders.
class DriveProcess {
public:
    ~DriveProcess() { kill(); }

    /// **Range** port 0 picks a free one. False where the drive does not come up.
    bool start(const QString &description, quint16 port = 0, const QStringList &options = {})
    {
        m_process.start(QStringLiteral(KR_PROGRAM),
            QStringList {QStringLiteral("simulate"), QStringLiteral("--device"), description,
                QStringLiteral("--port"), QString::number(port), QStringLiteral("--json")}
                + options);
        const QJsonObject answer = QJsonDocument::fromJson(readLine()).object();
        m_port = quint16(answer.value(QLatin1String("port")).toInt());
        return m_port != 0;
    }
    /// No farewell: as when the power fails.
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }
    quint16 port() const { return m_port; }
    /// Follows an order; its answer.
    QString order(const QString &text)
    {
        m_process.write(text.toUtf8() + '\n');
        return QString::fromUtf8(readLine());
    }
    /// Native text of a value of the drive.
    QString value(const char *address)
    {
        const QString answer = order(QLatin1String("get ") + QLatin1String(address));
        return answer.startsWith(QLatin1String("ok ")) ? answer.sliced(3) : QString();
    }

private:
    QByteArray readLine()
    {
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(20000))
                return {};
        }
        QByteArray line = m_process.readLine();
        line.chop(1);
        return line;
    }

    QProcess m_process;
    quint16 m_port = 0;
};

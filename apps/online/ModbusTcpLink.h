#pragma once

#include "apps/online/OnlineLink.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtSerialBus/QModbusTcpClient>

#include <memory>

class QModbusReply;

/// The line as Modbus TCP: values in the holding registers of the units.
class ModbusTcpLink final : public OnlineLink {
    Q_OBJECT

public:
    ModbusTcpLink(const QString &host, quint16 port);
    ~ModbusTcpLink() override;

    void open() override;
    void close() override;
    void read(quint32 ticket, const RegisterSpan &span) override;
    void write(quint32 ticket, const RegisterSpan &span, const QList<quint16> &registers) override;
    void forget(quint32 ticket) override;

private:
    void await(quint32 ticket, QModbusReply *reply);
    void onFinished(quint32 ticket, QModbusReply *reply);
    /// The client has told all answers of a piece of the stream.
    void onRead();
    void onStateChanged(QModbusDevice::State state);
    static OnlineAnswer answerOf(const QModbusReply &reply);

    const QString m_host;
    const quint16 m_port;
    /// One for each opening, so that nothing of the last line is left; null while closed.
    QPointer<QModbusTcpClient> m_client;
    QHash<quint32, QModbusReply *> m_replies;
    /// How deep the client is in telling something: it must not go before it has finished.
    std::shared_ptr<int> m_telling = std::make_shared<int>(0);
};

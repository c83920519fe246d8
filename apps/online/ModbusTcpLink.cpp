#include "apps/online/ModbusTcpLink.h"

#include <QtCore/QVariant>
#include <QtNetwork/QAbstractSocket>
#include <QtSerialBus/QModbusReply>

namespace {

/// The exchange above keeps the deadlines and knows when to send again.
constexpr int NoTimeout = -1;

QString refusalText(QModbusPdu::ExceptionCode code)
{
    switch (code) {
    case QModbusPdu::IllegalFunction:
        return ModbusTcpLink::tr("der Antrieb lässt die Anfrage dort nicht zu");
    case QModbusPdu::IllegalDataAddress:
        return ModbusTcpLink::tr("der Antrieb hat dort keinen solchen Wert");
    case QModbusPdu::IllegalDataValue:
        return ModbusTcpLink::tr("der Antrieb nimmt diesen Wert nicht an");
    case QModbusPdu::ServerDeviceFailure:
        return ModbusTcpLink::tr("der Antrieb kann das in seinem Zustand nicht");
    default:
        return ModbusTcpLink::tr("der Antrieb lehnt ab (Code %1)").arg(int(code));
    }
}

/// Counts for as long as it lives, also where the link goes meanwhile.
class Telling {
public:
    explicit Telling(std::shared_ptr<int> depth)
        : m_depth(std::move(depth))
    {
        ++*m_depth;
    }
    ~Telling() { --*m_depth; }
    Q_DISABLE_COPY_MOVE(Telling)

private:
    const std::shared_ptr<int> m_depth;
};

QModbusDataUnit dataUnit(const RegisterSpan &span)
{
    return QModbusDataUnit(QModbusDataUnit::HoldingRegisters, span.first, span.count);
}

} // namespace

ModbusTcpLink::ModbusTcpLink(const QString &host, quint16 port)
    : m_host(host)
    , m_port(port)
{
}

ModbusTcpLink::~ModbusTcpLink()
{
    close();
}

void ModbusTcpLink::open()
{
    close();
    // It may have gone from m_client before the call is over.
    auto *const client = new QModbusTcpClient;
    m_client = client;
    client->setTimeout(NoTimeout);
    client->setNumberOfRetries(0);
    client->setConnectionParameter(QModbusDevice::NetworkAddressParameter, m_host);
    client->setConnectionParameter(QModbusDevice::NetworkPortParameter, m_port);
    connect(client, &QModbusDevice::stateChanged, this, &ModbusTcpLink::onStateChanged);
    if (!client->connectDevice())
        onStateChanged(QModbusDevice::UnconnectedState);
}

void ModbusTcpLink::close()
{
    if (!m_client)
        return;
    const QList<quint32> tickets = m_replies.keys();
    for (const quint32 ticket : tickets)
        forget(ticket);
    m_client->disconnect(this);
    if (*m_telling > 0)
        m_client->deleteLater();
    else
        delete m_client;
    m_client.clear();
}

void ModbusTcpLink::read(quint32 ticket, const RegisterSpan &span)
{
    if (!m_client)
        return;
    await(ticket, m_client->sendReadRequest(dataUnit(span), span.unit));
}

void ModbusTcpLink::write(quint32 ticket, const RegisterSpan &span, const QList<quint16> &registers)
{
    if (!m_client)
        return;
    QModbusDataUnit unit = dataUnit(span);
    unit.setValues(registers);
    await(ticket, m_client->sendWriteRequest(unit, span.unit));
}

void ModbusTcpLink::forget(quint32 ticket)
{
    // The client drops an answer to a request that is gone.
    if (QModbusReply *reply = m_replies.take(ticket)) {
        reply->disconnect(this);
        reply->deleteLater();
    }
}

void ModbusTcpLink::await(quint32 ticket, QModbusReply *reply)
{
    if (!reply) {
        const OnlineAnswer answer {OnlineAnswer::eKind::Lost, {}, m_client->errorString()};
        QMetaObject::invokeMethod(
            this, [this, ticket, answer] { Q_EMIT answered(ticket, answer); },
            Qt::QueuedConnection);
        return;
    }
    m_replies.insert(ticket, reply);
    connect(
        reply, &QModbusReply::finished, this, [this, ticket, reply] { onFinished(ticket, reply); });
}

void ModbusTcpLink::onFinished(quint32 ticket, QModbusReply *reply)
{
    const Telling telling(m_telling);
    m_replies.remove(ticket);
    reply->deleteLater();
    // A line that broke tells so itself.
    if (reply->error() != QModbusDevice::ReplyAbortedError)
        Q_EMIT answered(ticket, answerOf(*reply));
}

void ModbusTcpLink::onRead()
{
    const Telling telling(m_telling);
    // A line that breaks now tells so at once; who hears it may delete this.
    const QPointer<ModbusTcpLink> guard(this);
    // The socket itself sends with the next turn of the event loop: when the answers have been taken in.
    if (auto *socket = m_client ? qobject_cast<QAbstractSocket *>(m_client->device()) : nullptr)
        socket->flush();
    if (guard)
        Q_EMIT allAnswered();
}

void ModbusTcpLink::onStateChanged(QModbusDevice::State state)
{
    if (!m_client)
        return;
    const Telling telling(m_telling);
    if (state == QModbusDevice::ConnectedState) {
        // Requests are small; held back until an acknowledgement they would take 40 ms each.
        if (auto *socket = qobject_cast<QAbstractSocket *>(m_client->device())) {
            socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            // Behind the client, which takes the answers in.
            connect(socket, &QIODevice::readyRead, this, &ModbusTcpLink::onRead);
        }
        Q_EMIT opened();
    } else if (state == QModbusDevice::UnconnectedState) {
        const QString reason = m_client->error() == QModbusDevice::NoError
            ? tr("der Antrieb hat die Verbindung beendet")
            : m_client->errorString();
        close();
        Q_EMIT closed(reason);
    }
}

OnlineAnswer ModbusTcpLink::answerOf(const QModbusReply &reply)
{
    if (reply.error() == QModbusDevice::NoError)
        return {OnlineAnswer::eKind::Good, reply.result().values(), {}};
    if (reply.error() != QModbusDevice::ProtocolError)
        return {OnlineAnswer::eKind::Lost, {}, tr("unlesbare Antwort")};
    // Asked in the module's way, the code of a response that came over the line is no valid enumerator.
    const QByteArray data = reply.rawResult().data();
    const auto code = QModbusPdu::ExceptionCode(data.isEmpty() ? 0 : quint8(data.front()));
    if (code == QModbusPdu::ServerDeviceBusy)
        return {OnlineAnswer::eKind::Busy, {}, tr("der Antrieb ist beschäftigt")};
    return {OnlineAnswer::eKind::Refused, {}, refusalText(code)};
}

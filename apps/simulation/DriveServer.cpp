#include "apps/simulation/DriveServer.h"

#include "apps/simulation/ModbusFrame.h"
#include "apps/simulation/SimulatedDrive.h"

#include <QtCore/QTimer>
#include <QtCore/QVariant>
#include <QtNetwork/QHostAddress>
#include <QtNetwork/QTcpSocket>

#include <memory>

namespace {

QModbusPdu::ExceptionCode codeOf(SimulatedDrive::eVerdict verdict)
{
    switch (verdict) {
    case SimulatedDrive::eVerdict::Done:
        break;
    case SimulatedDrive::eVerdict::NoSuchValue:
        return QModbusPdu::IllegalDataAddress;
    case SimulatedDrive::eVerdict::ReadOnly:
        return QModbusPdu::IllegalFunction;
    case SimulatedDrive::eVerdict::NotAccepted:
        return QModbusPdu::IllegalDataValue;
    case SimulatedDrive::eVerdict::WrongState:
        return QModbusPdu::ServerDeviceFailure;
    }
    return QModbusPdu::ExtendedException;
}

RegisterSpan spanOf(quint8 unit, const QModbusDataUnit &data)
{
    return {unit, quint16(data.startAddress()), quint16(data.valueCount())};
}

} // namespace

DriveServer::DriveServer(SimulatedDrive &drive)
    : m_drive(drive)
{
    connect(&m_server, &QTcpServer::newConnection, this, &DriveServer::onNewConnection);
}

DriveServer::~DriveServer()
{
    close();
}

bool DriveServer::listen(const QString &host, quint16 port)
{
    setConnectionParameter(NetworkAddressParameter, host);
    setConnectionParameter(NetworkPortParameter, port);
    return connectDevice();
}

bool DriveServer::open()
{
    const QHostAddress address(connectionParameter(NetworkAddressParameter).toString());
    const auto port = quint16(connectionParameter(NetworkPortParameter).toUInt());
    // Without an address the socket would be open to everybody.
    if (address.isNull()) {
        setError(tr("das ist keine IP-Adresse"), ConfigurationError);
        return false;
    }
    if (!m_server.listen(address, port)) {
        setError(m_server.errorString(), ConnectionError);
        return false;
    }
    setState(ConnectedState);
    return true;
}

void DriveServer::close()
{
    m_server.close();
    const auto sockets = m_server.findChildren<QTcpSocket *>();
    for (QTcpSocket *socket : sockets)
        socket->abort();
    setState(UnconnectedState);
}

bool DriveServer::readData(QModbusDataUnit *unit) const
{
    if (unit->registerType() != QModbusDataUnit::HoldingRegisters)
        return false;
    const QList<quint16> registers = m_drive.read(spanOf(m_unit, *unit));
    if (registers.isEmpty())
        return false;
    unit->setValues(registers);
    return true;
}

bool DriveServer::writeData(const QModbusDataUnit &unit)
{
    const SimulatedDrive::eVerdict verdict = m_drive.write(spanOf(m_unit, unit), unit.values());
    m_refusal = codeOf(verdict);
    return verdict == SimulatedDrive::eVerdict::Done;
}

QModbusResponse DriveServer::processRequest(const QModbusPdu &request)
{
    m_refusal = QModbusPdu::ExtendedException;
    const QModbusResponse response = QModbusServer::processRequest(request);
    // The module says "failure" for every write that is not done.
    if (response.isException() && m_refusal != QModbusPdu::ExtendedException)
        return QModbusExceptionResponse(request.functionCode(), m_refusal);
    return response;
}

void DriveServer::onNewConnection()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        const auto buffer = std::make_shared<QByteArray>();
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket, buffer] {
            buffer->append(socket->readAll());
            if (!takeRequests(*socket, *buffer))
                socket->abort();
        });
    }
}

bool DriveServer::takeRequests(QTcpSocket &socket, QByteArray &buffer)
{
    ModbusFrame frame;
    while (true) {
        switch (ModbusFrame::take(buffer, frame)) {
        case ModbusFrame::eTaken::Frame:
            answer(socket, frame);
            break;
        case ModbusFrame::eTaken::Incomplete:
            return true;
        case ModbusFrame::eTaken::Broken:
            return false;
        }
    }
}

void DriveServer::answer(QTcpSocket &socket, const ModbusFrame &frame)
{
    const AnswerFaults::Fate fate = m_faults.next();
    m_unit = frame.unit;
    QModbusResponse response;
    const QModbusPdu::FunctionCode function = frame.request.functionCode();
    if (fate.isRefused)
        response = QModbusExceptionResponse(function, QModbusPdu::ServerDeviceFailure);
    else if (fate.isBusy)
        response = QModbusExceptionResponse(function, QModbusPdu::ServerDeviceBusy);
    else
        response = processRequest(frame.request);
    if (fate.isLost)
        return;
    QByteArray bytes = frame.answer(response);
    if (fate.isDoubled)
        bytes += bytes;
    if (fate.delay.count() == 0)
        socket.write(bytes);
    else
        QTimer::singleShot(fate.delay, &socket, [&socket, bytes] { socket.write(bytes); });
}

#pragma once

#include "apps/simulation/AnswerFaults.h"

#include <QtNetwork/QTcpServer>
#include <QtSerialBus/QModbusServer>

class QTcpSocket;
class SimulatedDrive;
struct ModbusFrame;

/// A simulated drive on Modbus TCP.
///
/// A server of its own beside the module's one, which answers for a single unit and answers always,
/// once and at once; what the functions mean and refuse is the module's.
class DriveServer final : public QModbusServer {
    Q_OBJECT

public:
    /// **Owner** the caller; the drive outlives the server.
    explicit DriveServer(SimulatedDrive &drive);
    ~DriveServer() override;

    /// **Range** port 0 picks a free one. False where the address cannot be used; errorString() then
    /// says why.
    bool listen(const QString &host, quint16 port);
    quint16 port() const { return m_server.serverPort(); }
    AnswerFaults &faults() { return m_faults; }

protected:
    bool open() override;
    void close() override;
    bool readData(QModbusDataUnit *unit) const override;
    bool writeData(const QModbusDataUnit &unit) override;
    QModbusResponse processRequest(const QModbusPdu &request) override;

private:
    void onNewConnection();
    /// False when the connection is to be closed.
    bool takeRequests(QTcpSocket &socket, QByteArray &buffer);
    void answer(QTcpSocket &socket, const ModbusFrame &frame);

    SimulatedDrive &m_drive;
    QTcpServer m_server;
    AnswerFaults m_faults;
    /// Of the request that is being processed.
    quint8 m_unit = 0;
    /// Why the drive refused its write; an invalid code where it did not.
    QModbusPdu::ExceptionCode m_refusal = QModbusPdu::ExtendedException;
};

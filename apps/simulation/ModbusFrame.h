#pragma once

#include <QtCore/QByteArray>
#include <QtSerialBus/QModbusRequest>

/// One request as it comes over TCP.
///
///     frame = transaction(2) protocol(2) length(2) unit(1) function(1) *data
///
/// **Encoding** big-endian; the protocol is 0, the length counts from the unit on, 2 to 254.
/// **Source** MODBUS Messaging on TCP/IP Implementation Guide V1.0b.
struct ModbusFrame {
    enum class eTaken {
        Frame,
        Incomplete,
        Broken, ///< What follows cannot be told apart any more.
    };

    quint16 transaction = 0;
    quint8 unit = 0;
    QModbusRequest request;

    /// Takes one frame from the front of the buffer.
    static eTaken take(QByteArray &buffer, ModbusFrame &frame);
    /// The response in a frame of the same transaction and unit.
    QByteArray answer(const QModbusResponse &response) const;
};

#include "apps/simulation/ModbusFrame.h"

#include <QtCore/QDataStream>
#include <QtCore/QIODevice>

namespace {

constexpr qsizetype HeaderSize = 6;
constexpr quint16 ShortestLength = 2;
constexpr quint16 LongestLength = 254;

} // namespace

ModbusFrame::eTaken ModbusFrame::take(QByteArray &buffer, ModbusFrame &frame)
{
    if (buffer.size() < HeaderSize)
        return eTaken::Incomplete;
    quint16 protocol = 0;
    quint16 length = 0;
    quint8 function = 0;
    QDataStream stream(buffer);
    stream >> frame.transaction >> protocol >> length;
    if (protocol != 0 || length < ShortestLength || length > LongestLength)
        return eTaken::Broken;
    if (buffer.size() < HeaderSize + length)
        return eTaken::Incomplete;
    stream >> frame.unit >> function;
    const QByteArray data = buffer.sliced(HeaderSize + ShortestLength, length - ShortestLength);
    frame.request = QModbusRequest(QModbusPdu::FunctionCode(function), data);
    buffer.remove(0, HeaderSize + length);
    return eTaken::Frame;
}

QByteArray ModbusFrame::answer(const QModbusResponse &response) const
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << transaction << quint16(0) << quint16(response.size() + 1) << unit << response;
    return bytes;
}

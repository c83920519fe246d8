#include "apps/simulation/ModbusFrame.h"

#include <QtTest/QTest>

using eTaken = ModbusFrame::eTaken;

class tst_ModbusFrame : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesFrames_data();
    void takesFrames();
    void takesOneAtATime();
    void answersInTheSameFrame();
};

void tst_ModbusFrame::takesFrames_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<eTaken>("taken");
    QTest::addColumn<int>("left");

    const auto row = [](const char *name, const char *hex, eTaken taken, int left) {
        QTest::newRow(name) << QByteArray::fromHex(hex) << taken << left;
    };
    row("nothing", "", eTaken::Incomplete, 0);
    row("half a header", "0001000000", eTaken::Incomplete, 5);
    row("a header alone", "000100000006", eTaken::Incomplete, 6);
    row("one byte short", "00010000000602030010 00", eTaken::Incomplete, 11);
    row("a whole frame", "000100000006 0203 00100002", eTaken::Frame, 0);
    row("and one byte more", "000100000006 0203 00100002 00", eTaken::Frame, 1);
    row("the shortest", "000100000002 0207", eTaken::Frame, 0);
    row("shorter than possible", "00010000000102", eTaken::Broken, 7);
    row("no length", "000100000000", eTaken::Broken, 6);
    row("another protocol", "000100010006020300100002", eTaken::Broken, 12);
    row("longer than possible", "0001000000ff", eTaken::Broken, 6);
    row("the longest", "0001000000fe", eTaken::Incomplete, 6);
}

void tst_ModbusFrame::takesFrames()
{
    QFETCH(QByteArray, bytes);
    QFETCH(eTaken, taken);
    QFETCH(int, left);

    ModbusFrame frame;
    QCOMPARE(ModbusFrame::take(bytes, frame), taken);
    QCOMPARE(int(bytes.size()), left);
}

void tst_ModbusFrame::takesOneAtATime()
{
    QByteArray bytes = QByteArray::fromHex("abcd00000006 0203 00100002 0002000000020307");
    ModbusFrame frame;
    QCOMPARE(ModbusFrame::take(bytes, frame), eTaken::Frame);
    QCOMPARE(frame.transaction, quint16(0xABCD));
    QCOMPARE(frame.unit, quint8(2));
    QCOMPARE(frame.request.functionCode(), QModbusPdu::ReadHoldingRegisters);
    QCOMPARE(frame.request.data(), QByteArray::fromHex("00100002"));
    QCOMPARE(ModbusFrame::take(bytes, frame), eTaken::Frame);
    QCOMPARE(frame.transaction, quint16(2));
    QCOMPARE(frame.unit, quint8(3));
    QCOMPARE(int(frame.request.functionCode()), 7);
    QVERIFY(frame.request.data().isEmpty());
}

void tst_ModbusFrame::answersInTheSameFrame()
{
    ModbusFrame frame;
    frame.transaction = 0x0102;
    frame.unit = 3;
    QCOMPARE(frame.answer(QModbusResponse(
                 QModbusPdu::ReadHoldingRegisters, QByteArray::fromHex("0400010002"))),
        QByteArray::fromHex("010200000007 03 03 0400010002"));
    QCOMPARE(frame.answer(QModbusExceptionResponse(
                 QModbusPdu::WriteMultipleRegisters, QModbusPdu::IllegalDataValue)),
        QByteArray::fromHex("010200000003 03 90 03"));
}

QTEST_GUILESS_MAIN(tst_ModbusFrame)
#include "tst_ModbusFrame.moc"

#include <LmUtilities/ByteArraySupport.h>

#include <QtTest/QtTest>

#include <algorithm>
#include <cmath>
#include <limits>

using LmByteArraySupport::ByteArraySupport;
using LmByteArraySupport::eByteOrder;

class tst_ByteArraySupport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void appendInteger_data();
    void appendInteger();
    void appendIntegerOfBadSize();
    void appendFloat();
    void appendDouble();
    void appendBytes_data();
    void appendBytes();
    void appendsInTurn();
    void unsignedInteger_data();
    void unsignedInteger();
    void signedInteger_data();
    void signedInteger();
    void toFloat();
    void toDouble();
    void tooShort();
};

void tst_ByteArraySupport::appendInteger_data()
{
    QTest::addColumn<quint64>("value");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("little");
    QTest::addColumn<QByteArray>("big");

    QTest::newRow("1 byte") << Q_UINT64_C(0x7F) << 1 << QByteArray("7f") << QByteArray("7f");
    QTest::newRow("2 bytes") << Q_UINT64_C(0x1234) << 2 << QByteArray("3412") << QByteArray("1234");
    QTest::newRow("3 bytes") << Q_UINT64_C(0x123456) << 3 << QByteArray("563412")
                             << QByteArray("123456");
    QTest::newRow("4 bytes") << Q_UINT64_C(0x12345678) << 4 << QByteArray("78563412")
                             << QByteArray("12345678");
    QTest::newRow("8 bytes") << Q_UINT64_C(0x0123456789ABCDEF) << 8
                             << QByteArray("efcdab8967452301") << QByteArray("0123456789abcdef");
    QTest::newRow("8 bytes, all bits")
        << Q_UINT64_C(0xFFFFFFFFFFFFFFFF) << 8 << QByteArray("ffffffffffffffff")
        << QByteArray("ffffffffffffffff");
    QTest::newRow("only the low bytes count")
        << Q_UINT64_C(0xAABBCCDD) << 2 << QByteArray("ddcc") << QByteArray("ccdd");
    QTest::newRow("negative number")
        << static_cast<quint64>(-2) << 4 << QByteArray("feffffff") << QByteArray("fffffffe");
}

void tst_ByteArraySupport::appendInteger()
{
    QFETCH(quint64, value);
    QFETCH(int, size);
    ByteArraySupport little(eByteOrder::LittleEndian);
    little.appendInteger(value, size);
    QTEST(little.bytes().toHex(), "little");
    ByteArraySupport big(eByteOrder::BigEndian);
    big.appendInteger(value, size);
    QTEST(big.bytes().toHex(), "big");
}

void tst_ByteArraySupport::appendIntegerOfBadSize()
{
    for (const int size : {-1, 0, 9, std::numeric_limits<int>::max()}) {
        ByteArraySupport support(eByteOrder::BigEndian, "kept");
        support.appendInteger(1, size);
        QCOMPARE(support.bytes(), QByteArray("kept"));
    }
}

void tst_ByteArraySupport::appendFloat()
{
    ByteArraySupport little(eByteOrder::LittleEndian);
    little.appendFloat(-1.5F);
    QCOMPARE(little.bytes().toHex(), QByteArray("0000c0bf"));
    ByteArraySupport big(eByteOrder::BigEndian);
    big.appendFloat(-1.5F);
    QCOMPARE(big.bytes().toHex(), QByteArray("bfc00000"));
}

void tst_ByteArraySupport::appendDouble()
{
    ByteArraySupport little(eByteOrder::LittleEndian);
    little.appendDouble(0.1);
    QCOMPARE(little.bytes().toHex(), QByteArray("9a9999999999b93f"));
    ByteArraySupport big(eByteOrder::BigEndian);
    big.appendDouble(0.1);
    QCOMPARE(big.bytes().toHex(), QByteArray("3fb999999999999a"));
}

void tst_ByteArraySupport::appendBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("size");
    QTest::addColumn<QByteArray>("expected");

    QTest::newRow("as long as the field") << QByteArray("abc") << 3 << QByteArray("616263");
    QTest::newRow("longer is cut") << QByteArray("abcd") << 3 << QByteArray("616263");
    QTest::newRow("shorter is filled with zero bytes")
        << QByteArray("a") << 3 << QByteArray("610000");
    QTest::newRow("empty is filled") << QByteArray() << 2 << QByteArray("0000");
    QTest::newRow("zero byte inside is kept")
        << QByteArray("a\0b", 3) << 4 << QByteArray("61006200");
    QTest::newRow("size 0 appends nothing") << QByteArray("abc") << 0 << QByteArray();
    QTest::newRow("negative size appends nothing") << QByteArray("abc") << -1 << QByteArray();
}

void tst_ByteArraySupport::appendBytes()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, size);
    for (const eByteOrder order : {eByteOrder::LittleEndian, eByteOrder::BigEndian}) {
        ByteArraySupport support(order);
        support.appendBytes(bytes, size);
        QTEST(support.bytes().toHex(), "expected");
    }
}

void tst_ByteArraySupport::appendsInTurn()
{
    ByteArraySupport support(eByteOrder::BigEndian, "x");
    support.appendInteger(0x0102, 2);
    support.appendBytes("y", 2);
    QCOMPARE(support.bytes(), QByteArray("x\x01\x02y\0", 5));
    QCOMPARE(support.size(), 5);
}

void tst_ByteArraySupport::unsignedInteger_data()
{
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<int>("size");
    QTest::addColumn<quint64>("little");
    QTest::addColumn<quint64>("big");

    QTest::newRow("1 byte") << QByteArray("ff") << 1 << Q_UINT64_C(255) << Q_UINT64_C(255);
    QTest::newRow("2 bytes") << QByteArray("1234") << 2 << Q_UINT64_C(0x3412) << Q_UINT64_C(0x1234);
    QTest::newRow("4 bytes, the highest bit set")
        << QByteArray("80000001") << 4 << Q_UINT64_C(0x01000080) << Q_UINT64_C(0x80000001);
    QTest::newRow("8 bytes") << QByteArray("0123456789abcdef") << 8
                             << Q_UINT64_C(0xEFCDAB8967452301) << Q_UINT64_C(0x0123456789ABCDEF);
    QTest::newRow("bytes behind are not looked at")
        << QByteArray("1234ffff") << 2 << Q_UINT64_C(0x3412) << Q_UINT64_C(0x1234);
    QTest::newRow("too short gives 0")
        << QByteArray("123456") << 4 << Q_UINT64_C(0) << Q_UINT64_C(0);
    QTest::newRow("size 0 gives 0") << QByteArray("12") << 0 << Q_UINT64_C(0) << Q_UINT64_C(0);
    QTest::newRow("size 9 gives 0")
        << QByteArray("010203040506070809") << 9 << Q_UINT64_C(0) << Q_UINT64_C(0);
    QTest::newRow("negative size gives 0")
        << QByteArray("12") << -1 << Q_UINT64_C(0) << Q_UINT64_C(0);
}

void tst_ByteArraySupport::unsignedInteger()
{
    QFETCH(QByteArray, hex);
    QFETCH(int, size);
    const QByteArray bytes = QByteArray::fromHex(hex);
    QTEST(ByteArraySupport(eByteOrder::LittleEndian, bytes).unsignedInteger(size), "little");
    QTEST(ByteArraySupport(eByteOrder::BigEndian, bytes).unsignedInteger(size), "big");
}

void tst_ByteArraySupport::signedInteger_data()
{
    QTest::addColumn<QByteArray>("hex");
    QTest::addColumn<int>("size");
    QTest::addColumn<qint64>("big");

    QTest::newRow("1 byte, largest") << QByteArray("7f") << 1 << Q_INT64_C(127);
    QTest::newRow("1 byte, smallest") << QByteArray("80") << 1 << Q_INT64_C(-128);
    QTest::newRow("1 byte, -1") << QByteArray("ff") << 1 << Q_INT64_C(-1);
    QTest::newRow("2 bytes, smallest") << QByteArray("8000") << 2 << Q_INT64_C(-32768);
    QTest::newRow("4 bytes, largest") << QByteArray("7fffffff") << 4 << Q_INT64_C(2147483647);
    QTest::newRow("4 bytes, smallest") << QByteArray("80000000") << 4 << Q_INT64_C(-2147483648);
    QTest::newRow("8 bytes, largest")
        << QByteArray("7fffffffffffffff") << 8 << std::numeric_limits<qint64>::max();
    QTest::newRow("8 bytes, smallest")
        << QByteArray("8000000000000000") << 8 << std::numeric_limits<qint64>::min();
    QTest::newRow("too short gives 0") << QByteArray("ff") << 2 << Q_INT64_C(0);
    QTest::newRow("size 0 gives 0") << QByteArray("ff") << 0 << Q_INT64_C(0);
    QTest::newRow("size 9 gives 0") << QByteArray("ffffffffffffffffff") << 9 << Q_INT64_C(0);
}

void tst_ByteArraySupport::signedInteger()
{
    QFETCH(QByteArray, hex);
    QFETCH(int, size);
    QByteArray bytes = QByteArray::fromHex(hex);
    QTEST(ByteArraySupport(eByteOrder::BigEndian, bytes).signedInteger(size), "big");
    std::reverse(bytes.begin(), bytes.end());
    QTEST(ByteArraySupport(eByteOrder::LittleEndian, bytes).signedInteger(size), "big");
}

void tst_ByteArraySupport::toFloat()
{
    const QByteArray bytes = QByteArray::fromHex("bfc00000");
    QCOMPARE(ByteArraySupport(eByteOrder::BigEndian, bytes).toFloat(), -1.5F);
    const QByteArray reversed = QByteArray::fromHex("0000c0bf");
    QCOMPARE(ByteArraySupport(eByteOrder::LittleEndian, reversed).toFloat(), -1.5F);
    const QByteArray notANumber = QByteArray::fromHex("7fc00000");
    QVERIFY(std::isnan(ByteArraySupport(eByteOrder::BigEndian, notANumber).toFloat()));
}

void tst_ByteArraySupport::toDouble()
{
    const QByteArray bytes = QByteArray::fromHex("3fb999999999999a");
    QCOMPARE(ByteArraySupport(eByteOrder::BigEndian, bytes).toDouble(), 0.1);
    const QByteArray reversed = QByteArray::fromHex("9a9999999999b93f");
    QCOMPARE(ByteArraySupport(eByteOrder::LittleEndian, reversed).toDouble(), 0.1);
    const QByteArray infinite = QByteArray::fromHex("fff0000000000000");
    QCOMPARE(ByteArraySupport(eByteOrder::BigEndian, infinite).toDouble(),
        -std::numeric_limits<double>::infinity());
}

void tst_ByteArraySupport::tooShort()
{
    const ByteArraySupport empty(eByteOrder::BigEndian);
    QCOMPARE(empty.size(), 0);
    QCOMPARE(empty.unsignedInteger(1), Q_UINT64_C(0));
    QCOMPARE(ByteArraySupport(eByteOrder::BigEndian, "\x3f\xb9\x99").toFloat(), 0.0F);
    QCOMPARE(
        ByteArraySupport(eByteOrder::BigEndian, "\x3f\xb9\x99\x99\x99\x99\x99").toDouble(), 0.0);
}

QTEST_APPLESS_MAIN(tst_ByteArraySupport)
#include "tst_ByteArraySupport.moc"

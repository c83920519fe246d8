#include "container/BinaryValue.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using LmByteArraySupport::eByteOrder;

namespace {

const SimpleType &type(const QString &shortName)
{
    return *DatatypeProvider::instance()->simpleType(shortName);
}

struct Row {
    const char *rule;
    QString typeName;
    QString text;
    QByteArray bigEndian;
};

/// Texts and bytes that turn into each other.
QList<Row> exactRows()
{
    return {
        {"INT8 lowest", u"INT8"_s, u"-128"_s, "80"},
        {"INT8 highest", u"INT8"_s, u"127"_s, "7f"},
        {"INT8 -1", u"INT8"_s, u"-1"_s, "ff"},
        {"INT16 lowest", u"INT16"_s, u"-32768"_s, "8000"},
        {"INT16 highest", u"INT16"_s, u"32767"_s, "7fff"},
        {"INT16 order of bytes", u"INT16"_s, u"258"_s, "0102"},
        {"INT32 lowest", u"INT32"_s, u"-2147483648"_s, "80000000"},
        {"INT32 highest", u"INT32"_s, u"2147483647"_s, "7fffffff"},
        {"INT32 order of bytes", u"INT32"_s, u"16909060"_s, "01020304"},
        {"INT64 lowest", u"INT64"_s, u"-9223372036854775808"_s, "8000000000000000"},
        {"INT64 highest", u"INT64"_s, u"9223372036854775807"_s, "7fffffffffffffff"},
        {"INT64 order of bytes", u"INT64"_s, u"72623859790382856"_s, "0102030405060708"},
        {"UINT8 lowest", u"UINT8"_s, u"0"_s, "00"},
        {"UINT8 highest", u"UINT8"_s, u"255"_s, "ff"},
        {"UINT16 highest", u"UINT16"_s, u"65535"_s, "ffff"},
        {"UINT16 order of bytes", u"UINT16"_s, u"258"_s, "0102"},
        {"UINT32 highest", u"UINT32"_s, u"4294967295"_s, "ffffffff"},
        {"UINT32 order of bytes", u"UINT32"_s, u"16909060"_s, "01020304"},
        {"UINT64 highest", u"UINT64"_s, u"18446744073709551615"_s, "ffffffffffffffff"},
        {"UINT64 above INT64", u"UINT64"_s, u"9223372036854775808"_s, "8000000000000000"},
        {"REAL32 one and a half", u"REAL32"_s, u"1.5"_s, "3fc00000"},
        {"REAL32 a tenth", u"REAL32"_s, u"0.1"_s, "3dcccccd"},
        {"REAL32 negative", u"REAL32"_s, u"-2"_s, "c0000000"},
        {"REAL64 a tenth", u"REAL64"_s, u"0.1"_s, "3fb999999999999a"},
        {"REAL64 negative", u"REAL64"_s, u"-2.5"_s, "c004000000000000"},
        {"STRING8 short is filled", u"STRING8"_s, u"Ab1"_s, "4162310000000000"},
        {"STRING8 full", u"STRING8"_s, u"12345678"_s, "3132333435363738"},
        {"STRING8 Latin-1", u"STRING8"_s, u"\u00e4\u00ff"_s, "e4ff000000000000"},
        {"STRING8 empty", u"STRING8"_s, u""_s, "0000000000000000"},
        {"STRING16", u"STRING16"_s, u"servo drive"_s, "736572766f2064726976650000000000"},
        {"STRING32", u"STRING32"_s, u"a"_s, QByteArray("61") + QByteArray(62, '0')},
        {"STRING64", u"STRING64"_s, u"a"_s, QByteArray("61") + QByteArray(126, '0')},
        {"STRING128", u"STRING128"_s, u"a"_s, QByteArray("61") + QByteArray(254, '0')},
        {"STRING255", u"STRING255"_s, u"a"_s, QByteArray("61") + QByteArray(508, '0')},
        {"RAW", u"RAW"_s, u"a"_s, QByteArray("61") + QByteArray(508, '0')},
        {"BYTES4", u"BYTES4"_s, u"00ff1a2b"_s, "00ff1a2b"},
        {"BYTES8", u"BYTES8"_s, u"0102030405060708"_s, "0102030405060708"},
        {"BYTES16", u"BYTES16"_s, QString(32, u'a'), QByteArray(32, 'a')},
        {"BYTES32", u"BYTES32"_s, QString(64, u'b'), QByteArray(64, 'b')},
        {"BYTES64", u"BYTES64"_s, QString(128, u'c'), QByteArray(128, 'c')},
    };
}

/// The order of bytes is a matter of numbers only.
QByteArray littleEndian(const QByteArray &bigEndian, const QString &typeName)
{
    QByteArray bytes = QByteArray::fromHex(bigEndian);
    if (type(typeName).kind() <= SimpleType::FloatingPoint)
        std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

} // namespace

class tst_BinaryValue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byteOrder();
    void packAndUnpack_data();
    void packAndUnpack();
    void everyTypeHasARow();
    void packOnly_data();
    void packOnly();
    void unpackOnly_data();
    void unpackOnly();
    void realsReadBackAsTheSameNumber();
};

void tst_BinaryValue::byteOrder()
{
    QVERIFY(BinaryValue::byteOrder(true) == eByteOrder::BigEndian);
    QVERIFY(BinaryValue::byteOrder(false) == eByteOrder::LittleEndian);
}

void tst_BinaryValue::packAndUnpack_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bigEndian");

    for (const Row &row : exactRows())
        QTest::newRow(row.rule) << row.typeName << row.text << row.bigEndian;
}

void tst_BinaryValue::packAndUnpack()
{
    QFETCH(QString, typeName);
    QFETCH(QString, text);
    QFETCH(QByteArray, bigEndian);
    const QByteArray big = QByteArray::fromHex(bigEndian);
    const QByteArray little = littleEndian(bigEndian, typeName);

    QCOMPARE(BinaryValue::pack(text, type(typeName), eByteOrder::BigEndian), big);
    QCOMPARE(BinaryValue::pack(text, type(typeName), eByteOrder::LittleEndian), little);
    QCOMPARE(BinaryValue::unpack(big, type(typeName), eByteOrder::BigEndian), text);
    QCOMPARE(BinaryValue::unpack(little, type(typeName), eByteOrder::LittleEndian), text);
    QCOMPARE(BinaryValue::unpack(big + "more", type(typeName), eByteOrder::BigEndian), text);
}

void tst_BinaryValue::everyTypeHasARow()
{
    QStringList covered;
    for (const Row &row : exactRows())
        covered.append(row.typeName);
    for (const SimpleType *each : DatatypeProvider::instance()->simpleTypes())
        QVERIFY2(covered.contains(each->shortName()), qPrintable(each->shortName()));
}

void tst_BinaryValue::packOnly_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bigEndian");

    const auto row = [](const char *rule, const QString &typeName, const QString &text,
                         const QByteArray &bytes) {
        QTest::newRow(rule) << typeName << text << bytes;
    };
    row("signed: no number is 0", u"INT32"_s, u"ten"_s, "00000000");
    row("signed: empty is 0", u"INT16"_s, u""_s, "0000");
    row("signed: fraction is 0", u"INT16"_s, u"1.5"_s, "0000");
    row("signed: hexadecimal is 0", u"INT16"_s, u"0x10"_s, "0000");
    row("signed: beyond 64 bits is 0", u"INT64"_s, u"9223372036854775808"_s, "0000000000000000");
    row("unsigned: no number is 0", u"UINT32"_s, u"ten"_s, "00000000");
    row("unsigned: negative is 0", u"UINT8"_s, u"-1"_s, "00");
    row("unsigned: beyond 64 bits is 0", u"UINT64"_s, u"18446744073709551616"_s,
        "0000000000000000");
    row("REAL32 no number is 0", u"REAL32"_s, u"ten"_s, "00000000");
    row("REAL64 empty is 0", u"REAL64"_s, u""_s, "0000000000000000");
    row("REAL64 exponent", u"REAL64"_s, u"1e3"_s, "408f400000000000");
    row("REAL64 a comma makes no number", u"REAL64"_s, u"1,5"_s, "0000000000000000");
    row("REAL32 a number with more is no number", u"REAL32"_s, u"1.5 A"_s, "00000000");
    row("characters are cut to the field", u"STRING8"_s, u"123456789"_s, "3132333435363738");
    row("characters beyond Latin-1 are question marks", u"STRING8"_s, u"\u20ac"_s,
        "3f00000000000000");
    row("bytes are cut to the field", u"BYTES4"_s, u"0102030405"_s, "01020304");
    row("bytes are filled", u"BYTES4"_s, u"01"_s, "01000000");
    row("bytes in upper case", u"BYTES4"_s, u"ABCDEF01"_s, "abcdef01");
    row("bytes: no hexadecimal digits", u"BYTES4"_s, u"xyz"_s, "00000000");
}

void tst_BinaryValue::packOnly()
{
    QFETCH(QString, typeName);
    QFETCH(QString, text);
    QFETCH(QByteArray, bigEndian);
    QCOMPARE(BinaryValue::pack(text, type(typeName), eByteOrder::BigEndian).toHex(), bigEndian);
    QCOMPARE(BinaryValue::pack(text, type(typeName), eByteOrder::LittleEndian),
        littleEndian(bigEndian, typeName));
}

void tst_BinaryValue::unpackOnly_data()
{
    QTest::addColumn<QString>("typeName");
    QTest::addColumn<QByteArray>("bigEndian");
    QTest::addColumn<QString>("text");

    QTest::newRow("characters end at the first zero byte")
        << u"STRING8"_s << QByteArray("4100420000000000") << u"A"_s;
    QTest::newRow("REAL32 shortest text")
        << u"REAL32"_s << QByteArray("3eaaaaab") << u"0.33333334"_s;
    QTest::newRow("REAL32 largest") << u"REAL32"_s << QByteArray("7f7fffff") << u"3.4028235e+38"_s;
    QTest::newRow("REAL64 shortest text")
        << u"REAL64"_s << QByteArray("3fd5555555555555") << u"0.3333333333333333"_s;
}

void tst_BinaryValue::unpackOnly()
{
    QFETCH(QString, typeName);
    QFETCH(QByteArray, bigEndian);
    QFETCH(QString, text);
    const QByteArray bytes = QByteArray::fromHex(bigEndian);
    QCOMPARE(BinaryValue::unpack(bytes, type(typeName), eByteOrder::BigEndian), text);
    QCOMPARE(BinaryValue::unpack(
                 littleEndian(bigEndian, typeName), type(typeName), eByteOrder::LittleEndian),
        text);
}

void tst_BinaryValue::realsReadBackAsTheSameNumber()
{
    quint64 bits = 0x9E3779B97F4A7C15ULL;
    for (int i = 0; i < 20000; ++i) {
        bits ^= bits << 13;
        bits ^= bits >> 7;
        bits ^= bits << 17;
        QByteArray bytes;
        for (int shift = 56; shift >= 0; shift -= 8)
            bytes.append(char(bits >> shift));
        // An exponent of ones is infinity or no number, which have no decimal text.
        if ((bits >> 52 & 0x7FF) != 0x7FF) {
            const QString text =
                BinaryValue::unpack(bytes, type(u"REAL64"_s), eByteOrder::BigEndian);
            QCOMPARE(BinaryValue::pack(text, type(u"REAL64"_s), eByteOrder::BigEndian), bytes);
        }
        bytes.truncate(4);
        if ((bits >> 55 & 0xFF) != 0xFF) {
            const QString text =
                BinaryValue::unpack(bytes, type(u"REAL32"_s), eByteOrder::BigEndian);
            QCOMPARE(BinaryValue::pack(text, type(u"REAL32"_s), eByteOrder::BigEndian), bytes);
        }
    }
}

QTEST_APPLESS_MAIN(tst_BinaryValue)
#include "tst_BinaryValue.moc"

#include "apps/import/NativeValue.h"

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_NativeValue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void good_data();
    void good();
    void bad_data();
    void bad();
    void compare_data();
    void compare();
    void types_data();
    void types();
    void unknownTypes_data();
    void unknownTypes();
};

using eState = NativeValue::eState;

namespace {

const CanOpenDataType &typeOf(const QString &name)
{
    for (quint32 code = 0; code < 0x20; ++code) {
        const CanOpenDataType *type = CanOpenDataType::find(code);
        if (type != nullptr && name == QLatin1String(type->name))
            return *type;
    }
    qFatal("unknown type");
}

} // namespace

void tst_NativeValue::good_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QString>("note");

    const auto row = [](const char *name, const QString &type, const QString &text,
                         const QString &expected, const QString &note = QString()) {
        QTest::newRow(name) << type << text << expected << note;
    };
    row("BOOLEAN 1", u"BOOLEAN"_s, u"0x1"_s, u"1"_s);
    row("BOOLEAN true", u"BOOLEAN"_s, u"TRUE"_s, u"1"_s);
    row("BOOLEAN false", u"BOOLEAN"_s, u"false"_s, u"0"_s);
    row("INTEGER8 smallest", u"INTEGER8"_s, u"-128"_s, u"-128"_s);
    row("INTEGER8 bits", u"INTEGER8"_s, u"0xFF"_s, u"-1"_s);
    row("INTEGER8 largest bits", u"INTEGER8"_s, u"0x7F"_s, u"127"_s);
    row("INTEGER8 bits extended to 16", u"INTEGER8"_s, u"0xFF80"_s, u"-128"_s);
    row("INTEGER8 bits extended to 32", u"INTEGER8"_s, u"0xFFFFFF80"_s, u"-128"_s);
    row("INTEGER8 bits extended to 64", u"INTEGER8"_s, u"0xFFFFFFFFFFFFFFFD"_s, u"-3"_s);
    row("INTEGER16 bits", u"INTEGER16"_s, u"0x8000"_s, u"-32768"_s);
    row("INTEGER24 bits", u"INTEGER24"_s, u"0x800000"_s, u"-8388608"_s);
    row("INTEGER24 bits extended", u"INTEGER24"_s, u"0xFF800000"_s, u"-8388608"_s);
    row("INTEGER32 bits", u"INTEGER32"_s, u"0x80000000"_s, u"-2147483648"_s);
    row("INTEGER64 smallest", u"INTEGER64"_s, u"-9223372036854775808"_s, u"-9223372036854775808"_s);
    row("INTEGER64 bits", u"INTEGER64"_s, u"0xFFFFFFFFFFFFFFFF"_s, u"-1"_s);
    row("UNSIGNED32 is no bit pattern", u"UNSIGNED32"_s, u"0xFFFFFFFF"_s, u"4294967295"_s);
    row("UNSIGNED64 largest", u"UNSIGNED64"_s, u"18446744073709551615"_s,
        u"18446744073709551615"_s);
    row("UNSIGNED56 largest", u"UNSIGNED56"_s, u"0xFFFFFFFFFFFFFF"_s, u"72057594037927935"_s);
    row("leading zeros are told", u"UNSIGNED8"_s, u"010"_s, u"8"_s,
        u"hat führende Nullen und wurde als 8 gelesen"_s);
    row("REAL32 decimal", u"REAL32"_s, u"0.1"_s, u"0.1"_s);
    row("REAL32 negative", u"REAL32"_s, u"-2.50"_s, u"-2.5"_s);
    row("REAL32 plus sign", u"REAL32"_s, u"+2.5"_s, u"2.5"_s);
    row("REAL32 integer", u"REAL32"_s, u"10"_s, u"10"_s);
    row("REAL32 exponent", u"REAL32"_s, u"1e3"_s, u"1000"_s);
    row("REAL32 bit pattern", u"REAL32"_s, u"0x3FC00000"_s, u"1.5"_s);
    row("REAL32 minus zero", u"REAL32"_s, u"0x80000000"_s, u"0"_s);
    row("REAL64 decimal", u"REAL64"_s, u"0.1"_s, u"0.1"_s);
    row("REAL64 bit pattern", u"REAL64"_s, u"0xBFF0000000000000"_s, u"-1"_s);
    row("REAL64 with comment", u"REAL64"_s, u"1.5 ; mm"_s, u"1.5"_s);
    row("VISIBLE_STRING", u"VISIBLE_STRING"_s, u"Drive 1; a=b"_s, u"Drive 1; a=b"_s);
    row("VISIBLE_STRING that looks like a number", u"VISIBLE_STRING"_s, u"0x10"_s, u"0x10"_s);
    row("VISIBLE_STRING Latin-1", u"VISIBLE_STRING"_s, u"\u00FC"_s, u"\u00FC"_s);
    row("VISIBLE_STRING longest", u"VISIBLE_STRING"_s, QString(255, u'a'), QString(255, u'a'));
    row("UNICODE_STRING", u"UNICODE_STRING"_s, u"abc"_s, u"abc"_s);
    row("OCTET_STRING in pairs", u"OCTET_STRING"_s, u"01 02 AB"_s, u"0102ab"_s);
    row("OCTET_STRING without blanks", u"OCTET_STRING"_s, u"0102AB"_s, u"0102ab"_s);
    row("OCTET_STRING with prefix", u"OCTET_STRING"_s, u"0x01 0x02"_s, u"0102"_s);
    row("OCTET_STRING longest", u"OCTET_STRING"_s, QString(128, u'0'), QString(128, u'0'));
    row("OCTET_STRING of characters", u"OCTET_STRING"_s, u"xyz"_s, u"78797a"_s,
        u"ist nicht hexadezimal; seine Zeichen wurden als Bytes genommen"_s);
}

void tst_NativeValue::good()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QFETCH(QString, note);

    const NativeValue value = NativeValue::read(typeOf(type), text, std::nullopt);
    QCOMPARE(int(value.state()), int(eState::Good));
    QCOMPARE(value.text(), expected);
    QCOMPARE(value.note(), note);
}

void tst_NativeValue::bad_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("nearest");

    const auto row = [](const char *name, const QString &type, const QString &text, eState state,
                         const QString &nearest = QString()) {
        QTest::newRow(name) << type << text << int(state) << nearest;
    };
    row("number missing", u"UNSIGNED8"_s, QString(), eState::Missing);
    row("number of comment only", u"UNSIGNED8"_s, u";"_s, eState::Missing);
    row("string missing", u"VISIBLE_STRING"_s, QString(), eState::Missing);
    row("BOOLEAN 2", u"BOOLEAN"_s, u"2"_s, eState::OutsideType, u"1"_s);
    row("UNSIGNED8 above", u"UNSIGNED8"_s, u"256"_s, eState::OutsideType, u"255"_s);
    row("UNSIGNED8 below", u"UNSIGNED8"_s, u"-1"_s, eState::OutsideType, u"0"_s);
    row("INTEGER8 above", u"INTEGER8"_s, u"128"_s, eState::OutsideType, u"127"_s);
    row("INTEGER8 bits above", u"INTEGER8"_s, u"0x180"_s, eState::OutsideType, u"127"_s);
    row("INTEGER8 below", u"INTEGER8"_s, u"-129"_s, eState::OutsideType, u"-128"_s);
    row("INTEGER32 decimal is no bit pattern", u"INTEGER32"_s, u"4294967295"_s, eState::OutsideType,
        u"2147483647"_s);
    row("INTEGER64 above", u"INTEGER64"_s, u"9223372036854775808"_s, eState::OutsideType,
        u"9223372036854775807"_s);
    row("UNSIGNED24 above", u"UNSIGNED24"_s, u"0x1000000"_s, eState::OutsideType, u"16777215"_s);
    row("beyond 64 bits", u"UNSIGNED64"_s, u"18446744073709551616"_s, eState::Refused);
    row("no integer", u"INTEGER16"_s, u"1.5"_s, eState::Refused);
    row("node id", u"UNSIGNED32"_s, u"$NODEID+0x80"_s, eState::NodeIdUnknown);
    row("decimal comma", u"REAL32"_s, u"1,5"_s, eState::Refused);
    row("REAL32 too large", u"REAL32"_s, u"1e39"_s, eState::Refused);
    row("REAL32 bits of infinity", u"REAL32"_s, u"0x7F800000"_s, eState::Refused);
    row("REAL32 pattern too long", u"REAL32"_s, u"0x100000000"_s, eState::Refused);
    row("REAL64 name of infinity", u"REAL64"_s, u"inf"_s, eState::Refused);
    row("REAL64 nan", u"REAL64"_s, u"nan"_s, eState::Refused);
    row("REAL64 two signs", u"REAL64"_s, u"+-1"_s, eState::Refused);
    row("string too long", u"VISIBLE_STRING"_s, QString(256, u'a'), eState::Refused);
    row("string beyond Latin-1", u"UNICODE_STRING"_s, u"\u20AC"_s, eState::Refused);
    row("string with control character", u"VISIBLE_STRING"_s, u"a\u0001b"_s, eState::Refused);
    row("bytes too long", u"OCTET_STRING"_s, QString(130, u'0'), eState::Refused);
    row("bytes beyond Latin-1", u"OCTET_STRING"_s, u"\u20AC"_s, eState::Refused);
}

void tst_NativeValue::bad()
{
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(int, state);
    QFETCH(QString, nearest);

    const NativeValue value = NativeValue::read(typeOf(type), text, std::nullopt);
    QCOMPARE(int(value.state()), state);
    QCOMPARE(value.text(), nearest);
    QCOMPARE(value.note().isEmpty(), value.state() == eState::Missing);
}

void tst_NativeValue::compare_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("less");
    QTest::addColumn<QString>("more");

    QTest::newRow("integers by value") << u"INTEGER32"_s << u"9"_s << u"10"_s;
    QTest::newRow("negative integers") << u"INTEGER32"_s << u"-10"_s << u"-9"_s;
    QTest::newRow("64 bits exactly")
        << u"UNSIGNED64"_s << u"18446744073709551614"_s << u"18446744073709551615"_s;
    QTest::newRow("reals") << u"REAL64"_s << u"-0.5"_s << u"0.25"_s;
}

void tst_NativeValue::compare()
{
    QFETCH(QString, type);
    QFETCH(QString, less);
    QFETCH(QString, more);

    QCOMPARE(NativeValue::compare(typeOf(type), less, more), -1);
    QCOMPARE(NativeValue::compare(typeOf(type), more, less), 1);
    QCOMPARE(NativeValue::compare(typeOf(type), more, more), 0);
}

void tst_NativeValue::types_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shortName");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("maximum");

    const auto row = [](quint32 code, const char *name, const char *shortName,
                         const char *minimum = "", const char *maximum = "") {
        QTest::newRow(name) << code << QString::fromLatin1(name) << QString::fromLatin1(shortName)
                            << QString::fromLatin1(minimum) << QString::fromLatin1(maximum);
    };
    row(0x01, "BOOLEAN", "UINT8", "0", "1");
    row(0x02, "INTEGER8", "INT8", "-128", "127");
    row(0x03, "INTEGER16", "INT16", "-32768", "32767");
    row(0x04, "INTEGER32", "INT32", "-2147483648", "2147483647");
    row(0x05, "UNSIGNED8", "UINT8", "0", "255");
    row(0x06, "UNSIGNED16", "UINT16", "0", "65535");
    row(0x07, "UNSIGNED32", "UINT32", "0", "4294967295");
    row(0x08, "REAL32", "REAL32");
    row(0x09, "VISIBLE_STRING", "STRING255");
    row(0x0A, "OCTET_STRING", "BYTES64");
    row(0x0B, "UNICODE_STRING", "STRING255");
    row(0x10, "INTEGER24", "INT32", "-8388608", "8388607");
    row(0x11, "REAL64", "REAL64");
    row(0x12, "INTEGER40", "INT64", "-549755813888", "549755813887");
    row(0x13, "INTEGER48", "INT64", "-140737488355328", "140737488355327");
    row(0x14, "INTEGER56", "INT64", "-36028797018963968", "36028797018963967");
    row(0x15, "INTEGER64", "INT64", "-9223372036854775808", "9223372036854775807");
    row(0x16, "UNSIGNED24", "UINT32", "0", "16777215");
    row(0x18, "UNSIGNED40", "UINT64", "0", "1099511627775");
    row(0x19, "UNSIGNED48", "UINT64", "0", "281474976710655");
    row(0x1A, "UNSIGNED56", "UINT64", "0", "72057594037927935");
    row(0x1B, "UNSIGNED64", "UINT64", "0", "18446744073709551615");
}

void tst_NativeValue::types()
{
    QFETCH(quint32, code);
    QFETCH(QString, name);
    QFETCH(QString, shortName);
    QFETCH(QString, minimum);
    QFETCH(QString, maximum);

    const CanOpenDataType *type = CanOpenDataType::find(code);
    QVERIFY(type != nullptr);
    QVERIFY(type->hasValue());
    QCOMPARE(QString::fromLatin1(type->name), name);
    QCOMPARE(QString::fromLatin1(type->shortName), shortName);
    QCOMPARE(NativeValue::minimumText(*type), minimum);
    QCOMPARE(NativeValue::maximumText(*type), maximum);
}

void tst_NativeValue::unknownTypes_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<bool>("isKnown");

    QTest::newRow("none") << 0x00U << false;
    QTest::newRow("TIME_OF_DAY") << 0x0CU << true;
    QTest::newRow("TIME_DIFFERENCE") << 0x0DU << true;
    QTest::newRow("BIT_STRING") << 0x0EU << true;
    QTest::newRow("DOMAIN") << 0x0FU << true;
    QTest::newRow("gap of the table") << 0x17U << false;
    QTest::newRow("behind the table") << 0x1CU << false;
    QTest::newRow("PDO mapping") << 0x21U << false;
    QTest::newRow("manufacturer") << 0x40U << false;
    QTest::newRow("low bits of a known one") << 0x10005U << false;
}

void tst_NativeValue::unknownTypes()
{
    QFETCH(quint32, code);
    QFETCH(bool, isKnown);

    const CanOpenDataType *type = CanOpenDataType::find(code);
    QCOMPARE(type != nullptr, isKnown);
    QVERIFY(type == nullptr || !type->hasValue());
}

QTEST_GUILESS_MAIN(tst_NativeValue)
#include "tst_NativeValue.moc"

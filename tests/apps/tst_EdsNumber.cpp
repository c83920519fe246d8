#include "apps/import/EdsNumber.h"

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_EdsNumber : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void number_data();
    void number();
    void noNumber_data();
    void noNumber();
    void unsignedValue_data();
    void unsignedValue();
    void order();
    void sum_data();
    void sum();
};

using eState = EdsNumber::eState;

void tst_EdsNumber::number_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("nodeId");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<bool>("isBitPattern");
    QTest::addColumn<bool>("hasLeadingZeros");

    QTest::newRow("zero") << u"0"_s << 0 << u"0"_s << false << false;
    QTest::newRow("decimal") << u"250"_s << 0 << u"250"_s << false << false;
    QTest::newRow("negative") << u"-3"_s << 0 << u"-3"_s << false << false;
    QTest::newRow("plus sign") << u"+3"_s << 0 << u"3"_s << false << false;
    QTest::newRow("minus zero") << u"-0"_s << 0 << u"0"_s << false << false;
    QTest::newRow("hexadecimal") << u"0x6040"_s << 0 << u"24640"_s << true << false;
    QTest::newRow("hexadecimal, upper X") << u"0XfF"_s << 0 << u"255"_s << true << false;
    QTest::newRow("negative hexadecimal") << u"-0x10"_s << 0 << u"-16"_s << false << false;
    QTest::newRow("hexadecimal with leading zeros") << u"0x0007"_s << 0 << u"7"_s << true << false;
    QTest::newRow("octal") << u"010"_s << 0 << u"8"_s << false << true;
    QTest::newRow("one digit behind zeros") << u"007"_s << 0 << u"7"_s << false << false;
    QTest::newRow("zeros only") << u"0000"_s << 0 << u"0"_s << false << false;
    QTest::newRow("leading zero with an 8") << u"08"_s << 0 << u"8"_s << false << true;
    QTest::newRow("leading zero with a 9") << u"0190"_s << 0 << u"190"_s << false << true;
    QTest::newRow("largest") << u"18446744073709551615"_s << 0 << u"18446744073709551615"_s << false
                             << false;
    QTest::newRow("largest hexadecimal")
        << u"0xFFFFFFFFFFFFFFFF"_s << 0 << u"18446744073709551615"_s << true << false;
    QTest::newRow("smallest of 64 bits")
        << u"-9223372036854775808"_s << 0 << u"-9223372036854775808"_s << false << false;
    QTest::newRow("surrounding blanks") << u" \t5 "_s << 0 << u"5"_s << false << false;
    QTest::newRow("comment behind") << u"5 ; five"_s << 0 << u"5"_s << false << false;
    QTest::newRow("node id") << u"$NODEID"_s << 5 << u"5"_s << false << false;
    QTest::newRow("node id first") << u"$NODEID+0x80"_s << 5 << u"133"_s << false << false;
    QTest::newRow("node id last") << u"0x80+$NODEID"_s << 5 << u"133"_s << false << false;
    QTest::newRow("node id with blanks")
        << u"$NODEID + 0x600"_s << 5 << u"1541"_s << false << false;
    QTest::newRow("node id with one blank")
        << u"$NODEID +0x80"_s << 5 << u"133"_s << false << false;
    QTest::newRow("node id, mixed case") << u"$NodeID+0x80"_s << 5 << u"133"_s << false << false;
    QTest::newRow("node id, lower case") << u"$nodeid+0x80"_s << 5 << u"133"_s << false << false;
    QTest::newRow("node id without dollar") << u"NODEID+0x80"_s << 5 << u"133"_s << false << false;
    QTest::newRow("node id with decimal") << u"$NODEID+128"_s << 127 << u"255"_s << false << false;
    QTest::newRow("node id with high bit")
        << u"$NODEID+0x80000180"_s << 1 << u"2147484033"_s << false << false;
    QTest::newRow("node id taken off") << u"0x80-$NODEID"_s << 5 << u"123"_s << false << false;
    QTest::newRow("three terms") << u"1 + 2 - 4"_s << 0 << u"-1"_s << false << false;
}

void tst_EdsNumber::number()
{
    QFETCH(QString, text);
    QFETCH(int, nodeId);
    QFETCH(QString, expected);
    QFETCH(bool, isBitPattern);
    QFETCH(bool, hasLeadingZeros);

    const EdsNumber number =
        EdsNumber::parse(text, nodeId == 0 ? std::nullopt : std::optional<quint8>(quint8(nodeId)));
    QVERIFY(number.isNumber());
    QCOMPARE(number.value().toText(), expected);
    QCOMPARE(number.isBitPattern(), isBitPattern);
    QCOMPARE(number.hasLeadingZeros(), hasLeadingZeros);
}

void tst_EdsNumber::noNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("state");

    const auto row = [](const char *name, const QString &text, eState state) {
        QTest::newRow(name) << text << int(state);
    };
    row("empty", QString(), eState::Empty);
    row("blanks", u"  \t"_s, eState::Empty);
    row("comment only", u"; none"_s, eState::Empty);
    row("word", u"none"_s, eState::NoNumber);
    row("0x alone", u"0x"_s, eState::NoNumber);
    row("blank behind 0x", u"0x 10"_s, eState::NoNumber);
    row("digit that is none of the base", u"0xG"_s, eState::NoNumber);
    row("hexadecimal digit in a decimal", u"1A"_s, eState::NoNumber);
    row("two numbers", u"1 2"_s, eState::NoNumber);
    row("sign alone", u"-"_s, eState::NoNumber);
    row("two signs", u"--1"_s, eState::NoNumber);
    row("sign behind", u"1+"_s, eState::NoNumber);
    row("fraction", u"1.5"_s, eState::NoNumber);
    row("dollar alone", u"$"_s, eState::NoNumber);
    row("other variable", u"$INDEX+1"_s, eState::NoNumber);
    row("digits of another script", u"\u0665"_s, eState::NoNumber);
    row("beyond 64 bits", u"18446744073709551616"_s, eState::TooLarge);
    row("hexadecimal beyond 64 bits", u"0x10000000000000000"_s, eState::TooLarge);
    row("sum beyond 64 bits", u"18446744073709551615+1"_s, eState::TooLarge);
    row("node id unknown", u"$NODEID+0x80"_s, eState::NodeIdUnknown);
    row("node id unknown, alone", u"$NODEID"_s, eState::NodeIdUnknown);
    row("node id unknown and no number", u"$NODEID+x"_s, eState::NoNumber);
}

void tst_EdsNumber::noNumber()
{
    QFETCH(QString, text);
    QFETCH(int, state);

    const EdsNumber number = EdsNumber::parse(text);
    QCOMPARE(int(number.state()), state);
    QCOMPARE(number.value().toText(), u"0"_s);
}

void tst_EdsNumber::unsignedValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("expected");

    QTest::newRow("within") << u"0x7F"_s << qint64(127);
    QTest::newRow("zero") << u"0"_s << qint64(0);
    QTest::newRow("above") << u"128"_s << qint64(-1);
    QTest::newRow("negative") << u"-1"_s << qint64(-1);
    QTest::newRow("no number") << u"x"_s << qint64(-1);
    QTest::newRow("empty") << QString() << qint64(-1);
}

void tst_EdsNumber::unsignedValue()
{
    QFETCH(QString, text);
    QFETCH(qint64, expected);

    const auto value = EdsNumber::parse(text).unsignedValue(127);
    QCOMPARE(value ? qint64(*value) : qint64(-1), expected);
}

void tst_EdsNumber::order()
{
    const QList<WideInteger> ascending {{~quint64(0), true}, {2, true}, {1, true}, {0, true},
        {1, false}, {2, false}, {~quint64(0), false}};
    for (qsizetype i = 1; i < ascending.size(); ++i) {
        QVERIFY(ascending.at(i - 1) < ascending.at(i));
        QVERIFY(!(ascending.at(i) < ascending.at(i - 1)));
    }
    QVERIFY(WideInteger(0, true) == WideInteger(0, false));
}

void tst_EdsNumber::sum_data()
{
    QTest::addColumn<QString>("a");
    QTest::addColumn<QString>("b");
    QTest::addColumn<QString>("expected");

    QTest::newRow("both positive") << u"2"_s << u"3"_s << u"5"_s;
    QTest::newRow("both negative") << u"-2"_s << u"-3"_s << u"-5"_s;
    QTest::newRow("first larger") << u"5"_s << u"-3"_s << u"2"_s;
    QTest::newRow("second larger") << u"3"_s << u"-5"_s << u"-2"_s;
    QTest::newRow("nothing left") << u"3"_s << u"-3"_s << u"0"_s;
    QTest::newRow("too large") << u"18446744073709551615"_s << u"1"_s << QString();
    QTest::newRow("too small") << u"-18446744073709551615"_s << u"-1"_s << QString();
}

void tst_EdsNumber::sum()
{
    QFETCH(QString, a);
    QFETCH(QString, b);
    QFETCH(QString, expected);

    const auto sum = WideInteger::sum(*WideInteger::fromText(a), *WideInteger::fromText(b));
    QCOMPARE(sum ? sum->toText() : QString(), expected);
}

QTEST_GUILESS_MAIN(tst_EdsNumber)
#include "tst_EdsNumber.moc"

#include "value/NumberText.h"

#include "tests/support/ProcessorTimer.h"

#include <QtTest/QtTest>

#include <cmath>
#include <limits>

class tst_NumberText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isNumber_data();
    void isNumber();
    void toDouble_data();
    void toDouble();
    void toDoubleOfNan_data();
    void toDoubleOfNan();
    void toDoubleIsLinear();
    void appendFixed_data();
    void appendFixed();
    void appendGeneral_data();
    void appendGeneral();
    void appendInteger_data();
    void appendInteger();
    void toInteger_data();
    void toInteger();
    void toIntegerRefuses_data();
    void toIntegerRefuses();
    void toUnsigned_data();
    void toUnsigned();
    void takeDigits_data();
    void takeDigits();
    void toUnsigned32_data();
    void toUnsigned32();
    void toBits_data();
    void toBits();
};

namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double Smallest = std::numeric_limits<double>::denorm_min();

} // namespace

void tst_NumberText::isNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    for (const char *text : {"0", "-1", "+7", " 12.5 ", ".5", "5.", "1e5", "1E-400", "1e400", "inf",
             "-nan", "18446744073709551616"})
        QTest::newRow(text) << QString::fromLatin1(text) << true;
    for (const char *text :
        {"", " ", "-", "+-1", "--1", "1 2", "1,5", "0x", "0x10", "foo", "12foo", "1e", "."})
        QTest::newRow(*text ? text : "empty") << QString::fromLatin1(text) << false;
}

void tst_NumberText::isNumber()
{
    QFETCH(QString, text);
    QTEST(NumberText::isNumber(text), "expected");
}

void tst_NumberText::toDouble_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("value");

    QTest::newRow("empty is 0") << QString() << 0.0;
    QTest::newRow("no number is 0") << QStringLiteral("abc") << 0.0;
    QTest::newRow("integer") << QStringLiteral("42") << 42.0;
    QTest::newRow("decimal") << QStringLiteral("12.5") << 12.5;
    QTest::newRow("point first") << QStringLiteral(".5") << 0.5;
    QTest::newRow("point last") << QStringLiteral("5.") << 5.0;
    QTest::newRow("point alone is 0") << QStringLiteral(".") << 0.0;
    QTest::newRow("plus") << QStringLiteral("+7") << 7.0;
    QTest::newRow("minus") << QStringLiteral("-7") << -7.0;
    QTest::newRow("two signs are 0") << QStringLiteral("+-7") << 0.0;
    QTest::newRow("two minus are 0") << QStringLiteral("--7") << 0.0;
    QTest::newRow("sign alone is 0") << QStringLiteral("-") << 0.0;
    QTest::newRow("sign before no number is 0") << QStringLiteral("-abc") << 0.0;
    QTest::newRow("negative 0") << QStringLiteral("-0") << -0.0;
    QTest::newRow("blank after the sign is 0") << QStringLiteral("- 7") << 0.0;
    QTest::newRow("leading blank") << QStringLiteral(" 7") << 7.0;
    QTest::newRow("leading white space of every kind") << QStringLiteral("\t\n\v\f\r 7") << 7.0;
    QTest::newRow("no-break space is no blank")
        << QString(QChar(0xA0)) + QStringLiteral("7") << 0.0;
    QTest::newRow("trailing text is not read") << QStringLiteral("7 rpm") << 7.0;
    QTest::newRow("second point ends it") << QStringLiteral("1.2.3") << 1.2;
    QTest::newRow("comma ends it") << QStringLiteral("1,5") << 1.0;
    QTest::newRow("exponent") << QStringLiteral("1.5e3") << 1500.0;
    QTest::newRow("capital exponent with sign") << QStringLiteral("1.5E+3") << 1500.0;
    QTest::newRow("negative exponent") << QStringLiteral("15e-1") << 1.5;
    QTest::newRow("exponent without digits is not read") << QStringLiteral("15e") << 15.0;
    QTest::newRow("exponent with sign alone is not read") << QStringLiteral("15e+") << 15.0;
    QTest::newRow("hexadecimal") << QStringLiteral("0x1F") << 31.0;
    QTest::newRow("hexadecimal, capital X") << QStringLiteral("0X1f") << 31.0;
    QTest::newRow("hexadecimal, negative") << QStringLiteral("-0x10") << -16.0;
    QTest::newRow("hexadecimal fraction") << QStringLiteral("0x1.8p3") << 12.0;
    QTest::newRow("hexadecimal point first") << QStringLiteral("0x.8") << 0.5;
    QTest::newRow("hexadecimal exponent without digits") << QStringLiteral("0x8p") << 8.0;
    QTest::newRow("0x alone is the 0 before it") << QStringLiteral("0x") << 0.0;
    QTest::newRow("0x before a point alone") << QStringLiteral("0x.") << 0.0;
    QTest::newRow("0x before inf is 0") << QStringLiteral("0xinf") << 0.0;
    QTest::newRow("hexadecimal tie rounds to even")
        << QStringLiteral("0x20000000000001") << 9007199254740992.0;
    QTest::newRow("inf") << QStringLiteral("inf") << Infinity;
    QTest::newRow("INFINITY") << QStringLiteral("-INFINITY") << -Infinity;
    QTest::newRow("infinit is inf with more") << QStringLiteral("infinit") << Infinity;
    QTest::newRow("overflow") << QStringLiteral("1e309") << Infinity;
    QTest::newRow("negative overflow") << QStringLiteral("-1e309") << -Infinity;
    QTest::newRow("overflow by digits") << QString(400, QLatin1Char('9')) << Infinity;
    QTest::newRow("overflow beyond any exponent")
        << QStringLiteral("1e99999999999999999999") << Infinity;
    QTest::newRow("hexadecimal overflow") << QStringLiteral("0x1p1024") << Infinity;
    QTest::newRow("hexadecimal overflow by digits")
        << QStringLiteral("0x") + QString(300, QLatin1Char('f')) << Infinity;
    QTest::newRow("greatest") << QStringLiteral("1.7976931348623157e308")
                              << std::numeric_limits<double>::max();
    QTest::newRow("underflow") << QStringLiteral("1e-400") << 0.0;
    QTest::newRow("negative underflow") << QStringLiteral("-1e-400") << -0.0;
    QTest::newRow("underflow beyond any exponent")
        << QStringLiteral("1e-99999999999999999999") << 0.0;
    QTest::newRow("underflow by zeros")
        << QStringLiteral("0.") + QString(400, QLatin1Char('0')) + QStringLiteral("1") << 0.0;
    QTest::newRow("hexadecimal underflow") << QStringLiteral("0x1p-1080") << 0.0;
    QTest::newRow("smallest") << QStringLiteral("4.9e-324") << Smallest;
    QTest::newRow("0 with a huge exponent") << QStringLiteral("0e99999999999999999999") << 0.0;
    QTest::newRow("hexadecimal 0 with a huge exponent")
        << QStringLiteral("0x0p99999999999999999999") << 0.0;
    QTest::newRow("digits of another script are none") << QString(QChar(0x0665)) << 0.0;
}

void tst_NumberText::toDouble()
{
    QFETCH(QString, text);
    QFETCH(double, value);
    const double read = NumberText::toDouble(text);
    QVERIFY2(read == value, qPrintable(QString::number(read)));
    QCOMPARE(std::signbit(read), std::signbit(value));
}

void tst_NumberText::toDoubleOfNan_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("negative");
    QTest::newRow("nan") << QStringLiteral("nan") << false;
    QTest::newRow("NaN with payload") << QStringLiteral("NaN(12)") << false;
    QTest::newRow("sign is kept") << QStringLiteral("-nan") << true;
}

void tst_NumberText::toDoubleOfNan()
{
    QFETCH(QString, text);
    const double read = NumberText::toDouble(text);
    QVERIFY(std::isnan(read));
    QTEST(std::signbit(read), "negative");
}

void tst_NumberText::toDoubleIsLinear()
{
    constexpr qsizetype Megabyte = 1 << 20;
    const ProcessorTimer timer;
    QCOMPARE(NumberText::toDouble(QString(Megabyte, QLatin1Char('1'))), Infinity);
    QCOMPARE(NumberText::toDouble(QString(Megabyte, QLatin1Char(' '))), 0.0);
    QCOMPARE(NumberText::toDouble(QString(Megabyte, QLatin1Char('-'))), 0.0);
    QVERIFY(timer.elapsed() < 1000);
}

void tst_NumberText::appendFixed_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("text");

    QTest::newRow("no decimals") << 5.0 << 0 << QStringLiteral("5");
    QTest::newRow("two decimals") << 5.0 << 2 << QStringLiteral("5.00");
    QTest::newRow("a negative precision is 6") << 1.5 << -1 << QStringLiteral("1.500000");
    QTest::newRow("a tie goes to even, down") << 0.5 << 0 << QStringLiteral("0");
    QTest::newRow("a tie goes to even, up") << 1.5 << 0 << QStringLiteral("2");
    QTest::newRow("a tie of decimals goes to even") << 0.125 << 2 << QStringLiteral("0.12");
    QTest::newRow("2.675 lies below the tie") << 2.675 << 2 << QStringLiteral("2.67");
    QTest::newRow("carries") << 9.99 << 1 << QStringLiteral("10.0");
    QTest::newRow("negative") << -1.25 << 1 << QStringLiteral("-1.2");
    QTest::newRow("negative 0") << -0.0 << 1 << QStringLiteral("-0.0");
    QTest::newRow("negative that rounds to 0") << -0.01 << 1 << QStringLiteral("-0.0");
    QTest::newRow("all digits of a large number")
        << 1e22 << 0 << QStringLiteral("10000000000000000000000");
    QTest::newRow("infinite") << Infinity << 2 << QStringLiteral("inf");
    QTest::newRow("negative infinite") << -Infinity << 2 << QStringLiteral("-inf");
    QTest::newRow("not a number") << std::nan("") << 2 << QStringLiteral("nan");
    QTest::newRow("precision 1100 is printed")
        << 1.0 << 1100 << QStringLiteral("1.") + QString(1100, QLatin1Char('0'));
    QTest::newRow("precision 1101 is 1100")
        << 1.0 << 1101 << QStringLiteral("1.") + QString(1100, QLatin1Char('0'));
    QTest::newRow("the greatest precision is 1100")
        << 1.0 << std::numeric_limits<int>::max()
        << QStringLiteral("1.") + QString(1100, QLatin1Char('0'));
}

void tst_NumberText::appendFixed()
{
    QFETCH(double, value);
    QFETCH(int, precision);
    QString printed = QStringLiteral("x");
    NumberText::appendFixed(printed, value, precision);
    QFETCH(QString, text);
    QCOMPARE(printed, QStringLiteral("x") + text);
}

void tst_NumberText::appendGeneral_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("precision");
    QTest::addColumn<QString>("text");

    QTest::newRow("fits") << 12.5 << 3 << QStringLiteral("12.5");
    QTest::newRow("trailing zeros are not printed") << 12.0 << 5 << QStringLiteral("12");
    QTest::newRow("exponent from the precision on") << 1234.0 << 3 << QStringLiteral("1.23E+03");
    QTest::newRow("exponent at the precision") << 1000.0 << 3 << QStringLiteral("1E+03");
    QTest::newRow("0.0001 has none") << 0.0001 << 3 << QStringLiteral("0.0001");
    QTest::newRow("0.00001 has one") << 0.00001 << 3 << QStringLiteral("1E-05");
    QTest::newRow("precision 0 is 1") << 12.0 << 0 << QStringLiteral("1E+01");
    QTest::newRow("a negative precision is 6") << 1.23456789 << -1 << QStringLiteral("1.23457");
    QTest::newRow("0") << 0.0 << 3 << QStringLiteral("0");
    QTest::newRow("negative 0") << -0.0 << 3 << QStringLiteral("-0");
    QTest::newRow("infinite") << Infinity << 3 << QStringLiteral("INF");
    QTest::newRow("negative infinite") << -Infinity << 3 << QStringLiteral("-INF");
    QTest::newRow("not a number") << std::nan("") << 3 << QStringLiteral("NAN");
    QTest::newRow("precision 1100 prints no zeros") << 0.5 << 1100 << QStringLiteral("0.5");
}

void tst_NumberText::appendGeneral()
{
    QFETCH(double, value);
    QFETCH(int, precision);
    QString printed = QStringLiteral("x");
    NumberText::appendGeneral(printed, value, precision);
    QFETCH(QString, text);
    QCOMPARE(printed, QStringLiteral("x") + text);
}

void tst_NumberText::appendInteger_data()
{
    QTest::addColumn<qint64>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << qint64(0) << QStringLiteral("0");
    QTest::newRow("negative") << qint64(-5) << QStringLiteral("-5");
    QTest::newRow("lowest") << std::numeric_limits<qint64>::min()
                            << QStringLiteral("-9223372036854775808");
    QTest::newRow("greatest") << std::numeric_limits<qint64>::max()
                              << QStringLiteral("9223372036854775807");
}

void tst_NumberText::appendInteger()
{
    QFETCH(qint64, value);
    QString printed = QStringLiteral("x");
    NumberText::appendInteger(printed, value);
    QFETCH(QString, text);
    QCOMPARE(printed, QStringLiteral("x") + text);
}

void tst_NumberText::toInteger_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("value");
    QTest::newRow("digits") << QStringLiteral("42") << qint64(42);
    QTest::newRow("plus") << QStringLiteral("+42") << qint64(42);
    QTest::newRow("minus") << QStringLiteral("-42") << qint64(-42);
    QTest::newRow("blanks around") << QStringLiteral(" 42 ") << qint64(42);
    QTest::newRow("leading zeros") << QStringLiteral("0042") << qint64(42);
    QTest::newRow("greatest") << QStringLiteral("9223372036854775807")
                              << std::numeric_limits<qint64>::max();
    QTest::newRow("lowest") << QStringLiteral("-9223372036854775808")
                            << std::numeric_limits<qint64>::min();
}

void tst_NumberText::toInteger()
{
    QFETCH(QString, text);
    QFETCH(qint64, value);
    QCOMPARE(NumberText::toInteger(text), std::optional(value));
}

void tst_NumberText::toIntegerRefuses_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("sign alone") << QStringLiteral("+");
    QTest::newRow("two signs") << QStringLiteral("+-4");
    QTest::newRow("fraction") << QStringLiteral("4.0");
    QTest::newRow("exponent") << QStringLiteral("4e1");
    QTest::newRow("trailing text") << QStringLiteral("4 A");
    QTest::newRow("no ASCII digit") << QString(QChar(0x0664));
    QTest::newRow("above 64 bits") << QStringLiteral("9223372036854775808");
    QTest::newRow("below 64 bits") << QStringLiteral("-9223372036854775809");
}

void tst_NumberText::toIntegerRefuses()
{
    QFETCH(QString, text);
    QCOMPARE(NumberText::toInteger(text), std::nullopt);
}

void tst_NumberText::toUnsigned_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<quint64>("value");
    QTest::newRow("0") << QStringLiteral("0") << true << quint64(0);
    QTest::newRow("greatest") << QStringLiteral("18446744073709551615") << true
                              << std::numeric_limits<quint64>::max();
    QTest::newRow("one more") << QStringLiteral("18446744073709551616") << false << quint64(0);
    QTest::newRow("negative") << QStringLiteral("-1") << false << quint64(0);
    QTest::newRow("no number") << QStringLiteral("abc") << false << quint64(0);
}

void tst_NumberText::toUnsigned()
{
    QFETCH(QString, text);
    QFETCH(bool, accepted);
    QFETCH(quint64, value);
    const std::optional<quint64> read = NumberText::toUnsigned(text);
    QCOMPARE(read.has_value(), accepted);
    QCOMPARE(read.value_or(0), value);
}

void tst_NumberText::takeDigits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("mostDigits");
    QTest::addColumn<std::optional<quint32>>("number");
    QTest::addColumn<QString>("rest");
    const auto row = [](const char *name, const QString &text, qsizetype mostDigits,
                         std::optional<quint32> number, const QString &rest) {
        QTest::newRow(name) << text << mostDigits << number << rest;
    };
    row("all", QStringLiteral("255"), 3, 255U, QString());
    row("up to another character", QStringLiteral("05m"), 2, 5U, QStringLiteral("m"));
    row("the most and no more", QStringLiteral("1234"), 3, 123U, QStringLiteral("4"));
    row("zeros count as digits", QStringLiteral("0001"), 3, 0U, QStringLiteral("1"));
    row("nine digits", QStringLiteral("999999999"), 9, 999999999U, QString());
    row("no digit", QStringLiteral("h"), 5, std::nullopt, QStringLiteral("h"));
    row("no text", QString(), 5, std::nullopt, QString());
    row("a blank is none", QStringLiteral(" 1"), 5, std::nullopt, QStringLiteral(" 1"));
    row("a sign is none", QStringLiteral("-1"), 5, std::nullopt, QStringLiteral("-1"));
    row("of another script none", QString(QChar(0x0665)), 5, std::nullopt, QString(QChar(0x0665)));
}

void tst_NumberText::takeDigits()
{
    QFETCH(QString, text);
    QFETCH(qsizetype, mostDigits);
    QStringView rest = text;
    QTEST(NumberText::takeDigits(rest, mostDigits), "number");
    QTEST(rest.toString(), "rest");
}

void tst_NumberText::toUnsigned32_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("value");
    QTest::newRow("greatest") << QStringLiteral("4294967295") << 4294967295U;
    QTest::newRow("one more is 0") << QStringLiteral("4294967296") << 0U;
    QTest::newRow("negative is 0") << QStringLiteral("-1") << 0U;
    QTest::newRow("no number is 0") << QStringLiteral("abc") << 0U;
}

void tst_NumberText::toUnsigned32()
{
    QFETCH(QString, text);
    QTEST(NumberText::toUnsigned32(text), "value");
}

void tst_NumberText::toBits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint64>("value");
    QTest::newRow("unsigned") << QStringLiteral("18446744073709551615")
                              << std::numeric_limits<quint64>::max();
    QTest::newRow("negative in two's complement")
        << QStringLiteral("-2") << quint64(0xFFFFFFFFFFFFFFFE);
    QTest::newRow("lowest") << QStringLiteral("-9223372036854775808")
                            << quint64(0x8000000000000000);
    QTest::newRow("beyond 64 bits is 0") << QStringLiteral("18446744073709551616") << quint64(0);
    QTest::newRow("no number is 0") << QStringLiteral("1.5") << quint64(0);
}

void tst_NumberText::toBits()
{
    QFETCH(QString, text);
    QTEST(NumberText::toBits(text), "value");
}

QTEST_APPLESS_MAIN(tst_NumberText)
#include "tst_NumberText.moc"

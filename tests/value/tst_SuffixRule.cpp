#include "value/SuffixRule.h"

#include "tests/support/ProcessorTimer.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

using SuffixRule::eFormat;

class tst_SuffixRule : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void apply_data();
    void apply();
    void answersLikeThePattern();
    void applyIsLinear();
};

namespace {

int decimal()
{
    return int(eFormat::Decimal);
}

int hexadecimal()
{
    return int(eFormat::Hexadecimal);
}

int binary()
{
    return int(eFormat::Binary);
}

} // namespace

void tst_SuffixRule::apply_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("requested");
    QTest::addColumn<int>("format");
    QTest::addColumn<QString>("text");

    QTest::newRow("no suffix, decimal")
        << QStringLiteral("12") << decimal() << decimal() << QStringLiteral("12");
    QTest::newRow("no suffix, binary")
        << QStringLiteral("12") << binary() << binary() << QStringLiteral("12");
    QTest::newRow("hex") << QStringLiteral("1f hex") << decimal() << hexadecimal()
                         << QStringLiteral("1f ");
    QTest::newRow("bin") << QStringLiteral("01 bin") << hexadecimal() << binary()
                         << QStringLiteral("01 ");
    QTest::newRow("dec") << QStringLiteral("12 dec") << hexadecimal() << decimal()
                         << QStringLiteral("12 ");
    // Deliberate: "dec" may be hexadecimal digits, yet it is the suffix.
    QTest::newRow("0xdec is decimal 0x")
        << QStringLiteral("0xdec") << hexadecimal() << decimal() << QStringLiteral("0x");
    // Deliberate: unanchored, so that the text behind the suffix is dropped.
    QTest::newRow("text behind the suffix is dropped")
        << QStringLiteral("1f hex or so") << decimal() << hexadecimal() << QStringLiteral("1f ");
    QTest::newRow("the last suffix counts")
        << QStringLiteral("1 hex 2 bin") << decimal() << binary() << QStringLiteral("1 hex 2 ");
    QTest::newRow("the last of the same")
        << QStringLiteral("1hex2hex3") << decimal() << hexadecimal() << QStringLiteral("1hex2");
    QTest::newRow("case counts") << QStringLiteral("1f HEX") << decimal() << decimal()
                                 << QStringLiteral("1f HEX");
    QTest::newRow("suffix alone") << QStringLiteral("hex") << decimal() << hexadecimal()
                                  << QString();
    QTest::newRow("empty") << QString() << hexadecimal() << hexadecimal() << QString();
    QTest::newRow("part of a suffix")
        << QStringLiteral("he") << decimal() << decimal() << QStringLiteral("he");
    QTest::newRow("only the line of the suffix is read")
        << QStringLiteral("1\n2 hex") << decimal() << hexadecimal() << QStringLiteral("2 ");
    QTest::newRow("the first line with a suffix counts")
        << QStringLiteral("1 hex\n2 bin") << decimal() << hexadecimal() << QStringLiteral("1 ");
    QTest::newRow("a carriage return ends no line")
        << QStringLiteral("1\r2 hex") << decimal() << hexadecimal() << QStringLiteral("1\r2 ");
    QTest::newRow("a suffix across lines is none")
        << QStringLiteral("1 he\nx") << decimal() << decimal() << QStringLiteral("1 he\nx");
}

void tst_SuffixRule::apply()
{
    QFETCH(QString, typed);
    QFETCH(int, requested);
    const SuffixRule::Number number = SuffixRule::apply(typed, eFormat(requested));
    QTEST(int(number.format), "format");
    QTEST(number.text.toString(), "text");
}

void tst_SuffixRule::answersLikeThePattern()
{
    const QRegularExpression pattern(QStringLiteral("(.*)(hex|bin|dec)"));
    const QStringList pieces {QStringLiteral("hex"), QStringLiteral("bin"), QStringLiteral("dec"),
        QStringLiteral("h"), QStringLiteral("e"), QStringLiteral("x"), QStringLiteral("0"),
        QStringLiteral(" "), QStringLiteral("\n"), QStringLiteral("\r"), QString(QChar(0x2028)),
        QString(QChar(0x85)), QString(QChar(0)), QStringLiteral("ä")};
    QRandomGenerator random(1);
    for (int round = 0; round < 20000; ++round) {
        QString typed;
        for (int piece = random.bounded(8); piece > 0; --piece)
            typed += pieces[random.bounded(int(pieces.size()))];
        const SuffixRule::Number number = SuffixRule::apply(typed, eFormat::Decimal);
        const QRegularExpressionMatch match = pattern.match(typed);
        const QString suffix = match.captured(2);
        const eFormat format = suffix == QStringLiteral("hex") ? eFormat::Hexadecimal
            : suffix == QStringLiteral("bin")                  ? eFormat::Binary
                                                               : eFormat::Decimal;
        QCOMPARE(int(number.format), int(format));
        QCOMPARE(number.text.toString(), match.hasMatch() ? match.captured(1) : typed);
    }
}

void tst_SuffixRule::applyIsLinear()
{
    constexpr qsizetype Megabyte = 1 << 20;
    const QString zeros(Megabyte, QLatin1Char('0'));
    const QString lines(Megabyte, QLatin1Char('\n'));
    const QString almost = QStringLiteral("hex").repeated(Megabyte / 3);
    const QString broken = QStringLiteral("he\n").repeated(Megabyte / 3);
    const QString ends = QStringLiteral("x\n").repeated(Megabyte / 2);
    const ProcessorTimer timer;
    QCOMPARE(SuffixRule::apply(almost, eFormat::Binary).text.size(), almost.size() - 3);
    QCOMPARE(SuffixRule::apply(broken, eFormat::Binary).text.size(), broken.size());
    QCOMPARE(SuffixRule::apply(ends, eFormat::Binary).text.size(), ends.size());
    QCOMPARE(SuffixRule::apply(zeros, eFormat::Binary).text.size(), Megabyte);
    QCOMPARE(SuffixRule::apply(lines, eFormat::Binary).text.size(), Megabyte);
    QVERIFY(timer.elapsed() < 100);
}

QTEST_APPLESS_MAIN(tst_SuffixRule)
#include "tst_SuffixRule.moc"

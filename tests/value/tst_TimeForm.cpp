#include "value/TimeForm.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

class tst_TimeForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void show_data();
    void show();
    void read_data();
    void read();
    void readAnswersLikeThePattern();
};

void tst_TimeForm::show_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("0") << QStringLiteral("0") << QStringLiteral("0h 00m 00s");
    QTest::newRow("2 hours, 5 minutes, 7 seconds")
        << QStringLiteral("8519") << QStringLiteral("2h 05m 07s");
    QTest::newRow("two digits") << QStringLiteral("44763") << QStringLiteral("10h 59m 27s");
    QTest::newRow("fields above 59 are shown")
        << QStringLiteral("4095") << QStringLiteral("0h 63m 63s");
    QTest::newRow("greatest") << QStringLiteral("4294967295") << QStringLiteral("1048575h 63m 63s");
    QTest::newRow("beyond 32 bits is 0")
        << QStringLiteral("4294967296") << QStringLiteral("0h 00m 00s");
    QTest::newRow("negative is 0") << QStringLiteral("-1") << QStringLiteral("0h 00m 00s");
    QTest::newRow("no number is 0") << QStringLiteral("abc") << QStringLiteral("0h 00m 00s");
}

void tst_TimeForm::show()
{
    QFETCH(QString, value);
    QTEST(TimeForm::show(value), "text");
}

void tst_TimeForm::read_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("all parts") << QStringLiteral("2h 05m 07s") << QStringLiteral("8519");
    QTest::newRow("without blanks") << QStringLiteral("2h5m7s") << QStringLiteral("8519");
    QTest::newRow("hours alone") << QStringLiteral("2h") << QStringLiteral("8192");
    QTest::newRow("minutes alone") << QStringLiteral("5m") << QStringLiteral("320");
    QTest::newRow("seconds alone") << QStringLiteral("7s") << QStringLiteral("7");
    QTest::newRow("hours and seconds") << QStringLiteral("2h 7s") << QStringLiteral("8199");
    QTest::newRow("a letter alone is 0 of it") << QStringLiteral("h m s") << QStringLiteral("0");
    QTest::newRow("seconds carry") << QStringLiteral("60s") << QStringLiteral("64");
    QTest::newRow("99 seconds") << QStringLiteral("99s") << QStringLiteral("103");
    QTest::newRow("minutes carry") << QStringLiteral("60m") << QStringLiteral("4096");
    QTest::newRow("both carry") << QStringLiteral("0h 59m 60s") << QStringLiteral("4096");
    QTest::newRow("greatest") << QStringLiteral("99999h 99m 99s") << QStringLiteral("409602599");
    QTest::newRow("five digits of hours")
        << QStringLiteral("99999h") << QStringLiteral("409595904");
    QTest::newRow("six digits are no hours") << QStringLiteral("100000h") << QStringLiteral("0");
    QTest::newRow("three digits are no minutes") << QStringLiteral("100m") << QStringLiteral("0");
    QTest::newRow("leading blank stands before minutes")
        << QStringLiteral(" 5m") << QStringLiteral("320");
    QTest::newRow("leading blank hides hours") << QStringLiteral(" 2h") << QStringLiteral("0");
    QTest::newRow("two leading blanks stand before seconds")
        << QStringLiteral("  7s") << QStringLiteral("7");
    QTest::newRow("two leading blanks hide minutes")
        << QStringLiteral("  5m") << QStringLiteral("0");
    QTest::newRow("wrong order ends it") << QStringLiteral("7s 5m") << QStringLiteral("7");
    QTest::newRow("what follows is not read")
        << QStringLiteral("2h 5m 7s later") << QStringLiteral("8519");
    // Deliberate: a text without any part is the time 0.
    QTest::newRow("no part") << QStringLiteral("abc") << QStringLiteral("0");
    QTest::newRow("number without letter") << QStringLiteral("12") << QStringLiteral("0");
    QTest::newRow("empty") << QString() << QStringLiteral("0");
}

void tst_TimeForm::read()
{
    QFETCH(QString, typed);
    QTEST(TimeForm::read(typed), "value");
}

void tst_TimeForm::readAnswersLikeThePattern()
{
    const QRegularExpression pattern(
        QStringLiteral("^(([0-9]{0,5})h)?[ ]?(([0-9]{0,2})m)?[ ]?(([0-9]{0,2})s)?"));
    const QStringList pieces {QStringLiteral("h"), QStringLiteral("m"), QStringLiteral("s"),
        QStringLiteral("9"), QStringLiteral("61"), QStringLiteral("123"), QStringLiteral(" "),
        QStringLiteral("\n"), QString(QChar(0x0665))};
    QRandomGenerator random(1);
    for (int round = 0; round < 50000; ++round) {
        QString typed;
        for (int piece = random.bounded(9); piece > 0; --piece)
            typed += pieces[random.bounded(int(pieces.size()))];
        const QRegularExpressionMatch match = pattern.match(typed);
        const quint32 time = match.captured(2).toUInt() * 3600 + match.captured(4).toUInt() * 60
            + match.captured(6).toUInt();
        const quint32 value = time / 3600 * 4096 + time / 60 % 60 * 64 + time % 60;
        QCOMPARE(TimeForm::read(typed), QString::number(value));
    }
}

QTEST_APPLESS_MAIN(tst_TimeForm)
#include "tst_TimeForm.moc"

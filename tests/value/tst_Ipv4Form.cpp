#include "value/Ipv4Form.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

class tst_Ipv4Form : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void show_data();
    void show();
    void read_data();
    void read();
    void readRefuses_data();
    void readRefuses();
    void readAnswersLikeThePattern();
};

void tst_Ipv4Form::show_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("most significant byte first")
        << QStringLiteral("3232235521") << QStringLiteral("192.168.0.1");
    QTest::newRow("0") << QStringLiteral("0") << QStringLiteral("0.0.0.0");
    QTest::newRow("greatest") << QStringLiteral("4294967295") << QStringLiteral("255.255.255.255");
    QTest::newRow("beyond 32 bits is 0")
        << QStringLiteral("4294967296") << QStringLiteral("0.0.0.0");
    QTest::newRow("negative is 0") << QStringLiteral("-1") << QStringLiteral("0.0.0.0");
    QTest::newRow("no number is 0") << QStringLiteral("abc") << QStringLiteral("0.0.0.0");
}

void tst_Ipv4Form::show()
{
    QFETCH(QString, value);
    QTEST(Ipv4Form::show(value), "text");
}

void tst_Ipv4Form::read_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("address") << QStringLiteral("192.168.0.1") << QStringLiteral("3232235521");
    QTest::newRow("greatest") << QStringLiteral("255.255.255.255") << QStringLiteral("4294967295");
    QTest::newRow("padded parts are decimal")
        << QStringLiteral("010.000.000.009") << QStringLiteral("167772169");
    QTest::newRow("blanks are dropped")
        << QStringLiteral(" 1 0 . 0.0. 9 ") << QStringLiteral("167772169");
    // Deliberate: anchored at the start only.
    QTest::newRow("what follows is not read")
        << QStringLiteral("10.0.0.9/24") << QStringLiteral("167772169");
    QTest::newRow("a fifth part is not read")
        << QStringLiteral("10.0.0.9.8") << QStringLiteral("167772169");
    QTest::newRow("a fourth digit is not read")
        << QStringLiteral("10.0.0.0091") << QStringLiteral("167772169");
}

void tst_Ipv4Form::read()
{
    QFETCH(QString, typed);
    QFETCH(QString, value);
    QCOMPARE(Ipv4Form::read(typed), std::optional(value));
}

void tst_Ipv4Form::readRefuses_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("first part 256") << QStringLiteral("256.0.0.0");
    QTest::newRow("last part 256") << QStringLiteral("0.0.0.256");
    QTest::newRow("part 999") << QStringLiteral("0.999.0.0");
    QTest::newRow("three parts") << QStringLiteral("1.2.3");
    QTest::newRow("three parts and a point") << QStringLiteral("1.2.3.");
    QTest::newRow("empty part") << QStringLiteral("1..2.3");
    QTest::newRow("four digits before a point") << QStringLiteral("0001.2.3.4");
    QTest::newRow("text before it") << QStringLiteral("x1.2.3.4");
    QTest::newRow("number") << QStringLiteral("3232235521");
    QTest::newRow("tabulator") << QStringLiteral("1.2.\t3.4");
}

void tst_Ipv4Form::readRefuses()
{
    QFETCH(QString, typed);
    QCOMPARE(Ipv4Form::read(typed), std::nullopt);
}

void tst_Ipv4Form::readAnswersLikeThePattern()
{
    const QRegularExpression pattern(
        QStringLiteral("^([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})\\.([0-9]{1,3})"));
    const QStringList pieces {QStringLiteral("."), QStringLiteral("1."), QStringLiteral("25"),
        QStringLiteral("255."), QStringLiteral("6"), QStringLiteral("0.0."), QStringLiteral(" "),
        QStringLiteral("\n"), QString(QChar(0x0665))};
    QRandomGenerator random(1);
    for (int round = 0; round < 50000; ++round) {
        QString typed;
        for (int piece = random.bounded(9); piece > 0; --piece)
            typed += pieces[random.bounded(int(pieces.size()))];
        const QRegularExpressionMatch match =
            pattern.match(QString(typed).remove(QLatin1Char(' ')));
        bool accepted = match.hasMatch();
        quint32 value = 0;
        for (int part = 1; part <= 4; ++part) {
            const quint32 number = match.captured(part).toUInt();
            accepted = accepted && number < 256;
            value = value * 256 + number;
        }
        QCOMPARE(
            Ipv4Form::read(typed), accepted ? std::optional(QString::number(value)) : std::nullopt);
    }
}

QTEST_APPLESS_MAIN(tst_Ipv4Form)
#include "tst_Ipv4Form.moc"

#include "apps/host/Rfc4180Text.h"

#include <QtTest/QtTest>

class tst_Rfc4180Text : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void row_data();
    void row();
    void formula_data();
    void formula();
};

void tst_Rfc4180Text::row_data()
{
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QByteArray>("row");
    const auto one = [](const char *text) { return QStringList {QString::fromUtf8(text)}; };
    QTest::newRow("no field") << QStringList() << QByteArray("\r\n");
    QTest::newRow("empty field") << one("") << QByteArray("\"\"\r\n");
    QTest::newRow("several") << QStringList {QStringLiteral("a"), QStringLiteral("b")}
                             << QByteArray("\"a\",\"b\"\r\n");
    QTest::newRow("quote is doubled") << one("say \"hi\"") << QByteArray("\"say \"\"hi\"\"\"\r\n");
    QTest::newRow("comma stays") << one("a,b") << QByteArray("\"a,b\"\r\n");
    QTest::newRow("line ends stay") << one("a\r\nb") << QByteArray("\"a\r\nb\"\r\n");
    QTest::newRow("beyond Latin-1 as UTF-8")
        << one("°€") << QByteArray("\"\xC2\xB0\xE2\x82\xAC\"\r\n");
    QTest::newRow("formula gets an apostrophe") << one("=1+2") << QByteArray("\"'=1+2\"\r\n");
    QTest::newRow("apostrophe gets one more") << one("'a") << QByteArray("\"''a\"\r\n");
    QTest::newRow("number with unit stays") << one("-5.0 A") << QByteArray("\"-5.0 A\"\r\n");
}

void tst_Rfc4180Text::row()
{
    QFETCH(QStringList, fields);
    QFETCH(QByteArray, row);
    QCOMPARE(Rfc4180Text::row(fields), row);
}

void tst_Rfc4180Text::formula_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isFormula");
    for (const char *text :
        {"", "a", "1", "a=b", "-", "+", "-5", "+5", "-5.25", "-5,25", "-1E3", "-1.5e-12", "-1E+3 A",
            "-250.000 mm", "-5 °C", "-3 10^n s", "-5 %", "-5 m/s²", "-5 1/min", " =1", "'=1"})
        QTest::addRow("none: \"%s\"", text) << QString::fromUtf8(text) << false;
    for (const char *text : {"=", "=1+2", "@SUM(A1)", "\t=1", "\r=1", "\n=1", "-a", "--5", "-1+1",
             "-1+cmd|' /C calc'!A0", "-1 +A1", "-1E", "-1E+", "-5 ", "+A1", "-1-A1", "-5 A(1)",
             "-1 A\"", "-<offline>", "-1 /A1", "+1 /B2", "-1 ^A1", "-1 ·A1", "-1  /A1", "-1 A1",
             "-1 1/R1C1", "-1 /min", "-1 LOG10", "-1 a٣"})
        QTest::addRow("formula: \"%s\"", text) << QString::fromUtf8(text) << true;
}

void tst_Rfc4180Text::formula()
{
    QFETCH(QString, text);
    QFETCH(bool, isFormula);
    QCOMPARE(Rfc4180Text::isFormula(text), isFormula);
}

QTEST_GUILESS_MAIN(tst_Rfc4180Text)
#include "tst_Rfc4180Text.moc"

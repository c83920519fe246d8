#include "apps/online/CarriedText.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QTest>

class tst_CarriedText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isCarried_data();
    void isCarried();
    void isNotCarried_data();
    void isNotCarried();
    void saysWhatIsWanted_data();
    void saysWhatIsWanted();
};

namespace {

const SimpleType *typeOf(const char *name)
{
    return DatatypeProvider::instance()->simpleType(QString::fromLatin1(name));
}

void addRow(const char *name, const char *type, const QString &text)
{
    QTest::addRow("%s: %s", type, name) << QByteArray(type) << text;
}

void addRow(const char *name, const char *type, const char *text)
{
    addRow(name, type, QString::fromUtf8(text));
}

} // namespace

void tst_CarriedText::isCarried_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("text");

    addRow("the least", "UINT8", "0");
    addRow("the greatest", "UINT8", "255");
    addRow("the greatest", "UINT16", "65535");
    addRow("the greatest", "UINT32", "4294967295");
    addRow("the greatest", "UINT64", "18446744073709551615");
    addRow("the least", "INT8", "-128");
    addRow("the greatest", "INT8", "127");
    addRow("the least", "INT16", "-32768");
    addRow("the least", "INT64", "-9223372036854775808");
    addRow("the greatest", "INT64", "9223372036854775807");
    addRow("leading zeros", "UINT16", "007");
    addRow("a fraction", "REAL32", "1.50");
    addRow("what is rounded", "REAL32", "0.123456789012");
    addRow("the greatest", "REAL32", "3.4028234663852886e38");
    addRow("the least above zero", "REAL32", "1.4e-45");
    addRow("zero", "REAL32", "-0.0");
    addRow("no number that a drive may have", "REAL32", "nan");
    addRow("without end", "REAL32", "-inf");
    addRow("the greatest", "REAL64", "1.7976931348623157e308");
    addRow("the least above zero", "REAL64", "5e-324");
    addRow("nothing", "STRING8", "");
    addRow("a full field", "STRING8", "abcdefgh");
    addRow("the last letter", "STRING8", "Größe\xc3\xbf");
    addRow("nothing", "BYTES4", "");
    addRow("fewer", "BYTES4", "0a");
    addRow("a full field", "BYTES4", "DEADbeef");
}

void tst_CarriedText::isCarried()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, text);

    QVERIFY(CarriedText::isCarried(text, *typeOf(type.constData())));
}

void tst_CarriedText::isNotCarried_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("text");

    for (const char *type : {"UINT8", "INT16", "UINT64", "INT64", "REAL32", "REAL64"}) {
        addRow("nothing", type, "");
        addRow("a blank", type, " ");
        addRow("letters", type, "abc");
        addRow("a number with a unit", type, "5 A");
        addRow("a decimal comma", type, "1,5");
    }
    for (const char *type : {"UINT8", "INT16", "UINT64", "INT64"}) {
        addRow("a fraction", type, "1.5");
        addRow("a whole number with a point", type, "1.0");
        addRow("hexadecimal digits", type, "0x10");
    }
    addRow("below the least", "UINT8", "-1");
    addRow("above the greatest", "UINT8", "256");
    addRow("above the greatest", "UINT16", "70000");
    addRow("above the greatest", "UINT32", "4294967296");
    addRow("above the greatest", "UINT64", "18446744073709551616");
    addRow("below the least", "INT8", "-129");
    addRow("above the greatest", "INT8", "128");
    addRow("below the least", "INT16", "-32769");
    addRow("below the least", "INT64", "-9223372036854775809");
    addRow("above the greatest", "INT64", "9223372036854775808");
    addRow("above the greatest", "REAL32", "3.5e38");
    addRow("what becomes zero", "REAL32", "1e-46");
    addRow("above the greatest", "REAL64", "1.8e308");
    addRow("one too many", "STRING8", "abcdefghi");
    addRow("a letter beyond Latin-1", "STRING8", "5 €");
    addRow("a zero within", "STRING8", QString(QChar(0)));
    addRow("an odd digit", "BYTES4", "abc");
    addRow("no digits", "BYTES4", "0x0a");
    addRow("a blank", "BYTES4", "0a 0 ");
    addRow("one too many", "BYTES4", "0102030405");
}

void tst_CarriedText::isNotCarried()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, text);

    QVERIFY(!CarriedText::isCarried(text, *typeOf(type.constData())));
}

void tst_CarriedText::saysWhatIsWanted_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *type, const char *text) {
        QTest::newRow(type) << QByteArray(type) << QString::fromUtf8(text);
    };
    row("UINT16", "eine ganze Zahl von 0 bis 65535");
    row("UINT64", "eine ganze Zahl von 0 bis 18446744073709551615");
    row("INT8", "eine ganze Zahl von -128 bis 127");
    row("INT64", "eine ganze Zahl von -9223372036854775808 bis 9223372036854775807");
    row("REAL32", "eine Zahl mit 32 Bit");
    row("STRING8", "höchstens 8 Zeichen aus Latin-1");
    row("BYTES4", "höchstens 4 Bytes, je zwei hexadezimale Ziffern");
}

void tst_CarriedText::saysWhatIsWanted()
{
    QFETCH(QByteArray, type);
    QFETCH(QString, text);

    QCOMPARE(CarriedText::wanted(*typeOf(type.constData())), text);
}

QTEST_GUILESS_MAIN(tst_CarriedText)
#include "tst_CarriedText.moc"

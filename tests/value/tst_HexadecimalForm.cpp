#include "value/HexadecimalForm.h"

#include "DigitForms.h"

class tst_HexadecimalForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void show_data();
    void show();
    void read_data();
    void read();
    void readRefuses_data();
    void readRefuses();
    void readAnswersLikeThePattern();
    void readIsLinear_data();
    void readIsLinear();
};

void tst_HexadecimalForm::show_data()
{
    DigitForms::addShowRows({
        {"1 byte", "UINT8", "255", "ff hex"},
        {"1 byte, padded", "UINT8", "10", "0a hex"},
        {"1 byte, low 8 bits", "UINT8", "511", "ff hex"},
        {"2 bytes", "UINT16", "255", "00ff hex"},
        {"2 bytes, low 16 bits", "UINT16", "65537", "0001 hex"},
        {"4 bytes", "UINT32", "3735928559", "deadbeef hex"},
        {"4 bytes, low 32 bits", "UINT32", "4294967297", "00000001 hex"},
        {"8 bytes", "UINT64", "255", "00000000000000ff hex"},
        // Deliberate: an 8-byte value shows only its low 32 bits.
        {"8 bytes, low 32 bits", "UINT64", "4294967296", "0000000000000000 hex"},
        {"8 bytes, greatest", "UINT64", "18446744073709551615", "00000000ffffffff hex"},
        {"1 byte, negative", "INT8", "-1", "ff hex"},
        {"1 byte, lowest", "INT8", "-128", "80 hex"},
        {"2 bytes, negative", "INT16", "-2", "fffe hex"},
        {"4 bytes, negative", "INT32", "-1", "ffffffff hex"},
        {"8 bytes, negative", "INT64", "-1", "00000000ffffffff hex"},
        {"negative text of an unsigned type", "UINT16", "-1", "ffff hex"},
        {"0", "UINT16", "0", "0000 hex"},
        {"no number is 0", "UINT16", "abc", "0000 hex"},
        {"beyond 64 bits is 0", "UINT16", "18446744073709551616", "0000 hex"},
        {"3 bytes as they stand", "UINT24", "255", "255"},
        {"floating point as it stands", "REAL64", "12.5", "12.5"},
        {"character string as it stands", "STRING8", "abc", "abc"},
        {"byte string as it stands", "BYTES4", "0102", "0102"},
        {"unknown type as it stands", "", "255", "255"},
    });
}

void tst_HexadecimalForm::show()
{
    DigitForms::checkShow(&HexadecimalForm::show);
}

void tst_HexadecimalForm::read_data()
{
    DigitForms::addReadRows({
        {"digits", "UINT16", QStringLiteral("ff"), "255"},
        {"capital digits", "UINT16", QStringLiteral("FF"), "255"},
        {"prefix", "UINT16", QStringLiteral("0xff"), "255"},
        {"prefix and blank", "UINT16", QStringLiteral("0x ff"), "255"},
        {"blanks between", "UINT32", QStringLiteral("de ad be ef"), "3735928559"},
        {"blanks around", "UINT16", QStringLiteral(" ff  "), "255"},
        {"blank after the prefix is 0", "UINT16", QStringLiteral("0x "), "0"},
        {"blanks alone are 0", "UINT16", QStringLiteral("  "), "0"},
        {"line feed at the end", "UINT16", QStringLiteral("ff\n"), "255"},
        {"blank and line feed at the end", "UINT16", QStringLiteral("ff \n"), "255"},
        {"greatest", "UINT64", QStringLiteral("ffffffffffffffff"), "18446744073709551615"},
        {"leading zeros do not count", "UINT64", QStringLiteral("00000ffffffffffffffff"),
            "18446744073709551615"},
        {"signed 64 bits", "INT64", QStringLiteral("ffffffffffffffff"), "-1"},
        {"signed 64 bits, lowest", "INT64", QStringLiteral("8000000000000000"),
            "-9223372036854775808"},
        // Deliberate: the text of a negative value of 8 to 32 bits reads back as an unsigned number.
        {"8 bits of -1", "INT8", QStringLiteral("ff"), "255"},
        {"16 bits of -1", "INT16", QStringLiteral("ffff"), "65535"},
        {"32 bits of -1", "INT32", QStringLiteral("ffffffff"), "4294967295"},
        {"floating point reads unsigned", "REAL64", QStringLiteral("ffffffffffffffff"),
            "18446744073709551615"},
        {"unknown type reads unsigned", "", QStringLiteral("ffffffffffffffff"),
            "18446744073709551615"},
    });
}

void tst_HexadecimalForm::read()
{
    DigitForms::checkRead(&HexadecimalForm::read);
}

void tst_HexadecimalForm::readRefuses_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("line feed alone") << QStringLiteral("\n");
    QTest::newRow("two line feeds") << QStringLiteral("ff\n\n");
    QTest::newRow("prefix alone") << QStringLiteral("0x");
    QTest::newRow("prefix and line feed") << QStringLiteral("0x\n");
    QTest::newRow("capital prefix") << QStringLiteral("0Xff");
    QTest::newRow("blank before the prefix") << QStringLiteral(" 0xff");
    QTest::newRow("prefix twice") << QStringLiteral("0x0xff");
    QTest::newRow("sign") << QStringLiteral("-1");
    QTest::newRow("no digit") << QStringLiteral("fg");
    QTest::newRow("tabulator") << QStringLiteral("f\tf");
    QTest::newRow("carriage return at the end") << QStringLiteral("ff\r");
    QTest::newRow("digit of another script") << QString(QChar(0x0665));
    QTest::newRow("more than 64 bits") << QStringLiteral("10000000000000000");
}

void tst_HexadecimalForm::readRefuses()
{
    DigitForms::checkRefused(&HexadecimalForm::read);
}

void tst_HexadecimalForm::readAnswersLikeThePattern()
{
    const QRegularExpression pattern(QStringLiteral("^(0x)?(?<digits>[0-9a-fA-F ]+)[ ]*$"));
    const QString pieces = QStringLiteral("0x1 aF0x \n\rg\t") + QChar(0x2028);
    DigitForms::checkLikePattern(&HexadecimalForm::read, pattern, 16, pieces);
}

void tst_HexadecimalForm::readIsLinear_data()
{
    DigitForms::addLongRows('f');
}

void tst_HexadecimalForm::readIsLinear()
{
    DigitForms::checkLinear(&HexadecimalForm::read);
}

QTEST_APPLESS_MAIN(tst_HexadecimalForm)
#include "tst_HexadecimalForm.moc"

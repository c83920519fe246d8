#include "value/BinaryForm.h"

#include "DigitForms.h"

class tst_BinaryForm : public QObject {
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

void tst_BinaryForm::show_data()
{
    DigitForms::addShowRows({
        {"1 byte", "UINT8", "10", "0000 1010 bin"},
        {"1 byte, low 8 bits", "UINT8", "257", "0000 0001 bin"},
        {"2 bytes, most significant first", "UINT16", "258", "0000 0001 0000 0010 bin"},
        {"4 bytes", "UINT32", "4026531841", "1111 0000 0000 0000 0000 0000 0000 0001 bin"},
        {"8 bytes", "UINT64", "9223372036854775809",
            "1000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0001 bin"},
        {"1 byte, negative", "INT8", "-1", "1111 1111 bin"},
        {"1 byte, lowest", "INT8", "-128", "1000 0000 bin"},
        {"8 bytes, negative", "INT64", "-2",
            "1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1110 bin"},
        {"no number is 0", "UINT8", "abc", "0000 0000 bin"},
        {"3 bytes have no form", "UINT24", "255", ""},
        {"floating point has no form", "REAL64", "12.5", ""},
        {"character string has no form", "STRING8", "abc", ""},
        {"byte string has no form", "BYTES4", "0102", ""},
        {"unknown type has no form", "", "255", ""},
    });
}

void tst_BinaryForm::show()
{
    DigitForms::checkShow(&BinaryForm::show);
}

void tst_BinaryForm::read_data()
{
    const QString ones(64, QLatin1Char('1'));
    DigitForms::addReadRows({
        {"digits", "UINT8", QStringLiteral("1010"), "10"},
        {"groups", "UINT8", QStringLiteral("0000 1010"), "10"},
        {"blanks around", "UINT8", QStringLiteral(" 1010 "), "10"},
        {"blanks alone are 0", "UINT8", QStringLiteral("  "), "0"},
        {"line feed at the end", "UINT8", QStringLiteral("1010\n"), "10"},
        {"64 ones", "UINT64", ones, "18446744073709551615"},
        {"leading zeros do not count", "UINT64", QStringLiteral("000") + ones,
            "18446744073709551615"},
        {"64 ones, signed", "INT64", ones, "-1"},
        // Deliberate: the text of a negative value of 8 to 32 bits reads back as an unsigned number.
        {"8 bits of -1", "INT8", QStringLiteral("1111 1111"), "255"},
        {"32 bits of -1", "INT32", ones.first(32), "4294967295"},
        {"floating point reads unsigned", "REAL64", ones, "18446744073709551615"},
        {"unknown type reads unsigned", "", ones, "18446744073709551615"},
    });
}

void tst_BinaryForm::read()
{
    DigitForms::checkRead(&BinaryForm::read);
}

void tst_BinaryForm::readRefuses_data()
{
    QTest::addColumn<QString>("typed");
    QTest::newRow("empty") << QString();
    QTest::newRow("line feed alone") << QStringLiteral("\n");
    QTest::newRow("two line feeds") << QStringLiteral("1\n\n");
    QTest::newRow("prefix") << QStringLiteral("0b1");
    QTest::newRow("digit 2") << QStringLiteral("102");
    QTest::newRow("letter") << QStringLiteral("1a");
    QTest::newRow("tabulator") << QStringLiteral("1\t1");
    QTest::newRow("more than 64 bits") << QString(65, QLatin1Char('1'));
}

void tst_BinaryForm::readRefuses()
{
    DigitForms::checkRefused(&BinaryForm::read);
}

void tst_BinaryForm::readAnswersLikeThePattern()
{
    const QRegularExpression pattern(QStringLiteral("^(?<digits>(1|0| )+)$"));
    const QString pieces = QStringLiteral("01 01 01 \n\r2\t") + QChar(0x2028);
    DigitForms::checkLikePattern(&BinaryForm::read, pattern, 2, pieces);
}

void tst_BinaryForm::readIsLinear_data()
{
    DigitForms::addLongRows('1');
}

void tst_BinaryForm::readIsLinear()
{
    DigitForms::checkLinear(&BinaryForm::read);
}

QTEST_APPLESS_MAIN(tst_BinaryForm)
#include "tst_BinaryForm.moc"

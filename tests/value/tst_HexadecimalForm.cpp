#include "value/HexadecimalForm.h"

#include "ProcessorTimer.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

namespace {

constexpr SimpleType Types[] = {
    {1, SimpleType::SignedInteger, 1, "Signed 8 bit", "INT8"},
    {2, SimpleType::SignedInteger, 2, "Signed 16 bit", "INT16"},
    {3, SimpleType::SignedInteger, 4, "Signed 32 bit", "INT32"},
    {4, SimpleType::SignedInteger, 8, "Signed 64 bit", "INT64"},
    {5, SimpleType::UnsignedInteger, 1, "Unsigned 8 bit", "UINT8"},
    {6, SimpleType::UnsignedInteger, 2, "Unsigned 16 bit", "UINT16"},
    {7, SimpleType::UnsignedInteger, 4, "Unsigned 32 bit", "UINT32"},
    {8, SimpleType::UnsignedInteger, 8, "Unsigned 64 bit", "UINT64"},
    {9, SimpleType::UnsignedInteger, 3, "Unsigned 24 bit", "UINT24"},
    {10, SimpleType::FloatingPoint, 8, "Floating point 64 bit", "REAL64"},
    {11, SimpleType::CharacterString, 8, "Character string", "STRING8"},
    {12, SimpleType::ByteString, 4, "Byte string", "BYTES4"},
};

/// Null for a name that the table lacks.
const SimpleType *typeNamed(const QString &name)
{
    for (const SimpleType &type : Types) {
        if (type.shortName() == name)
            return &type;
    }
    return nullptr;
}

} // namespace

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
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *type, const char *value, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(value)
                            << QString::fromLatin1(text);
    };
    row("1 byte", "UINT8", "255", "ff hex");
    row("1 byte, padded", "UINT8", "10", "0a hex");
    row("1 byte, low 8 bits", "UINT8", "511", "ff hex");
    row("2 bytes", "UINT16", "255", "00ff hex");
    row("2 bytes, low 16 bits", "UINT16", "65537", "0001 hex");
    row("4 bytes", "UINT32", "3735928559", "deadbeef hex");
    row("4 bytes, low 32 bits", "UINT32", "4294967297", "00000001 hex");
    row("8 bytes", "UINT64", "255", "00000000000000ff hex");
    // Deliberate: an 8-byte value shows only its low 32 bits.
    row("8 bytes, low 32 bits", "UINT64", "4294967296", "0000000000000000 hex");
    row("8 bytes, greatest", "UINT64", "18446744073709551615", "00000000ffffffff hex");
    row("1 byte, negative", "INT8", "-1", "ff hex");
    row("1 byte, lowest", "INT8", "-128", "80 hex");
    row("2 bytes, negative", "INT16", "-2", "fffe hex");
    row("4 bytes, negative", "INT32", "-1", "ffffffff hex");
    row("8 bytes, negative", "INT64", "-1", "00000000ffffffff hex");
    row("negative text of an unsigned type", "UINT16", "-1", "ffff hex");
    row("0", "UINT16", "0", "0000 hex");
    row("no number is 0", "UINT16", "abc", "0000 hex");
    row("beyond 64 bits is 0", "UINT16", "18446744073709551616", "0000 hex");
    row("3 bytes as they stand", "UINT24", "255", "255");
    row("floating point as it stands", "REAL64", "12.5", "12.5");
    row("character string as it stands", "STRING8", "abc", "abc");
    row("byte string as it stands", "BYTES4", "0102", "0102");
    row("unknown type as it stands", "", "255", "255");
}

void tst_HexadecimalForm::show()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QTEST(HexadecimalForm::show(value, typeNamed(type)), "text");
}

void tst_HexadecimalForm::read_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");

    const auto row = [](const char *name, const char *type, const char *typed, const char *value) {
        QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(typed)
                            << QString::fromLatin1(value);
    };
    row("digits", "UINT16", "ff", "255");
    row("capital digits", "UINT16", "FF", "255");
    row("prefix", "UINT16", "0xff", "255");
    row("prefix and blank", "UINT16", "0x ff", "255");
    row("blanks between", "UINT32", "de ad be ef", "3735928559");
    row("blanks around", "UINT16", " ff  ", "255");
    row("blank after the prefix is 0", "UINT16", "0x ", "0");
    row("blanks alone are 0", "UINT16", "  ", "0");
    row("line feed at the end", "UINT16", "ff\n", "255");
    row("blank and line feed at the end", "UINT16", "ff \n", "255");
    row("greatest", "UINT64", "ffffffffffffffff", "18446744073709551615");
    row("leading zeros do not count", "UINT64", "00000ffffffffffffffff", "18446744073709551615");
    row("signed 64 bits", "INT64", "ffffffffffffffff", "-1");
    row("signed 64 bits, lowest", "INT64", "8000000000000000", "-9223372036854775808");
    // Deliberate: the text of a negative value of 8 to 32 bits reads back as an unsigned number.
    row("8 bits of -1", "INT8", "ff", "255");
    row("16 bits of -1", "INT16", "ffff", "65535");
    row("32 bits of -1", "INT32", "ffffffff", "4294967295");
    row("floating point reads unsigned", "REAL64", "ffffffffffffffff", "18446744073709551615");
    row("unknown type reads unsigned", "", "ffffffffffffffff", "18446744073709551615");
}

void tst_HexadecimalForm::read()
{
    QFETCH(QString, type);
    QFETCH(QString, typed);
    QFETCH(QString, value);
    QCOMPARE(HexadecimalForm::read(typed, typeNamed(type)), std::optional(value));
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
    QFETCH(QString, typed);
    QCOMPARE(HexadecimalForm::read(typed, typeNamed(QStringLiteral("UINT64"))), std::nullopt);
    QCOMPARE(HexadecimalForm::read(typed, typeNamed(QStringLiteral("INT64"))), std::nullopt);
}

void tst_HexadecimalForm::readAnswersLikeThePattern()
{
    const QRegularExpression pattern(QStringLiteral("^(0x)?([0-9a-fA-F ]+)[ ]*$"));
    const QString pieces = QStringLiteral("0x1 aF0x \n\rg\t") + QChar(0x2028);
    QRandomGenerator random(1);
    for (int round = 0; round < 50000; ++round) {
        QString typed;
        for (int piece = random.bounded(7); piece > 0; --piece)
            typed += pieces[random.bounded(int(pieces.size()))];
        const QRegularExpressionMatch match = pattern.match(typed);
        std::optional<QString> expected;
        if (match.hasMatch()) {
            const QString digits = match.captured(2).remove(QLatin1Char(' '));
            expected = QString::number(digits.toULong(nullptr, 16));
        }
        QCOMPARE(HexadecimalForm::read(typed, typeNamed(QStringLiteral("UINT64"))), expected);
    }
}

void tst_HexadecimalForm::readIsLinear_data()
{
    constexpr qsizetype Megabyte = 1 << 20;
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("zeros") << QString(Megabyte, QLatin1Char('0')) << true;
    QTest::newRow("blanks") << QString(Megabyte, QLatin1Char(' ')) << true;
    QTest::newRow("too large") << QString(Megabyte, QLatin1Char('f')) << false;
    QTest::newRow("blanks and a letter")
        << QString(Megabyte, QLatin1Char(' ')) + QLatin1Char('x') << false;
}

void tst_HexadecimalForm::readIsLinear()
{
    QFETCH(QString, typed);
    const ProcessorTimer timer;
    const auto value = HexadecimalForm::read(typed, typeNamed(QStringLiteral("UINT64")));
    QVERIFY(timer.elapsed() < 100);
    QTEST(value.has_value(), "accepted");
}

QTEST_APPLESS_MAIN(tst_HexadecimalForm)
#include "tst_HexadecimalForm.moc"

#include "value/BinaryForm.h"

#include "ProcessorTimer.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QtTest>

namespace {

constexpr SimpleType Types[] = {
    {1, SimpleType::SignedInteger, 1, "Signed 8 bit", "INT8"},
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
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *type, const char *value, const char *text) {
        QTest::newRow(name) << QString::fromLatin1(type) << QString::fromLatin1(value)
                            << QString::fromLatin1(text);
    };
    row("1 byte", "UINT8", "10", "0000 1010 bin");
    row("1 byte, low 8 bits", "UINT8", "257", "0000 0001 bin");
    row("2 bytes, most significant first", "UINT16", "258", "0000 0001 0000 0010 bin");
    row("4 bytes", "UINT32", "4026531841", "1111 0000 0000 0000 0000 0000 0000 0001 bin");
    row("8 bytes", "UINT64", "9223372036854775809",
        "1000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0001 bin");
    row("1 byte, negative", "INT8", "-1", "1111 1111 bin");
    row("1 byte, lowest", "INT8", "-128", "1000 0000 bin");
    row("8 bytes, negative", "INT64", "-2",
        "1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1111 1110 bin");
    row("no number is 0", "UINT8", "abc", "0000 0000 bin");
    row("3 bytes have no form", "UINT24", "255", "");
    row("floating point has no form", "REAL64", "12.5", "");
    row("character string has no form", "STRING8", "abc", "");
    row("byte string has no form", "BYTES4", "0102", "");
    row("unknown type has no form", "", "255", "");
}

void tst_BinaryForm::show()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QTEST(BinaryForm::show(value, typeNamed(type)), "text");
}

void tst_BinaryForm::read_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");

    const QString ones(64, QLatin1Char('1'));
    const auto row = [](const char *name, const char *type, const QString &typed,
                         const char *value) {
        QTest::newRow(name) << QString::fromLatin1(type) << typed << QString::fromLatin1(value);
    };
    row("digits", "UINT8", QStringLiteral("1010"), "10");
    row("groups", "UINT8", QStringLiteral("0000 1010"), "10");
    row("blanks around", "UINT8", QStringLiteral(" 1010 "), "10");
    row("blanks alone are 0", "UINT8", QStringLiteral("  "), "0");
    row("line feed at the end", "UINT8", QStringLiteral("1010\n"), "10");
    row("64 ones", "UINT64", ones, "18446744073709551615");
    row("leading zeros do not count", "UINT64", QStringLiteral("000") + ones,
        "18446744073709551615");
    row("64 ones, signed", "INT64", ones, "-1");
    // Deliberate: the text of a negative value of 8 to 32 bits reads back as an unsigned number.
    row("8 bits of -1", "INT8", QStringLiteral("1111 1111"), "255");
    row("32 bits of -1", "INT32", ones.first(32), "4294967295");
    row("floating point reads unsigned", "REAL64", ones, "18446744073709551615");
    row("unknown type reads unsigned", "", ones, "18446744073709551615");
}

void tst_BinaryForm::read()
{
    QFETCH(QString, type);
    QFETCH(QString, typed);
    QFETCH(QString, value);
    QCOMPARE(BinaryForm::read(typed, typeNamed(type)), std::optional(value));
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
    QFETCH(QString, typed);
    QCOMPARE(BinaryForm::read(typed, typeNamed(QStringLiteral("UINT64"))), std::nullopt);
    QCOMPARE(BinaryForm::read(typed, typeNamed(QStringLiteral("INT64"))), std::nullopt);
}

void tst_BinaryForm::readAnswersLikeThePattern()
{
    const QRegularExpression pattern(QStringLiteral("^((1|0| )+)$"));
    const QString pieces = QStringLiteral("01 01 01 \n\r2\t") + QChar(0x2028);
    QRandomGenerator random(1);
    for (int round = 0; round < 50000; ++round) {
        QString typed;
        for (int piece = random.bounded(7); piece > 0; --piece)
            typed += pieces[random.bounded(int(pieces.size()))];
        const QRegularExpressionMatch match = pattern.match(typed);
        std::optional<QString> expected;
        if (match.hasMatch()) {
            const QString digits = match.captured(1).remove(QLatin1Char(' '));
            expected = QString::number(digits.toULong(nullptr, 2));
        }
        QCOMPARE(BinaryForm::read(typed, typeNamed(QStringLiteral("UINT64"))), expected);
    }
}

void tst_BinaryForm::readIsLinear_data()
{
    constexpr qsizetype Megabyte = 1 << 20;
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("zeros") << QString(Megabyte, QLatin1Char('0')) << true;
    QTest::newRow("too large") << QString(Megabyte, QLatin1Char('1')) << false;
    QTest::newRow("blanks and a letter")
        << QString(Megabyte, QLatin1Char(' ')) + QLatin1Char('x') << false;
}

void tst_BinaryForm::readIsLinear()
{
    QFETCH(QString, typed);
    const ProcessorTimer timer;
    const auto value = BinaryForm::read(typed, typeNamed(QStringLiteral("UINT64")));
    QVERIFY(timer.elapsed() < 100);
    QTEST(value.has_value(), "accepted");
}

QTEST_APPLESS_MAIN(tst_BinaryForm)
#include "tst_BinaryForm.moc"

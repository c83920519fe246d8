#include "value/DecimalForm.h"

#include "LocalText.h"

#include <KrDatatype/SimpleType.h>

#include <QtTest/QtTest>

#include <limits>

namespace {

constexpr SimpleType Int16(2, SimpleType::SignedInteger, 2, "Signed 16 bit", "INT16");
constexpr SimpleType Int64(4, SimpleType::SignedInteger, 8, "Signed 64 bit", "INT64");
constexpr SimpleType Real32(9, SimpleType::FloatingPoint, 4, "Floating point 32 bit", "REAL32");
constexpr SimpleType Real64(10, SimpleType::FloatingPoint, 8, "Floating point 64 bit", "REAL64");
constexpr SimpleType String8(11, SimpleType::CharacterString, 8, "Character string", "STRING8");

enum eType { Int16Type, Int64Type, Real32Type, Real64Type, String8Type };
constexpr const SimpleType *Types[] = {&Int16, &Int64, &Real32, &Real64, &String8};

const QString Point = QStringLiteral(".");
const QString Comma = QStringLiteral(",");

} // namespace

class tst_DecimalForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void show_data();
    void show();
    void showWithUnit_data();
    void showWithUnit();
    void showWithComma_data();
    void showWithComma();
    void showIntegerWithComma_data();
    void showIntegerWithComma();
    void shownTextIsShared();
    void showWithoutType();
    void systemDecimalPoint();
    void engineering_data();
    void engineering();
    void engineeringSingle_data();
    void engineeringSingle();
    void read_data();
    void read();
    void readWithComma_data();
    void readWithComma();
};

void tst_DecimalForm::show_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("behind");
    QTest::addColumn<uint>("significant");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, int type, const char *value, int behind, uint significant,
                         const char *text) {
        QTest::newRow(name) << type << QString::fromLatin1(value) << behind << significant
                            << QString::fromLatin1(text);
    };
    row("integer, no decimals", Int16Type, "5", 0, 0, "5");
    row("integer, two decimals", Int16Type, "5", 2, 0, "5.00");
    row("integer takes no engineering form", Int16Type, "100000000", 0, 3, "100000000");
    row("integer of any length stays", Int64Type, "1234567890123456", 6, 0,
        "1234567890123456.000000");
    row("scaled integer", Int16Type, "12.345", 2, 0, "12.35");
    row("negative decimals are 6", Int16Type, "1.5", -1, 0, "1.500000");
    row("no number is 0", Int16Type, "abc", 1, 0, "0.0");
    row("string type is a number too", String8Type, "7", 1, 3, "7.0");
    // Deliberate: a 64-bit integer goes through a double and keeps 53 bits.
    row("64 bits keep 53", Int64Type, "9007199254740993", 0, 0, "9007199254740992");
    row("64 bits, greatest", Int64Type, "9223372036854775807", 0, 0, "9223372036854775808");
    row("hexadecimal number is read", Int16Type, "0x10", 0, 0, "16");
    row("infinite integer", Int16Type, "inf", 2, 0, "inf");

    row("double, behind the point", Real64Type, "3.14159", 2, 0, "3.14");
    row("double, 15 digits fit", Real64Type, "123456789012345", 0, 0, "123456789012345");
    row("double, 16 characters without point fit", Real64Type, "1234567890123456", 0, 0,
        "1234567890123456");
    row("double, 15 digits and point fit", Real64Type, "1234567890123.25", 2, 0,
        "1234567890123.25");
    row("double, 17 characters do not", Real64Type, "12345678901234.25", 2, 0,
        "12.3456789012342E+12");
    row("double, the sign is not counted", Real64Type, "-1234567890123.25", 2, 0,
        "-1234567890123.25");
    row("double, negative and too long", Real64Type, "-12345678901234.25", 2, 0,
        "-12.3456789012342E+12");
    row("double, 0 with too many decimals", Real64Type, "0", 15, 0, "0");
    row("double, 0 with 14 decimals", Real64Type, "0", 14, 0, "0.00000000000000");
    row("double, infinite without engineering", Real64Type, "inf", 2, 0, "inf");
    row("double, not a number without engineering", Real64Type, "-nan", 2, 0, "-nan");
    row("double, infinite with engineering", Real64Type, "-inf", 2, 3, "-INF");
    row("double, not a number with engineering", Real64Type, "nan", 2, 3, "NAN");
    row("double, 12345678 with 4 digits", Real64Type, "12345678", 0, 4, "12.35E+6");
    row("double, too many decimals are capped", Real64Type, "5", 2147483647, 0, "5");
    row("double, too many digits are capped", Real64Type, "0.5", 0, 4294967295U, "0.5");

    row("float, 7 digits and point fit", Real32Type, "12345.67", 2, 0, "12345.67");
    row("float, 8 digits and point do not", Real32Type, "123456.75", 2, 0, "123456.8");
    row("float, the sign is not counted", Real32Type, "-12345.67", 2, 0, "-12345.67");
    row("float, too long and above the range", Real32Type, "123456789", 0, 0, "123.4568E+6");
    row("float, the long form is computed in double", Real32Type, "16777217", 1, 0, "16.77722E+6");
    row("float, 12345678 with 3 digits", Real32Type, "12345678", 0, 3, "12.3E+6");
    row("float, zeros of a mantissa without point are cut", Real32Type, "0.0005", 0, 3, "5E-6");
    row("float, zeros of a whole mantissa are cut", Real32Type, "100000000", 0, 3, "1E+6");
    row("float, a zero behind the point is cut", Real32Type, "10000000", 0, 3, "10E+6");
    row("float, computed in single precision", Real32Type, "16777217", 0, 8, "16.777216E+6");
    row("float, beyond its range is infinite", Real32Type, "1e39", 0, 3, "INF");
    row("float, below its range is 0", Real32Type, "1e-60", 0, 3, "0");
}

void tst_DecimalForm::show()
{
    QFETCH(int, type);
    QFETCH(QString, value);
    QFETCH(int, behind);
    QFETCH(uint, significant);
    QTEST(DecimalForm::show(value, Types[type], {behind, significant}, QString(), Point), "text");
}

void tst_DecimalForm::showWithUnit_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");
    QTest::newRow("one blank and the unit") << QStringLiteral("A") << QStringLiteral("12.50 A");
    QTest::newRow("no unit, no blank") << QString() << QStringLiteral("12.50");
    QTest::newRow("a point in the unit") << QStringLiteral("m.s") << QStringLiteral("12.50 m.s");
}

void tst_DecimalForm::showWithUnit()
{
    QFETCH(QString, unit);
    QTEST(DecimalForm::show(QStringLiteral("12.5"), &Int16, {2, 0}, unit, Point), "text");
}

void tst_DecimalForm::showWithComma_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<uint>("significant");
    QTest::addColumn<QString>("text");
    QTest::newRow("point becomes comma")
        << QStringLiteral("12.5") << 0U << QStringLiteral("12,50 m.s");
    QTest::newRow("comma is read") << QStringLiteral("12,5") << 0U << QStringLiteral("12,50 m.s");
    QTest::newRow("engineering form")
        << QStringLiteral("12345678") << 4U << QStringLiteral("12,35E+6 m.s");
}

void tst_DecimalForm::showWithComma()
{
    QFETCH(QString, value);
    QFETCH(uint, significant);
    QTEST(
        DecimalForm::show(value, &Real64, {2, significant}, QStringLiteral("m.s"), Comma), "text");
}

void tst_DecimalForm::showIntegerWithComma_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<int>("behind");
    QTest::addColumn<QString>("text");
    QTest::newRow("as many places as shown")
        << QStringLiteral("1.25") << 2 << QStringLiteral("1,25");
    QTest::newRow("fewer places than shown")
        << QStringLiteral("1.5") << 2 << QStringLiteral("1,50");
    QTest::newRow("more places than shown") << QStringLiteral("1.25") << 1 << QStringLiteral("1,2");
    QTest::newRow("no places") << QStringLiteral("-7") << 0 << QStringLiteral("-7");
}

void tst_DecimalForm::showIntegerWithComma()
{
    QFETCH(QString, value);
    QFETCH(int, behind);
    QTEST(DecimalForm::show(value, &Int16, {behind, 0}, QString(), Comma), "text");
}

/// What stands as it is shown already needs no memory of its own.
void tst_DecimalForm::shownTextIsShared()
{
    const QString places = QString::fromLatin1("1.25");
    const QString whole = QString::fromLatin1("7");
    QVERIFY(DecimalForm::show(places, &Int16, {2, 0}, QString(), Point).isSharedWith(places));
    QVERIFY(DecimalForm::show(whole, &Int16, {0, 0}, QString(), Comma).isSharedWith(whole));
    QVERIFY(!DecimalForm::show(places, &Int16, {2, 0}, QString(), Comma).isSharedWith(places));
}

void tst_DecimalForm::showWithoutType()
{
    QCOMPARE(DecimalForm::show(QStringLiteral("5"), nullptr, {2, 0}, QStringLiteral("A"), Point),
        QString());
}

void tst_DecimalForm::systemDecimalPoint()
{
    QCOMPARE(DecimalForm::systemDecimalPoint(), localText(Point));
}

void tst_DecimalForm::engineering_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<uint>("digits");
    QTest::addColumn<QString>("text");

    QTest::newRow("0") << 0.0 << 3U << QStringLiteral("0");
    QTest::newRow("lowest plain") << 0.001 << 3U << QStringLiteral("0.001");
    QTest::newRow("below the lowest plain") << 0.0009995 << 4U << QStringLiteral("999.5E-6");
    QTest::newRow("highest plain") << 9999999.4 << 8U << QStringLiteral("9999999.4");
    QTest::newRow("above the highest plain") << 9999999.5 << 8U << QStringLiteral("9.9999995E+6");
    QTest::newRow("plain has the exponent of %G") << 123456.0 << 3U << QStringLiteral("1.23E+05");
    QTest::newRow("negative plain") << -12.5 << 3U << QStringLiteral("-12.5");
    // Deliberate: zeros are cut without looking for a point first.
    QTest::newRow("0.0005 shows as 5E-6") << 0.0005 << 3U << QStringLiteral("5E-6");
    QTest::newRow("1e8 shows as 1E+6") << 100000000.0 << 3U << QStringLiteral("1E+6");
    QTest::newRow("1e7 shows as 10E+6") << 10000000.0 << 3U << QStringLiteral("10E+6");
    QTest::newRow("a mantissa that carries") << 999999600.0 << 3U << QStringLiteral("1E+6");
    QTest::newRow("12345678 with 4 digits") << 12345678.0 << 4U << QStringLiteral("12.35E+6");
    QTest::newRow("12345678 with 3 digits") << 12345678.0 << 3U << QStringLiteral("12.3E+6");
    QTest::newRow("1 digit") << 12345678.0 << 1U << QStringLiteral("12E+6");
    QTest::newRow("negative") << -12345678.0 << 4U << QStringLiteral("-12.35E+6");
    QTest::newRow("exponent of two digits") << 1.5e12 << 3U << QStringLiteral("1.5E+12");
    QTest::newRow("exponent of three digits") << 1.5e-200 << 3U << QStringLiteral("15E-201");
    QTest::newRow("greatest") << std::numeric_limits<double>::max() << 4U
                              << QStringLiteral("179.8E+306");
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min() << 4U
                              << QStringLiteral("4.95E-324");
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 3U
                              << QStringLiteral("INF");
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 3U
                                  << QStringLiteral("NAN");
}

void tst_DecimalForm::engineering()
{
    QFETCH(double, value);
    QFETCH(uint, digits);
    QTEST(DecimalForm::engineering(value, digits), "text");
}

void tst_DecimalForm::engineeringSingle_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<uint>("digits");
    QTest::addColumn<QString>("text");

    QTest::newRow("0.001 as float lies above the bound") << 0.001F << 3U << QStringLiteral("0.001");
    QTest::newRow("12345678 with 3 digits") << 12345678.0F << 3U << QStringLiteral("12.3E+6");
    QTest::newRow("0.0005 shows as 5E-6") << 0.0005F << 3U << QStringLiteral("5E-6");
    QTest::newRow("1e8 shows as 1E+6") << 100000000.0F << 3U << QStringLiteral("1E+6");
    QTest::newRow("1e7 shows as 10E+6") << 10000000.0F << 3U << QStringLiteral("10E+6");
    QTest::newRow("negative") << -1.5e-8F << 3U << QStringLiteral("-15E-9");
    QTest::newRow("greatest") << std::numeric_limits<float>::max() << 4U
                              << QStringLiteral("340.3E+36");
    QTest::newRow("infinite") << -std::numeric_limits<float>::infinity() << 3U
                              << QStringLiteral("-INF");
}

void tst_DecimalForm::engineeringSingle()
{
    QFETCH(float, value);
    QFETCH(uint, digits);
    QTEST(DecimalForm::engineering(value, digits), "text");
}

void tst_DecimalForm::read_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("text");

    const QString ampere = QStringLiteral("A");
    QTest::newRow("number") << QStringLiteral("12.5") << QString() << QStringLiteral("12.5");
    QTest::newRow("outer blanks") << QStringLiteral("  12.5 ") << QString()
                                  << QStringLiteral("12.5");
    QTest::newRow("unit") << QStringLiteral("12.5 A") << ampere << QStringLiteral("12.5");
    QTest::newRow("unit after two blanks")
        << QStringLiteral("12.5  A") << ampere << QStringLiteral("12.5");
    QTest::newRow("blank after the unit")
        << QStringLiteral("12.5 A ") << ampere << QStringLiteral("12.5");
    QTest::newRow("unit without blank stays")
        << QStringLiteral("12.5A") << ampere << QStringLiteral("12.5A");
    QTest::newRow("another unit stays")
        << QStringLiteral("12.5 V") << ampere << QStringLiteral("12.5 V");
    QTest::newRow("unit in other case stays")
        << QStringLiteral("12.5 a") << ampere << QStringLiteral("12.5 a");
    QTest::newRow("unit twice loses one")
        << QStringLiteral("12.5 A A") << ampere << QStringLiteral("12.5 A");
    QTest::newRow("no unit to drop")
        << QStringLiteral("12.5 A") << QString() << QStringLiteral("12.5 A");
    QTest::newRow("unit with blanks around")
        << QStringLiteral("12.5  A ") << QStringLiteral(" A ") << QStringLiteral("12.5");
    QTest::newRow("unit alone stays") << ampere << ampere << ampere;
    QTest::newRow("no number goes on")
        << QStringLiteral(" abc ") << ampere << QStringLiteral("abc");
    QTest::newRow("a comma stays") << QStringLiteral("1,5") << QString() << QStringLiteral("1,5");
    QTest::newRow("empty") << QString() << ampere << QString();
}

void tst_DecimalForm::read()
{
    QFETCH(QString, typed);
    QFETCH(QString, unit);
    QTEST(DecimalForm::read(typed, unit, Point), "text");
}

void tst_DecimalForm::readWithComma_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("text");
    QTest::newRow("comma becomes point") << QStringLiteral("1,5") << QStringLiteral("1.5");
    QTest::newRow("point stays") << QStringLiteral("1.5") << QStringLiteral("1.5");
    QTest::newRow("comma in the unit") << QStringLiteral("1,5 m,s") << QStringLiteral("1.5");
}

void tst_DecimalForm::readWithComma()
{
    QFETCH(QString, typed);
    QTEST(DecimalForm::read(typed, QStringLiteral("m,s"), Comma), "text");
}

QTEST_APPLESS_MAIN(tst_DecimalForm)
#include "tst_DecimalForm.moc"

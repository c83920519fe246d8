#include "PlainParameterData.h"

#include <KrFirmware/ParameterFunctionProvider.h>
#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QtTest>

#include <bit>
#include <charconv>
#include <memory>
#include <random>

namespace {

constexpr quint8 Int8 = 1;
constexpr quint8 Int16 = 2;
constexpr quint8 Int32 = 3;
constexpr quint8 Int64 = 4;
constexpr quint8 Uint8 = 5;
constexpr quint8 Uint16 = 6;
constexpr quint8 Uint32 = 7;
constexpr quint8 Uint64 = 8;
constexpr quint8 Real32 = 9;
constexpr quint8 Real64 = 10;
constexpr quint8 String8 = 11;
constexpr quint8 Bytes4 = 17;
constexpr quint8 Raw = 31;
constexpr quint8 Unknown = 99;

constexpr qsizetype Megabyte = 1024 * 1024;

double tenth()
{
    return double(0.1F);
}

double thousandth()
{
    return double(0.001F);
}

} // namespace

class tst_ReferenceFunctionProvider : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void checkValueOfType_data();
    void checkValueOfType();
    void checkValueOfLimits_data();
    void checkValueOfLimits();
    void checkValueOfChoices_data();
    void checkValueOfChoices();
    void checkValueOfSmallTypesExhaustively_data();
    void checkValueOfSmallTypesExhaustively();

    void correctValue_data();
    void correctValue();
    void correctValueSharesAPlainText();
    void correctValueOfSmallTypesExhaustively_data();
    void correctValueOfSmallTypesExhaustively();
    void correctValueOfChoice();

    void valueText_data();
    void valueText();
    void nativeText_data();
    void nativeText();
    void nativeTextOfHugeTexts_data();
    void nativeTextOfHugeTexts();
    void roundTripOfRandomNumbers_data();
    void roundTripOfRandomNumbers();
    void roundTripOfRandomReals();

    void questionsAreFew_data();
    void questionsAreFew();
    void limitsAreThoseOfTheParameter();
    void indexRunsNothing();

private:
    PlainParameterData dataOf(quint8 type, double factor = 0, quint32 fullScale = 0) const;

    std::unique_ptr<ServoDriveFirmware> m_firmware;
    std::unique_ptr<ParameterFunctionProvider> m_provider;
};

void tst_ReferenceFunctionProvider::initTestCase()
{
    DescriptionError error;
    m_firmware = ServoDriveFirmware::loadFromBytes(R"({
        "format": "kr-device-description", "version": 1,
        "family": {"identifier": 77, "name": "", "hasPhysicalAxes": false, "axes": [1]},
        "languages": ["en"], "dataTypes": [], "parameters": []})",
        QString(), &error);
    QVERIFY2(m_firmware, qPrintable(error.toText()));
    m_provider.reset(m_firmware->createParameterFunctionProvider());
    QVERIFY(m_provider);
    m_provider->setCallbackProvider(nullptr);
}

void tst_ReferenceFunctionProvider::checkValueOfType_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("code");

    const auto row = [](const char *rule, quint8 type, const QString &text, quint32 code) {
        QTest::newRow(rule) << type << text << code;
    };
    row("INT64 highest", Int64, QStringLiteral("9223372036854775807"), 0);
    row("INT64 above highest", Int64, QStringLiteral("9223372036854775808"), 3);
    row("INT64 lowest", Int64, QStringLiteral("-9223372036854775808"), 0);
    row("INT64 below lowest", Int64, QStringLiteral("-9223372036854775809"), 2);
    row("UINT64 highest", Uint64, QStringLiteral("18446744073709551615"), 0);
    row("UINT64 above highest", Uint64, QStringLiteral("18446744073709551616"), 3);
    row("UINT64 far above", Uint64, QString(1000, u'9'), 3);
    row("UINT64 lowest", Uint64, QStringLiteral("0"), 0);
    row("UINT64 below lowest", Uint64, QStringLiteral("-1"), 2);
    row("INT64 far below", Int64, u'-' + QString(1000, u'9'), 2);
    row("INT32 highest", Int32, QStringLiteral("2147483647"), 0);
    row("INT32 above highest", Int32, QStringLiteral("2147483648"), 3);
    row("INT32 lowest", Int32, QStringLiteral("-2147483648"), 0);
    row("INT32 below lowest", Int32, QStringLiteral("-2147483649"), 2);
    row("UINT32 highest", Uint32, QStringLiteral("4294967295"), 0);
    row("UINT32 above highest", Uint32, QStringLiteral("4294967296"), 3);
    row("integer: plus sign", Uint8, QStringLiteral("+5"), 0);
    row("integer: minus zero", Uint8, QStringLiteral("-0"), 0);
    row("integer: leading zeros", Uint8, QStringLiteral("000000000000000000000000000255"), 0);
    row("integer: empty", Int16, QString(), 1);
    row("integer: sign alone", Int16, QStringLiteral("-"), 1);
    row("integer: leading blank", Int16, QStringLiteral(" 5"), 1);
    row("integer: trailing blank", Int16, QStringLiteral("5 "), 1);
    row("integer: fraction", Int16, QStringLiteral("5.0"), 1);
    row("integer: exponent", Int16, QStringLiteral("1e3"), 1);
    row("integer: exponent without end", Int16, QStringLiteral("1e999999999"), 1);
    row("integer: hexadecimal", Int16, QStringLiteral("0x10"), 1);
    row("integer: word", Int16, QStringLiteral("ten"), 1);
    row("integer: digits that are not ASCII", Int16, QString(QChar(0x0665)), 1);
    row("REAL32 plain", Real32, QStringLiteral("1.5"), 0);
    row("REAL32 exponent", Real32, QStringLiteral("-1e-3"), 0);
    row("REAL32 above highest", Real32, QStringLiteral("1e39"), 3);
    row("REAL32 below lowest", Real32, QStringLiteral("-1e39"), 2);
    row("REAL32 underflow is 0", Real32, QStringLiteral("1e-60"), 0);
    row("REAL64 beyond REAL32", Real64, QStringLiteral("1e39"), 0);
    row("REAL64 above highest", Real64, QStringLiteral("1e309"), 3);
    row("REAL64 below lowest", Real64, QStringLiteral("-1e309"), 2);
    row("REAL64 exponent without end", Real64, QStringLiteral("1e999999999"), 3);
    row("real: infinity", Real64, QStringLiteral("inf"), 3);
    row("real: not a number", Real64, QStringLiteral("nan"), 1);
    row("real: plus sign", Real64, QStringLiteral("+1"), 1);
    row("real: comma", Real64, QStringLiteral("1,5"), 1);
    row("real: more than a number", Real64, QStringLiteral("1.5 m"), 1);
    row("real: empty", Real64, QString(), 1);
    row("real: a million digits", Real64, QString(1'000'000, u'1'), 1);
    row("string: field size", String8, QStringLiteral("12345678"), 0);
    row("string: above field size", String8, QStringLiteral("123456789"), 1);
    row("string: empty", String8, QString(), 0);
    row("string: Latin-1", String8, QString(QChar(0xFF)), 0);
    row("string: beyond Latin-1", String8, QString(QChar(0x100)), 1);
    row("bytes: field size", Bytes4, QStringLiteral("00aAfF99"), 0);
    row("bytes: above field size", Bytes4, QStringLiteral("0011223344"), 1);
    row("bytes: half a byte", Bytes4, QStringLiteral("001"), 1);
    row("bytes: no digit", Bytes4, QStringLiteral("0g"), 1);
    row("bytes: empty", Bytes4, QString(), 0);
    row("unformatted: anything", Raw, QString(1000, QChar(0x100)), 0);
    row("unknown type: anything", Unknown, QStringLiteral("anything"), 0);
}

void tst_ReferenceFunctionProvider::checkValueOfType()
{
    QFETCH(quint8, type);
    QFETCH(QString, text);
    QFETCH(quint32, code);
    const PlainParameterData data = dataOf(type);
    QCOMPARE(m_provider->checkValue(text, &data, 0), code);
}

void tst_ReferenceFunctionProvider::checkValueOfLimits_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<QString>("lower");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("code");

    const auto row = [](const char *rule, quint8 type, const char *lower, const char *upper,
                         const char *text, quint32 code) {
        QTest::newRow(rule) << type << QString::fromLatin1(lower) << QString::fromLatin1(upper)
                            << QString::fromLatin1(text) << code;
    };
    row("lower limit itself", Int16, "-5", "5", "-5", 0);
    row("one below", Int16, "-5", "5", "-6", 2);
    row("upper limit itself", Int16, "-5", "5", "5", 0);
    row("one above", Int16, "-5", "5", "6", 3);
    row("no limits", Int16, "", "", "32767", 0);
    row("limit that is no number confines nothing", Int16, "a", "b", "32767", 0);
    row("64-bit lower limit", Uint64, "18446744073709551614", "", "18446744073709551613", 2);
    row("64-bit upper limit", Uint64, "", "18446744073709551614", "18446744073709551615", 3);
    row("64-bit neighbours that a double confuses", Int64, "", "9007199254740992",
        "9007199254740993", 3);
    row("type before limit", Uint8, "", "300", "301", 3);
    row("real lower limit itself", Real64, "0.1", "0.2", "0.1", 0);
    row("real below", Real64, "0.1", "0.2", "0.0999", 2);
    row("real above", Real64, "0.1", "0.2", "0.2001", 3);
    row("REAL32 compares after rounding", Real32, "", "0.1", "0.10000000001", 0);
    row("strings have no limits", String8, "5", "6", "9", 0);
}

void tst_ReferenceFunctionProvider::checkValueOfLimits()
{
    QFETCH(quint8, type);
    QFETCH(QString, lower);
    QFETCH(QString, upper);
    QFETCH(QString, text);
    QFETCH(quint32, code);
    PlainParameterData data = dataOf(type);
    data.lower = lower;
    data.upper = upper;
    QCOMPARE(m_provider->checkValue(text, &data, 0), code);
}

void tst_ReferenceFunctionProvider::checkValueOfChoices_data()
{
    QTest::addColumn<qint32>("kind");
    QTest::addColumn<QList<qint32>>("keys");
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("code");

    const QList<qint32> keys {std::numeric_limits<qint32>::min(), -1, 0, 5};
    QTest::newRow("kind 1, key") << 1 << keys << QStringLiteral("5") << 0U;
    QTest::newRow("kind 1, negative key") << 1 << keys << QStringLiteral("-1") << 0U;
    QTest::newRow("kind 1, lowest key") << 1 << keys << QStringLiteral("-2147483648") << 0U;
    QTest::newRow("kind 1, no key") << 1 << keys << QStringLiteral("4") << 1U;
    QTest::newRow("kind 2, no key") << 2 << keys << QStringLiteral("1") << 1U;
    QTest::newRow("kind 0 has no choice") << 0 << keys << QStringLiteral("4") << 0U;
    QTest::newRow("kind 3 has no choice") << 3 << keys << QStringLiteral("4") << 0U;
    QTest::newRow("empty choice map") << 1 << QList<qint32>() << QStringLiteral("4") << 0U;
    QTest::newRow("range comes first") << 1 << keys << QStringLiteral("2147483648") << 3U;
}

void tst_ReferenceFunctionProvider::checkValueOfChoices()
{
    QFETCH(qint32, kind);
    QFETCH(QList<qint32>, keys);
    QFETCH(QString, text);
    QFETCH(quint32, code);
    PlainParameterData data = dataOf(Int32);
    data.parameterKind = kind;
    data.choiceKeys = keys;
    QCOMPARE(m_provider->checkValue(text, &data, 0), code);
}

void tst_ReferenceFunctionProvider::checkValueOfSmallTypesExhaustively_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<int>("lowest");
    QTest::addColumn<int>("highest");
    QTest::newRow("INT8") << Int8 << -128 << 127;
    QTest::newRow("UINT8") << Uint8 << 0 << 255;
    QTest::newRow("INT16") << Int16 << -32768 << 32767;
    QTest::newRow("UINT16") << Uint16 << 0 << 65535;
}

void tst_ReferenceFunctionProvider::checkValueOfSmallTypesExhaustively()
{
    QFETCH(quint8, type);
    QFETCH(int, lowest);
    QFETCH(int, highest);
    const PlainParameterData data = dataOf(type);
    for (int value = -70000; value <= 70000; ++value) {
        const quint32 expected = value < lowest ? 2 : value > highest ? 3 : 0;
        const QString text = QString::number(value);
        if (m_provider->checkValue(text, &data, 0) != expected)
            QFAIL(qPrintable(text));
    }
}

void tst_ReferenceFunctionProvider::correctValue_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<QString>("lower");
    QTest::addColumn<QString>("upper");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("corrected");

    const auto row = [](const char *rule, quint8 type, const char *lower, const char *upper,
                         const QString &text, const char *corrected) {
        QTest::newRow(rule) << type << QString::fromLatin1(lower) << QString::fromLatin1(upper)
                            << text << QString::fromLatin1(corrected);
    };
    row("in range", Int16, "-5", "5", QStringLiteral("3"), "3");
    row("plus sign goes", Int16, "-5", "5", QStringLiteral("+5"), "5");
    row("leading zeros go", Int16, "-7", "7", QStringLiteral("007"), "7");
    row("leading zeros behind a minus go", Int16, "-7", "7", QStringLiteral("-007"), "-7");
    row("minus 0 is 0", Int16, "-7", "7", QStringLiteral("-0"), "0");
    row("below limit", Int16, "-5", "5", QStringLiteral("-6"), "-5");
    row("above limit", Int16, "-5", "5", QStringLiteral("6"), "5");
    row("below type", Uint8, "", "", QStringLiteral("-1"), "0");
    row("above type", Uint8, "", "", QStringLiteral("256"), "255");
    row("limits outside of the type", Uint8, "-10", "300", QStringLiteral("-5"), "0");
    row("INT64 above", Int64, "", "", QStringLiteral("9223372036854775808"), "9223372036854775807");
    row("INT64 below", Int64, "", "", QStringLiteral("-9223372036854775809"),
        "-9223372036854775808");
    row("UINT64 above", Uint64, "", "", QStringLiteral("18446744073709551616"),
        "18446744073709551615");
    row("a thousand digits", Uint64, "", "", QString(1000, u'9'), "18446744073709551615");
    row("a thousand digits negative", Int64, "", "", u'-' + QString(1000, u'9'),
        "-9223372036854775808");
    row("half rounds up", Int16, "", "", QStringLiteral("2.5"), "3");
    row("below half rounds down", Int16, "", "", QStringLiteral("2.4999"), "2");
    row("half rounds away from zero", Int16, "", "", QStringLiteral("-2.5"), "-3");
    row("minus a little is 0", Int16, "", "", QStringLiteral("-0.4"), "0");
    row("minus a half", Int16, "", "", QStringLiteral("-0.5"), "-1");
    row("rounds, then clamps", Int16, "", "2", QStringLiteral("2.5"), "2");
    row("exponent", Int16, "", "", QStringLiteral("1e3"), "1000");
    row("exponent without end", Int16, "", "", QStringLiteral("1e999999999"), "32767");
    row("negative exponent without end", Int16, "", "", QStringLiteral("1e-999999999"), "0");
    row("rounds to the neighbour above 2^53", Uint64, "", "", QStringLiteral("9007199254740993.4"),
        "9007199254740993");
    row("no number", Int16, "-5", "5", QStringLiteral("abc"), "abc");
    row("empty", Int16, "-5", "5", QString(), "");
    row("blank in front", Int16, "-5", "5", QStringLiteral(" 9"), " 9");
    row("real in range", Real64, "0", "1", QStringLiteral("0.50"), "0.50");
    row("REAL32 in range", Real32, "0", "1", QStringLiteral("0.1"), "0.1");
    row("REAL32 of the type stays as it is written", Real32, "", "", QStringLiteral("100000"),
        "100000");
    row("REAL32 rounds to the nearest of the type", Real32, "", "", QStringLiteral("0.123456789"),
        "0.12345679");
    row("REAL32 beyond 2^24", Real32, "", "", QStringLiteral("16777217"), "16777216");
    row("REAL32 too small for the type", Real32, "", "", QStringLiteral("1e-60"), "0");
    row("REAL64 keeps its digits", Real64, "", "", QStringLiteral("0.123456789"), "0.123456789");
    row("real below", Real64, "0.25", "1", QStringLiteral("0.1"), "0.25");
    row("real above", Real64, "0", "0.75", QStringLiteral("1e3"), "0.75");
    row("REAL32 above type", Real32, "", "", QStringLiteral("1e39"), "3.4028235e+38");
    row("REAL64 above type", Real64, "", "", QStringLiteral("1e309"), "1.7976931348623157e+308");
    row("REAL64 below type", Real64, "", "", QStringLiteral("-inf"), "-1.7976931348623157e+308");
    row("real: no number", Real64, "0", "1", QStringLiteral("nan"), "nan");
    row("string stays", String8, "", "", QStringLiteral("123456789"), "123456789");
    row("bytes stay", Bytes4, "", "", QStringLiteral("xyz"), "xyz");
    row("unknown type stays", Unknown, "", "5", QStringLiteral("9"), "9");
}

void tst_ReferenceFunctionProvider::correctValue()
{
    QFETCH(quint8, type);
    QFETCH(QString, lower);
    QFETCH(QString, upper);
    QFETCH(QString, text);
    PlainParameterData data = dataOf(type);
    data.lower = lower;
    data.upper = upper;
    QTEST(m_provider->correctValue(text, &data, 0), "corrected");
}

void tst_ReferenceFunctionProvider::correctValueSharesAPlainText()
{
    PlainParameterData data = dataOf(Int16);
    const QString text = QString::number(123);
    QCOMPARE(m_provider->correctValue(text, &data, 0).constData(), text.constData());
}

void tst_ReferenceFunctionProvider::correctValueOfSmallTypesExhaustively_data()
{
    checkValueOfSmallTypesExhaustively_data();
}

void tst_ReferenceFunctionProvider::correctValueOfSmallTypesExhaustively()
{
    QFETCH(quint8, type);
    QFETCH(int, lowest);
    QFETCH(int, highest);
    const PlainParameterData data = dataOf(type);
    for (int value = -70000; value <= 70000; ++value) {
        const QString expected = QString::number(std::clamp(value, lowest, highest));
        const QString text = QString::number(value);
        if (m_provider->correctValue(text, &data, 0) != expected)
            QFAIL(qPrintable(text));
    }
}

void tst_ReferenceFunctionProvider::correctValueOfChoice()
{
    PlainParameterData data = dataOf(Int32);
    data.parameterKind = 1;
    data.choiceKeys = {1, 2};
    QCOMPARE(m_provider->correctValue(QStringLiteral("5"), &data, 0), QStringLiteral("5"));
}

void tst_ReferenceFunctionProvider::valueText_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<double>("factor");
    QTest::addColumn<quint32>("fullScale");
    QTest::addColumn<QString>("native");
    QTest::addColumn<QString>("value");

    const auto row = [](const char *rule, quint8 type, double factor, quint32 fullScale,
                         const char *native, const char *value) {
        QTest::newRow(rule) << type << factor << fullScale << QString::fromLatin1(native)
                            << QString::fromLatin1(value);
    };
    row("no factor", Int16, 0, 0, "0123", "0123");
    row("no factor, full scale alone", Int16, 0, 1000, "123", "123");
    row("factor 1", Int16, 1, 0, "123", "123");
    row("0.1f is 0.1", Int16, tenth(), 0, "123", "12.3");
    row("0.001f", Uint16, thousandth(), 0, "5000", "5");
    row("small value", Int16, thousandth(), 0, "-5", "-0.005");
    row("zero", Int16, tenth(), 0, "0", "0");
    row("minus zero", Int16, tenth(), 0, "-0", "0");
    row("factor above 1", Int16, 100, 0, "-5", "-500");
    row("negative factor", Int16, -2, 0, "5", "-10");
    row("full scale ends", Int16, 100, 16384, "8192", "50");
    row("full scale ends after many places", Uint32, 1, 2147483648U, "1",
        "0.0000000004656612873077392578125");
    row("full scale does not end: 17 digits", Int16, 1, 3, "1000", "333.33333333333333");
    row("rounded half away", Int16, 1, 3, "-2000", "-666.66666666666667");
    row("17 digits count from the first one that is not 0", Int16, 1, 3000, "1",
        "0.00033333333333333333");
    row("more than 17 digits where a step needs them", Uint64, 1, 3, "18446744073709551614",
        "6148914691236517204.7");
    row("INT64 lowest", Int64, tenth(), 0, "-9223372036854775808", "-922337203685477580.8");
    row("UINT64 highest", Uint64, thousandth(), 0, "18446744073709551615", "18446744073709551.615");
    row("UINT64 times 7", Uint64, 7, 0, "18446744073709551615", "129127208515966861305");
    row("smallest factor", Uint8, double(std::numeric_limits<float>::denorm_min()), 0, "1",
        "0.000000000000000000000000000000000000000000001");
    row("largest factor", Uint8, double(std::numeric_limits<float>::max()), 0, "1",
        "340282350000000000000000000000000000000");
    row("factor that is no number", Int16, std::numeric_limits<double>::quiet_NaN(), 0, "5", "5");
    row("infinite factor", Int16, std::numeric_limits<double>::infinity(), 0, "5", "5");
    row("native text that is no integer stays", Int16, tenth(), 0, "1.5", "1.5");
    row("native text that is no number stays", Int16, tenth(), 0, "abc", "abc");
    row("empty stays", Int16, tenth(), 0, "", "");
    row("REAL64", Real64, thousandth(), 0, "1234.5", "1.2345");
    row("REAL64 with full scale", Real64, 100, 8, "2", "25");
    row("REAL32", Real32, 2, 0, "0.25", "0.5");
    row("REAL64 large", Real64, 10, 0, "1e300", "1e+301");
    row("real without factor", Real64, 0, 0, "1.50", "1.50");
    row("real that is no number", Real64, 2, 0, "x", "x");
    row("string", String8, 2, 0, "5", "5");
    row("unknown type", Unknown, 2, 0, "5", "5");
}

void tst_ReferenceFunctionProvider::valueText()
{
    QFETCH(quint8, type);
    QFETCH(double, factor);
    QFETCH(quint32, fullScale);
    QFETCH(QString, native);
    const PlainParameterData data = dataOf(type, factor, fullScale);
    QTEST(m_provider->valueText(native, &data, 0), "value");
}

void tst_ReferenceFunctionProvider::nativeText_data()
{
    QTest::addColumn<quint8>("type");
    QTest::addColumn<double>("factor");
    QTest::addColumn<quint32>("fullScale");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("native");

    const auto row = [](const char *rule, quint8 type, double factor, quint32 fullScale,
                         const QString &value, const QString &native) {
        QTest::newRow(rule) << type << factor << fullScale << value << native;
    };
    const QString nines(40, u'9');
    row("no factor", Int16, 0, 0, QStringLiteral("123"), QStringLiteral("123"));
    row("no factor: whole number is written plainly", Int16, 0, 0, QStringLiteral("5.00"),
        QStringLiteral("5"));
    row("no factor: exponent", Int16, 0, 0, QStringLiteral("1e3"), QStringLiteral("1000"));
    row("no factor: plus sign", Int16, 1, 0, QStringLiteral("+7"), QStringLiteral("7"));
    row("no factor: minus zero", Int16, 1, 0, QStringLiteral("-0"), QStringLiteral("0"));
    row("no factor: a fraction is not rounded", Int16, 0, 0, QStringLiteral("5.5"),
        QStringLiteral("5.5"));
    row("no factor: no number", Int16, 0, 0, QStringLiteral("abc"), QStringLiteral("abc"));
    row("no factor: exponent without end", Int16, 0, 0, QStringLiteral("1e999999999"),
        QStringLiteral("1e999999999"));
    row("no factor: string", String8, 0, 0, QStringLiteral("5.00"), QStringLiteral("5.00"));
    row("0.1f is 0.1", Int16, tenth(), 0, QStringLiteral("12.3"), QStringLiteral("123"));
    row("half rounds away", Int16, tenth(), 0, QStringLiteral("0.25"), QStringLiteral("3"));
    row("negative half rounds away", Int16, tenth(), 0, QStringLiteral("-0.25"),
        QStringLiteral("-3"));
    row("below half", Int16, tenth(), 0, QStringLiteral("0.2499999999999999999999999"),
        QStringLiteral("2"));
    row("minus a little is 0", Int16, tenth(), 0, QStringLiteral("-0.01"), QStringLiteral("0"));
    row("rounding after division", Int16, 3, 0, QStringLiteral("-2"), QStringLiteral("-1"));
    row("rounding after division, below half", Int16, 3, 0, QStringLiteral("1"),
        QStringLiteral("0"));
    row("rounding after division, half", Int16, 4, 0, QStringLiteral("-2"), QStringLiteral("-1"));
    row("full scale", Int16, 100, 16384, QStringLiteral("50"), QStringLiteral("8192"));
    row("negative factor", Int16, -2, 0, QStringLiteral("10"), QStringLiteral("-5"));
    row("exponent", Int16, tenth(), 0, QStringLiteral("1e3"), QStringLiteral("10000"));
    row("negative exponent", Int16, tenth(), 0, QStringLiteral("5E-1"), QStringLiteral("5"));
    row("UINT64 highest", Uint64, thousandth(), 0, QStringLiteral("18446744073709551.615"),
        QStringLiteral("18446744073709551615"));
    row("no number", Int16, tenth(), 0, QStringLiteral("12 A"), QStringLiteral("12 A"));
    row("empty", Int16, tenth(), 0, QString(), QString());
    row("point alone", Int16, tenth(), 0, QStringLiteral("."), QStringLiteral("."));
    row("exponent without digits", Int16, tenth(), 0, QStringLiteral("1e"), QStringLiteral("1e"));
    row("no digit before the point", Int16, tenth(), 0, QStringLiteral(".5"), QStringLiteral("5"));
    row("no digit behind the point", Int16, tenth(), 0, QStringLiteral("5."), QStringLiteral("50"));
    row("hexadecimal is no number", Int16, tenth(), 0, QStringLiteral("0x10"),
        QStringLiteral("0x10"));
    row("beyond 40 digits", Int16, tenth(), 0, QStringLiteral("1e60"), nines);
    row("beyond 40 digits, negative", Int16, tenth(), 0, QStringLiteral("-1e60"), u'-' + nines);
    row("beyond 40 digits, negative factor", Int16, -2, 0, QStringLiteral("1e60"), u'-' + nines);
    row("zero with any exponent", Int16, tenth(), 0, QStringLiteral("0e999999999"),
        QStringLiteral("0"));
    row("too small", Int16, tenth(), 0, QStringLiteral("1e-999999999"), QStringLiteral("0"));
    row("REAL64", Real64, thousandth(), 0, QStringLiteral("1.2345"), QStringLiteral("1234.5"));
    row("REAL32 is rounded to its type", Real32, tenth(), 0, QStringLiteral("0.01"),
        QStringLiteral("0.1"));
    row("REAL64 overflow", Real64, tenth(), 0, QStringLiteral("1e308"), QStringLiteral("inf"));
    row("REAL32 overflow", Real32, tenth(), 0, QStringLiteral("1e38"), QStringLiteral("1e+39"));
    row("real: no number", Real64, tenth(), 0, QStringLiteral("1,5"), QStringLiteral("1,5"));
    row("unknown type", Unknown, tenth(), 0, QStringLiteral("1.50"), QStringLiteral("1.50"));
}

void tst_ReferenceFunctionProvider::nativeText()
{
    QFETCH(quint8, type);
    QFETCH(double, factor);
    QFETCH(quint32, fullScale);
    QFETCH(QString, value);
    const PlainParameterData data = dataOf(type, factor, fullScale);
    QTEST(m_provider->nativeText(value, &data, 0), "native");
}

void tst_ReferenceFunctionProvider::nativeTextOfHugeTexts_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<quint32>("code");

    QTest::newRow("exponent without end") << QStringLiteral("1e999999999") << 3U;
    QTest::newRow("negative") << QStringLiteral("-1e999999999") << 2U;
    QTest::newRow("exponent beyond 64 bits") << QStringLiteral("1e99999999999999999999999") << 3U;
    QTest::newRow("a megabyte of digits") << QString(Megabyte, u'7') << 3U;
    QTest::newRow("a megabyte of decimals") << QStringLiteral("1.") + QString(Megabyte, u'7') << 0U;
    QTest::newRow("a megabyte of zeros") << QString(Megabyte, u'0') + u'1' << 0U;
    QTest::newRow("a megabyte of small")
        << QStringLiteral("0.") + QString(Megabyte, u'0') + u'1' << 0U;
    QTest::newRow("a megabyte of exponent") << QStringLiteral("1e") + QString(Megabyte, u'9') << 3U;
    QTest::newRow("exponent takes back the zeros")
        << QStringLiteral("0.") + QString(Megabyte, u'0') + QStringLiteral("1e1048577") << 0U;
    QTest::newRow("a megabyte of signs") << QString(Megabyte, u'-') << 1U;
}

void tst_ReferenceFunctionProvider::nativeTextOfHugeTexts()
{
    QFETCH(QString, value);
    const PlainParameterData data = dataOf(Uint64, tenth(), 3);
    const QString native = m_provider->nativeText(value, &data, 0);
    QVERIFY(native.size() <= 41 || native == value);
    PlainParameterData signedData = dataOf(Int64);
    QTEST(m_provider->checkValue(native, &signedData, 0), "code");
}

void tst_ReferenceFunctionProvider::roundTripOfRandomNumbers_data()
{
    QTest::addColumn<quint8>("type");
    QTest::newRow("INT64") << Int64;
    QTest::newRow("UINT64") << Uint64;
}

void tst_ReferenceFunctionProvider::roundTripOfRandomNumbers()
{
    QFETCH(quint8, type);
    std::mt19937_64 random(20240229);
    for (int i = 0; i < 200'000; ++i) {
        const quint64 bits = random() >> (random() % 64);
        const QString native =
            type == Uint64 ? QString::number(bits) : QString::number(qint64(bits));
        // Every bit pattern that is a number, and every magnitude of full scale, none included.
        const float factor = std::bit_cast<float>(quint32(random()));
        const quint32 fullScale = quint32(quint64(quint32(random())) >> (random() % 33));
        const PlainParameterData data = dataOf(type, double(factor), fullScale);
        const QString value = m_provider->valueText(native, &data, 0);
        const QString back = m_provider->nativeText(value, &data, 0);
        if (back != native)
            QFAIL(qPrintable(QStringLiteral("%1 * %2 / %3 = %4, back %5")
                                 .arg(native)
                                 .arg(double(factor))
                                 .arg(fullScale)
                                 .arg(value, back)));
        const bool isPlain = !value.contains(u'e') && !value.endsWith(u'.')
            && !(value.contains(u'.') && value.endsWith(u'0')) && value != QStringLiteral("-0");
        QVERIFY2(isPlain, qPrintable(value));
    }
}

void tst_ReferenceFunctionProvider::roundTripOfRandomReals()
{
    std::mt19937_64 random(20240229);
    const PlainParameterData data = dataOf(Real32, tenth(), 7);
    for (int i = 0; i < 50'000; ++i) {
        const float number = std::bit_cast<float>(quint32(random()));
        if (!(std::abs(number) < 1e38F))
            continue;
        char text[40];
        const auto end = std::to_chars(text, text + sizeof text, number).ptr;
        const QString native = QString::fromLatin1(text, end - text);
        const QString value = m_provider->valueText(native, &data, 0);
        QCOMPARE(m_provider->nativeText(value, &data, 0), native);
    }
}

void tst_ReferenceFunctionProvider::questionsAreFew_data()
{
    QTest::addColumn<double>("factor");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("questionsForValue");
    QTest::addColumn<QStringList>("questionsForNative");

    const QStringList factor {QStringLiteral("factor")};
    const QStringList withFullScale {QStringLiteral("factor"), QStringLiteral("fullScale")};
    const QStringList all = withFullScale + QStringList {QStringLiteral("type")};
    QTest::newRow("no factor") << 0.0 << QStringLiteral("5") << factor << factor;
    QTest::newRow("factor 1") << 1.0 << QStringLiteral("5") << withFullScale << withFullScale;
    QTest::newRow("scaled") << tenth() << QStringLiteral("5") << all << all;
}

void tst_ReferenceFunctionProvider::questionsAreFew()
{
    QFETCH(double, factor);
    QFETCH(QString, value);
    const PlainParameterData data = dataOf(Int16, factor);
    m_provider->valueText(value, &data, 0);
    QTEST(data.questions, "questionsForValue");
    data.questions.clear();
    m_provider->nativeText(value, &data, 0);
    QTEST(data.questions, "questionsForNative");
}

void tst_ReferenceFunctionProvider::limitsAreThoseOfTheParameter()
{
    PlainParameterData data = dataOf(Int16);
    data.lower = QStringLiteral("-5");
    data.upper = QStringLiteral("7");
    QCOMPARE(m_provider->lowerLimit(&data, 0), QStringLiteral("-5"));
    QCOMPARE(m_provider->upperLimit(&data, 0), QStringLiteral("7"));
}

void tst_ReferenceFunctionProvider::indexRunsNothing()
{
    const PlainParameterData data = dataOf(Int16);
    QVERIFY(!m_provider->isHidden(&data, 0));
    for (const eFunctionKind kind : {eFunctionKind::Preread, eFunctionKind::Prewrite,
             eFunctionKind::Postwrite, eFunctionKind::Postread})
        m_provider->runFunction(kind, &data, 0);
    QCOMPARE(data.questions, QStringList());
}

PlainParameterData tst_ReferenceFunctionProvider::dataOf(
    quint8 type, double factor, quint32 fullScale) const
{
    PlainParameterData data;
    data.type = type;
    data.factor = factor;
    data.fullScale = fullScale;
    return data;
}

QTEST_APPLESS_MAIN(tst_ReferenceFunctionProvider)
#include "tst_ReferenceFunctionProvider.moc"

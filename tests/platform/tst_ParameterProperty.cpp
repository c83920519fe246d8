#include <KrParameterDefinition/ParameterProperty.h>

#include <KrMultilingual/LanguageManager.h>
#include <KrMultilingual/ParameterText.h>
#include <KrMultilingual/ParameterTextMap.h>

#include <QtCore/QStringList>
#include <QtCore/QVariantList>
#include <QtTest/QtTest>

#include <limits>

using Uint16List = QList<quint16>;

class tst_ParameterProperty : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isInvalidByDefault();
    void asString_data();
    void asString();
    void asStringOfTextFollowsActiveLanguage();
    void integers_data();
    void integers();
    void readsIntegersOfEveryHeldType();
    void refusesIntegers_data();
    void refusesIntegers();
    void floatingPoint_data();
    void floatingPoint();
    void refusesFloatingPoint_data();
    void refusesFloatingPoint();
    void asFloatRefusesRange();
    void doublesReturnFromTheirText_data();
    void doublesReturnFromTheirText();
    void asUint16List_data();
    void asUint16List();
    void comparesByValue();
};

void tst_ParameterProperty::isInvalidByDefault()
{
    const ParameterProperty property;
    QVERIFY(!property.isValid());
    QCOMPARE(property.asString(), QString());
    QCOMPARE(property.asUint16(), quint16(0));
    QCOMPARE(property.asUint32(), 0U);
    QCOMPARE(property.asInt32(), 0);
    QCOMPARE(property.asFloat(), 0.0F);
    QCOMPARE(property.asDouble(), 0.0);
    QCOMPARE(property.asUint16List(), Uint16List());
    QVERIFY(!property.asVariant().isValid());
}

void tst_ParameterProperty::asString_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const QVariant &value, const char *text) {
        QTest::newRow(name) << value << QString::fromLatin1(text);
    };
    row("text as it is", QStringLiteral(" 1,5 "), " 1,5 ");
    row("empty text", QString(), "");
    row("true", true, "1");
    row("false", false, "0");
    row("int", -12, "-12");
    row("smallest int", std::numeric_limits<int>::min(), "-2147483648");
    row("uint", 4294967295U, "4294967295");
    row("smallest longlong", std::numeric_limits<qlonglong>::min(), "-9223372036854775808");
    row("largest ulonglong", std::numeric_limits<qulonglong>::max(), "18446744073709551615");
    row("short", QVariant::fromValue(short(-7)), "-7");
    row("unsigned char is a number", QVariant::fromValue(uchar(65)), "65");
    row("signed char is a number", QVariant::fromValue(static_cast<signed char>(-65)), "-65");
    row("double 0.1", 0.1, "0.1");
    row("double with all digits", 0.1 + 0.2, "0.30000000000000004");
    row("float 0.1", 0.1F, "0.1");
    row("float third", 1.0F / 3.0F, "0.33333334");
    row("negative double", -2.5, "-2.5");
    row("whole double", 5.0, "5");
    row("negative zero", -0.0, "0");
    row("100000 without exponent", 100000.0, "100000");
    row("below 1e15 written out", 999999999999999.0, "999999999999999");
    row("1e15 with exponent", 1e15, "1e+15");
    row("largest double", std::numeric_limits<double>::max(), "1.7976931348623157e+308");
    row("smallest double", std::numeric_limits<double>::denorm_min(), "5e-324");
    row("largest float", std::numeric_limits<float>::max(), "3.4028235e+38");
    row("infinity is no number", std::numeric_limits<double>::infinity(), "");
    row("NaN is no number", std::numeric_limits<double>::quiet_NaN(), "");
    row("list", QVariantList({1, QStringLiteral("a"), 0.5}), "1;a;0.5");
    row("list in a list", QVariantList({QVariant(QVariantList({1, 2})), 3}), "1;2;3");
    row("empty list", QVariantList(), "");
    row("list of numbers", QVariant::fromValue(Uint16List({0, 65535})), "0;65535");
    row("list of texts", QStringList({QStringLiteral("a"), QStringLiteral("b")}), "a;b");
    row("map of texts has no text", QVariant::fromValue(ParameterTextMap()), "");
    row("null pointer has no text", QVariant::fromValue(nullptr), "");
}

void tst_ParameterProperty::asString()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(ParameterProperty(value).asString(), text);
}

void tst_ParameterProperty::asStringOfTextFollowsActiveLanguage()
{
    ParameterText text;
    text.setText(QStringLiteral("de"), QStringLiteral("A"), QStringLiteral("Ampere de"));
    text.setText(QStringLiteral("en"), QStringLiteral("A"), QStringLiteral("Ampere en"));
    const ParameterProperty property(QVariant::fromValue(text));

    QCOMPARE(property.asString(), QStringLiteral("Ampere de"));
    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("en")));
    QCOMPARE(property.asString(), QStringLiteral("Ampere en"));
    QVERIFY(LanguageManager::instance()->setActiveLanguage(QStringLiteral("de")));
    QCOMPARE(property.asUint32(), 0U);
    QCOMPARE(property.asDouble(), 0.0);
}

void tst_ParameterProperty::integers_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<quint16>("uint16");
    QTest::addColumn<quint32>("uint32");
    QTest::addColumn<qint32>("int32");

    const auto row = [](const char *name, const QVariant &value, int uint16, quint32 uint32,
                         int int32) {
        QTest::newRow(name) << value << quint16(uint16) << uint32 << int32;
    };
    row("zero", 0, 0, 0, 0);
    row("true", true, 1, 1, 1);
    row("largest of 16 bits", 65535, 65535, 65535, 65535);
    row("65536 is out of 16 bits", 65536, 0, 65536, 65536);
    row("largest int", 2147483647, 0, 2147483647, 2147483647);
    row("2147483648 is out of int", 2147483648U, 0, 2147483648U, 0);
    row("largest uint", 4294967295U, 0, 4294967295U, 0);
    row("4294967296 is out of all", Q_INT64_C(4294967296), 0, 0, 0);
    row("largest ulonglong is out of all", Q_UINT64_C(18446744073709551615), 0, 0, 0);
    row("negative", -1, 0, 0, -1);
    row("smallest int", std::numeric_limits<int>::min(), 0, 0, -2147483647 - 1);
    row("below the smallest int", Q_INT64_C(-2147483649), 0, 0, 0);
    row("whole double", 5.0, 5, 5, 5);
    row("whole float", 5.0F, 5, 5, 5);
    row("negative double", -5.0, 0, 0, -5);
    row("largest uint as double", 4294967295.0, 0, 4294967295U, 0);
    row("2147483647 as double", 2147483647.0, 0, 2147483647, 2147483647);
    row("2147483648 as float", 2147483648.0F, 0, 2147483648U, 0);
    row("text", QStringLiteral("42"), 42, 42, 42);
    row("text with leading zeros", QStringLiteral("007"), 7, 7, 7);
    row("negative text", QStringLiteral("-42"), 0, 0, -42);
    row("text 65536", QStringLiteral("65536"), 0, 65536, 65536);
    row("text 4294967295", QStringLiteral("4294967295"), 0, 4294967295U, 0);
    row("text -2147483648", QStringLiteral("-2147483648"), 0, 0, -2147483647 - 1);
}

void tst_ParameterProperty::integers()
{
    QFETCH(QVariant, value);
    QFETCH(quint16, uint16);
    QFETCH(quint32, uint32);
    QFETCH(qint32, int32);

    const ParameterProperty property(value);
    QCOMPARE(property.asUint16(), uint16);
    QCOMPARE(property.asUint32(), uint32);
    QCOMPARE(property.asInt32(), int32);
}

void tst_ParameterProperty::readsIntegersOfEveryHeldType()
{
    const QVariantList fives {5, 5U, Q_INT64_C(5), Q_UINT64_C(5), 5.0, 5.0F,
        QVariant::fromValue(short(5)), QVariant::fromValue(ushort(5)), QVariant::fromValue(5L),
        QVariant::fromValue(5UL), QVariant::fromValue(char(5)),
        QVariant::fromValue(static_cast<signed char>(5)), QVariant::fromValue(uchar(5)),
        QStringLiteral("5")};
    for (const QVariant &five : fives) {
        const ParameterProperty property(five);
        QVERIFY2(property.asString() == QStringLiteral("5"), five.typeName());
        QVERIFY2(property.asUint16() == 5, five.typeName());
        QVERIFY2(property.asUint32() == 5, five.typeName());
        QVERIFY2(property.asInt32() == 5, five.typeName());
        QVERIFY2(property.asFloat() == 5.0F, five.typeName());
        QVERIFY2(property.asDouble() == 5.0, five.typeName());
        QVERIFY2(property.asUint16List() == Uint16List({5}), five.typeName());
    }
}

void tst_ParameterProperty::refusesIntegers_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("fraction") << QVariant(5.5);
    QTest::newRow("float fraction") << QVariant(0.1F);
    QTest::newRow("1e300") << QVariant(1e300);
    QTest::newRow("-1e300") << QVariant(-1e300);
    QTest::newRow("infinity") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("NaN") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("empty text") << QVariant(QString());
    QTest::newRow("fractional text") << QVariant(QStringLiteral("5.5"));
    QTest::newRow("text 5.0") << QVariant(QStringLiteral("5.0"));
    QTest::newRow("decimal comma") << QVariant(QStringLiteral("5,0"));
    QTest::newRow("group separator") << QVariant(QStringLiteral("1.000"));
    QTest::newRow("exponent") << QVariant(QStringLiteral("1e2"));
    QTest::newRow("hexadecimal") << QVariant(QStringLiteral("0x10"));
    QTest::newRow("leading blank") << QVariant(QStringLiteral(" 5"));
    QTest::newRow("trailing blank") << QVariant(QStringLiteral("5 "));
    QTest::newRow("plus sign") << QVariant(QStringLiteral("+5"));
    QTest::newRow("sign alone") << QVariant(QStringLiteral("-"));
    QTest::newRow("Arabic digit") << QVariant(QStringLiteral(u"\u0665"));
    QTest::newRow("NUL") << QVariant(QString::fromUtf16(u"5\0", 2));
    QTest::newRow("out of every range") << QVariant(QStringLiteral("99999999999999999999"));
    QTest::newRow("1 MB of digits") << QVariant(QString(1024 * 1024, u'1'));
    QTest::newRow("1 MB of zeros") << QVariant(QString(1024 * 1024, u'0'));
    QTest::newRow("list") << QVariant(QVariantList({5}));
    QTest::newRow("map of texts") << QVariant::fromValue(ParameterTextMap());
}

void tst_ParameterProperty::refusesIntegers()
{
    QFETCH(QVariant, value);

    const ParameterProperty property(value);
    QCOMPARE(property.asUint16(), quint16(0));
    QCOMPARE(property.asUint32(), 0U);
    QCOMPARE(property.asInt32(), 0);
}

void tst_ParameterProperty::floatingPoint_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<float>("asFloat");
    QTest::addColumn<double>("asDouble");

    QTest::newRow("double") << QVariant(0.1) << 0.1F << 0.1;
    QTest::newRow("float is widened exactly")
        << QVariant(0.1F) << 0.1F << 0.100000001490116119384765625;
    QTest::newRow("text") << QVariant(QStringLiteral("0.1")) << 0.1F << 0.1;
    QTest::newRow("negative text") << QVariant(QStringLiteral("-2.5")) << -2.5F << -2.5;
    QTest::newRow("whole text") << QVariant(QStringLiteral("42")) << 42.0F << 42.0;
    QTest::newRow("exponent") << QVariant(QStringLiteral("1e-5")) << 1e-5F << 1e-5;
    QTest::newRow("int") << QVariant(-7) << -7.0F << -7.0;
    QTest::newRow("bool") << QVariant(true) << 1.0F << 1.0;
    QTest::newRow("largest ulonglong") << QVariant(Q_UINT64_C(18446744073709551615))
                                       << 18446744073709551616.0F << 18446744073709551616.0;
    QTest::newRow("largest float") << QVariant(std::numeric_limits<float>::max()) << 3.40282347e38F
                                   << 340282346638528859811704183484516925440.0;
}

void tst_ParameterProperty::floatingPoint()
{
    QFETCH(QVariant, value);
    QFETCH(float, asFloat);
    QFETCH(double, asDouble);

    const ParameterProperty property(value);
    QVERIFY(property.asFloat() == asFloat);
    QVERIFY(property.asDouble() == asDouble);
}

void tst_ParameterProperty::refusesFloatingPoint_data()
{
    QTest::addColumn<QVariant>("value");

    QTest::newRow("infinity") << QVariant(std::numeric_limits<double>::infinity());
    QTest::newRow("float infinity") << QVariant(-std::numeric_limits<float>::infinity());
    QTest::newRow("NaN") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("float NaN") << QVariant(std::numeric_limits<float>::quiet_NaN());
    QTest::newRow("empty text") << QVariant(QString());
    QTest::newRow("decimal comma") << QVariant(QStringLiteral("2,5"));
    QTest::newRow("two points") << QVariant(QStringLiteral("1.2.3"));
    QTest::newRow("leading blank") << QVariant(QStringLiteral(" 2.5"));
    QTest::newRow("trailing unit") << QVariant(QStringLiteral("2.5 A"));
    QTest::newRow("hexadecimal") << QVariant(QStringLiteral("0x1p3"));
    QTest::newRow("text inf") << QVariant(QStringLiteral("inf"));
    QTest::newRow("text nan") << QVariant(QStringLiteral("nan"));
    QTest::newRow("out of double") << QVariant(QStringLiteral("1e400"));
    QTest::newRow("1 MB of digits") << QVariant(QString(1024 * 1024, u'1'));
    QTest::newRow("list") << QVariant(QVariantList({2.5}));
}

void tst_ParameterProperty::refusesFloatingPoint()
{
    QFETCH(QVariant, value);
    QCOMPARE(ParameterProperty(value).asFloat(), 0.0F);
    QCOMPARE(ParameterProperty(value).asDouble(), 0.0);
}

void tst_ParameterProperty::asFloatRefusesRange()
{
    QCOMPARE(ParameterProperty(1e39).asFloat(), 0.0F);
    QCOMPARE(ParameterProperty(-1e39).asFloat(), 0.0F);
    QCOMPARE(ParameterProperty(QStringLiteral("1e39")).asFloat(), 0.0F);
    QCOMPARE(ParameterProperty(1e39).asDouble(), 1e39);
}

void tst_ParameterProperty::doublesReturnFromTheirText_data()
{
    QTest::addColumn<double>("number");

    QTest::newRow("0.1") << 0.1;
    QTest::newRow("third") << 1.0 / 3.0;
    QTest::newRow("largest") << std::numeric_limits<double>::max();
    QTest::newRow("smallest normal") << std::numeric_limits<double>::min();
    QTest::newRow("smallest") << std::numeric_limits<double>::denorm_min();
    QTest::newRow("2^53") << 9007199254740992.0;
    QTest::newRow("-1e15") << -1e15;
    QTest::newRow("999999999999999.875") << 999999999999999.875;
}

void tst_ParameterProperty::doublesReturnFromTheirText()
{
    QFETCH(double, number);
    const ParameterProperty text(ParameterProperty(number).asString());
    QVERIFY(text.asDouble() == number);
}

void tst_ParameterProperty::asUint16List_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<Uint16List>("list");

    QTest::newRow("list of numbers")
        << QVariant::fromValue(Uint16List({3, 1})) << Uint16List({3, 1});
    QTest::newRow("list of variants")
        << QVariant(QVariantList({1, QStringLiteral("2"), 3.0})) << Uint16List({1, 2, 3});
    QTest::newRow("list of texts")
        << QVariant(QStringList({QStringLiteral("1"), QStringLiteral("2")})) << Uint16List({1, 2});
    QTest::newRow("entries that do not convert are 0")
        << QVariant(QVariantList({65536, -1, QStringLiteral("x"), 65535}))
        << Uint16List({0, 0, 0, 65535});
    QTest::newRow("empty list") << QVariant(QVariantList()) << Uint16List();
    QTest::newRow("number") << QVariant(7) << Uint16List({7});
    QTest::newRow("number 0") << QVariant(0) << Uint16List({0});
    QTest::newRow("text with a number") << QVariant(QStringLiteral("7")) << Uint16List({7});
    QTest::newRow("number out of range") << QVariant(65536) << Uint16List();
    QTest::newRow("other text") << QVariant(QStringLiteral("1;2")) << Uint16List();
}

void tst_ParameterProperty::asUint16List()
{
    QFETCH(QVariant, value);
    QFETCH(Uint16List, list);
    QCOMPARE(ParameterProperty(value).asUint16List(), list);
}

void tst_ParameterProperty::comparesByValue()
{
    ParameterText text;
    text.setText(QStringLiteral("de"), QString(), QStringLiteral("Strom"));
    ParameterText same;
    same.setText(QStringLiteral("de"), QString(), QStringLiteral("Strom"));

    QVERIFY(ParameterProperty(5) == ParameterProperty(5));
    QVERIFY(!(ParameterProperty(5) == ParameterProperty(6)));
    QVERIFY(ParameterProperty() == ParameterProperty());
    QVERIFY(ParameterProperty(QVariant::fromValue(text))
        == ParameterProperty(QVariant::fromValue(same)));
    QVERIFY(!(ParameterProperty(QVariant::fromValue(text)) == ParameterProperty(5)));
}

QTEST_GUILESS_MAIN(tst_ParameterProperty)
#include "tst_ParameterProperty.moc"

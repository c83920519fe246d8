#include "value/ValueTextConverter.h"

#include "FakeParameterInformation.h"
#include "LocalText.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QtTest>

#include <limits>

namespace {

const QString Ampere = QStringLiteral("A");

QVariant choice()
{
    ParameterText torque;
    torque.setText(QStringLiteral("de"), QString(), QStringLiteral("Drehmoment"));
    ParameterText placeholder;
    placeholder.setText(QStringLiteral("de"), QString(), QStringLiteral("<localAxis:E12>"));
    ParameterTextMap map;
    map.insert(3, torque);
    map.insert(4, placeholder);
    return QVariant::fromValue(map);
}

quint8 typeNamed(const QString &name)
{
    const SimpleType *type = DatatypeProvider::instance()->simpleType(name);
    return type ? type->id() : 0;
}

/// The number of the address of axis 1 (shown as 2), group E and line 12.
quint32 addressNumber(quint16 element)
{
    return ParameterAddress(1, ParameterCoordinate(QStringLiteral("E12")), element).toNumber();
}

} // namespace

class tst_ValueTextConverter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void prepare_data();
    void prepare();
    void prepareOfOtherKinds_data();
    void prepareOfOtherKinds();
    void adopt_data();
    void adopt();
    void adoptReports_data();
    void adoptReports();
    void problemsAreThoseOfTheLastCall();
    void adoptDefault_data();
    void adoptDefault();
    void format_data();
    void format();
    void onlyNeededPropertiesAreRead_data();
    void onlyNeededPropertiesAreRead();
    void choiceOfAnotherVariantIsConverted();
    void placeholderShowsTheOtherParameter();
    void placeholderIsAdoptedByItsText();
    void addressShowsTheOtherParameter_data();
    void addressShowsTheOtherParameter();
};

void tst_ValueTextConverter::prepare_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, int kind, const char *type, const char *value,
                         const QString &text) {
        QTest::newRow(name) << kind << QString::fromLatin1(type) << QString::fromLatin1(value)
                            << text;
    };
    row("decimal has a unit", 0, "UINT16", "12", localText(QStringLiteral("12.00 A")));
    row("decimal of unknown type is empty", 0, "", "12", QString());
    row("choice", 1, "UINT16", "3", QStringLiteral("3: Drehmoment"));
    row("choice of kind 2", 2, "UINT16", "3", QStringLiteral("3: Drehmoment"));
    row("choice without the key", 1, "UINT16", "5", QStringLiteral("5"));
    row("choice with a placeholder and no container", 1, "UINT16", "4",
        QStringLiteral("4: <localAxis:E12>"));
    row("hexadecimal", 3, "UINT16", "255", QStringLiteral("00ff hex"));
    row("binary", 4, "UINT8", "5", QStringLiteral("0000 0101 bin"));
    row("kind 5 as it stands", 5, "UINT16", "1.5", QStringLiteral("1.5"));
    row("kind 6 as it stands", 6, "UINT16", "1.5", QStringLiteral("1.5"));
    row("time", 7, "UINT32", "8519", QStringLiteral("2h 05m 07s"));
    row("kind 8 as it stands", 8, "STRING16", "1.5", QStringLiteral("1.5"));
    row("kind 9 as it stands", 9, "STRING16", "1.5", QStringLiteral("1.5"));
    row("IPv4", 10, "UINT32", "3232235521", QStringLiteral("192.168.0.1"));
    row("address without container as it stands", 11, "UINT32", "5012", QStringLiteral("5012"));
    row("empty stays empty, decimal", 0, "UINT16", "", QString());
    row("empty stays empty, hexadecimal", 3, "UINT16", "", QString());
    row("empty stays empty, time", 7, "UINT32", "", QString());
    row("data type 31 is never formatted, decimal", 0, "RAW", "12", QStringLiteral("12"));
    row("data type 31 is never formatted, time", 7, "RAW", "12", QStringLiteral("12"));
}

void tst_ValueTextConverter::prepare()
{
    QFETCH(int, kind);
    QFETCH(QString, type);
    QFETCH(QString, value);
    FakeParameterInformation information;
    information.kindValue = kind;
    information.datatypeId = typeNamed(type);
    information.behind = 2;
    information.choice = choice();
    ValueTextConverter converter(information);
    QTEST(converter.prepare(value, eLivingSpace::Axis1, 0, Ampere), "text");
    QVERIFY(converter.problems().isEmpty());
}

void tst_ValueTextConverter::prepareOfOtherKinds_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("-1") << -1;
    QTest::newRow("12") << 12;
    QTest::newRow("lowest") << std::numeric_limits<int>::min();
    QTest::newRow("greatest") << std::numeric_limits<int>::max();
}

void tst_ValueTextConverter::prepareOfOtherKinds()
{
    QFETCH(int, kind);
    FakeParameterInformation information;
    information.kindValue = kind;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    ValueTextConverter converter(information);
    const QString text = QStringLiteral(" 12 hex");
    QCOMPARE(converter.prepare(text, eLivingSpace::Axis1, 0, Ampere), text);
    QCOMPARE(converter.adopt(text, eLivingSpace::Axis1, 0, Ampere), text);
    QCOMPARE(converter.adoptDefault(text, 0), text);
    QVERIFY(converter.problems().isEmpty());
}

void tst_ValueTextConverter::adopt_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");

    const auto row = [](const char *name, int kind, const char *type, const QString &typed,
                         const char *value) {
        QTest::newRow(name) << kind << QString::fromLatin1(type) << typed
                            << QString::fromLatin1(value);
    };
    row("decimal with unit", 0, "UINT16", localText(QStringLiteral(" 12.5 A")), "12.5");
    row("decimal takes hexadecimal", 0, "UINT16", QStringLiteral("1f hex"), "31");
    row("decimal takes binary", 0, "UINT16", QStringLiteral("101 bin"), "5");
    row("the suffix goes before the unit", 0, "UINT16", QStringLiteral("12 dec A"), "12");
    row("decimal that is no number goes on", 0, "UINT16", QStringLiteral("abc"), "abc");
    row("decimal of unknown type", 0, "", QStringLiteral("12 A"), "12");
    row("choice by number", 1, "UINT16", QStringLiteral("3: Drehmoment"), "3");
    row("choice by text", 2, "UINT16", QStringLiteral("Drehmoment"), "3");
    row("choice that is none goes on", 1, "UINT16", QStringLiteral("abc"), "abc");
    row("choice takes no suffix", 1, "UINT16", QStringLiteral("1f hex"), "1f hex");
    row("hexadecimal", 3, "UINT16", QStringLiteral("00ff hex"), "255");
    row("hexadecimal without suffix", 3, "UINT16", QStringLiteral("ff"), "255");
    row("hexadecimal takes decimal", 3, "UINT16", QStringLiteral("12 dec"), "12");
    row("hexadecimal takes binary", 3, "UINT16", QStringLiteral("11 bin"), "3");
    // Deliberate: "dec" is the suffix, though it may be meant as digits.
    row("0xdec is decimal", 3, "UINT16", QStringLiteral("0xdec"), "0x");
    row("binary", 4, "UINT8", QStringLiteral("0000 0101 bin"), "5");
    row("binary takes hexadecimal", 4, "UINT8", QStringLiteral("ff hex"), "255");
    row("signed 64 bits", 4, "INT64", QString(64, QLatin1Char('1')), "-1");
    row("kind 5 as it stands", 5, "UINT16", QStringLiteral(" 1f hex"), " 1f hex");
    row("kind 6 as it stands", 6, "UINT16", QStringLiteral(" 1f hex"), " 1f hex");
    row("time", 7, "UINT32", QStringLiteral("2h 05m 07s"), "8519");
    // Deliberate: a text without any part is the time 0.
    row("time without part", 7, "UINT32", QStringLiteral("abc"), "0");
    row("kind 8 as it stands", 8, "STRING16", QStringLiteral(" a,b"), " a,b");
    row("kind 9 as it stands", 9, "STRING16", QStringLiteral(" a,b"), " a,b");
    row("IPv4", 10, "UINT32", QStringLiteral("192.168.0.1"), "3232235521");
    row("address by number", 11, "UINT32", QStringLiteral("5012"), "5012");
    row("address by text", 11, "UINT32", QStringLiteral("E12"), "5012");
    row("data type 31 as it stands", 0, "RAW", QStringLiteral(" 1f hex"), " 1f hex");
}

void tst_ValueTextConverter::adopt()
{
    QFETCH(int, kind);
    QFETCH(QString, type);
    QFETCH(QString, typed);
    FakeParameterInformation information;
    information.kindValue = kind;
    information.datatypeId = typeNamed(type);
    information.choice = choice();
    ValueTextConverter converter(information);
    QTEST(converter.adopt(typed, eLivingSpace::Axis1, 0, Ampere), "value");
    QVERIFY(converter.problems().isEmpty());
}

void tst_ValueTextConverter::adoptReports_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("problem");
    QTest::newRow("hexadecimal") << 3 << QStringLiteral("xyz")
                                 << QStringLiteral("Wert \"xyz\" ist ungültig");
    QTest::newRow("hexadecimal, as typed")
        << 0 << QStringLiteral(" xyz hex") << QStringLiteral("Wert \" xyz hex\" ist ungültig");
    QTest::newRow("suffix without digits")
        << 3 << QStringLiteral("hex") << QStringLiteral("Wert \"hex\" ist ungültig");
    QTest::newRow("more than 64 bits") << 3 << QStringLiteral("10000000000000000")
                                       << QStringLiteral("Wert \"10000000000000000\" ist ungültig");
    QTest::newRow("binary") << 4 << QStringLiteral("012")
                            << QStringLiteral("Wert \"012\" ist ungültig");
    QTest::newRow("IPv4, as typed")
        << 10 << QStringLiteral("1. 2.3.256") << QStringLiteral("Wert \"1. 2.3.256\" ist ungültig");
    QTest::newRow("empty") << 3 << QString() << QStringLiteral("Wert \"\" ist ungültig");
}

void tst_ValueTextConverter::adoptReports()
{
    QFETCH(int, kind);
    QFETCH(QString, typed);
    QFETCH(QString, problem);
    FakeParameterInformation information;
    information.kindValue = kind;
    information.datatypeId = typeNamed(QStringLiteral("UINT32"));
    ValueTextConverter converter(information);
    QCOMPARE(converter.adopt(typed, eLivingSpace::Axis1, 0, Ampere), QString());
    QCOMPARE(converter.problems(), QStringList {problem});
}

void tst_ValueTextConverter::problemsAreThoseOfTheLastCall()
{
    FakeParameterInformation information;
    information.kindValue = 3;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    ValueTextConverter converter(information);
    converter.adopt(QStringLiteral("x"), eLivingSpace::Axis1, 0, QString());
    converter.adopt(QStringLiteral("y"), eLivingSpace::Axis1, 0, QString());
    QCOMPARE(converter.problems().size(), 1);
    converter.prepare(QStringLiteral("1"), eLivingSpace::Axis1, 0, QString());
    QVERIFY(converter.problems().isEmpty());
}

void tst_ValueTextConverter::adoptDefault_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");

    const auto row = [](const char *name, int kind, const char *type, const char *text,
                         const char *value) {
        QTest::newRow(name) << kind << QString::fromLatin1(type) << QString::fromLatin1(text)
                            << QString::fromLatin1(value);
    };
    row("hexadecimal stays decimal", 3, "UINT16", "255", "255");
    row("hexadecimal keeps blanks", 3, "UINT16", " 255 ", " 255 ");
    row("decimal loses outer blanks", 0, "UINT16", " 12 ", "12");
    row("decimal of floating point", 0, "REAL64", " 1.5 ", "1.5");
    row("the point is a point in every locale", 0, "REAL64", "1.5", "1.5");
    row("a comma is no point in any locale", 0, "REAL64", "1,5", "1,5");
    row("a suffix is none", 0, "UINT16", "1f hex", "1f hex");
    row("decimal of a string keeps blanks", 0, "STRING16", " a ", " a ");
    row("decimal of unknown type keeps blanks", 0, "", " 12 ", " 12 ");
    row("data type 31 keeps blanks", 0, "RAW", " 12 ", " 12 ");
    row("choice stays", 1, "UINT16", "3: x", "3: x");
    row("IPv4 stays", 10, "UINT32", "1.2.3.4", "1.2.3.4");
    row("empty", 0, "UINT16", "", "");
}

void tst_ValueTextConverter::adoptDefault()
{
    QFETCH(int, kind);
    QFETCH(QString, type);
    QFETCH(QString, text);
    FakeParameterInformation information;
    information.kindValue = kind;
    information.datatypeId = typeNamed(type);
    ValueTextConverter converter(information);
    QTEST(converter.adoptDefault(text, 0), "value");
    QVERIFY(converter.problems().isEmpty());
}

void tst_ValueTextConverter::format_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::newRow("decimal") << 0 << localText(QStringLiteral("12.00"));
    QTest::newRow("hexadecimal") << 3 << QStringLiteral("000c hex");
    QTest::newRow("binary") << 4 << QStringLiteral("0000 0000 0000 1100 bin");
    QTest::newRow("time") << 7 << QStringLiteral("0h 00m 12s");
    QTest::newRow("IPv4") << 10 << QStringLiteral("0.0.0.12");
    QTest::newRow("no form") << 5 << QStringLiteral("12");
    QTest::newRow("no kind") << 99 << QStringLiteral("12");
}

void tst_ValueTextConverter::format()
{
    QFETCH(int, kind);
    FakeParameterInformation information;
    information.kindValue = 1;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    information.behind = 2;
    ValueTextConverter converter(information);
    QTEST(converter.format(QStringLiteral("12"), eLivingSpace::Axis1, 0, kind), "text");
    QCOMPARE(converter.format(QString(), eLivingSpace::Axis1, 0, kind), QString());
}

void tst_ValueTextConverter::onlyNeededPropertiesAreRead_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QStringList>("asked");
    QTest::newRow("decimal") << 0
                             << QStringList {QStringLiteral("kind"), QStringLiteral("datatype"),
                                    QStringLiteral("decimalPlacesBehind"),
                                    QStringLiteral("decimalPlacesSignificant")};
    QTest::newRow("choice") << 1
                            << QStringList {QStringLiteral("kind"), QStringLiteral("datatype"),
                                   QStringLiteral("property 17")};
    QTest::newRow("hexadecimal") << 3
                                 << QStringList {
                                        QStringLiteral("kind"), QStringLiteral("datatype")};
    QTest::newRow("no form") << 5 << QStringList {QStringLiteral("kind")};
}

void tst_ValueTextConverter::onlyNeededPropertiesAreRead()
{
    QFETCH(int, kind);
    FakeParameterInformation information;
    information.kindValue = kind;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    ValueTextConverter(information).prepare(QStringLiteral("1"), eLivingSpace::Axis1, 0, QString());
    QTEST(information.asked, "asked");
}

void tst_ValueTextConverter::choiceOfAnotherVariantIsConverted()
{
    FakeParameterInformation information;
    information.kindValue = 1;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    information.choice = QVariantMap {{QStringLiteral("3"), QStringLiteral("Drehmoment")}};
    ValueTextConverter converter(information);
    QCOMPARE(converter.prepare(QStringLiteral("3"), eLivingSpace::Axis1, 0, QString()),
        QStringLiteral("3: Drehmoment"));

    information.choice = QVariant(5.0);
    QCOMPARE(converter.prepare(QStringLiteral("3"), eLivingSpace::Axis1, 0, QString()),
        QStringLiteral("3"));
}

void tst_ValueTextConverter::placeholderShowsTheOtherParameter()
{
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = 3;
    named.datatypeId = typeNamed(QStringLiteral("UINT8"));
    named.values = {{eLivingSpace::Axis1, QStringLiteral("255")}};
    container.add("E12", &named);
    FakeParameterInformation information(&container);
    information.kindValue = 1;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    information.choice = choice();
    ValueTextConverter converter(information);
    QCOMPARE(converter.prepare(QStringLiteral("4"), eLivingSpace::Axis1, 0, QString()),
        QStringLiteral("4: ff hex"));
    QCOMPARE(converter.prepare(QStringLiteral("4"), eLivingSpace::Axis2, 0, QString()),
        QStringLiteral("4: <localAxis:E12>"));
}

void tst_ValueTextConverter::placeholderIsAdoptedByItsText()
{
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.kindValue = 5;
    named.values = {{eLivingSpace::Axis1, QStringLiteral("Analog")}};
    container.add("E12", &named);
    FakeParameterInformation information(&container);
    information.kindValue = 1;
    information.datatypeId = typeNamed(QStringLiteral("UINT16"));
    information.choice = choice();
    ValueTextConverter converter(information);
    QCOMPARE(converter.adopt(QStringLiteral("Analog"), eLivingSpace::Axis1, 0, QString()),
        QStringLiteral("4"));
}

void tst_ValueTextConverter::addressShowsTheOtherParameter_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("global");
    QTest::addColumn<bool>("record");
    QTest::addColumn<int>("elements");
    QTest::addColumn<QString>("text");

    const QString first = QString::number(addressNumber(0));
    const QString fourth = QString::number(addressNumber(3));
    QTest::newRow("of one element")
        << first << false << false << 1 << QStringLiteral("2.E12 Motorstrom");
    QTest::newRow("of several elements")
        << first << false << false << 2 << QStringLiteral("2.E12[0] Motorstrom");
    QTest::newRow("record") << fourth << false << true << 1
                            << QStringLiteral("2.E12[3] Motorstrom");
    QTest::newRow("an element beyond is named")
        << fourth << false << false << 1 << QStringLiteral("2.E12[3] Motorstrom");
    QTest::newRow("global") << QStringLiteral("5012") << true << false << 1
                            << QStringLiteral("E12 Motorstrom");
    QTest::newRow("global, with an axis")
        << first << true << false << 1 << QStringLiteral("2.E12 Motorstrom");
    QTest::newRow("not in the container")
        << QStringLiteral("5013") << false << false << 1 << QStringLiteral("5013");
    QTest::newRow("the invalid number")
        << QStringLiteral("4294967295") << false << false << 1 << QStringLiteral("4294967295");
    QTest::newRow("no address") << QStringLiteral("0") << false << false << 1
                                << QStringLiteral("0");
}

void tst_ValueTextConverter::addressShowsTheOtherParameter()
{
    QFETCH(QString, value);
    QFETCH(bool, global);
    QFETCH(bool, record);
    QFETCH(int, elements);
    FakeContainer container;
    FakeParameterInformation named(&container);
    named.isGlobal = global;
    named.isRecord = record;
    named.elements = quint16(elements);
    named.nameText.setText(QStringLiteral("de"), QString(), QStringLiteral("Motorstrom"));
    container.add("E12", &named);
    FakeParameterInformation information(&container);
    information.kindValue = 11;
    information.datatypeId = typeNamed(QStringLiteral("UINT32"));
    ValueTextConverter converter(information);
    const QString shown = converter.prepare(value, eLivingSpace::Axis1, 0, Ampere);
    QTEST(shown, "text");
    QCOMPARE(converter.adopt(shown, eLivingSpace::Axis1, 0, Ampere), value);
}

QTEST_APPLESS_MAIN(tst_ValueTextConverter)
#include "tst_ValueTextConverter.moc"

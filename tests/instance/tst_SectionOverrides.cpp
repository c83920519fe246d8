#include "instance/SectionOverrides.h"

#include "tests/support/DefinitionBuilder.h"
#include "value/ElementCatalogue.h"

#include <LmUtilities/IniSection.h>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eParameterProperty;
using LmIniParser::IniSection;

class tst_SectionOverrides : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keys();
    void nothingIsWrittenWithoutOverrides();
    void valueTexts_data();
    void valueTexts();
    void loadedTypes_data();
    void loadedTypes();
    void changeTags();
    void encodings();
    void multilingualTextSurvivesLatin1();
    void passedOver_data();
    void passedOver();
    void recordElements();
    void lackedPropertiesStay();
    void elementsThatARecordLacksStayOut();
};

namespace {

const ParameterProperty Level(QVariant(3U));

void save(IniSection &section, const std::vector<PropertyResolver::Override> &overrides,
    const DefinitionBuilder &builder = {})
{
    const auto definition = builder.build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver properties(elements);
    properties.replaceOverrides(overrides);
    SectionOverrides::save(section, properties);
}

QStringList written(
    const std::vector<PropertyResolver::Override> &overrides, const DefinitionBuilder &builder = {})
{
    IniSection section;
    save(section, overrides, builder);
    QStringList lines;
    for (const QByteArray &key : section.keys()) {
        lines.append(
            QString::fromLatin1(key) + u'=' + QString::fromLatin1(section.read(key).toByteArray()));
    }
    return lines;
}

std::vector<PropertyResolver::Override> loaded(
    const IniSection &section, const DefinitionBuilder &builder, bool utf8 = false)
{
    const auto definition = builder.build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    return SectionOverrides::load(section, utf8, PropertyResolver(elements));
}

} // namespace

void tst_SectionOverrides::keys()
{
    QCOMPARE(written({{0, ReadLevel, Level, u"a"_s}, {0, WriteLevel, Level, QString()},
                         {16383, MeasuringUnitDependency, Level, u"b"_s}},
                 DefinitionBuilder().element(0, u"a"_s).element(16383, u"b"_s)),
        (QStringList {
            u"P_0_5=3"_s, u"PC_0_5=a"_s, u"P_0_6=3"_s, u"P_16383_39=3"_s, u"PC_16383_39=b"_s}));
}

void tst_SectionOverrides::nothingIsWrittenWithoutOverrides()
{
    QCOMPARE(written({}), QStringList());
}

void tst_SectionOverrides::valueTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");

    QTest::newRow("unsigned") << QVariant(4294967295U) << u"4294967295"_s;
    QTest::newRow("signed") << QVariant(-5) << u"-5"_s;
    QTest::newRow("float as typed") << QVariant(0.1F) << u"0.1"_s;
    QTest::newRow("text") << QVariant(u"a b"_s) << u"a b"_s;
    QTest::newRow("empty text") << QVariant(u""_s) << QString();
    QTest::newRow("list of numbers") << QVariant::fromValue(QList<quint16> {1, 20}) << u"1;20"_s;
}

void tst_SectionOverrides::valueTexts()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    QCOMPARE(written({{0, LowerLimitValue, ParameterProperty(value), QString()}}),
        QStringList {u"P_0_8="_s + text});
}

void tst_SectionOverrides::loadedTypes_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("unsigned") << 5U << QByteArray("3") << QVariant(3U);
    QTest::newRow("float") << 20U << QByteArray("0.25") << QVariant(0.25F);
    QTest::newRow("text") << 8U << QByteArray("-100") << QVariant(u"-100"_s);
    QTest::newRow("empty text") << 8U << QByteArray() << QVariant(u""_s);
    QTest::newRow("text where the definition lacks the property")
        << 47U << QByteArray("1") << QVariant(u"1"_s);
    QTest::newRow("no number stays as it was written")
        << 5U << QByteArray("hoch") << QVariant(u"hoch"_s);
}

void tst_SectionOverrides::loadedTypes()
{
    QFETCH(quint32, property);
    QFETCH(QByteArray, bytes);
    QFETCH(QVariant, expected);

    IniSection section;
    section.write("P_0_" + QByteArray::number(property), bytes);
    const auto overrides =
        loaded(section, DefinitionBuilder().limits(u"0"_s, u"9"_s).scaling(1.0F));
    QCOMPARE(overrides.size(), size_t(1));
    QCOMPARE(quint32(overrides.front().property), property);
    QCOMPARE(overrides.front().value.asVariant(), expected);
    QCOMPARE(overrides.front().changeTag, QString());
}

void tst_SectionOverrides::changeTags()
{
    IniSection section;
    section.write("P_0_5", "3");
    section.write("PC_0_5", "gestern");
    section.write("P_0_6", "4");
    section.write("PC_0_6", "");
    section.write("PC_0_10", "allein");
    const auto overrides = loaded(section, DefinitionBuilder());
    QCOMPARE(overrides.size(), size_t(2));
    QCOMPARE(overrides[0].changeTag, u"gestern"_s);
    QCOMPARE(overrides[1].changeTag, QString());
}

void tst_SectionOverrides::encodings()
{
    IniSection section;
    section.write("P_0_8", "\xc3\xa4");
    section.write("PC_0_8", "\xc3\xbc");
    const DefinitionBuilder builder = DefinitionBuilder().limits(u"0"_s, u"9"_s);
    const auto latin1 = loaded(section, builder, false);
    QCOMPARE(latin1.front().value.asString(), u"Ã¤"_s);
    QCOMPARE(latin1.front().changeTag, u"Ã¼"_s);
    const auto utf8 = loaded(section, builder, true);
    QCOMPARE(utf8.front().value.asString(), u"ä"_s);
    QCOMPARE(utf8.front().changeTag, u"ü"_s);
}

void tst_SectionOverrides::multilingualTextSurvivesLatin1()
{
    ParameterText unit;
    unit.setText(u"de"_s, u"µΩ"_s, u"Mikroohm \"x\\\" 😀"_s);
    unit.setText(u"en"_s, u"uOhm"_s, u"micro ohm"_s);
    IniSection section;
    save(section,
        {{0, ScaledMeasuringUnit, ParameterProperty(QVariant::fromValue(unit)), QString()}});
    const QByteArray bytes = section.read("P_0_18").toByteArray();
    QVERIFY(std::all_of(bytes.begin(), bytes.end(), [](char c) { return c >= 0x20; }));

    const auto overrides = loaded(section, DefinitionBuilder().units(u"V"_s));
    QCOMPARE(overrides.size(), size_t(1));
    QCOMPARE(overrides.front().value.asVariant().value<ParameterText>(), unit);
}

void tst_SectionOverrides::passedOver_data()
{
    QTest::addColumn<QByteArray>("key");

    QTest::newRow("property that no definition holds") << QByteArray("P_0_51");
    for (const int number : {100, 101, 102, 103, 105, 106, 107})
        QTest::addRow("%d is the library's", number) << "P_0_" + QByteArray::number(number);
    QTest::newRow("property number beyond 32 bits") << QByteArray("P_0_4294967301");
    QTest::newRow("no property") << QByteArray("P_0");
    QTest::newRow("empty property") << QByteArray("P_0_");
    QTest::newRow("empty element") << QByteArray("P__5");
    QTest::newRow("negative element") << QByteArray("P_-1_5");
    QTest::newRow("element beyond 16 bits") << QByteArray("P_65536_5");
    QTest::newRow("blank before the property") << QByteArray("P_0_ 5");
    QTest::newRow("text behind the property") << QByteArray("P_0_5x");
    QTest::newRow("small letter") << QByteArray("p_0_5");
    QTest::newRow("tag alone") << QByteArray("PC_0_5");
    QTest::newRow("value key") << QByteArray("V_0_5");
    QTest::newRow("element other than 0 of a simple parameter") << QByteArray("P_3_5");
    QTest::newRow("leading zero of the element") << QByteArray("P_00_5");
    QTest::newRow("leading zero of the property") << QByteArray("P_0_05");
}

void tst_SectionOverrides::passedOver()
{
    QFETCH(QByteArray, key);
    IniSection section;
    section.write(key, "3");
    QVERIFY(loaded(section, DefinitionBuilder().elementCount(5)).empty());
}

void tst_SectionOverrides::recordElements()
{
    IniSection section;
    section.write("P_2_5", "1");
    section.write("P_0_5", "2");
    section.write("P_7_5", "3");
    const auto overrides =
        loaded(section, DefinitionBuilder().element(2, u"a"_s).element(7, u"b"_s));
    QCOMPARE(overrides.size(), size_t(2));
    QCOMPARE(overrides[0].element, quint16(2));
    QCOMPARE(overrides[1].element, quint16(7));
}

void tst_SectionOverrides::lackedPropertiesStay()
{
    ParameterText unit;
    unit.setText(u"de"_s, u"µ"_s, u"µ"_s);
    const DefinitionBuilder builder =
        DefinitionBuilder().without(ReadLevel).without(ScaledMeasuringUnit);
    IniSection section;
    save(section,
        {{0, ReadLevel, Level, u"a"_s},
            {0, ScaledMeasuringUnit, ParameterProperty(QVariant::fromValue(unit)), {}},
            {0, ShownOffline, ParameterProperty(), u"b"_s}},
        builder);
    const auto overrides = loaded(section, builder);
    QCOMPARE(overrides.size(), size_t(3));
    QCOMPARE(overrides[0].value.asUint32(), 3U);
    QCOMPARE(overrides[0].changeTag, u"a"_s);
    QCOMPARE(overrides[1].value.asVariant().value<ParameterText>(), unit);
    QVERIFY(!overrides[2].value.isValid());
    QCOMPARE(overrides[2].changeTag, u"b"_s);

    IniSection again;
    save(again, overrides, builder);
    QCOMPARE(again.keys(), section.keys());
    for (const QByteArray &key : section.keys())
        QCOMPARE(again.read(key).toByteArray(), section.read(key).toByteArray());
}

void tst_SectionOverrides::elementsThatARecordLacksStayOut()
{
    QCOMPARE(written({{2, ReadLevel, Level, QString()}, {7, ReadLevel, Level, u"a"_s}},
                 DefinitionBuilder().element(2, u"a"_s)),
        QStringList {u"P_2_5=3"_s});
}

QTEST_GUILESS_MAIN(tst_SectionOverrides)

#include "tst_SectionOverrides.moc"

#include "value/ElementFacts.h"

#include "tests/support/DefinitionBuilder.h"

#include <KrDatatype/SimpleType.h>

#include <QtCore/QVariantList>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eParameterProperty;

class tst_ElementFacts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFact();
    void withoutProperties();
    void functionIndices_data();
    void functionIndices();
    void dependencies_data();
    void dependencies();
    void isIndependent_data();
    void isIndependent();
    void writeLevel_data();
    void writeLevel();
    void flags_data();
    void flags();
    void units();
    void factsOfOneInformationAreShared();
};

namespace {

std::shared_ptr<const ElementFacts> factsOf(const ParameterDefinition &definition)
{
    return ElementFacts::of(definition.queryElementInformation(0));
}

} // namespace

void tst_ElementFacts::everyFact()
{
    const auto definition = DefinitionBuilder()
                                .datatype(u"INT16"_s)
                                .kind(3)
                                .levels(2, 4)
                                .decimals(-1, 5)
                                .scaling(0.5F, 4294967295U)
                                .property(EditStartStepSize, 0.25F)
                                .property(MemoryAllocation, 1U)
                                .limits(u"-5"_s, u"5"_s)
                                .build();
    const auto facts = factsOf(*definition);
    QCOMPARE(facts->datatype, quint8(2));
    QCOMPARE(facts->type->shortName(), u"INT16"_s);
    QCOMPARE(facts->kind, 3);
    QCOMPARE(facts->readLevel, 2U);
    QCOMPARE(facts->writeLevel, 4);
    QCOMPARE(facts->decimalPlacesBehind, -1);
    QCOMPARE(facts->decimalPlacesSignificant, 5U);
    QCOMPARE(facts->scalingFactor, 0.5);
    QCOMPARE(facts->fullScaleValue, 4294967295U);
    QCOMPARE(facts->editStartStepSize, 0.25);
    QCOMPARE(facts->memoryAllocation, 1);
    QCOMPARE(facts->lowerLimit, u"-5"_s);
    QCOMPARE(facts->upperLimit, u"5"_s);
    QVERIFY(facts->has(ReadLevel));
    QVERIFY(!facts->has(ChoiceMap));
    QVERIFY(!facts->has(ElementCount));
    QVERIFY(!facts->has(eParameterProperty(4294967295U)));
}

void tst_ElementFacts::withoutProperties()
{
    const ElementFacts facts([](eParameterProperty) { return ParameterProperty(); });
    QVERIFY(!facts.type);
    QCOMPARE(facts.datatype, quint8(0));
    QCOMPARE(facts.kind, 0);
    QCOMPARE(facts.scalingFactor, 0.0);
    QCOMPARE(facts.lowerLimit, QString());
    QCOMPARE(facts.functionIndex(LimitFunctionIndex), quint16(0));
    QCOMPARE(facts.dependency(HidingDependency), 0);
    QVERIFY(!facts.unit(ScaledMeasuringUnit).isValid());
    QVERIFY(!facts.isIndependent());
    QVERIFY(!facts.isWriteLevelUsable);
    for (quint32 number = 0; number < 120; ++number)
        QVERIFY(!facts.has(eParameterProperty(number)));
}

void tst_ElementFacts::functionIndices_data()
{
    QTest::addColumn<quint32>("property");
    for (const quint32 property : {0U, 1U, 2U, 3U, 4U, 7U, 21U})
        QTest::addRow("property %u", property) << property;
}

void tst_ElementFacts::functionIndices()
{
    QFETCH(quint32, property);
    const auto definition =
        DefinitionBuilder().property(eParameterProperty(property), 65535U).build();
    const auto facts = factsOf(*definition);
    for (const quint32 each : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 21U}) {
        QCOMPARE(
            facts->functionIndex(eParameterProperty(each)), quint16(each == property ? 65535 : 0));
    }
}

void tst_ElementFacts::dependencies_data()
{
    QTest::addColumn<quint32>("property");
    for (quint32 property = 32; property < 40; ++property)
        QTest::addRow("property %u", property) << property;
}

void tst_ElementFacts::dependencies()
{
    QFETCH(quint32, property);
    const auto definition = DefinitionBuilder().property(eParameterProperty(property), -7).build();
    const auto facts = factsOf(*definition);
    for (quint32 each = 32; each < 40; ++each)
        QCOMPARE(facts->dependency(eParameterProperty(each)), each == property ? -7 : 0);
    QVERIFY(!facts->isIndependent());
}

void tst_ElementFacts::isIndependent_data()
{
    QTest::addColumn<quint32>("missing");
    QTest::addColumn<bool>("expected");
    QTest::newRow("all there and 0") << 0U << true;
    for (quint32 property = 32; property < 40; ++property)
        QTest::addRow("property %u is missing and to be reported", property) << property << false;
}

void tst_ElementFacts::isIndependent()
{
    QFETCH(quint32, missing);
    QFETCH(bool, expected);
    DefinitionBuilder builder;
    if (missing != 0)
        builder.without(eParameterProperty(missing));
    const auto definition = builder.build();
    QCOMPARE(factsOf(*definition)->isIndependent(), expected);
}

void tst_ElementFacts::writeLevel_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("level");
    QTest::addColumn<bool>("isUsable");
    QTest::newRow("0") << QVariant(0U) << 0 << true;
    QTest::newRow("6") << QVariant(6U) << 6 << true;
    QTest::newRow("number as text") << QVariant(u"4"_s) << 4 << true;
    QTest::newRow("negative") << QVariant(-1) << 0 << false;
    QTest::newRow("no number") << QVariant(u"hoch"_s) << 0 << false;
    QTest::newRow("list") << QVariant(QVariantList {1}) << 0 << false;
}

void tst_ElementFacts::writeLevel()
{
    QFETCH(QVariant, value);
    QFETCH(int, level);
    QFETCH(bool, isUsable);
    const auto definition = DefinitionBuilder().property(WriteLevel, value).build();
    QCOMPARE(factsOf(*definition)->writeLevel, level);
    QCOMPARE(factsOf(*definition)->isWriteLevelUsable, isUsable);
}

void tst_ElementFacts::flags_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("expected");
    QTest::newRow("0") << QVariant(0U) << false;
    QTest::newRow("1") << QVariant(1U) << true;
    QTest::newRow("-1") << QVariant(-1) << true;
    QTest::newRow("greatest") << QVariant(4294967295U) << true;
    QTest::newRow("false") << QVariant(false) << false;
    QTest::newRow("true") << QVariant(true) << true;
    QTest::newRow("number as text") << QVariant(u"1"_s) << true;
    QTest::newRow("no number") << QVariant(u"ja"_s) << false;
}

void tst_ElementFacts::flags()
{
    QFETCH(QVariant, value);
    QFETCH(bool, expected);
    const auto definition =
        DefinitionBuilder().property(NoWrite, value).property(ShownOffline, value).build();
    QCOMPARE(factsOf(*definition)->isNeverWritten, expected);
    QCOMPARE(factsOf(*definition)->isShownOffline, expected);
}

void tst_ElementFacts::units()
{
    const auto definition = DefinitionBuilder().units(u"A"_s, u"inc"_s, u"bit"_s).build();
    const auto facts = factsOf(*definition);
    QCOMPARE(facts->unit(ScaledMeasuringUnit).asString(), u"A"_s);
    QCOMPARE(facts->unit(NativeMeasuringUnit).asString(), u"inc"_s);
    QCOMPARE(facts->unit(FieldbusMeasuringUnit).asString(), u"bit"_s);
}

void tst_ElementFacts::factsOfOneInformationAreShared()
{
    const auto definition = DefinitionBuilder().levels(1, 1).build();
    const auto other = DefinitionBuilder().levels(2, 2).build();
    const auto facts = factsOf(*definition);
    QCOMPARE(factsOf(*definition).get(), facts.get());
    QVERIFY(factsOf(*other).get() != facts.get());
    QCOMPARE(factsOf(*other)->readLevel, 2U);
    QCOMPARE(ElementFacts::of(nullptr)->readLevel, 0U);
}

QTEST_GUILESS_MAIN(tst_ElementFacts)

#include "tst_ElementFacts.moc"

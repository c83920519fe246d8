#include "tests/support/DefinitionBuilder.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QTest>

using enum eParameterProperty;

class tst_DefinitionBuilder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsAsSimpleParameter();
    void startsWithCommonProperties_data();
    void startsWithCommonProperties();
    void lacksOtherProperties_data();
    void lacksOtherProperties();
    void setsParameterFields();
    void setsElementProperties();
    void simpleDefaultsByElement();
    void recordElementsStartAsCopies();
    void recordElementFields();
    void buildsIndependentDefinitions();
};

void tst_DefinitionBuilder::startsAsSimpleParameter()
{
    const auto definition = DefinitionBuilder().build();
    QVERIFY(definition->isValid());
    QVERIFY(definition->isSimpleParameterDefinition());
    QVERIFY(definition->isSingleInstance());
    QVERIFY(!definition->isGlobalParameter());
    QVERIFY(!definition->isPhysicalAxisParameter());
    QCOMPARE(definition->identifier(), QStringLiteral("P1"));
    QCOMPARE(definition->version(), 1U);
    QCOMPARE(definition->name().longText(), QStringLiteral("Parameter"));
    QCOMPARE(definition->elementCount(), quint16(1));
    QCOMPARE(definition->elementDefaultValue(0), QStringLiteral("0"));
    QVERIFY(definition->defaultCoordinates().isEmpty());
    const SimpleType *type = DatatypeProvider::instance()->simpleType(
        quint8(definition->queryElementInformation(0)->property(Datatype).asUint32()));
    QVERIFY(type);
    QCOMPARE(type->shortName(), QStringLiteral("INT32"));
}

void tst_DefinitionBuilder::startsWithCommonProperties_data()
{
    QTest::addColumn<quint32>("number");

    for (const quint32 number :
        {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U, 10U, 11U, 12U, 13U, 14U, 15U, 18U, 19U, 21U, 23U, 24U, 26U,
            29U, 30U, 31U, 32U, 33U, 34U, 35U, 36U, 37U, 38U, 39U, 40U, 45U})
        QTest::addRow("%u", number) << number;
}

void tst_DefinitionBuilder::startsWithCommonProperties()
{
    QFETCH(quint32, number);

    const auto definition = DefinitionBuilder().build();
    const IParameterElementInformation *information = definition->queryElementInformation(0);
    QVERIFY(information->hasProperty(eParameterProperty(number)));
    QCOMPARE(information->property(eParameterProperty(number)).asUint32(), 0U);
    QVERIFY(!information->isPropertySettable(eParameterProperty(number)));
}

void tst_DefinitionBuilder::lacksOtherProperties_data()
{
    QTest::addColumn<quint32>("number");

    for (const quint32 number :
        {8U, 9U, 17U, 20U, 22U, 25U, 27U, 28U, 41U, 42U, 43U, 44U, 46U, 47U, 48U, 49U, 50U})
        QTest::addRow("%u", number) << number;
}

void tst_DefinitionBuilder::lacksOtherProperties()
{
    QFETCH(quint32, number);

    const auto definition = DefinitionBuilder().build();
    QVERIFY(!definition->queryElementInformation(0)->hasProperty(eParameterProperty(number)));
}

void tst_DefinitionBuilder::setsParameterFields()
{
    const auto definition = DefinitionBuilder()
                                .identifier(QStringLiteral("P7"))
                                .version(3)
                                .name(QStringLiteral("Strom"), QStringLiteral("Current"))
                                .nameCommonText(5)
                                .description(QStringLiteral("Der Strom"))
                                .global()
                                .physicalAxis()
                                .multiInstance()
                                .coordinates({QStringLiteral("A12"), QStringLiteral("Q01")})
                                .anchors({QStringLiteral("S;{P7}")})
                                .build();
    QCOMPARE(definition->identifier(), QStringLiteral("P7"));
    QCOMPARE(definition->version(), 3U);
    QCOMPARE(definition->name().longText(QStringLiteral("de")), QStringLiteral("Strom"));
    QCOMPARE(definition->name().longText(QStringLiteral("en")), QStringLiteral("Current"));
    QCOMPARE(
        definition->name().shortText(QStringLiteral("en")), QStringLiteral("short of Current"));
    QCOMPARE(definition->nameCommonTextIndex(), 5);
    QCOMPARE(definition->descriptionText(), QStringLiteral("Der Strom"));
    QVERIFY(definition->isGlobalParameter());
    QVERIFY(definition->isPhysicalAxisParameter());
    QVERIFY(!definition->isSingleInstance());
    QCOMPARE(definition->defaultCoordinates(),
        (QList<ParameterCoordinate> {ParameterCoordinate(1, 12), ParameterCoordinate(17, 1)}));
    QCOMPARE(definition->anchors(), QStringList {QStringLiteral("S;{P7}")});
}

void tst_DefinitionBuilder::setsElementProperties()
{
    const auto definition =
        DefinitionBuilder()
            .datatype(QStringLiteral("UINT16"))
            .kind(4)
            .levels(2, 5)
            .limits(QStringLiteral("-1"), QStringLiteral("18446744073709551615"))
            .decimals(3, 2)
            .scaling(0.5F, 1000)
            .units(QStringLiteral("A"), QStringLiteral("<localAxis:E12>"))
            .choices({{2, QStringLiteral("zwei")}})
            .settable(WriteLevel)
            .without(NoWrite)
            .property(ShownOffline, 1)
            .build();
    const IParameterElementInformation *information = definition->queryElementInformation(0);
    QCOMPARE(information->property(ParameterKind).asUint32(), 4U);
    QCOMPARE(information->property(ReadLevel).asUint32(), 2U);
    QCOMPARE(information->property(WriteLevel).asUint32(), 5U);
    QCOMPARE(information->property(LowerLimitValue).asString(), QStringLiteral("-1"));
    QCOMPARE(
        information->property(UpperLimitValue).asString(), QStringLiteral("18446744073709551615"));
    QCOMPARE(information->property(DecimalPlacesBehind).asInt32(), 3);
    QCOMPARE(information->property(DecimalPlacesSignificant).asUint32(), 2U);
    QCOMPARE(information->property(ScalingFactor).asFloat(), 0.5F);
    QCOMPARE(information->property(FullScaleValue).asUint32(), 1000U);
    QCOMPARE(information->property(ScaledMeasuringUnit).asString(), QStringLiteral("A"));
    QCOMPARE(
        information->property(NativeMeasuringUnit).asString(), QStringLiteral("<localAxis:E12>"));
    QCOMPARE(information->property(FieldbusMeasuringUnit).asString(), QString());
    const auto choices = information->property(ChoiceMap).asVariant().value<ParameterTextMap>();
    QCOMPARE(choices.keys(), QList<qint32> {2});
    QCOMPARE(choices.text(2).longText(), QStringLiteral("zwei"));
    QVERIFY(information->isPropertySettable(WriteLevel));
    QVERIFY(!information->isPropertySettable(ReadLevel));
    QVERIFY(!information->hasProperty(NoWrite));
    QCOMPARE(information->property(ShownOffline).asUint32(), 1U);
}

void tst_DefinitionBuilder::simpleDefaultsByElement()
{
    const auto same = DefinitionBuilder().elementCount(3).defaultValue(QStringLiteral("8")).build();
    QCOMPARE(same->elementCount(), quint16(3));
    QCOMPARE(same->elementDefaultValue(2), QStringLiteral("8"));
    const auto several = DefinitionBuilder()
                             .elementCount(2)
                             .defaultValues({QStringLiteral("1"), QStringLiteral("2")})
                             .build();
    QCOMPARE(several->elementDefaultValue(0), QStringLiteral("1"));
    QCOMPARE(several->elementDefaultValue(1), QStringLiteral("2"));
}

void tst_DefinitionBuilder::recordElementsStartAsCopies()
{
    const auto definition = DefinitionBuilder()
                                .levels(1, 1)
                                .element(0, QStringLiteral("erstes"))
                                .levels(2, 2)
                                .element(5, QStringLiteral("zweites"))
                                .build();
    QVERIFY(definition->isRecordParameterDefinition());
    QCOMPARE(definition->queryElementInformation(0)->property(ReadLevel).asUint32(), 2U);
    QCOMPARE(definition->queryElementInformation(5)->property(ReadLevel).asUint32(), 1U);
}

void tst_DefinitionBuilder::recordElementFields()
{
    const auto definition = DefinitionBuilder()
                                .version(4)
                                .element(9, QStringLiteral("neun"), QStringLiteral("nine"))
                                .elementVersion(6)
                                .elementNameCommonText(11)
                                .defaultValue(QStringLiteral("90"))
                                .element(2, QStringLiteral("zwei"))
                                .build();
    const RecordParameterDefinition *record = definition->queryRecordDefinition();
    QVERIFY(record);
    QCOMPARE(record->elementList(), (QList<quint16> {9, 2}));
    QCOMPARE(record->elementName(9).longText(QStringLiteral("en")), QStringLiteral("nine"));
    QCOMPARE(record->elementNameCommonTextIndex(9), 11);
    QCOMPARE(definition->elementVersion(9), 6U);
    QCOMPARE(definition->elementVersion(2), 4U);
    QCOMPARE(definition->elementDefaultValue(9), QStringLiteral("90"));
    QCOMPARE(definition->elementDefaultValue(2), QStringLiteral("0"));
}

void tst_DefinitionBuilder::buildsIndependentDefinitions()
{
    DefinitionBuilder builder;
    const auto first = builder.build();
    const auto second = builder.levels(3, 3).version(2).build();
    QCOMPARE(first->queryElementInformation(0)->property(ReadLevel).asUint32(), 0U);
    QCOMPARE(second->queryElementInformation(0)->property(ReadLevel).asUint32(), 3U);
    QVERIFY(first->versionsOfTheSameParameter(second.get()));
}

QTEST_GUILESS_MAIN(tst_DefinitionBuilder)

#include "tst_DefinitionBuilder.moc"

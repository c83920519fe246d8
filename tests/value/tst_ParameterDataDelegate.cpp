#include "value/ParameterDataDelegate.h"

#include "tests/instance/InstanceStand.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterDefinition/ParameterException.h>

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eParameterProperty;
using enum eLivingSpace;

/// Every operation is silent: the stand fails the test for any message.
class tst_ParameterDataDelegate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isGlobalParameter_data();
    void isGlobalParameter();
    void addresses_data();
    void addresses();
    void addressNumberOfAbsentElement();
    void presentProperties();
    void functionIndices_data();
    void functionIndices();
    void absentProperties();
    void unknownDatatype();
    void choiceMapKeys_data();
    void choiceMapKeys();
    void hasProperty();
    void property();
    void recordElements();
    void overridesAreSeen();
    void absentElement();
};

namespace {

const ParameterData *dataOf(const CoordinateInstanceSet *set, eLivingSpace livingSpace = Axis1)
{
    return set->record(livingSpace)->delegate();
}

} // namespace

void tst_ParameterDataDelegate::isGlobalParameter_data()
{
    QTest::addColumn<bool>("isGlobal");
    QTest::newRow("global") << true;
    QTest::newRow("one per axis") << false;
}

void tst_ParameterDataDelegate::isGlobalParameter()
{
    QFETCH(bool, isGlobal);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().global(isGlobal), u"A12"_s, {isGlobal ? 0 : 1});
    QCOMPARE(dataOf(set, isGlobal ? Global : Axis1)->isGlobalParameter(), isGlobal);
}

void tst_ParameterDataDelegate::addresses_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint8>("axis");
    QTest::addColumn<quint32>("first");
    QTest::addColumn<quint32>("third");

    // Two bits of axis, 14 bits of element, 16 bits of coordinate: A12 is 1012.
    QTest::newRow("global") << 0 << quint8(0) << 0x000003F4U << 0x000203F4U;
    QTest::newRow("axis 1") << 1 << quint8(0) << 0x000003F4U << 0x000203F4U;
    QTest::newRow("axis 2") << 2 << quint8(1) << 0x400003F4U << 0x400203F4U;
    QTest::newRow("axis 3") << 3 << quint8(2) << 0x800003F4U << 0x800203F4U;
    QTest::newRow("axis 4") << 4 << quint8(3) << 0xC00003F4U << 0xC00203F4U;
}

void tst_ParameterDataDelegate::addresses()
{
    QFETCH(int, livingSpace);
    QFETCH(quint8, axis);
    QFETCH(quint32, first);
    QFETCH(quint32, third);

    InstanceStand stand;
    const auto *set = stand.add(
        DefinitionBuilder().elementCount(3).global(livingSpace == 0), u"A12"_s, {livingSpace});
    const ParameterData *data = dataOf(set, eLivingSpace(livingSpace));
    QCOMPARE(data->axis(), axis);
    QCOMPARE(data->addressNumber(0), first);
    QCOMPARE(data->addressNumber(2), third);
}

void tst_ParameterDataDelegate::addressNumberOfAbsentElement()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    try {
        (void)dataOf(set)->addressNumber(1);
        QFAIL("no exception");
    } catch (const ParameterException &exception) {
        QCOMPARE(exception.reason(), 2U);
    }
}

void tst_ParameterDataDelegate::presentProperties()
{
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder()
                                    .datatype(u"UINT16"_s)
                                    .kind(3)
                                    .decimals(-2, 4)
                                    .scaling(0.1F, 4000000000U)
                                    .property(EditStartStepSize, 0.25F)
                                    .limits(u"-9223372036854775808"_s, u"9223372036854775807"_s),
        u"A12"_s);
    const ParameterData *data = dataOf(set);
    QCOMPARE(data->datatype(0), quint8(6));
    QCOMPARE(data->simpleType(0)->shortName(), u"UINT16"_s);
    QCOMPARE(data->kind(0), 3);
    QCOMPARE(data->decimalPlacesBehind(0), -2);
    QCOMPARE(data->decimalPlacesSignificant(0), 4U);
    QCOMPARE(data->fullScaleValue(0), 4000000000U);
    // A 32-bit float, widened: not the double that is written 0.1.
    QCOMPARE(data->scalingFactor(0), 0x1.99999ap-4);
    QCOMPARE(data->editStartStepSize(0), 0.25);
    QCOMPARE(data->lowerLimitValue(0), u"-9223372036854775808"_s);
    QCOMPARE(data->upperLimitValue(0), u"9223372036854775807"_s);
}

void tst_ParameterDataDelegate::functionIndices_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<int>("operation");

    QTest::newRow("hiding is property 4") << 4U << 0;
    QTest::newRow("limit is property 7") << 7U << 1;
    QTest::newRow("scaling is property 21") << 21U << 2;
    QTest::newRow("pre-read is property 0") << 0U << 3;
    QTest::newRow("pre-write is property 1") << 1U << 4;
    QTest::newRow("post-read is property 3") << 3U << 5;
    QTest::newRow("post-write is property 2") << 2U << 6;
}

void tst_ParameterDataDelegate::functionIndices()
{
    QFETCH(quint32, property);
    QFETCH(int, operation);

    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().property(eParameterProperty(property), 65535U), u"A12"_s);
    const ParameterData *data = dataOf(set);
    const QList<quint16> indices {data->hidingFunctionIndex(0), data->limitFunctionIndex(0),
        data->scalingFunctionIndex(0), data->prereadFunctionIndex(0),
        data->prewriteFunctionIndex(0), data->postreadFunctionIndex(0),
        data->postwriteFunctionIndex(0)};
    for (int i = 0; i < indices.size(); ++i)
        QCOMPARE(indices.at(i), quint16(i == operation ? 65535 : 0));
}

void tst_ParameterDataDelegate::absentProperties()
{
    InstanceStand stand;
    DefinitionBuilder builder;
    for (const eParameterProperty property :
        {PrereadFunctionIndex, PrewriteFunctionIndex, PostwriteFunctionIndex, PostreadFunctionIndex,
            HidingFunctionIndex, LimitFunctionIndex, ScalingFunctionIndex, ParameterKind, Datatype,
            DecimalPlacesBehind, DecimalPlacesSignificant})
        builder.without(property);
    const ParameterData *data = dataOf(stand.add(builder, u"A12"_s));
    QCOMPARE(data->datatype(0), quint8(0));
    QVERIFY(!data->simpleType(0));
    QCOMPARE(data->kind(0), 0);
    QCOMPARE(data->decimalPlacesBehind(0), 0);
    QCOMPARE(data->decimalPlacesSignificant(0), 0U);
    QCOMPARE(data->fullScaleValue(0), 0U);
    QCOMPARE(data->scalingFactor(0), 0.0);
    QCOMPARE(data->editStartStepSize(0), 0.0);
    QCOMPARE(data->lowerLimitValue(0), QString());
    QCOMPARE(data->upperLimitValue(0), QString());
    QCOMPARE(data->hidingFunctionIndex(0), quint16(0));
    QCOMPARE(data->limitFunctionIndex(0), quint16(0));
    QCOMPARE(data->scalingFunctionIndex(0), quint16(0));
    QCOMPARE(data->prereadFunctionIndex(0), quint16(0));
    QCOMPARE(data->prewriteFunctionIndex(0), quint16(0));
    QCOMPARE(data->postreadFunctionIndex(0), quint16(0));
    QCOMPARE(data->postwriteFunctionIndex(0), quint16(0));
    QCOMPARE(data->choiceMapKeys(0), QList<qint32>());
    QVERIFY(!data->hasProperty(0, ShownOffline));
    QVERIFY(!data->property(0, ShownOffline).isValid());
}

void tst_ParameterDataDelegate::unknownDatatype()
{
    InstanceStand stand;
    const ParameterData *data = dataOf(stand.add(DefinitionBuilder().datatype(99), u"A12"_s));
    QCOMPARE(data->datatype(0), quint8(99));
    QVERIFY(!data->simpleType(0));
}

void tst_ParameterDataDelegate::choiceMapKeys_data()
{
    QTest::addColumn<QVariant>("choice");
    QTest::addColumn<QList<qint32>>("keys");

    ParameterTextMap texts;
    for (const qint32 key : {7, -3, 0})
        texts.insert(key, ParameterText());
    QTest::newRow("text map") << QVariant::fromValue(texts) << QList<qint32> {-3, 0, 7};
    QTest::newRow("empty map") << QVariant::fromValue(ParameterTextMap()) << QList<qint32>();
    QTest::newRow("convertible map")
        << QVariant(QVariantMap {{u"12"_s, u"zwölf"_s}, {u"-1"_s, u"aus"_s}})
        << QList<qint32> {-1, 12};
    QTest::newRow("inconvertible value") << QVariant(5) << QList<qint32>();
}

void tst_ParameterDataDelegate::choiceMapKeys()
{
    QFETCH(QVariant, choice);
    QFETCH(QList<qint32>, keys);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().property(ChoiceMap, choice), u"A12"_s);
    QCOMPARE(dataOf(set)->choiceMapKeys(0), keys);
}

void tst_ParameterDataDelegate::hasProperty()
{
    InstanceStand stand;
    const ParameterData *data = dataOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QVERIFY(data->hasProperty(0, ReadLevel));
    QVERIFY(data->hasProperty(0, ElementCount));
    QVERIFY(!data->hasProperty(0, LivingSpace));
    QVERIFY(!data->hasProperty(0, ScalingFactor));
    QVERIFY(!data->hasProperty(1, ReadLevel));
}

void tst_ParameterDataDelegate::property()
{
    InstanceStand stand;
    const ParameterData *data =
        dataOf(stand.add(DefinitionBuilder().levels(2, 3).elementCount(4), u"A12"_s));
    QCOMPARE(data->property(0, WriteLevel), QVariant(3U));
    QCOMPARE(data->property(0, ElementCount), QVariant(4U));
    QCOMPARE(data->property(0, Coordinate), QVariant(u"A12"_s));
    QVERIFY(!data->property(0, eParameterProperty(4294967295U)).isValid());
}

void tst_ParameterDataDelegate::recordElements()
{
    InstanceStand stand;
    const auto *set = stand.add(
        DefinitionBuilder().element(4, u"a"_s).kind(1).element(2, u"b"_s).kind(4), u"A12"_s);
    QCOMPARE(dataOf(set)->kind(4), 1);
    QCOMPARE(dataOf(set)->kind(2), 4);
    QCOMPARE(dataOf(set)->kind(0), 0);
}

void tst_ParameterDataDelegate::overridesAreSeen()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().limits(u"1"_s, u"5"_s), u"A12"_s);
    set->setProperty(0, UpperLimitValue, ParameterProperty(QVariant(u"9"_s)));
    QCOMPARE(dataOf(set)->upperLimitValue(0), u"9"_s);
    QCOMPARE(dataOf(set)->lowerLimitValue(0), u"1"_s);
}

void tst_ParameterDataDelegate::absentElement()
{
    InstanceStand stand;
    const ParameterData *data =
        dataOf(stand.add(DefinitionBuilder().limits(u"1"_s, u"5"_s).scaling(2.0F), u"A12"_s));
    QCOMPARE(data->datatype(1), quint8(0));
    QCOMPARE(data->lowerLimitValue(1), QString());
    QCOMPARE(data->scalingFactor(1), 0.0);
    QCOMPARE(data->choiceMapKeys(1), QList<qint32>());
}

QTEST_GUILESS_MAIN(tst_ParameterDataDelegate)

#include "tst_ParameterDataDelegate.moc"

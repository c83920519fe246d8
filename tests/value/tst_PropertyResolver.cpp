#include "value/PropertyResolver.h"

#include "tests/support/DefinitionBuilder.h"
#include "tests/support/MessageRecorder.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eParameterProperty;
using eFault = PropertyResolver::eFault;

class tst_PropertyResolver : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void definedPropertiesOfASimpleParameter();
    void definedPropertiesOfARecord();
    void settableAsDefined();
    void withoutDefinition();
    void overrideComesFirst();
    void overrideOfASimpleParameterServesEveryElement();
    void overrideOfARecordServesItsElement();
    void overridesAreOrdered();
    void replaceOverrides();
    void facts();
    void factsOfARecord();
    void factsWithOverrides();
    void overridesStayUnderAnotherDefinition();
    void overrideOfAPropertyThatTheDefinitionLacks();
    void fixedProperties_data();
    void fixedProperties();
    void overridable_data();
    void overridable();
    void faultTexts_data();
    void faultTexts();
};

namespace {

ParameterProperty number(uint value)
{
    return ParameterProperty(QVariant(value));
}

const ParameterCoordinate A12(u"A12"_s);

} // namespace

void tst_PropertyResolver::definedPropertiesOfASimpleParameter()
{
    const MessageRecorder messages;
    const auto definition = DefinitionBuilder().levels(2, 3).elementCount(2).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    const PropertyResolver resolver(elements);
    QVERIFY(resolver.isDefined(0, ReadLevel));
    QVERIFY(resolver.isDefined(1, ReadLevel));
    QVERIFY(!resolver.isDefined(0, ShownOffline));
    QVERIFY(!resolver.isDefined(0, ElementCount));
    QCOMPARE(resolver.read(1, WriteLevel).asUint32(), 3U);
    QCOMPARE(resolver.readDefined(1, ReadLevel).asUint32(), 2U);
    QVERIFY(!resolver.read(0, ShownOffline).isValid());
}

void tst_PropertyResolver::definedPropertiesOfARecord()
{
    const MessageRecorder messages;
    const auto definition = DefinitionBuilder()
                                .element(2, u"zwei"_s)
                                .levels(1, 1)
                                .element(5, u"fünf"_s)
                                .levels(4, 4)
                                .build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    const PropertyResolver resolver(elements);
    QCOMPARE(resolver.read(2, ReadLevel).asUint32(), 1U);
    QCOMPARE(resolver.read(5, ReadLevel).asUint32(), 4U);
    QVERIFY(!resolver.isDefined(0, ReadLevel));
    QVERIFY(!resolver.read(0, ReadLevel).isValid());
}

void tst_PropertyResolver::settableAsDefined()
{
    const auto definition = DefinitionBuilder().settable(ReadLevel).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    const PropertyResolver resolver(elements);
    QVERIFY(resolver.isSettable(0, ReadLevel));
    QVERIFY(!resolver.isSettable(0, WriteLevel));
    QVERIFY(!resolver.isSettable(0, Name));
}

void tst_PropertyResolver::withoutDefinition()
{
    const MessageRecorder messages;
    const ElementCatalogue elements;
    const PropertyResolver resolver(elements);
    QVERIFY(!resolver.isDefined(0, ReadLevel));
    QVERIFY(!resolver.isSettable(0, ReadLevel));
    QVERIFY(!resolver.read(0, ReadLevel).isValid());
    QVERIFY(!resolver.find(0, ReadLevel));
}

void tst_PropertyResolver::overrideComesFirst()
{
    const auto definition = DefinitionBuilder().levels(2, 3).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(0, ReadLevel, number(5), u"tag"_s);
    QCOMPARE(resolver.read(0, ReadLevel).asUint32(), 5U);
    QCOMPARE(resolver.readDefined(0, ReadLevel).asUint32(), 2U);
    QCOMPARE(resolver.read(0, WriteLevel).asUint32(), 3U);
    QCOMPARE(resolver.find(0, ReadLevel)->changeTag, u"tag"_s);

    resolver.setOverride(0, ReadLevel, number(6), QString());
    QCOMPARE(resolver.read(0, ReadLevel).asUint32(), 6U);
    QCOMPARE(resolver.find(0, ReadLevel)->changeTag, QString());
    QCOMPARE(resolver.overrides().size(), size_t(1));
}

void tst_PropertyResolver::overrideOfASimpleParameterServesEveryElement()
{
    const auto definition = DefinitionBuilder().elementCount(3).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(2, ReadLevel, number(5), QString());
    QCOMPARE(resolver.overrides().front().element, quint16(0));
    QCOMPARE(resolver.read(0, ReadLevel).asUint32(), 5U);
    QCOMPARE(resolver.read(1, ReadLevel).asUint32(), 5U);
    QVERIFY(resolver.find(1, ReadLevel));
}

void tst_PropertyResolver::overrideOfARecordServesItsElement()
{
    const auto definition = DefinitionBuilder().element(2, u"a"_s).element(5, u"b"_s).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(5, ReadLevel, number(3), QString());
    QCOMPARE(resolver.read(5, ReadLevel).asUint32(), 3U);
    QCOMPARE(resolver.read(2, ReadLevel).asUint32(), 0U);
    QVERIFY(!resolver.find(2, ReadLevel));
}

void tst_PropertyResolver::overridesAreOrdered()
{
    const auto definition = DefinitionBuilder().element(2, u"a"_s).element(5, u"b"_s).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(5, ReadLevel, number(1), QString());
    resolver.setOverride(2, WriteLevel, number(2), QString());
    resolver.setOverride(2, ReadLevel, number(3), QString());
    QStringList order;
    for (const PropertyResolver::Override &entry : resolver.overrides())
        order.append(u"%1_%2"_s.arg(entry.element).arg(quint32(entry.property)));
    QCOMPARE(order, (QStringList {u"2_5"_s, u"2_6"_s, u"5_5"_s}));
}

void tst_PropertyResolver::replaceOverrides()
{
    const auto definition = DefinitionBuilder().build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(0, ReadLevel, number(1), QString());
    resolver.replaceOverrides({{0, WriteLevel, number(2), u"b"_s}, {0, Datatype, number(1), {}},
        {0, MemoryAllocation, number(1), u"a"_s}});
    QCOMPARE(resolver.read(0, ReadLevel).asUint32(), 0U);
    QCOMPARE(resolver.read(0, WriteLevel).asUint32(), 2U);
    QCOMPARE(resolver.read(0, MemoryAllocation).asUint32(), 1U);
    QCOMPARE(resolver.find(0, WriteLevel)->changeTag, u"b"_s);
    resolver.replaceOverrides({});
    QVERIFY(resolver.overrides().empty());
}

void tst_PropertyResolver::facts()
{
    const auto definition = DefinitionBuilder().levels(2, 3).elementCount(2).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    const PropertyResolver resolver(elements);
    QCOMPARE(resolver.facts(0).readLevel, 2U);
    QCOMPARE(resolver.facts(1).writeLevel, 3);
    QCOMPARE(&resolver.facts(0), &resolver.facts(1));
    QVERIFY(!resolver.facts(2).has(ReadLevel));
    QCOMPARE(resolver.facts(2).readLevel, 0U);
}

void tst_PropertyResolver::factsOfARecord()
{
    const auto definition =
        DefinitionBuilder().element(7, u"a"_s).levels(1, 1).element(2, u"b"_s).levels(4, 4).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    const PropertyResolver resolver(elements);
    QCOMPARE(resolver.facts(7).readLevel, 1U);
    QCOMPARE(resolver.facts(2).readLevel, 4U);
    QCOMPARE(resolver.facts(7).readLevel, 1U);
    QVERIFY(!resolver.facts(0).has(ReadLevel));
}

void tst_PropertyResolver::factsWithOverrides()
{
    const auto definition =
        DefinitionBuilder().element(7, u"a"_s).element(2, u"b"_s).levels(4, 4).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    PropertyResolver resolver(elements);
    QCOMPARE(resolver.facts(2).writeLevel, 4);
    resolver.setOverride(2, WriteLevel, number(6), QString());
    QCOMPARE(resolver.facts(2).writeLevel, 6);
    QCOMPARE(resolver.facts(2).readLevel, 4U);
    QCOMPARE(resolver.facts(7).writeLevel, 0);
    resolver.setOverride(2, WriteLevel, number(5), QString());
    QCOMPARE(resolver.facts(2).writeLevel, 5);
    resolver.replaceOverrides({});
    QCOMPARE(resolver.facts(2).writeLevel, 4);
}

void tst_PropertyResolver::overridesStayUnderAnotherDefinition()
{
    const auto first = DefinitionBuilder().levels(1, 1).build();
    const auto second = DefinitionBuilder().levels(2, 2).build();
    ElementCatalogue elements;
    elements.setDefinition(first.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(0, WriteLevel, number(6), QString());
    QCOMPARE(resolver.facts(0).readLevel, 1U);
    elements.setDefinition(second.get());
    resolver.onDefinitionChanged();
    QCOMPARE(resolver.facts(0).readLevel, 2U);
    QCOMPARE(resolver.facts(0).writeLevel, 6);
}

void tst_PropertyResolver::overrideOfAPropertyThatTheDefinitionLacks()
{
    const auto first = DefinitionBuilder().levels(1, 1).build();
    const auto second =
        DefinitionBuilder().without(ReadLevel).without(WriteLevel).without(Datatype).build();
    ElementCatalogue elements;
    elements.setDefinition(first.get());
    PropertyResolver resolver(elements);
    resolver.setOverride(0, ReadLevel, number(5), u"tag"_s);
    elements.setDefinition(second.get());
    resolver.onDefinitionChanged();
    QVERIFY(!resolver.isDefined(0, ReadLevel));
    QVERIFY(!resolver.readDefined(0, ReadLevel).isValid());
    QCOMPARE(resolver.read(0, ReadLevel).asUint32(), 5U);
    QVERIFY(resolver.facts(0).has(ReadLevel));
    QCOMPARE(resolver.facts(0).readLevel, 5U);
    QVERIFY(!resolver.read(0, WriteLevel).isValid());
}

void tst_PropertyResolver::fixedProperties_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<bool>("isFixed");
    for (const quint32 property : {100U, 101U, 102U, 103U, 105U, 106U, 107U})
        QTest::addRow("%u is fixed", property) << property << true;
    for (const quint32 property : {0U, 50U, 51U, 99U, 104U, 108U, 111U, 112U, 4294967295U})
        QTest::addRow("%u is not", property) << property << false;
}

void tst_PropertyResolver::fixedProperties()
{
    QFETCH(quint32, property);
    QTEST(PropertyResolver::isFixed(eParameterProperty(property)), "isFixed");
}

void tst_PropertyResolver::overridable_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<quint16>("element");
    QTest::addColumn<quint32>("property");
    QTest::addColumn<bool>("expected");
    QTest::newRow("first number") << false << quint16(0) << 0U << true;
    QTest::newRow("last number") << false << quint16(0) << 50U << true;
    QTest::newRow("beyond, and lacked") << false << quint16(0) << 51U << false;
    QTest::newRow("fixed") << false << quint16(0) << 103U << false;
    QTest::newRow("further element of a simple parameter") << false << quint16(1) << 5U << false;
    QTest::newRow("element of a record") << true << quint16(7) << 5U << true;
    QTest::newRow("element that a record lacks") << true << quint16(1) << 5U << false;
}

void tst_PropertyResolver::overridable()
{
    QFETCH(bool, isRecord);
    QFETCH(quint16, element);
    QFETCH(quint32, property);
    const auto definition = isRecord ? DefinitionBuilder().element(7, u"a"_s).build()
                                     : DefinitionBuilder().elementCount(2).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    const PropertyResolver resolver(elements);
    QTEST(resolver.isOverridable(element, eParameterProperty(property)), "expected");
}

void tst_PropertyResolver::faultTexts_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QString>("text");

    const auto missing = [](quint32 property, const char *name) {
        QTest::addRow("missing property %u", property)
            << int(eFault::Missing) << property
            << u"missing property \""_s + QLatin1String(name) + u"\" at parameter A12\""_s;
    };
    missing(5, "readLevel");
    missing(6, "writeLevel");
    missing(10, "memoryAllocation");
    missing(11, "kind");
    missing(16, "datatype");
    missing(18, "scaled measuring unit");
    missing(19, "native measuring unit");
    missing(23, "decimalPlacesBehind");
    missing(24, "decimalPlacesSignificant");
    missing(26, "fieldbus measuring unit");
    missing(32, "limit dependency");
    missing(33, "scaling dependency");
    missing(34, "post write dependency");
    missing(35, "pre read dependency");
    missing(36, "post read dependency");
    missing(37, "pre write dependency");
    missing(38, "hiding dependency");
    missing(39, "measuring unit dependency");
    QTest::newRow("invalid") << int(eFault::InvalidDefinition) << 6U
                             << u"invalid definition \"writeLevel\" at parameter A12\""_s;
    QTest::newRow("unknown scaled unit")
        << int(eFault::UnknownValue) << 18U
        << u"unknown property value \"scaled measuring unit\" at parameter A12\""_s;
    QTest::newRow("unknown native unit")
        << int(eFault::UnknownValue) << 19U
        << u"unknown property value \"native measuring unit\" at parameter A12\""_s;
    QTest::newRow("unknown fieldbus unit")
        << int(eFault::UnknownValue) << 26U
        << u"unknown property value \"fieldbus measuring unit\" at parameter A12\""_s;
    QTest::newRow("inconvertible scaled unit")
        << int(eFault::InconvertibleValue) << 18U
        << u"inconvertible property value \"scaled measuring unit\" at parameter A12\""_s;
    QTest::newRow("inconvertible native unit")
        << int(eFault::InconvertibleValue) << 19U
        << u"inconvertible property value \"native measuring unit\" at parameter A12\""_s;
    QTest::newRow("inconvertible fieldbus unit")
        << int(eFault::InconvertibleValue) << 26U
        << u"inconvertible property value \"fieldbus measuring unit\" at parameter A12\""_s;
}

void tst_PropertyResolver::faultTexts()
{
    QFETCH(int, fault);
    QFETCH(quint32, property);
    QFETCH(QString, text);

    MessageRecorder messages;
    messages.expect(SystemMessage::eSeverity::Warning, u"CoordinateInstanceSet"_s, text);
    PropertyResolver::report(eFault(fault), eParameterProperty(property), A12);
}

QTEST_GUILESS_MAIN(tst_PropertyResolver)

#include "tst_PropertyResolver.moc"

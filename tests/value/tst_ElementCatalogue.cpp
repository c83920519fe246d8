#include "value/ElementCatalogue.h"

#include "tests/support/DefinitionBuilder.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;

class tst_ElementCatalogue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutDefinition();
    void simpleParameter_data();
    void simpleParameter();
    void setCount_data();
    void setCount();
    void recordInOrder();
    void recordOutOfOrder();
    void recordWithGreatestNumbers();
    void isElementNamed_data();
    void isElementNamed();
    void anotherDefinition();
    void moved();
};

void tst_ElementCatalogue::withoutDefinition()
{
    const ElementCatalogue elements;
    QVERIFY(!elements.definition());
    QVERIFY(!elements.isRecord());
    QCOMPARE(elements.count(), quint16(0));
    QVERIFY(!elements.contains(0));
    QCOMPARE(elements.position(0), ElementCatalogue::NoPosition);
    QCOMPARE(elements.list(), QList<quint16>());
    QCOMPARE(elements.set(), QSet<quint16>());
    QVERIFY(!elements.information(0));
    QVERIFY(!elements.isElementNamed());
}

void tst_ElementCatalogue::simpleParameter_data()
{
    QTest::addColumn<quint16>("count");

    QTest::newRow("one element") << quint16(1);
    QTest::newRow("two elements") << quint16(2);
    QTest::newRow("greatest count") << quint16(16000);
}

void tst_ElementCatalogue::simpleParameter()
{
    QFETCH(quint16, count);
    const auto definition = DefinitionBuilder().elementCount(count).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    QCOMPARE(elements.definition(), definition.get());
    QVERIFY(!elements.isRecord());
    QVERIFY(!elements.record());
    QCOMPARE(elements.count(), count);
    QCOMPARE(elements.list().size(), qsizetype(count));
    QCOMPARE(elements.list().first(), quint16(0));
    QCOMPARE(elements.list().last(), quint16(count - 1));
    QCOMPARE(elements.set().size(), qsizetype(count));
    QVERIFY(elements.contains(0));
    QVERIFY(elements.contains(quint16(count - 1)));
    QVERIFY(!elements.contains(count));
    QVERIFY(!elements.contains(65535));
    QCOMPARE(elements.position(quint16(count - 1)), qsizetype(count - 1));
    QCOMPARE(elements.position(count), ElementCatalogue::NoPosition);
    QCOMPARE(elements.informationKey(7), quint16(0));
    QCOMPARE(elements.information(7), definition->queryElementInformation(0));
}

void tst_ElementCatalogue::setCount_data()
{
    QTest::addColumn<quint16>("defined");
    QTest::addColumn<quint16>("count");

    QTest::newRow("fewer") << quint16(5) << quint16(1);
    QTest::newRow("the same") << quint16(5) << quint16(5);
    QTest::newRow("more") << quint16(1) << quint16(16000);
}

void tst_ElementCatalogue::setCount()
{
    QFETCH(quint16, defined);
    QFETCH(quint16, count);
    const auto definition = DefinitionBuilder().elementCount(defined).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    elements.setCount(count);
    QCOMPARE(elements.count(), count);
    QCOMPARE(elements.list().size(), qsizetype(count));
    QVERIFY(elements.contains(quint16(count - 1)));
    QVERIFY(!elements.contains(count));
    QCOMPARE(definition->elementCount(), defined);
}

void tst_ElementCatalogue::recordInOrder()
{
    const auto definition =
        DefinitionBuilder().element(0, u"a"_s).element(1, u"b"_s).element(2, u"c"_s).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    QVERIFY(elements.isRecord());
    QCOMPARE(elements.record(), definition->queryRecordDefinition());
    QCOMPARE(elements.count(), quint16(3));
    QCOMPARE(elements.list(), (QList<quint16> {0, 1, 2}));
    QCOMPARE(elements.position(2), qsizetype(2));
    QVERIFY(!elements.contains(3));
    QCOMPARE(elements.informationKey(2), quint16(2));
    QCOMPARE(elements.information(2), definition->queryElementInformation(2));
    QVERIFY(!elements.information(3));
}

void tst_ElementCatalogue::recordOutOfOrder()
{
    const auto definition =
        DefinitionBuilder().element(9, u"a"_s).element(2, u"b"_s).element(5, u"c"_s).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    QCOMPARE(elements.count(), quint16(3));
    QCOMPARE(elements.list(), (QList<quint16> {9, 2, 5}));
    QCOMPARE(elements.set(), (QSet<quint16> {2, 5, 9}));
    QCOMPARE(elements.position(9), qsizetype(0));
    QCOMPARE(elements.position(2), qsizetype(1));
    QCOMPARE(elements.position(5), qsizetype(2));
    // Below the count, yet no element.
    QVERIFY(!elements.contains(0));
    QVERIFY(!elements.contains(1));
    QVERIFY(!elements.contains(10));
}

void tst_ElementCatalogue::recordWithGreatestNumbers()
{
    const auto definition = DefinitionBuilder().element(16383, u"a"_s).element(0, u"b"_s).build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    QVERIFY(elements.contains(16383));
    QVERIFY(elements.contains(0));
    QVERIFY(!elements.contains(16382));
    QVERIFY(!elements.contains(65535));
}

void tst_ElementCatalogue::isElementNamed_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<quint16>("defined");
    QTest::addColumn<quint16>("count");
    QTest::addColumn<bool>("expected");

    QTest::newRow("simple, one element") << false << quint16(1) << quint16(1) << false;
    QTest::newRow("simple, one element defined") << false << quint16(1) << quint16(5) << false;
    QTest::newRow("simple, two elements") << false << quint16(2) << quint16(2) << true;
    QTest::newRow("simple, two elements defined") << false << quint16(2) << quint16(1) << true;
    QTest::newRow("record of one element") << true << quint16(1) << quint16(1) << true;
}

void tst_ElementCatalogue::isElementNamed()
{
    QFETCH(bool, isRecord);
    QFETCH(quint16, defined);
    QFETCH(quint16, count);
    QFETCH(bool, expected);
    DefinitionBuilder builder;
    if (isRecord)
        builder.element(0, u"a"_s);
    else
        builder.elementCount(defined);
    const auto definition = builder.build();
    ElementCatalogue elements;
    elements.setDefinition(definition.get());
    if (!isRecord)
        elements.setCount(count);
    QCOMPARE(elements.isElementNamed(), expected);
}

void tst_ElementCatalogue::anotherDefinition()
{
    const auto record = DefinitionBuilder().element(9, u"a"_s).build();
    const auto simple = DefinitionBuilder().elementCount(2).build();
    ElementCatalogue elements;
    elements.setDefinition(record.get());
    elements.setDefinition(simple.get());
    QVERIFY(!elements.isRecord());
    QCOMPARE(elements.list(), (QList<quint16> {0, 1}));
    elements.setDefinition(nullptr);
    QCOMPARE(elements.count(), quint16(0));
}

void tst_ElementCatalogue::moved()
{
    const auto record = DefinitionBuilder().element(9, u"a"_s).element(4, u"b"_s).build();
    ElementCatalogue from;
    from.setDefinition(record.get());
    ElementCatalogue to;
    to = std::move(from);
    QCOMPARE(to.list(), (QList<quint16> {9, 4}));
    QCOMPARE(to.position(4), qsizetype(1));
}

QTEST_GUILESS_MAIN(tst_ElementCatalogue)

#include "tst_ElementCatalogue.moc"

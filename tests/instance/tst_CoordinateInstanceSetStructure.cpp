#include "tests/instance/InstanceStand.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// Another element count, coordinate or definition: what it keeps and what it emits.
class tst_CoordinateInstanceSetStructure : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void setElementCount_data();
    void setElementCount();
    void setElementCountRefused_data();
    void setElementCountRefused();
    void setElementCountSignals();
    void setElementCountSignalsOfAGlobalParameter();
    void setElementCountEndsAtTheFirstAxis();
    void textsBeyondAShortenedCountReturn();
    void setCoordinate_data();
    void setCoordinate();
    void setCoordinateSignals();
    void setCoordinateRekeysTheContainer();
    void setCoordinateRefusesAnOccupiedOne();
    void coordinateOfANewSet();
    void takeDefinition();
    void takeDefinitionKeepsOverrides();
};

void tst_CoordinateInstanceSetStructure::setElementCount_data()
{
    QTest::addColumn<quint16>("count");
    QTest::addColumn<quint16>("expected");
    QTest::newRow("0 changes nothing") << quint16(0) << quint16(2);
    QTest::newRow("1") << quint16(1) << quint16(1);
    QTest::newRow("2, as it is") << quint16(2) << quint16(2);
    QTest::newRow("16000") << quint16(16000) << quint16(16000);
    QTest::newRow("16001 changes nothing") << quint16(16001) << quint16(2);
    QTest::newRow("65535 changes nothing") << quint16(65535) << quint16(2);
}

void tst_CoordinateInstanceSetStructure::setElementCount()
{
    QFETCH(quint16, count);
    QFETCH(quint16, expected);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    stand.log.attach(set, u"set"_s);
    set->setElementCount(count);
    QCOMPARE(set->elementCount(), expected);
    QCOMPARE(set->definedElementCount(), quint16(2));
    QCOMPARE(stand.log.entries().size(), count == expected ? count + 1 : 0);
}

void tst_CoordinateInstanceSetStructure::setElementCountRefused_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<bool>("isReadOnly");
    QTest::newRow("record") << true << false << false;
    QTest::newRow("online") << false << true << false;
    QTest::newRow("read-only") << false << false << true;
}

void tst_CoordinateInstanceSetStructure::setElementCountRefused()
{
    QFETCH(bool, isRecord);
    QFETCH(bool, isOnline);
    QFETCH(bool, isReadOnly);
    InstanceStand stand;
    DefinitionBuilder builder;
    if (isRecord)
        builder.element(0, u"a"_s).element(1, u"b"_s);
    else
        builder.elementCount(2);
    auto *set = stand.add(builder, u"A12"_s);
    stand.container->setOnline(isOnline);
    stand.container->setReadOnly(isReadOnly);
    stand.listen(set);
    set->setElementCount(1);
    set->setProperty(0, ElementCount, ParameterProperty(QVariant(1U)));
    QCOMPARE(set->elementCount(), quint16(2));
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetStructure::setElementCountSignals()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s, {1, 3});
    stand.listen(set);
    set->setElementCount(2);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.definitionChanged(1.A012[00000])"_s,
            u"container.parameterDefinitionChanged(1.A012[00000])"_s,
            u"set.definitionChanged(1.A012[00001])"_s,
            u"container.parameterDefinitionChanged(1.A012[00001])"_s,
            u"set.definitionChanged(3.A012[00000])"_s,
            u"container.parameterDefinitionChanged(3.A012[00000])"_s,
            u"set.definitionChanged(3.A012[00001])"_s,
            u"container.parameterDefinitionChanged(3.A012[00001])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s,
            u"container.parameterNativeValueChanged(1.A012[00000])"_s}));
}

void tst_CoordinateInstanceSetStructure::setElementCountSignalsOfAGlobalParameter()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().global().elementCount(3), u"A12"_s, {0});
    stand.log.attach(set, u"set"_s);
    set->setElementCount(1);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.definitionChanged(1.A012[00000])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s}));
}

// Deliberate: the last signal names the first axis, also where the parameter lives elsewhere.
void tst_CoordinateInstanceSetStructure::setElementCountEndsAtTheFirstAxis()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s, {3});
    stand.log.attach(set, u"set"_s);
    set->setElementCount(2);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.definitionChanged(3.A012[00000])"_s,
            u"set.definitionChanged(3.A012[00001])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s}));
}

void tst_CoordinateInstanceSetStructure::textsBeyondAShortenedCountReturn()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    set->setOnlineValueText(Axis1, 2, u"9"_s);
    set->setElementCount(1);
    QCOMPARE(set->nativeValueText(Axis1, 2, false), QString());
    set->setElementCount(3);
    QCOMPARE(set->nativeValueText(Axis1, 2, false), u"9"_s);
}

void tst_CoordinateInstanceSetStructure::setCoordinate_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<bool>("isMoved");

    // Default coordinates are A12, B07 and Q05.
    QTest::newRow("default to default") << u"A12"_s << u"B07"_s << true;
    QTest::newRow("default to moveable default") << u"A12"_s << u"Q05"_s << true;
    QTest::newRow("fixed to moveable") << u"A12"_s << u"Q06"_s << false;
    QTest::newRow("fixed to fixed") << u"A12"_s << u"A13"_s << false;
    QTest::newRow("moveable to moveable") << u"Q05"_s << u"Q999"_s << true;
    QTest::newRow("moveable to default") << u"Q05"_s << u"A12"_s << true;
    QTest::newRow("moveable to another fixed one") << u"Q05"_s << u"P05"_s << false;
    QTest::newRow("to no coordinate") << u"Q05"_s << QString() << false;
    QTest::newRow("to itself") << u"Q05"_s << u"Q05"_s << false;
}

void tst_CoordinateInstanceSetStructure::setCoordinate()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(bool, isMoved);
    InstanceStand stand;
    QStringList defaults {u"A12"_s, u"B07"_s, u"Q05"_s};
    defaults.removeOne(from);
    defaults.prepend(from);
    stand.container->createOrUpdateParameter(
        stand.keep(DefinitionBuilder().coordinates(defaults).build()), u"D.1;X"_s);
    CoordinateInstanceSet *set = stand.set(from);
    QVERIFY(set);
    stand.log.attach(set, u"set"_s);
    set->setCoordinate(ParameterCoordinate(to));
    QCOMPARE(set->coordinate().toText(), isMoved ? to : from);
    QCOMPARE(stand.set(isMoved ? to : from), set);
    QCOMPARE(stand.log.entries().size(), isMoved ? 1 : 0);
}

void tst_CoordinateInstanceSetStructure::setCoordinateSignals()
{
    InstanceStand stand;
    auto *set =
        stand.add(DefinitionBuilder().element(7, u"a"_s).element(2, u"b"_s), u"Q05"_s, {1, 4});
    stand.listen(set);
    set->setCoordinate(ParameterCoordinate(u"Q06"_s));
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.coordinateChanged(1.Q005[00007], 1.Q006[00007])"_s,
            u"set.coordinateChanged(1.Q005[00002], 1.Q006[00002])"_s,
            u"set.coordinateChanged(4.Q005[00007], 4.Q006[00007])"_s,
            u"set.coordinateChanged(4.Q005[00002], 4.Q006[00002])"_s}));
}

void tst_CoordinateInstanceSetStructure::setCoordinateRekeysTheContainer()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"Q05"_s);
    QCOMPARE(stand.container->parameterAddressList(u"x"_s).size(), 1);
    QString seen;
    connect(set, &ParameterInformation::coordinateChanged, this, [&] {
        // Whoever hears of it finds it at its new place alone.
        seen = QString::number(int(stand.set(u"Q05"_s) == nullptr))
            + QString::number(int(stand.set(u"Q06"_s) == set))
            + stand.container->parameterAddressList(u"x"_s).first().toSortableText();
    });
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    set->setCoordinate(ParameterCoordinate(u"Q06"_s));
    QCOMPARE(seen, u"111.Q006[00000]"_s);
    QCOMPARE(
        stand.container->readValueNative(Axis1, ParameterCoordinate(u"Q06"_s), 0, false), u"5"_s);
    QCOMPARE(stand.container->readValueNative(Axis1, ParameterCoordinate(u"Q05"_s), 0, false),
        QString());
    stand.container->deleteParameter(u"D.1;Q05"_s);
    QVERIFY(!stand.set(u"Q06"_s));
}

void tst_CoordinateInstanceSetStructure::setCoordinateRefusesAnOccupiedOne()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"Q05"_s);
    auto *other = stand.add(DefinitionBuilder(), u"Q06"_s);
    stand.log.attach(set, u"set"_s);
    set->setCoordinate(ParameterCoordinate(u"Q06"_s));
    QCOMPARE(set->coordinate().toText(), u"Q05"_s);
    QCOMPARE(stand.set(u"Q06"_s), other);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetStructure::coordinateOfANewSet()
{
    InstanceStand stand;
    const ParameterCoordinate Q05(u"Q05"_s);
    CoordinateInstanceSet empty(stand.container.get());
    empty.setCoordinate(Q05);
    QVERIFY(!empty.coordinate().isValid());
    CoordinateInstanceSet set(stand.container.get());
    set.initialize(stand.define(DefinitionBuilder(), u"A12"_s), ParameterCoordinate());
    set.setCoordinate(ParameterCoordinate(u"A13"_s));
    QVERIFY(!set.coordinate().isValid());
    // From no coordinate to a moveable one.
    set.setCoordinate(Q05);
    QCOMPARE(set.coordinate(), Q05);
}

void tst_CoordinateInstanceSetStructure::takeDefinition()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    set->setElementCount(5);
    set->setOnlineValueText(Axis1, 1, u"9"_s);
    ParameterDefinition *next = stand.define(
        DefinitionBuilder().version(2).elementCount(3).name(u"Neu"_s).levels(3, 3), u"A12"_s);
    stand.listen(set);
    set->takeDefinition(next);
    QCOMPARE(set->definition(), next);
    QCOMPARE(set->elementCount(), quint16(3));
    QCOMPARE(set->name().longText(), u"Neu"_s);
    QCOMPARE(set->readLevel(0), 3U);
    QCOMPARE(set->nativeValueText(Axis1, 1, false), u"9"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.definitionChanged(1.A012[00000])"_s,
            u"container.parameterDefinitionChanged(1.A012[00000])"_s,
            u"set.definitionChanged(1.A012[00001])"_s,
            u"container.parameterDefinitionChanged(1.A012[00001])"_s,
            u"set.definitionChanged(1.A012[00002])"_s,
            u"container.parameterDefinitionChanged(1.A012[00002])"_s}));
}

void tst_CoordinateInstanceSetStructure::takeDefinitionKeepsOverrides()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setProperty(0, WriteLevel, ParameterProperty(QVariant(4U)));
    set->takeDefinition(stand.define(DefinitionBuilder().version(2).levels(1, 1), u"A12"_s));
    QVERIFY(set->hasPropertyOverride(0, WriteLevel));
    QCOMPARE(set->writeLevel(0), 4);
    QCOMPARE(set->readLevel(0), 1U);
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetStructure)

#include "tst_CoordinateInstanceSetStructure.moc"

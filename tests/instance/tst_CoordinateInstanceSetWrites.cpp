#include "tests/instance/InstanceStand.h"

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

namespace {

void scaleByTen(ProgrammedFunctions *firmware)
{
    firmware->valueText = [](const QString &text, const ParameterData &, quint16) {
        return text.isEmpty() ? text : text + u'0';
    };
    firmware->nativeText = [](const QString &text, const ParameterData &, quint16) {
        return text.endsWith(u'0') ? text.chopped(1) : text;
    };
}

enum eWrite {
    ValueText,
    OnlineValueText,
    NativeValue,
    NativeText,
    DefaultValueText,
    DefaultNativeValue,
    DefaultNativeValueText
};

void write(CoordinateInstanceSet *set, int operation, eLivingSpace livingSpace, quint16 element,
    const QString &text)
{
    switch (operation) {
    case ValueText:
        set->setValueText(livingSpace, element, text);
        return;
    case OnlineValueText:
        set->setOnlineValueText(livingSpace, element, text);
        return;
    case NativeValue:
        set->setNativeValue(livingSpace, element, text);
        return;
    case NativeText:
        set->setNativeText(livingSpace, element, text);
        return;
    case DefaultValueText:
        set->setDefaultValueText(livingSpace, element, text);
        return;
    case DefaultNativeValue:
        set->setDefaultNativeValue(livingSpace, element, text);
        return;
    default:
        set->setDefaultNativeValueText(livingSpace, element, text);
    }
}

bool isOfADefault(int operation)
{
    return operation >= DefaultValueText;
}

void addOperations()
{
    QTest::addColumn<int>("operation");
    QTest::newRow("setValueText") << int(ValueText);
    QTest::newRow("setOnlineValueText") << int(OnlineValueText);
    QTest::newRow("setNativeValue") << int(NativeValue);
    QTest::newRow("setNativeText") << int(NativeText);
    QTest::newRow("setDefaultValueText") << int(DefaultValueText);
    QTest::newRow("setDefaultNativeValue") << int(DefaultNativeValue);
    QTest::newRow("setDefaultNativeValueText") << int(DefaultNativeValueText);
}

} // namespace

/// The write operations: what they store, stamp, report and emit, in which order.
class tst_CoordinateInstanceSetWrites : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void signalsOfAChange_data();
    void signalsOfAChange();
    void axisOfTheSignals_data();
    void axisOfTheSignals();
    void unchangedValueReceivesTheTagAlone_data();
    void unchangedValueReceivesTheTagAlone();
    void unchangedOnlineValueKeepsItsTag();
    void whoeverConnectsHearsTheNextChange();
    void comparisonUsesTheValueText();
    void comparisonUsesTheNativeText();
    void absentElementOrInstance_data();
    void absentElementOrInstance();
    void writesDoNotAskIsWritable();
    void setValueTextAsksInOrder();
    void setValueTextStopsAtAdoption();
    void setValueTextStopsAtTheCheck();
    void setValueTextChecksAnEqualValueToo();
    void othersAreNotChecked_data();
    void othersAreNotChecked();
    void setNativeValueConverts();
    void setOnlineValueTextStoresAsItIs();
    void setNativeTextStoresAsItIs();
    void setDefaultValueText();
    void setDefaultValueTextStopsAtAdoption();
    void setDefaultNativeValueConverts();
    void setDefaultNativeValueTextStoresAsItIs();
    void equalDefaultIsSignalled();
    void changeTagSetters();
    void missingDependenciesAreReported();
    void presentDependenciesOfZeroAreSilent();
    void typedUnitCountsAsUnchanged();
};

void tst_CoordinateInstanceSetWrites::signalsOfAChange_data()
{
    addOperations();
}

void tst_CoordinateInstanceSetWrites::signalsOfAChange()
{
    QFETCH(int, operation);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s, {1, 2});
    stand.listen(set);
    stand.container->setParameterChangeTag(u"t"_s);
    write(set, operation, Axis2, 1, u"5"_s);
    if (isOfADefault(operation)) {
        QCOMPARE(stand.log.take(),
            (QStringList {u"set.defaultValueChanged(2.A012[00001])"_s,
                u"container.parameterDefaultValueChanged(2.A012[00001])"_s}));
        QCOMPARE(set->defaultNativeValueText(Axis2, 1), u"5"_s);
        QCOMPARE(set->attribute(Axis2, 1, u"DefaultValueChangeTag"_s), u"t"_s);
        QCOMPARE(set->attribute(Axis2, 1, u"ValueChangeTag"_s), QString());
        return;
    }
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged(2.A012[00001])"_s,
            u"set.nativeValueChanged(2.A012[00001])"_s,
            u"container.parameterValueChanged(2.A012[00001])"_s,
            u"container.parameterNativeValueChanged(2.A012[00001])"_s}));
    QCOMPARE(set->nativeValueText(Axis2, 1, false), u"5"_s);
    QCOMPARE(set->attribute(Axis2, 1, u"ValueChangeTag"_s), u"t"_s);
    QCOMPARE(set->nativeValueText(Axis1, 1, false), u"0"_s);
    QCOMPARE(set->nativeValueText(Axis2, 0, false), u"0"_s);
}

void tst_CoordinateInstanceSetWrites::axisOfTheSignals_data()
{
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<QString>("address");
    for (int livingSpace = 1; livingSpace <= 4; ++livingSpace) {
        QTest::addRow("axis %d", livingSpace)
            << false << livingSpace << u"%1.A012[00000]"_s.arg(livingSpace);
    }
    for (const int livingSpace : {-2147483647, -1, 0, 1, 2, 3, 4, 5, 2147483647})
        QTest::addRow("global, living space %d", livingSpace)
            << true << livingSpace << u"1.A012[00000]"_s;
}

void tst_CoordinateInstanceSetWrites::axisOfTheSignals()
{
    QFETCH(bool, isGlobal);
    QFETCH(int, livingSpace);
    QFETCH(QString, address);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().global(isGlobal), u"A12"_s, {1, 2, 3, 4});
    stand.log.attach(set, u"set"_s);
    const auto at = eLivingSpace(livingSpace);
    set->setOnlineValueText(at, 0, u"5"_s);
    set->setDefaultNativeValueText(at, 0, u"6"_s);
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged("_s + address + u')',
            u"set.nativeValueChanged("_s + address + u')',
            u"set.defaultValueChanged("_s + address + u')'}));
}

void tst_CoordinateInstanceSetWrites::unchangedValueReceivesTheTagAlone_data()
{
    QTest::addColumn<int>("operation");
    QTest::newRow("setValueText") << int(ValueText);
    QTest::newRow("setNativeValue") << int(NativeValue);
    QTest::newRow("setNativeText") << int(NativeText);
}

void tst_CoordinateInstanceSetWrites::unchangedValueReceivesTheTagAlone()
{
    QFETCH(int, operation);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setParameterChangeTag(u"alt"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    stand.listen(set);
    stand.container->setParameterChangeTag(u"neu"_s);
    write(set, operation, Axis1, 0, u"5"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"neu"_s);
    stand.container->setParameterChangeTag(QString());
    write(set, operation, Axis1, 0, u"5"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetWrites::unchangedOnlineValueKeepsItsTag()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setParameterChangeTag(u"alt"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    stand.listen(set);
    stand.container->setParameterChangeTag(u"neu"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"alt"_s);
    QCOMPARE(stand.log.entries(), QStringList());
    // Another text of the same number is another text.
    set->setOnlineValueText(Axis1, 0, u"05"_s);
    QCOMPARE(stand.log.count(u"valueChanged"_s), 1);
}

/// A set that nobody has connected to tells its container alone.
void tst_CoordinateInstanceSetWrites::whoeverConnectsHearsTheNextChange()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    auto *other = stand.add(DefinitionBuilder(), u"A13"_s);
    QStringList heard;
    connect(stand.container.get(), &ParameterProvider::parameterNativeValueChanged, set,
        [&heard](const ParameterAddress &at) {
            heard.append(u"container "_s + at.toText(false, false));
        });
    other->setOnlineValueText(Axis1, 0, u"5"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    QCOMPARE(heard.join(u','), u"container 1.A13,container 1.A12"_s);
    heard.clear();
    const auto functor = connect(set, &ParameterInformation::nativeValueChanged, set,
        [&heard] { heard.append(u"native"_s); });
    set->setOnlineValueText(Axis1, 0, u"6"_s);
    other->setOnlineValueText(Axis1, 0, u"6"_s);
    QCOMPARE(heard.join(u','), u"native,container 1.A12,container 1.A13"_s);
    disconnect(functor);
    heard.clear();
    // By the name of the signal too.
    const QSignalSpy spy(other, SIGNAL(valueChanged(ParameterAddress)));
    QVERIFY(spy.isValid());
    other->setOnlineValueText(Axis1, 0, u"7"_s);
    set->setOnlineValueText(Axis1, 0, u"7"_s);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(heard.join(u','), u"container 1.A13,container 1.A12"_s);
}

void tst_CoordinateInstanceSetWrites::comparisonUsesTheValueText()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    // Two native texts of one value text.
    firmware->valueText = [](const QString &, const ParameterData &, quint16) { return u"1"_s; };
    firmware->nativeText = [](const QString &, const ParameterData &, quint16) { return u"b"_s; };
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"a"_s);
    stand.listen(set);
    set->setNativeValue(Axis1, 0, u"1"_s);
    set->setValueText(Axis1, 0, u"1"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"a"_s);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetWrites::comparisonUsesTheNativeText()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    // Two value texts of one native text.
    firmware->nativeText = [](const QString &, const ParameterData &, quint16) { return u"3"_s; };
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"3"_s);
    stand.listen(set);
    stand.container->setParameterChangeTag(u"neu"_s);
    set->setNativeValue(Axis1, 0, u"3.2"_s);
    set->setValueText(Axis1, 0, u"3.4"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"3"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"neu"_s);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetWrites::absentElementOrInstance_data()
{
    addOperations();
}

void tst_CoordinateInstanceSetWrites::absentElementOrInstance()
{
    QFETCH(int, operation);
    InstanceStand stand;
    auto *simple = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    auto *record = stand.add(DefinitionBuilder().element(3, u"a"_s), u"A13"_s);
    stand.listen(simple);
    stand.log.attach(record, u"record"_s);
    for (const quint16 element : {2, 16000, 65535})
        write(simple, operation, Axis1, element, u"5"_s);
    for (const quint16 element : {0, 1, 4})
        write(record, operation, Axis1, element, u"5"_s);
    for (const int livingSpace : {-2147483647, -1, 0, 2, 3, 4, 5, 2147483647})
        write(simple, operation, eLivingSpace(livingSpace), 0, u"5"_s);
    QCOMPARE(stand.log.entries(), QStringList());
    QCOMPARE(simple->changeTagListOfAllInstances(), QStringList());
}

void tst_CoordinateInstanceSetWrites::writesDoNotAskIsWritable()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().levels(0, 6).property(NoWrite, 1U), u"A12"_s);
    stand.container->setReadOnly(true);
    QVERIFY(!set->isWritable(Axis1, 0));
    for (int operation = ValueText; operation <= NativeText; ++operation) {
        write(set, operation, Axis1, 0, QString::number(operation + 10));
        QCOMPARE(set->nativeValueText(Axis1, 0, false), QString::number(operation + 10));
    }
}

void tst_CoordinateInstanceSetWrites::setValueTextAsksInOrder()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    scaleByTen(firmware);
    auto *set =
        stand.add(DefinitionBuilder().kind(3).datatype(u"UINT32"_s).units(u"mA"_s), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    firmware->takeCalls();
    set->setValueText(Axis1, 0, u"0xfa"_s);
    // Adopted to 250, converted to 25, checked, compared as 10 with 250.
    QCOMPARE(firmware->takeCalls(),
        (QStringList {u"nativeText 1.A012[00000] 250"_s, u"checkValue 1.A012[00000] 25"_s,
            u"valueText 1.A012[00000] 1"_s}));
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"25"_s);
}

void tst_CoordinateInstanceSetWrites::setValueTextStopsAtAdoption()
{
    InstanceStand stand;
    const ProgrammedFunctions *firmware = stand.programFirmware();
    auto *set = stand.add(DefinitionBuilder().kind(3).datatype(u"UINT32"_s), u"A12"_s);
    stand.listen(set);
    stand.expectCritical(
        u"Parameter 1.A12: Fehler beim Übernehmen des Werts - Wert \"xyz\" ist ungültig"_s);
    set->setValueText(Axis1, 0, u"xyz"_s);
    QCOMPARE(firmware->calls, QStringList());
    QCOMPARE(stand.log.entries(), QStringList());
    QCOMPARE(set->changeTagListOfAllInstances(), QStringList());
}

void tst_CoordinateInstanceSetWrites::setValueTextStopsAtTheCheck()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->checkValue = [](const QString &, const ParameterData &, quint16) { return 3U; };
    firmware->correctValue = [](const QString &text, const ParameterData &, quint16) {
        return text == u"0"_s ? text : u"100"_s;
    };
    auto *set = stand.add(DefinitionBuilder().units(u"mA"_s), u"A12"_s);
    stand.container->setParameterChangeTag(u"t"_s);
    stand.listen(set);
    stand.expectCritical(
        u"Parameter 1.A12: Fehler beim Übernehmen des Werts - Wert \"100 mA\" ist zu groß"_s);
    set->setValueText(Axis1, 0, u"500"_s);
    QCOMPARE(stand.log.entries(), QStringList());
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"0"_s);
}

void tst_CoordinateInstanceSetWrites::setValueTextChecksAnEqualValueToo()
{
    InstanceStand stand;
    stand.programFirmware()->checkValue = [](const QString &, const ParameterData &, quint16) {
        return 1U;
    };
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    stand.container->setParameterChangeTag(u"t"_s);
    stand.expectCritical(
        u"Parameter 1.A12: Fehler beim Übernehmen des Werts - Wert \"5\" ist ungültig"_s);
    set->setValueText(Axis1, 0, u"5"_s);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), QString());
}

void tst_CoordinateInstanceSetWrites::othersAreNotChecked_data()
{
    QTest::addColumn<int>("operation");
    QTest::newRow("setOnlineValueText") << int(OnlineValueText);
    QTest::newRow("setNativeValue") << int(NativeValue);
    QTest::newRow("setNativeText") << int(NativeText);
    QTest::newRow("setDefaultValueText") << int(DefaultValueText);
    QTest::newRow("setDefaultNativeValue") << int(DefaultNativeValue);
    QTest::newRow("setDefaultNativeValueText") << int(DefaultNativeValueText);
}

void tst_CoordinateInstanceSetWrites::othersAreNotChecked()
{
    QFETCH(int, operation);
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->checkValue = [](const QString &, const ParameterData &, quint16) { return 1U; };
    auto *set = stand.add(DefinitionBuilder().limits(u"0"_s, u"1"_s), u"A12"_s);
    write(set, operation, Axis1, 0, u"kein Wert"_s);
    QCOMPARE(isOfADefault(operation) ? set->defaultNativeValueText(Axis1, 0)
                                     : set->nativeValueText(Axis1, 0, false),
        u"kein Wert"_s);
    QCOMPARE(firmware->callsOf(u"checkValue"_s), QStringList());
}

void tst_CoordinateInstanceSetWrites::setNativeValueConverts()
{
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(DefinitionBuilder().kind(3).datatype(u"UINT32"_s), u"A12"_s);
    // A value text, in no display form.
    set->setNativeValue(Axis1, 0, u"120"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"12"_s);
    QCOMPARE(set->valueText(Axis1, 0, false), u"120"_s);
}

void tst_CoordinateInstanceSetWrites::setOnlineValueTextStoresAsItIs()
{
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"120"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"120"_s);
    QCOMPARE(set->valueText(Axis1, 0, false), u"1200"_s);
}

void tst_CoordinateInstanceSetWrites::setNativeTextStoresAsItIs()
{
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setNativeText(Axis1, 0, u"120"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"120"_s);
}

void tst_CoordinateInstanceSetWrites::setDefaultValueText()
{
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(DefinitionBuilder().kind(3).datatype(u"UINT32"_s), u"A12"_s);
    set->setDefaultValueText(Axis1, 0, u"fahex"_s);
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), u"25"_s);
    QCOMPARE(set->defaultValueText(Axis1, 0), u"250"_s);
}

void tst_CoordinateInstanceSetWrites::setDefaultValueTextStopsAtAdoption()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().kind(4).defaultValue(u"3"_s), u"A12"_s);
    stand.listen(set);
    stand.expectCritical(
        u"Parameter 1.A12: Fehler beim Übernehmen des Werts - Wert \"12\" ist ungültig"_s);
    set->setDefaultValueText(Axis1, 0, u"12"_s);
    QCOMPARE(stand.log.entries(), QStringList());
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), u"3"_s);
}

void tst_CoordinateInstanceSetWrites::setDefaultNativeValueConverts()
{
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setDefaultNativeValue(Axis1, 0, u"120"_s);
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), u"12"_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"12"_s);
}

void tst_CoordinateInstanceSetWrites::setDefaultNativeValueTextStoresAsItIs()
{
    InstanceStand stand;
    scaleByTen(stand.programFirmware());
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setDefaultNativeValueText(Axis1, 0, u"120"_s);
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), u"120"_s);
    QCOMPARE(set->defaultValueText(Axis1, 0), u"1200"_s);
}

void tst_CoordinateInstanceSetWrites::equalDefaultIsSignalled()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setDefaultNativeValueText(Axis1, 0, u"5"_s);
    stand.listen(set);
    stand.container->setParameterChangeTag(u"neu"_s);
    set->setDefaultNativeValueText(Axis1, 0, u"5"_s);
    QCOMPARE(stand.log.entries(),
        (QStringList {u"set.defaultValueChanged(1.A012[00000])"_s,
            u"container.parameterDefaultValueChanged(1.A012[00000])"_s}));
    QCOMPARE(set->attribute(Axis1, 0, u"DefaultValueChangeTag"_s), u"neu"_s);
}

void tst_CoordinateInstanceSetWrites::changeTagSetters()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.listen(set);
    QVERIFY(set->setValueChangeTag(Axis1, 0, u"v"_s));
    QVERIFY(set->setDefaultValueChangeTag(Axis1, 0, u"d"_s));
    QCOMPARE(set->changeTagList(Axis1), (QStringList {u"d"_s, u"v"_s}));
    QVERIFY(set->setValueChangeTag(Axis1, 0, QString()));
    QVERIFY(set->setDefaultValueChangeTag(Axis1, 0, QString()));
    QCOMPARE(set->changeTagList(Axis1), QStringList());
    QVERIFY(!set->setValueChangeTag(Axis1, 1, u"v"_s));
    QVERIFY(!set->setValueChangeTag(Axis2, 0, u"v"_s));
    QVERIFY(!set->setDefaultValueChangeTag(Axis1, 1, u"v"_s));
    QVERIFY(!set->setDefaultValueChangeTag(Global, 0, u"v"_s));
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetWrites::missingDependenciesAreReported()
{
    InstanceStand stand;
    DefinitionBuilder builder;
    for (quint32 property = 32; property < 40; ++property)
        builder.without(eParameterProperty(property));
    auto *set = stand.add(builder, u"A12"_s);
    const auto expectEight = [&stand] {
        for (const char *name : {"limit dependency", "scaling dependency", "post write dependency",
                 "pre read dependency", "post read dependency", "pre write dependency",
                 "hiding dependency", "measuring unit dependency"}) {
            stand.expectWarning(
                u"missing property \""_s + QLatin1String(name) + u"\" at parameter A12\""_s);
        }
    };
    expectEight();
    set->setNativeValue(Axis1, 0, u"1"_s);
    QVERIFY(stand.messages.verify());
    expectEight();
    set->setOnlineValueText(Axis1, 0, u"2"_s);
    QVERIFY(stand.messages.verify());
    // Neither an equal value nor a default dispatches.
    set->setNativeValue(Axis1, 0, u"2"_s);
    set->setDefaultNativeValue(Axis1, 0, u"2"_s);
}

void tst_CoordinateInstanceSetWrites::presentDependenciesOfZeroAreSilent()
{
    InstanceStand stand;
    const ProgrammedFunctions *firmware = stand.programFirmware();
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.add(DefinitionBuilder(), u"A13"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    QCOMPARE(firmware->callsOf(u"runFunction"_s), QStringList());
    QCOMPARE(firmware->callsOf(u"lowerLimit"_s), QStringList());
}

void tst_CoordinateInstanceSetWrites::typedUnitCountsAsUnchanged()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().units(u"mA"_s).defaultValue(u"5"_s), u"A12"_s);
    QCOMPARE(set->valueText(Axis1, 0, false), u"5"_s);
    stand.container->setParameterChangeTag(u"neu"_s);
    stand.listen(set);
    set->setValueText(Axis1, 0, u"5 mA"_s);
    QCOMPARE(stand.log.take(), QStringList());
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"neu"_s);
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetWrites)

#include "tst_CoordinateInstanceSetWrites.moc"

#include "tests/value/RecordAccess.h"
#include "tests/value/LocalText.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;
using eSeverity = SystemMessage::eSeverity;

/// What a record asks the firmware for: checks, corrections, limits, units and hiding.
class tst_ParameterInstanceDataFirmware : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void checkValue_data();
    void checkValue();
    void checkValueAsksInOrder();
    void checkValueWithoutFirmware();
    void checkValueShowsTheDisplayFormWithUnit();
    void isWritable_data();
    void isWritable();
    void conversions();
    void limits_data();
    void limits();
    void runFunction_data();
    void runFunction();
    void updateLimits();
    void updateUnits();
    void hiddenIsAskedOnce();
    void updateHidden();
    void hiddenWithoutFirmware();
    void correctUntagged_data();
    void correctUntagged();
    void correctUntaggedFillsInTheDefaultFirst();
    void correctUntaggedConverts();
    void correctUntaggedOfAbsentElement();
};

void tst_ParameterInstanceDataFirmware::checkValue_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("report");

    const QString start = u"Parameter 1.A12: Fehler beim Übernehmen des Werts - "_s;
    QTest::newRow("0 is acceptable") << 0U << QString();
    QTest::newRow("1 is invalid") << 1U << start + u"Wert \"7\" ist ungültig"_s;
    QTest::newRow("2 is too small") << 2U << start + u"Wert \"7\" ist zu klein"_s;
    QTest::newRow("3 is too large") << 3U << start + u"Wert \"7\" ist zu groß"_s;
    QTest::newRow("4 is invalid") << 4U << start + u"Wert \"7\" ist ungültig"_s;
    QTest::newRow("7 is invalid") << 7U << start + u"Wert \"7\" ist ungültig"_s;
    QTest::newRow("greatest code is invalid")
        << 4294967295U << start + u"Wert \"7\" ist ungültig"_s;
}

// Deliberate: the rejection names the corrected value.
void tst_ParameterInstanceDataFirmware::checkValue()
{
    QFETCH(quint32, code);
    QFETCH(QString, report);
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->checkValue = [code](const QString &, const ParameterData &, quint16) { return code; };
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    firmware->correctValue = [](const QString &, const ParameterData &, quint16) { return u"7"_s; };
    if (code != 0)
        stand.expectCritical(report);
    QCOMPARE(record->checkValue(0, u"99"_s), code == 0);
    QCOMPARE(record->changeTags(), QStringList());
}

void tst_ParameterInstanceDataFirmware::checkValueAsksInOrder()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->checkValue = [](const QString &, const ParameterData &, quint16) { return 3U; };
    firmware->correctValue = [](const QString &, const ParameterData &, quint16) {
        return u"100"_s;
    };
    firmware->valueText = [](const QString &, const ParameterData &, quint16) { return u"10"_s; };
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().element(4, u"vier"_s), u"A12"_s));
    stand.expectCritical(
        u"Parameter 1.A12[4]: Fehler beim Übernehmen des Werts - Wert \"10\" ist zu groß"_s);
    QVERIFY(!record->checkValue(4, u"123"_s));
    QCOMPARE(firmware->calls,
        (QStringList {u"checkValue 1.A012[00004] 123"_s, u"correctValue 1.A012[00004] 123"_s,
            u"valueText 1.A012[00004] 100"_s}));
}

void tst_ParameterInstanceDataFirmware::checkValueWithoutFirmware()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().limits(u"0"_s, u"5"_s), u"A12"_s));
    QVERIFY(record->checkValue(0, u"kein Wert"_s));
}

void tst_ParameterInstanceDataFirmware::checkValueShowsTheDisplayFormWithUnit()
{
    InstanceStand stand;
    stand.programFirmware()->checkValue = [](const QString &, const ParameterData &, quint16) {
        return 2U;
    };
    ParameterInstanceData *record = recordOf(
        stand.add(DefinitionBuilder().datatype(u"REAL64"_s).decimals(2).units(u"mA"_s), u"A12"_s));
    stand.expectCritical(
        u"Parameter 1.A12: Fehler beim Übernehmen des Werts - Wert \"%1\" ist zu klein"_s.arg(
            localText(u"1.50 mA"_s)));
    QVERIFY(!record->checkValue(0, u"1.5"_s));
}

void tst_ParameterInstanceDataFirmware::isWritable_data()
{
    QTest::addColumn<QVariant>("noWrite");
    QTest::addColumn<bool>("expected");
    QTest::newRow("absent") << QVariant() << true;
    QTest::newRow("0") << QVariant(0U) << true;
    QTest::newRow("1") << QVariant(1U) << false;
    QTest::newRow("2") << QVariant(2U) << false;
    QTest::newRow("true") << QVariant(true) << false;
    QTest::newRow("negative") << QVariant(-1) << false;
}

void tst_ParameterInstanceDataFirmware::isWritable()
{
    QFETCH(QVariant, noWrite);
    QFETCH(bool, expected);
    InstanceStand stand;
    DefinitionBuilder builder;
    if (noWrite.isValid())
        builder.property(NoWrite, noWrite);
    else
        builder.without(NoWrite);
    QCOMPARE(recordOf(stand.add(builder, u"A12"_s))->isWritable(0), expected);
}

void tst_ParameterInstanceDataFirmware::conversions()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QCOMPARE(record->toValueText(0, u"5"_s), u"5"_s);
    QCOMPARE(record->toNativeText(0, u"5"_s), u"5"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->valueText = [](const QString &text, const ParameterData &, quint16) {
        return u"v"_s + text;
    };
    firmware->nativeText = [](const QString &text, const ParameterData &, quint16) {
        return u"n"_s + text;
    };
    QCOMPARE(record->toValueText(0, u"5"_s), u"v5"_s);
    QCOMPARE(record->toNativeText(0, u"5"_s), u"n5"_s);
}

void tst_ParameterInstanceDataFirmware::limits_data()
{
    QTest::addColumn<QString>("firmwareLimit");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the firmware's") << u"3"_s << u"8"_s << u"3"_s;
    QTest::newRow("else the property") << QString() << u"8"_s << u"8"_s;
    QTest::newRow("none") << QString() << QString() << QString();
}

void tst_ParameterInstanceDataFirmware::limits()
{
    QFETCH(QString, firmwareLimit);
    QFETCH(QString, property);
    QFETCH(QString, expected);
    InstanceStand stand;
    DefinitionBuilder builder;
    if (!property.isEmpty())
        builder.limits(property, property);
    ParameterInstanceData *record = recordOf(stand.add(builder, u"A12"_s));
    QCOMPARE(record->lowerLimit(0), property);
    QCOMPARE(record->upperLimit(0), property);
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->lowerLimit = [&](const ParameterData &, quint16) { return firmwareLimit; };
    QCOMPARE(record->lowerLimit(0), expected);
    QCOMPARE(record->upperLimit(0), property);
    firmware->upperLimit = firmware->lowerLimit;
    QCOMPARE(record->upperLimit(0), expected);
}

void tst_ParameterInstanceDataFirmware::runFunction_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("call");
    QTest::newRow("pre-read") << int(eFunctionKind::Preread) << u"runFunction 1.A012[00000] 0"_s;
    QTest::newRow("pre-write") << int(eFunctionKind::Prewrite) << u"runFunction 1.A012[00000] 1"_s;
    QTest::newRow("post-write") << int(eFunctionKind::Postwrite)
                                << u"runFunction 1.A012[00000] 2"_s;
    QTest::newRow("post-read") << int(eFunctionKind::Postread) << u"runFunction 1.A012[00000] 3"_s;
}

void tst_ParameterInstanceDataFirmware::runFunction()
{
    QFETCH(int, kind);
    QFETCH(QString, call);
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->runFunction(eFunctionKind(kind), 0);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    record->runFunction(eFunctionKind(kind), 0);
    QCOMPARE(firmware->calls, QStringList {call});
}

void tst_ParameterInstanceDataFirmware::updateLimits()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(2), u"A12"_s));
    ProgrammedFunctions *firmware = stand.programFirmware();
    QString lower = u"1"_s;
    QString upper = u"5"_s;
    firmware->lowerLimit = [&](const ParameterData &, quint16) { return lower; };
    firmware->upperLimit = [&](const ParameterData &, quint16) { return upper; };
    record->updateLimits(0);
    QVERIFY(!record->updateLimits(0));
    upper = u"6"_s;
    QVERIFY(record->updateLimits(0));
    QVERIFY(!record->updateLimits(0));
    lower = u"2"_s;
    QVERIFY(record->updateLimits(0));
    QVERIFY(!record->updateLimits(0));
}

void tst_ParameterInstanceDataFirmware::updateUnits()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(2), u"A12"_s));
    record->updateUnits(0, u"mA"_s);
    QVERIFY(!record->updateUnits(0, u"mA"_s));
    QVERIFY(record->updateUnits(0, u"A"_s));
    QVERIFY(record->updateUnits(0, QString()));
    QVERIFY(!record->updateUnits(0, QString()));
}

void tst_ParameterInstanceDataFirmware::hiddenIsAskedOnce()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    bool isHidden = true;
    firmware->isHidden = [&](const ParameterData &, quint16) { return isHidden; };
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(2), u"A12"_s));
    QVERIFY(!record->isHiddenKnown(1));
    QVERIFY(record->isHidden(1));
    isHidden = false;
    QVERIFY(record->isHidden(1));
    QVERIFY(record->isHiddenKnown(1));
    QVERIFY(!record->isHiddenKnown(0));
    QCOMPARE(firmware->calls, QStringList {u"isHidden 1.A012[00001]"_s});
}

void tst_ParameterInstanceDataFirmware::updateHidden()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    bool isHidden = true;
    firmware->isHidden = [&](const ParameterData &, quint16) { return isHidden; };
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QVERIFY(record->updateHidden(0));
    QVERIFY(record->isHidden(0));
    isHidden = false;
    QVERIFY(!record->updateHidden(0));
    QVERIFY(!record->isHidden(0));
}

void tst_ParameterInstanceDataFirmware::hiddenWithoutFirmware()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QVERIFY(!record->isHidden(0));
    QVERIFY(!record->updateHidden(0));
}

void tst_ParameterInstanceDataFirmware::correctUntagged_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("valueTag");
    QTest::addColumn<QString>("defaultValue");
    QTest::addColumn<QString>("defaultTag");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QStringList>("reports");

    const QString value = u"Wert von Parameter A12 korrigiert!"_s;
    const QString defaultValue = u"Default-Wert von Parameter A12 korrigiert!"_s;
    QTest::newRow("both differ") << u"1"_s << QString() << u"2"_s << QString() << u"5 neu / 5 neu"_s
                                 << QStringList {value, defaultValue};
    QTest::newRow("both equal") << u"5"_s << QString() << u"5"_s << QString() << u"5 neu / 5 neu"_s
                                << QStringList();
    QTest::newRow("value differs")
        << u"1"_s << QString() << u"5"_s << QString() << u"5 neu / 5 neu"_s << QStringList {value};
    QTest::newRow("default differs") << u"5"_s << QString() << u"2"_s << QString()
                                     << u"5 neu / 5 neu"_s << QStringList {defaultValue};
    QTest::newRow("tagged value is neither compared nor tagged")
        << u"1"_s << u"alt"_s << u"2"_s << QString() << u"1 alt / 5 neu"_s
        << QStringList {defaultValue};
    QTest::newRow("tagged default is neither compared nor tagged")
        << u"1"_s << QString() << u"2"_s << u"alt"_s << u"5 neu / 2 alt"_s << QStringList {value};
    QTest::newRow("both tagged") << u"1"_s << u"alt"_s << u"2"_s << u"alt"_s << u"1 alt / 2 alt"_s
                                 << QStringList();
    QTest::newRow("texts are compared, not numbers")
        << u"05"_s << QString() << u"5.0"_s << QString() << u"5 neu / 5 neu"_s
        << QStringList {value, defaultValue};
}

void tst_ParameterInstanceDataFirmware::correctUntagged()
{
    QFETCH(QString, value);
    QFETCH(QString, valueTag);
    QFETCH(QString, defaultValue);
    QFETCH(QString, defaultTag);
    QFETCH(QString, result);
    QFETCH(QStringList, reports);

    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->setValue(0, value);
    record->setDefaultValue(0, defaultValue);
    record->setValueChangeTag(0, valueTag);
    record->setDefaultValueChangeTag(0, defaultTag);
    for (const QString &report : reports)
        stand.messages.expect(eSeverity::Information, u"Antrieb"_s, report);
    record->correctUntagged(0, u"neu"_s, u"5"_s);
    QCOMPARE(u"%1 %2 / %3 %4"_s.arg(record->value(0), record->valueChangeTag(0),
                 record->defaultValue(0), record->defaultValueChangeTag(0)),
        result);
}

// Reading the value fills in the default, with the container's tag; it is compared all the same.
void tst_ParameterInstanceDataFirmware::correctUntaggedFillsInTheDefaultFirst()
{
    InstanceStand stand;
    stand.container->setParameterChangeTag(u"T"_s);
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"2"_s), u"A12"_s));
    stand.messages.expect(
        eSeverity::Information, u"Antrieb"_s, u"Wert von Parameter A12 korrigiert!"_s);
    stand.messages.expect(
        eSeverity::Information, u"Antrieb"_s, u"Default-Wert von Parameter A12 korrigiert!"_s);
    record->correctUntagged(0, u"neu"_s, u"5"_s);
    QCOMPARE(record->value(0), u"5"_s);
    QCOMPARE(record->defaultValue(0), u"5"_s);
    QCOMPARE(record->changeTags(), QStringList {u"neu"_s});
}

void tst_ParameterInstanceDataFirmware::correctUntaggedConverts()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    firmware->valueText = [](const QString &text, const ParameterData &, quint16) {
        return text + u"0"_s;
    };
    firmware->nativeText = [](const QString &text, const ParameterData &, quint16) {
        return text.chopped(1);
    };
    record->setValue(0, u"4"_s);
    record->setDefaultValue(0, u"6"_s);
    stand.messages.expect(
        eSeverity::Information, u"Antrieb"_s, u"Wert von Parameter A12 korrigiert!"_s);
    record->correctUntagged(0, u"neu"_s, u"60"_s);
    QCOMPARE(record->value(0), u"6"_s);
    QCOMPARE(record->defaultValue(0), u"6"_s);
    QCOMPARE(record->changeTags(), QStringList {u"neu"_s});
}

void tst_ParameterInstanceDataFirmware::correctUntaggedOfAbsentElement()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QCOMPARE(reasonOf([&] { record->correctUntagged(1, u"neu"_s, u"5"_s); }), 2);
}

QTEST_GUILESS_MAIN(tst_ParameterInstanceDataFirmware)

#include "tst_ParameterInstanceDataFirmware.moc"

#include "value/ParameterInstanceData.h"

#include "tests/value/LocalText.h"
#include "tests/instance/InstanceStand.h"
#include "value/ElementCatalogue.h"

#include <KrParameterDefinition/ParameterException.h>
#include <KrParameterInstance/ParameterData.h>
#include <LmUtilities/IniSection.h>

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;
using LmIniParser::IniSection;
using eSeverity = SystemMessage::eSeverity;

class tst_ParameterInstanceData : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void serialNumbersCountFromOne();
    void withoutOwner_data();
    void withoutOwner();
    void absentElement_data();
    void absentElement();
    void axisNumberIsTheLivingSpace_data();
    void axisNumberIsTheLivingSpace();
    void valueMaterialises();
    void valueMaterialisesWithoutTag();
    void defaultIsCorrectedByTheFirmware();
    void defaultTexts_data();
    void defaultTexts();
    void defaultBeyondTheDefinedCount();
    void defaultBeyondTheDefinedCountTakesTheStoredOne();
    void valueBeyondTheDefinedCount();
    void storedDefaultBeyondTheDefinedCount();
    void emptyTextsAreStored();
    void settersStamp_data();
    void settersStamp();
    void changeTagSetters();
    void changeTags();
    void addressText_data();
    void addressText();
    void addressTextUnderAChangedCount_data();
    void addressTextUnderAChangedCount();
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
    void namedTexts();
    void saveKeys();
    void saveMaterialises();
    void saveIsLatin1();
    void loadTexts();
    void loadMissingKeys();
    void loadMissingTags_data();
    void loadMissingTags();
    void loadEncodings_data();
    void loadEncodings();
    void loadTellsChanges();
    void loadReadsOwnAxisOnly();
    void loadThenSaveIsIdentical();
    void discard_data();
    void discard();
    void discardKeepsTags();
    void discardFallsBackToDefaults();
    void discardWithInvalidPattern();
    void discardDropsTheNamedText();
    void rearrangeRecord();
    void textsReturnWithTheirElement_data();
    void textsReturnWithTheirElement();
    void storedTextsOfAbsentElements_data();
    void storedTextsOfAbsentElements();
    void absentElementsShowNothing();
    void discardReachesAbsentElements();
    void nestedReadOfADefault();
    void nestedReadBeyondTheDefinedCount();
    void nestedWriteDuringADefault();
    void countShrinksDuringADefault();
};

namespace {

ParameterInstanceData *recordOf(const CoordinateInstanceSet *set, eLivingSpace livingSpace = Axis1)
{
    return set->record(livingSpace);
}

template <typename Call>
int reasonOf(Call call)
{
    try {
        call();
    } catch (const ParameterException &exception) {
        return int(exception.reason());
    }
    return -1;
}

// A step is a definition, by the elements of a record or by the count of a simple parameter, or a
// shortened count under the same definition.
constexpr int Simple = -1;
constexpr int Shortened = -2;

QStringList linesOf(const IniSection &section)
{
    QStringList lines;
    for (const QByteArray &key : section.keys()) {
        lines.append(
            QString::fromLatin1(key) + u'=' + QString::fromLatin1(section.read(key).toByteArray()));
    }
    return lines;
}

} // namespace

void tst_ParameterInstanceData::serialNumbersCountFromOne()
{
    const ParameterInstanceData first;
    QCOMPARE(first.serialNumber(), 1U);
    {
        const ParameterInstanceData second;
        QCOMPARE(second.serialNumber(), 2U);
    }
    const ParameterInstanceData third;
    QCOMPARE(third.serialNumber(), 3U);
}

void tst_ParameterInstanceData::withoutOwner_data()
{
    QTest::addColumn<int>("operation");
    for (const char *name : {"checkElement", "value", "defaultValue", "setValue", "setDefaultValue",
             "setValueChangeTag", "setDefaultValueChangeTag", "addressText", "checkValue",
             "addressNumber", "correctUntagged"}) {
        static int operation;
        QTest::newRow(name) << operation++;
    }
}

void tst_ParameterInstanceData::withoutOwner()
{
    QFETCH(int, operation);
    ParameterInstanceData record;
    const QList<std::function<void()>> operations {
        [&] { record.checkElement(0); },
        [&] { record.value(0); },
        [&] { record.defaultValue(0); },
        [&] { record.setValue(0, u"1"_s); },
        [&] { record.setDefaultValue(0, u"1"_s); },
        [&] { record.setValueChangeTag(0, u"t"_s); },
        [&] { record.setDefaultValueChangeTag(0, u"t"_s); },
        [&] { (void)record.addressText(0); },
        [&] { record.checkValue(0, u"1"_s); },
        [&] { (void)record.delegate()->addressNumber(0); },
        [&] { record.correctUntagged(0, u"t"_s, u"1"_s); },
    };
    QCOMPARE(reasonOf(operations.at(operation)), 7);
    QCOMPARE(record.valueChangeTag(0), QString());
    QCOMPARE(record.defaultValueChangeTag(0), QString());
}

void tst_ParameterInstanceData::absentElement_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<quint16>("element");

    QTest::newRow("one behind the last of a simple parameter") << false << quint16(2);
    QTest::newRow("greatest number") << false << quint16(65535);
    QTest::newRow("number that the record lacks") << true << quint16(0);
    QTest::newRow("number behind the record") << true << quint16(8);
}

void tst_ParameterInstanceData::absentElement()
{
    QFETCH(bool, isRecord);
    QFETCH(quint16, element);
    InstanceStand stand;
    DefinitionBuilder builder;
    if (isRecord)
        builder.element(3, u"a"_s).element(7, u"b"_s);
    else
        builder.elementCount(2);
    ParameterInstanceData *record = recordOf(stand.add(builder, u"A12"_s));
    QCOMPARE(reasonOf([&] { record->checkElement(element); }), 2);
    QCOMPARE(reasonOf([&] { record->value(element); }), 2);
    QCOMPARE(reasonOf([&] { record->setValue(element, u"1"_s); }), 2);
    QCOMPARE(reasonOf([&] { record->setDefaultValue(element, u"1"_s); }), 2);
    QCOMPARE(reasonOf([&] { record->setValueChangeTag(element, u"t"_s); }), 2);
    QCOMPARE(reasonOf([&] { (void)record->addressText(element); }), 2);
    QCOMPARE(reasonOf([&] { record->checkValue(element, u"1"_s); }), 2);
    if (isRecord)
        QCOMPARE(reasonOf([&] { record->defaultValue(element); }), 2);
    QCOMPARE(record->valueChangeTag(element), QString());
    QCOMPARE(record->defaultValueChangeTag(element), QString());
}

void tst_ParameterInstanceData::axisNumberIsTheLivingSpace_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<quint8>("axis");
    QTest::newRow("global") << 0 << quint8(0);
    QTest::newRow("axis 1") << 1 << quint8(0);
    QTest::newRow("axis 2") << 2 << quint8(1);
    QTest::newRow("axis 3") << 3 << quint8(2);
    QTest::newRow("axis 4") << 4 << quint8(3);
}

void tst_ParameterInstanceData::axisNumberIsTheLivingSpace()
{
    QFETCH(int, livingSpace);
    QFETCH(quint8, axis);
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().global(livingSpace == 0), u"A12"_s, {livingSpace});
    const ParameterInstanceData *record = recordOf(set, eLivingSpace(livingSpace));
    QCOMPARE(record->axisNumber(), quint32(livingSpace));
    QCOMPARE(int(record->livingSpace()), livingSpace);
    QCOMPARE(record->address(0).axis(), axis);
    QCOMPARE(record->address(0).coordinate().toText(), u"A12"_s);
}

void tst_ParameterInstanceData::valueMaterialises()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"42"_s), u"A12"_s));
    QCOMPARE(record->valueChangeTag(0), QString());
    stand.container->setParameterChangeTag(u"jetzt"_s);
    QCOMPARE(record->value(0), u"42"_s);
    stand.container->setParameterChangeTag(u"später"_s);
    QCOMPARE(record->valueChangeTag(0), u"jetzt"_s);
    QCOMPARE(record->defaultValueChangeTag(0), u"jetzt"_s);
    QCOMPARE(record->value(0), u"42"_s);
    QCOMPARE(record->defaultValue(0), u"42"_s);
    QCOMPARE(record->valueChangeTag(0), u"jetzt"_s);
}

void tst_ParameterInstanceData::valueMaterialisesWithoutTag()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"42"_s), u"A12"_s));
    QCOMPARE(record->defaultValue(0), u"42"_s);
    QCOMPARE(record->value(0), u"42"_s);
    QCOMPARE(record->changeTags(), QStringList());
}

void tst_ParameterInstanceData::defaultIsCorrectedByTheFirmware()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->correctValue = [](const QString &text, const ParameterData &, quint16) {
        return text + u'0';
    };
    ParameterInstanceData *record = recordOf(
        stand.add(DefinitionBuilder().elementCount(2).defaultValues({u"1"_s, u"2"_s}), u"A12"_s));
    QCOMPARE(record->defaultValue(1), u"20"_s);
    QCOMPARE(record->defaultValue(1), u"20"_s);
    QCOMPARE(record->value(1), u"20"_s);
    QCOMPARE(firmware->callsOf(u"correctValue"_s), QStringList {u"correctValue 1.A012[00001] 2"_s});
}

void tst_ParameterInstanceData::defaultTexts_data()
{
    QTest::addColumn<quint32>("kind");
    QTest::addColumn<QString>("datatype");
    QTest::addColumn<QString>("defined");
    QTest::addColumn<QString>("expected");

    QTest::newRow("plain number") << 0U << u"INT32"_s << u"-5"_s << u"-5"_s;
    QTest::newRow("outer blanks of a number") << 0U << u"INT32"_s << u"  7 "_s << u"7"_s;
    QTest::newRow("outer blanks of a text stay") << 0U << u"STRING8"_s << u" a "_s << u" a "_s;
    QTest::newRow("decimal point") << 0U << u"REAL64"_s << u"1.5"_s << u"1.5"_s;
    QTest::newRow("hexadecimal is not parsed") << 3U << u"UINT8"_s << u"255"_s << u"255"_s;
    QTest::newRow("suffix is not parsed") << 3U << u"UINT8"_s << u"ffhex"_s << u"ffhex"_s;
    QTest::newRow("binary is not parsed") << 4U << u"UINT8"_s << u"10"_s << u"10"_s;
    QTest::newRow("time is not parsed") << 7U << u"UINT32"_s << u"64"_s << u"64"_s;
    QTest::newRow("empty") << 0U << u"STRING8"_s << QString() << QString();
}

void tst_ParameterInstanceData::defaultTexts()
{
    QFETCH(quint32, kind);
    QFETCH(QString, datatype);
    QFETCH(QString, defined);
    QFETCH(QString, expected);
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(
        DefinitionBuilder().kind(kind).datatype(datatype).defaultValue(defined), u"A12"_s));
    QCOMPARE(record->defaultValue(0), expected);
    QCOMPARE(record->value(0), expected);
}

// Deliberate: an element of a simple parameter beyond the defined count answers the default of
// element 0, stored or computed, and never overwrites a stored one.
void tst_ParameterInstanceData::defaultBeyondTheDefinedCount()
{
    InstanceStand stand;
    stand.container->setParameterChangeTag(u"t"_s);
    ProgrammedFunctions *firmware = stand.programFirmware();
    ParameterInstanceData *record = recordOf(
        stand.add(DefinitionBuilder().elementCount(2).defaultValues({u"1"_s, u"2"_s}), u"A12"_s));
    QCOMPARE(record->defaultValue(5), u"1"_s);
    QCOMPARE(firmware->callsOf(u"correctValue"_s), QStringList {u"correctValue 1.A012[00000] 1"_s});
    // Kept under element 0.
    QCOMPARE(record->defaultValueChangeTag(0), u"t"_s);
    QCOMPARE(record->defaultValue(0), u"1"_s);
    QCOMPARE(record->defaultValue(65535), u"1"_s);
    QCOMPARE(firmware->callsOf(u"correctValue"_s).size(), 1);
    QCOMPARE(reasonOf([&] { record->value(5); }), 2);
}

void tst_ParameterInstanceData::defaultBeyondTheDefinedCountTakesTheStoredOne()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(2).defaultValue(u"1"_s), u"A12"_s));
    stand.container->setParameterChangeTag(u"gesetzt"_s);
    record->setDefaultValue(0, u"99"_s);
    stand.container->setParameterChangeTag(u"gelesen"_s);
    QCOMPARE(record->defaultValue(2), u"99"_s);
    QCOMPARE(record->defaultValue(0), u"99"_s);
    QCOMPARE(record->defaultValueChangeTag(0), u"gesetzt"_s);
}

void tst_ParameterInstanceData::valueBeyondTheDefinedCount()
{
    InstanceStand stand;
    auto *set =
        stand.add(DefinitionBuilder().elementCount(2).defaultValues({u"1"_s, u"2"_s}), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    set->setElementCount(6);
    stand.container->setParameterChangeTag(u"t"_s);
    QCOMPARE(record->value(5), u"1"_s);
    QCOMPARE(record->valueChangeTag(5), u"t"_s);
    QCOMPARE(record->defaultValueChangeTag(5), QString());
    QCOMPARE(record->value(1), u"2"_s);
}

void tst_ParameterInstanceData::storedDefaultBeyondTheDefinedCount()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().defaultValue(u"1"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    set->setElementCount(3);
    record->setDefaultValue(2, u"7"_s);
    QCOMPARE(record->defaultValue(2), u"7"_s);
    QCOMPARE(record->defaultValue(1), u"1"_s);
    QCOMPARE(record->value(2), u"7"_s);
}

void tst_ParameterInstanceData::emptyTextsAreStored()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s));
    record->setValue(0, QString());
    record->setDefaultValue(0, u""_s);
    QCOMPARE(record->value(0), QString());
    QCOMPARE(record->defaultValue(0), QString());
}

void tst_ParameterInstanceData::settersStamp_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("now");
    QTest::newRow("first tag") << QString() << u"neu"_s;
    QTest::newRow("another tag") << u"alt"_s << u"neu"_s;
    QTest::newRow("an empty tag removes the old one") << u"alt"_s << QString();
}

void tst_ParameterInstanceData::settersStamp()
{
    QFETCH(QString, before);
    QFETCH(QString, now);
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    stand.container->setParameterChangeTag(before);
    record->setValue(0, u"1"_s);
    record->setDefaultValue(0, u"2"_s);
    stand.container->setParameterChangeTag(now);
    record->setValue(0, u"3"_s);
    QCOMPARE(record->valueChangeTag(0), now);
    QCOMPARE(record->defaultValueChangeTag(0), before);
    record->setDefaultValue(0, u"4"_s);
    QCOMPARE(record->defaultValueChangeTag(0), now);
    QCOMPARE(record->value(0), u"3"_s);
    QCOMPARE(record->defaultValue(0), u"4"_s);
}

void tst_ParameterInstanceData::changeTagSetters()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->setValueChangeTag(0, u"v"_s);
    record->setDefaultValueChangeTag(0, u"d"_s);
    QCOMPARE(record->valueChangeTag(0), u"v"_s);
    QCOMPARE(record->defaultValueChangeTag(0), u"d"_s);
    record->setValueChangeTag(0, QString());
    QCOMPARE(record->valueChangeTag(0), QString());
    QCOMPARE(record->changeTags(), QStringList {u"d"_s});
    // A tag alone stores no text.
    QCOMPARE(record->value(0), u"0"_s);
}

void tst_ParameterInstanceData::changeTags()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(3), u"A12"_s));
    QCOMPARE(record->changeTags(), QStringList());
    record->setValueChangeTag(2, u"b"_s);
    record->setDefaultValueChangeTag(0, u"c"_s);
    record->setValueChangeTag(0, u"a"_s);
    record->setDefaultValueChangeTag(1, u"b"_s);
    record->setValueChangeTag(1, QString());
    QCOMPARE(record->changeTags(), (QStringList {u"a"_s, u"b"_s, u"c"_s}));
}

void tst_ParameterInstanceData::addressText_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<bool>("isRecord");
    QTest::addColumn<quint16>("count");
    QTest::addColumn<QString>("expected");

    QTest::newRow("axis 1, one element") << 1 << false << quint16(1) << u"1.A12"_s;
    QTest::newRow("axis 4, one element") << 4 << false << quint16(1) << u"4.A12"_s;
    QTest::newRow("global, one element") << 0 << false << quint16(1) << u"A12"_s;
    QTest::newRow("two elements") << 1 << false << quint16(2) << u"1.A12[0]"_s;
    QTest::newRow("global, two elements") << 0 << false << quint16(2) << u"A12[0]"_s;
    QTest::newRow("record of one element") << 2 << true << quint16(1) << u"2.A12[0]"_s;
}

void tst_ParameterInstanceData::addressText()
{
    QFETCH(int, livingSpace);
    QFETCH(bool, isRecord);
    QFETCH(quint16, count);
    QFETCH(QString, expected);
    InstanceStand stand;
    DefinitionBuilder builder;
    builder.global(livingSpace == 0);
    if (isRecord)
        builder.element(0, u"a"_s);
    else
        builder.elementCount(count);
    const auto *set = stand.add(builder, u"A12"_s, {livingSpace});
    QCOMPARE(recordOf(set, eLivingSpace(livingSpace))->addressText(0), expected);
}

void tst_ParameterInstanceData::addressTextUnderAChangedCount_data()
{
    QTest::addColumn<quint16>("defined");
    QTest::addColumn<quint16>("changed");
    QTest::addColumn<QString>("expected");

    QTest::newRow("one defined, three now") << quint16(1) << quint16(3) << u"1.A12"_s;
    QTest::newRow("three defined, one now") << quint16(3) << quint16(1) << u"1.A12[0]"_s;
}

// As the description names the element: by what is defined.
void tst_ParameterInstanceData::addressTextUnderAChangedCount()
{
    QFETCH(quint16, defined);
    QFETCH(quint16, changed);
    QFETCH(QString, expected);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(defined), u"A12"_s);
    set->setElementCount(changed);
    QCOMPARE(recordOf(set)->addressText(0), expected);
}

void tst_ParameterInstanceData::checkValue_data()
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
void tst_ParameterInstanceData::checkValue()
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

void tst_ParameterInstanceData::checkValueAsksInOrder()
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

void tst_ParameterInstanceData::checkValueWithoutFirmware()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().limits(u"0"_s, u"5"_s), u"A12"_s));
    QVERIFY(record->checkValue(0, u"kein Wert"_s));
}

void tst_ParameterInstanceData::checkValueShowsTheDisplayFormWithUnit()
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

void tst_ParameterInstanceData::isWritable_data()
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

void tst_ParameterInstanceData::isWritable()
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

void tst_ParameterInstanceData::conversions()
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

void tst_ParameterInstanceData::limits_data()
{
    QTest::addColumn<QString>("firmwareLimit");
    QTest::addColumn<QString>("property");
    QTest::addColumn<QString>("expected");
    QTest::newRow("the firmware's") << u"3"_s << u"8"_s << u"3"_s;
    QTest::newRow("else the property") << QString() << u"8"_s << u"8"_s;
    QTest::newRow("none") << QString() << QString() << QString();
}

void tst_ParameterInstanceData::limits()
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

void tst_ParameterInstanceData::runFunction_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("call");
    QTest::newRow("pre-read") << int(eFunctionKind::Preread) << u"runFunction 1.A012[00000] 0"_s;
    QTest::newRow("pre-write") << int(eFunctionKind::Prewrite) << u"runFunction 1.A012[00000] 1"_s;
    QTest::newRow("post-write") << int(eFunctionKind::Postwrite)
                                << u"runFunction 1.A012[00000] 2"_s;
    QTest::newRow("post-read") << int(eFunctionKind::Postread) << u"runFunction 1.A012[00000] 3"_s;
}

void tst_ParameterInstanceData::runFunction()
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

void tst_ParameterInstanceData::updateLimits()
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

void tst_ParameterInstanceData::updateUnits()
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

void tst_ParameterInstanceData::hiddenIsAskedOnce()
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

void tst_ParameterInstanceData::updateHidden()
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

void tst_ParameterInstanceData::hiddenWithoutFirmware()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QVERIFY(!record->isHidden(0));
    QVERIFY(!record->updateHidden(0));
}

void tst_ParameterInstanceData::correctUntagged_data()
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

void tst_ParameterInstanceData::correctUntagged()
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
void tst_ParameterInstanceData::correctUntaggedFillsInTheDefaultFirst()
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

void tst_ParameterInstanceData::correctUntaggedConverts()
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

void tst_ParameterInstanceData::correctUntaggedOfAbsentElement()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    QCOMPARE(reasonOf([&] { record->correctUntagged(1, u"neu"_s, u"5"_s); }), 2);
}

void tst_ParameterInstanceData::namedTexts()
{
    ParameterInstanceData record;
    QCOMPARE(record.namedText(u"ts_1"_s), QString());
    record.setNamedText(u"ts_1"_s, u"a"_s);
    record.setNamedText(u"ts_2"_s, u"b"_s);
    QCOMPARE(record.namedText(u"ts_1"_s), u"a"_s);
    QCOMPARE(record.namedText(u"TS_1"_s), QString());
}

void tst_ParameterInstanceData::saveKeys()
{
    InstanceStand stand;
    const auto *set =
        stand.add(DefinitionBuilder().element(7, u"a"_s).element(2, u"b"_s).defaultValue(u"9"_s),
            u"A12"_s, {3});
    ParameterInstanceData *record = recordOf(set, Axis3);
    record->setValue(2, u"5"_s);
    record->setValueChangeTag(2, u"v"_s);
    record->setDefaultValue(7, u"6"_s);
    record->setDefaultValueChangeTag(7, u"d"_s);
    IniSection section;
    record->saveToSection(section);
    // Element list's order; a tag key only where there is a tag.
    QCOMPARE(linesOf(section),
        (QStringList {u"V_3_7=6"_s, u"DV_3_7=6"_s, u"DVC_3_7=d"_s, u"V_3_2=5"_s, u"VC_3_2=v"_s,
            u"DV_3_2=9"_s}));
}

void tst_ParameterInstanceData::saveMaterialises()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(
        stand.add(DefinitionBuilder().global().defaultValue(u"4"_s), u"A12"_s, {0}), Global);
    stand.container->setParameterChangeTag(u"t"_s);
    IniSection section;
    record->saveToSection(section);
    QCOMPARE(linesOf(section),
        (QStringList {u"V_0_0=4"_s, u"VC_0_0=t"_s, u"DV_0_0=4"_s, u"DVC_0_0=t"_s}));
    QCOMPARE(record->valueChangeTag(0), u"t"_s);
}

void tst_ParameterInstanceData::saveIsLatin1()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->setValue(0, u"ä€ÿ"_s);
    record->setValueChangeTag(0, u"ü"_s);
    IniSection section;
    record->saveToSection(section);
    QCOMPARE(section.read("V_1_0").toByteArray(), QByteArray("\xe4?\xff"));
    QCOMPARE(section.read("VC_1_0").toByteArray(), QByteArray("\xfc"));
}

void tst_ParameterInstanceData::loadTexts()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(2), u"A12"_s));
    IniSection section;
    for (const auto &[key, value] : std::initializer_list<std::pair<const char *, const char *>> {
             {"V_1_0", "1"}, {"VC_1_0", "a"}, {"DV_1_0", "2"}, {"DVC_1_0", "b"}, {"V_1_1", "3"},
             {"VC_1_1", "c"}, {"DV_1_1", "4"}, {"DVC_1_1", "d"}})
        section.write(key, value);
    record->loadFromSection(section, false);
    QCOMPARE(record->value(0), u"1"_s);
    QCOMPARE(record->defaultValue(0), u"2"_s);
    QCOMPARE(record->valueChangeTag(0), u"a"_s);
    QCOMPARE(record->defaultValueChangeTag(0), u"b"_s);
    QCOMPARE(record->value(1), u"3"_s);
    QCOMPARE(record->defaultValue(1), u"4"_s);
    QCOMPARE(record->valueChangeTag(1), u"c"_s);
    QCOMPARE(record->defaultValueChangeTag(1), u"d"_s);
}

void tst_ParameterInstanceData::loadMissingKeys()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"8"_s), u"A12"_s));
    record->setValue(0, u"1"_s);
    record->loadFromSection(IniSection(), false);
    QCOMPARE(record->value(0), QString());
    QCOMPARE(record->defaultValue(0), QString());
}

void tst_ParameterInstanceData::loadMissingTags_data()
{
    QTest::addColumn<bool>("hasKey");
    QTest::addColumn<QByteArray>("saved");
    QTest::addColumn<QString>("current");
    QTest::addColumn<QString>("expected");

    QTest::newRow("missing key takes the current tag")
        << false << QByteArray() << u"jetzt"_s << u"jetzt"_s;
    QTest::newRow("missing key, no current tag") << false << QByteArray() << QString() << QString();
    QTest::newRow("empty key removes the tag") << true << QByteArray() << u"jetzt"_s << QString();
    QTest::newRow("saved tag") << true << QByteArray("alt") << u"jetzt"_s << u"alt"_s;
}

void tst_ParameterInstanceData::loadMissingTags()
{
    QFETCH(bool, hasKey);
    QFETCH(QByteArray, saved);
    QFETCH(QString, current);
    QFETCH(QString, expected);
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->setValueChangeTag(0, u"zuvor"_s);
    record->setDefaultValueChangeTag(0, u"zuvor"_s);
    stand.container->setParameterChangeTag(current);
    IniSection section;
    section.write("V_1_0", "1");
    section.write("DV_1_0", "2");
    if (hasKey) {
        section.write("VC_1_0", saved);
        section.write("DVC_1_0", saved);
    }
    record->loadFromSection(section, false);
    QCOMPARE(record->valueChangeTag(0), expected);
    QCOMPARE(record->defaultValueChangeTag(0), expected);
}

void tst_ParameterInstanceData::loadEncodings_data()
{
    QTest::addColumn<bool>("utf8");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QByteArray>("savedAgain");

    QTest::newRow("Latin-1") << false << QByteArray("\xe4") << u"ä"_s << QByteArray("\xe4");
    QTest::newRow("UTF-8 read as Latin-1")
        << false << QByteArray("\xc3\xa4") << u"Ã¤"_s << QByteArray("\xc3\xa4");
    QTest::newRow("UTF-8") << true << QByteArray("\xc3\xa4") << u"ä"_s << QByteArray("\xe4");
    QTest::newRow("UTF-8 beyond Latin-1")
        << true << QByteArray("\xe2\x82\xac") << u"€"_s << QByteArray("?");
    QTest::newRow("broken UTF-8") << true << QByteArray("a\xff") << u"a\ufffd"_s
                                  << QByteArray("a?");
    QTest::newRow("NUL") << false << QByteArray("a\0b", 3) << QString(u"a"_s + QChar(0) + u'b')
                         << QByteArray("a\0b", 3);
}

void tst_ParameterInstanceData::loadEncodings()
{
    QFETCH(bool, utf8);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);
    QFETCH(QByteArray, savedAgain);
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    IniSection section;
    for (const char *key : {"V_1_0", "VC_1_0", "DV_1_0", "DVC_1_0"})
        section.write(key, bytes);
    record->loadFromSection(section, utf8);
    QCOMPARE(record->value(0), expected);
    QCOMPARE(record->valueChangeTag(0), expected);
    QCOMPARE(record->defaultValue(0), expected);
    QCOMPARE(record->defaultValueChangeTag(0), expected);
    IniSection saved;
    record->saveToSection(saved);
    for (const char *key : {"V_1_0", "VC_1_0", "DV_1_0", "DVC_1_0"})
        QCOMPARE(saved.read(key).toByteArray(), savedAgain);
}

void tst_ParameterInstanceData::loadTellsChanges()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(3), u"A12"_s));
    for (const quint16 element : {0, 1, 2}) {
        record->setValue(element, u"1"_s);
        record->setDefaultValue(element, u"2"_s);
    }
    IniSection section;
    for (const char *key : {"V_1_0", "V_1_2"})
        section.write(key, "1");
    for (const char *key : {"DV_1_1", "DV_1_2"})
        section.write(key, "2");
    section.write("V_1_1", "11");
    section.write("DV_1_0", "22");
    const ParameterInstanceData::Changes changes = record->loadFromSection(section, false);
    QCOMPARE(changes.values, QList<quint16> {1});
    QCOMPARE(changes.defaults, QList<quint16> {0});
}

void tst_ParameterInstanceData::loadReadsOwnAxisOnly()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s, {2}), Axis2);
    IniSection section;
    section.write("V_1_0", "1");
    section.write("V_2_0", "2");
    section.write("V_02_0", "3");
    section.write("V_2_00", "4");
    record->loadFromSection(section, false);
    QCOMPARE(record->value(0), u"2"_s);
}

void tst_ParameterInstanceData::loadThenSaveIsIdentical()
{
    InstanceStand stand;
    const auto *from = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    const auto *to = stand.add(DefinitionBuilder().elementCount(2), u"A13"_s);
    QString all;
    for (ushort c = 0; c < 256; ++c)
        all += QChar(c);
    recordOf(from)->setValue(0, all);
    recordOf(from)->setDefaultValue(1, all);
    recordOf(from)->setValueChangeTag(1, all);
    recordOf(from)->setDefaultValueChangeTag(0, u"d"_s);
    IniSection first;
    recordOf(from)->saveToSection(first);
    recordOf(to)->loadFromSection(first, false);
    IniSection second;
    recordOf(to)->saveToSection(second);
    QCOMPARE(linesOf(second), linesOf(first));
    QCOMPARE(recordOf(to)->value(0), all);
}

void tst_ParameterInstanceData::discard_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QList<quint16>>("values");
    QTest::addColumn<QList<quint16>>("defaults");

    // Values are tagged "ts_1", "ts_10", "fw_2"; defaults "fw_2", none, "ts_1".
    QTest::newRow("part of a tag") << u"ts_1"_s << QList<quint16> {0, 1} << QList<quint16> {2};
    QTest::newRow("whole tag") << u"^ts_1$"_s << QList<quint16> {0} << QList<quint16> {2};
    QTest::newRow("alternatives") << u"fw_|10"_s << QList<quint16> {1, 2} << QList<quint16> {0};
    QTest::newRow("no tag") << u"dt_"_s << QList<quint16>() << QList<quint16>();
    QTest::newRow("case counts") << u"TS_1"_s << QList<quint16>() << QList<quint16>();
    QTest::newRow("the empty pattern matches every tag, not the missing one")
        << QString() << QList<quint16> {0, 1, 2} << QList<quint16> {0, 2};
}

void tst_ParameterInstanceData::discard()
{
    QFETCH(QString, pattern);
    QFETCH(QList<quint16>, values);
    QFETCH(QList<quint16>, defaults);

    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().elementCount(3).defaultValue(u"8"_s), u"A12"_s));
    for (const quint16 element : {0, 1, 2}) {
        record->setValue(element, u"1"_s);
        record->setDefaultValue(element, u"2"_s);
    }
    record->setValueChangeTag(0, u"ts_1"_s);
    record->setValueChangeTag(1, u"ts_10"_s);
    record->setValueChangeTag(2, u"fw_2"_s);
    record->setDefaultValueChangeTag(0, u"fw_2"_s);
    record->setDefaultValueChangeTag(2, u"ts_1"_s);
    const ParameterInstanceData::Changes changes =
        record->discard(pattern, QRegularExpression(pattern));
    QCOMPARE(changes.values, values);
    QCOMPARE(changes.defaults, defaults);
    for (const quint16 element : {0, 1, 2}) {
        const QString defaultText = defaults.contains(element) ? u"8"_s : u"2"_s;
        QCOMPARE(record->defaultValue(element), defaultText);
        QCOMPARE(record->value(element), values.contains(element) ? defaultText : u"1"_s);
    }
}

void tst_ParameterInstanceData::discardKeepsTags()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    stand.container->setParameterChangeTag(u"ts_1"_s);
    record->setValue(0, u"1"_s);
    record->setDefaultValue(0, u"2"_s);
    record->discard(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(record->valueChangeTag(0), u"ts_1"_s);
    QCOMPARE(record->defaultValueChangeTag(0), u"ts_1"_s);
}

void tst_ParameterInstanceData::discardFallsBackToDefaults()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"8"_s), u"A12"_s));
    stand.container->setParameterChangeTag(u"ts_1"_s);
    record->setValue(0, u"1"_s);
    record->discard(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    stand.container->setParameterChangeTag(u"neu"_s);
    QCOMPARE(record->value(0), u"8"_s);
    QCOMPARE(record->valueChangeTag(0), u"neu"_s);
    QCOMPARE(record->defaultValueChangeTag(0), u"neu"_s);
}

void tst_ParameterInstanceData::discardWithInvalidPattern()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    stand.container->setParameterChangeTag(u"ts_(1"_s);
    record->setValue(0, u"1"_s);
    record->setNamedText(u"ts_(1"_s, u"x"_s);
    const auto changes = record->discard(u"ts_(1"_s, QRegularExpression(u"ts_(1"_s));
    QVERIFY(changes.values.isEmpty() && changes.defaults.isEmpty());
    QCOMPARE(record->value(0), u"1"_s);
    QCOMPARE(record->namedText(u"ts_(1"_s), QString());
}

void tst_ParameterInstanceData::discardDropsTheNamedText()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->setNamedText(u"ts_1"_s, u"a"_s);
    record->setNamedText(u"ts_10"_s, u"b"_s);
    record->discard(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(record->namedText(u"ts_1"_s), QString());
    QCOMPARE(record->namedText(u"ts_10"_s), u"b"_s);
}

void tst_ParameterInstanceData::rearrangeRecord()
{
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().element(3, u"a"_s).element(1, u"b"_s).element(2, u"c"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    for (const quint16 element : {1, 2, 3})
        record->setValue(element, QString::number(element * 10));
    ParameterDefinition *next = stand.define(
        DefinitionBuilder().version(2).element(1, u"b"_s).element(4, u"d"_s).element(3, u"a"_s),
        u"A12"_s);
    set->takeDefinition(next);
    QCOMPARE(record->value(1), u"10"_s);
    QCOMPARE(record->value(3), u"30"_s);
    QCOMPARE(record->value(4), u"0"_s);
    QCOMPARE(reasonOf([&] { record->checkElement(2); }), 2);
    QCOMPARE(reasonOf([&] { record->setValue(2, u"1"_s); }), 2);
}

void tst_ParameterInstanceData::textsReturnWithTheirElement_data()
{
    using Steps = QList<QList<int>>;
    QTest::addColumn<Steps>("steps");
    QTest::newRow("record that loses an element") << Steps {{1, 2, 3}, {1, 3}, {1, 2, 3}};
    QTest::newRow("record that loses it twice") << Steps {{1, 2, 3}, {1, 3}, {1}, {4}, {3, 2, 1}};
    QTest::newRow("record in another order") << Steps {{3, 1, 2}, {2}, {2, 3, 1}};
    QTest::newRow("shortened count, then a record")
        << Steps {{Simple, 3}, {Shortened, 1}, {0, 1, 2}};
    QTest::newRow("simple to record") << Steps {{Simple, 3}, {0, 2}, {0, 1, 2}};
    QTest::newRow("simple to record and back") << Steps {{Simple, 3}, {1}, {Simple, 3}};
    QTest::newRow("simple of one element in between") << Steps {{0, 1, 2}, {Simple, 1}, {0, 1, 2}};
    QTest::newRow("record to simple") << Steps {{0, 1, 2}, {2}, {Simple, 3}};
    QTest::newRow("simple that grows again") << Steps {{Simple, 3}, {Simple, 1}, {Simple, 3}};
    QTest::newRow("element that no simple parameter has")
        << Steps {{1, 16383}, {Simple, 2}, {1, 16383}};
}

void tst_ParameterInstanceData::textsReturnWithTheirElement()
{
    QFETCH(QList<QList<int>>, steps);
    InstanceStand stand;
    quint32 version = 0;
    const auto define = [&](const QList<int> &step) {
        DefinitionBuilder builder = DefinitionBuilder().version(++version).defaultValue(u"-1"_s);
        if (step.constFirst() == Simple)
            builder.elementCount(quint16(step.constLast()));
        else
            for (const int element : step)
                builder.element(quint16(element), u"a"_s);
        return builder;
    };
    auto *set = stand.add(define(steps.constFirst()), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    const QList<quint16> elements = set->elementList();
    for (const quint16 element : elements) {
        record->setValue(element, QString::number(element * 10));
        record->setDefaultValue(element, QString::number(element * 10 + 1));
        record->setValueChangeTag(element, u"v%1"_s.arg(element));
        record->setDefaultValueChangeTag(element, u"d%1"_s.arg(element));
    }
    for (const QList<int> &step : steps.sliced(1)) {
        if (step.constFirst() == Shortened)
            set->setElementCount(quint16(step.constLast()));
        else
            set->takeDefinition(stand.define(define(step), u"A12"_s));
    }
    QVERIFY(set->elementSet().contains(elements.constFirst()));
    for (const quint16 element : elements) {
        if (!set->elementSet().contains(element))
            continue;
        QCOMPARE(record->value(element), QString::number(element * 10));
        QCOMPARE(record->defaultValue(element), QString::number(element * 10 + 1));
        QCOMPARE(record->valueChangeTag(element), u"v%1"_s.arg(element));
        QCOMPARE(record->defaultValueChangeTag(element), u"d%1"_s.arg(element));
    }
}

void tst_ParameterInstanceData::storedTextsOfAbsentElements_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::newRow("beyond a shortened count") << false;
    QTest::newRow("that a definition lacks") << true;
}

// What is stored is told before the element is looked at; nothing more is stored.
void tst_ParameterInstanceData::storedTextsOfAbsentElements()
{
    QFETCH(bool, isRecord);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    record->setValue(2, u"7"_s);
    record->setDefaultValue(2, u"8"_s);
    record->setValueChangeTag(2, u"t"_s);
    if (isRecord)
        set->takeDefinition(
            stand.define(DefinitionBuilder().version(2).element(0, u"a"_s), u"A12"_s));
    else
        set->setElementCount(1);
    QCOMPARE(record->value(2), u"7"_s);
    QCOMPARE(record->defaultValue(2), u"8"_s);
    QCOMPARE(record->valueChangeTag(2), u"t"_s);
    QCOMPARE(record->defaultValueChangeTag(2), QString());
    QCOMPARE(reasonOf([&] { record->value(1); }), 2);
    QCOMPARE(reasonOf([&] { record->setValue(2, u"1"_s); }), 2);
    QCOMPARE(reasonOf([&] { record->setValueChangeTag(2, u"1"_s); }), 2);
}

void tst_ParameterInstanceData::absentElementsShowNothing()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().element(1, u"a"_s).element(2, u"b"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    stand.container->setParameterChangeTag(u"t"_s);
    record->setValue(2, u"7"_s);
    set->takeDefinition(stand.define(DefinitionBuilder().version(2).element(1, u"a"_s), u"A12"_s));
    stand.container->setParameterChangeTag(QString());
    QCOMPARE(set->nativeValueText(Axis1, 2, false), QString());
    QCOMPARE(set->attribute(Axis1, 2, u"ValueChangeTag"_s), QString());
    QCOMPARE(record->valueWithoutFirmware(2), QString());
    QCOMPARE(record->changeTags(), QStringList());
    IniSection section;
    record->saveToSection(section);
    QCOMPARE(linesOf(section), (QStringList {u"V_1_1=0"_s, u"DV_1_1=0"_s}));
}

void tst_ParameterInstanceData::discardReachesAbsentElements()
{
    InstanceStand stand;
    const DefinitionBuilder both = DefinitionBuilder().element(1, u"a"_s).element(2, u"b"_s);
    auto *set = stand.add(both, u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    stand.container->setParameterChangeTag(u"ts_1"_s);
    record->setValue(2, u"7"_s);
    record->setDefaultValue(2, u"8"_s);
    stand.container->setParameterChangeTag(QString());
    set->takeDefinition(stand.define(DefinitionBuilder().version(2).element(1, u"a"_s), u"A12"_s));
    const ParameterInstanceData::Changes changes =
        record->discard(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(changes.values, QList<quint16>());
    QCOMPARE(changes.defaults, QList<quint16>());
    set->takeDefinition(stand.define(DefinitionBuilder(both).version(3), u"A12"_s));
    QCOMPARE(record->value(2), u"0"_s);
    QCOMPARE(record->defaultValue(2), u"0"_s);
}

void tst_ParameterInstanceData::nestedReadOfADefault()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s));
    stand.container->setParameterChangeTag(u"t"_s);
    QStringList nested;
    firmware->correctValue = [&](const QString &, const ParameterData &, quint16) {
        nested = {record->value(0), record->defaultValue(0), record->valueChangeTag(0),
            record->defaultValueChangeTag(0)};
        return u"50"_s;
    };
    QCOMPARE(record->value(0), u"50"_s);
    // The definition's default, uncorrected; nothing stored.
    QCOMPARE(nested, (QStringList {u"5"_s, u"5"_s, QString(), QString()}));
    QCOMPARE(firmware->callsOf(u"correctValue"_s).size(), 1);
    QCOMPARE(record->defaultValue(0), u"50"_s);
}

void tst_ParameterInstanceData::nestedReadBeyondTheDefinedCount()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    auto *set = stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s);
    set->setElementCount(3);
    ParameterInstanceData *record = recordOf(set);
    QString nested;
    firmware->correctValue = [&](const QString &, const ParameterData &, quint16) {
        nested = record->value(2);
        return u"50"_s;
    };
    QCOMPARE(record->value(0), u"50"_s);
    QCOMPARE(nested, u"5"_s);
    // The uncorrected text was not kept.
    QCOMPARE(record->value(2), u"50"_s);
}

void tst_ParameterInstanceData::nestedWriteDuringADefault()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s));
    firmware->correctValue = [&](const QString &text, const ParameterData &, quint16) {
        record->setValue(0, u"7"_s);
        record->setDefaultValue(0, u"6"_s);
        return text;
    };
    // What was written meanwhile is not overwritten by what was to be read.
    QCOMPARE(record->value(0), u"7"_s);
    QCOMPARE(record->defaultValue(0), u"6"_s);
}

void tst_ParameterInstanceData::countShrinksDuringADefault()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    auto *set = stand.add(DefinitionBuilder().elementCount(3).defaultValue(u"5"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    firmware->correctValue = [&](const QString &text, const ParameterData &, quint16) {
        set->setElementCount(1);
        return text;
    };
    QCOMPARE(reasonOf([&] { record->value(2); }), -1);
    QCOMPARE(set->elementCount(), quint16(1));
    set->setElementCount(3);
    QCOMPARE(record->defaultValue(2), u"5"_s);
}

QTEST_GUILESS_MAIN(tst_ParameterInstanceData)

#include "tst_ParameterInstanceData.moc"

#include "tests/value/RecordAccess.h"

#include <QtTest/QTest>

#include <functional>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;

/// What a record keeps of each element, and what it stamps it with.
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
};

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

QTEST_GUILESS_MAIN(tst_ParameterInstanceData)

#include "tst_ParameterInstanceData.moc"

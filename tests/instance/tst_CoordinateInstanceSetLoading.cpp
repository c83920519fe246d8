#include "tests/instance/InstanceStand.h"

#include <LmUtilities/IniParser.h>

#include <QtCore/QMap>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;
using LmIniParser::IniSection;
using Keys = QList<std::pair<QByteArray, QByteArray>>;

/// Saving and loading sections, clearing value stores.
class tst_CoordinateInstanceSetLoading : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void save_data();
    void save();
    void savedElementCount_data();
    void savedElementCount();
    void loadedElementCount_data();
    void loadedElementCount();
    void loadedElementCountOfARecord();
    void elementCountIsReadWhenWritesAreRefused_data();
    void elementCountIsReadWhenWritesAreRefused();
    void elementCountIsReadBeforeTheValues();
    void missingElementCountRestoresTheDefinedOne();
    void signalsOfALoad();
    void unchangedTextsAreNotSignalled();
    void changedElementCountIsSignalledFirst();
    void loadDispatchesNothing();
    void loadChecksNothing();
    void encodings_data();
    void encodings();
    void deletedWhileSaved();
    void roundTrip();
    void roundTripThroughABlock();
    void sectionOfAnotherParameterIsSkipped();
    void emptySectionEmptiesValues();
    void hiddenFlagsAreAskedAtTheEnd();
    void hiddenFlagsOfParametersWithoutSection();
    void clearStore();
    void clearStoreWithInvalidPattern();
    void clearStoreDropsNamedTexts();
};

namespace {

QStringList linesOf(const CoordinateInstanceSet *set)
{
    IniSection section;
    set->saveToSection(section);
    QStringList lines;
    for (const QByteArray &key : section.keys()) {
        lines.append(
            QString::fromLatin1(key) + u'=' + QString::fromLatin1(section.read(key).toByteArray()));
    }
    return lines;
}

void load(CoordinateInstanceSet *set, const Keys &keys, bool utf8 = false)
{
    IniSection section;
    for (const auto &[key, value] : keys)
        section.write(key, value);
    set->loadFromSection(section, utf8);
}

} // namespace

void tst_CoordinateInstanceSetLoading::save_data()
{
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<QList<int>>("livingSpaces");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("global") << true << QList<int> {0} << QStringList {u"V_0_0=7"_s, u"DV_0_0=7"_s};
    QTest::newRow("axis 1") << false << QList<int> {1} << QStringList {u"V_1_0=7"_s, u"DV_1_0=7"_s};
    QTest::newRow("instances one after the other")
        << false << QList<int> {4, 2}
        << QStringList {u"V_2_0=7"_s, u"DV_2_0=7"_s, u"V_4_0=7"_s, u"DV_4_0=7"_s};
}

void tst_CoordinateInstanceSetLoading::save()
{
    QFETCH(bool, isGlobal);
    QFETCH(QList<int>, livingSpaces);
    QFETCH(QStringList, expected);
    InstanceStand stand;
    const auto *set = stand.add(
        DefinitionBuilder().global(isGlobal).defaultValue(u"7"_s), u"A12"_s, livingSpaces);
    QCOMPARE(linesOf(set), expected);
}

void tst_CoordinateInstanceSetLoading::savedElementCount_data()
{
    QTest::addColumn<quint16>("count");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("the defined one is not saved") << quint16(2) << QStringList();
    QTest::newRow("fewer") << quint16(1) << QStringList {u"CE=1"_s};
    QTest::newRow("most") << quint16(16000) << QStringList {u"CE=16000"_s};
}

void tst_CoordinateInstanceSetLoading::savedElementCount()
{
    QFETCH(quint16, count);
    QFETCH(QStringList, expected);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    set->setElementCount(count);
    const QStringList lines = linesOf(set);
    QCOMPARE(lines.filter(u"CE"_s), expected);
    QCOMPARE(lines.size(), 2 * count + expected.size());
    if (!expected.isEmpty())
        QCOMPARE(lines.last(), expected.first());
    QVERIFY(linesOf(stand.add(DefinitionBuilder().element(4, u"a"_s), u"A13"_s))
                .filter(u"CE"_s)
                .isEmpty());
}

void tst_CoordinateInstanceSetLoading::loadedElementCount_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint16>("expected");
    // The defined count is 3.
    QTest::newRow("1") << QByteArray("1") << quint16(1);
    QTest::newRow("2") << QByteArray("2") << quint16(2);
    QTest::newRow("16000") << QByteArray("16000") << quint16(16000);
    QTest::newRow("0") << QByteArray("0") << quint16(3);
    QTest::newRow("16001") << QByteArray("16001") << quint16(3);
    QTest::newRow("65537 does not wrap") << QByteArray("65537") << quint16(3);
    QTest::newRow("4294967297 does not wrap") << QByteArray("4294967297") << quint16(3);
    QTest::newRow("negative") << QByteArray("-1") << quint16(3);
    QTest::newRow("no number") << QByteArray("zwei") << quint16(3);
    QTest::newRow("fraction") << QByteArray("2.0") << quint16(3);
    QTest::newRow("hexadecimal") << QByteArray("0x2") << quint16(3);
    QTest::newRow("empty") << QByteArray() << quint16(3);
    QTest::newRow("NUL behind the number") << QByteArray("2\0", 2) << quint16(3);
}

void tst_CoordinateInstanceSetLoading::loadedElementCount()
{
    QFETCH(QByteArray, text);
    QFETCH(quint16, expected);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    load(set, {{"CE", text}});
    QCOMPARE(set->elementCount(), expected);
}

void tst_CoordinateInstanceSetLoading::loadedElementCountOfARecord()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().element(4, u"a"_s), u"A12"_s);
    load(set, {{"CE", "7"}, {"V_1_4", "9"}});
    QCOMPARE(set->elementCount(), quint16(1));
    QCOMPARE(set->nativeValueText(Axis1, 4, false), u"9"_s);
}

void tst_CoordinateInstanceSetLoading::elementCountIsReadWhenWritesAreRefused_data()
{
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<bool>("isReadOnly");
    QTest::newRow("online") << true << false;
    QTest::newRow("read-only") << false << true;
}

void tst_CoordinateInstanceSetLoading::elementCountIsReadWhenWritesAreRefused()
{
    QFETCH(bool, isOnline);
    QFETCH(bool, isReadOnly);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setOnline(isOnline);
    stand.container->setReadOnly(isReadOnly);
    load(set, {{"CE", "3"}, {"V_1_2", "9"}});
    QCOMPARE(set->elementCount(), quint16(3));
    QCOMPARE(set->nativeValueText(Axis1, 2, false), u"9"_s);
}

void tst_CoordinateInstanceSetLoading::elementCountIsReadBeforeTheValues()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    load(set, {{"V_1_0", "1"}, {"V_1_1", "2"}, {"DV_1_1", "3"}, {"CE", "2"}});
    QCOMPARE(set->nativeValueText(Axis1, 1, false), u"2"_s);
    QCOMPARE(set->defaultNativeValueText(Axis1, 1), u"3"_s);
}

void tst_CoordinateInstanceSetLoading::missingElementCountRestoresTheDefinedOne()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    set->setElementCount(5);
    load(set, {{"V_1_0", "1"}});
    QCOMPARE(set->elementCount(), quint16(2));
}

void tst_CoordinateInstanceSetLoading::signalsOfALoad()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {1, 2});
    for (const eLivingSpace livingSpace : {Axis1, Axis2}) {
        for (const quint16 element : {0, 1})
            set->nativeValueText(livingSpace, element, false);
    }
    stand.listen(set);
    load(set,
        {{"V_1_0", "0"}, {"DV_1_0", "5"}, {"V_1_1", "6"}, {"DV_1_1", "0"}, {"V_2_0", "7"},
            {"DV_2_0", "8"}, {"V_2_1", "0"}, {"DV_2_1", "0"}});
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged(1.A012[00001])"_s,
            u"set.nativeValueChanged(1.A012[00001])"_s,
            u"container.parameterValueChanged(1.A012[00001])"_s,
            u"container.parameterNativeValueChanged(1.A012[00001])"_s,
            u"set.defaultValueChanged(1.A012[00000])"_s,
            u"container.parameterDefaultValueChanged(1.A012[00000])"_s,
            u"set.valueChanged(2.A012[00000])"_s, u"set.nativeValueChanged(2.A012[00000])"_s,
            u"container.parameterValueChanged(2.A012[00000])"_s,
            u"container.parameterNativeValueChanged(2.A012[00000])"_s,
            u"set.defaultValueChanged(2.A012[00000])"_s,
            u"container.parameterDefaultValueChanged(2.A012[00000])"_s}));
}

void tst_CoordinateInstanceSetLoading::unchangedTextsAreNotSignalled()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    set->setDefaultNativeValueText(Axis1, 0, u"6"_s);
    stand.listen(set);
    // A tag alone is no change of the value.
    load(set, {{"V_1_0", "5"}, {"DV_1_0", "6"}, {"VC_1_0", "neu"}});
    QCOMPARE(stand.log.entries(), QStringList());
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), u"neu"_s);
}

void tst_CoordinateInstanceSetLoading::changedElementCountIsSignalledFirst()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    stand.listen(set);
    load(set, {{"CE", "2"}, {"V_1_0", "5"}, {"DV_1_0", "0"}, {"V_1_1", "1"}, {"DV_1_1", "0"}});
    const QStringList entries = stand.log.take();
    QCOMPARE(entries.mid(0, 5),
        (QStringList {u"set.definitionChanged(1.A012[00000])"_s,
            u"container.parameterDefinitionChanged(1.A012[00000])"_s,
            u"set.definitionChanged(1.A012[00001])"_s,
            u"container.parameterDefinitionChanged(1.A012[00001])"_s,
            u"set.valueChanged(1.A012[00001])"_s}));
    load(set, {{"CE", "2"}, {"V_1_0", "5"}, {"DV_1_0", "0"}, {"V_1_1", "1"}, {"DV_1_1", "0"}});
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetLoading::loadDispatchesNothing()
{
    InstanceStand stand;
    // Not even a missing dependency is reported.
    auto *set = stand.add(
        DefinitionBuilder().property(PostwriteDependency, 5U).without(HidingDependency), u"A12"_s);
    stand.add(DefinitionBuilder().property(PostwriteFunctionIndex, 5U), u"A13"_s);
    const ProgrammedFunctions *firmware = stand.programFirmware();
    load(set, {{"V_1_0", "5"}, {"DV_1_0", "6"}});
    QCOMPARE(firmware->callsOf(u"runFunction"_s), QStringList());
}

void tst_CoordinateInstanceSetLoading::loadChecksNothing()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    firmware->checkValue = [](const QString &, const ParameterData &, quint16) { return 1U; };
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    load(set, {{"V_1_0", "kein Wert"}, {"DV_1_0", "auch keiner"}});
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"kein Wert"_s);
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), u"auch keiner"_s);
    QCOMPARE(firmware->callsOf(u"checkValue"_s), QStringList());
    QCOMPARE(firmware->callsOf(u"correctValue"_s), QStringList());
}

void tst_CoordinateInstanceSetLoading::encodings_data()
{
    QTest::addColumn<QByteArray>("start");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Latin-1 without byte-order mark") << QByteArray() << u"Ã¤"_s;
    QTest::newRow("UTF-8 with byte-order mark") << QByteArray("\xef\xbb\xbf") << u"ä"_s;
}

void tst_CoordinateInstanceSetLoading::encodings()
{
    QFETCH(QByteArray, start);
    QFETCH(QString, expected);
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().datatype(u"STRING16"_s), u"A12"_s);
    QMap<QString, QByteArray> blocks {{u"Parameter.ini"_s,
        start + "[A012]\r\nV_1_0=\xc3\xa4\r\nVC_1_0=\xc3\xa4\r\nDV_1_0=\xc3\xa4\r\n"}};
    QVERIFY(stand.container->loadFrom(blocks));
    QCOMPARE(set->nativeValueText(Axis1, 0, false), expected);
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), expected);
    QCOMPARE(set->attribute(Axis1, 0, u"ValueChangeTag"_s), expected);
    // Saved as Latin-1, whatever was read.
    QVERIFY(stand.container->saveTo(blocks));
    QVERIFY(blocks.value(u"Parameter.ini"_s).contains(expected.toLatin1()));
    QVERIFY(!blocks.value(u"Parameter.ini"_s).startsWith("\xef\xbb\xbf"));
}

void tst_CoordinateInstanceSetLoading::deletedWhileSaved()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    stand.add(DefinitionBuilder(), u"A11"_s);
    stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    stand.add(DefinitionBuilder(), u"A13"_s);
    QMap<QString, QByteArray> blocks;
    // The default of the second element, which A12 alone has, is computed while it is saved.
    firmware->correctValue = [&](const QString &text, const ParameterData &, quint16 element) {
        if (element == 1)
            stand.container->deleteParameter(InstanceStand::locator(u"A12"_s, 1));
        return text;
    };
    QVERIFY(stand.container->saveTo(blocks));
    const QByteArray block = blocks.value(u"Parameter.ini"_s);
    QVERIFY(block.contains("[A011]\r\nV_1_0=0\r\n"));
    QVERIFY(!block.contains("A012"));
    QVERIFY(block.contains("[A013]\r\nV_1_0=0\r\n"));
}

void tst_CoordinateInstanceSetLoading::roundTrip()
{
    InstanceStand stand;
    const DefinitionBuilder builder = DefinitionBuilder().elementCount(2).units(u"A"_s);
    auto *from = stand.add(builder, u"A12"_s, {1, 3});
    auto *to = stand.add(builder, u"A13"_s, {1, 3});
    stand.container->setParameterChangeTag(u"a"_s);
    from->setElementCount(3);
    from->setNativeValue(Axis3, 2, u"=;[\"'\r\n "_s);
    from->setDefaultNativeValueText(Axis1, 0, u" x "_s);
    from->setProperty(0, WriteLevel, ParameterProperty(QVariant(3U)));
    from->setValueChangeTag(Axis1, 1, u"b"_s);
    stand.container->setParameterChangeTag(QString());
    IniSection section;
    from->saveToSection(section);
    to->loadFromSection(section, false);
    QCOMPARE(linesOf(to), linesOf(from));
    QCOMPARE(to->elementCount(), quint16(3));
    QCOMPARE(to->nativeValueText(Axis3, 2, false), u"=;[\"'\r\n "_s);
    QCOMPARE(to->changeTagListOfAllInstances(), from->changeTagListOfAllInstances());
    QCOMPARE(to->writeLevel(0), 3);
}

void tst_CoordinateInstanceSetLoading::roundTripThroughABlock()
{
    QMap<QString, QByteArray> first;
    QMap<QString, QByteArray> second;
    QString all;
    for (ushort c = 0; c < 256; ++c)
        all += QChar(c);
    {
        InstanceStand stand;
        auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {1, 2});
        set->setOnlineValueText(Axis2, 1, all);
        set->setValueChangeTag(Axis2, 1, all);
        set->setElementCount(4);
        stand.container->saveTo(first);
    }
    InstanceStand stand;
    const auto *set = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s, {1, 2});
    stand.container->loadFrom(first);
    QCOMPARE(set->nativeValueText(Axis2, 1, false), all);
    QCOMPARE(set->attribute(Axis2, 1, u"ValueChangeTag"_s), all);
    stand.container->saveTo(second);
    QCOMPARE(second, first);
}

void tst_CoordinateInstanceSetLoading::sectionOfAnotherParameterIsSkipped()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    stand.listen(set);
    QMap<QString, QByteArray> blocks {
        {u"Parameter.ini"_s, "[A013]\r\nV_1_0=9\r\n[A12x]\r\nV_1_0=9\r\n[]\r\nV_1_0=9\r\n"}};
    QVERIFY(stand.container->loadFrom(blocks));
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"5"_s);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetLoading::emptySectionEmptiesValues()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().defaultValue(u"7"_s), u"A12"_s);
    set->setOnlineValueText(Axis1, 0, u"5"_s);
    load(set, {});
    QCOMPARE(set->nativeValueText(Axis1, 0, false), QString());
    QCOMPARE(set->defaultNativeValueText(Axis1, 0), QString());
}

void tst_CoordinateInstanceSetLoading::hiddenFlagsAreAskedAtTheEnd()
{
    InstanceStand stand;
    auto *first = stand.add(DefinitionBuilder().elementCount(2), u"A12"_s);
    auto *second = stand.add(DefinitionBuilder(), u"B07"_s);
    // The first parameter follows the second, which is loaded after it.
    stand.programFirmware()->isHidden = [second](const ParameterData &data, quint16) {
        return ParameterAddress(data.addressNumber(0)).coordinate().toText() == u"A12"_s
            && second->nativeValueText(Axis1, 0, false) == u"1"_s;
    };
    QVERIFY(first->isVisible(Axis1, 0));
    stand.log.attach(first, u"first"_s);
    stand.log.attach(second, u"second"_s);
    QMap<QString, QByteArray> blocks {{u"Parameter.ini"_s,
        "[A012]\r\nV_1_0=0\r\nDV_1_0=0\r\nV_1_1=0\r\nDV_1_1=0\r\n[B007]\r\nV_1_0=1\r\n"
        "DV_1_0=0\r\n"}};
    stand.container->loadFrom(blocks);
    QVERIFY(first->isHidden(Axis1, 0));
    QVERIFY(!first->isVisible(Axis1, 0));
    QCOMPARE(stand.log.count(u"visibilityChanged"_s), 1);
    QCOMPARE(stand.log.entries().last(), u"first.visibilityChanged(1.A012[00000])"_s);
}

void tst_CoordinateInstanceSetLoading::hiddenFlagsOfParametersWithoutSection()
{
    InstanceStand stand;
    auto *first = stand.add(DefinitionBuilder(), u"A12"_s);
    auto *second = stand.add(DefinitionBuilder(), u"B07"_s);
    stand.programFirmware()->isHidden = [second](const ParameterData &, quint16) {
        return second->nativeValueText(Axis1, 0, false) == u"1"_s;
    };
    QVERIFY(first->isVisible(Axis1, 0));
    QMap<QString, QByteArray> blocks {{u"Parameter.ini"_s, "[B007]\r\nV_1_0=1\r\n"}};
    stand.container->loadFrom(blocks);
    QVERIFY(!first->isVisible(Axis1, 0));
}

void tst_CoordinateInstanceSetLoading::clearStore()
{
    InstanceStand stand;
    auto *set =
        stand.add(DefinitionBuilder().elementCount(2).defaultValue(u"8"_s), u"A12"_s, {1, 2});
    stand.container->setParameterChangeTag(u"ts_1"_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    set->setDefaultNativeValueText(Axis2, 1, u"2"_s);
    stand.container->setParameterChangeTag(u"bleibt"_s);
    set->setOnlineValueText(Axis1, 1, u"3"_s);
    stand.listen(set);
    set->clearStore(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(stand.log.take(),
        (QStringList {u"set.valueChanged(1.A012[00000])"_s,
            u"set.nativeValueChanged(1.A012[00000])"_s,
            u"container.parameterValueChanged(1.A012[00000])"_s,
            u"container.parameterNativeValueChanged(1.A012[00000])"_s,
            // The write read the default, which carries the tag too.
            u"set.defaultValueChanged(1.A012[00000])"_s,
            u"container.parameterDefaultValueChanged(1.A012[00000])"_s,
            u"set.defaultValueChanged(2.A012[00001])"_s,
            u"container.parameterDefaultValueChanged(2.A012[00001])"_s}));
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"8"_s);
    QCOMPARE(set->nativeValueText(Axis1, 1, false), u"3"_s);
    QCOMPARE(set->defaultNativeValueText(Axis2, 1), u"8"_s);
    set->clearStore(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetLoading::clearStoreWithInvalidPattern()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s);
    stand.container->setParameterChangeTag(u"("_s);
    set->setOnlineValueText(Axis1, 0, u"1"_s);
    stand.listen(set);
    stand.container->clear(u"("_s);
    QCOMPARE(set->nativeValueText(Axis1, 0, false), u"1"_s);
    QCOMPARE(stand.log.entries(), QStringList());
}

void tst_CoordinateInstanceSetLoading::clearStoreDropsNamedTexts()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder(), u"A12"_s, {1, 2});
    for (const eLivingSpace livingSpace : {Axis1, Axis2})
        set->record(livingSpace)->setNamedText(u"ts_1"_s, u"x"_s);
    stand.container->clear(u"ts_1"_s);
    for (const eLivingSpace livingSpace : {Axis1, Axis2})
        QCOMPARE(set->record(livingSpace)->namedText(u"ts_1"_s), QString());
}

QTEST_GUILESS_MAIN(tst_CoordinateInstanceSetLoading)

#include "tst_CoordinateInstanceSetLoading.moc"

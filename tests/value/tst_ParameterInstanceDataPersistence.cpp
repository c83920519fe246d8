#include "tests/value/RecordAccess.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;
using LmIniParser::IniSection;

/// What a record saves, loads and discards.
class tst_ParameterInstanceDataPersistence : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

void tst_ParameterInstanceDataPersistence::namedTexts()
{
    ParameterInstanceData record;
    QCOMPARE(record.namedText(u"ts_1"_s), QString());
    record.setNamedText(u"ts_1"_s, u"a"_s);
    record.setNamedText(u"ts_2"_s, u"b"_s);
    QCOMPARE(record.namedText(u"ts_1"_s), u"a"_s);
    QCOMPARE(record.namedText(u"TS_1"_s), QString());
}

void tst_ParameterInstanceDataPersistence::saveKeys()
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

void tst_ParameterInstanceDataPersistence::saveMaterialises()
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

void tst_ParameterInstanceDataPersistence::saveIsLatin1()
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

void tst_ParameterInstanceDataPersistence::loadTexts()
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

void tst_ParameterInstanceDataPersistence::loadMissingKeys()
{
    InstanceStand stand;
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"8"_s), u"A12"_s));
    record->setValue(0, u"1"_s);
    record->loadFromSection(IniSection(), false);
    QCOMPARE(record->value(0), QString());
    QCOMPARE(record->defaultValue(0), QString());
}

void tst_ParameterInstanceDataPersistence::loadMissingTags_data()
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

void tst_ParameterInstanceDataPersistence::loadMissingTags()
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

void tst_ParameterInstanceDataPersistence::loadEncodings_data()
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

void tst_ParameterInstanceDataPersistence::loadEncodings()
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

void tst_ParameterInstanceDataPersistence::loadTellsChanges()
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

void tst_ParameterInstanceDataPersistence::loadReadsOwnAxisOnly()
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

void tst_ParameterInstanceDataPersistence::loadThenSaveIsIdentical()
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

void tst_ParameterInstanceDataPersistence::discard_data()
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

void tst_ParameterInstanceDataPersistence::discard()
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

void tst_ParameterInstanceDataPersistence::discardKeepsTags()
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

void tst_ParameterInstanceDataPersistence::discardFallsBackToDefaults()
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

void tst_ParameterInstanceDataPersistence::discardWithInvalidPattern()
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

void tst_ParameterInstanceDataPersistence::discardDropsTheNamedText()
{
    InstanceStand stand;
    ParameterInstanceData *record = recordOf(stand.add(DefinitionBuilder(), u"A12"_s));
    record->setNamedText(u"ts_1"_s, u"a"_s);
    record->setNamedText(u"ts_10"_s, u"b"_s);
    record->discard(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(record->namedText(u"ts_1"_s), QString());
    QCOMPARE(record->namedText(u"ts_10"_s), u"b"_s);
}

QTEST_GUILESS_MAIN(tst_ParameterInstanceDataPersistence)

#include "tst_ParameterInstanceDataPersistence.moc"

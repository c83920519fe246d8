#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"

#include <QtTest/QtTest>

#include <random>

using namespace Qt::StringLiterals;
using enum eLivingSpace;

namespace {

const QString BlockName = u"Parameter.ini"_s;
const QByteArray Header = ";type=\"parametervalues\" version=\"0\"\r\n";

QByteArray saved(const TestContainer &container)
{
    QMap<QString, QByteArray> blocks;
    return container->saveTo(blocks) ? blocks.value(BlockName) : QByteArray("failed");
}

void load(const TestContainer &container, const QByteArray &block)
{
    QMap<QString, QByteArray> blocks {{BlockName, block}};
    QVERIFY(container->loadFrom(blocks));
    QCOMPARE(blocks, (QMap<QString, QByteArray> {{BlockName, block}}));
}

/// A12 for axes 1 and 2 with two elements, B01 global, C05 a record with elements 7 and 3.
void fill(TestContainer &container)
{
    ParameterDefinition *a = container.define(at(u"A12"_s).elementCount(2).defaultValue(u"4"_s));
    container->createOrUpdateParameter(a, u"D.1;a"_s);
    container->createOrUpdateParameter(a, u"D.2;a"_s);
    container.create(at(u"B01"_s).global().datatype(u"STRING16"_s), u"S;b"_s);
    container.create(at(u"C05"_s).element(7, u"Sieben"_s).element(3, u"Drei"_s), u"D.4;c"_s);
}

/// A section is to be passed over by whoever lacks its parameter.
const QByteArray Golden = Header
    + "[A012]\r\n"
      "V_1_0=4\r\n"
      "DV_1_0=4\r\n"
      "V_1_1=17\r\n"
      "VC_1_1=operator\r\n"
      "DV_1_1=4\r\n"
      "V_2_0=4\r\n"
      "DV_2_0=4\r\n"
      "V_2_1=4\r\n"
      "DV_2_1=-3\r\n"
      "DVC_2_1=fw_1\r\n"
      "[B001]\r\n"
      "V_0_0=\" two\\r\\nlines\xE4 \"\r\n"
      "VC_0_0=operator\r\n"
      "DV_0_0=0\r\n"
      "[C005]\r\n"
      "V_4_7=0\r\n"
      "DV_4_7=0\r\n"
      "V_4_3=9\r\n"
      "VC_4_3=operator\r\n"
      "DV_4_3=0\r\n";

void writeGoldenValues(TestContainer &container)
{
    // Read first, so that the defaults carry no tag.
    saved(container);
    container->setParameterChangeTag(u"operator"_s);
    container->writeValueNative(Axis1, ParameterCoordinate(u"A12"_s), 1, u"17"_s);
    container->writeValueNative(
        Global, ParameterCoordinate(u"B01"_s), 0, u" two\r\nlines\u00e4 "_s);
    container->writeValueNative(Axis4, ParameterCoordinate(u"C05"_s), 3, u"9"_s);
    container->setParameterChangeTag(u"fw_1"_s);
    container.setup(u"A12"_s)->setDefaultNativeValueText(Axis2, 1, u"-3"_s);
    container->setParameterChangeTag(QString());
}

} // namespace

class tst_ContainerPersistence : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saveOfAnEmptyContainer();
    void saveReplacesTheBlockOnly();
    void golden();
    void goldenReturns();
    void sectionsStandInOrderOfCoordinates();
    void elementCount_data();
    void elementCount();
    void elementCountIsReadFirst();
    void elementCountIsReadOnlineAndReadOnly();
    void propertyOverrides();
    void savingStampsNoTagOfItsOwn();

    void loadOfAMissingBlock();
    void blockNameIsCaseSensitive();
    void loadCreatesNothing();
    void missingKeysEmptyTheValues();
    void tagsOfALoad_data();
    void tagsOfALoad();
    void encoding();
    void loadSignalsWhatChanged();
    void loadDispatchesNoDependency();
    void loadChecksNothing();
    void parametersWithoutSectionKeepTheirValues();
    void sectionNames_data();
    void sectionNames();

    void everyPrefixOfABlock();
    void randomBytes();
    void injectedKeys();
    void hostileTextsInjectNothing();
    void largeBlock();
    void listenerDestroysTheContainerWhileLoading();
    void listenerClearsWhileLoading();
};

void tst_ContainerPersistence::saveOfAnEmptyContainer()
{
    MessageRecorder messages;
    TestContainer container;
    QCOMPARE(saved(container), Header);
}

void tst_ContainerPersistence::saveReplacesTheBlockOnly()
{
    MessageRecorder messages;
    const TestContainer container;
    QMap<QString, QByteArray> blocks {
        {u"Other.ini"_s, "kept"}, {BlockName, "replaced"}, {u"parameter.ini"_s, "kept too"}};
    QVERIFY(container->saveTo(blocks));
    QCOMPARE(blocks,
        (QMap<QString, QByteArray> {
            {u"Other.ini"_s, "kept"}, {BlockName, Header}, {u"parameter.ini"_s, "kept too"}}));
}

void tst_ContainerPersistence::golden()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    writeGoldenValues(container);
    QCOMPARE(saved(container), Golden);
    QCOMPARE(saved(container), Golden);
}

void tst_ContainerPersistence::goldenReturns()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    load(container, Golden);
    QCOMPARE(saved(container), Golden);
    const ParameterSetup *a = container.setup(u"A12"_s);
    QCOMPARE(a->nativeValueText(Axis1, 1, false), u"17"_s);
    QCOMPARE(a->attribute(Axis1, 1, u"ValueChangeTag"_s), u"operator"_s);
    QCOMPARE(a->defaultNativeValueText(Axis2, 1), u"-3"_s);
    QCOMPARE(a->attribute(Axis2, 1, u"DefaultValueChangeTag"_s), u"fw_1"_s);
    QCOMPARE(
        container.setup(u"B01"_s)->nativeValueText(Global, 0, false), u" two\r\nlines\u00e4 "_s);
    QCOMPARE(container.setup(u"C05"_s)->nativeValueText(Axis4, 3, false), u"9"_s);
}

void tst_ContainerPersistence::sectionsStandInOrderOfCoordinates()
{
    MessageRecorder messages;
    TestContainer container;
    for (const QString &text : {u"Z01"_s, u"B100"_s, u"B20"_s, u"A999"_s, u"Q00"_s, u"B03"_s})
        QVERIFY(container.create(at(text), u"D.1;"_s + text));
    QByteArrayList names;
    for (const QByteArray &line : saved(container).split('\n')) {
        if (line.startsWith('['))
            names.append(line.trimmed());
    }
    QCOMPARE(names, (QByteArrayList {"[A999]", "[B003]", "[B020]", "[B100]", "[Q000]", "[Z001]"}));
}

void tst_ContainerPersistence::elementCount_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<int>("expected");

    QTest::newRow("absent: as defined") << QByteArray("V_1_0=1") << 2;
    QTest::newRow("1") << QByteArray("CE=1") << 1;
    QTest::newRow("16000") << QByteArray("CE=16000") << 16000;
    QTest::newRow("0: as defined") << QByteArray("CE=0") << 2;
    QTest::newRow("16001: as defined") << QByteArray("CE=16001") << 2;
    QTest::newRow("65537: as defined") << QByteArray("CE=65537") << 2;
    QTest::newRow("negative: as defined") << QByteArray("CE=-1") << 2;
    QTest::newRow("no number: as defined") << QByteArray("CE=x") << 2;
    QTest::newRow("empty: as defined") << QByteArray("CE=") << 2;
    QTest::newRow("small letters: as defined") << QByteArray("ce=3") << 2;
}

void tst_ContainerPersistence::elementCount()
{
    MessageRecorder messages;
    QFETCH(QByteArray, line);
    QFETCH(int, expected);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(2), u"D.1;a"_s));
    container.setup(u"A12"_s)->setElementCount(5);
    load(container, "[A012]\r\n" + line + "\r\n");
    QCOMPARE(int(container.setup(u"A12"_s)->elementCount()), expected);
}

void tst_ContainerPersistence::elementCountIsReadFirst()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container.setup(u"A12"_s)->setElementCount(3);
    for (quint16 element = 0; element < 3; ++element)
        container->writeValueNative(
            Axis1, ParameterCoordinate(u"A12"_s), element, QString::number(element + 7));
    const QByteArray block = saved(container);
    QCOMPARE(block,
        Header
            + "[A012]\r\nV_1_0=7\r\nDV_1_0=0\r\nV_1_1=8\r\nDV_1_1=0\r\nV_1_2=9\r\nDV_1_2=0\r\n"
              "CE=3\r\n");
    TestContainer other;
    QVERIFY(other.create(at(u"A12"_s), u"D.1;a"_s));
    load(other, block);
    QCOMPARE(other->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 2, false), u"9"_s);
    QCOMPARE(saved(other), block);
}

void tst_ContainerPersistence::elementCountIsReadOnlineAndReadOnly()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container->setOnline(true);
    container->setReadOnly(true);
    load(container, "[A012]\r\nCE=3\r\nV_1_2=9\r\n");
    QCOMPARE(int(container.setup(u"A12"_s)->elementCount()), 3);
    QCOMPARE(container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 2, false), u"9"_s);
}

void tst_ContainerPersistence::propertyOverrides()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(1), u"D.1;a"_s));
    container.setup(u"A12"_s)->setElementCount(2);
    saved(container);
    container->setParameterChangeTag(u"maker"_s);
    container.setup(u"A12"_s)->setProperty(
        0, eParameterProperty::WriteLevel, ParameterProperty(6U));
    container->setParameterChangeTag(QString());
    const QByteArray block = saved(container);
    QCOMPARE(block,
        Header
            + "[A012]\r\nV_1_0=0\r\nDV_1_0=0\r\nV_1_1=0\r\nDV_1_1=0\r\nCE=2\r\nP_0_6=6\r\n"
              "PC_0_6=maker\r\n");
    TestContainer other;
    QVERIFY(other.create(at(u"A12"_s), u"D.1;a"_s));
    load(other, block);
    QCOMPARE(other.setup(u"A12"_s)->writeLevel(0), 6);
    QCOMPARE(other.setup(u"A12"_s)->attribute(Axis1, 0, u"WriteLevelChangeTag"_s), u"maker"_s);
    QCOMPARE(saved(other), block);
}

void tst_ContainerPersistence::savingStampsNoTagOfItsOwn()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QCOMPARE(saved(container), Header + "[A012]\r\nV_1_0=0\r\nDV_1_0=0\r\n");
    container->setParameterChangeTag(u"later"_s);
    QCOMPARE(saved(container), Header + "[A012]\r\nV_1_0=0\r\nDV_1_0=0\r\n");
}

void tst_ContainerPersistence::loadOfAMissingBlock()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    writeGoldenValues(container);
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    QMap<QString, QByteArray> blocks;
    QVERIFY(container->loadFrom(blocks));
    QVERIFY(blocks.isEmpty());
    load(container, QByteArray());
    load(container, Header);
    QCOMPARE(log.take(), QStringList());
    QCOMPARE(saved(container), Golden);
}

void tst_ContainerPersistence::blockNameIsCaseSensitive()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    for (const QString &name : {u"parameter.ini"_s, u"PARAMETER.INI"_s, u"Parameter.ini "_s}) {
        QMap<QString, QByteArray> blocks {{name, Golden}};
        QVERIFY(container->loadFrom(blocks));
    }
    QCOMPARE(container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 1, false), u"4"_s);
}

void tst_ContainerPersistence::loadCreatesNothing()
{
    MessageRecorder messages;
    TestContainer container;
    load(container, Golden);
    QVERIFY(container.coordinates().isEmpty());
    QVERIFY(container.create(at(u"B01"_s).global(), u"S;b"_s));
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    load(container, Golden);
    QCOMPARE(container.coordinates(), QStringList {u"B01"_s});
    QCOMPARE(log.count(u"parameterAdded"_s), 0);
    QCOMPARE(container->readValueNative(Global, ParameterCoordinate(u"B01"_s), 0, false),
        u" two\r\nlines\u00e4 "_s);
}

void tst_ContainerPersistence::missingKeysEmptyTheValues()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    load(container, "[A012]\r\nV_1_0=5\r\n");
    const ParameterSetup *a = container.setup(u"A12"_s);
    QCOMPARE(a->nativeValueText(Axis1, 0, false), u"5"_s);
    QCOMPARE(a->nativeValueText(Axis1, 1, false), QString());
    QCOMPARE(a->nativeValueText(Axis2, 0, false), QString());
    QCOMPARE(a->defaultNativeValueText(Axis1, 0), QString());
}

void tst_ContainerPersistence::tagsOfALoad_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("valueTag");
    QTest::addColumn<QString>("defaultTag");

    QTest::newRow("no key: the container's tag") << QByteArray() << u"now"_s << u"now"_s;
    QTest::newRow("key: its tag") << QByteArray("VC_1_0=v\r\nDVC_1_0=d\r\n") << u"v"_s << u"d"_s;
    QTest::newRow("empty key: none")
        << QByteArray("VC_1_0=\r\nDVC_1_0=\r\n") << QString() << QString();
    QTest::newRow("of the value only") << QByteArray("VC_1_0=v\r\n") << u"v"_s << u"now"_s;
    QTest::newRow("of another element")
        << QByteArray("VC_1_1=v\r\nVC_2_0=v\r\nVC_1_00=v\r\n") << u"now"_s << u"now"_s;
    QTest::newRow("in Latin-1") << QByteArray("VC_1_0=\xFC\r\n") << u"\u00fc"_s << u"now"_s;
}

void tst_ContainerPersistence::tagsOfALoad()
{
    MessageRecorder messages;
    QFETCH(QByteArray, lines);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container->setParameterChangeTag(u"now"_s);
    load(container, "[A012]\r\nV_1_0=5\r\nDV_1_0=6\r\n" + lines);
    QTEST(container.setup(u"A12"_s)->attribute(Axis1, 0, u"ValueChangeTag"_s), "valueTag");
    QTEST(container.setup(u"A12"_s)->attribute(Axis1, 0, u"DefaultValueChangeTag"_s), "defaultTag");
}

void tst_ContainerPersistence::encoding()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    load(container, "[A012]\r\nV_1_0=\xC3\xA4\r\n");
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"\u00c3\u00a4"_s);
    load(container, "\xEF\xBB\xBF[A012]\r\nV_1_0=\xC3\xA4\r\nVC_1_0=\xC3\xBC\r\n");
    QCOMPARE(container->readValueNative(Axis1, coordinate, 0, false), u"\u00e4"_s);
    QCOMPARE(container.setup(u"A12"_s)->attribute(Axis1, 0, u"ValueChangeTag"_s), u"\u00fc"_s);
    // Whatever was loaded, Latin-1 is saved.
    QCOMPARE(saved(container), Header + "[A012]\r\nV_1_0=\xE4\r\nVC_1_0=\xFC\r\nDV_1_0=\r\n");
}

void tst_ContainerPersistence::loadSignalsWhatChanged()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).elementCount(2), u"D.2;a"_s));
    load(container, "[A012]\r\nV_2_0=5\r\nDV_2_0=6\r\nV_2_1=7\r\nDV_2_1=8\r\n");
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    log.attach(container.setup(u"A12"_s), u"s"_s);

    load(container, "[A012]\r\nV_2_0=5\r\nDV_2_0=9\r\nV_2_1=1\r\nDV_2_1=8\r\nVC_2_0=x\r\n");

    QCOMPARE(log.take(),
        (QStringList {u"s.valueChanged(2.A012[00001])"_s, u"s.nativeValueChanged(2.A012[00001])"_s,
            u"c.parameterValueChanged(2.A012[00001])"_s,
            u"c.parameterNativeValueChanged(2.A012[00001])"_s,
            u"s.defaultValueChanged(2.A012[00000])"_s,
            u"c.parameterDefaultValueChanged(2.A012[00000])"_s}));
}

void tst_ContainerPersistence::loadDispatchesNoDependency()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).property(eParameterProperty::ScalingDependency, 7), u"D.1;a"_s));
    QVERIFY(container.create(
        at(u"B01"_s).property(eParameterProperty::ScalingFunctionIndex, 7U), u"D.1;b"_s));
    SignalLog log;
    log.attach(container.setup(u"B01"_s), u"b"_s);
    load(container, "[A012]\r\nV_1_0=5\r\nDV_1_0=6\r\n");
    QCOMPARE(log.take(), QStringList());
    container->writeValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, u"8"_s);
    QCOMPARE(log.take(), QStringList {u"b.valueChanged(1.B001[00000])"_s});
}

void tst_ContainerPersistence::loadChecksNothing()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).limits(u"0"_s, u"5"_s), u"D.1;a"_s));
    container->setReadOnly(true);
    load(container, "[A012]\r\nV_1_0=rubbish\r\n");
    QCOMPARE(
        container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, false), u"rubbish"_s);
}

void tst_ContainerPersistence::parametersWithoutSectionKeepTheirValues()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    writeGoldenValues(container);
    load(container, "[B001]\r\nV_0_0=x\r\n");
    QCOMPARE(container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 1, false), u"17"_s);
    QCOMPARE(container->readValueNative(Global, ParameterCoordinate(u"B01"_s), 0, false), u"x"_s);
}

void tst_ContainerPersistence::sectionNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("expected");

    QTest::newRow("sortable text") << QByteArray("A012") << u"5"_s;
    QTest::newRow("text of the coordinate") << QByteArray("A12") << u"5"_s;
    QTest::newRow("another coordinate") << QByteArray("A013") << u"0"_s;
    QTest::newRow("small letter") << QByteArray("a012") << u"0"_s;
    QTest::newRow("an address") << QByteArray("1.A012") << u"0"_s;
    QTest::newRow("no coordinate") << QByteArray("Parameter") << u"0"_s;
    QTest::newRow("no name") << QByteArray() << u"0"_s;
    QTest::newRow("control characters") << QByteArray("\"A012\\x00\"") << u"0"_s;
}

void tst_ContainerPersistence::sectionNames()
{
    MessageRecorder messages;
    QFETCH(QByteArray, name);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    load(container, '[' + name + "]\r\nV_1_0=5\r\nDV_1_0=0\r\n");
    QTEST(container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, false), "expected");
}

void tst_ContainerPersistence::everyPrefixOfABlock()
{
    MessageRecorder messages;
    for (qsizetype size = 0; size < Golden.size(); ++size) {
        TestContainer container;
        fill(container);
        load(container, Golden.first(size));
        // Whatever was understood is saved and returns.
        const QByteArray block = saved(container);
        load(container, block);
        QCOMPARE(saved(container), block);
        QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B01"_s, u"C05"_s}));
    }
}

void tst_ContainerPersistence::randomBytes()
{
    MessageRecorder messages;
    std::mt19937 random(17);
    TestContainer container;
    fill(container);
    for (int run = 0; run < 2000; ++run) {
        QByteArray block = run % 2 == 0 ? Golden : QByteArray(qsizetype(random() % 400), '\0');
        const unsigned changes = run % 2 == 0 ? 1 + random() % 20 : unsigned(block.size());
        for (unsigned i = 0; i < changes && !block.isEmpty(); ++i) {
            const qsizetype place = run % 2 == 0 ? qsizetype(random() % unsigned(block.size())) : i;
            block[place] = char(random());
        }
        load(container, block);
        const QByteArray again = saved(container);
        load(container, again);
        QCOMPARE(saved(container), again);
    }
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B01"_s, u"C05"_s}));
}

void tst_ContainerPersistence::injectedKeys()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    QVERIFY(container.create(at(u"C01"_s).element(2, u"Zwei"_s), u"D.1;c"_s));
    container->writeValueNative(Axis1, ParameterCoordinate(u"B01"_s), 0, u"kept"_s);
    load(container,
        Header
            + "[A012]\r\nV_1_0=5\r\nDV_1_0=0\r\nV_2_0=9\r\nV_1_1=9\r\nV_0_0=9\r\nV_1_65536=9\r\n"
              "V_-1_0=9\r\nV_1_0_0=9\r\nX=9\r\nP_0_99999=1\r\nP_9_6=1\r\nP_0=1\r\nP_x_y=1\r\n"
              "P_0_106=5\r\nP_0_100=1\r\nP_0_4294967296=1\r\nPC_0_6=lost\r\n"
              "[C001]\r\nV_1_2=7\r\nDV_1_2=0\r\nCE=9\r\nV_1_0=9\r\n");
    QCOMPARE(saved(container),
        Header
            + "[A012]\r\nV_1_0=5\r\nDV_1_0=0\r\n[B001]\r\nV_1_0=kept\r\nDV_1_0=0\r\n"
              "[C001]\r\nV_1_2=7\r\nDV_1_2=0\r\n");
}

void tst_ContainerPersistence::hostileTextsInjectNothing()
{
    MessageRecorder messages;
    const QStringList hostile {u"\r\n[B001]\r\nV_1_0=evil"_s, u"\nV_1_0=evil"_s, u"]\r\n["_s,
        u"\"\r\nV_1_0=evil\r\n\""_s, u"\\r\\nV_1_0=evil"_s, u"a=b;c#d"_s, u"  "_s, u"\t"_s,
        u"\u0000"_s, u"\\"_s, u"\""_s, u"\\\""_s, u";"_s, u"\rV_1_0=evil"_s, u"a\u0000b"_s};
    for (const QString &text : hostile) {
        TestContainer container;
        QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
        QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
        ParameterSetup *a = container.setup(u"A12"_s);
        container->writeValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, text);
        a->setDefaultNativeValueText(Axis1, 0, text);
        a->setValueChangeTag(Axis1, 0, text);
        a->setDefaultValueChangeTag(Axis1, 0, text);
        const QByteArray block = saved(container);
        TestContainer other;
        QVERIFY(other.create(at(u"A12"_s), u"D.1;a"_s));
        QVERIFY(other.create(at(u"B01"_s), u"D.1;b"_s));
        load(other, block);
        a = other.setup(u"A12"_s);
        QCOMPARE(a->nativeValueText(Axis1, 0, false), text);
        QCOMPARE(a->defaultNativeValueText(Axis1, 0), text);
        QCOMPARE(a->attribute(Axis1, 0, u"ValueChangeTag"_s), text);
        QCOMPARE(a->attribute(Axis1, 0, u"DefaultValueChangeTag"_s), text);
        QCOMPARE(other.setup(u"B01"_s)->nativeValueText(Axis1, 0, false), u"0"_s);
        QCOMPARE(saved(other), block);
    }
}

void tst_ContainerPersistence::largeBlock()
{
    MessageRecorder messages;
    constexpr qsizetype Size = 64 * 1024 * 1024;
    QByteArray block = Header;
    block.reserve(Size + 1024);
    int number = 0;
    // Unknown sections, unknown keys and one long value.
    while (block.size() < Size / 2) {
        block += "[X" + QByteArray::number(number++) + "]\r\n";
        for (int i = 0; i < 100; ++i)
            block += "V_1_" + QByteArray::number(i) + "=123456789012345678901234567890\r\n";
    }
    const qsizetype valueSize = Size - block.size();
    block += "[A012]\r\nV_1_0=" + QByteArray(valueSize, 'x') + "\r\nDV_1_0=7\r\n";
    TestContainer container;
    fill(container);
    load(container, block);
    QCOMPARE(container->readValueNative(Axis1, ParameterCoordinate(u"A12"_s), 0, false).size(),
        valueSize);
    QCOMPARE(container.setup(u"A12"_s)->defaultNativeValueText(Axis1, 0), u"7"_s);
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B01"_s, u"C05"_s}));
}

void tst_ContainerPersistence::listenerDestroysTheContainerWhileLoading()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    int calls = 0;
    connect(container.get(), &ParameterContainer::parameterValueChanged, this, [&] {
        ++calls;
        container.destroy();
    });
    QMap<QString, QByteArray> blocks {{BlockName, Golden}};
    QVERIFY(container->loadFrom(blocks));
    QCOMPARE(calls, 1);
    QVERIFY(!container.get());
}

void tst_ContainerPersistence::listenerClearsWhileLoading()
{
    MessageRecorder messages;
    TestContainer container;
    fill(container);
    SignalLog log;
    connect(container.get(), &ParameterContainer::parameterDefaultValueChanged, this, [&] {
        container->clear();
        log.attach(container.get(), u"c"_s);
    });
    load(container, Golden);
    QVERIFY(container.coordinates().isEmpty());
    QCOMPARE(log.take(), QStringList());
}

QTEST_GUILESS_MAIN(tst_ContainerPersistence)
#include "tst_ContainerPersistence.moc"

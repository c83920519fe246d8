#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/SignalLog.h"
#include "tests/support/TestFirmware.h"
#include "tests/support/TestHostInformation.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ActionParameter.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using eSeverity = MessageRecorder::eSeverity;
using enum eLivingSpace;

namespace {

const QString MissingActiveAxis = u"missing parameter \"E84 active axis\""_s;

ParameterAddress address(const QString &text)
{
    return ParameterAddress(text, true);
}

QStringList sorted(QStringList texts)
{
    texts.sort();
    return texts;
}

QStringList sortableTexts(const QList<ParameterAddress> &addresses)
{
    QStringList texts;
    for (const ParameterAddress &each : addresses)
        texts.append(each.toSortableText());
    return texts;
}

} // namespace

class tst_ParameterContainerStructure : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void parameterSetupAndInformation();
    void parameterList();
    void deviceFamilyIdentifier();
    void domain();

    void queryParameterAnchors_data();
    void queryParameterAnchors();

    void activeLivingSpaceOfText_data();
    void activeLivingSpaceOfText();
    void activeLivingSpaceWithoutParameter_data();
    void activeLivingSpaceWithoutParameter();
    void activeLivingSpaceNeedsInstanceZero();
    void activeLivingSpaceOfADefault();

    void isGlobalParameter_data();
    void isGlobalParameter();
    void isGlobalParameterWithoutSet();
    void isGlobalParameterFollowsTheFirmware();

    void isParameterMapped();
    void isParameterMappedByAnyInstanceAndElement();
    void isParameterMappedIsOfKind11Only();
    void isParameterMappedByRecord();
    void isParameterMappedFollowsDefinitionAndDeletion();

    void isParameterBlockUsed();
    void setBlockUsedParametersReplacesAndSkips();

    void parameterAddressList();
    void parameterAddressListIsKeptUnderItsName();
    void parameterAddressListIsDropped_data();
    void parameterAddressListIsDropped();

    void clearName_data();
    void clearName();
    void clearNameDiscardsByPattern_data();
    void clearNameDiscardsByPattern();

    void createAction();
    void createActionWithoutParameter_data();
    void createActionWithoutParameter();

private:
    std::unique_ptr<ServoDriveFirmware> m_physical;
    std::unique_ptr<ServoDriveFirmware> m_plain;
};

void tst_ParameterContainerStructure::initTestCase()
{
    m_physical = TestFirmware::load(TestFirmware::PhysicalAxesFamily);
    m_plain = TestFirmware::load(TestFirmware::PlainAxesFamily);
    QVERIFY(m_physical && m_plain);
}

void tst_ParameterContainerStructure::parameterSetupAndInformation()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    const QPointer<ParameterSetup> setup = container->parameterSetup(coordinate);
    const QPointer<ParameterInformation> information = container->parameterInformation(coordinate);
    QVERIFY(setup);
    QCOMPARE(information.data(), setup.data());
    QCOMPARE(setup->coordinate(), coordinate);
    QCOMPARE(setup->parameterContainer(), container.get());
    QVERIFY(!container->parameterSetup(ParameterCoordinate(u"A13"_s)));
    QVERIFY(!container->parameterInformation(ParameterCoordinate(u"A13"_s)));
    QVERIFY(!container->parameterSetup(ParameterCoordinate()));
    QVERIFY(!container->parameterInformation(ParameterCoordinate()));
    container->clear();
    QVERIFY(!setup);
    QVERIFY(!information);
}

void tst_ParameterContainerStructure::parameterList()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    QVERIFY(container.create(at(u"Z999"_s), u"D.1;z"_s));
    QVERIFY(container.create(at(u"E84"_s).global(), u"S;e"_s));
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"E84"_s, u"Z999"_s}));
}

void tst_ParameterContainerStructure::deviceFamilyIdentifier()
{
    MessageRecorder messages;
    TestContainer container;
    QCOMPARE(container->deviceFamilyIdentifier(), 0U);
    TestHostInformation host({}, 4294967295U);
    container->setHostInformation(&host);
    QCOMPARE(container->hostInformation(), &host);
    QCOMPARE(container->deviceFamilyIdentifier(), 4294967295U);
    // The firmware's family is another matter.
    container->setFirmware(m_plain.get());
    QCOMPARE(container->deviceFamilyIdentifier(), 4294967295U);
    host.setDeviceFamilyIdentifier(7);
    QCOMPARE(container->deviceFamilyIdentifier(), 7U);
    container->setHostInformation(nullptr);
    QCOMPARE(container->deviceFamilyIdentifier(), 0U);
}

void tst_ParameterContainerStructure::domain()
{
    MessageRecorder messages;
    TestContainer container;
    SignalLog log;
    log.attach(container.get(), u"c"_s);
    container->setDomain(u"Drive 1"_s);
    QCOMPARE(container->domain(), u"Drive 1"_s);
    container->setDomain(QString());
    QCOMPARE(container->domain(), QString());
    QCOMPARE(log.take(), QStringList());
}

void tst_ParameterContainerStructure::queryParameterAnchors_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isExact");
    QTest::addColumn<QStringList>("expected");

    const auto row = [](const char *rule, const QString &text, bool isExact,
                         const QStringList &expected) {
        QTest::newRow(rule) << text << isExact << expected;
    };
    row("exact: its own keys only", u"A.1"_s, true, {u"A.1;x"_s, u"A.1;y"_s});
    row("exact: a name without keys of its own", u"A"_s, true, {});
    row("exact: dots are dots", u"B.1"_s, true, {});
    row("children: all numbered levels", u"A"_s, false,
        {u"A.1.2;x"_s, u"A.1;x"_s, u"A.1;y"_s, u"A.2;x"_s});
    row("children: not its own keys", u"A.1"_s, false, {u"A.1.2;x"_s});
    row("children: not of a longer name", u"Ab"_s, false, {u"Ab.1;x"_s});
    row("children: none", u"A.2"_s, false, {});
    row("other characters have their meaning: alternatives", u"(A|Ab)"_s, false,
        {u"A.1.2;x"_s, u"A.1;x"_s, u"A.1;y"_s, u"A.2;x"_s, u"Ab.1;x"_s});
    row("other characters have their meaning: repetition", u"Ab*"_s, false,
        {u"A.1.2;x"_s, u"A.1;x"_s, u"A.1;y"_s, u"A.2;x"_s, u"Ab.1;x"_s});
    row("other characters have their meaning: class", u"[B]x"_s, false, {u"Bx.1;x"_s});
    row("anchored at the start only", u"b"_s, false, {});
    row("no valid pattern: none, exact", u"A("_s, true, {});
    row("no valid pattern: none, children", u"["_s, false, {});
    row("empty text, exact", QString(), true, {});
    row("empty text, children", QString(), false, {});
    row("case counts", u"a"_s, false, {});
}

void tst_ParameterContainerStructure::queryParameterAnchors()
{
    MessageRecorder messages;
    QFETCH(QString, text);
    QFETCH(bool, isExact);
    TestContainer container;
    const QStringList locators {
        u"A.1;x"_s, u"A.1;y"_s, u"A.1.2;x"_s, u"A.2;x"_s, u"Ab.1;x"_s, u"Bx.1;x"_s};
    for (qsizetype i = 0; i < locators.size(); ++i)
        QVERIFY(container.create(at(u"A1"_s + QString::number(i)), locators.at(i)));
    QTEST(sorted(container->queryParameterAnchors(text, isExact)), "expected");
}

void tst_ParameterContainerStructure::activeLivingSpaceOfText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("expected");

    const auto row = [](const QString &text, int expected) {
        QTest::newRow(qPrintable(text)) << text << expected;
    };
    row(u"0"_s, 1);
    row(u"1"_s, 2);
    row(u"2"_s, 3);
    row(u"3"_s, 4);
    row(u"4"_s, 1);
    row(u"5"_s, 2);
    row(u"-1"_s, 0);
    row(u"-2"_s, -1);
    row(u"-3"_s, -2);
    row(u"-4"_s, 1);
    row(u"2147483647"_s, 4);
    row(u"-2147483648"_s, 1);
    row(u"2147483648"_s, 1);
    row(u"axis"_s, 1);
    row(u"1.5"_s, 1);
    row(u"0x1"_s, 1);
    row(u""_s, 1);
}

void tst_ParameterContainerStructure::activeLivingSpaceOfText()
{
    MessageRecorder messages;
    QFETCH(QString, text);
    QFETCH(int, expected);
    for (ServoDriveFirmware *firmware :
        {static_cast<ServoDriveFirmware *>(nullptr), m_physical.get(), m_plain.get()}) {
        TestContainer container;
        container->setFirmware(firmware);
        QVERIFY(container.create(at(u"E84"_s).global(), u"S;{P84}"_s));
        container->writeValueNative(Global, ParameterCoordinate(u"E84"_s), 0, text);
        for (const int requested : {-2, 0, 1, 4, 17})
            QCOMPARE(int(container->activeLivingSpace(eLivingSpace(requested))), expected);
    }
}

void tst_ParameterContainerStructure::activeLivingSpaceWithoutParameter_data()
{
    QTest::addColumn<int>("requested");

    for (const int requested : {-2147483647, -2, -1, 0, 1, 2, 4, 17})
        QTest::newRow(QByteArray::number(requested).constData()) << requested;
}

void tst_ParameterContainerStructure::activeLivingSpaceWithoutParameter()
{
    MessageRecorder messages;
    QFETCH(int, requested);
    TestContainer container;
    container->setFirmware(m_physical.get());
    QCOMPARE(int(container->activeLivingSpace(eLivingSpace(requested))), requested);
    for (ServoDriveFirmware *firmware :
        {m_plain.get(), static_cast<ServoDriveFirmware *>(nullptr)}) {
        container->setFirmware(firmware);
        messages.expect(eSeverity::Warning, u"ParameterContainer"_s, MissingActiveAxis);
        QCOMPARE(container->activeLivingSpace(eLivingSpace(requested)), Axis1);
        QVERIFY(messages.verify());
    }
}

void tst_ParameterContainerStructure::activeLivingSpaceNeedsInstanceZero()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"E84"_s), u"D.1;{P84}"_s));
    messages.expect(eSeverity::Warning, u"ParameterContainer"_s, MissingActiveAxis);
    QCOMPARE(container->activeLivingSpace(Axis3), Axis1);
}

void tst_ParameterContainerStructure::activeLivingSpaceOfADefault()
{
    MessageRecorder messages;
    TestContainer container;
    container->setFirmware(m_physical.get());
    QVERIFY(container.create(at(u"E84"_s).global().defaultValue(u"2"_s), u"S;e"_s));
    QCOMPARE(container->activeLivingSpace(Axis1), Axis3);
    QVERIFY(container.create(at(u"E84"_s).version(2).global().element(5, u"Fünf"_s), u"S;e"_s));
    // A record without element 0 has no text there, which is no number.
    QCOMPARE(container->activeLivingSpace(Axis3), Axis1);
}

void tst_ParameterContainerStructure::isGlobalParameter_data()
{
    QTest::addColumn<bool>("isDefinedGlobal");
    QTest::addColumn<bool>("isPhysicalAxis");
    QTest::addColumn<QString>("family");
    QTest::addColumn<bool>("expected");

    QTest::newRow("local") << false << false << u"physical"_s << false;
    QTest::newRow("local physical axis") << false << true << u"plain"_s << false;
    QTest::newRow("global, physical axes") << true << false << u"physical"_s << true;
    QTest::newRow("global, plain") << true << false << u"plain"_s << true;
    QTest::newRow("global, no firmware") << true << false << QString() << true;
    QTest::newRow("global physical axis, physical axes") << true << true << u"physical"_s << false;
    QTest::newRow("global physical axis, plain") << true << true << u"plain"_s << true;
    QTest::newRow("global physical axis, no firmware") << true << true << QString() << true;
}

void tst_ParameterContainerStructure::isGlobalParameter()
{
    MessageRecorder messages;
    QFETCH(bool, isDefinedGlobal);
    QFETCH(bool, isPhysicalAxis);
    QFETCH(QString, family);
    TestContainer container;
    if (!family.isEmpty())
        container->setFirmware(family == "plain"_L1 ? m_plain.get() : m_physical.get());
    QVERIFY(container.create(
        at(u"A12"_s).global(isDefinedGlobal).physicalAxis(isPhysicalAxis), u"D.1;a"_s));
    QTEST(container->isGlobalParameter(ParameterCoordinate(u"A12"_s)), "expected");
    QTEST(container.setup(u"A12"_s)->isGlobalParameter(), "expected");
}

void tst_ParameterContainerStructure::isGlobalParameterWithoutSet()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global(), u"S;a"_s));
    QVERIFY(!container->isGlobalParameter(ParameterCoordinate()));
    QVERIFY(!container->isGlobalParameter(ParameterCoordinate(u"A13"_s)));
}

void tst_ParameterContainerStructure::isGlobalParameterFollowsTheFirmware()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global().physicalAxis(), u"D.1;a"_s));
    const ParameterCoordinate coordinate(u"A12"_s);
    QVERIFY(container->isGlobalParameter(coordinate));
    container->setFirmware(m_physical.get());
    QVERIFY(!container->isGlobalParameter(coordinate));
    container->setFirmware(m_plain.get());
    QVERIFY(container->isGlobalParameter(coordinate));
}

void tst_ParameterContainerStructure::isParameterMapped()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
    QVERIFY(container.create(at(u"M01"_s).kind(11), u"D.1;m"_s));
    const ParameterCoordinate coordinate(u"M01"_s);
    // A12 is 1 * 1000 + 12; axis 0, element 0.
    container->writeValueNative(Axis1, coordinate, 0, u"1012"_s);
    QVERIFY(container->isParameterMapped(address(u"A12"_s)));
    QVERIFY(!container->isParameterMapped(address(u"2.A12"_s)));
    QVERIFY(!container->isParameterMapped(address(u"A12[1]"_s)));
    QVERIFY(!container->isParameterMapped(address(u"A13"_s)));
    // Element 3 of axis 1: 2 bits axis, 14 bits element, 16 bits coordinate number.
    container->writeValueNative(Axis1, coordinate, 0, u"1073939444"_s);
    QVERIFY(container->isParameterMapped(address(u"2.A12[3]"_s)));
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
    container->writeValueNative(Axis1, coordinate, 0, u"A12"_s);
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
    container->writeValueNative(Axis1, coordinate, 0, u"-1012"_s);
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
}

void tst_ParameterContainerStructure::isParameterMappedByAnyInstanceAndElement()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"M01"_s).kind(11).elementCount(3), u"S;m"_s));
    container->writeValueNative(Axis2, ParameterCoordinate(u"M01"_s), 2, u"1012"_s);
    QVERIFY(container->isParameterMapped(address(u"A12"_s)));
    container->writeValueNative(Axis2, ParameterCoordinate(u"M01"_s), 2, u"0"_s);
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
}

void tst_ParameterContainerStructure::isParameterMappedIsOfKind11Only()
{
    MessageRecorder messages;
    TestContainer container;
    for (quint32 kind : {0U, 1U, 10U}) {
        const QString coordinate = u"M1"_s + QString::number(kind);
        QVERIFY(container.create(at(coordinate).kind(kind), u"D.1;"_s + coordinate));
        container->writeValueNative(Axis1, ParameterCoordinate(coordinate), 0, u"1012"_s);
    }
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
}

void tst_ParameterContainerStructure::isParameterMappedByRecord()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"M01"_s).element(4, u"Vier"_s).kind(0).element(9, u"Neun"_s).kind(11), u"D.1;m"_s));
    container->writeValueNative(Axis1, ParameterCoordinate(u"M01"_s), 9, u"1012"_s);
    QVERIFY(container->isParameterMapped(address(u"A12"_s)));
}

void tst_ParameterContainerStructure::isParameterMappedFollowsDefinitionAndDeletion()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"M01"_s), u"D.1;m"_s));
    container->writeValueNative(Axis1, ParameterCoordinate(u"M01"_s), 0, u"1012"_s);
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
    QVERIFY(container.create(at(u"M01"_s).version(2).kind(11), u"D.1;m"_s));
    QVERIFY(container->isParameterMapped(address(u"A12"_s)));
    QVERIFY(container.create(at(u"M01"_s).version(3), u"D.1;m"_s));
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
    QVERIFY(container.create(at(u"M01"_s).version(4).kind(11), u"D.1;m"_s));
    container->deleteParameter(u"D.1;m"_s);
    QVERIFY(!container->isParameterMapped(address(u"A12"_s)));
}

void tst_ParameterContainerStructure::isParameterBlockUsed()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(!container->isParameterBlockUsed(address(u"A12"_s)));
    container->setBlockUsedParameters({u"A12"_s, u"2.E84[3]"_s, u"B01"_s});
    QVERIFY(container->isParameterBlockUsed(address(u"A12"_s)));
    QVERIFY(container->isParameterBlockUsed(address(u"1.A12"_s)));
    QVERIFY(container->isParameterBlockUsed(address(u"A12:5"_s)));
    QVERIFY(container->isParameterBlockUsed(address(u"2.E84[3]"_s)));
    QVERIFY(container->isParameterBlockUsed(address(u"B01"_s)));
    QVERIFY(!container->isParameterBlockUsed(address(u"2.A12"_s)));
    QVERIFY(!container->isParameterBlockUsed(address(u"A12[1]"_s)));
    QVERIFY(!container->isParameterBlockUsed(address(u"E84[3]"_s)));
    QVERIFY(!container->isParameterBlockUsed(ParameterAddress()));
}

void tst_ParameterContainerStructure::setBlockUsedParametersReplacesAndSkips()
{
    MessageRecorder messages;
    TestContainer container;
    container->setBlockUsedParameters({u"A12"_s});
    container->setBlockUsedParameters(
        {u"rubbish"_s, QString(), u"5.A12"_s, u"B01"_s, u"A12[16384]"_s});
    QVERIFY(container->isParameterBlockUsed(address(u"B01"_s)));
    QVERIFY(!container->isParameterBlockUsed(address(u"A12"_s)));
    QVERIFY(!container->isParameterBlockUsed(ParameterAddress()));
    container->setBlockUsedParameters({});
    QVERIFY(!container->isParameterBlockUsed(address(u"B01"_s)));
}

void tst_ParameterContainerStructure::parameterAddressList()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container->parameterAddressList(u"x"_s).isEmpty());
    QVERIFY(container.create(at(u"B01"_s).elementCount(2), u"D.1;b"_s));
    QVERIFY(container->createOrUpdateParameter(
        const_cast<ParameterDefinition *>(container->queryParameter(u"D.1;b"_s)), u"D.2;b"_s));
    QVERIFY(container.create(at(u"A12"_s).global(), u"S;a"_s));
    QVERIFY(
        container.create(at(u"C05"_s).element(7, u"Sieben"_s).element(3, u"Drei"_s), u"D.4;c"_s));
    // By axis, then element, then coordinate, as in the number.
    QCOMPARE(sortableTexts(container->parameterAddressList(u"x"_s)),
        (QStringList {u"1.A012[00000]"_s, u"1.B001[00000]"_s, u"1.B001[00001]"_s,
            u"2.B001[00000]"_s, u"2.B001[00001]"_s, u"4.C005[00003]"_s, u"4.C005[00007]"_s}));
}

void tst_ParameterContainerStructure::parameterAddressListIsKeptUnderItsName()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    const QList<ParameterAddress> first = container->parameterAddressList(u"x"_s);
    QCOMPARE(container->parameterAddressList(u"y"_s), first);
    QCOMPARE(container->parameterAddressList(QString()), first);
    QVERIFY(container->parameterAddressList(u"x"_s).isSharedWith(first));
    container->resetParameterAddressList(u"y"_s);
    QVERIFY(container->parameterAddressList(u"x"_s).isSharedWith(first));
    container->resetParameterAddressList(u"x"_s);
    const QList<ParameterAddress> second = container->parameterAddressList(u"x"_s);
    QVERIFY(!second.isSharedWith(first));
    QCOMPARE(second, first);
    container->resetParameterAddressList(u"unknown"_s);
}

void tst_ParameterContainerStructure::parameterAddressListIsDropped_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("created") << u"create"_s << QStringList {u"1.A012[00000]"_s, u"1.B001[00000]"_s};
    QTest::newRow("created in a further living space")
        << u"livingSpace"_s << QStringList {u"1.A012[00000]"_s, u"2.A012[00000]"_s};
    QTest::newRow("deleted") << u"delete"_s << QStringList();
    QTest::newRow("cleared") << u"clear"_s << QStringList();
    QTest::newRow("moved") << u"move"_s << QStringList {u"1.A013[00000]"_s};
    QTest::newRow("another definition")
        << u"update"_s << QStringList {u"1.A012[00000]"_s, u"1.A012[00001]"_s};
    QTest::newRow("another element count")
        << u"count"_s << QStringList {u"1.A012[00000]"_s, u"1.A012[00001]"_s};
    QTest::newRow("another element count loaded")
        << u"load"_s << QStringList {u"1.A012[00000]"_s, u"1.A012[00001]"_s};
}

void tst_ParameterContainerStructure::parameterAddressListIsDropped()
{
    MessageRecorder messages;
    QFETCH(QString, change);
    TestContainer container;
    const DefinitionBuilder builder = at(u"A12"_s).coordinates({u"A12"_s, u"A13"_s});
    ParameterDefinition *definition = container.define(builder);
    QVERIFY(container->createOrUpdateParameter(definition, u"D.1;a"_s));
    QCOMPARE(container->parameterAddressList(u"x"_s).size(), 1);

    if (change == "create"_L1)
        QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    else if (change == "livingSpace"_L1)
        QVERIFY(container->createOrUpdateParameter(definition, u"D.2;a"_s));
    else if (change == "delete"_L1)
        container->deleteParameter(u"D.1;a"_s);
    else if (change == "clear"_L1)
        container->clear();
    else if (change == "move"_L1)
        container.setup(u"A12"_s)->setCoordinate(ParameterCoordinate(u"A13"_s));
    else if (change == "update"_L1)
        QVERIFY(container.create(DefinitionBuilder(builder).elementCount(2), u"D.1;a"_s));
    else if (change == "count"_L1)
        container.setup(u"A12"_s)->setElementCount(2);
    else if (change == "load"_L1) {
        QMap<QString, QByteArray> blocks {{u"Parameter.ini"_s, "[A012]\r\nCE=2\r\n"}};
        QVERIFY(container->loadFrom(blocks));
    }

    QTEST(sortableTexts(container->parameterAddressList(u"x"_s)), "expected");
}

void tst_ParameterContainerStructure::clearName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("global");
    QTest::addColumn<QString>("local");

    // The values are tagged with the name, which the pattern then matches; "0" is their default.
    QTest::newRow("ts_1 keeps global parameters") << u"ts_1"_s << u"5"_s << u"0"_s;
    QTest::newRow("ts_ alone keeps global parameters") << u"ts_"_s << u"5"_s << u"0"_s;
    QTest::newRow("ts_0 clears global parameters too") << u"ts_0"_s << u"0"_s << u"0"_s;
    QTest::newRow("ts_01 clears global parameters too") << u"ts_01"_s << u"0"_s << u"0"_s;
    QTest::newRow("other names clear global parameters too") << u"da_1"_s << u"0"_s << u"0"_s;
    QTest::newRow("TS_1 is another name") << u"TS_1"_s << u"0"_s << u"0"_s;
    QTest::newRow("ts_ inside is another name") << u"xts_1"_s << u"0"_s << u"0"_s;
    QTest::newRow("ts is another name") << u"ts"_s << u"0"_s << u"0"_s;
}

void tst_ParameterContainerStructure::clearName()
{
    MessageRecorder messages;
    QFETCH(QString, name);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).global(), u"S;a"_s));
    QVERIFY(container.create(at(u"B01"_s), u"D.1;b"_s));
    const ParameterCoordinate global(u"A12"_s);
    const ParameterCoordinate local(u"B01"_s);
    container->setParameterChangeTag(name);
    container->writeValueNative(Global, global, 0, u"5"_s);
    container->writeValueNative(Axis1, local, 0, u"5"_s);
    container->setParameterChangeTag(u"later"_s);

    container->clear(name);

    QTEST(container->readValueNative(Global, global, 0, false), "global");
    QTEST(container->readValueNative(Axis1, local, 0, false), "local");
    QCOMPARE(container.coordinates(), (QStringList {u"A12"_s, u"B01"_s}));
}

void tst_ParameterContainerStructure::clearNameDiscardsByPattern_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isDiscarded");

    QTest::newRow("a part suffices") << u"xfw_1y"_s << u"fw_1"_s << true;
    QTest::newRow("regular expression") << u"fw_17"_s << u"^fw_\\d+$"_s << true;
    QTest::newRow("no match") << u"fw_1"_s << u"fw_2"_s << false;
    QTest::newRow("case counts") << u"FW_1"_s << u"fw_1"_s << false;
    QTest::newRow("invalid pattern matches nothing") << u"("_s << u"("_s << false;
    QTest::newRow("another invalid pattern") << u"[a"_s << u"[a"_s << false;
    QTest::newRow("empty tag is none") << QString() << u".*"_s << false;
    QTest::newRow("empty pattern matches every tag") << u"a"_s << QString() << true;
}

void tst_ParameterContainerStructure::clearNameDiscardsByPattern()
{
    MessageRecorder messages;
    QFETCH(QString, tag);
    QFETCH(QString, name);
    QFETCH(bool, isDiscarded);
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).defaultValue(u"3"_s), u"D.1;a"_s));
    ParameterSetup *setup = container.setup(u"A12"_s);
    container->setParameterChangeTag(tag);
    setup->setNativeValue(Axis1, 0, u"5"_s);
    setup->setDefaultNativeValueText(Axis1, 0, u"6"_s);
    container->setParameterChangeTag(QString());
    SignalLog log;
    log.attach(container.get(), u"c"_s);

    container->clear(name);

    const QStringList expected = isDiscarded
        ? QStringList {u"c.parameterValueChanged(1.A012[00000])"_s,
            u"c.parameterNativeValueChanged(1.A012[00000])"_s,
            u"c.parameterDefaultValueChanged(1.A012[00000])"_s}
        : QStringList();
    QCOMPARE(log.take(), expected);
    QCOMPARE(setup->nativeValueText(Axis1, 0, false), isDiscarded ? u"3"_s : u"5"_s);
    QCOMPARE(setup->defaultNativeValueText(Axis1, 0), isDiscarded ? u"3"_s : u"6"_s);
}

void tst_ParameterContainerStructure::createAction()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s).name(u"Aktion"_s).elementCount(3), u"D.2;b"_s));
    const std::unique_ptr<ActionParameter> action(container->createAction(u"B01"_s, Axis2));
    QVERIFY(action);
    QCOMPARE(action->name(), u"Aktion"_s);
    QVERIFY(!action->parent());
    const std::unique_ptr<ActionParameter> other(container->createAction(u"B001"_s, Axis2));
    QVERIFY(other);
    QVERIFY(other.get() != action.get());
    // It may outlive the parameter and the container.
    container.destroy();
    QVERIFY(action->isIdle());
    QVERIFY(!action->start());
}

void tst_ParameterContainerStructure::createActionWithoutParameter_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("no parameter there") << u"B02"_s;
    QTest::newRow("no coordinate") << u"rubbish"_s;
    QTest::newRow("empty") << QString();
    QTest::newRow("an address") << u"1.B01"_s;
}

void tst_ParameterContainerStructure::createActionWithoutParameter()
{
    MessageRecorder messages;
    QFETCH(QString, text);
    TestContainer container;
    QVERIFY(container.create(at(u"B01"_s).elementCount(3), u"D.1;b"_s));
    QVERIFY(!container->createAction(text, Axis1));
}

QTEST_GUILESS_MAIN(tst_ParameterContainerStructure)
#include "tst_ParameterContainerStructure.moc"

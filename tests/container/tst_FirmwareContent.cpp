#include "TestContainer.h"

#include "tests/support/MessageRecorder.h"
#include "tests/support/TestFirmware.h"

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using enum eParameterProperty;

namespace {

/// Function tables of the names, each with one function under the index, and system strings.
QByteArray tables(const QByteArrayList &names, int index)
{
    const QByteArray number = '"' + QByteArray::number(index) + '"';
    QByteArrayList functions;
    for (const QByteArray &name : names)
        functions.append('"' + name + "\": {" + number + ": \"return 0\"}");
    return "\"functions\": {" + functions.join(", ") + "}, \"systemStrings\": {" + number
        + ": \"text\"}";
}

const QByteArrayList AllTables {
    "limit", "scaling", "hiding", "preRead", "preWrite", "postRead", "postWrite"};

const QStringList AllNames {u"SystemStringNumber"_s, u"ScalingFunctionIndex"_s,
    u"LimitFunctionIndex"_s, u"PostwriteFunctionIndex"_s, u"PrereadFunctionIndex"_s,
    u"HidingFunctionIndex"_s, u"PostreadFunctionIndex"_s, u"PrewriteFunctionIndex"_s};

QVariant strings(const QList<quint16> &numbers)
{
    return QVariant::fromValue(numbers);
}

DefinitionBuilder withAll(const QString &coordinate, quint32 index)
{
    DefinitionBuilder builder = at(coordinate);
    for (const eParameterProperty property :
        {ScalingFunctionIndex, LimitFunctionIndex, PostwriteFunctionIndex, PrereadFunctionIndex,
            HidingFunctionIndex, PostreadFunctionIndex, PrewriteFunctionIndex})
        builder.property(property, index);
    return builder.property(ChoiceMapCommonTextIndex, strings({quint16(index)}));
}

} // namespace

class tst_FirmwareContent : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void emptyContainer();
    void nullFirmware();
    void oneKind_data();
    void oneKind();
    void eachKindHasItsOwnMaximum_data();
    void eachKindHasItsOwnMaximum();
    void allKindsInTheOrderOfTheTable();
    void highestCounts();
    void everyElementOfARecordCounts();
    void absentPropertiesCountAsZero();
    void overridesCount();
    void askedFirmwareIsNotSet();

private:
    /// Every table ends at 5.
    std::unique_ptr<ServoDriveFirmware> m_five;
    std::unique_ptr<ServoDriveFirmware> m_none;
};

void tst_FirmwareContent::initTestCase()
{
    m_five = TestFirmware::load(TestFirmware::PlainAxesFamily, tables(AllTables, 5));
    m_none = TestFirmware::load(TestFirmware::PlainAxesFamily);
    QVERIFY(m_five && m_none);
}

void tst_FirmwareContent::emptyContainer()
{
    MessageRecorder messages;
    const ParameterContainer container;
    QCOMPARE(container.contentIssuesForFirmware(m_none.get()), QList<QString>());
    QCOMPARE(container.contentIssuesForFirmware(m_five.get()), QList<QString>());
}

void tst_FirmwareContent::nullFirmware()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(withAll(u"A12"_s, 9), u"D.1;a"_s));
    QCOMPARE(container->contentIssuesForFirmware(nullptr), QList<QString>());
}

void tst_FirmwareContent::oneKind_data()
{
    QTest::addColumn<quint32>("property");
    QTest::addColumn<QString>("name");

    const auto row = [](eParameterProperty property, const QString &name) {
        QTest::newRow(qPrintable(name)) << quint32(property) << name;
    };
    row(ChoiceMapCommonTextIndex, u"SystemStringNumber"_s);
    row(ScalingFunctionIndex, u"ScalingFunctionIndex"_s);
    row(LimitFunctionIndex, u"LimitFunctionIndex"_s);
    row(PostwriteFunctionIndex, u"PostwriteFunctionIndex"_s);
    row(PrereadFunctionIndex, u"PrereadFunctionIndex"_s);
    row(HidingFunctionIndex, u"HidingFunctionIndex"_s);
    row(PostreadFunctionIndex, u"PostreadFunctionIndex"_s);
    row(PrewriteFunctionIndex, u"PrewriteFunctionIndex"_s);
}

void tst_FirmwareContent::oneKind()
{
    MessageRecorder messages;
    QFETCH(quint32, property);
    QFETCH(QString, name);
    const auto issues = [&](quint32 index, const ServoDriveFirmware *firmware) {
        TestContainer container;
        const QVariant value = eParameterProperty(property) == ChoiceMapCommonTextIndex
            ? strings({1, quint16(index), 0})
            : QVariant(index);
        if (!container.create(
                at(u"A12"_s).property(eParameterProperty(property), value), u"D.1;a"_s))
            return QList<QString> {u"not created"_s};
        return container->contentIssuesForFirmware(const_cast<ServoDriveFirmware *>(firmware));
    };
    QCOMPARE(issues(4, m_five.get()), QList<QString>());
    QCOMPARE(issues(5, m_five.get()), QList<QString>());
    QCOMPARE(issues(6, m_five.get()), QList<QString> {name});
    QCOMPARE(issues(65535, m_five.get()), QList<QString> {name});
    QCOMPARE(issues(1, m_none.get()), QList<QString> {name});
}

void tst_FirmwareContent::eachKindHasItsOwnMaximum_data()
{
    QTest::addColumn<QByteArray>("table");
    QTest::addColumn<QString>("name");

    const auto row = [](const char *table, const QString &name) {
        QTest::newRow(table) << QByteArray(table) << name;
    };
    row("scaling", u"ScalingFunctionIndex"_s);
    row("limit", u"LimitFunctionIndex"_s);
    row("postWrite", u"PostwriteFunctionIndex"_s);
    row("preRead", u"PrereadFunctionIndex"_s);
    row("hiding", u"HidingFunctionIndex"_s);
    row("postRead", u"PostreadFunctionIndex"_s);
    row("preWrite", u"PrewriteFunctionIndex"_s);
}

void tst_FirmwareContent::eachKindHasItsOwnMaximum()
{
    MessageRecorder messages;
    QFETCH(QByteArray, table);
    QFETCH(QString, name);
    const auto firmware = TestFirmware::load(TestFirmware::PlainAxesFamily, tables({table}, 5));
    QVERIFY(firmware);
    TestContainer container;
    QVERIFY(container.create(withAll(u"A12"_s, 5), u"D.1;a"_s));
    QStringList expected = AllNames;
    expected.removeOne(u"SystemStringNumber"_s);
    expected.removeOne(name);
    QCOMPARE(QStringList(container->contentIssuesForFirmware(firmware.get())), expected);
}

void tst_FirmwareContent::allKindsInTheOrderOfTheTable()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(withAll(u"A12"_s, 6), u"D.1;a"_s));
    QVERIFY(container.create(withAll(u"B01"_s, 7), u"D.1;b"_s));
    QCOMPARE(QStringList(container->contentIssuesForFirmware(m_five.get())), AllNames);
}

void tst_FirmwareContent::highestCounts()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s).property(LimitFunctionIndex, 6U), u"D.1;a"_s));
    QVERIFY(container.create(at(u"B01"_s).property(LimitFunctionIndex, 1U), u"D.1;b"_s));
    QVERIFY(container.create(
        at(u"C01"_s).property(ChoiceMapCommonTextIndex, strings({6, 1})), u"D.1;c"_s));
    QCOMPARE(QStringList(container->contentIssuesForFirmware(m_five.get())),
        (QStringList {u"SystemStringNumber"_s, u"LimitFunctionIndex"_s}));
}

void tst_FirmwareContent::everyElementOfARecordCounts()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(
        at(u"A12"_s).element(3, u"Drei"_s).element(9, u"Neun"_s).property(HidingFunctionIndex, 6U),
        u"D.1;a"_s));
    QCOMPARE(container->contentIssuesForFirmware(m_five.get()),
        QList<QString> {u"HidingFunctionIndex"_s});
}

void tst_FirmwareContent::absentPropertiesCountAsZero()
{
    MessageRecorder messages;
    TestContainer container;
    DefinitionBuilder builder = at(u"A12"_s);
    for (const eParameterProperty property :
        {ScalingFunctionIndex, LimitFunctionIndex, PostwriteFunctionIndex, PrereadFunctionIndex,
            HidingFunctionIndex, PostreadFunctionIndex, PrewriteFunctionIndex})
        builder.without(property);
    QVERIFY(container.create(builder, u"D.1;a"_s));
    QCOMPARE(container->contentIssuesForFirmware(m_none.get()), QList<QString>());
}

void tst_FirmwareContent::overridesCount()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(at(u"A12"_s), u"D.1;a"_s));
    container.setup(u"A12"_s)->setProperty(0, LimitFunctionIndex, ParameterProperty(6U));
    QCOMPARE(container->contentIssuesForFirmware(m_five.get()),
        QList<QString> {u"LimitFunctionIndex"_s});
}

void tst_FirmwareContent::askedFirmwareIsNotSet()
{
    MessageRecorder messages;
    TestContainer container;
    QVERIFY(container.create(withAll(u"A12"_s, 6), u"D.1;a"_s));
    container->setFirmware(m_five.get());
    QCOMPARE(QStringList(container->contentIssuesForFirmware(m_none.get())), AllNames);
    QCOMPARE(container->firmware(), m_five.get());
}

QTEST_GUILESS_MAIN(tst_FirmwareContent)
#include "tst_FirmwareContent.moc"

#include "apps/online/BlockPlan.h"
#include "apps/online/RegisterMap.h"
#include "tests/online/OnlineDevice.h"

#include <QtTest/QTest>

namespace {

/// 200 values of one register each from 16 on, with the given online orders where they are not 0.
QByteArray device(const QByteArray &secondOrder = "0")
{
    return R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de"], "dataTypes": ["UINT16"],
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": "N", "global": true, "elementCount": 200,
     "elements": [{"dataType": "UINT16", "onlineOrder": 1}]},
    {"number": 2, "coordinates": ["A02"], "name": "N", "global": true, "elementCount": 2,
     "elements": [{"dataType": "UINT16", "onlineOrder": )"
        + secondOrder + R"(}]},
    {"number": 3, "coordinates": ["A03"], "name": "N",
     "elements": [{"dataType": "UINT16", "onlineOrder": 1}]}
  ]})";
}

/// "unit:first+count", one block each.
QString text(const QList<BlockPlan::Block> &blocks)
{
    QStringList texts;
    for (const BlockPlan::Block &block : blocks) {
        texts.append(QStringLiteral("%1:%2+%3")
                         .arg(block.span.unit)
                         .arg(block.span.first)
                         .arg(block.span.count));
    }
    return texts.join(u' ');
}

/// 120 values of one register each from 16 on, behind them two records of three and one of 130 registers.
QByteArray deviceOfRecords()
{
    QByteArrayList elements;
    for (int e = 0; e < 65; ++e)
        elements.append("{\"number\": " + QByteArray::number(e)
            + R"(, "name": "E", "dataType": "UINT32", "onlineOrder": 1})");
    return R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de"], "dataTypes": ["UINT16", "UINT32"],
  "parameters": [
    {"number": 1, "coordinates": ["A01"], "name": "N", "global": true, "elementCount": 120,
     "elements": [{"dataType": "UINT16", "onlineOrder": 1}]},
    {"number": 2, "coordinates": ["A02"], "name": "N", "global": true, "type": "record",
     "elements": [{"number": 0, "name": "E", "dataType": "UINT16", "onlineOrder": 1},
                  {"number": 1, "name": "E", "dataType": "UINT16", "onlineOrder": 1},
                  {"number": 2, "name": "E", "dataType": "UINT16", "onlineOrder": 1}]},
    {"number": 3, "coordinates": ["A03"], "name": "N", "global": true, "type": "record",
     "elements": [{"number": 0, "name": "E", "dataType": "UINT16", "onlineOrder": 1},
                  {"number": 1, "name": "E", "dataType": "UINT16", "onlineOrder": 1},
                  {"number": 2, "name": "E", "dataType": "UINT16", "onlineOrder": 1}]},
    {"number": 4, "coordinates": ["A04"], "name": "N", "global": true, "type": "record",
     "elements": [)"
        + elements.join(", ") + R"(]},
    {"number": 5, "coordinates": ["A05"], "name": "N", "global": true, "type": "record",
     "elements": [{"number": 0, "name": "E", "dataType": "UINT16", "onlineOrder": 3},
                  {"number": 1, "name": "E", "dataType": "UINT16", "onlineOrder": 4}]}
  ]})";
}

QList<qsizetype> range(qsizetype first, qsizetype count)
{
    QList<qsizetype> values;
    for (qsizetype i = 0; i < count; ++i)
        values.append(first + i);
    return values;
}

} // namespace

class tst_BlockPlan : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void partsValues_data();
    void partsValues();
    void followsTheOnlineOrder();
    void keepsUnitsApart();
    void takesTheFirstElementOfARecordLast();
    void keepsRecordsTogether();
};

void tst_BlockPlan::partsValues_data()
{
    QTest::addColumn<QList<qsizetype>>("values");
    QTest::addColumn<QString>("blocks");

    QTest::newRow("nothing") << QList<qsizetype>() << QString();
    QTest::newRow("one value") << QList<qsizetype> {0} << QStringLiteral("1:16+1");
    QTest::newRow("neighbours") << range(0, 3) << QStringLiteral("1:16+3");
    QTest::newRow("in any order given") << QList<qsizetype> {2, 0, 1} << QStringLiteral("1:16+3");
    QTest::newRow("125 registers are one block") << range(0, 125) << QStringLiteral("1:16+125");
    QTest::newRow("the 126th begins another")
        << range(0, 126) << QStringLiteral("1:16+125 1:141+1");
    QTest::newRow("a gap of 8 is read too") << QList<qsizetype> {0, 9} << QStringLiteral("1:16+10");
    QTest::newRow("a gap of 9 parts")
        << QList<qsizetype> {0, 10} << QStringLiteral("1:16+1 1:26+1");
    QTest::newRow("a gap counts towards the 125")
        << range(0, 117) + QList<qsizetype> {124, 125} << QStringLiteral("1:16+125 1:141+1");
}

void tst_BlockPlan::partsValues()
{
    QFETCH(QList<qsizetype>, values);
    QFETCH(QString, blocks);

    const OnlineDevice device(::device());
    const auto project = device.open();
    QCOMPARE(text(BlockPlan::blocksOf(RegisterMap(project->container()), values)), blocks);
}

void tst_BlockPlan::followsTheOnlineOrder()
{
    // Positions 200 and 201 are A02, whose order comes before that of A01.
    const OnlineDevice device(::device("0"));
    const auto project = device.open();
    const RegisterMap map(project->container());
    const auto blocks = BlockPlan::blocksOf(map, {198, 199, 200, 201});
    QCOMPARE(text(blocks), QStringLiteral("1:216+2 1:214+2"));
    QCOMPARE(blocks.at(0).values, (QList<qsizetype> {200, 201}));
    QCOMPARE(BlockPlan::inOnlineOrder(map, {198, 201, 199, 200}),
        (QList<qsizetype> {200, 201, 198, 199}));

    const OnlineDevice behind(::device("2"));
    const auto other = behind.open();
    QCOMPARE(text(BlockPlan::blocksOf(RegisterMap(other->container()), {200, 201, 198, 199})),
        QStringLiteral("1:214+4"));
}

void tst_BlockPlan::keepsUnitsApart()
{
    const OnlineDevice device(::device("2"));
    const auto project = device.open();
    // Position 202 is A03 of axis 1: unit 2.
    QCOMPARE(text(BlockPlan::blocksOf(RegisterMap(project->container()), {199, 202})),
        QStringLiteral("1:215+1 2:16+1"));
}

void tst_BlockPlan::takesTheFirstElementOfARecordLast()
{
    const OnlineDevice device(deviceOfRecords());
    const auto project = device.open();
    const RegisterMap map(project->container());
    // Two records: positions 120 to 122 and 123 to 125.
    const auto blocks = BlockPlan::blocksOf(map, range(119, 7));
    QCOMPARE(text(blocks), QStringLiteral("1:135+7"));
    QCOMPARE(blocks.at(0).values, (QList<qsizetype> {119, 121, 122, 120, 124, 125, 123}));
    QCOMPARE(map.values().size(), 193);
    // Not behind what has a greater order.
    QCOMPARE(BlockPlan::blocksOf(map, {191, 192}).at(0).values, (QList<qsizetype> {191, 192}));
    QCOMPARE(BlockPlan::blocksOf(map, {120}).at(0).values, QList<qsizetype> {120});
}

void tst_BlockPlan::keepsRecordsTogether()
{
    const OnlineDevice device(deviceOfRecords());
    const auto project = device.open();
    const RegisterMap map(project->container());
    // 120 and 3 are within the 125; the second record is not.
    QCOMPARE(text(BlockPlan::blocksOf(map, range(0, 126))), QStringLiteral("1:16+123 1:139+3"));
    // Without its first element it is parted like anything else.
    QCOMPARE(text(BlockPlan::blocksOf(map, range(0, 123) + QList<qsizetype> {124, 125})),
        QStringLiteral("1:16+125 1:141+1"));
    // A record that no block can hold.
    QCOMPARE(text(BlockPlan::blocksOf(map, range(123, 68))),
        QStringLiteral("1:139+3 1:142+124 1:266+6"));
}

QTEST_GUILESS_MAIN(tst_BlockPlan)
#include "tst_BlockPlan.moc"

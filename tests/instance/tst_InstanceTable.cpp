#include "instance/InstanceTable.h"

#include <QtTest/QTest>

using enum eLivingSpace;

class tst_InstanceTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void key_data();
    void key();
    void emptyTable();
    void insert_data();
    void insert();
    void occupiedKeyKeepsItsRecord();
    void livingSpacesAscend();
    void insertBeyondTheReserve();
};

void tst_InstanceTable::key_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<int>("globalKey");

    for (const int livingSpace : {-2147483647, -1, 0, 1, 2, 3, 4, 5, 2147483647})
        QTest::addRow("living space %d", livingSpace) << livingSpace << 0;
}

void tst_InstanceTable::key()
{
    QFETCH(int, livingSpace);
    QFETCH(int, globalKey);
    QCOMPARE(int(InstanceTable::key(eLivingSpace(livingSpace), true)), globalKey);
    QCOMPARE(int(InstanceTable::key(eLivingSpace(livingSpace), false)), livingSpace);
}

void tst_InstanceTable::emptyTable()
{
    const InstanceTable table;
    QCOMPARE(table.livingSpaces(), InstanceTable::LivingSpaces());
    QVERIFY(!table.find(Global));
    QVERIFY(!table.contains(Axis1));
}

void tst_InstanceTable::insert_data()
{
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<bool>("isTaken");

    QTest::newRow("far below") << -2147483647 << false;
    QTest::newRow("one below the first") << -1 << false;
    QTest::newRow("global") << 0 << true;
    QTest::newRow("axis 1") << 1 << true;
    QTest::newRow("axis 2") << 2 << true;
    QTest::newRow("axis 3") << 3 << true;
    QTest::newRow("axis 4") << 4 << true;
    QTest::newRow("one behind the last") << 5 << false;
    QTest::newRow("far behind") << 2147483647 << false;
}

void tst_InstanceTable::insert()
{
    QFETCH(int, livingSpace);
    QFETCH(bool, isTaken);
    InstanceTable table;
    const auto key = eLivingSpace(livingSpace);
    const ParameterInstanceData *record = table.insert(key);
    QCOMPARE(record != nullptr, isTaken);
    QCOMPARE(table.contains(key), isTaken);
    QCOMPARE(table.find(key), record);
    QCOMPARE(table.livingSpaces(),
        isTaken ? InstanceTable::LivingSpaces {key} : InstanceTable::LivingSpaces());
}

void tst_InstanceTable::occupiedKeyKeepsItsRecord()
{
    InstanceTable table;
    const ParameterInstanceData *first = table.insert(Axis1);
    QVERIFY(first);
    QVERIFY(!table.insert(Axis1));
    QCOMPARE(table.find(Axis1), first);
}

void tst_InstanceTable::livingSpacesAscend()
{
    InstanceTable table;
    for (const eLivingSpace livingSpace : {Axis4, Axis1, Axis3})
        table.insert(livingSpace);
    QCOMPARE(table.livingSpaces(), (InstanceTable::LivingSpaces {Axis1, Axis3, Axis4}));
}

void tst_InstanceTable::insertBeyondTheReserve()
{
    InstanceTable table;
    table.reserve(2);
    QSet<const ParameterInstanceData *> records;
    QSet<quint32> serialNumbers;
    for (const eLivingSpace livingSpace : {Axis1, Axis2, Axis3, Axis4}) {
        const ParameterInstanceData *record = table.insert(livingSpace);
        QCOMPARE(table.find(livingSpace), record);
        records.insert(record);
        serialNumbers.insert(record->serialNumber());
    }
    QCOMPARE(records.size(), 4);
    QCOMPARE(serialNumbers.size(), 4);
    QVERIFY(!table.insert(Axis1));
}

QTEST_GUILESS_MAIN(tst_InstanceTable)

#include "tst_InstanceTable.moc"

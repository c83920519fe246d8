#include "apps/online/RegisterMap.h"
#include "tests/online/OnlineDevice.h"

#include <KrDatatype/SimpleType.h>
#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QTest>

using eRefusal = RegisterMap::eRefusal;

namespace {

/// A device of one axis with the parameters of the text.
QByteArray device(const QByteArray &parameters)
{
    return R"({"format": "kr-device-description", "version": 1,
  "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de"], "dataTypes": ["UINT16", "BYTES8", "STRING128", "STRING255", "RAW"],
  "parameters": [)"
        + parameters + "]}";
}

QByteArray parameter(int number, const char *coordinate, const char *type, int count)
{
    return QStringLiteral(
        R"({"number": %1, "coordinates": ["%2"], "name": "N", "global": true, "elementCount": %4,
            "elements": [{"dataType": "%3", "kind": 5}]})")
        .arg(number)
        .arg(QLatin1String(coordinate), QLatin1String(type))
        .arg(count)
        .toUtf8();
}

} // namespace

class tst_RegisterMap : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void givesEveryValueItsRegisters_data();
    void givesEveryValueItsRegisters();
    void knowsWhatDefinitionsSay();
    void knowsTheWayBack_data();
    void knowsTheWayBack();
    void tellsWhatAUnitHolds();
    void findsTheElementsOfAParameter();
    void refusesByName_data();
    void refusesByName();
    void fillsAUnitToItsLastRegister();
    void refusesTheRegisterBehindTheLast();
    void keepsTheLayoutWhenTheElementCountChanges();
};

void tst_RegisterMap::givesEveryValueItsRegisters_data()
{
    QTest::addColumn<ParameterAddress>("at");
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, const char *at, int unit, int first, int count,
                         const char *text) {
        QTest::newRow(name) << address(at) << unit << first << count << QString::fromLatin1(text);
    };
    row("the first value stands behind the header", "A01", 1, 16, 1, "A01");
    row("by coordinate, whatever the online order", "A02", 1, 17, 2, "A02");
    row("a text of eight bytes", "A03", 1, 19, 4, "A03");
    row("a byte takes a register", "A04", 1, 23, 1, "A04");
    row("every axis is a unit of its own", "1.B01", 2, 16, 1, "1.B01");
    row("the second axis", "2.B01", 3, 16, 1, "2.B01");
    row("elements one behind the other", "2.C01[0]", 3, 19, 1, "2.C01[0]");
    row("the last element", "2.C01[2]", 3, 21, 1, "2.C01[2]");
    row("the last value", "2.E48", 3, 22, 1, "2.E48");
}

void tst_RegisterMap::givesEveryValueItsRegisters()
{
    QFETCH(ParameterAddress, at);
    QFETCH(int, unit);
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(QString, text);

    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    const qsizetype index = map.indexOf(at);
    QVERIFY(index >= 0);
    const MappedValue &value = map.values().at(index);
    QCOMPARE(int(value.span.unit), unit);
    QCOMPARE(int(value.span.first), first);
    QCOMPARE(int(value.span.count), count);
    QCOMPARE(value.addressText(), text);
}

void tst_RegisterMap::knowsWhatDefinitionsSay()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    QCOMPARE(map.values().size(), 16);
    QVERIFY(map.refusals().isEmpty());
    QCOMPARE(map.units(), (QList<quint8> {1, 2, 3}));

    const MappedValue &command = map.values().at(map.indexOf(address("A04")));
    QVERIFY(!command.isStored);
    QVERIFY(!command.isReadOnly);
    QVERIFY(!command.isSetting());
    QCOMPARE(command.onlineOrder, 4u);
    QCOMPARE(command.additionalReadTime.count(), 0);
    QCOMPARE(command.additionalWriteTime.count(), 300);
    const MappedValue &measured = map.values().at(map.indexOf(address("2.B02")));
    QVERIFY(measured.isReadOnly);
    QVERIFY(!measured.isSetting());
    QCOMPARE(measured.cyclicInterval.count(), 250);
    QVERIFY(map.values().at(map.indexOf(address("A01"))).isSetting());
}

void tst_RegisterMap::knowsTheWayBack_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("registerNumber");
    QTest::addColumn<QString>("text");

    QTest::newRow("the header leads to the first value") << 1 << 0 << QStringLiteral("A01");
    QTest::newRow("its own register") << 1 << 16 << QStringLiteral("A01");
    QTest::newRow("the first of two") << 1 << 17 << QStringLiteral("A02");
    QTest::newRow("the second of two") << 1 << 18 << QStringLiteral("A02");
    QTest::newRow("the last of a unit") << 1 << 23 << QStringLiteral("A04");
    QTest::newRow("behind the last: the next unit") << 1 << 24 << QStringLiteral("1.B01");
    QTest::newRow("another unit") << 3 << 21 << QStringLiteral("2.C01[2]");
    QTest::newRow("an unknown unit before all") << 0 << 5 << QStringLiteral("A01");
    QTest::newRow("behind everything") << 3 << 23 << QString();
    QTest::newRow("an unknown unit behind all") << 9 << 0 << QString();
}

void tst_RegisterMap::knowsTheWayBack()
{
    QFETCH(int, unit);
    QFETCH(int, registerNumber);
    QFETCH(QString, text);

    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    const qsizetype index = map.firstAt(quint8(unit), registerNumber);
    QCOMPARE(index < map.values().size() ? map.values().at(index).addressText() : QString(), text);
    QCOMPARE(map.indexOf(address("Z99")), -1);
    QCOMPARE(map.indexOf(address("2.A01")), -1);
}

void tst_RegisterMap::tellsWhatAUnitHolds()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    // "KRPM", version 1, living space, family 65538, number of values, checksum, six zeros.
    QCOMPARE(map.header(1),
        (QList<quint16> {0x4B52, 0x504D, 1, 0, 1, 2, 0, 4, 0x3281, 0x684D, 0, 0, 0, 0, 0, 0}));
    QCOMPARE(map.header(3),
        (QList<quint16> {0x4B52, 0x504D, 1, 2, 1, 2, 0, 6, 0xE77F, 0x2162, 0, 0, 0, 0, 0, 0}));
}

void tst_RegisterMap::findsTheElementsOfAParameter()
{
    const OnlineDevice device;
    const auto project = device.open();
    const RegisterMap map(project->container());
    using Positions = std::pair<qsizetype, qsizetype>;
    const qsizetype control = map.indexOf(address("2.C01[0]"));
    QCOMPARE(map.positionsOf(at("C01"), eLivingSpace::Axis2), Positions(control, control + 2));
    QCOMPARE(map.positionsOf(at("A01"), eLivingSpace::Global), Positions(0, 0));
    const qsizetype last = map.values().size() - 1;
    QCOMPARE(map.positionsOf(at("E48"), eLivingSpace::Axis2), Positions(last, last));
    // Nothing: the first lies behind the last.
    for (const auto &[coordinate, livingSpace] : {std::pair("C01", eLivingSpace::Global),
             std::pair("A01", eLivingSpace::Axis1), std::pair("B03", eLivingSpace::Axis1),
             std::pair("Z99", eLivingSpace::Axis2), std::pair("C01", eLivingSpace::Axis4)}) {
        const auto [first, end] = map.positionsOf(at(coordinate), livingSpace);
        QCOMPARE(first, end + 1);
    }
}

void tst_RegisterMap::refusesByName_data()
{
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("reason");

    const QString tooLong =
        QStringLiteral("der Wert ist länger als die 123 Register, die eine Anfrage schreibt");
    QTest::newRow("a text of 255 bytes")
        << parameter(1, "A01", "STRING255", 1) << QStringLiteral("A01") << tooLong;
    QTest::newRow("an unformatted value")
        << parameter(1, "A01", "RAW", 1) << QStringLiteral("A01") << tooLong;
    QTest::newRow("a text of 128 bytes fits")
        << parameter(1, "A01", "STRING128", 1) << QString() << QString();
}

void tst_RegisterMap::refusesByName()
{
    QFETCH(QByteArray, parameters);
    QFETCH(QString, address);
    QFETCH(QString, reason);

    const OnlineDevice device(::device(parameters));
    const auto project = device.open();
    const RegisterMap map(project->container());
    QCOMPARE(map.refusals().isEmpty(), address.isEmpty());
    QCOMPARE(map.values().isEmpty(), !address.isEmpty());
    if (address.isEmpty())
        return;
    QCOMPARE(map.refusals().constFirst().address, address);
    QCOMPARE(map.refusals().constFirst().place.coordinate, at("A01"));
    QCOMPARE(RegisterMap::reasonText(map.refusals().constFirst().reason), reason);
}

void tst_RegisterMap::fillsAUnitToItsLastRegister()
{
    // 16 of the header, 16000 values of 4 registers, 1520 of one: 65536.
    const OnlineDevice device(
        ::device(parameter(1, "A01", "BYTES8", 16000) + "," + parameter(2, "A02", "UINT16", 1520)));
    const auto project = device.open();
    const RegisterMap map(project->container());
    QVERIFY(map.refusals().isEmpty());
    QCOMPARE(map.values().size(), 17520);
    QCOMPARE(int(map.values().constLast().span.first), 65535);
    QCOMPARE(map.values().constLast().span.end(), 65536);
}

void tst_RegisterMap::refusesTheRegisterBehindTheLast()
{
    const OnlineDevice device(
        ::device(parameter(1, "A01", "BYTES8", 16000) + "," + parameter(2, "A02", "UINT16", 1519)
            + "," + parameter(3, "A03", "BYTES8", 1) + "," + parameter(4, "A04", "UINT16", 2)));
    const auto project = device.open();
    const RegisterMap map(project->container());
    // One register is left: too few for A03, enough for one of A04.
    QCOMPARE(map.refusals().size(), 2);
    QCOMPARE(map.refusals().at(0).address, QStringLiteral("A03"));
    QCOMPARE(map.refusals().at(0).reason, eRefusal::NoRoom);
    QCOMPARE(map.refusalOf(::address("A03")), &map.refusals().at(0));
    QCOMPARE(map.refusalOf(::address("A01")), nullptr);
    QCOMPARE(map.refusals().at(1).address, QStringLiteral("A04[1]"));
    QCOMPARE(RegisterMap::reasonText(map.refusals().at(1).reason),
        QStringLiteral("er läge hinter dem letzten der 65536 Register"));
    QVERIFY(map.refusals().at(1).isSetting);
}

void tst_RegisterMap::keepsTheLayoutWhenTheElementCountChanges()
{
    const OnlineDevice device(
        ::device(parameter(1, "A01", "UINT16", 4) + "," + parameter(2, "A02", "UINT16", 1)));
    const auto project = device.open();
    const auto parameter = project->container().parameterSetup(at("A01"));
    const QList<quint16> header = RegisterMap(project->container()).header(1);

    parameter->setElementCount(2);
    const RegisterMap shorter(project->container());
    QCOMPARE(shorter.header(1), header);
    QCOMPARE(int(shorter.values().at(shorter.indexOf(address("A02"))).span.first), 20);
    QVERIFY(shorter.refusals().isEmpty());

    parameter->setElementCount(5);
    const RegisterMap longer(project->container());
    QCOMPARE(longer.header(1), header);
    QCOMPARE(longer.refusals().size(), 1);
    QCOMPARE(longer.refusals().constFirst().address, QStringLiteral("A01[4]"));
    QCOMPARE(longer.refusals().constFirst().reason, eRefusal::NotInDefinition);
}

QTEST_GUILESS_MAIN(tst_RegisterMap)
#include "tst_RegisterMap.moc"

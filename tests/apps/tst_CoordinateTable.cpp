#include "apps/import/CoordinatePlan.h"
#include "apps/import/CoordinateTable.h"

#include <QtCore/QRandomGenerator>
#include <QtCore/QSet>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

class tst_CoordinateTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ownPlace_data();
    void ownPlace();
    void ownPlacesAreDistinct();
    void read_data();
    void read();
    void refused_data();
    void refused();
    void newTable();
    void extended_data();
    void extended();
    void nothingNew();
    void takenPlace();
    void anyOrderOfFiles();
    void full();
    void readsBack();
    void anyPrefix();
    void randomBytes();
};

namespace {

CoordinateTable tableOf(const QByteArray &bytes)
{
    QString error;
    return CoordinateTable::read(bytes, error).value_or(CoordinateTable());
}

} // namespace

void tst_CoordinateTable::ownPlace_data()
{
    QTest::addColumn<quint16>("index");
    QTest::addColumn<QString>("expected");

    const auto row = [](quint16 index, const QString &expected) {
        QTest::newRow(qPrintable(QString::number(index, 16))) << index << expected;
    };
    row(0x0FFF, QString());
    row(0x1000, u"C00"_s);
    row(0x1018, u"C24"_s);
    row(0x13E7, u"C999"_s);
    row(0x13E8, QString());
    row(0x1400, u"D00"_s);
    row(0x14C7, u"D199"_s);
    row(0x14C8, QString());
    row(0x1600, u"D200"_s);
    row(0x1800, u"D400"_s);
    row(0x1A00, u"D600"_s);
    row(0x1AC7, u"D799"_s);
    row(0x1C12, u"D818"_s);
    row(0x1F50, u"D900"_s);
    row(0x1FB3, u"D999"_s);
    row(0x2000, u"F00"_s);
    row(0x23E7, u"F999"_s);
    row(0x23E8, u"G00"_s);
    row(0x2F9F, u"I999"_s);
    row(0x2FA0, QString());
    row(0x3000, u"J00"_s);
    row(0x37CF, u"K999"_s);
    row(0x4000, u"L00"_s);
    row(0x5000, u"M00"_s);
    row(0x53E7, u"M999"_s);
    row(0x5FFF, QString());
    row(0x6040, u"P64"_s);
    row(0x60FF, u"P255"_s);
    row(0x61FF, u"P511"_s);
    row(0x6200, QString());
    row(0x6400, u"P512"_s);
    row(0x6502, u"P770"_s);
    row(0x65E7, u"P999"_s);
    row(0x65E8, QString());
    row(0x6840, u"R64"_s);
    row(0x7040, u"S64"_s);
    row(0x7840, u"T64"_s);
    row(0x8040, u"U64"_s);
    row(0x8840, u"V64"_s);
    row(0x9040, u"W64"_s);
    row(0x9840, u"X64"_s);
    row(0x9D02, u"X770"_s);
    row(0xA000, u"N00"_s);
    row(0xF000, u"O00"_s);
    row(0xFFFF, QString());
}

void tst_CoordinateTable::ownPlace()
{
    QFETCH(quint16, index);
    QFETCH(QString, expected);

    QCOMPARE(CoordinatePlan::ownPlace(index).toText(), expected);
}

void tst_CoordinateTable::ownPlacesAreDistinct()
{
    QSet<quint16> taken;
    for (int position = 0; position < CoordinatePlan::SharedCount; ++position)
        taken.insert(CoordinatePlan::sharedPlace(position).toNumber());
    QCOMPARE(taken.size(), 4000);
    for (int index = 0; index <= 0xFFFF; ++index) {
        const ParameterCoordinate place = CoordinatePlan::ownPlace(quint16(index));
        if (!place.isValid())
            continue;
        QVERIFY2(CoordinatePlan::isUsable(place), qPrintable(place.toText()));
        QVERIFY2(!taken.contains(place.toNumber()), qPrintable(place.toText()));
        taken.insert(place.toNumber());
    }
}

void tst_CoordinateTable::read_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("expected");

    QTest::newRow("one line") << "0x6040 E40\n"_ba << u"E40"_s;
    QTest::newRow("last line without end") << "0x6040 E40"_ba << u"E40"_s;
    QTest::newRow("CR LF") << "0x6040 E40\r\n"_ba << u"E40"_s;
    QTest::newRow("tab and blanks") << " \t0x6040\t  E40 \n"_ba << u"E40"_s;
    QTest::newRow("upper X, sortable coordinate") << "0X6040 E040\n"_ba << u"E40"_s;
    QTest::newRow("comment behind") << "0x6040 E40 # Controlword \xFC\n"_ba << u"E40"_s;
    QTest::newRow("comments and empty lines") << "# x\n\n  \n0x6040 E40\n#\n"_ba << u"E40"_s;
    QTest::newRow("group of another area") << "0x6040 C00\n"_ba << u"C00"_s;
    QTest::newRow("unknown index") << "0x6041 E40\n"_ba << QString();
    QTest::newRow("empty table") << ""_ba << QString();
}

void tst_CoordinateTable::read()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, expected);

    QString error;
    const auto table = CoordinateTable::read(bytes, error);
    QCOMPARE(error, QString());
    QVERIFY(table.has_value());
    QCOMPARE(table->coordinate(0x6040).toText(), expected);
    QCOMPARE(table->toBytes(), bytes);
}

void tst_CoordinateTable::refused_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("error");

    const auto row = [](const char *name, const QByteArray &bytes, const QString &error) {
        QTest::newRow(name) << bytes << error;
    };
    row("index alone", "0x6040\n"_ba, u"Zeile 1: erwartet werden ein Index und eine Koordinate"_s);
    row("three words", "# x\n0x6040 E40 E41\n"_ba,
        u"Zeile 2: erwartet werden ein Index und eine Koordinate"_s);
    row("index without 0x", "6040 E40\n"_ba,
        u"Zeile 1: der Index ist keiner von 0x0001 bis 0xFFFF"_s);
    row("index zero", "0x0 E40\n"_ba, u"Zeile 1: der Index ist keiner von 0x0001 bis 0xFFFF"_s);
    row("index too long", "0x10000 E40\n"_ba,
        u"Zeile 1: der Index ist keiner von 0x0001 bis 0xFFFF"_s);
    row("index no number", "0xG E40\n"_ba,
        u"Zeile 1: der Index ist keiner von 0x0001 bis 0xFFFF"_s);
    row("index without digits", "0x E40\n"_ba,
        u"Zeile 1: der Index ist keiner von 0x0001 bis 0xFFFF"_s);
    row("coordinate no coordinate", "0x6040 40\n"_ba,
        u"Zeile 1: die Koordinate ist keine von A00 bis Z999"_s);
    row("coordinate in lower case", "0x6040 e40\n"_ba,
        u"Zeile 1: die Koordinate ist keine von A00 bis Z999"_s);
    row("line too large", "0x6040 E1000\n"_ba,
        u"Zeile 1: die Koordinate ist keine von A00 bis Z999"_s);
    row("moveable group", "0x6040 Q40\n"_ba, u"Zeile 1: die Koordinate Q40 ist vorbehalten"_s);
    row("active axis", "0x6040 E84\n"_ba, u"Zeile 1: die Koordinate E84 ist vorbehalten"_s);
    row("active axis, sortable", "0x6040 E084\n"_ba,
        u"Zeile 1: die Koordinate E84 ist vorbehalten"_s);
    row("index twice", "0x6040 E40\n0x6040 E41\n"_ba,
        u"Zeile 2: der Index 0x6040 steht schon in einer früheren Zeile"_s);
    row("line twice", "0x6040 E40\n0x6040 E40\n"_ba,
        u"Zeile 2: der Index 0x6040 steht schon in einer früheren Zeile"_s);
    row("coordinate twice", "0x6040 E40\n\n0x6041 E040\n"_ba,
        u"Zeile 3: die Koordinate E40 gehört schon zu 0x6040"_s);
    row("bytes that are no text", "\xFF\x00\x01"_ba,
        u"Zeile 1: erwartet werden ein Index und eine Koordinate"_s);
}

void tst_CoordinateTable::refused()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, error);

    QString found;
    QVERIFY(!CoordinateTable::read(bytes, found).has_value());
    QCOMPARE(found, error);
}

void tst_CoordinateTable::newTable()
{
    CoordinateTable table;
    QCOMPARE(table.toBytes(), ""_ba);
    QCOMPARE(table.extend({0x6041, 0x1000, 0x6040}), 3);
    QCOMPARE(table.toBytes(),
        "# Coordinates of the objects of CANopen object dictionaries.\n"
        "# One line an object: index, coordinate. Lines are added at the end;\n"
        "# a line that stands here is never changed.\n"
        "0x1000 C00\n0x6040 P64\n0x6041 P65\n"_ba);
    QCOMPARE(table.count(), 3);
}

void tst_CoordinateTable::extended_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");

    QTest::newRow("at the end") << "0x6041 A05\n"_ba
                                << "0x6041 A05\n0x6040 P64\n"_ba;
    QTest::newRow("last line gets its end") << "0x6041 A05"_ba
                                            << "0x6041 A05\n0x6040 P64\n"_ba;
    QTest::newRow("every byte before stays") << "# \xFC\r\n\r\n 0x6041  A05 # x\r\n"_ba
                                             << "# \xFC\r\n\r\n 0x6041  A05 # x\r\n0x6040 P64\n"_ba;
    QTest::newRow("own place taken") << "0x6041 P64\n"_ba
                                     << "0x6041 P64\n0x6040 A640\n"_ba;
}

void tst_CoordinateTable::extended()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);

    CoordinateTable table = tableOf(before);
    QCOMPARE(table.extend({0x6040, 0x6041}), 1);
    QCOMPARE(table.toBytes(), after);
}

void tst_CoordinateTable::nothingNew()
{
    CoordinateTable table = tableOf("0x6040 E40");
    QCOMPARE(table.extend({0x6040}), 0);
    QCOMPARE(table.extend({}), 0);
    QCOMPARE(table.toBytes(), "0x6040 E40"_ba);
}

void tst_CoordinateTable::takenPlace()
{
    // 0x5FFF is 24575, 0x2FA0 is 12192: the shared lines number 575 and 192.
    CoordinateTable table = tableOf("0x2000 A575\n0x2001 A576\n");
    QCOMPARE(table.extend({0x5FFF, 0x2FA0}), 2);
    QCOMPARE(table.coordinate(0x5FFF).toText(), u"A577"_s);
    QCOMPARE(table.coordinate(0x2FA0).toText(), u"A192"_s);
}

void tst_CoordinateTable::anyOrderOfFiles()
{
    const QList<quint16> first {0x1000, 0x1018, 0x2000, 0x5FFF, 0x6040, 0x60FF, 0xC000};
    const QList<quint16> second {0x1000, 0x1017, 0x2001, 0x5FFE, 0x6040, 0x6200, 0xB000};
    CoordinateTable forward;
    forward.extend(first);
    forward.extend(second);
    CoordinateTable backward;
    backward.extend(second);
    backward.extend(first);
    QCOMPARE(forward.count(), 12);
    for (const quint16 index : first + second)
        QCOMPARE(forward.coordinate(index), backward.coordinate(index));
}

void tst_CoordinateTable::full()
{
    QList<quint16> indices;
    for (int index = 0x1000; index <= 0xFFFF; ++index)
        indices.append(quint16(index));
    CoordinateTable table;
    // 25 groups of 1000 lines without the active axis.
    QCOMPARE(table.extend(indices), 24999);
    QCOMPARE(table.extend(indices), 0);
    QSet<quint16> coordinates;
    for (const quint16 index : indices) {
        const ParameterCoordinate coordinate = table.coordinate(index);
        if (coordinate.isValid())
            coordinates.insert(coordinate.toNumber());
    }
    QCOMPARE(coordinates.size(), 24999);
    QVERIFY(!coordinates.contains(5084));
    QCOMPARE(tableOf(table.toBytes()).count(), 24999);
}

void tst_CoordinateTable::readsBack()
{
    CoordinateTable table;
    table.extend({0x6040, 0xFFFF, 0x1000});
    CoordinateTable again = tableOf(table.toBytes());
    QCOMPARE(again.count(), 3);
    QCOMPARE(again.coordinate(0xFFFF), table.coordinate(0xFFFF));
    QCOMPARE(again.extend({0x6040, 0xFFFF, 0x1000}), 0);
    QCOMPARE(again.toBytes(), table.toBytes());
}

void tst_CoordinateTable::anyPrefix()
{
    const QByteArray whole = "# head\n0x6040 E40\r\n0x6041 E41\n"_ba;
    for (qsizetype length = 0; length <= whole.size(); ++length) {
        QString error;
        const auto table = CoordinateTable::read(whole.first(length), error);
        QCOMPARE(table.has_value(), error.isEmpty());
    }
}

void tst_CoordinateTable::randomBytes()
{
    QRandomGenerator random(402);
    const QByteArray alphabet = "0x6E4 \n#\r\xFF\0"_ba;
    for (int run = 0; run < 500; ++run) {
        QByteArray bytes;
        for (int length = random.bounded(60); length > 0; --length)
            bytes += alphabet.at(random.bounded(int(alphabet.size())));
        QString error;
        const auto table = CoordinateTable::read(bytes, error);
        QCOMPARE(table.has_value(), error.isEmpty());
    }
}

QTEST_GUILESS_MAIN(tst_CoordinateTable)
#include "tst_CoordinateTable.moc"

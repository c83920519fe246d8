#include <KrParameterDefinition/ParameterAddress.h>

#include <QtCore/QSet>
#include <QtCore/QVariant>
#include <QtTest/QtTest>

#include <algorithm>

namespace {

ParameterCoordinate coordinate(const char *text)
{
    return ParameterCoordinate(QString::fromLatin1(text));
}

} // namespace

class tst_ParameterAddress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isInvalidByDefault();
    void readsText_data();
    void readsText();
    void refusesText_data();
    void refusesText();
    void withoutAxisPrefixRefusesOne();
    void number_data();
    void number();
    void refusesNumber_data();
    void refusesNumber();
    void everyCoordinateReturnsFromNumber();
    void refusesParts_data();
    void refusesParts();
    void setters();
    void toText_data();
    void toText();
    void ordersByAxisElementCoordinateBit();
    void isHashable();
    void isMetaType();
};

void tst_ParameterAddress::isInvalidByDefault()
{
    const ParameterAddress address;
    QVERIFY(!address.isValid());
    QCOMPARE(address.toNumber(), 4294967295U);
    QCOMPARE(address.toText(true, true), QString());
    QCOMPARE(address.toTextLocalInstance(false), QString());
    QCOMPARE(address.toTextGlobalInstance(true), QString());
    QCOMPARE(address.toSortableText(), QString());
}

void tst_ParameterAddress::readsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("axis");
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<int>("element");
    QTest::addColumn<int>("bit");
    QTest::addColumn<QString>("sortable");

    const auto row = [](const char *name, const char *text, int axis, const char *coordinate,
                         int element, int bit, const char *sortable) {
        QTest::newRow(name) << QString::fromLatin1(text) << axis << QString::fromLatin1(coordinate)
                            << element << bit << QString::fromLatin1(sortable);
    };
    row("coordinate", "E84", 0, "E84", 0, -1, "1.E084[00000]");
    row("first coordinate", "A00", 0, "A00", 0, -1, "1.A000[00000]");
    row("last coordinate", "Z999", 0, "Z999", 0, -1, "1.Z999[00000]");
    row("one digit of line", "E1", 0, "E01", 0, -1, "1.E001[00000]");
    row("element", "E84[3]", 0, "E84", 3, -1, "1.E084[00003]");
    row("element 0", "E84[0]", 0, "E84", 0, -1, "1.E084[00000]");
    row("last element", "E84[16383]", 0, "E84", 16383, -1, "1.E084[16383]");
    row("first axis", "1.E84[3]", 0, "E84", 3, -1, "1.E084[00003]");
    row("last axis", "4.E84[3]", 3, "E84", 3, -1, "4.E084[00003]");
    row("axis without element", "2.E84", 1, "E84", 0, -1, "2.E084[00000]");
    row("first bit", "E84:0", 0, "E84", 0, 0, "1.E084[00000]:00");
    row("last bit", "1.E84[3]:63", 0, "E84", 3, 63, "1.E084[00003]:63");
    row("bit of an axis", "2.E84:5", 1, "E84", 0, 5, "2.E084[00000]:05");
    row("sortable text", "1.E084[00003]", 0, "E84", 3, -1, "1.E084[00003]");
    row("sortable text with bit", "3.E084[00003]:05", 2, "E84", 3, 5, "3.E084[00003]:05");
    row("leading zeros of the element", "E84[003]", 0, "E84", 3, -1, "1.E084[00003]");
}

void tst_ParameterAddress::readsText()
{
    QFETCH(QString, text);
    QFETCH(int, axis);
    QFETCH(QString, coordinate);
    QFETCH(int, element);
    QFETCH(int, bit);
    QFETCH(QString, sortable);

    const ParameterAddress address(text, true);
    QVERIFY(address.isValid());
    QCOMPARE(int(address.axis()), axis);
    QCOMPARE(address.coordinate().toText(), coordinate);
    QCOMPARE(int(address.element()), element);
    QCOMPARE(address.bit(), bit);
    QCOMPARE(address.hasBit(), bit >= 0);
    QCOMPARE(address.toSortableText(), sortable);
    QCOMPARE(ParameterAddress(sortable, true), address);
}

void tst_ParameterAddress::refusesText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("axis 0") << QStringLiteral("0.E84");
    QTest::newRow("axis 5") << QStringLiteral("5.E84");
    QTest::newRow("two digits of axis") << QStringLiteral("01.E84");
    QTest::newRow("axis 11") << QStringLiteral("11.E84");
    QTest::newRow("negative axis") << QStringLiteral("-1.E84");
    QTest::newRow("letter as axis") << QStringLiteral("A.E84");
    QTest::newRow("point alone") << QStringLiteral(".E84");
    QTest::newRow("axis alone") << QStringLiteral("1.");
    QTest::newRow("two axes") << QStringLiteral("1.1.E84");
    QTest::newRow("axis without point") << QStringLiteral("1E84");
    QTest::newRow("lower case") << QStringLiteral("1.e84");
    QTest::newRow("line 1000") << QStringLiteral("E1000");
    QTest::newRow("letter alone") << QStringLiteral("E[3]");
    QTest::newRow("element 16384") << QStringLiteral("E84[16384]");
    QTest::newRow("element 65536") << QStringLiteral("E84[65536]");
    QTest::newRow("largest five digits") << QStringLiteral("E84[99999]");
    QTest::newRow("six digits of element") << QStringLiteral("E84[000003]");
    QTest::newRow("element that wraps to 3") << QStringLiteral("E84[4294967299]");
    QTest::newRow("empty element") << QStringLiteral("E84[]");
    QTest::newRow("open element") << QStringLiteral("E84[3");
    QTest::newRow("element not opened") << QStringLiteral("E843]");
    QTest::newRow("negative element") << QStringLiteral("E84[-1]");
    QTest::newRow("element with sign") << QStringLiteral("E84[+1]");
    QTest::newRow("element with blank") << QStringLiteral("E84[ 1]");
    QTest::newRow("element twice") << QStringLiteral("E84[1][2]");
    QTest::newRow("bit 64") << QStringLiteral("E84:64");
    QTest::newRow("bit 64 of an element") << QStringLiteral("1.E84[3]:64");
    QTest::newRow("three digits of bit") << QStringLiteral("E84:005");
    QTest::newRow("bit 100") << QStringLiteral("E84:100");
    QTest::newRow("empty bit") << QStringLiteral("E84:");
    QTest::newRow("negative bit") << QStringLiteral("E84:-1");
    QTest::newRow("bit twice") << QStringLiteral("E84:1:2");
    QTest::newRow("bit before element") << QStringLiteral("E84:1[3]");
    QTest::newRow("trailing blank") << QStringLiteral("E84 ");
    QTest::newRow("blank after the element") << QStringLiteral("E84[3] ");
    QTest::newRow("leading blank") << QStringLiteral(" E84");
    QTest::newRow("line end") << QStringLiteral("E84[3]\n");
    QTest::newRow("brackets alone") << QStringLiteral("[]");
    QTest::newRow("colon alone") << QStringLiteral(":");
    QTest::newRow("Arabic digit") << QStringLiteral(u"E84[\u0663]");
    QTest::newRow("NUL at the end") << QString::fromUtf16(u"E84\0", 4);
    QTest::newRow("NUL in the element") << QString::fromUtf16(u"E84[3\0]", 7);
    QTest::newRow("lone high surrogate as axis") << QString(QChar(0xD800)) + QStringLiteral(".E84");
    QTest::newRow("lone low surrogate") << QStringLiteral("E84") + QChar(0xDC00);
    QTest::newRow("1 MB of digits") << QStringLiteral("E84[") + QString(1024 * 1024, u'1');
    QTest::newRow("1 MB of coordinate") << QString(1024 * 1024, u'E');
    QTest::newRow("1 MB after the address")
        << QStringLiteral("E84[3]:5") + QString(1024 * 1024, u' ');
}

void tst_ParameterAddress::refusesText()
{
    QFETCH(QString, text);
    QCOMPARE(ParameterAddress(text, true), ParameterAddress());
    QCOMPARE(ParameterAddress(text, false), ParameterAddress());
}

void tst_ParameterAddress::withoutAxisPrefixRefusesOne()
{
    QVERIFY(!ParameterAddress(QStringLiteral("1.E84"), false).isValid());
    QVERIFY(!ParameterAddress(QStringLiteral("1.E084[00003]"), false).isValid());
    const ParameterAddress address(QStringLiteral("E84[3]:5"), false);
    QCOMPARE(address.axis(), quint8(0));
    QCOMPARE(address.coordinate(), coordinate("E84"));
    QCOMPARE(address.element(), quint16(3));
    QCOMPARE(address.bit(), 5);
}

void tst_ParameterAddress::number_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("number");

    QTest::newRow("coordinate in the low 16 bits") << QStringLiteral("1.E84") << 5084U;
    QTest::newRow("element from bit 16") << QStringLiteral("1.E84[1]") << 70620U;
    QTest::newRow("axis from bit 30") << QStringLiteral("2.E84") << 1073746908U;
    QTest::newRow("smallest") << QStringLiteral("1.A00") << 1000U;
    QTest::newRow("largest") << QStringLiteral("4.Z999[16383]") << 4294928759U;
}

void tst_ParameterAddress::number()
{
    QFETCH(QString, text);
    QFETCH(quint32, number);

    const ParameterAddress address(text, true);
    QCOMPARE(address.toNumber(), number);
    QCOMPARE(ParameterAddress(number), address);

    ParameterAddress bitAddress = address;
    bitAddress.setBit(7);
    QCOMPARE(bitAddress.toNumber(), number);
}

void tst_ParameterAddress::refusesNumber_data()
{
    QTest::addColumn<quint32>("number");

    QTest::newRow("0") << 0U;
    QTest::newRow("below the first coordinate") << 999U;
    QTest::newRow("above the last coordinate") << 27000U;
    QTest::newRow("element of no coordinate") << 65536U;
    QTest::newRow("the invalid number") << 4294967295U;
}

void tst_ParameterAddress::refusesNumber()
{
    QFETCH(quint32, number);
    QCOMPARE(ParameterAddress(number), ParameterAddress());
    QCOMPARE(ParameterAddress(number).toNumber(), 4294967295U);
}

void tst_ParameterAddress::everyCoordinateReturnsFromNumber()
{
    for (quint16 number = 1000; number < 27000; ++number) {
        const ParameterAddress address(quint8(number % 4), ParameterCoordinate(number), 16383);
        QCOMPARE(ParameterAddress(address.toNumber()), address);
        QCOMPARE(ParameterAddress(address.toSortableText(), true), address);
        QCOMPARE(ParameterAddress(address.toTextLocalInstance(true), true), address);
    }
}

void tst_ParameterAddress::refusesParts_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<int>("coordinateNumber");
    QTest::addColumn<int>("element");
    QTest::addColumn<int>("bit");

    QTest::newRow("axis 4") << 4 << 5084 << 0 << -1;
    QTest::newRow("no coordinate") << 0 << 0 << 0 << -1;
    QTest::newRow("element 16384") << 0 << 5084 << 16384 << -1;
    QTest::newRow("bit 64") << 0 << 5084 << 0 << 64;
    QTest::newRow("bit -2") << 0 << 5084 << 0 << -2;
}

void tst_ParameterAddress::refusesParts()
{
    QFETCH(int, axis);
    QFETCH(int, coordinateNumber);
    QFETCH(int, element);
    QFETCH(int, bit);

    const ParameterCoordinate coordinate {quint16(coordinateNumber)};
    ParameterAddress address {quint8(axis), coordinate, quint16(element)};
    address.setBit(bit);
    QVERIFY(!address.isValid());
    QCOMPARE(address.toNumber(), 4294967295U);
    QCOMPARE(address.toTextLocalInstance(true), QString());
    QCOMPARE(address.toSortableText(), QString());
}

void tst_ParameterAddress::setters()
{
    ParameterAddress address;
    address.setAxis(1);
    QVERIFY(!address.isValid());
    address.setCoordinate(coordinate("E84"));
    QVERIFY(address.isValid());
    address.setElement(3);
    address.setBit(5);
    QCOMPARE(address.toTextLocalInstance(true), QStringLiteral("2.E84[3]:5"));
    address.setBit(ParameterAddress::NoBit);
    QCOMPARE(address.toTextLocalInstance(true), QStringLiteral("2.E84[3]"));
}

void tst_ParameterAddress::toText_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<bool>("withElement");
    QTest::addColumn<QString>("text");

    const QString source = QStringLiteral("2.E84[3]");
    QTest::newRow("global") << source << true << false << QStringLiteral("E84");
    QTest::newRow("global with element") << source << true << true << QStringLiteral("E84[3]");
    QTest::newRow("local") << source << false << false << QStringLiteral("2.E84");
    QTest::newRow("local with element") << source << false << true << QStringLiteral("2.E84[3]");
    QTest::newRow("element 0 is written")
        << QStringLiteral("E84") << true << true << QStringLiteral("E84[0]");
    QTest::newRow("largest") << QStringLiteral("4.Z999[16383]:63") << false << true
                             << QStringLiteral("4.Z999[16383]:63");
    QTest::newRow("bit without element")
        << QStringLiteral("2.E84[3]:5") << true << false << QStringLiteral("E84:5");
}

void tst_ParameterAddress::toText()
{
    QFETCH(QString, source);
    QFETCH(bool, isGlobal);
    QFETCH(bool, withElement);
    QFETCH(QString, text);

    const ParameterAddress address(source, true);
    QCOMPARE(address.toText(isGlobal, withElement), text);
    QCOMPARE(isGlobal ? address.toTextGlobalInstance(withElement)
                      : address.toTextLocalInstance(withElement),
        text);
}

void tst_ParameterAddress::ordersByAxisElementCoordinateBit()
{
    QList<ParameterAddress> addresses;
    const QStringList texts {QStringLiteral("2.A00"), QStringLiteral("1.A00[1]"),
        QStringLiteral("1.A00:2"), QStringLiteral("1.Z999"), QStringLiteral("1.A00:1"),
        QStringLiteral("1.A00")};
    for (const QString &text : texts)
        addresses.append(ParameterAddress(text, true));
    std::sort(addresses.begin(), addresses.end());

    QStringList sorted;
    for (const ParameterAddress &address : addresses)
        sorted.append(address.toTextLocalInstance(true));
    QCOMPARE(sorted,
        QStringList({QStringLiteral("1.A00[0]"), QStringLiteral("1.A00[0]:1"),
            QStringLiteral("1.A00[0]:2"), QStringLiteral("1.Z999[0]"), QStringLiteral("1.A00[1]"),
            QStringLiteral("2.A00[0]")}));
}

void tst_ParameterAddress::isHashable()
{
    QSet<ParameterAddress> addresses;
    addresses.insert(ParameterAddress(QStringLiteral("1.E84[3]"), true));
    addresses.insert(ParameterAddress(QStringLiteral("E084[003]"), true));
    addresses.insert(ParameterAddress(QStringLiteral("1.E84[3]:5"), true));
    QCOMPARE(addresses.size(), 2);
    QVERIFY(addresses.contains(ParameterAddress(0, coordinate("E84"), 3)));
}

void tst_ParameterAddress::isMetaType()
{
    const ParameterAddress address(QStringLiteral("2.E84[3]"), true);
    const QVariant variant = QVariant::fromValue(address);
    QCOMPARE(variant.value<ParameterAddress>(), address);
    QVERIFY(variant == QVariant::fromValue(ParameterAddress(1, coordinate("E84"), 3)));
    QCOMPARE(QMetaType::fromName("ParameterAddress"), QMetaType::fromType<ParameterAddress>());
}

QTEST_APPLESS_MAIN(tst_ParameterAddress)
#include "tst_ParameterAddress.moc"

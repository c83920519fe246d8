#include "apps/online/RegisterBytes.h"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QTest>

class tst_RegisterBytes : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void carriesValues_data();
    void carriesValues();
    void findsAValueBetweenOthers();
};

void tst_RegisterBytes::carriesValues_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("registers");

    const auto row = [](const char *name, const char *type, const char *bytes,
                         const char *registers) {
        QTest::newRow(name) << QString::fromLatin1(type) << QByteArray::fromHex(bytes)
                            << QByteArray::fromHex(registers);
    };
    row("one byte stands in the low half", "UINT8", "7f", "007f");
    row("a negative byte is not extended", "INT8", "ff", "00ff");
    row("two bytes fill a register", "INT16", "fffe", "fffe");
    row("of four bytes the high ones come first", "UINT32", "00011170", "00011170");
    row("of eight bytes the highest come first", "UINT64", "0102030405060708", "0102030405060708");
    row("a negative 64-bit number", "INT64", "fffffffffffffffe", "fffffffffffffffe");
    row("a 32-bit real", "REAL32", "3fc00000", "3fc00000");
    row("a 64-bit real", "REAL64", "3ff8000000000000", "3ff8000000000000");
    row("the first character stands in the high half", "STRING8", "4142430000000000",
        "4142430000000000");
    row("an odd string leaves the last low half free", "STRING255",
        QByteArray(QByteArray("41").repeated(255)).constData(),
        QByteArray(QByteArray("41").repeated(255) + "00").constData());
    row("bytes as they are", "BYTES4", "deadbeef", "deadbeef");
}

void tst_RegisterBytes::carriesValues()
{
    QFETCH(QString, type);
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, registers);

    const SimpleType *simpleType = DatatypeProvider::instance()->simpleType(type);
    QVERIFY(simpleType);
    QCOMPARE(qsizetype(RegisterBytes::registerCount(*simpleType)), registers.size() / 2);
    QCOMPARE(RegisterBytes::flat(RegisterBytes::fromBytes(bytes, *simpleType)), registers);
    QCOMPARE(RegisterBytes::valueAt(registers, 0, *simpleType), bytes);
}

void tst_RegisterBytes::findsAValueBetweenOthers()
{
    const QByteArray flat = RegisterBytes::flat({0x1111, 0x2222, 0x0033, 0x4444});
    QCOMPARE(RegisterBytes::valueAt(flat, 2, *DatatypeProvider::instance()->simpleType(5)),
        QByteArray("\x33"));
    QCOMPARE(RegisterBytes::valueAt(flat, 1, *DatatypeProvider::instance()->simpleType(7)),
        QByteArray("\x22\x22\x00\x33", 4));
}

QTEST_GUILESS_MAIN(tst_RegisterBytes)
#include "tst_RegisterBytes.moc"

#include <KrDatatype/DatatypeProvider.h>

#include <QtTest/QtTest>

class tst_DatatypeProvider : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void simpleType_data();
    void simpleType();
    void simpleTypesAreAscending();
    void everyOtherIdIsUnknown();
    void unknownShortName_data();
    void unknownShortName();
};

void tst_DatatypeProvider::simpleType_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint32>("size");
    QTest::addColumn<QString>("name");

    const auto row = [](const char *shortName, int id, int kind, quint32 size, const char *name) {
        QTest::newRow(shortName) << id << kind << size << QString::fromLatin1(name);
    };
    row("INT8", 1, 0, 1, "Signed 8 bit");
    row("INT16", 2, 0, 2, "Signed 16 bit");
    row("INT32", 3, 0, 4, "Signed 32 bit");
    row("INT64", 4, 0, 8, "Signed 64 bit");
    row("UINT8", 5, 1, 1, "Unsigned 8 bit");
    row("UINT16", 6, 1, 2, "Unsigned 16 bit");
    row("UINT32", 7, 1, 4, "Unsigned 32 bit");
    row("UINT64", 8, 1, 8, "Unsigned 64 bit");
    row("REAL32", 9, 2, 4, "Floating point 32 bit");
    row("REAL64", 10, 2, 8, "Floating point 64 bit");
    row("STRING8", 11, 3, 8, "Character string of 8 bytes");
    row("STRING16", 12, 3, 16, "Character string of 16 bytes");
    row("STRING32", 13, 3, 32, "Character string of 32 bytes");
    row("STRING64", 14, 3, 64, "Character string of 64 bytes");
    row("STRING128", 15, 3, 128, "Character string of 128 bytes");
    row("STRING255", 16, 3, 255, "Character string of 255 bytes");
    row("BYTES4", 17, 4, 4, "Byte string of 4 bytes");
    row("BYTES8", 18, 4, 8, "Byte string of 8 bytes");
    row("BYTES16", 19, 4, 16, "Byte string of 16 bytes");
    row("BYTES32", 20, 4, 32, "Byte string of 32 bytes");
    row("BYTES64", 21, 4, 64, "Byte string of 64 bytes");
    row("RAW", 31, 3, 255, "Unformatted character string");
}

void tst_DatatypeProvider::simpleType()
{
    QFETCH(int, id);
    QFETCH(int, kind);
    QFETCH(quint32, size);
    QFETCH(QString, name);
    const QString shortName = QString::fromLatin1(QTest::currentDataTag());

    const SimpleType *type = DatatypeProvider::instance()->simpleType(quint8(id));
    QVERIFY(type);
    QCOMPARE(int(type->id()), id);
    QCOMPARE(int(type->kind()), kind);
    QCOMPARE(type->sizeInBytes(), size);
    QCOMPARE(type->shortName(), shortName);
    QCOMPARE(type->name(), name);
    QCOMPARE(DatatypeProvider::instance()->simpleType(shortName), type);
}

void tst_DatatypeProvider::simpleTypesAreAscending()
{
    QList<int> ids;
    const QList<const SimpleType *> types = DatatypeProvider::instance()->simpleTypes();
    for (const SimpleType *type : types)
        ids.append(type->id());
    QCOMPARE(ids,
        QList<int>(
            {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 31}));
}

void tst_DatatypeProvider::everyOtherIdIsUnknown()
{
    QVERIFY(!DatatypeProvider::instance()->simpleType(quint8(0)));
    for (int id = 22; id <= 30; ++id)
        QVERIFY(!DatatypeProvider::instance()->simpleType(quint8(id)));
    for (int id = 32; id <= 255; ++id)
        QVERIFY(!DatatypeProvider::instance()->simpleType(quint8(id)));
}

void tst_DatatypeProvider::unknownShortName_data()
{
    QTest::addColumn<QString>("shortName");

    QTest::newRow("null") << QString();
    QTest::newRow("letter case differs") << QStringLiteral("uint16");
    QTest::newRow("long name") << QStringLiteral("Unsigned 16 bit");
    QTest::newRow("trailing blank") << QStringLiteral("UINT16 ");
    QTest::newRow("beginning of a name") << QStringLiteral("UINT");
    QTest::newRow("trailing NUL") << QString::fromUtf16(u"RAW\0", 4);
    QTest::newRow("lone surrogate") << QString(QChar(0xD800));
}

void tst_DatatypeProvider::unknownShortName()
{
    QFETCH(QString, shortName);
    QVERIFY(!DatatypeProvider::instance()->simpleType(shortName));
}

QTEST_APPLESS_MAIN(tst_DatatypeProvider)
#include "tst_DatatypeProvider.moc"

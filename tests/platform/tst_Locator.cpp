#include <KrLocator/Locator.h>

#include <QtTest/QtTest>

class tst_Locator : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isInvalidByDefault();
    void systemLocator_data();
    void systemLocator();
    void livingSpace_data();
    void livingSpace();
    void relative_data();
    void relative();
    void invalid_data();
    void invalid();
    void parseTextReplacesTheContent();
};

void tst_Locator::isInvalidByDefault()
{
    const Locator locator;
    QVERIFY(!locator.isValid());
    QVERIFY(!locator.isSystem());
    QVERIFY(!locator.hasLivingSpace());
    QVERIFY(!locator.isRelative());
    QCOMPARE(locator.livingSpace(), eLivingSpace::Global);
    QCOMPARE(locator.toText(), QString());
}

void tst_Locator::systemLocator_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("path");

    QTest::newRow("parameter") << QStringLiteral("S;{P12}") << QStringLiteral("{P12}");
    QTest::newRow("empty path") << QStringLiteral("S;") << QString();
    QTest::newRow("path with separators") << QStringLiteral("S;a;b;") << QStringLiteral("a;b;");
}

void tst_Locator::systemLocator()
{
    QFETCH(QString, text);
    QFETCH(QString, path);

    const Locator locator(text);
    QVERIFY(locator.isValid());
    QVERIFY(locator.isSystem());
    QVERIFY(!locator.hasLivingSpace());
    QVERIFY(!locator.isRelative());
    QCOMPARE(locator.livingSpace(), eLivingSpace::Global);
    QCOMPARE(locator.anchor(), QStringLiteral("S"));
    QCOMPARE(locator.path(), path);
    QCOMPARE(locator.toText(), text);
}

void tst_Locator::livingSpace_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("livingSpace");
    QTest::addColumn<QString>("anchor");
    QTest::addColumn<QString>("path");

    const auto row = [](const char *name, const char *text, int livingSpace, const char *anchor,
                         const char *path) {
        QTest::newRow(name) << QString::fromLatin1(text) << livingSpace
                            << QString::fromLatin1(anchor) << QString::fromLatin1(path);
    };
    row("living space 0", "Drive.0;{P12}", 0, "Drive.0", "{P12}");
    row("living space 1", "Drive.1;{P12}", 1, "Drive.1", "{P12}");
    row("living space 4", "Drive.4;{P12}", 4, "Drive.4", "{P12}");
    row("empty path", "A.2;", 2, "A.2", "");
    row("path with separators", "A.2;x;y", 2, "A.2", "x;y");
    row("several points", "A.7.3;x", 3, "A.7.3", "x");
    row("nothing before the point", ".1;x", 1, ".1", "x");
    row("point before the point", "A..3;x", 3, "A..3", "x");
    row("anchor that begins with S", "S.1;x", 1, "S.1", "x");
}

void tst_Locator::livingSpace()
{
    QFETCH(QString, text);
    QFETCH(int, livingSpace);
    QFETCH(QString, anchor);
    QFETCH(QString, path);

    const Locator locator(text);
    QVERIFY(locator.isValid());
    QVERIFY(locator.hasLivingSpace());
    QVERIFY(!locator.isSystem());
    QVERIFY(!locator.isRelative());
    QCOMPARE(int(locator.livingSpace()), livingSpace);
    QCOMPARE(locator.anchor(), anchor);
    QCOMPARE(locator.path(), path);
    QCOMPARE(locator.toText(), text);
}

void tst_Locator::relative_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("plain anchor") << QStringLiteral("Drive;{P12}");
    QTest::newRow("living space 5") << QStringLiteral("A.5;x");
    QTest::newRow("living space 9") << QStringLiteral("A.9;x");
    QTest::newRow("two digits") << QStringLiteral("A.12;x");
    QTest::newRow("leading zero") << QStringLiteral("A.01;x");
    QTest::newRow("digit without point") << QStringLiteral("A1;x");
    QTest::newRow("digit alone") << QStringLiteral("1;x");
    QTest::newRow("point without digit") << QStringLiteral("A.;x");
    QTest::newRow("blank after the digit") << QStringLiteral("A.1 ;x");
    QTest::newRow("blank before the digit") << QStringLiteral("A. 1;x");
    QTest::newRow("Arabic digit") << QStringLiteral(u"A.\u0661;x");
    QTest::newRow("NUL after the digit") << QString::fromUtf16(u"A.1\0;x", 6);
    QTest::newRow("lower case s") << QStringLiteral("s;x");
    QTest::newRow("longer than S") << QStringLiteral("SX;x");
    QTest::newRow("blank after S") << QStringLiteral("S ;x");
    QTest::newRow("empty anchor") << QStringLiteral(";x");
    QTest::newRow("separator alone") << QStringLiteral(";");
    QTest::newRow("living space in the path alone") << QStringLiteral("A;B.1;x");
    QTest::newRow("lone surrogate") << QString(QChar(0xD800)) + QStringLiteral(";x");
    QTest::newRow("1 MB of anchor") << QString(1024 * 1024, u'S') + u';';
}

void tst_Locator::relative()
{
    QFETCH(QString, text);

    const Locator locator(text);
    QVERIFY(locator.isValid());
    QVERIFY(locator.isRelative());
    QVERIFY(!locator.isSystem());
    QVERIFY(!locator.hasLivingSpace());
    QCOMPARE(locator.livingSpace(), eLivingSpace::Global);
    QCOMPARE(locator.toText(), text);
}

void tst_Locator::invalid_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("S without separator") << QStringLiteral("S");
    QTest::newRow("living space without separator") << QStringLiteral("Drive.1");
    QTest::newRow("blank") << QStringLiteral(" ");
    QTest::newRow("1 MB without separator") << QString(1024 * 1024, u'S');
}

void tst_Locator::invalid()
{
    QFETCH(QString, text);

    const Locator locator(text);
    QVERIFY(!locator.isValid());
    QVERIFY(!locator.isRelative());
    QCOMPARE(locator.anchor(), QString());
    QCOMPARE(locator.path(), QString());
    QCOMPARE(locator.toText(), QString());
}

void tst_Locator::parseTextReplacesTheContent()
{
    Locator locator;
    QVERIFY(locator.parseText(QStringLiteral("A.2;x")));
    QCOMPARE(locator.livingSpace(), eLivingSpace::Axis2);
    QVERIFY(locator.parseText(QStringLiteral("S;y")));
    QVERIFY(locator.isSystem());
    QCOMPARE(locator.livingSpace(), eLivingSpace::Global);
    QVERIFY(!locator.parseText(QString()));
    QVERIFY(!locator.isValid());
    QCOMPARE(locator.anchor(), QString());
    QCOMPARE(locator.path(), QString());
}

QTEST_APPLESS_MAIN(tst_Locator)
#include "tst_Locator.moc"

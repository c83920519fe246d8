#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QSet>
#include <QtCore/QVariant>
#include <QtTest/QtTest>

#include <algorithm>

class tst_ParameterCoordinate : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isInvalidByDefault();
    void readsText_data();
    void readsText();
    void refusesText_data();
    void refusesText();
    void refusesNumber_data();
    void refusesNumber();
    void refusesGroupAndLine_data();
    void refusesGroupAndLine();
    void everyCoordinateReturnsFromNumberAndTexts();
    void isMoveable_data();
    void isMoveable();
    void ordersByGroupThenLine();
    void isHashable();
    void isMetaType();
};

void tst_ParameterCoordinate::isInvalidByDefault()
{
    const ParameterCoordinate coordinate;
    QVERIFY(!coordinate.isValid());
    QCOMPARE(coordinate.toNumber(), quint16(0));
    QCOMPARE(coordinate.toText(), QString());
    QCOMPARE(coordinate.toSortableText(), QString());
    QVERIFY(!coordinate.isMoveable());
}

void tst_ParameterCoordinate::readsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint16>("group");
    QTest::addColumn<quint16>("line");
    QTest::addColumn<quint16>("number");
    QTest::addColumn<QString>("written");
    QTest::addColumn<QString>("sortable");

    const auto row = [](const char *name, const char *text, int group, int line, int number,
                         const char *written, const char *sortable) {
        QTest::newRow(name) << QString::fromLatin1(text) << quint16(group) << quint16(line)
                            << quint16(number) << QString::fromLatin1(written)
                            << QString::fromLatin1(sortable);
    };
    row("first", "A00", 1, 0, 1000, "A00", "A000");
    row("last", "Z999", 26, 999, 26999, "Z999", "Z999");
    row("two digits", "E84", 5, 84, 5084, "E84", "E084");
    row("three digits", "G245", 7, 245, 7245, "G245", "G245");
    row("one digit", "E1", 5, 1, 5001, "E01", "E001");
    row("one digit zero", "E0", 5, 0, 5000, "E00", "E000");
    row("three zeros", "E000", 5, 0, 5000, "E00", "E000");
    row("sortable text", "E084", 5, 84, 5084, "E84", "E084");
    row("99 has two digits", "E99", 5, 99, 5099, "E99", "E099");
    row("100 has three digits", "E100", 5, 100, 5100, "E100", "E100");
    row("moveable group", "Q17", 17, 17, 17017, "Q17", "Q017");
}

void tst_ParameterCoordinate::readsText()
{
    QFETCH(QString, text);
    QFETCH(quint16, group);
    QFETCH(quint16, line);
    QFETCH(quint16, number);
    QFETCH(QString, written);
    QFETCH(QString, sortable);

    const ParameterCoordinate coordinate(text);
    QVERIFY(coordinate.isValid());
    QCOMPARE(coordinate.group(), group);
    QCOMPARE(coordinate.line(), line);
    QCOMPARE(coordinate.toNumber(), number);
    QCOMPARE(coordinate.toText(), written);
    QCOMPARE(coordinate.toSortableText(), sortable);
    QCOMPARE(ParameterCoordinate(group, line), coordinate);
    QCOMPARE(ParameterCoordinate(number), coordinate);
    QCOMPARE(ParameterCoordinate(QStringView(text)), coordinate);
}

void tst_ParameterCoordinate::refusesText_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("null") << QString();
    QTest::newRow("empty") << QStringLiteral("");
    QTest::newRow("letter alone") << QStringLiteral("E");
    QTest::newRow("digits alone") << QStringLiteral("84");
    QTest::newRow("lower case") << QStringLiteral("a00");
    QTest::newRow("before A") << QStringLiteral("@00");
    QTest::newRow("after Z") << QStringLiteral("[00");
    QTest::newRow("line 1000") << QStringLiteral("E1000");
    QTest::newRow("four digits") << QStringLiteral("E0084");
    QTest::newRow("trailing blank") << QStringLiteral("E84 ");
    QTest::newRow("leading blank") << QStringLiteral(" E84");
    QTest::newRow("inner blank") << QStringLiteral("E 84");
    QTest::newRow("line end") << QStringLiteral("E84\n");
    QTest::newRow("sign") << QStringLiteral("E+1");
    QTest::newRow("negative") << QStringLiteral("E-1");
    QTest::newRow("two letters") << QStringLiteral("EE1");
    QTest::newRow("hexadecimal") << QStringLiteral("E0A");
    QTest::newRow("element") << QStringLiteral("E1[");
    QTest::newRow("character before 0") << QStringLiteral("E8/");
    QTest::newRow("character after 9") << QStringLiteral("E8:");
    QTest::newRow("umlaut letter") << QStringLiteral(u"\u00C484");
    QTest::newRow("full-width letter") << QStringLiteral(u"\uFF2584");
    QTest::newRow("Arabic digits") << QStringLiteral(u"E\u0668\u0664");
    QTest::newRow("NUL inside") << QString::fromUtf16(u"E8\0", 3);
    QTest::newRow("NUL first") << QString::fromUtf16(u"\0E8", 3);
    QTest::newRow("lone high surrogate") << QString(QChar(0xD800)) + QStringLiteral("84");
    QTest::newRow("lone low surrogate") << QStringLiteral("E8") + QChar(0xDC00);
    QTest::newRow("1 MB") << QStringLiteral("E84") + QString(1024 * 1024, u'0');
}

void tst_ParameterCoordinate::refusesText()
{
    QFETCH(QString, text);
    QCOMPARE(ParameterCoordinate(text), ParameterCoordinate());
}

void tst_ParameterCoordinate::refusesNumber_data()
{
    QTest::addColumn<quint16>("number");

    QTest::newRow("0") << quint16(0);
    QTest::newRow("below group 1") << quint16(999);
    QTest::newRow("above group 26") << quint16(27000);
    QTest::newRow("largest number") << quint16(65535);
}

void tst_ParameterCoordinate::refusesNumber()
{
    QFETCH(quint16, number);
    QCOMPARE(ParameterCoordinate(number), ParameterCoordinate());
}

void tst_ParameterCoordinate::refusesGroupAndLine_data()
{
    QTest::addColumn<quint16>("group");
    QTest::addColumn<quint16>("line");

    QTest::newRow("group 0") << quint16(0) << quint16(84);
    QTest::newRow("group 27") << quint16(27) << quint16(0);
    QTest::newRow("line 1000") << quint16(1) << quint16(1000);
    QTest::newRow("group that wraps to group 1") << quint16(32769) << quint16(0);
    QTest::newRow("largest group") << quint16(65535) << quint16(0);
    QTest::newRow("largest line") << quint16(1) << quint16(65535);
}

void tst_ParameterCoordinate::refusesGroupAndLine()
{
    QFETCH(quint16, group);
    QFETCH(quint16, line);
    QCOMPARE(ParameterCoordinate(group, line), ParameterCoordinate());
}

void tst_ParameterCoordinate::everyCoordinateReturnsFromNumberAndTexts()
{
    int count = 0;
    for (quint16 group = 1; group <= 26; ++group) {
        for (quint16 line = 0; line <= 999; ++line) {
            const ParameterCoordinate coordinate(group, line);
            QVERIFY(coordinate.isValid());
            QCOMPARE(coordinate.toNumber(), quint16(group * 1000 + line));
            QCOMPARE(ParameterCoordinate(coordinate.toNumber()), coordinate);
            QCOMPARE(ParameterCoordinate(coordinate.toText()), coordinate);
            QCOMPARE(ParameterCoordinate(coordinate.toSortableText()), coordinate);
            QCOMPARE(coordinate.toSortableText().size(), 4);
            ++count;
        }
    }
    QCOMPARE(count, 26000);
}

void tst_ParameterCoordinate::isMoveable_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("moveable");

    QTest::newRow("group 16") << QStringLiteral("P999") << false;
    QTest::newRow("group 17, first line") << QStringLiteral("Q00") << true;
    QTest::newRow("group 17, last line") << QStringLiteral("Q999") << true;
    QTest::newRow("group 18") << QStringLiteral("R00") << false;
}

void tst_ParameterCoordinate::isMoveable()
{
    QFETCH(QString, text);
    QFETCH(bool, moveable);
    QCOMPARE(ParameterCoordinate(text).isMoveable(), moveable);
}

void tst_ParameterCoordinate::ordersByGroupThenLine()
{
    QList<ParameterCoordinate> coordinates;
    const QStringList texts {QStringLiteral("B00"), QStringLiteral("A999"), QStringLiteral("Z01"),
        QStringLiteral("A100"), QStringLiteral("A99"), QString()};
    for (const QString &text : texts)
        coordinates.append(ParameterCoordinate(text));
    std::sort(coordinates.begin(), coordinates.end());

    QStringList sorted;
    for (const ParameterCoordinate &coordinate : coordinates)
        sorted.append(coordinate.toText());
    QCOMPARE(sorted,
        QStringList({QString(), QStringLiteral("A99"), QStringLiteral("A100"),
            QStringLiteral("A999"), QStringLiteral("B00"), QStringLiteral("Z01")}));
}

void tst_ParameterCoordinate::isHashable()
{
    QSet<ParameterCoordinate> coordinates;
    coordinates.insert(ParameterCoordinate(QStringLiteral("E84")));
    coordinates.insert(ParameterCoordinate(QStringLiteral("E084")));
    coordinates.insert(ParameterCoordinate(QStringLiteral("E85")));
    QCOMPARE(coordinates.size(), 2);
    QVERIFY(coordinates.contains(ParameterCoordinate(quint16(5084))));
}

void tst_ParameterCoordinate::isMetaType()
{
    const QVariant variant = QVariant::fromValue(ParameterCoordinate(QStringLiteral("E84")));
    QCOMPARE(variant.value<ParameterCoordinate>().toText(), QStringLiteral("E84"));
    QVERIFY(variant == QVariant::fromValue(ParameterCoordinate(quint16(5), quint16(84))));
    QCOMPARE(
        QMetaType::fromName("ParameterCoordinate"), QMetaType::fromType<ParameterCoordinate>());
}

QTEST_APPLESS_MAIN(tst_ParameterCoordinate)
#include "tst_ParameterCoordinate.moc"

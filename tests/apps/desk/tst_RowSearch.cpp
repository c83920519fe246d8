#include "apps/krparameter-desk/RowSearch.h"

#include <QtCore/QStringList>
#include <QtTest/QTest>

class tst_RowSearch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void find_data();
    void find();
    void typing();
    void replace();
    void clear();
};

namespace {

/// Rows as the table gives them: address, name, unit and value, one a line.
RowSearch rows()
{
    RowSearch search;
    search.append(QStringLiteral("1.B01\nStrom\nA\n4.200"));
    search.append(QStringLiteral("2.B01\nStrom\nA\n5.000"));
    search.append(QStringLiteral("E30[1]\nÜbersetzung · Zähler\n\n1"));
    return search;
}

QString found(RowSearch &search, const QString &pattern)
{
    QString result;
    for (const bool isFound : search.find(pattern))
        result += QLatin1Char(isFound ? '1' : '0');
    return result;
}

} // namespace

void tst_RowSearch::find_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::newRow("an empty pattern finds every row") << QString() << QStringLiteral("111");
    QTest::newRow("address") << QStringLiteral("2.B01") << QStringLiteral("010");
    QTest::newRow("address in lower case") << QStringLiteral("2.b01") << QStringLiteral("010");
    QTest::newRow("name") << QStringLiteral("strom") << QStringLiteral("110");
    QTest::newRow("name with umlaut in other case")
        << QStringLiteral("über") << QStringLiteral("001");
    QTest::newRow("value") << QStringLiteral("4.2") << QStringLiteral("100");
    QTest::newRow("every word, in any order")
        << QStringLiteral("5.0 strom") << QStringLiteral("010");
    QTest::newRow("blanks around are no words")
        << QStringLiteral("  zähler ") << QStringLiteral("001");
    QTest::newRow("blanks alone find every row") << QStringLiteral("  ") << QStringLiteral("111");
    QTest::newRow("a word does not reach over two columns")
        << QStringLiteral("stroma") << QStringLiteral("000");
    QTest::newRow("signs stand for themselves") << QStringLiteral("[1]") << QStringLiteral("001");
}

void tst_RowSearch::find()
{
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    RowSearch search = rows();
    QCOMPARE(found(search, pattern), expected);
}

/// Every step as if it were the first, forth and back.
void tst_RowSearch::typing()
{
    RowSearch search = rows();
    QCOMPARE(found(search, QStringLiteral("s")), QStringLiteral("111"));
    QCOMPARE(found(search, QStringLiteral("st")), QStringLiteral("110"));
    QCOMPARE(found(search, QStringLiteral("st 5")), QStringLiteral("010"));
    QCOMPARE(found(search, QStringLiteral("st")), QStringLiteral("110"));
    QCOMPARE(found(search, QStringLiteral("e30")), QStringLiteral("001"));
    QCOMPARE(found(search, QString()), QStringLiteral("111"));
}

void tst_RowSearch::replace()
{
    RowSearch search = rows();
    QCOMPARE(found(search, QStringLiteral("9")), QStringLiteral("000"));
    search.replace(2, QStringLiteral("E30[1]\nFaktor\n\n9"));
    QCOMPARE(found(search, QStringLiteral("9")), QStringLiteral("001"));
    QCOMPARE(found(search, QStringLiteral("9x")), QStringLiteral("000"));
}

void tst_RowSearch::clear()
{
    RowSearch search = rows();
    QVERIFY(search.size() > 0);
    QCOMPARE(found(search, QStringLiteral("strom")), QStringLiteral("110"));
    search.clear();
    QCOMPARE(search.size(), 0);
    QCOMPARE(found(search, QStringLiteral("strom")), QString());
    search.append(QStringLiteral("Strom"));
    QCOMPARE(found(search, QStringLiteral("strom")), QStringLiteral("1"));
}

QTEST_GUILESS_MAIN(tst_RowSearch)
#include "tst_RowSearch.moc"

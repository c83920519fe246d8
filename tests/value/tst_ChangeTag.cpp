#include "value/ChangeTag.h"

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

/// A tag reads back as it was given, however many others were made before.
class tst_ChangeTag : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void text_data();
    void text();
    void emptyTag();
    void tagsInTurn();
    void isAPointer();
};

void tst_ChangeTag::text_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<QByteArray>("latin1");

    QTest::newRow("letters") << u"da_2026"_s << QByteArray("da_2026");
    QTest::newRow("umlaut") << u"geändert"_s << QByteArray("ge\xE4ndert");
    QTest::newRow("NUL within") << u"a\0b"_s << QByteArray("a\0b", 3);
    QTest::newRow("blank") << u" "_s << QByteArray(" ");
}

void tst_ChangeTag::text()
{
    QFETCH(QString, given);
    QFETCH(QByteArray, latin1);
    QCOMPARE(ChangeTag(given).text(), given);
    QCOMPARE(ChangeTag(QLatin1StringView(latin1)).text(), given);
    QVERIFY(!ChangeTag(given).isEmpty());
    QVERIFY(!ChangeTag(QLatin1StringView(latin1)).isEmpty());
}

void tst_ChangeTag::emptyTag()
{
    for (const ChangeTag &tag :
        {ChangeTag(), ChangeTag(QString()), ChangeTag(u""_s), ChangeTag(QLatin1StringView())}) {
        QVERIFY(tag.isEmpty());
        QCOMPARE(tag.text(), QString());
    }
}

void tst_ChangeTag::tagsInTurn()
{
    const ChangeTag first(u"a"_s);
    const ChangeTag second(QLatin1StringView("b"));
    const ChangeTag third(u"a"_s);
    const ChangeTag fourth(QLatin1StringView("a"));
    QCOMPARE(first.text(), u"a"_s);
    QCOMPARE(second.text(), u"b"_s);
    QCOMPARE(third.text(), u"a"_s);
    QCOMPARE(fourth.text(), u"a"_s);
}

void tst_ChangeTag::isAPointer()
{
    QCOMPARE(sizeof(ChangeTag), sizeof(void *));
}

QTEST_APPLESS_MAIN(tst_ChangeTag)
#include "tst_ChangeTag.moc"

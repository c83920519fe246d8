#include "value/ElementStore.h"

#include <QtTest/QTest>

using namespace Qt::StringLiterals;

class tst_ElementStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithOneElement();
    void growsToThePosition();
    void reserve();
    void tags();
    void emptyTexts();
};

void tst_ElementStore::startsWithOneElement()
{
    const ElementStore store;
    QCOMPARE(store.size(), size_t(1));
    QVERIFY(store.find(0));
    QVERIFY(store.find(0)->value.isNull());
    QVERIFY(!store.find(1));
    QVERIFY(!store.find(size_t(-1)));
}

void tst_ElementStore::growsToThePosition()
{
    ElementStore store;
    store.at(0).value = u"null"_s;
    store.at(3).value = u"drei"_s;
    QCOMPARE(store.size(), size_t(4));
    store.at(1).value = u"eins"_s;
    QCOMPARE(store.size(), size_t(4));
    QCOMPARE(store.find(0)->value, u"null"_s);
    QCOMPARE(store.find(1)->value, u"eins"_s);
    QVERIFY(store.find(2)->value.isNull());
    QCOMPARE(store.find(3)->value, u"drei"_s);
    QVERIFY(!store.find(4));
}

void tst_ElementStore::reserve()
{
    ElementStore store;
    store.reserve(0);
    store.reserve(1);
    QCOMPARE(store.size(), size_t(1));
    store.reserve(3);
    QCOMPARE(store.size(), size_t(3));
    store.reserve(2);
    QCOMPARE(store.size(), size_t(3));
}

void tst_ElementStore::tags()
{
    ElementStore store;
    QVERIFY(store.at(0).valueTag.isEmpty());
    QCOMPARE(ChangeTag().text(), QString());
    QVERIFY(ChangeTag(QString()).isEmpty());
    QVERIFY(ChangeTag(u""_s).isEmpty());
    store.at(0).valueTag = ChangeTag(u"a"_s);
    store.at(1).valueTag = ChangeTag(u"a"_s);
    store.at(2).valueTag = ChangeTag(u"b"_s);
    QCOMPARE(store.at(0).valueTag.text(), u"a"_s);
    QCOMPARE(store.at(1).valueTag.text(), u"a"_s);
    QCOMPARE(store.at(2).valueTag.text(), u"b"_s);
    store.at(0).valueTag = ChangeTag();
    QCOMPARE(store.at(0).valueTag.text(), QString());
    QCOMPARE(store.at(1).valueTag.text(), u"a"_s);
}

void tst_ElementStore::emptyTexts()
{
    QVERIFY(ElementTexts().isEmpty());
    ElementTexts texts;
    texts.isHiddenKnown = true;
    QVERIFY(texts.isEmpty());
    // A stored empty text is one.
    texts.value = u""_s;
    QVERIFY(!texts.isEmpty());
    texts = {};
    texts.defaultValue = u""_s;
    QVERIFY(!texts.isEmpty());
    texts = {};
    texts.valueTag = ChangeTag(u"t"_s);
    QVERIFY(!texts.isEmpty());
    texts = {};
    texts.defaultTag = ChangeTag(u"t"_s);
    QVERIFY(!texts.isEmpty());
}

QTEST_GUILESS_MAIN(tst_ElementStore)

#include "tst_ElementStore.moc"

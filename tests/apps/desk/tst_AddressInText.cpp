#include "apps/krparameter-desk/AddressInText.h"

#include <QtTest/QTest>

class tst_AddressInText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void find_data();
    void find();
};

void tst_AddressInText::find_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sortable");
    const QString none;
    QTest::newRow("a rejection, in German")
        << QStringLiteral("Parameter 2.B01: Fehler beim Übernehmen des Werts")
        << QStringLiteral("2.B001[00000]");
    QTest::newRow("a global parameter is on axis 0")
        << QStringLiteral("Parameter E84: x") << QStringLiteral("1.E084[00000]");
    QTest::newRow("with element") << QStringLiteral("E30[2] Faktor · Nenner")
                                  << QStringLiteral("1.E030[00002]");
    QTest::newRow("the title of a row")
        << QStringLiteral("1.H00 Current limit") << QStringLiteral("1.H000[00000]");
    QTest::newRow("in brackets and at the end")
        << QStringLiteral("one is missing (A20).") << QStringLiteral("1.A020[00000]");
    QTest::newRow("the first of several")
        << QStringLiteral("2 Parameter fehlen: B01, C02") << QStringLiteral("1.B001[00000]");
    QTest::newRow("a key of a section")
        << QStringLiteral("1 Schlüssel nicht verstanden: H000/Foo, B01/V_9_0")
        << QStringLiteral("1.H000[00000]");
    QTest::newRow("the folder of a path is none")
        << QStringLiteral("/plants/H000/Parameter.ini ist kein Projekt") << none;
    QTest::newRow("no address") << QStringLiteral("gespeichert und zurückgelesen") << none;
    QTest::newRow("lower case is a word") << QStringLiteral("e84") << none;
    QTest::newRow("an empty text") << none << none;
    QTest::newRow("signs alone") << QStringLiteral(" ( ) : ") << none;
}

void tst_AddressInText::find()
{
    QFETCH(QString, text);
    QFETCH(QString, sortable);
    QCOMPARE(AddressInText::find(text).toSortableText(), sortable);
}

QTEST_GUILESS_MAIN(tst_AddressInText)
#include "tst_AddressInText.moc"

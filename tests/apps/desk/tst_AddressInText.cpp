#include "apps/krparameter-desk/AddressInText.h"

#include <QtTest/QTest>

class tst_AddressInText : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ofTitle_data();
    void ofTitle();
    void ofMessage_data();
    void ofMessage();
    void asksOnlyForAddresses();
};

void tst_AddressInText::ofTitle_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("sortable");
    const QString none;
    QTest::newRow("a value") << QStringLiteral("1.H00 Current limit")
                             << QStringLiteral("1.H000[00000]");
    QTest::newRow("with element") << QStringLiteral("E30[2] Faktor · Nenner")
                                  << QStringLiteral("1.E030[00002]");
    QTest::newRow("without name") << QStringLiteral("E84") << QStringLiteral("1.E084[00000]");
    QTest::newRow("a name that bears another one") << QStringLiteral("Stecker M12") << none;
    QTest::newRow("an empty text") << none << none;
}

void tst_AddressInText::ofTitle()
{
    QFETCH(QString, title);
    QFETCH(QString, sortable);
    QCOMPARE(AddressInText::ofTitle(title).toSortableText(), sortable);
}

void tst_AddressInText::ofMessage_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("sortable");
    const QString none;
    QTest::newRow("a rejection, in German")
        << QStringLiteral("Parameter 2.B01: Fehler beim Übernehmen des Werts")
        << QStringLiteral("2.B001[00000]");
    QTest::newRow("a global parameter is on axis 0")
        << QStringLiteral("Parameter E84: x") << QStringLiteral("1.E084[00000]");
    QTest::newRow("what became of a value")
        << QStringLiteral("2.B01: abgelehnt - der Antrieb nimmt diesen Wert nicht an")
        << QStringLiteral("2.B001[00000]");
    QTest::newRow("in brackets and at the end")
        << QStringLiteral("one is missing (A20).") << QStringLiteral("1.A020[00000]");
    QTest::newRow("the first of several")
        << QStringLiteral("2 Parameter fehlen: B01, C02") << QStringLiteral("1.B001[00000]");
    QTest::newRow("a key of a section")
        << QStringLiteral("1 Schlüssel nicht verstanden: H000/Foo, B01/V_9_0")
        << QStringLiteral("1.H000[00000]");
    QTest::newRow("the first one that is known")
        << QStringLiteral("Stecker M12 fehlt an B01") << QStringLiteral("1.B001[00000]");
    QTest::newRow("none that is known") << QStringLiteral("Stecker M12 fehlt") << none;
    QTest::newRow("none of a list that is known") << QStringLiteral(
        "1 Abschnitte übersprungen, das Gerät hat diese Parameter nicht: X099, X98")
                                                  << QStringLiteral("1.X099[00000]");
    QTest::newRow("one of a list that is known")
        << QStringLiteral("übersprungen: X099, B01") << QStringLiteral("1.B001[00000]");
    QTest::newRow("no list") << QStringLiteral("Stecker: keiner") << none;
    QTest::newRow("also an unknown one that it is about")
        << QStringLiteral("Parameter X99: ersetzt durch B01") << QStringLiteral("1.X099[00000]");
    QTest::newRow("also without its kind")
        << QStringLiteral("X99: ersetzt durch B01") << QStringLiteral("1.X099[00000]");
    QTest::newRow("behind a known one that it is about")
        << QStringLiteral("Parameter 1.B01: kleiner als A20") << QStringLiteral("1.B001[00000]");
    QTest::newRow("a quoted value is none")
        << QStringLiteral("Wert \"A20\" gilt nicht für B01") << QStringLiteral("1.B001[00000]");
    QTest::newRow("nor is a quoted text that holds one")
        << QStringLiteral("\"vor A20 gelöscht\" ist kein Name") << none;
    QTest::newRow("a mark that nothing closes quotes nothing")
        << QStringLiteral("3.5\" an A20") << QStringLiteral("1.A020[00000]");
    QTest::newRow("the folder of a path is none")
        << QStringLiteral("/plants/H000/Parameter.ini ist kein Projekt") << none;
    QTest::newRow("no address") << QStringLiteral("gespeichert und zurückgelesen") << none;
    QTest::newRow("lower case is a word") << QStringLiteral("e84") << none;
    QTest::newRow("an empty text") << none << none;
    QTest::newRow("signs alone") << QStringLiteral(" ( ) : ") << none;
    QTest::newRow("its kind alone") << QStringLiteral("Parameter") << none;
}

void tst_AddressInText::ofMessage()
{
    QFETCH(QString, text);
    QFETCH(QString, sortable);
    const auto isKnown = [](const ParameterAddress &address) {
        static const QStringList known {QStringLiteral("A20"), QStringLiteral("B01"),
            QStringLiteral("E84"), QStringLiteral("H00")};
        return known.contains(address.coordinate().toText());
    };
    QCOMPARE(AddressInText::ofMessage(text, isKnown).toSortableText(), sortable);
}

void tst_AddressInText::asksOnlyForAddresses()
{
    QStringList asked;
    const auto isKnown = [&asked](const ParameterAddress &address) {
        asked.append(address.toSortableText());
        return false;
    };
    QVERIFY(!AddressInText::ofMessage(QStringLiteral("eins M12 \"B01\" 2.C03, e84"), isKnown)
                 .isValid());
    QCOMPARE(
        asked, (QStringList {QStringLiteral("1.M012[00000]"), QStringLiteral("2.C003[00000]")}));
}

QTEST_GUILESS_MAIN(tst_AddressInText)
#include "tst_AddressInText.moc"

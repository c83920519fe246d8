#include "FixedFilterElement.h"

#include <KrFilter/TextFilterConstraint.h>

#include <QtTest/QtTest>

class tst_TextFilterConstraint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void testElement_data();
    void testElement();
    void asksItsProperty();
};

void tst_TextFilterConstraint::testElement_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("accepted");

    const auto row = [](const char *name, int method, const char *wanted, const char *text,
                         bool accepted) {
        QTest::newRow(name) << method << QString::fromLatin1(wanted) << QString::fromLatin1(text)
                            << accepted;
    };
    row("contains inside", 0, "rom", "Strom", true);
    row("contains the whole", 0, "Strom", "Strom", true);
    row("contains regards letter case", 0, "ROM", "Strom", false);
    row("contains takes no pattern", 0, "S.r", "Strom", false);
    row("every text contains the empty one", 0, "", "Strom", true);
    row("begins with", 1, "Str", "Strom", true);
    row("begins with the whole", 1, "Strom", "Strom", true);
    row("begins with regards the place", 1, "rom", "Strom", false);
    row("begins with regards letter case", 1, "str", "Strom", false);
    row("begins with more than the text", 1, "Stromgrenze", "Strom", false);
    row("expression in part", 2, "r.m", "Strom", true);
    row("expression with anchors", 2, "^S.*m$", "Strom", true);
    row("expression elsewhere", 2, "^rom", "Strom", false);
    row("expression regards letter case", 2, "STROM", "Strom", false);
    row("empty expression", 2, "", "Strom", true);
    row("invalid expression", 2, "(", "(", false);
    row("another invalid expression", 2, "[a", "[a", false);
    row("equals", 3, "Strom", "Strom", true);
    row("equals regards letter case", 3, "strom", "Strom", false);
    row("equals regards the rest", 3, "Stro", "Strom", false);
    row("equals nothing", 3, "", "", true);
    row("unknown method", 4, "Strom", "Strom", false);
}

void tst_TextFilterConstraint::testElement()
{
    QFETCH(int, method);
    QFETCH(QString, wanted);
    QFETCH(QString, text);
    QFETCH(bool, accepted);

    const auto known = TextFilterConstraint::eMethod(method);
    const FixedFilterElement element(text);
    const TextFilterConstraint plain(QStringLiteral("Asked"), known, wanted);
    QVERIFY(!plain.isInverted());
    QCOMPARE(plain.testElement(element), accepted);
    QCOMPARE(plain.testElement(element), accepted);

    const TextFilterConstraint inverted(QStringLiteral("Asked"), known, wanted, true);
    QVERIFY(inverted.isInverted());
    QCOMPARE(inverted.testElement(element), !accepted);
}

void tst_TextFilterConstraint::asksItsProperty()
{
    const FixedFilterElement element(QStringLiteral("Strom"));
    const TextFilterConstraint other(
        QStringLiteral("Other"), TextFilterConstraint::Contains, QStringLiteral("Strom"));
    QCOMPARE(other.propertyName(), QStringLiteral("Other"));
    QVERIFY(!other.testElement(element));
}

QTEST_APPLESS_MAIN(tst_TextFilterConstraint)
#include "tst_TextFilterConstraint.moc"

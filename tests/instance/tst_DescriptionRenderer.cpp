#include "instance/DescriptionRenderer.h"

#include <QtTest/QTest>

class tst_DescriptionRenderer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isInline_data();
    void isInline();
    void html_data();
    void html();
    void referenceKey_data();
    void referenceKey();
};

void tst_DescriptionRenderer::isInline_data()
{
    QTest::addColumn<QString>("coordinate");
    QTest::addColumn<bool>("expected");

    QTest::newRow("group A") << QStringLiteral("A00") << false;
    QTest::newRow("group O") << QStringLiteral("O999") << false;
    QTest::newRow("group P") << QStringLiteral("P00") << true;
    QTest::newRow("group Q") << QStringLiteral("Q999") << true;
    QTest::newRow("group R") << QStringLiteral("R00") << false;
    QTest::newRow("no coordinate") << QString() << false;
}

void tst_DescriptionRenderer::isInline()
{
    QFETCH(QString, coordinate);
    QFETCH(bool, expected);
    QCOMPARE(DescriptionRenderer::isInline(ParameterCoordinate(coordinate)), expected);
}

void tst_DescriptionRenderer::html_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const QString start = QStringLiteral(
        "<body style=\"font-family:Segoe UI, Arial, Helvetica, "
        "Swiss;font-weight:normal;padding:0;\"><p style=\"margin-top:0px; margin-bottom:0px; "
        "font-size:10pt;\"><b>P07 | ");
    const QString middle = QStringLiteral(
        "</b></p><p style=\"margin-top:0px; margin-bottom:20px; font-size:10pt;\"><hr></p>");
    QTest::newRow("name and text")
        << QStringLiteral("Rampe") << QStringLiteral("Die Rampe.")
        << start + QStringLiteral("Rampe") + middle + QStringLiteral("Die Rampe.</body>");
    QTest::newRow("empty name and text")
        << QString() << QString() << start + middle + QStringLiteral("</body>");
    QTest::newRow("the text stands as it is")
        << QStringLiteral("a<b") << QStringLiteral("<b>x</b> & y")
        << start + QStringLiteral("a<b") + middle + QStringLiteral("<b>x</b> & y</body>");
    QTest::newRow("place holders stay")
        << QStringLiteral("%2") << QStringLiteral("%1 %3")
        << start + QStringLiteral("%2") + middle + QStringLiteral("%1 %3</body>");
}

void tst_DescriptionRenderer::html()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, expected);
    QCOMPARE(DescriptionRenderer::html(ParameterCoordinate(QStringLiteral("P07")), name, text),
        expected);
}

void tst_DescriptionRenderer::referenceKey_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("reference");
    QTest::addColumn<quint32>("version");
    QTest::addColumn<QString>("expected");

    QTest::newRow("all parts") << QStringLiteral("A12[3]") << QStringLiteral("77") << 5U
                               << QStringLiteral("A12[3]_77_5");
    QTest::newRow("no reference") << QStringLiteral("A12") << QString() << 0U
                                  << QStringLiteral("A12__0");
    QTest::newRow("greatest version") << QStringLiteral("A12") << QStringLiteral("1") << 4294967295U
                                      << QStringLiteral("A12_1_4294967295");
    QTest::newRow("place holders stay")
        << QStringLiteral("%2") << QStringLiteral("%3") << 1U << QStringLiteral("%2_%3_1");
}

void tst_DescriptionRenderer::referenceKey()
{
    QFETCH(QString, address);
    QFETCH(QString, reference);
    QFETCH(quint32, version);
    QFETCH(QString, expected);
    QCOMPARE(DescriptionRenderer::referenceKey(address, reference, version), expected);
}

QTEST_GUILESS_MAIN(tst_DescriptionRenderer)

#include "tst_DescriptionRenderer.moc"

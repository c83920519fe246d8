#include "value/RejectionReport.h"

#include <QtTest/QtTest>

class tst_RejectionReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void problemText_data();
    void problemText();
    void rejectionMessage_data();
    void rejectionMessage();
    void preparingMessage();
    void placeholdersInTextsAreText();
};

void tst_RejectionReport::problemText_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("0 has none") << 0U << QString();
    QTest::newRow("1") << 1U << QStringLiteral("Wert \"7 A\" ist ungültig");
    QTest::newRow("2") << 2U << QStringLiteral("Wert \"7 A\" ist zu klein");
    QTest::newRow("3") << 3U << QStringLiteral("Wert \"7 A\" ist zu groß");
    QTest::newRow("4 is invalid") << 4U << QStringLiteral("Wert \"7 A\" ist ungültig");
    QTest::newRow("7 is invalid") << 7U << QStringLiteral("Wert \"7 A\" ist ungültig");
    QTest::newRow("greatest is invalid")
        << 4294967295U << QStringLiteral("Wert \"7 A\" ist ungültig");
}

void tst_RejectionReport::problemText()
{
    QFETCH(quint32, code);
    QTEST(RejectionReport::problemText(QStringLiteral("7 A"), code), "text");
}

void tst_RejectionReport::rejectionMessage_data()
{
    QTest::addColumn<quint32>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("1") << 1U
                       << QStringLiteral("Parameter 1.E12[3]: Fehler beim Übernehmen des Werts - "
                                         "Wert \"7 A\" ist ungültig");
    QTest::newRow("2") << 2U
                       << QStringLiteral("Parameter 1.E12[3]: Fehler beim Übernehmen des Werts - "
                                         "Wert \"7 A\" ist zu klein");
    QTest::newRow("3") << 3U
                       << QStringLiteral("Parameter 1.E12[3]: Fehler beim Übernehmen des Werts - "
                                         "Wert \"7 A\" ist zu groß");
}

void tst_RejectionReport::rejectionMessage()
{
    QFETCH(quint32, code);
    QTEST(
        RejectionReport::rejectionMessage(QStringLiteral("1.E12[3]"), QStringLiteral("7 A"), code),
        "text");
}

void tst_RejectionReport::preparingMessage()
{
    QCOMPARE(RejectionReport::preparingMessage(QStringLiteral("E12"), QStringLiteral("x")),
        QStringLiteral("Parameter E12: Fehler beim Vorbereiten des Werts - x"));
}

void tst_RejectionReport::placeholdersInTextsAreText()
{
    QCOMPARE(RejectionReport::rejectionMessage(QStringLiteral("%2"), QStringLiteral("%1 %2"), 2),
        QStringLiteral("Parameter %2: Fehler beim Übernehmen des Werts - "
                       "Wert \"%1 %2\" ist zu klein"));
}

QTEST_APPLESS_MAIN(tst_RejectionReport)
#include "tst_RejectionReport.moc"

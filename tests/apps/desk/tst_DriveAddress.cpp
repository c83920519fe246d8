#include "apps/krparameter-desk/DriveAddress.h"

#include <QtTest/QTest>

class tst_DriveAddress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void read_data();
    void read();
    void refused_data();
    void refused();
};

void tst_DriveAddress::read_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("host");
    QTest::addColumn<int>("port");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, const char *text, const char *host, int port,
                         const char *shown) {
        QTest::newRow(name) << QString::fromLatin1(text) << QString::fromLatin1(host) << port
                            << QString::fromLatin1(shown);
    };
    row("a number", "10.0.0.7:1502", "10.0.0.7", 1502, "10.0.0.7:1502");
    row("the standard port", "10.0.0.7", "10.0.0.7", 502, "10.0.0.7:502");
    row("a name", "drive-7.plant:503", "drive-7.plant", 503, "drive-7.plant:503");
    row("blanks around", " drive7 ", "drive7", 502, "drive7:502");
    row("six bytes and more", "[::1]:1502", "::1", 1502, "[::1]:1502");
    row("without port", "[fe80::1]", "fe80::1", 502, "[fe80::1]:502");
    row("the smallest port", "a:1", "a", 1, "a:1");
    row("the greatest port", "a:65535", "a", 65535, "a:65535");
}

void tst_DriveAddress::read()
{
    QFETCH(QString, text);
    QFETCH(QString, host);
    QFETCH(int, port);
    QFETCH(QString, shown);

    const auto address = DriveAddress::of(text);
    QVERIFY(address);
    QCOMPARE(address->host, host);
    QCOMPARE(int(address->port), port);
    QCOMPARE(address->toText(), shown);
    QVERIFY(*DriveAddress::of(shown) == *address);
}

void tst_DriveAddress::refused_data()
{
    QTest::addColumn<QString>("text");

    constexpr const char *Texts[] = {"", " ", ":502", "a:", "a:0", "a:65536", "a:100000", "a:-1",
        "a:x", "a b", "::1", "[::1", "[]:502", "[drive]:502", "a:502:502", "http://a"};
    for (const char *text : Texts)
        QTest::addRow("\"%s\"", text) << QString::fromLatin1(text);
}

void tst_DriveAddress::refused()
{
    QFETCH(QString, text);

    QVERIFY(!DriveAddress::of(text));
}

QTEST_APPLESS_MAIN(tst_DriveAddress)
#include "tst_DriveAddress.moc"

#include "value/AddressForm.h"

#include <QtTest/QtTest>

class tst_AddressForm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void addressOf();
    void addressOfRefuses_data();
    void addressOfRefuses();
    void show();
    void read_data();
    void read();
};

void tst_AddressForm::addressOf()
{
    // Axis 1, element 3, group E (5), line 12.
    const std::optional<ParameterAddress> address =
        AddressForm::addressOf(QStringLiteral("1073943444"));
    QVERIFY(address);
    QCOMPARE(address->toTextLocalInstance(true), QStringLiteral("2.E12[3]"));
}

void tst_AddressForm::addressOfRefuses_data()
{
    QTest::addColumn<QString>("value");
    QTest::newRow("0") << QStringLiteral("0");
    QTest::newRow("the invalid number") << QStringLiteral("4294967295");
    QTest::newRow("beyond 32 bits") << QStringLiteral("4294967296");
    QTest::newRow("a number without coordinate") << QStringLiteral("65535");
    QTest::newRow("negative") << QStringLiteral("-1");
    QTest::newRow("no number") << QStringLiteral("E12");
    QTest::newRow("empty") << QString();
}

void tst_AddressForm::addressOfRefuses()
{
    QFETCH(QString, value);
    QVERIFY(!AddressForm::addressOf(value));
}

void tst_AddressForm::show()
{
    QCOMPARE(AddressForm::show(QStringLiteral("2.E12[3]"), QStringLiteral("Motorstrom")),
        QStringLiteral("2.E12[3] Motorstrom"));
}

void tst_AddressForm::read_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("value");
    QTest::newRow("number") << QStringLiteral("1073943444") << QStringLiteral("1073943444");
    QTest::newRow("number with outer blanks") << QStringLiteral(" 5012 ") << QStringLiteral("5012");
    QTest::newRow("address text") << QStringLiteral("2.E12[3]") << QStringLiteral("1073943444");
    QTest::newRow("address text without axis") << QStringLiteral("E12") << QStringLiteral("5012");
    QTest::newRow("address text with name")
        << QStringLiteral("2.E12[3] Motor strom") << QStringLiteral("1073943444");
    QTest::newRow("a bit is unchanged") << QStringLiteral("E12:3") << QStringLiteral("E12:3");
    QTest::newRow("no address is unchanged") << QStringLiteral(" abc ") << QStringLiteral(" abc ");
    QTest::newRow("empty") << QString() << QString();
}

void tst_AddressForm::read()
{
    QFETCH(QString, typed);
    QTEST(AddressForm::read(typed), "value");
}

QTEST_APPLESS_MAIN(tst_AddressForm)
#include "tst_AddressForm.moc"

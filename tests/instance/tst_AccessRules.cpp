#include "instance/AccessRules.h"

#include <QtTest/QTest>

class tst_AccessRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isWritable_data();
    void isWritable();
    void isVisible_data();
    void isVisible();
    void masked_data();
    void masked();
};

void tst_AccessRules::isWritable_data()
{
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<bool>("isRecordWritable");
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<int>("writeLevel");
    QTest::addColumn<int>("kind");
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<bool>("expected");

    QTest::newRow("plain value of the lowest level")
        << false << true << false << 0 << 0 << 0U << true;
    QTest::newRow("read-only container") << true << true << false << 0 << 0 << 6U << false;
    QTest::newRow("read-only container online") << true << true << true << 0 << 2 << 6U << false;
    QTest::newRow("record not writable") << false << false << true << 0 << 0 << 6U << false;
    QTest::newRow("level one below the user's") << false << true << false << 2 << 0 << 3U << true;
    QTest::newRow("level equal to the user's") << false << true << false << 3 << 0 << 3U << true;
    QTest::newRow("level one above the user's") << false << true << false << 4 << 0 << 3U << false;
    QTest::newRow("greatest level above any user")
        << false << true << false << 2147483647 << 0 << 2147483646U << false;
    QTest::newRow("user level beyond the signed range")
        << false << true << false << 2147483647 << 0 << 4294967295U << true;
    QTest::newRow("kind 1 offline") << false << true << false << 0 << 1 << 0U << true;
    QTest::newRow("kind 2 offline") << false << true << false << 0 << 2 << 6U << false;
    QTest::newRow("kind 2 online") << false << true << true << 0 << 2 << 0U << true;
    QTest::newRow("kind 2 online, level too high")
        << false << true << true << 1 << 2 << 0U << false;
    QTest::newRow("kind 3 offline") << false << true << false << 0 << 3 << 0U << true;
    QTest::newRow("kind 0 online") << false << true << true << 0 << 0 << 0U << true;
}

void tst_AccessRules::isWritable()
{
    QFETCH(bool, isReadOnly);
    QFETCH(bool, isRecordWritable);
    QFETCH(bool, isOnline);
    QFETCH(int, writeLevel);
    QFETCH(int, kind);
    QFETCH(quint32, userLevel);
    QFETCH(bool, expected);

    QCOMPARE(AccessRules::isWritable({.isReadOnly = isReadOnly,
                 .isRecordWritable = isRecordWritable,
                 .isOnline = isOnline,
                 .writeLevel = writeLevel,
                 .kind = kind,
                 .userLevel = userLevel}),
        expected);
}

void tst_AccessRules::isVisible_data()
{
    QTest::addColumn<bool>("isHidden");
    QTest::addColumn<quint32>("readLevel");
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<bool>("expected");

    QTest::newRow("level below the user's") << false << 2U << 3U << true;
    QTest::newRow("level equal to the user's") << false << 3U << 3U << true;
    QTest::newRow("level above the user's") << false << 4U << 3U << false;
    QTest::newRow("hidden, level suffices") << true << 0U << 6U << false;
    QTest::newRow("hidden, level does not suffice") << true << 6U << 0U << false;
}

void tst_AccessRules::isVisible()
{
    QFETCH(bool, isHidden);
    QFETCH(quint32, readLevel);
    QFETCH(quint32, userLevel);
    QFETCH(bool, expected);

    QCOMPARE(AccessRules::isVisible(isHidden, readLevel, userLevel), expected);
}

void tst_AccessRules::masked_data()
{
    QTest::addColumn<bool>("isOnline");
    QTest::addColumn<bool>("isReadOnly");
    QTest::addColumn<bool>("isShownOffline");
    QTest::addColumn<int>("writeLevel");
    QTest::addColumn<quint32>("userLevel");
    QTest::addColumn<QString>("expected");

    const QString shown = QStringLiteral("12 mA");
    const QString hidden = QStringLiteral("<offline>");
    const QString bracketed = QStringLiteral("<offline> (12 mA)");
    QTest::newRow("level 5 is shown") << false << false << false << 5 << 0U << shown;
    QTest::newRow("level 6 is masked") << false << false << false << 6 << 0U << hidden;
    QTest::newRow("level 7 is masked") << false << false << false << 7 << 0U << hidden;
    QTest::newRow("user of level 4") << false << false << false << 6 << 4U << hidden;
    QTest::newRow("user of level 5 sees it in brackets")
        << false << false << false << 6 << 5U << bracketed;
    QTest::newRow("user of level 6") << false << false << false << 6 << 6U << hidden;
    QTest::newRow("online") << true << false << false << 6 << 0U << shown;
    QTest::newRow("read-only") << false << true << false << 6 << 0U << shown;
    QTest::newRow("declared as shown offline") << false << false << true << 6 << 0U << shown;
}

void tst_AccessRules::masked()
{
    QFETCH(bool, isOnline);
    QFETCH(bool, isReadOnly);
    QFETCH(bool, isShownOffline);
    QFETCH(int, writeLevel);
    QFETCH(quint32, userLevel);
    QFETCH(QString, expected);

    QCOMPARE(AccessRules::masked(QStringLiteral("12 mA"),
                 {.isOnline = isOnline,
                     .isReadOnly = isReadOnly,
                     .isShownOffline = isShownOffline,
                     .writeLevel = writeLevel,
                     .userLevel = userLevel}),
        expected);
}

QTEST_GUILESS_MAIN(tst_AccessRules)

#include "tst_AccessRules.moc"

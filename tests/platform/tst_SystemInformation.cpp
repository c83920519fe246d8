#include <KrSystem/System.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QtTest>

class tst_SystemInformation : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startsWithTheOperator();
    void setUserAccessLevel_data();
    void setUserAccessLevel();
    void anEqualLevelIsSilent();
};

void tst_SystemInformation::startsWithTheOperator()
{
    QCOMPARE(System::information()->userAccessLevel(), 0U);
    QCOMPARE(System::information(), System::information());
}

void tst_SystemInformation::setUserAccessLevel_data()
{
    QTest::addColumn<quint32>("level");

    QTest::newRow("maker") << 6U;
    QTest::newRow("above the maker") << 7U;
    QTest::newRow("largest") << 4294967295U;
    QTest::newRow("operator") << 0U;
}

void tst_SystemInformation::setUserAccessLevel()
{
    QFETCH(quint32, level);

    QSignalSpy changes(System::information(), &SystemInformation::userAccessLevelParameterChanged);
    System::information()->setUserAccessLevel(level);
    QCOMPARE(System::information()->userAccessLevel(), level);
    QCOMPARE(changes.count(), 1);
}

void tst_SystemInformation::anEqualLevelIsSilent()
{
    System::information()->setUserAccessLevel(3);
    QSignalSpy changes(System::information(), &SystemInformation::userAccessLevelParameterChanged);
    System::information()->setUserAccessLevel(3);
    QCOMPARE(changes.count(), 0);
}

QTEST_GUILESS_MAIN(tst_SystemInformation)
#include "tst_SystemInformation.moc"

#include "apps/krparameter-desk/ValueOrigin.h"

#include <QtTest/QTest>

class tst_ValueOrigin : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isForeignToFolder_data();
    void isForeignToFolder();
    void namesBothDrives();
};

/// "A" and "B" are read from drives, "save" and "forget" are what the desk does.
void tst_ValueOrigin::isForeignToFolder_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<bool>("expected");
    QTest::newRow("at first") << QString() << false;
    QTest::newRow("saved without drive") << QStringLiteral("save") << false;
    QTest::newRow("a drive that the folder does not know") << QStringLiteral("A") << true;
    QTest::newRow("the folder's drive") << QStringLiteral("A save A") << false;
    QTest::newRow("another drive than the folder's") << QStringLiteral("A save B") << true;
    QTest::newRow("the folder's drive again") << QStringLiteral("A save B A") << false;
    QTest::newRow("another drive was saved over it") << QStringLiteral("A save B save") << false;
    QTest::newRow("a project was loaded") << QStringLiteral("A save B forget") << false;
    QTest::newRow("a project was loaded before") << QStringLiteral("A save forget A") << true;
}

void tst_ValueOrigin::isForeignToFolder()
{
    QFETCH(QString, steps);
    QFETCH(bool, expected);
    ValueOrigin origin;
    for (const QString &step : steps.split(u' ', Qt::SkipEmptyParts)) {
        if (step == QLatin1String("save"))
            origin.saved();
        else if (step == QLatin1String("forget"))
            origin.forget();
        else
            origin.readFrom(step);
    }
    QCOMPARE(origin.isForeignToFolder(), expected);
}

void tst_ValueOrigin::namesBothDrives()
{
    ValueOrigin origin;
    QCOMPARE(origin.drive(), QString());
    origin.readFrom(QStringLiteral("A"));
    QCOMPARE(origin.drive(), QStringLiteral("A"));
    QCOMPARE(origin.folderDrive(), QString());
    origin.saved();
    origin.readFrom(QStringLiteral("B"));
    QCOMPARE(origin.drive(), QStringLiteral("B"));
    QCOMPARE(origin.folderDrive(), QStringLiteral("A"));
    origin.forget();
    QCOMPARE(origin.drive(), QString());
    QCOMPARE(origin.folderDrive(), QString());
}

QTEST_GUILESS_MAIN(tst_ValueOrigin)
#include "tst_ValueOrigin.moc"

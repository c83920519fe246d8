#include <KrProjectRepository/HardwareRepository.h>

#include <QtTest/QtTest>

class tst_HardwareRepository : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The families stay for the process, so the slots build on one another.
    void knowsNoFamilyAtStart();
    void registersFamilies();
    void knowsARegisteredFamilyAgain();
    void refusesAContradiction();
};

void tst_HardwareRepository::knowsNoFamilyAtStart()
{
    QVERIFY(HardwareRepository::instance().deviceFamilies().isEmpty());
    QVERIFY(!HardwareRepository::instance().deviceFamily(0));
    QVERIFY(!HardwareRepository::instance().deviceFamily(4294967295U));
}

void tst_HardwareRepository::registersFamilies()
{
    HardwareRepository *repository = &HardwareRepository::instance();
    QVERIFY(repository->registerDeviceFamily({4294967295U, QStringLiteral("Last"), false}));
    QVERIFY(repository->registerDeviceFamily({7, QStringLiteral("Seven"), true}));

    const DeviceFamilyInformation *seven = repository->deviceFamily(7);
    QVERIFY(seven);
    QCOMPARE(seven->identifier(), 7U);
    QCOMPARE(seven->name(), QStringLiteral("Seven"));
    QVERIFY(seven->hasPhysicalAxes());
    QVERIFY(!repository->deviceFamily(4294967295U)->hasPhysicalAxes());
    QVERIFY(!repository->deviceFamily(8));

    const QList<const DeviceFamilyInformation *> families = repository->deviceFamilies();
    QCOMPARE(families.size(), 2);
    QCOMPARE(families.at(0), seven);
    QCOMPARE(families.at(1)->identifier(), 4294967295U);
}

void tst_HardwareRepository::knowsARegisteredFamilyAgain()
{
    HardwareRepository *repository = &HardwareRepository::instance();
    const DeviceFamilyInformation *seven = repository->deviceFamily(7);
    QVERIFY(repository->registerDeviceFamily({7, QStringLiteral("Seven"), true}));
    QCOMPARE(repository->deviceFamily(7), seven);
    QCOMPARE(repository->deviceFamilies().size(), 2);
}

void tst_HardwareRepository::refusesAContradiction()
{
    HardwareRepository *repository = &HardwareRepository::instance();
    QVERIFY(!repository->registerDeviceFamily({7, QStringLiteral("Seven"), false}));
    QVERIFY(repository->deviceFamily(7)->hasPhysicalAxes());
    QVERIFY(!repository->registerDeviceFamily({7, QStringLiteral("Renamed"), true}));
    QCOMPARE(repository->deviceFamily(7)->name(), QStringLiteral("Seven"));
    QCOMPARE(repository->deviceFamilies().size(), 2);
}

QTEST_APPLESS_MAIN(tst_HardwareRepository)
#include "tst_HardwareRepository.moc"

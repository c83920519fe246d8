#include "value/LifeGuard.h"

#include <QtTest/QTest>

#include <optional>

/// Guards tell of the end of their own object alone, however many stand and fall.
class tst_LifeGuard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void holdsWhileNothingDied();
    void tellsOfItsObjectAlone();
    void earlierDeathIsAnothers();
    void innerGuardsKeepNotedDeaths();
    void startsAnewWhenNoneStands();
    void tellsOfTheObjectAmongMany();
};

void tst_LifeGuard::holdsWhileNothingDied()
{
    const int object = 0;
    const LifeGuard guard(&object);
    QVERIFY(guard);
    QCOMPARE(guard.object(), static_cast<const void *>(&object));
}

void tst_LifeGuard::tellsOfItsObjectAlone()
{
    const int first = 0;
    const int second = 0;
    const LifeGuard guardOfFirst(&first);
    const LifeGuard guardOfSecond(&second);
    LifeGuard::died(&second);
    QVERIFY(guardOfFirst);
    QVERIFY(!guardOfSecond);
    LifeGuard::died(&first);
    QVERIFY(!guardOfFirst);
}

// A new object may stand where one died before the guard.
void tst_LifeGuard::earlierDeathIsAnothers()
{
    const int place = 0;
    const LifeGuard older(&place);
    LifeGuard::died(&place);
    const LifeGuard younger(&place);
    QVERIFY(!older);
    QVERIFY(younger);
    LifeGuard::died(&place);
    QVERIFY(!younger);
}

void tst_LifeGuard::innerGuardsKeepNotedDeaths()
{
    const int object = 0;
    const LifeGuard outer(&object);
    {
        const LifeGuard inner(&object);
        LifeGuard::died(&object);
        QVERIFY(!inner);
    }
    QVERIFY(!outer);
}

void tst_LifeGuard::startsAnewWhenNoneStands()
{
    const int object = 0;
    {
        const LifeGuard guard(&object);
        LifeGuard::died(&object);
    }
    // Nobody watches: not noted.
    LifeGuard::died(&object);
    const LifeGuard guard(&object);
    QVERIFY(guard);
}

void tst_LifeGuard::tellsOfTheObjectAmongMany()
{
    const std::vector<int> objects(1000);
    const LifeGuard last(&objects.back());
    std::optional<LifeGuard> middle;
    for (std::size_t i = 0; i + 1 < objects.size(); ++i) {
        if (i == 500)
            middle.emplace(&objects[499]);
        LifeGuard::died(&objects[i]);
    }
    QVERIFY(last);
    QVERIFY(*middle);
    LifeGuard::died(&objects.back());
    QVERIFY(!last);
    QVERIFY(*middle);
}

QTEST_GUILESS_MAIN(tst_LifeGuard)
#include "tst_LifeGuard.moc"

#include "apps/host/DriveProject.h"
#include "apps/host/Progress.h"
#include "apps/host/ValuePlace.h"
#include "tests/apps/SmallDevice.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QTest>

namespace {

class Steps final : public Progress {
public:
    explicit Steps(qsizetype last)
        : m_last(last)
    {
    }

    bool advance(qsizetype done, qsizetype total) override
    {
        steps.append({done, total});
        return done < m_last;
    }

    QList<std::pair<qsizetype, qsizetype>> steps;

private:
    qsizetype m_last;
};

} // namespace

class tst_DriveProject : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void createsEveryParameterOnEveryAxis();
    void namesValuesByAddress();
    void namesTheFileThatCannotBeRead();
    void stopsWhereItIsCancelled();
    void freshHasDefaults();
};

void tst_DriveProject::createsEveryParameterOnEveryAxis()
{
    const SmallDevice device;
    const auto project = device.open();
    QVERIFY(project);
    ParameterContainer &container = project->container();
    QCOMPARE(container.parameterList().size(), 3);
    QCOMPARE(container.parameterInformation(at("A20"))->livingSpaces(),
        QList<eLivingSpace> {eLivingSpace::Global});
    QCOMPARE(container.parameterInformation(at("B01"))->livingSpaces(),
        (QList<eLivingSpace> {eLivingSpace::Axis1, eLivingSpace::Axis2}));
    QVERIFY(container.queryParameterInstance(QStringLiteral("Drive.1;{P1}")));
    QVERIFY(!container.queryParameterInstance(QStringLiteral("Drive.2;{P1}")));
    QVERIFY(container.queryParameterInstance(QStringLiteral("Drive.2;{P2}")));
    QCOMPARE(container.domain(), QStringLiteral("Small drive"));
    QCOMPARE(container.deviceFamilyIdentifier(), 77u);
}

void tst_DriveProject::namesValuesByAddress()
{
    const SmallDevice device;
    const auto project = device.open();
    QStringList addresses;
    for (const ValuePlace &place : ValuePlace::allOf(project->container()))
        addresses.append(
            place.addressText(*project->container().parameterInformation(place.coordinate)));
    QCOMPARE(addresses.join(u' '), QStringLiteral("A20 1.B01 2.B01 E30[1] E30[2]"));
}

void tst_DriveProject::namesTheFileThatCannotBeRead()
{
    QString error;
    QVERIFY(!DriveProject::open(QStringLiteral("/nowhere/none.json"), error));
    QVERIFY2(error.startsWith(QLatin1String("/nowhere/none.json: ")), qPrintable(error));
}

void tst_DriveProject::stopsWhereItIsCancelled()
{
    const SmallDevice device;
    QString error;
    Steps all(4);
    QVERIFY(DriveProject::open(device.fileName(), error, &all));
    QCOMPARE(all.steps, (QList<std::pair<qsizetype, qsizetype>> {{0, 3}, {1, 3}, {2, 3}, {3, 3}}));
    Steps one(1);
    QVERIFY(!DriveProject::open(device.fileName(), error, &one));
    QCOMPARE(one.steps.size(), 2);
    QCOMPARE(error, QStringLiteral("abgebrochen"));
}

void tst_DriveProject::freshHasDefaults()
{
    const SmallDevice device;
    const auto project = device.open();
    project->container().writeValueNative(
        eLivingSpace::Axis1, at("B01"), 0, QStringLiteral("5000"));
    const auto fresh = project->fresh();
    QCOMPARE(fresh->container().readValueNative(eLivingSpace::Axis1, at("B01"), 0, false),
        QStringLiteral("4200"));
}

QTEST_GUILESS_MAIN(tst_DriveProject)
#include "tst_DriveProject.moc"

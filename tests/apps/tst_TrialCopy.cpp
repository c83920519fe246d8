#include "apps/host/TrialCopy.h"
#include "tests/apps/SmallDevice.h"

#include <KrSystem/System.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_TrialCopy : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsNativeTexts();
    void saysWhatWouldBeStored();
    void leavesEverythingAsItWas();
};

namespace {

const ValuePlace Current {at("B01"), eLivingSpace::Axis2, 0};

} // namespace

void tst_TrialCopy::showsNativeTexts()
{
    const SmallDevice device;
    const auto project = device.open();
    TrialCopy trial(*project);
    QCOMPARE(trial.displayText(Current, QStringLiteral("40000")), QStringLiteral("40.000 A"));
    QCOMPARE(
        trial.displayText({at("X99"), eLivingSpace::Axis1, 0}, QStringLiteral("1")), QString());
}

void tst_TrialCopy::saysWhatWouldBeStored()
{
    const SmallDevice device;
    const auto project = device.open();
    TrialCopy trial(*project);
    QCOMPARE(trial.nativeText(Current, QStringLiteral("4.200 A")), QStringLiteral("4200"));
    QCOMPARE(trial.nativeText(Current, QStringLiteral("5")), QStringLiteral("5000"));
    QCOMPARE(trial.nativeText(Current, QStringLiteral("41")), std::nullopt);
    QCOMPARE(trial.nativeText(Current, QStringLiteral("x")), std::nullopt);
}

void tst_TrialCopy::leavesEverythingAsItWas()
{
    const SmallDevice device;
    const auto project = device.open();
    const QSignalSpy messages(System::instance(), &System::messageAdded);
    TrialCopy trial(*project);
    QVERIFY(!trial.nativeText(Current, QStringLiteral("41")));
    QVERIFY(trial.nativeText(Current, QStringLiteral("5")));
    QCOMPARE(trial.displayText(Current, QStringLiteral("4200")), QStringLiteral("4.200 A"));
    QCOMPARE(messages.count(), 0);
    QCOMPARE(project->container().readValueNative(eLivingSpace::Axis2, at("B01"), 0, false),
        QStringLiteral("4200"));
}

QTEST_GUILESS_MAIN(tst_TrialCopy)
#include "tst_TrialCopy.moc"

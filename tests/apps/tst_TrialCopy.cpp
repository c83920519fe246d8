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
    void putsBackWhatFunctionsChanged();
    void putsBackWhatWasFollowed();
};

namespace {

const ValuePlace Current {at("B01"), eLivingSpace::Axis2, 0};
const ValuePlace Source {at("K01"), eLivingSpace::Global, 0};
const ValuePlace Double {at("K02"), eLivingSpace::Global, 0};
const ValuePlace LimitedByDouble {at("K03"), eLivingSpace::Global, 0};
const ValuePlace Corrected {at("K04"), eLivingSpace::Global, 0};
const ValuePlace LimitedByCorrected {at("K05"), eLivingSpace::Global, 0};

/// A write of K01 sets K02 to its double, and a write of K02 adds 1 to K01. K02 limits K03. K04 is
/// corrected to 50 at most and limits K05.
constexpr char FollowingDescription[] = R"json({
  "format": "kr-device-description", "version": 1,
  "family": {"identifier": 80, "name": "Following drive", "hasPhysicalAxes": true, "axes": [1]},
  "languages": ["de"],
  "dataTypes": ["UINT16"],
  "functions": {
    "postWrite": {
      "1": "writeValueNative(0, 'K02', 0, 2 * readValueNative(0, 'K01'))",
      "2": "if parameter.value > 50 then writeValueNative(0, 'K04', 0, 50) end",
      "3": "writeValueNative(0, 'K01', 0, 1 + readValueNative(0, 'K01'))"},
    "limit": {"1": "return 0, readValueNative(0, 'K02')", "2": "return 0, readValueNative(0, 'K04')"}
  },
  "profiles": {"number": {"dataType": "UINT16", "kind": 0, "levels": {"read": 0, "write": 2}}},
  "parameters": [
    {"number": 1, "coordinates": ["K01"], "name": "a", "global": true,
     "elements": [{"profile": "number", "default": 10, "dependencies": {"postWrite": 1},
                   "functions": {"postWrite": 3}}]},
    {"number": 2, "coordinates": ["K02"], "name": "b", "global": true,
     "elements": [{"profile": "number", "default": 7, "dependencies": {"postWrite": 3},
                   "functions": {"postWrite": 1}}]},
    {"number": 3, "coordinates": ["K03"], "name": "c", "global": true,
     "elements": [{"profile": "number", "default": 5, "functions": {"limit": 1}}]},
    {"number": 4, "coordinates": ["K04"], "name": "d", "global": true,
     "elements": [{"profile": "number", "default": 6, "dependencies": {"postWrite": 2},
                   "functions": {"postWrite": 2}}]},
    {"number": 5, "coordinates": ["K05"], "name": "e", "global": true,
     "elements": [{"profile": "number", "default": 5, "functions": {"limit": 2}}]}
  ]
})json";

std::unique_ptr<DriveProject> followingProject()
{
    const QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("following.json"));
    QFile file(name);
    if (file.open(QIODevice::WriteOnly))
        file.write(FollowingDescription);
    file.close();
    QString error;
    return DriveProject::open(name, error);
}

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

void tst_TrialCopy::putsBackWhatFunctionsChanged()
{
    const auto project = followingProject();
    QVERIFY(project);
    TrialCopy trial(*project);
    const auto isAsItWas = [&trial] {
        return trial.nativeText(LimitedByDouble, QStringLiteral("7")) == QStringLiteral("7")
            && !trial.nativeText(LimitedByDouble, QStringLiteral("8"));
    };
    QVERIFY(isAsItWas());
    QVERIFY(trial.nativeText(Source, QStringLiteral("30")));
    QVERIFY(isAsItWas());
    QCOMPARE(trial.displayText(Source, QStringLiteral("40")).isEmpty(), false);
    QVERIFY(isAsItWas());
    QCOMPARE(trial.nativeText(Corrected, QStringLiteral("60")), QStringLiteral("50"));
    QCOMPARE(trial.nativeText(LimitedByCorrected, QStringLiteral("6")), QStringLiteral("6"));
    QCOMPARE(trial.nativeText(LimitedByCorrected, QStringLiteral("7")), std::nullopt);
}

/// A loaded project may hold what the functions would not let stand.
void tst_TrialCopy::putsBackWhatWasFollowed()
{
    const auto project = followingProject();
    QVERIFY(project);
    TrialCopy trial(*project);
    trial.follow(Corrected, QStringLiteral("60"));
    trial.follow(Double, QStringLiteral("20"));
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(trial.nativeText(LimitedByCorrected, QStringLiteral("60")), QStringLiteral("60"));
        QCOMPARE(trial.nativeText(LimitedByCorrected, QStringLiteral("61")), std::nullopt);
        QCOMPARE(trial.nativeText(LimitedByDouble, QStringLiteral("20")), QStringLiteral("20"));
        QCOMPARE(trial.nativeText(LimitedByDouble, QStringLiteral("21")), std::nullopt);
        QVERIFY(trial.nativeText(Source, QStringLiteral("30")));
        QVERIFY(trial.nativeText(Corrected, QStringLiteral("40")));
    }
}

QTEST_GUILESS_MAIN(tst_TrialCopy)
#include "tst_TrialCopy.moc"

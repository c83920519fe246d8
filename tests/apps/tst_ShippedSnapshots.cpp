#include "apps/host/DriveProject.h"
#include "apps/host/ValuePlace.h"
#include "tests/support/GoldenFile.h"

#include <KrParameterInstance/ParameterInformation.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

/// Snapshots of the shipped drives hold what their parameters answer.
class tst_ShippedSnapshots : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsAreTheParametersOwn_data();
    void textsAreTheParametersOwn();
    void jsonReadsBack_data();
    void goldenExport();
    void jsonReadsBack();
};

namespace {

std::unique_ptr<DriveProject> open(const QString &device)
{
    QString error;
    return DriveProject::open(
        QFINDTESTDATA("../../devices/") + device + QLatin1String(".json"), error);
}

} // namespace

void tst_ShippedSnapshots::textsAreTheParametersOwn_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<quint32>("accessLevel");
    QTest::addColumn<bool>("isOnline");
    for (const char *device : {"two-axis-drive", "four-axis-controller"}) {
        for (const quint32 level : {0U, 5U, 6U}) {
            for (const bool isOnline : {false, true}) {
                QTest::addRow("%s, level %u, %s", device, level, isOnline ? "online" : "offline")
                    << QString::fromLatin1(device) << level << isOnline;
            }
        }
    }
}

void tst_ShippedSnapshots::textsAreTheParametersOwn()
{
    QFETCH(QString, device);
    QFETCH(quint32, accessLevel);
    QFETCH(bool, isOnline);
    System::information()->setUserAccessLevel(accessLevel);
    const auto project = open(device);
    QVERIFY(project);
    ParameterContainer &container = project->container();
    container.setOnline(isOnline);
    ParameterValueSnapshot snapshot(&container);
    snapshot.applyNoFilter();
    const QList<ValuePlace> places = ValuePlace::allOf(container);
    QVERIFY(places.size() > 500);
    for (const ValuePlace &place : places) {
        const auto information = container.parameterInformation(place.coordinate);
        const auto [coordinate, livingSpace, element] = place;
        QCOMPARE(snapshot.value(livingSpace, coordinate, element, false),
            information->displayValueText(livingSpace, element, false));
        QCOMPARE(snapshot.valueNative(livingSpace, coordinate, element, false),
            information->nativeValueText(livingSpace, element, false));
        QCOMPARE(snapshot.undecoratedValue(livingSpace, coordinate, element, false),
            information->valueText(livingSpace, element, false));
        QCOMPARE(snapshot.elementReadLevel(coordinate, element), information->readLevel(element));
        QCOMPARE(snapshot.parameterName(coordinate), information->name().longText());
        QCOMPARE(snapshot.elementName(coordinate, element),
            information->isRecordParameter() ? information->elementName(element).longText()
                                             : QString());
        const bool hasUnits = information->kind(element) != 5;
        QCOMPARE(snapshot.valueNative(livingSpace, coordinate, element, true).trimmed(),
            information->nativeValueText(livingSpace, element, hasUnits).trimmed());
        QVERIFY(snapshot.elements(coordinate).contains(element));
        QVERIFY(snapshot.livingSpaces(coordinate).contains(livingSpace));
    }
}

void tst_ShippedSnapshots::jsonReadsBack_data()
{
    QTest::addColumn<QString>("device");
    QTest::newRow("two axes") << QStringLiteral("two-axis-drive");
    QTest::newRow("four axes") << QStringLiteral("four-axis-controller");
}

void tst_ShippedSnapshots::jsonReadsBack()
{
    QFETCH(QString, device);
    const auto project = open(device);
    QVERIFY(project);
    ParameterValueSnapshot snapshot(&project->container());
    snapshot.applyNoFilter();
    const QByteArray json = snapshot.toJson();
    ParameterValueSnapshot back(nullptr);
    QVERIFY(back.fromJson(json));
    QCOMPARE(back.toJson(), json);
    QCOMPARE(back.parameterListDifferent(&snapshot), QList<ParameterCoordinate>());
}

void tst_ShippedSnapshots::goldenExport()
{
    System::information()->setUserAccessLevel(4);
    const auto project = open(QStringLiteral("two-axis-drive"));
    QVERIFY(project);
    ParameterValueSnapshot snapshot(&project->container());
    snapshot.applyNoFilter();
    const QTemporaryDir folder;
    const QString fileName = folder.filePath(QStringLiteral("export.txt"));
    QVERIFY(snapshot.saveToTextFile(fileName, snapshot.parameterList()));
    QFile written(fileName);
    QVERIFY(written.open(QIODevice::ReadOnly));
    const QByteArray lines = written.readAll();
    QCOMPARE(lines, GoldenFile::expected(QStringLiteral("snapshot/two-axis-drive.txt"), lines));
}

QTEST_GUILESS_MAIN(tst_ShippedSnapshots)
#include "tst_ShippedSnapshots.moc"

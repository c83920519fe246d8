// How long the desk lets its user wait with 20,000 parameters on four axes, in milliseconds. Whatever
// takes longer than half a second shows its progress and can be cancelled.

#include "BenchmarkDevice.h"
#include "apps/host/DriveProject.h"
#include "apps/host/ProjectStorage.h"
#include "apps/krparameter-desk/ComparisonPage.h"
#include "apps/krparameter-desk/ParameterTableModel.h"
#include "apps/krparameter-desk/SnapshotListModel.h"

#include <KrSystem/System.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

constexpr int Parameters = 20000;
constexpr int Rounds = 5;

/// The median of what each round took.
void report(
    const char *what, const std::function<void()> &prepare, const std::function<void()> &job)
{
    std::vector<double> times;
    for (int round = 0; round < Rounds; ++round) {
        prepare();
        QElapsedTimer timer;
        timer.start();
        job();
        times.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::nth_element(times.begin(), times.begin() + Rounds / 2, times.end());
    std::printf("%-44s %8.0f ms\n", what, times[Rounds / 2]);
}

void write(ParameterContainer &container, const QString &text)
{
    for (const ParameterCoordinate &coordinate : container.parameterList()) {
        for (int axis = 1; axis <= BenchmarkDevice::AxisCount; ++axis)
            container.writeValueNative(eLivingSpace(axis), coordinate, 0, text);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    System::information()->setUserAccessLevel(6);
    const QTemporaryDir folder;
    const QString description = folder.filePath(QStringLiteral("device.json"));
    QFile file(description);
    if (!file.open(QIODevice::WriteOnly))
        return 1;
    file.write(BenchmarkDevice::description(Parameters));
    file.close();

    std::unique_ptr<DriveProject> project;
    QString error;
    const auto nothing = [] {};
    report(
        "open the device", [&] { project.reset(); },
        [&] { project = DriveProject::open(description, error); });
    std::unique_ptr<ServoDriveFirmware> firmware;
    report(
        "  of which read the description", [&] { firmware.reset(); },
        [&] { firmware = ServoDriveFirmware::loadFromFile(description, nullptr); });
    ParameterTableModel model;
    report(
        "list the values", [&] { model.setDevice(nullptr, nullptr); },
        [&] { model.setDevice(project.get(), nullptr); });
    report(
        "first key of a search",
        [&] {
            model.setSearchedText({});
            model.refresh();
        },
        [&] { model.setSearchedText(QStringLiteral("c")); });
    model.setSearchedText({});
    std::printf("%d values\n", model.rowCount());
    model.setDevice(nullptr, nullptr);

    ProjectStorage storage(folder.filePath(QStringLiteral("project")));
    report("save the project", nothing,
        [&] { storage.save(*project, ProjectStorage::eLoss::Refuse); });
    report("load the project", nothing,
        [&] { storage.load(*project, ProjectStorage::eCutBlock::Refuse, {}); });

    SnapshotListModel snapshots;
    report(
        "take a snapshot", [&] { snapshots.clear(); },
        [&] { snapshots.take(project->container(), QStringLiteral("A")); });
    report("show a snapshot with all values", nothing, [&] {
        ComparisonPage page(nullptr);
        page.compare(snapshots.checkedSnapshots(), snapshots.checkedNames(), {});
    });
    write(project->container(), QStringLiteral("1300"));
    snapshots.take(project->container(), QStringLiteral("B"));
    report("compare two snapshots, every value differs", nothing, [&] {
        ComparisonPage page(nullptr);
        page.compare(snapshots.checkedSnapshots(), snapshots.checkedNames(), {});
    });
    return 0;
}

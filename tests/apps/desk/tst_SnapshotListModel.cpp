#include "apps/host/Progress.h"
#include "apps/krparameter-desk/SnapshotListModel.h"
#include "tests/apps/desk/FollowingDevice.h"
#include "tests/support/MessageRecorder.h"

#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

class tst_SnapshotListModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void take();
    void progress();
    void cancelled();
    void suggestedNames();
    void checking();
    void renaming();
    void removing();
    void clearing();
    void outlivesTheDevice();
    void namesItsDevices();
};

void tst_SnapshotListModel::take()
{
    MessageRecorder messages;
    const DeskDevice device;
    const auto project = device.open();
    SnapshotListModel model;
    const QAbstractItemModelTester tester(&model);
    const QSignalSpy changes(&model, &SnapshotListModel::checkedChanged);
    model.take(project->container(), QStringLiteral("Vorher"));
    project->container().writeValueNative(
        eLivingSpace::Axis1, place("B01").coordinate, 0, QStringLiteral("5000"));
    model.take(project->container(), QStringLiteral("Nachher"));
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(changes.count(), 2);
    QCOMPARE(
        model.checkedNames(), (QStringList {QStringLiteral("Vorher"), QStringLiteral("Nachher")}));
    const auto value = [&](int snapshot) {
        return model.checkedSnapshots().at(snapshot)->value(
            eLivingSpace::Axis1, place("B01").coordinate, 0, true);
    };
    QCOMPARE(value(0), QStringLiteral("4.200 A"));
    QCOMPARE(value(1), QStringLiteral("5.000 A"));
}

namespace {

/// Cancels once so many values are done.
struct CountingProgress final : Progress {
    explicit CountingProgress(qsizetype last)
        : last(last)
    {
    }
    bool advance(qsizetype done, qsizetype total) override
    {
        steps.append(done);
        totals.insert(total);
        return done < last;
    }

    qsizetype last;
    QList<qsizetype> steps;
    QSet<qsizetype> totals;
};

} // namespace

void tst_SnapshotListModel::progress()
{
    MessageRecorder messages;
    const DeskDevice device;
    const auto project = device.open();
    SnapshotListModel model;
    CountingProgress progress(100);
    QVERIFY(model.take(project->container(), QStringLiteral("A"), &progress));
    // Also of the value that this user may not see.
    QCOMPARE(progress.steps, (QList<qsizetype> {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    QCOMPARE(progress.totals, QSet<qsizetype> {10});
    QVERIFY(model.take(project->container(), QStringLiteral("B")));
    QCOMPARE(model.checkedSnapshots().at(0)->parameterListDifferent(model.checkedSnapshots().at(1)),
        QList<ParameterCoordinate>());
}

/// Nothing is asked any more, and nothing is there.
void tst_SnapshotListModel::cancelled()
{
    MessageRecorder messages;
    const DeskDevice device;
    const auto project = device.open();
    SnapshotListModel model;
    const QSignalSpy changes(&model, &SnapshotListModel::checkedChanged);
    CountingProgress progress(3);
    QVERIFY(!model.take(project->container(), QStringLiteral("A"), &progress));
    QCOMPARE(progress.steps, (QList<qsizetype> {0, 1, 2, 3}));
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(changes.count(), 0);
}

void tst_SnapshotListModel::suggestedNames()
{
    MessageRecorder messages;
    ParameterContainer container;
    SnapshotListModel model;
    QCOMPARE(model.suggestedName(), QStringLiteral("Snapshot 1"));
    model.take(container, QStringLiteral("Snapshot 2"));
    QCOMPARE(model.suggestedName(), QStringLiteral("Snapshot 3"));
}

void tst_SnapshotListModel::checking()
{
    MessageRecorder messages;
    ParameterContainer container;
    SnapshotListModel model;
    model.take(container, QStringLiteral("A"));
    model.take(container, QStringLiteral("B"));
    QCOMPARE(model.index(0).data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
    QVERIFY(model.flags(model.index(0)).testFlag(Qt::ItemIsUserCheckable));
    QVERIFY(model.setData(model.index(0), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(model.checkedNames(), QStringList(QStringLiteral("B")));
    QCOMPARE(model.checkedSnapshots().size(), 1);
}

void tst_SnapshotListModel::renaming()
{
    MessageRecorder messages;
    ParameterContainer container;
    SnapshotListModel model;
    model.take(container, QStringLiteral("A"));
    QVERIFY(model.setData(model.index(0), QStringLiteral(" Before "), Qt::EditRole));
    QCOMPARE(model.checkedNames(), QStringList(QStringLiteral("Before")));
    QVERIFY(!model.setData(model.index(0), QStringLiteral(" "), Qt::EditRole));
    QVERIFY(!model.setData(model.index(0), QStringLiteral("x"), Qt::ToolTipRole));
    QVERIFY(!model.setData(QModelIndex(), QStringLiteral("x"), Qt::EditRole));
    QCOMPARE(model.index(0).data().toString(), QStringLiteral("Before"));
}

void tst_SnapshotListModel::removing()
{
    MessageRecorder messages;
    ParameterContainer container;
    SnapshotListModel model;
    model.take(container, QStringLiteral("A"));
    model.take(container, QStringLiteral("B"));
    model.removeAt(-1);
    model.removeAt(2);
    QCOMPARE(model.rowCount(), 2);
    // Who listens may still ask the one that goes.
    QPointer<ParameterValueSnapshot> gone(model.checkedSnapshots().constFirst());
    bool wasThere = false;
    connect(&model, &SnapshotListModel::checkedChanged, this, [&] { wasThere = !gone.isNull(); });
    model.removeAt(0);
    QVERIFY(wasThere);
    QVERIFY(gone.isNull());
    QCOMPARE(model.checkedNames(), QStringList(QStringLiteral("B")));
}

void tst_SnapshotListModel::clearing()
{
    MessageRecorder messages;
    ParameterContainer container;
    SnapshotListModel model;
    model.take(container, QStringLiteral("A"));
    model.clear();
    QCOMPARE(model.rowCount(), 0);
    QVERIFY(model.checkedSnapshots().isEmpty());
}

void tst_SnapshotListModel::outlivesTheDevice()
{
    MessageRecorder messages;
    SnapshotListModel model;
    {
        const DeskDevice device;
        const auto project = device.open();
        model.take(project->container(), QStringLiteral("A"));
    }
    QVERIFY(!model.checkedSnapshots().constFirst()->sourceContainer());
    QCOMPARE(model.checkedSnapshots().constFirst()->value(
                 eLivingSpace::Axis1, place("B01").coordinate, 0, true),
        QStringLiteral("4.200 A"));
}

void tst_SnapshotListModel::namesItsDevices()
{
    MessageRecorder messages;
    const DeskDevice first;
    const FollowingDevice second;
    const auto firstProject = first.open();
    const auto secondProject = second.open();
    ParameterContainer none;
    SnapshotListModel model;
    model.take(firstProject->container(), QStringLiteral("A"));
    model.take(none, QStringLiteral("B"));
    model.take(firstProject->container(), QStringLiteral("C"));
    QCOMPARE(model.checkedDevices(), QStringList(QStringLiteral("Desk drive")));
    model.take(secondProject->container(), QStringLiteral("D"));
    QCOMPARE(model.checkedDevices(),
        (QStringList {QStringLiteral("Desk drive"), QStringLiteral("Following drive")}));
    QCOMPARE(model.names().join(u' '), QStringLiteral("A B C D"));
    QCOMPARE(model.index(0).data(Qt::ToolTipRole).toString(), QStringLiteral("A, von Desk drive"));
    QCOMPARE(model.index(1).data(Qt::ToolTipRole).toString(), QStringLiteral("B"));
    QCOMPARE(
        model.index(3).data(Qt::ToolTipRole).toString(), QStringLiteral("D, von Following drive"));
    QVERIFY(model.setData(model.index(0), Qt::Unchecked, Qt::CheckStateRole));
    QVERIFY(model.setData(model.index(2), Qt::Unchecked, Qt::CheckStateRole));
    QCOMPARE(model.checkedDevices(), QStringList(QStringLiteral("Following drive")));
}

QTEST_GUILESS_MAIN(tst_SnapshotListModel)
#include "tst_SnapshotListModel.moc"

#include "FrozenDevice.h"
#include "apps/host/SnapshotFile.h"

#include <QtTest/QtTest>

class tst_SnapshotFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void writesAndReads();
    void refusedStaysAsItWas_data();
    void refusedStaysAsItWas();
    void connectedSnapshotIsNotFilled();
    void cannotBeWritten_data();
    void cannotBeWritten();

private:
    SmallDevice m_device;
};

void tst_SnapshotFile::writesAndReads()
{
    const auto project = m_device.open();
    const auto snapshot = frozen(*project);
    const QString fileName = m_device.path("state.json");
    QCOMPARE(SnapshotFile::write(fileName, *snapshot), QString());
    ParameterValueSnapshot back(nullptr);
    QCOMPARE(SnapshotFile::read(fileName, back), QString());
    QCOMPARE(back.parameterListDifferent(snapshot.get()), QList<ParameterCoordinate>());
    QCOMPARE(back.value(eLivingSpace::Axis1, at("B01"), 0, true), QStringLiteral("4.200 A"));
    QCOMPARE(back.parameterName(at("B01")), QStringLiteral("Strom"));
    QCOMPARE(back.toJson(), snapshot->toJson());
}

void tst_SnapshotFile::refusedStaysAsItWas_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << m_device.path("none.json") << QStringLiteral("ist nicht vorhanden");
    QTest::newRow("folder") << QFileInfo(m_device.fileName()).path()
                            << QStringLiteral("ist ein Ordner");
    QTest::newRow("device") << QStringLiteral("/dev/zero") << QStringLiteral("ist keine Datei");
    QTest::newRow("another form") << m_device.fileName() << QStringLiteral("das ist kein Snapshot");
}

void tst_SnapshotFile::refusedStaysAsItWas()
{
    QFETCH(QString, fileName);
    QFETCH(QString, reason);
    const auto project = m_device.open();
    const auto snapshot = frozen(*project);
    const QByteArray before = snapshot->toJson();
    QCOMPARE(SnapshotFile::read(fileName, *snapshot), fileName + QLatin1String(": ") + reason);
    QCOMPARE(snapshot->toJson(), before);
}

void tst_SnapshotFile::connectedSnapshotIsNotFilled()
{
    const auto project = m_device.open();
    const QString fileName = m_device.path("state.json");
    QCOMPARE(SnapshotFile::write(fileName, *frozen(*project)), QString());
    ParameterValueSnapshot connected(&project->container());
    QCOMPARE(SnapshotFile::read(fileName, connected),
        fileName + QStringLiteral(": der Snapshot hängt noch an seinem Antrieb"));
    QVERIFY(connected.parameterList().isEmpty());
}

void tst_SnapshotFile::cannotBeWritten_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::newRow("folder is missing") << m_device.path("none/state.json");
    QTest::newRow("is a folder") << QFileInfo(m_device.fileName()).path();
    QTest::newRow("is a device") << QStringLiteral("/dev/full");
    QTest::newRow("nobody may write there") << QStringLiteral("/proc/state.json");
}

void tst_SnapshotFile::cannotBeWritten()
{
    QFETCH(QString, fileName);
    const ParameterValueSnapshot snapshot(nullptr);
    QVERIFY(SnapshotFile::write(fileName, snapshot).startsWith(fileName + QLatin1String(": ")));
    QVERIFY(!QFileInfo(QStringLiteral("/dev/full")).isFile());
}

QTEST_GUILESS_MAIN(tst_SnapshotFile)
#include "tst_SnapshotFile.moc"

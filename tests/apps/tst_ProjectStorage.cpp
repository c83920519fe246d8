#include "apps/host/ContainerComparison.h"
#include "apps/host/ProjectStorage.h"
#include "tests/apps/SmallDevice.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtTest/QTest>

using LoadStatus = ProjectStorage::LoadResult::eStatus;
using SaveStatus = ProjectStorage::SaveResult::eStatus;

namespace {

const QString Block = QStringLiteral("Parameter.ini");

QString read(DriveProject &project, const char *coordinate, eLivingSpace livingSpace)
{
    return project.container().readValueNative(livingSpace, at(coordinate), 0, false);
}

QByteArray bytesOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
}

void replace(const QString &fileName, const QByteArray &bytes)
{
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

} // namespace

class tst_ProjectStorage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void returnsEverything();
    void returnsEveryLatin1Character();
    void savesTheSameBytesAgain();
    void refusesEveryPrefix_data();
    void refusesEveryPrefix();
    void loadsACutBlockWhenForced();
    void judgesWithoutLoading();
    void refusesAMissingBlock();
    void refusesAFolderWithoutProject();
    void refusesToLoseTexts();
    void losesTextsWhenAllowed();
};

void tst_ProjectStorage::returnsEverything()
{
    const SmallDevice device;
    const auto project = device.open();
    project->container().setParameterChangeTag(QStringLiteral("fw_1"));
    project->container().parameterSetup(at("A20"))->setElementCount(3);
    project->container().writeValueNative(
        eLivingSpace::Global, at("A20"), 2, QStringLiteral("ä\r\n[B001]\r\nV_1_0=7"));
    project->container().parameterSetup(at("B01"))->setDefaultNativeValueText(
        eLivingSpace::Axis2, 0, QStringLiteral("300"));
    project->container().setParameterChangeTag({});
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);

    const auto fresh = device.open();
    QStringList before;
    const auto announce = [&](const LoadReport &report) {
        before.append(read(*fresh, "B01", eLivingSpace::Axis1));
        before.append(QString::number(report.valuesRead));
    };
    const auto result = storage.load(*fresh, ProjectStorage::eCutBlock::Refuse, announce);
    QCOMPARE(before, (QStringList {QStringLiteral("4200"), QStringLiteral("7")}));
    QVERIFY2(result.status == LoadStatus::Loaded, qPrintable(result.error));
    QVERIFY(result.report.isComplete());
    const auto comparison = ContainerComparison::of(project->container(), fresh->container());
    QCOMPARE(comparison.differences, QStringList());
    QCOMPARE(comparison.valuesCompared, 7);
    QCOMPARE(fresh->container().readValueNative(eLivingSpace::Global, at("A20"), 2, false),
        QStringLiteral("ä\r\n[B001]\r\nV_1_0=7"));
    QCOMPARE(read(*fresh, "B01", eLivingSpace::Axis1), QStringLiteral("4200"));
}

void tst_ProjectStorage::returnsEveryLatin1Character()
{
    constexpr quint16 Characters = 256;
    const auto textOf = [](quint16 c) {
        return QStringLiteral("a") + QChar(c) + QStringLiteral("b") + QChar(c);
    };
    const SmallDevice device;
    const auto project = device.open();
    ParameterContainer &container = project->container();
    container.parameterSetup(at("A20"))->setElementCount(Characters);
    for (quint16 c = 0; c < Characters; ++c) {
        container.setParameterChangeTag(QString(QChar(c)) + u'x');
        container.writeValueNative(eLivingSpace::Global, at("A20"), c, textOf(c));
    }
    container.setParameterChangeTag({});
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    const auto fresh = device.open();
    QVERIFY(storage.load(*fresh, ProjectStorage::eCutBlock::Refuse).status == LoadStatus::Loaded);
    for (quint16 c = 0; c < Characters; ++c) {
        QCOMPARE(fresh->container().readValueNative(eLivingSpace::Global, at("A20"), c, false),
            textOf(c));
    }
    QCOMPARE(ContainerComparison::of(container, fresh->container()).differences, QStringList());
}

void tst_ProjectStorage::savesTheSameBytesAgain()
{
    const SmallDevice device;
    const auto project = device.open();
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    QCOMPARE(bytesOf(storage.folder().path() + u'/' + Block), SmallDevice::defaultBlock());
    const auto fresh = device.open();
    QVERIFY(storage.load(*fresh, ProjectStorage::eCutBlock::Refuse).status == LoadStatus::Loaded);
    QVERIFY(storage.save(*fresh, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    QCOMPARE(bytesOf(storage.folder().path() + u'/' + Block), SmallDevice::defaultBlock());
}

void tst_ProjectStorage::refusesEveryPrefix_data()
{
    QTest::addColumn<bool>("hasManifest");
    QTest::newRow("with manifest") << true;
    QTest::newRow("without manifest") << false;
}

void tst_ProjectStorage::refusesEveryPrefix()
{
    QFETCH(bool, hasManifest);
    const SmallDevice device;
    const auto project = device.open();
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    if (!hasManifest)
        QVERIFY(QFile::remove(storage.folder().path() + QStringLiteral("/Manifest.ini")));
    project->container().writeValueNative(
        eLivingSpace::Axis1, at("B01"), 0, QStringLiteral("9000"));
    const QByteArray whole = SmallDevice::defaultBlock();
    for (qsizetype size = 0; size < whole.size(); ++size) {
        replace(storage.folder().path() + u'/' + Block, whole.first(size));
        const auto result = storage.load(*project, ProjectStorage::eCutBlock::Refuse);
        QVERIFY2(result.status == LoadStatus::Cut, qPrintable(QString::number(size)));
        QCOMPARE(read(*project, "B01", eLivingSpace::Axis1), QStringLiteral("9000"));
    }
    replace(storage.folder().path() + u'/' + Block, whole);
    QVERIFY(storage.load(*project, ProjectStorage::eCutBlock::Refuse).status == LoadStatus::Loaded);
    QCOMPARE(read(*project, "B01", eLivingSpace::Axis1), QStringLiteral("4200"));
}

void tst_ProjectStorage::loadsACutBlockWhenForced()
{
    const SmallDevice device;
    const auto project = device.open();
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    replace(storage.folder().path() + u'/' + Block,
        ";\r\n[A020]\r\nV_0_0=new\r\nDV_0_0=abc\r\n[B001]\r\nV_1_0=1");
    const auto result = storage.load(*project, ProjectStorage::eCutBlock::Load);
    QVERIFY(result.status == LoadStatus::Loaded);
    QVERIFY(result.report.isCut());
    QCOMPARE(result.report.valuesEmptied, QStringList(QStringLiteral("2.B01")));
    QCOMPARE(read(*project, "A20", eLivingSpace::Global), QStringLiteral("new"));
    QCOMPARE(read(*project, "B01", eLivingSpace::Axis2), QString());
}

void tst_ProjectStorage::judgesWithoutLoading()
{
    const SmallDevice device;
    const auto project = device.open();
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    project->container().writeValueNative(
        eLivingSpace::Axis1, at("B01"), 0, QStringLiteral("9000"));
    auto judged = storage.judge(*project);
    QVERIFY(judged.status == LoadStatus::Loaded);
    QVERIFY(judged.error.isEmpty());
    QVERIFY(judged.report.isComplete());
    QCOMPARE(judged.blocks.value(Block), SmallDevice::defaultBlock());
    QCOMPARE(read(*project, "B01", eLivingSpace::Axis1), QStringLiteral("9000"));

    const QByteArray cut = SmallDevice::defaultBlock().first(60);
    replace(storage.folder().path() + u'/' + Block, cut);
    judged = storage.judge(*project);
    QVERIFY(judged.status == LoadStatus::Cut);
    QVERIFY(judged.error.endsWith(QStringLiteral("ist abgeschnitten")));
    QCOMPARE(judged.blocks.value(Block), cut);
    QCOMPARE(read(*project, "B01", eLivingSpace::Axis1), QStringLiteral("9000"));
}

void tst_ProjectStorage::refusesAMissingBlock()
{
    const SmallDevice device;
    const auto project = device.open();
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    QVERIFY(QFile::remove(storage.folder().path() + u'/' + Block));
    const auto result = storage.load(*project, ProjectStorage::eCutBlock::Refuse);
    QVERIFY(result.status == LoadStatus::Cut);
    QCOMPARE(result.report.cutSigns.constFirst(), eCutSign::Missing);
}

void tst_ProjectStorage::refusesAFolderWithoutProject()
{
    const SmallDevice device;
    const auto project = device.open();
    QVERIFY(QDir().mkpath(device.path("empty")));
    const auto result =
        ProjectStorage(device.path("empty")).load(*project, ProjectStorage::eCutBlock::Load);
    QVERIFY(result.status == LoadStatus::Unreadable);
    QCOMPARE(result.error,
        device.path("empty") + QStringLiteral(" enthält kein Projekt: \"Parameter.ini\" fehlt"));
}

void tst_ProjectStorage::refusesToLoseTexts()
{
    const SmallDevice device;
    const auto project = device.open();
    ProjectStorage storage(device.path("project"));
    QVERIFY(storage.save(*project, ProjectStorage::eLoss::Refuse).status == SaveStatus::Saved);
    project->container().writeValueNative(
        eLivingSpace::Global, at("A20"), 0, QStringLiteral("10 €"));
    const auto result = storage.save(*project, ProjectStorage::eLoss::Refuse);
    QVERIFY(result.status == SaveStatus::WouldLose);
    QCOMPARE(result.error, QStringLiteral("nicht gespeichert: 1 Texte gingen verloren"));
    QCOMPARE(result.losses.toText(),
        QStringLiteral("Parameter A20: Wert \"10 €\" enthält Zeichen, die Latin-1 nicht kennt\n"));
    QCOMPARE(bytesOf(storage.folder().path() + u'/' + Block), SmallDevice::defaultBlock());
}

void tst_ProjectStorage::losesTextsWhenAllowed()
{
    const SmallDevice device;
    const auto project = device.open();
    project->container().writeValueNative(
        eLivingSpace::Global, at("A20"), 0, QStringLiteral("10 €"));
    ProjectStorage storage(device.path("project"));
    const auto result = storage.save(*project, ProjectStorage::eLoss::Allow);
    QVERIFY(result.status == SaveStatus::Saved);
    QCOMPARE(result.losses.losses.size(), 1);
    QVERIFY(bytesOf(storage.folder().path() + u'/' + Block).contains("V_0_0=10 ?\r\n"));
}

QTEST_GUILESS_MAIN(tst_ProjectStorage)
#include "tst_ProjectStorage.moc"

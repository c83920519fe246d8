#include "snapshot/ParameterValueSnapshotWidgetPrivate.h"
#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/GoldenFile.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>
#include <KrSystem/System.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

/// The report of three snapshots of a container, byte by byte: records with and without hidden rows,
/// what is missing, what has no name and what cannot be read. Of two headers the last one counts.
class tst_SnapshotWidgetReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void report();
    void fileReplacesALongerOne_data();
    void fileReplacesALongerOne();
    void safeReport();
    void beforeFilling();

private:
    void fill();
    void take(const QString &title);

    const TestSettings m_settings;
    QTemporaryDir m_directory;
    SnapshotFixture m_fixture;
    std::vector<std::unique_ptr<ParameterValueSnapshot>> m_snapshots;
    ParameterValueSnapshotWidget m_widget {nullptr};
};

namespace {

QByteArray content(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void tst_SnapshotWidgetReport::initTestCase()
{
    System::information()->setUserAccessLevel(3);
    fill();
}

/// Disconnected, so that it keeps the names of its time.
void tst_SnapshotWidgetReport::take(const QString &title)
{
    m_snapshots.push_back(std::make_unique<ParameterValueSnapshot>(m_fixture.container.get()));
    m_snapshots.back()->applyNoFilter();
    m_snapshots.back()->disconnectFromSourceContainer();
    m_widget.appendSnapshot(m_snapshots.back().get(), title);
}

/// A00 and the record A12 stand on both axes; B02, the unreadable C03 and the record D04 once. Then 2.A00,
/// 1.A12[0] and C03 change and B02 goes. Then the host offers axis 1 alone, D04[0] changes, B02 is back,
/// and A12 is there once, with an element more.
void tst_SnapshotWidgetReport::fill()
{
    const DefinitionBuilder record = SnapshotFixture::parameter("A12", "Satz")
                                         .element(0, QStringLiteral("Erstes"))
                                         .element(1, QStringLiteral("<i>Zweites</i>"));
    const DefinitionBuilder letters = SnapshotFixture::parameter("B02", "").global();
    m_fixture.add(SnapshotFixture::parameter("A00", "Drehzahl & Co").units(QStringLiteral("µm<s")));
    m_fixture.add(record);
    m_fixture.add(letters);
    m_fixture.add(SnapshotFixture::parameter("C03", "Geheim").global().levels(4, 0));
    m_fixture.add(SnapshotFixture::parameter("D04", "Tabelle")
                      .global()
                      .element(0, QStringLiteral("Anders"))
                      .element(1, QStringLiteral("Gleich")));
    m_fixture.write(1, "A00", 0, QStringLiteral("11"));
    m_fixture.write(2, "A00", 0, QStringLiteral("12"));
    m_fixture.write(1, "A12", 0, QStringLiteral("1"));
    m_fixture.write(1, "A12", 1, QStringLiteral("7"));
    m_fixture.write(2, "A12", 0, QStringLiteral("3"));
    m_fixture.write(2, "A12", 1, QStringLiteral("8"));
    m_fixture.write(0, "B02", 0, QStringLiteral("a&b"));
    m_fixture.write(0, "C03", 0, QStringLiteral("5"));
    take(QStringLiteral("Vor<her>"));

    m_fixture.write(2, "A00", 0, QStringLiteral("13"));
    m_fixture.write(1, "A12", 0, QStringLiteral("2"));
    m_fixture.write(0, "C03", 0, QStringLiteral("6"));
    m_fixture.container->deleteParameter(QStringLiteral("S;{B02}"));
    take(QStringLiteral("Nach&her"));

    m_fixture.container->deleteParameter(QStringLiteral("S;{A12}"));
    m_fixture.host.setLivingSpaces({eLivingSpace::Axis1});
    m_fixture.add(DefinitionBuilder(record).global().element(2, QStringLiteral("Drittes")));
    m_fixture.write(0, "A12", 0, QStringLiteral("4"));
    m_fixture.write(0, "A12", 1, QStringLiteral("9"));
    m_fixture.write(0, "A12", 2, QStringLiteral("10"));
    m_fixture.add(letters);
    m_fixture.write(0, "B02", 0, QStringLiteral("\"c\""));
    m_fixture.write(0, "D04", 0, QStringLiteral("1"));
    take(QStringLiteral("Jetzt"));
    m_widget.update();
    m_widget.setHtmlHeader(QStringLiteral("<h1>Zuerst</h1>"));
    m_widget.setHtmlHeader(QStringLiteral("<h1>Änderungen</h1>"));
}

void tst_SnapshotWidgetReport::report()
{
    const QByteArray report = m_widget.report().toUtf8();
    QCOMPARE(report, GoldenFile::expected(QStringLiteral("snapshot/widget-3.html"), report));
}

void tst_SnapshotWidgetReport::fileReplacesALongerOne_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("by the button of the first header") << 3;
    QTest::newRow("by the button of the second header") << 4;
}

void tst_SnapshotWidgetReport::fileReplacesALongerOne()
{
    QFETCH(int, button);
    const QString fileName = m_directory.filePath(QStringLiteral("report.html"));
    QFile earlier(fileName);
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write(QByteArray(10000, 'x'));
    earlier.close();
    auto *tree = m_widget.findChild<QTreeWidget *>();
    static_cast<ParameterValueSnapshotWidgetPrivate *>(tree)->chooseSaveFile =
        [fileName](
            QWidget *, const QString &, const QString &, const QString &) { return fileName; };
    m_widget.findChildren<QPushButton *>().at(button)->click();
    const QByteArray written = content(fileName);
    QCOMPARE(written, GoldenFile::expected(QStringLiteral("snapshot/widget-3-file.html"), written));
}

void tst_SnapshotWidgetReport::safeReport()
{
    QVERIFY(!m_widget.report().contains(QStringLiteral("Content-Security-Policy")));
    QVERIFY(!m_widget.safeReport().contains(QStringLiteral("<i>")));
    QVERIFY(m_widget.safeReport().contains(
        QStringLiteral("<td>&nbsp;&nbsp;1.A12[1] &lt;i&gt;Zweites&lt;/i&gt;</td>")));
    QVERIFY(m_widget.safeReport().startsWith(
        QStringLiteral("<html>\n<head>\n<meta charset=\"UTF-8\">\n"
                       "<meta http-equiv=\"Content-Security-Policy\" "
                       "content=\"default-src 'none'\">\n</head>\n<body>\n")));
}

void tst_SnapshotWidgetReport::beforeFilling()
{
    const ParameterValueSnapshotWidget widget(nullptr);
    QCOMPARE(widget.report(),
        QStringLiteral("<html>\n<body>\n<br><br>\n<table border=\"1\" width=\"100%\">\n"
                       "<thead bgcolor=\"lightgrey\"><th  width=\"40%\"></th>\n"
                       "</thead></table></body>\n</html>\n"));
}

QTEST_MAIN(tst_SnapshotWidgetReport)
#include "tst_SnapshotWidgetReport.moc"

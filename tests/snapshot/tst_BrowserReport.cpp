#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include "snapshot/ParameterValueSnapshotWidgetPrivate.h"
#include "tests/snapshot/SnapshotFixture.h"
#include "tests/support/TestSettings.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtGui/QImage>
#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

/// The exported report in a real browser. Skipped where none is installed.
class tst_BrowserReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void tableIsRendered();
    void scriptOfANameRuns();
    void policyStopsTheHostsScript();

private:
    QString exportReport(const char *parameterName);
    QByteArray browse(const QString &fileName, const QStringList &options) const;

    QString m_browser;
    const TestSettings m_settings;
    QTemporaryDir m_folder;
};

namespace {

constexpr int StartMilliseconds = 120000;

/// Of a light grey head and of dark text on white.
struct Colours {
    qsizetype grey = 0;
    qsizetype dark = 0;
};

Colours coloursOf(const QImage &picture)
{
    Colours colours;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (pixel == qRgb(0xd3, 0xd3, 0xd3))
                ++colours.grey;
            else if (qGray(pixel) < 64)
                ++colours.dark;
        }
    }
    return colours;
}

} // namespace

void tst_BrowserReport::initTestCase()
{
    m_browser = QStandardPaths::findExecutable(QStringLiteral("chromium"));
    if (m_browser.isEmpty())
        QSKIP("no Chromium is installed (Debian's package chromium; scripts/setup checks)");
}

/// Of one parameter that changed from 11 to 12, by the widget's own button.
QString tst_BrowserReport::exportReport(const char *parameterName)
{
    SnapshotFixture fixture;
    fixture.add(SnapshotFixture::parameter("A00", parameterName).global());
    fixture.write(0, "A00", 0, QStringLiteral("11"));
    ParameterValueSnapshot before(fixture.container.get());
    before.applyNoFilter();
    fixture.write(0, "A00", 0, QStringLiteral("12 <b>Ω</b>"));
    ParameterValueSnapshot after(fixture.container.get());
    after.applyNoFilter();

    ParameterValueSnapshotWidget widget(nullptr);
    widget.setHtmlHeader(QStringLiteral("<h1>Drive</h1>"));
    widget.appendSnapshot(&before, QStringLiteral("Vorher"));
    widget.appendSnapshot(&after, QStringLiteral("Nachher"));
    widget.update();
    const QString fileName = m_folder.filePath(QStringLiteral("report.html"));
    static_cast<ParameterValueSnapshotWidgetPrivate *>(widget.findChild<QTreeWidget *>())
        ->chooseSaveFile = [fileName](auto &&...) { return fileName; };
    widget.show();
    QTest::mouseClick(widget.findChild<QPushButton *>(), Qt::LeftButton);
    return fileName;
}

QByteArray tst_BrowserReport::browse(const QString &fileName, const QStringList &options) const
{
    QProcess browser;
    browser.start(m_browser,
        QStringList {QStringLiteral("--headless"), QStringLiteral("--no-sandbox"),
            QStringLiteral("--disable-gpu"), QStringLiteral("--no-first-run"),
            QStringLiteral("--disable-dev-shm-usage"), QStringLiteral("--window-size=800,600"),
            QStringLiteral("--user-data-dir=") + m_folder.filePath(QStringLiteral("browser"))}
            + options + QStringList(QUrl::fromLocalFile(fileName).toString()));
    if (!browser.waitForFinished(StartMilliseconds) || browser.exitCode() != 0)
        return "<browser failed> " + browser.readAllStandardError();
    return browser.readAllStandardOutput();
}

void tst_BrowserReport::tableIsRendered()
{
    const QString report = exportReport("Drehzahl");
    const QByteArray page = browse(report, {QStringLiteral("--dump-dom")});
    QVERIFY2(page.contains("<h1>Drive</h1>"), page.constData());
    QVERIFY2(page.contains("<td>A00 Drehzahl</td>"), page.constData());
    QVERIFY2(page.contains("<td>11</td>"), page.constData());
    QVERIFY2(page.contains("<td>12 &lt;b&gt;\u03a9&lt;/b&gt;</td>"), page.constData());

    const QString pictureFile = m_folder.filePath(QStringLiteral("report.png"));
    browse(report, {QStringLiteral("--screenshot=") + pictureFile});
    const QImage picture(pictureFile);
    QCOMPARE(picture.width(), 800);
    const Colours colours = coloursOf(picture);
    // The head fills a line over the whole width.
    QVERIFY2(colours.grey > 800 * 10, qPrintable(QString::number(colours.grey)));
    QVERIFY2(colours.dark > 500, qPrintable(QString::number(colours.dark)));
}

/// Deliberate: names stand in the report as they are, so that they may hold markup.
void tst_BrowserReport::scriptOfANameRuns()
{
    const QByteArray page =
        browse(exportReport("<script>document.title = \"it \" + \"ran\"</script>"),
            {QStringLiteral("--dump-dom")});
    QVERIFY2(page.contains("<title>it ran</title>"), page.constData());
}

/// The header is the host's own HTML, in the safe form too: there the policy alone stops it.
void tst_BrowserReport::policyStopsTheHostsScript()
{
    ParameterValueSnapshotWidget widget(nullptr);
    widget.setHtmlHeader(
        QStringLiteral("<h1>Drive</h1><script>document.title = \"it \" + \"ran\"</script>"));
    const auto pageOf = [this](const QString &document) {
        QFile file(m_folder.filePath(QStringLiteral("header.html")));
        return file.open(QIODevice::WriteOnly) && file.write(document.toUtf8()) > 0 && file.flush()
            ? browse(file.fileName(), {QStringLiteral("--dump-dom")})
            : QByteArray();
    };
    const QByteArray exact = pageOf(widget.report());
    QVERIFY2(exact.contains("<title>it ran</title>"), exact.constData());
    const QByteArray safe = pageOf(widget.safeReport());
    QVERIFY2(safe.contains("<h1>Drive</h1>"), safe.constData());
    QVERIFY2(!safe.contains("<title>it ran</title>"), safe.constData());
}

QTEST_MAIN(tst_BrowserReport)
#include "tst_BrowserReport.moc"

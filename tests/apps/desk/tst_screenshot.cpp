#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

/// The program as a process, which needs no screen for a picture.
class tst_screenshot : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictures_data();
    void pictures();
    void failures_data();
    void failures();

private:
    struct Result {
        int exitCode = -1;
        QString error;
    };
    static Result run(const QStringList &words);
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

tst_screenshot::Result tst_screenshot::run(const QStringList &words)
{
    QProcess desk;
    desk.start(QStringLiteral(KR_DESK), words);
    if (!desk.waitForFinished())
        return {-1, desk.errorString()};
    return {desk.exitCode(), QString::fromUtf8(desk.readAllStandardError())};
}

void tst_screenshot::pictures_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QSize>("size");
    QTest::newRow("without device") << QStringList() << QSize(1280, 800);
    QTest::newRow("table in a size of its own") << QStringList {QStringLiteral("--device"),
        QStringLiteral("two-axis-drive"), QStringLiteral("--size"), QStringLiteral("1000x700"),
        QStringLiteral("--search"), QStringLiteral("strom"), QStringLiteral("--edit"),
        QStringLiteral("1.H01=900")} << QSize(1000, 700);
    QTest::newRow("comparison in English") << QStringList {QStringLiteral("--device"),
        QStringLiteral("four-axis-controller"), QStringLiteral("--lang"), QStringLiteral("en"),
        QStringLiteral("--show"), QStringLiteral("comparison")}
                                           << QSize(1280, 800);
}

void tst_screenshot::pictures()
{
    QFETCH(QStringList, words);
    QFETCH(QSize, size);
    const QString file = path("picture.png");
    QFile::remove(file);
    const Result result = run(QStringList {QStringLiteral("--screenshot"), file} + words);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.exitCode, 0);
    const QImage picture(file);
    QCOMPARE(picture.size(), size);
    // A picture of nothing has one colour.
    QSet<QRgb> colours;
    for (int x = 0; x < picture.width(); ++x)
        colours.insert(picture.pixel(x, 10));
    QVERIFY(colours.size() > 1);
}

void tst_screenshot::failures_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<int>("exitCode");
    const QString device = QStringLiteral("--device");
    const QString shipped = QStringLiteral("two-axis-drive");
    QTest::newRow("an unknown option is a usage error")
        << QStringList(QStringLiteral("--nothing")) << 2;
    QTest::newRow("a device that there is not cannot be read")
        << QStringList {device, QStringLiteral("nothing")} << 3;
    QTest::newRow("a project that there is not cannot be read") << QStringList {device, shipped,
        QStringLiteral("--project"), QStringLiteral("/nothing")} << 3;
    QTest::newRow("a refused value makes no picture")
        << QStringList {device, shipped, QStringLiteral("--write"), QStringLiteral("1.H01=900")}
        << 6;
    QTest::newRow("an address that there is not makes no picture")
        << QStringList {device, shipped, QStringLiteral("--write"), QStringLiteral("X99=1")} << 6;
}

void tst_screenshot::failures()
{
    QFETCH(QStringList, words);
    QFETCH(int, exitCode);
    const QString file = path("failed.png");
    const Result result = run(QStringList {QStringLiteral("--screenshot"), file} + words);
    QCOMPARE(result.exitCode, exitCode);
    QVERIFY(result.error.startsWith(QLatin1String("krparameter-desk: ")));
    QVERIFY(!QFile::exists(file));
}

QTEST_GUILESS_MAIN(tst_screenshot)
#include "tst_screenshot.moc"

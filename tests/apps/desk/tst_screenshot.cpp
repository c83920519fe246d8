#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <algorithm>

/// The program as a process, which needs no screen for a picture.
class tst_screenshot : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void pictures_data();
    void pictures();
    void failures_data();
    void failures();
    void saysWhyNothingIsWritten_data();
    void saysWhyNothingIsWritten();

private:
    struct Result {
        int exitCode = -1;
        QString error;
    };
    static Result run(const QStringList &words);
    QString path(const char *name) const { return m_folder.filePath(QLatin1String(name)); }

    QTemporaryDir m_folder;
};

namespace {

/// Where the rows of table and comparison stand, below the head and left of the list of snapshots;
/// and the last column of the comparison.
constexpr QRect Rows(10, 124, 700, 446);
constexpr QRect LastColumn(646, 124, 300, 446);
/// Of any text on the background of a row, and of text that is greyed.
constexpr int LightestText = 215;
constexpr int DarkestGreyText = 150;

/// The darkest pixel of each row of text: lines of pixels with text, and blank ones between them.
QList<int> textRows(const QImage &picture, const QRect &area)
{
    QList<int> rows;
    bool wasText = false;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        int darkest = 255;
        for (int x = area.left(); x <= area.right(); ++x)
            darkest = std::min(darkest, qGray(picture.pixel(x, y)));
        const bool isText = darkest < LightestText;
        if (isText && !wasText)
            rows.append(darkest);
        else if (isText)
            rows.last() = std::min(rows.last(), darkest);
        wasText = isText;
    }
    return rows;
}

qsizetype greyCount(const QList<int> &rows)
{
    return std::count_if(
        rows.begin(), rows.end(), [](int darkest) { return darkest >= DarkestGreyText; });
}

} // namespace

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
    QTest::addColumn<int>("leastRows");
    QTest::addColumn<int>("mostRows");
    QTest::addColumn<bool>("hasGreyText");
    QTest::newRow("without device") << QStringList() << QSize(1280, 800) << 0 << 0 << false;
    QTest::newRow("table") << QStringList {QStringLiteral("--device"),
        QStringLiteral("two-axis-drive")}
                           << QSize(1280, 800) << 15 << 25 << false;
    QTest::newRow("values that another device lacks are grey")
        << QStringList {QStringLiteral("--device"), QStringLiteral("four-axis-controller"),
               QStringLiteral("--earlier"), QStringLiteral("two-axis-drive"),
               QStringLiteral("--show"), QStringLiteral("comparison")}
        << QSize(1280, 800) << 15 << 25 << true;
    QTest::newRow("table in a size of its own")
        << QStringList {QStringLiteral("--device"), QStringLiteral("two-axis-drive"),
               QStringLiteral("--size"), QStringLiteral("1000x700"), QStringLiteral("--search"),
               QStringLiteral("strom"), QStringLiteral("--edit"), QStringLiteral("1.H01=900")}
        << QSize(1000, 700) << 5 << 25 << false;
    QTest::newRow("a value that another write shows can be written") << QStringList {
        QStringLiteral("--device"), QStringLiteral("two-axis-drive"), QStringLiteral("--write"),
        QStringLiteral("1.E10=4"), QStringLiteral("--write"),
        QStringLiteral("1.D20=9000")} << QSize(1280, 800) << 15 << 25 << false;
    QTest::newRow("comparison in English") << QStringList {QStringLiteral("--device"),
        QStringLiteral("four-axis-controller"), QStringLiteral("--lang"), QStringLiteral("en"),
        QStringLiteral("--show"), QStringLiteral("comparison"), QStringLiteral("--write"),
        QStringLiteral("1.B01=2.4"), QStringLiteral("--write"), QStringLiteral("2.B01=2.4"),
        QStringLiteral("--write"), QStringLiteral("3.B01=2.4")}
                                           << QSize(1280, 800) << 3 << 3 << false;
}

void tst_screenshot::pictures()
{
    QFETCH(QStringList, words);
    QFETCH(QSize, size);
    QFETCH(int, leastRows);
    QFETCH(int, mostRows);
    QFETCH(bool, hasGreyText);
    const QString file = path("picture.png");
    QFile::remove(file);
    const Result result = run(QStringList {QStringLiteral("--screenshot"), file} + words);
    QCOMPARE(result.error, QString());
    QCOMPARE(result.exitCode, 0);
    const QImage picture(file);
    QCOMPARE(picture.size(), size);
    const qsizetype rows = textRows(picture, Rows).size();
    QVERIFY2(rows >= leastRows && rows <= mostRows, qPrintable(QString::number(rows)));
    QVERIFY(!hasGreyText || greyCount(textRows(picture, LastColumn)) >= 2);
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

void tst_screenshot::saysWhyNothingIsWritten_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("error");
    const QString german =
        QStringLiteral("krparameter-desk: 1.H00 ist erst ab Zugriffsstufe 2 schreibbar.\n");
    const QString english =
        QStringLiteral("krparameter-desk: 1.H00 can be written from access level 2 on.\n");
    QTest::newRow("written") << QStringLiteral("--write") << QStringLiteral("de") << german;
    QTest::newRow("typed") << QStringLiteral("--edit") << QStringLiteral("de") << german;
    QTest::newRow("typed, in English")
        << QStringLiteral("--edit") << QStringLiteral("en") << english;
}

void tst_screenshot::saysWhyNothingIsWritten()
{
    QFETCH(QString, option);
    QFETCH(QString, language);
    QFETCH(QString, error);
    const Result result = run({QStringLiteral("--screenshot"), path("failed.png"),
        QStringLiteral("--device"), QStringLiteral("two-axis-drive"), QStringLiteral("--lang"),
        language, QStringLiteral("--access-level"), QStringLiteral("1"), option,
        QStringLiteral("1.H00=3")});
    QCOMPARE(result.error, error);
    QCOMPARE(result.exitCode, 6);
}

QTEST_GUILESS_MAIN(tst_screenshot)
#include "tst_screenshot.moc"

#include "apps/krparameter-desk/DeskOptions.h"

#include <QtTest/QTest>

class tst_DeskOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothing();
    void everything();
    void refused_data();
    void refused();
    void answers_data();
    void answers();
    void language_data();
    void language();
    void needsNoScreen_data();
    void needsNoScreen();
};

namespace {

std::optional<DeskOptions> read(const QString &words, QString *error = nullptr)
{
    QString problem;
    QString answer;
    const auto options = DeskOptions::read(
        (QStringLiteral("desk ") + words).split(QLatin1Char(' '), Qt::SkipEmptyParts), problem,
        answer);
    if (error)
        *error = problem;
    return options;
}

} // namespace

void tst_DeskOptions::nothing()
{
    const auto options = read(QString());
    QVERIFY(options);
    QCOMPARE(options->device, QString());
    QCOMPARE(options->language, QString());
    QVERIFY(!options->drive);
    QVERIFY(!options->accessLevel);
    QCOMPARE(options->screenshotFile, QString());
    QCOMPARE(options->size, QSize(1280, 800));
    QVERIFY(options->page == DeskOptions::ePage::Parameters);
    QVERIFY(options->writes.isEmpty());
    QVERIFY(!options->edit);
}

void tst_DeskOptions::everything()
{
    const auto options = read(QStringLiteral(
        "--device d.json --project p --drive 10.0.0.7:1502 --earlier e.json --lang en "
        "--access-level 6 --screenshot x.png --size 800x600 --show comparison --search current "
        "--write 1.H00=15 --write A20=a=b --edit H01="));
    QVERIFY(options);
    QCOMPARE(options->device, QStringLiteral("d.json"));
    QCOMPARE(options->project, QStringLiteral("p"));
    QCOMPARE(options->earlierDevice, QStringLiteral("e.json"));
    QCOMPARE(options->language, QStringLiteral("en"));
    QVERIFY(options->drive);
    QCOMPARE(options->drive->toText(), QStringLiteral("10.0.0.7:1502"));
    QCOMPARE(options->accessLevel, std::optional<quint32>(6));
    QCOMPARE(options->screenshotFile, QStringLiteral("x.png"));
    QCOMPARE(options->size, QSize(800, 600));
    QVERIFY(options->page == DeskOptions::ePage::Comparison);
    QCOMPARE(options->searchedText, QStringLiteral("current"));
    QCOMPARE(options->writes,
        (QList<DeskOptions::Input> {{QStringLiteral("1.H00"), QStringLiteral("15")},
            {QStringLiteral("A20"), QStringLiteral("a=b")}}));
    QCOMPARE(*options->edit, DeskOptions::Input(QStringLiteral("H01"), QString()));
}

void tst_DeskOptions::refused_data()
{
    QTest::addColumn<QString>("words");
    QTest::newRow("an unknown option") << QStringLiteral("--nothing");
    QTest::newRow("a word of its own") << QStringLiteral("two-axis-drive");
    QTest::newRow("a project without device") << QStringLiteral("--project p");
    QTest::newRow("an earlier device without device") << QStringLiteral("--earlier d");
    QTest::newRow("a language that there is not") << QStringLiteral("--lang fr");
    QTest::newRow("a level above the greatest") << QStringLiteral("--access-level 7");
    QTest::newRow("a level below 0") << QStringLiteral("--access-level -1");
    QTest::newRow("a level that is no number") << QStringLiteral("--access-level x");
    QTest::newRow("a size without height") << QStringLiteral("--size 800");
    QTest::newRow("a size of five digits") << QStringLiteral("--size 10000x800");
    QTest::newRow("a size of one digit") << QStringLiteral("--size 9x800");
    QTest::newRow("a side above the greatest") << QStringLiteral("--size 8193x800");
    QTest::newRow("a page that there is not") << QStringLiteral("--show values");
    QTest::newRow("an input without text") << QStringLiteral("--write H00");
    QTest::newRow("an input without address") << QStringLiteral("--write =5");
    QTest::newRow("an edit without address") << QStringLiteral("--edit =5");
    QTest::newRow("a drive that is no address") << QStringLiteral("--drive 10.0.0.7:0");
    QTest::newRow("an option without value") << QStringLiteral("--device");
}

void tst_DeskOptions::refused()
{
    QFETCH(QString, words);
    QString error;
    QVERIFY(!read(words, &error));
    QVERIFY(!error.isEmpty());
}

void tst_DeskOptions::answers_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QString>("expected");
    QTest::newRow("help") << QStringLiteral(
        "--help") << QStringLiteral("Werte eines Antriebs ansehen, ändern und vergleichen.");
    QTest::newRow("short help") << QStringLiteral("-h") << QStringLiteral("--screenshot");
    QTest::newRow("version") << QStringLiteral("--version") << QStringLiteral("krparameter-desk ");
}

void tst_DeskOptions::answers()
{
    QFETCH(QString, word);
    QFETCH(QString, expected);
    QString error;
    QString answer;
    QVERIFY(!DeskOptions::read({QStringLiteral("desk"), word}, error, answer));
    QCOMPARE(error, QString());
    QVERIFY2(answer.contains(expected), qPrintable(answer));
}

void tst_DeskOptions::language_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("expected");
    QTest::newRow("none") << QStringList() << QString();
    QTest::newRow("en") << QStringList {QStringLiteral("--lang"), QStringLiteral("en")}
                        << QStringLiteral("en");
    QTest::newRow("beside what is refused")
        << QStringList {QStringLiteral("--lang=en"), QStringLiteral("x")} << QStringLiteral("en");
    QTest::newRow("one that there is not")
        << QStringList {QStringLiteral("--lang"), QStringLiteral("fr")} << QString();
}

void tst_DeskOptions::language()
{
    QFETCH(QStringList, words);
    QFETCH(QString, expected);
    QCOMPARE(DeskOptions::languageOf(QStringList(QStringLiteral("desk")) + words), expected);
}

void tst_DeskOptions::needsNoScreen_data()
{
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<bool>("expected");
    QTest::newRow("picture") << QByteArray("--screenshot") << true;
    QTest::newRow("picture with file") << QByteArray("--screenshot=x.png") << true;
    QTest::newRow("help") << QByteArray("--help") << true;
    QTest::newRow("version") << QByteArray("--version") << true;
    QTest::newRow("device") << QByteArray("--device") << false;
    QTest::newRow("a longer word") << QByteArray("--screenshots") << false;
}

void tst_DeskOptions::needsNoScreen()
{
    QFETCH(QByteArray, word);
    QFETCH(bool, expected);
    const char *const words[] = {"desk", word.constData()};
    QCOMPARE(DeskOptions::needsNoScreen(2, words), expected);
}

QTEST_GUILESS_MAIN(tst_DeskOptions)
#include "tst_DeskOptions.moc"

#include "apps/host/BlockComparison.h"
#include "apps/host/LoadReport.h"
#include "tests/apps/SmallDevice.h"

#include <QtCore/QJsonArray>
#include <QtTest/QTest>

namespace {

using Signs = QList<eCutSign>;

QByteArray replaced(const char *before, const char *after)
{
    QByteArray block = SmallDevice::defaultBlock();
    return block.replace(before, after);
}

LoadReport reportOf(
    const QByteArray &block, const std::optional<BlockManifest::Entry> &noted = std::nullopt)
{
    const SmallDevice device;
    const auto project = device.open();
    return BlockComparison(block, project->container()).report(noted, nullptr);
}

} // namespace

class tst_LoadReport : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholeBlock();
    void skippedSections();
    void missingKeys();
    void missingKeysUnderALargerElementCount();
    void missingParameters();
    void notUnderstood_data();
    void notUnderstood();
    void repeatedSections();
    void malformedLines();
    void cutSigns_data();
    void cutSigns();
    void text();
    void cutSignTexts_data();
    void cutSignTexts();
    void textNamesTenOfAKind();
    void json();
    void randomBytes();
};

void tst_LoadReport::wholeBlock()
{
    const LoadReport report = reportOf(SmallDevice::defaultBlock());
    QVERIFY(report.isComplete());
    QCOMPARE(report.valuesRead, 5);
    QCOMPARE(report.defaultsRead, 5);
}

void tst_LoadReport::skippedSections()
{
    const LoadReport report =
        reportOf(replaced("[B001]", "[X000]\r\nV_0_0=1\r\n[nonsense]\r\n[B001]"));
    QCOMPARE(
        report.sectionsSkipped, (QStringList {QStringLiteral("X000"), QStringLiteral("nonsense")}));
    QVERIFY(report.leavesContentBehind());
    QVERIFY(!report.isCut());
}

void tst_LoadReport::missingKeys()
{
    const LoadReport report = reportOf(replaced("V_2_0=4200\r\nDV_2_0=4200\r\n", ""));
    // The second replacement takes the tail of "DV_2_0" as well: both keys of axis 2 are gone.
    QCOMPARE(report.valuesEmptied, QStringList(QStringLiteral("2.B01")));
    QCOMPARE(report.defaultsEmptied, QStringList(QStringLiteral("2.B01")));
    QCOMPARE(report.valuesRead, 4);
    QVERIFY(!report.isCut());
    QVERIFY(!report.isComplete());
}

void tst_LoadReport::missingKeysUnderALargerElementCount()
{
    const LoadReport report = reportOf(replaced("DV_0_0=abc\r\n", "DV_0_0=abc\r\nCE=2\r\n"));
    QCOMPARE(report.valuesEmptied, QStringList(QStringLiteral("A20[1]")));
    QCOMPARE(report.keysNotUnderstood, QStringList());
}

void tst_LoadReport::missingParameters()
{
    const LoadReport report = reportOf(replaced("[A020]\r\nV_0_0=abc\r\nDV_0_0=abc\r\n", ""));
    QCOMPARE(report.parametersMissing, QStringList(QStringLiteral("A20")));
    QVERIFY(!report.isCut());
}

void tst_LoadReport::notUnderstood_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("key");
    const auto row = [](const char *rule, const QByteArray &line, const QString &key) {
        QTest::newRow(rule) << line << key;
    };
    row("unknown key", "X=1", QStringLiteral("A020/X"));
    row("axis that the parameter lacks", "V_1_0=1", QStringLiteral("A020/V_1_0"));
    row("element that the parameter lacks", "V_0_1=1", QStringLiteral("A020/V_0_1"));
    row("leading zero", "V_0_00=1", QStringLiteral("A020/V_0_00"));
    row("no number", "V_0_x=1", QStringLiteral("A020/V_0_x"));
    row("element beyond 16 bits", "V_0_65536=1", QStringLiteral("A020/V_0_65536"));
    row("element count of nothing", "CE=0", QStringLiteral("A020/CE"));
    row("element count above 16000", "CE=16001", QStringLiteral("A020/CE"));
    row("tag of a property without override", "PC_0_5=a", QStringLiteral("A020/PC_0_5"));
    row("element count with a sign", "CE=+5", QStringLiteral("A020/CE"));
    row("property that is no override", "P_0_106=1", QStringLiteral("A020/P_0_106"));
    row("tag of what is no override", "P_0_106=1\r\nPC_0_106=a",
        QStringLiteral("A020/P_0_106 A020/PC_0_106"));
    row("property beyond the definition", "P_0_51=1", QStringLiteral("A020/P_0_51"));
    row("leading zero of an override's element", "P_00_5=1", QStringLiteral("A020/P_00_5"));
    row("leading zero of an override's property", "P_0_05=1", QStringLiteral("A020/P_0_05"));
    row("override of a later element of a simple parameter", "V_0_1=\r\nDV_0_1=\r\nP_1_5=1\r\nCE=2",
        QStringLiteral("A020/P_1_5"));
    row("understood: value tag", "VC_0_0=a", QString());
    row("understood: default tag", "DVC_0_0=a", QString());
    row("understood: override", "P_0_5=1", QString());
    row("understood: override of a property that the definition lacks", "P_0_8=1", QString());
    row("understood: override and tag", "P_0_5=1\r\nPC_0_5=a", QString());
    row("understood: element count", "CE=1", QString());
}

void tst_LoadReport::notUnderstood()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, key);
    const LoadReport report =
        reportOf(replaced("DV_0_0=abc\r\n", ("DV_0_0=abc\r\n" + line + "\r\n").constData()));
    QCOMPARE(report.keysNotUnderstood, key.split(u' ', Qt::SkipEmptyParts));
}

void tst_LoadReport::repeatedSections()
{
    const LoadReport report =
        reportOf(SmallDevice::defaultBlock() + "[A20]\r\nV_0_0=x\r\nDV_0_0=y\r\n");
    QCOMPARE(report.sectionsRepeated, QStringList(QStringLiteral("A20")));
}

void tst_LoadReport::malformedLines()
{
    const LoadReport report = reportOf(replaced("[B001]\r\n", "[B001]\r\nno key\r\n"));
    QCOMPARE(report.malformedLineCount, 1);
    QCOMPARE(report.firstMalformedLines, QList<qsizetype> {6});
    QVERIFY(report.leavesContentBehind());
}

void tst_LoadReport::cutSigns_data()
{
    QTest::addColumn<QByteArray>("block");
    QTest::addColumn<qsizetype>("noted");
    QTest::addColumn<QList<eCutSign>>("expected");
    const QByteArray whole = SmallDevice::defaultBlock();
    const qsizetype lastSection = whole.indexOf("[E030]");
    const auto row = [](const char *rule, const QByteArray &block, qsizetype noted,
                         const Signs &signs) { QTest::newRow(rule) << block << noted << signs; };
    row("whole, nothing noted", whole, -1, {});
    row("whole, as noted", whole, whole.size(), {});
    row("no line end", whole.chopped(2), -1, {eCutSign::NoLastLineEnd});
    row("half a line end", whole.chopped(1), -1, {eCutSign::NoLastLineEnd});
    row("last key gone", whole.chopped(10), -1, {eCutSign::LastSectionIncomplete});
    row("last section without keys", whole.first(lastSection + 8), -1,
        {eCutSign::LastSectionIncomplete});
    row("last section gone", whole.first(lastSection), -1, {eCutSign::LastParametersMissing});
    row("last section gone, one byte short of the note", whole.first(lastSection), lastSection + 1,
        {eCutSign::ShorterThanNoted, eCutSign::LastParametersMissing});
    row("empty", {}, -1, {eCutSign::LastParametersMissing});
    row("last tag gone, which the note alone shows", whole, whole.size() + 12,
        {eCutSign::ShorterThanNoted});
    row("longer than noted and whole", whole, whole.size() - 1, {});
    row("a whole block of fewer parameters, as noted", whole.first(lastSection), lastSection, {});
    row("element count gone", whole + "V_0_3=1\r\n", -1, {eCutSign::LastSectionIncomplete});
}

void tst_LoadReport::cutSigns()
{
    QFETCH(QByteArray, block);
    QFETCH(qsizetype, noted);
    std::optional<BlockManifest::Entry> entry;
    if (noted >= 0)
        entry = BlockManifest::Entry {noted, block.contains("[E030]") ? 3 : 2};
    QTEST(reportOf(block, entry).cutSigns, "expected");
}

void tst_LoadReport::text()
{
    QByteArray block = SmallDevice::defaultBlock();
    block.replace("[B001]\r\nV_1_0=4200\r\n", "[B001]\r\nX=1\r\n[Z999]\r\n[B001]\r\n");
    block.chop(2);
    QCOMPARE(reportOf(block).toText(),
        QStringLiteral("4 Werte und 5 Defaultwerte gelesen\n"
                       "1 Abschnitte übersprungen, das Gerät hat diese Parameter nicht: Z999\n"
                       "1 Werte fehlen und werden leer: 1.B01\n"
                       "1 Schlüssel nicht verstanden: B001/X\n"
                       "abgeschnitten: die letzte Zeile hat kein Zeilenende\n"));
}

void tst_LoadReport::cutSignTexts_data()
{
    QTest::addColumn<eCutSign>("sign");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("key");
    const auto row = [](eCutSign sign, const QString &text, const char *key) {
        QTest::newRow(key) << sign << text << QString::fromLatin1(key);
    };
    row(eCutSign::Missing, QStringLiteral("der Block fehlt, obwohl das Manifest ihn kennt"),
        "missing");
    row(eCutSign::ShorterThanNoted,
        QStringLiteral("der Block ist kürzer, als das Manifest festhält"), "shorterThanNoted");
    row(eCutSign::FewerSectionsThanNoted,
        QStringLiteral("der Block hat weniger Abschnitte, als das Manifest festhält"),
        "fewerSectionsThanNoted");
    row(eCutSign::NoLastLineEnd, QStringLiteral("die letzte Zeile hat kein Zeilenende"),
        "noLastLineEnd");
    row(eCutSign::LastSectionIncomplete, QStringLiteral("im letzten Abschnitt fehlen Schlüssel"),
        "lastSectionIncomplete");
    row(eCutSign::LastParametersMissing, QStringLiteral("genau die letzten Parameter fehlen"),
        "lastParametersMissing");
}

void tst_LoadReport::cutSignTexts()
{
    QFETCH(eCutSign, sign);
    QFETCH(QString, text);
    QFETCH(QString, key);
    LoadReport report;
    report.cutSigns = {sign};
    QVERIFY(report.isCut());
    QCOMPARE(report.toText(),
        QStringLiteral("0 Werte und 0 Defaultwerte gelesen\nabgeschnitten: %1\n").arg(text));
    QCOMPARE(report.toJson().value(QLatin1String("cut")).toArray(), QJsonArray {key});
}

void tst_LoadReport::textNamesTenOfAKind()
{
    LoadReport report;
    for (int i = 0; i < 12; ++i)
        report.sectionsSkipped.append(QString::number(i));
    QVERIFY(
        report.toText().contains(QLatin1String(": 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 und 2 weitere\n")));
}

void tst_LoadReport::json()
{
    const QJsonObject object = reportOf(SmallDevice::defaultBlock().chopped(2)).toJson();
    QCOMPARE(object.value(QLatin1String("valuesRead")).toInt(), 5);
    QCOMPARE(
        object.value(QLatin1String("cut")).toArray(), QJsonArray {QStringLiteral("noLastLineEnd")});
    QCOMPARE(object.value(QLatin1String("sectionsSkipped")).toArray(), QJsonArray());
}

void tst_LoadReport::randomBytes()
{
    const SmallDevice device;
    const auto project = device.open();
    quint32 state = 1;
    for (int round = 0; round < 2000; ++round) {
        QByteArray block = SmallDevice::defaultBlock();
        for (int i = 0; i < 5; ++i) {
            state = state * 1664525 + 1013904223;
            block[qsizetype(state >> 8) % block.size()] = char(state);
        }
        const LoadReport report =
            BlockComparison(block, project->container()).report(std::nullopt, nullptr);
        QVERIFY(report.valuesRead + report.valuesEmptied.size() <= 5 * 16000);
    }
}

QTEST_GUILESS_MAIN(tst_LoadReport)
#include "tst_LoadReport.moc"

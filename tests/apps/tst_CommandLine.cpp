#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/NamePattern.h"

#include <QtTest/QTest>

class tst_CommandLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parts_data();
    void parts();
    void refuses_data();
    void refuses();
    void repeatedOption();
    void pattern_data();
    void pattern();
};

namespace {

const QList<Option> Options {
    {QStringLiteral("axis"), QStringLiteral("N"), {}},
    {QStringLiteral("output"), QStringLiteral("FILE"), {}, u'o'},
    {QStringLiteral("json"), {}, {}},
    {QStringLiteral("help"), {}, {}, u'h'},
};

CommandLine parsed(const QString &words)
{
    return CommandLine(words.split(u' ', Qt::SkipEmptyParts), Options);
}

} // namespace

void tst_CommandLine::parts_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("command");
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("axis");
    const auto row = [](const char *rule, const char *words, const char *command,
                         const char *arguments, const char *axis) {
        QTest::newRow(rule) << QString::fromUtf8(words) << QString::fromUtf8(command)
                            << QString::fromUtf8(arguments) << QString::fromUtf8(axis);
    };
    row("nothing", "", "", "", "");
    row("option before the command", "--axis 2 get E84", "get", "E84", "2");
    row("option behind the command", "get E84 --axis 2", "get", "E84", "2");
    row("value behind the equals sign", "get --axis=2 E84", "get", "E84", "2");
    row("value that looks like an option", "get --axis --json", "get", "", "--json");
    row("negative number", "set B01 -5", "set", "B01 -5", "");
    row("dash alone", "set B01 -", "set", "B01 -", "");
    row("dash with several letters", "set B01 -abc", "set", "B01 -abc", "");
    row("two dashes end the options", "set -- A20 --axis", "set", "A20 --axis", "");
    row("two dashes before the command", "-- set A20", "set", "A20", "");
    row("short option", "get -o file E84", "get", "E84", "");
}

void tst_CommandLine::parts()
{
    QFETCH(QString, words);
    const CommandLine line = parsed(words);
    QCOMPARE(line.error(), QString());
    QTEST(line.command(), "command");
    QTEST(line.arguments().join(u' '), "arguments");
    QTEST(line.value(QStringLiteral("axis")), "axis");
}

void tst_CommandLine::refuses_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("error");
    QTest::newRow("unknown option")
        << QStringLiteral("get --no") << QStringLiteral("unbekannte Option --no");
    QTest::newRow("unknown letter")
        << QStringLiteral("get -x") << QStringLiteral("unbekannte Option -x");
    QTest::newRow("missing value")
        << QStringLiteral("get --axis") << QStringLiteral("--axis braucht einen Wert: N");
    QTest::newRow("empty value behind the equals sign")
        << QStringLiteral("get --axis= E84") << QStringLiteral("--axis braucht einen Wert: N");
    QTest::newRow("value of a switch")
        << QStringLiteral("get --json=1") << QStringLiteral("--json nimmt keinen Wert");
}

void tst_CommandLine::refuses()
{
    QFETCH(QString, words);
    QTEST(parsed(words).error(), "error");
}

void tst_CommandLine::repeatedOption()
{
    const CommandLine line = parsed(QStringLiteral("get --axis 1 --axis=2 -h --json"));
    QCOMPARE(line.values(QStringLiteral("axis")),
        (QStringList {QStringLiteral("1"), QStringLiteral("2")}));
    QCOMPARE(line.value(QStringLiteral("axis")), QStringLiteral("2"));
    QVERIFY(line.has(QStringLiteral("help")));
    QVERIFY(line.has(QStringLiteral("json")));
    QVERIFY(!line.has(QStringLiteral("output")));
}

void tst_CommandLine::pattern_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    const auto row = [](const char *rule, const char *pattern, const char *text, bool expected) {
        QTest::newRow(rule) << QString::fromUtf8(pattern) << QString::fromUtf8(text) << expected;
    };
    row("empty matches all", "", "Strom", true);
    row("part", "tro", "Strom", true);
    row("case", "STROM", "Nennstrom", true);
    row("case beyond ASCII", "ÄNDERUNG", "Änderung", true);
    row("not in it", "x", "Strom", false);
    row("stars stand for text", "S*m", "Strom", true);
    row("stars match the whole", "tro*", "Strom", false);
    row("question mark", "1.B?1", "1.B01", true);
    row("question mark is one character", "B?", "B01", false);
    row("other signs stand for themselves", "E30[1]", "E30[1]", true);
    row("other signs beside a star", "E30[*", "E30[1]", true);
    row("a dot is a dot", "1?B.*", "1.B01", false);
}

void tst_CommandLine::pattern()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QTEST(NamePattern(pattern).matches(text), "expected");
}

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"

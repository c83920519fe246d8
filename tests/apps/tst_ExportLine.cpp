#include "FrozenDevice.h"
#include "apps/host/ExportIssue.h"
#include "apps/host/ExportLine.h"

#include <QtTest/QtTest>

class tst_ExportLine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesOfAnAxis();
    void sameBytesAsTheSnapshotWrites();
    void rfc4180Text();
    void issues();
    void issueTexts();

private:
    SmallDevice m_device;
};

namespace {

const QList<eLivingSpace> AllSpaces {eLivingSpace::Global, eLivingSpace::Axis1, eLivingSpace::Axis2,
    eLivingSpace::Axis3, eLivingSpace::Axis4};

ExportLine line(const char *place, const char *name, const char *value)
{
    return {QString::fromUtf8(place), QString::fromUtf8(name), QString::fromUtf8(value)};
}

} // namespace

void tst_ExportLine::linesOfAnAxis()
{
    const auto project = m_device.open();
    const auto snapshot = frozen(*project);
    QStringList texts;
    for (const ExportLine &line :
        ExportLine::allOf(*snapshot, {eLivingSpace::Axis2, eLivingSpace::Global})) {
        if (line.place != QLatin1String("E84"))
            texts.append(line.place + QLatin1Char('|') + line.name + QLatin1Char('|') + line.value);
    }
    QCOMPARE(texts,
        (QStringList {QStringLiteral("A20|Text|abc"), QStringLiteral("2.B01|Strom|4.200 A"),
            QStringLiteral("E30[1]|Zahl|1"), QStringLiteral("E30[2]|Nenner|1")}));
}

void tst_ExportLine::sameBytesAsTheSnapshotWrites()
{
    const auto project = m_device.open();
    write(*project, 0, "A20", 0, "say \"hi\"\r\n\tÄ;");
    const auto snapshot = frozen(*project);
    const QString fileName = m_device.path("export.txt");
    QVERIFY(snapshot->saveToTextFile(fileName, snapshot->parameterList(), AllSpaces));
    QFile file(fileName);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(ExportLine::semicolonText(ExportLine::allOf(*snapshot, AllSpaces)), file.readAll());
}

void tst_ExportLine::rfc4180Text()
{
    QCOMPARE(ExportLine::rfc4180Text({line("A20", "Te\"xt", "=1"), line("1.B01", "Strom", "4 A")}),
        QByteArrayLiteral("\"address\",\"name\",\"value\"\r\n"
                          "\"A20\",\"Te\"\"xt\",\"'=1\"\r\n"
                          "\"1.B01\",\"Strom\",\"4 A\"\r\n"));
}

void tst_ExportLine::issues()
{
    QStringList found;
    for (const ExportIssue &issue :
        ExportIssue::allOf({line("A20", "plain", "plain; text"), line("1.B01", "=name", "-5 A"),
            line("E30[1]", "na\"me", "a\"b\n=c"), line("E30[2]", "a\rb", "@x")}))
        found.append(issue.toText());
    QCOMPARE(found,
        (QStringList {QStringLiteral("Parameter 1.B01: der Name wird von Tabellenprogrammen als "
                                     "Formel ausgeführt"),
            QStringLiteral("Parameter E30[1]: der Name enthält ein Anführungszeichen"),
            QStringLiteral("Parameter E30[1]: der Wert enthält ein Anführungszeichen"),
            QStringLiteral("Parameter E30[1]: der Wert enthält ein Zeilenende"),
            QStringLiteral("Parameter E30[2]: der Name enthält ein Zeilenende"),
            QStringLiteral("Parameter E30[2]: der Wert wird von Tabellenprogrammen als Formel "
                           "ausgeführt")}));
}

void tst_ExportLine::issueTexts()
{
    const QJsonObject issue = ExportIssue::allOf({line("A20", "Name", "=1")}).constFirst().toJson();
    QCOMPARE(issue,
        (QJsonObject {{QStringLiteral("address"), QStringLiteral("A20")},
            {QStringLiteral("field"), QStringLiteral("value")},
            {QStringLiteral("kind"), QStringLiteral("formula")},
            {QStringLiteral("text"), QStringLiteral("=1")}}));
}

QTEST_GUILESS_MAIN(tst_ExportLine)
#include "tst_ExportLine.moc"

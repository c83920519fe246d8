#include "apps/host/ContentCheck.h"
#include "apps/host/DriveProject.h"
#include "tests/support/MessageRecorder.h"

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

using namespace Qt::StringLiterals;

/// What is found in the content of a description.
class tst_ContentCheck : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void findings_data();
    void findings();

private:
    /// The parameters A12 with the first members in its element, B07 with the second.
    static std::unique_ptr<DriveProject> open(
        const QTemporaryDir &folder, const QString &first, const QString &second)
    {
        const QString json = uR"({"format": "kr-device-description", "version": 1,
            "family": {"identifier": 77, "name": "Test", "hasPhysicalAxes": false, "axes": [1]},
            "languages": ["de"], "dataTypes": ["UINT16"],
            "functions": {"limit": {"1": "return 5, 2", "3": "return 10, 70000", "4": "return 10, 20"},
                          "hiding": {"1": "return 1 .. {}"},
                          "postWrite": {"1": ""}},
            "parameters": [
              {"number": 1, "coordinates": ["A12"], "name": "A",
               "elements": [{"dataType": "UINT16" %1}]},
              {"number": 2, "coordinates": ["B07"], "name": "B",
               "elements": [{"dataType": "UINT16" %2}]}]})"_s.arg(first, second);
        QFile file(folder.filePath(u"drive.json"_s));
        if (!file.open(QIODevice::WriteOnly))
            return nullptr;
        file.write(json.toUtf8());
        file.close();
        QString error;
        std::unique_ptr<DriveProject> project = DriveProject::open(file.fileName(), error);
        if (!project)
            QTest::qFail(qPrintable(error), __FILE__, __LINE__);
        return project;
    }
};

void tst_ContentCheck::findings_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *rule, const QString &first, const QString &second,
                         const QStringList &expected) {
        QTest::newRow(rule) << first << second << expected;
    };
    row("nothing", QString(), QString(), {});
    row("a dependency that is followed", uR"(, "dependencies": {"postWrite": 1})"_s,
        uR"(, "functions": {"postWrite": 1})"_s, {});
    row("a dependency that nothing follows", uR"(, "dependencies": {"limit": 4, "hiding": -2})"_s,
        uR"(, "functions": {"postWrite": 1})"_s,
        {u"A12: die Abhängigkeit limit 4 führt zu keinem Wert"_s,
            u"A12: die Abhängigkeit hiding -2 führt zu keinem Wert"_s});
    row("a unit that is followed", uR"(, "dependencies": {"measuringUnit": 1})"_s,
        uR"(, "units": {"scaled": "<localAxis:A12>"})"_s, {});
    row("a unit of the active axis that is followed",
        uR"(, "dependencies": {"measuringUnit": 1})"_s,
        uR"(, "units": {"native": "<activeAxis:A012>"})"_s, {});
    row("a line feed behind a unit that is followed",
        uR"(, "dependencies": {"measuringUnit": 1})"_s,
        uR"(, "units": {"scaled": "<localAxis:A12>\n"})"_s, {});
    const QString nowhere = u"A12: die Abhängigkeit measuringUnit führt zu keiner Einheit"_s;
    for (const QString &unit : {u"localAxis:A12>"_s, u" <localAxis:A12>"_s}) {
        row(qPrintable(u"a unit as it stands: "_s + unit),
            uR"(, "dependencies": {"measuringUnit": 1})"_s,
            uR"(, "units": {"scaled": "%1"})"_s.arg(unit), {nowhere});
    }
    for (const QString &unit : {u"<A12>"_s, u"<anyAxis:A12>"_s, u"<:A12>"_s, u"<localAxis:a12>"_s,
             u"<localAxis:A>"_s, u"<localAxis:A0012>"_s, u"<localAxis:A12"_s, u"<localAxis: A12>"_s,
             u"<localAxis:A12>\\n\\n"_s}) {
        row(qPrintable(u"no locator: "_s + unit), uR"(, "dependencies": {"measuringUnit": 1})"_s,
            uR"(, "units": {"scaled": "%1"})"_s.arg(unit),
            {u"parameters[1].elements[0].units.scaled: begins with '<' and is no unit locator such "
             "as \"<localAxis:E12>\""_s,
                nowhere, u"unknown property value \"scaled measuring unit\" at parameter B07\""_s});
    }
    row("a unit that nothing follows", uR"(, "dependencies": {"measuringUnit": 1})"_s,
        uR"(, "units": {"scaled": "mm"})"_s,
        {u"A12: die Abhängigkeit measuringUnit führt zu keiner Einheit"_s});
    row("a function in a gap of the table", uR"(, "functions": {"limit": 2})"_s, QString(),
        {u"parameters[0].elements[0].functions.limit: there is no function 2; the highest is 4"_s});
    row("a function beyond the table", uR"(, "functions": {"limit": 5})"_s, QString(),
        {u"parameters[0].elements[0].functions.limit: there is no function 5; the highest is 4"_s,
            u"LimitFunctionIndex: das Gerät verwendet eine höhere Nummer, als seine Firmware hat"_s});
    row("limits that contradict each other", uR"(, "functions": {"limit": 1})"_s, QString(),
        {u"1.A12: die untere Grenze 5 liegt über der oberen 2"_s,
            u"1.A12: der Default 0 ist nicht zulässig; es gilt 2"_s});
    row("a limit outside of the type", uR"(, "functions": {"limit": 3}, "default": 10)"_s,
        QString(), {u"1.A12: die Grenze 70000 liegt außerhalb des Datentyps UINT16"_s});
    row("a default outside of a function's limits", uR"(, "functions": {"limit": 4})"_s, QString(),
        {u"1.A12: der Default 0 ist nicht zulässig; es gilt 10"_s});
    row("a default outside of the limits",
        uR"(, "limits": {"lower": 1, "upper": 3}, "default": 4)"_s, QString(),
        {u"parameters[0].elements[0].default: the default lies outside of the limits or choices"_s,
            u"1.A12: der Default 4 ist nicht zulässig; es gilt 3"_s});
    row("a function that fails", uR"(, "functions": {"hiding": 1})"_s, QString(),
        {u"hiding function 1 of parameter A12, element 0: line 1: attempt to concatenate a table value"_s});
}

void tst_ContentCheck::findings()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    MessageRecorder messages;
    const QTemporaryDir folder;
    const auto project = open(folder, first, second);
    QVERIFY(project);
    QStringList found;
    for (const ContentCheck::Finding &finding : ContentCheck::findings(*project))
        found.append(
            finding.place.isEmpty() ? finding.text : finding.place + u": "_s + finding.text);
    messages.take();
    QTEST(found, "expected");
}

QTEST_GUILESS_MAIN(tst_ContentCheck)

#include "tst_ContentCheck.moc"

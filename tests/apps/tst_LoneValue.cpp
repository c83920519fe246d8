#include "apps/krparameter/LoneValue.h"

#include "tests/online/OnlineDevice.h"

#include <KrParameterInstance/ParameterInformation.h>

#include <QtTest/QTest>

class tst_LoneValue : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void knowsWhatFollowsFromNothing_data();
    void knowsWhatFollowsFromNothing();
};

void tst_LoneValue::knowsWhatFollowsFromNothing_data()
{
    QTest::addColumn<QByteArray>("facts");
    QTest::addColumn<bool>("isLone");

    QTest::newRow("a number") << QByteArray() << true;
    QTest::newRow("limits, units and scaling of its own") << QByteArray(
        R"(, "limits": {"lower": 0, "upper": 5}, "units": {"scaled": "A"},
                         "scaling": {"factor": 0.1})") << true;
    QTest::newRow("the unit of another value")
        << QByteArray(R"(, "units": {"scaled": "<localAxis:E12>"})") << false;
    QTest::newRow("the native unit of another value")
        << QByteArray(R"(, "units": {"native": "<activeAxis:E12>"})") << false;
    QTest::newRow("a mapping") << QByteArray(R"(, "kind": 11)") << false;
    for (const char *kind :
        {"preRead", "preWrite", "postWrite", "postRead", "hiding", "limit", "scaling"}) {
        QTest::addRow("a function: %s", kind)
            << QByteArray(R"(, "functions": {"KIND": 1})").replace("KIND", kind) << false;
    }
    for (const char *kind : {"limit", "scaling", "postWrite", "preRead", "postRead", "preWrite",
             "hiding", "measuringUnit"}) {
        QTest::addRow("leads to: %s", kind)
            << QByteArray(R"(, "dependencies": {"KIND": 1})").replace("KIND", kind) << false;
    }
}

void tst_LoneValue::knowsWhatFollowsFromNothing()
{
    QFETCH(QByteArray, facts);
    QFETCH(bool, isLone);

    const OnlineDevice device(QByteArray(R"({"format": "kr-device-description", "version": 1,
          "family": {"identifier": 9, "name": "Device", "hasPhysicalAxes": true, "axes": [1]},
          "languages": ["de"], "dataTypes": ["UINT16"],
          "functions": {"preRead": {"1": "return"}, "preWrite": {"1": "return"},
            "postWrite": {"1": "return"}, "postRead": {"1": "return"},
            "hiding": {"1": "return false"}, "limit": {"1": "return"}, "scaling": {"1": "return"}},
          "parameters": [{"number": 1, "coordinates": ["A01"], "name": "N", "global": true,
            "elements": [{"dataType": "UINT16" FACTS}]}]})")
                                  .replace("FACTS", facts));
    const auto project = device.open();
    QVERIFY(project);
    const auto parameter = project->container().parameterInformation(at("A01"));
    QCOMPARE(LoneValue::isLone(*parameter, 0), isLone);
}

QTEST_GUILESS_MAIN(tst_LoneValue)
#include "tst_LoneValue.moc"

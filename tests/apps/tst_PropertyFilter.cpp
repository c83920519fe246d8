#include "FrozenDevice.h"
#include "apps/host/PropertyFilter.h"

#include <KrFilter/Filter.h>

#include <QtTest/QtTest>

class tst_PropertyFilter : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void accepted_data();
    void accepted();
    void refused_data();
    void refused();
    void unknownProperties();

private:
    SmallDevice m_device;
};

void tst_PropertyFilter::accepted_data()
{
    QTest::addColumn<QStringList>("conditions");
    QTest::addColumn<QStringList>("coordinates");
    const auto texts = [](std::initializer_list<const char *> words) {
        QStringList list;
        for (const char *word : words)
            list.append(QString::fromUtf8(word));
        return list;
    };
    QTest::newRow("none") << texts({}) << texts({"A20", "B01", "E30"});
    QTest::newRow("one") << texts({"Coordinate=B01"}) << texts({"B01"});
    QTest::newRow("values of one property are alternatives")
        << texts({"Coordinate=B01", "Coordinate=A20"}) << texts({"A20", "B01"});
    QTest::newRow("different properties hold at once")
        << texts({"Coordinate=B01", "Coordinate=A20", "ParameterKind=5"}) << texts({"A20"});
    QTest::newRow("nothing matches") << texts({"Coordinate=Z99"}) << texts({});
    QTest::newRow("the whole text counts") << texts({"Coordinate=B0"}) << texts({});
    QTest::newRow("case counts") << texts({"Coordinate=b01"}) << texts({});
    QTest::newRow("value with an equals sign") << texts({"ValueNative=a=b"}) << texts({});
    QTest::newRow("empty value") << texts({"ScaledMeasuringUnit="}) << texts({"A20", "E30"});
    QTest::newRow("unknown property is the coordinate") << texts({"Colour=B01"}) << texts({"B01"});
}

void tst_PropertyFilter::accepted()
{
    QFETCH(QStringList, conditions);
    QFETCH(QStringList, coordinates);
    const auto project = m_device.open();
    QString error;
    const auto filter = PropertyFilter::of(conditions, error);
    QVERIFY(filter);
    QCOMPARE(error, QString());
    ParameterValueSnapshot snapshot(&project->container());
    snapshot.apply(*filter);
    QStringList found;
    for (const ParameterCoordinate &coordinate : snapshot.parameterList()) {
        // The active axis is the library's own parameter.
        if (coordinate != at("E84"))
            found.append(coordinate.toText());
    }
    found.sort();
    QCOMPARE(found, coordinates);
}

void tst_PropertyFilter::refused_data()
{
    QTest::addColumn<QString>("condition");
    QTest::newRow("empty") << QString();
    QTest::newRow("no equals sign") << QStringLiteral("Coordinate");
    QTest::newRow("no property") << QStringLiteral("=B01");
}

void tst_PropertyFilter::refused()
{
    QFETCH(QString, condition);
    QString error;
    QVERIFY(!PropertyFilter::of({QStringLiteral("Name=x"), condition}, error));
    QCOMPARE(error,
        QStringLiteral("\"%1\" ist keine Bedingung der Form EIGENSCHAFT=WERT").arg(condition));
}

void tst_PropertyFilter::unknownProperties()
{
    QCOMPARE(PropertyFilter::unknownProperties({QStringLiteral("Name=x"), QStringLiteral("name=x"),
                 QStringLiteral("Colour=y"), QStringLiteral("name=z")}),
        (QStringList {QStringLiteral("name"), QStringLiteral("Colour")}));
    QCOMPARE(PropertyFilter::unknownProperties({}), QStringList());
}

QTEST_GUILESS_MAIN(tst_PropertyFilter)
#include "tst_PropertyFilter.moc"

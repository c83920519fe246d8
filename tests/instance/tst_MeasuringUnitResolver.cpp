#include "instance/MeasuringUnitResolver.h"

#include "tests/instance/InstanceStand.h"

#include <QtCore/QVariantList>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using eProblem = MeasuringUnitResolver::eProblem;

class tst_MeasuringUnitResolver : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plainUnits_data();
    void plainUnits();
    void multilingualUnitStaysAsItIs();
    void locatorTakesTheDisplayText_data();
    void locatorTakesTheDisplayText();
    void locatorOfAbsentParameter_data();
    void locatorOfAbsentParameter();
    void everyLanguageHasTheReferencedText();
    void choiceGivesItsEntryText();
    void locatedCoordinate_data();
    void locatedCoordinate();
};

namespace {

ParameterProperty textProperty(const QString &text)
{
    return ParameterProperty(QVariant(text));
}

DefinitionBuilder unitText(const QString &text)
{
    return DefinitionBuilder().kind(5).datatype(u"STRING16"_s).defaultValue(text);
}

} // namespace

void tst_MeasuringUnitResolver::plainUnits_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("problem");

    QTest::newRow("text") << QVariant(u"mA"_s) << u"mA"_s << int(eProblem::None);
    QTest::newRow("empty text") << QVariant(QString()) << QString() << int(eProblem::None);
    QTest::newRow("text that begins with <")
        << QVariant(u"<unit>"_s) << QString() << int(eProblem::Unknown);
    QTest::newRow("locator with four digits")
        << QVariant(u"<localAxis:E1234>"_s) << QString() << int(eProblem::Unknown);
    QTest::newRow("locator without digit")
        << QVariant(u"<localAxis:E>"_s) << QString() << int(eProblem::Unknown);
    QTest::newRow("locator with a small letter")
        << QVariant(u"<localAxis:e12>"_s) << QString() << int(eProblem::Unknown);
    QTest::newRow("locator of another axis")
        << QVariant(u"<otherAxis:E12>"_s) << QString() << int(eProblem::Unknown);
    QTest::newRow("locator with text behind")
        << QVariant(u"<localAxis:E12>x"_s) << QString() << int(eProblem::Unknown);
    QTest::newRow("locator with text before is a unit")
        << QVariant(u"x<localAxis:E12>"_s) << u"x<localAxis:E12>"_s << int(eProblem::None);
    QTest::newRow("list") << QVariant(QVariantList {1, 2}) << QString()
                          << int(eProblem::Inconvertible);
    QTest::newRow("no value") << QVariant() << QString() << int(eProblem::Inconvertible);
}

void tst_MeasuringUnitResolver::plainUnits()
{
    QFETCH(QVariant, value);
    QFETCH(QString, unit);
    QFETCH(int, problem);

    const InstanceStand stand;
    const MeasuringUnitResolver::Outcome outcome =
        MeasuringUnitResolver::resolve(ParameterProperty(value), stand.container.get(), Axis1);
    QCOMPARE(int(outcome.problem), problem);
    QCOMPARE(outcome.unit.longText(), unit);
    QCOMPARE(outcome.unit.shortText(), unit);
}

void tst_MeasuringUnitResolver::multilingualUnitStaysAsItIs()
{
    ParameterText unit;
    unit.setText(u"de"_s, u"U"_s, u"Umdrehungen"_s);
    unit.setText(u"en"_s, u"rev"_s, u"revolutions"_s);
    const InstanceStand stand;
    const MeasuringUnitResolver::Outcome outcome = MeasuringUnitResolver::resolve(
        ParameterProperty(QVariant::fromValue(unit)), stand.container.get(), Axis1);
    QCOMPARE(outcome.problem, eProblem::None);
    QCOMPARE(outcome.unit, unit);
}

void tst_MeasuringUnitResolver::locatorTakesTheDisplayText_data()
{
    QTest::addColumn<QString>("locator");
    QTest::addColumn<eLivingSpace>("livingSpace");
    QTest::addColumn<QString>("unit");

    QTest::newRow("local axis 1") << u"<localAxis:E13>"_s << Axis1 << u"mm"_s;
    QTest::newRow("local axis 2") << u"<localAxis:E13>"_s << Axis2 << u"inch"_s;
    QTest::newRow("active axis, asked from axis 1") << u"<activeAxis:E13>"_s << Axis1 << u"inch"_s;
    QTest::newRow("active axis, asked from axis 2") << u"<activeAxis:E13>"_s << Axis2 << u"inch"_s;
    QTest::newRow("global parameter from any axis") << u"<localAxis:E14>"_s << Axis2 << u"grad"_s;
    QTest::newRow("one digit names line 7") << u"<localAxis:E7>"_s << Axis1 << u"sieben"_s;
    QTest::newRow("three digits") << u"<localAxis:E007>"_s << Axis1 << u"sieben"_s;
    QTest::newRow("line feed behind it") << u"<localAxis:E07>\n"_s << Axis1 << u"sieben"_s;
    QTest::newRow("element 0 of a record") << u"<localAxis:E31>"_s << Axis1 << u"null"_s;
}

void tst_MeasuringUnitResolver::locatorTakesTheDisplayText()
{
    QFETCH(QString, locator);
    QFETCH(eLivingSpace, livingSpace);
    QFETCH(QString, unit);

    InstanceStand stand;
    stand.add(DefinitionBuilder().global().defaultValue(u"1"_s), u"E84"_s, {0});
    stand.add(unitText(u"mm"_s), u"E13"_s, {1, 2})->setNativeValue(Axis2, 0, u"inch"_s);
    stand.add(unitText(u"grad"_s).global(), u"E14"_s, {0});
    stand.add(unitText(u"sieben"_s), u"E07"_s);
    stand.add(unitText(u"null"_s).element(0, u"Null"_s).element(1, u"Eins"_s), u"E31"_s);
    const MeasuringUnitResolver::Outcome outcome =
        MeasuringUnitResolver::resolve(textProperty(locator), stand.container.get(), livingSpace);
    QCOMPARE(outcome.problem, eProblem::None);
    QCOMPARE(outcome.unit.longText(), unit);
}

void tst_MeasuringUnitResolver::locatorOfAbsentParameter_data()
{
    QTest::addColumn<QString>("locator");
    QTest::addColumn<eLivingSpace>("livingSpace");

    QTest::newRow("no parameter") << u"<localAxis:E99>"_s << Axis1;
    QTest::newRow("no instance on the axis") << u"<localAxis:E13>"_s << Axis2;
    QTest::newRow("living space without any instance") << u"<localAxis:E13>"_s << eLivingSpace(9);
    QTest::newRow("record without element 0") << u"<localAxis:E30>"_s << Axis1;
}

void tst_MeasuringUnitResolver::locatorOfAbsentParameter()
{
    QFETCH(QString, locator);
    QFETCH(eLivingSpace, livingSpace);

    InstanceStand stand;
    stand.add(unitText(u"mm"_s), u"E13"_s);
    stand.add(unitText(u"mm"_s).element(1, u"Eins"_s).element(2, u"Zwei"_s), u"E30"_s);
    const MeasuringUnitResolver::Outcome outcome =
        MeasuringUnitResolver::resolve(textProperty(locator), stand.container.get(), livingSpace);
    QCOMPARE(outcome.problem, eProblem::Unknown);
    QVERIFY(outcome.unit.isEmpty());
}

void tst_MeasuringUnitResolver::everyLanguageHasTheReferencedText()
{
    InstanceStand stand;
    stand.add(unitText(u"mm"_s), u"E13"_s);
    const ParameterText unit = MeasuringUnitResolver::resolve(
        textProperty(u"<localAxis:E13>"_s), stand.container.get(), Axis1)
                                   .unit;
    QCOMPARE(unit.languages(), (QStringList {u"de"_s, u"en"_s}));
    for (const QString &language : {u"de"_s, u"en"_s}) {
        QCOMPARE(unit.longText(language), u"mm"_s);
        QCOMPARE(unit.shortText(language), u"mm"_s);
    }
}

void tst_MeasuringUnitResolver::choiceGivesItsEntryText()
{
    InstanceStand stand;
    stand.add(
        DefinitionBuilder().kind(1).choices({{0, u"mm"_s}, {1, u"Zoll"_s}}).defaultValue(u"1"_s),
        u"E13"_s);
    QCOMPARE(MeasuringUnitResolver::resolve(
                 textProperty(u"<localAxis:E13>"_s), stand.container.get(), Axis1)
                 .unit.longText(),
        u"Zoll"_s);
}

void tst_MeasuringUnitResolver::locatedCoordinate_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("coordinate");

    QTest::newRow("local axis") << QVariant(u"<localAxis:E13>"_s) << u"E13"_s;
    QTest::newRow("active axis") << QVariant(u"<activeAxis:G245>"_s) << u"G245"_s;
    QTest::newRow("unit") << QVariant(u"mm"_s) << QString();
    QTest::newRow("other text with <") << QVariant(u"<E13>"_s) << QString();
    QTest::newRow("number") << QVariant(5) << QString();
    QTest::newRow("no value") << QVariant() << QString();
}

void tst_MeasuringUnitResolver::locatedCoordinate()
{
    QFETCH(QVariant, value);
    QFETCH(QString, coordinate);
    QCOMPARE(
        MeasuringUnitResolver::locatedCoordinate(ParameterProperty(value)).toText(), coordinate);
}

QTEST_GUILESS_MAIN(tst_MeasuringUnitResolver)

#include "tst_MeasuringUnitResolver.moc"

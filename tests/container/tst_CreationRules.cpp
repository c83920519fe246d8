#include "container/CreationRules.h"

#include "tests/support/DefinitionBuilder.h"

#include <KrLocator/Locator.h>

#include <QtTest/QtTest>

using namespace Qt::StringLiterals;
using CreationRules::eProblem;

class tst_CreationRules : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isGlobal_data();
    void isGlobal();
    void livingSpaces_data();
    void livingSpaces();
};

void tst_CreationRules::isGlobal_data()
{
    QTest::addColumn<bool>("isDefinedGlobal");
    QTest::addColumn<bool>("isPhysicalAxis");
    QTest::addColumn<bool>("hasPhysicalAxes");
    QTest::addColumn<bool>("expected");

    QTest::newRow("not global, plain family") << false << false << false << false;
    QTest::newRow("not global, physical axes") << false << false << true << false;
    QTest::newRow("not global, physical axis, plain family") << false << true << false << false;
    QTest::newRow("not global, physical axis, physical axes") << false << true << true << false;
    QTest::newRow("global, plain family") << true << false << false << true;
    QTest::newRow("global, physical axes") << true << false << true << true;
    QTest::newRow("global physical axis, plain family") << true << true << false << true;
    QTest::newRow("global physical axis, physical axes: a copy each")
        << true << true << true << false;
}

void tst_CreationRules::isGlobal()
{
    QFETCH(bool, isDefinedGlobal);
    QFETCH(bool, isPhysicalAxis);
    QFETCH(bool, hasPhysicalAxes);
    const auto definition =
        DefinitionBuilder().global(isDefinedGlobal).physicalAxis(isPhysicalAxis).build();
    QTEST(CreationRules::isGlobal(definition.get(), hasPhysicalAxes), "expected");
}

void tst_CreationRules::livingSpaces_data()
{
    QTest::addColumn<QString>("locator");
    QTest::addColumn<bool>("isSingle");
    QTest::addColumn<bool>("isGlobal");
    QTest::addColumn<bool>("isPhysicalAxis");
    QTest::addColumn<bool>("hasPhysicalAxes");
    QTest::addColumn<QList<int>>("expected");
    QTest::addColumn<int>("problem");

    const int none = int(eProblem::None);
    const int systemMulti = int(eProblem::SystemMultiInstance);
    const int relative = int(eProblem::RelativeLocator);
    const auto row = [](const char *rule, const QString &locator, bool isSingle, bool isGlobal,
                         bool isPhysicalAxis, bool hasPhysicalAxes, const QList<int> &expected,
                         int problem) {
        QTest::newRow(rule) << locator << isSingle << isGlobal << isPhysicalAxis << hasPhysicalAxes
                            << expected << problem;
    };
    const QString system = u"S;{P1}"_s;
    row("system single, physical axes: 1 and 2", system, true, false, false, true, {1, 2}, none);
    row("system single, plain family: 1 to 4", system, true, false, false, false, {1, 2, 3, 4},
        none);
    row("system single global: 0", system, true, true, false, true, {0}, none);
    row("system single global physical axis, plain family: 0", system, true, true, true, false, {0},
        none);
    row("system single global physical axis, physical axes", system, true, true, true, true, {1, 2},
        none);
    row("system multi: none", system, false, false, false, true, {}, systemMulti);
    row("system multi global: none", system, false, true, false, false, {}, systemMulti);

    row("living space 1", u"D.1;{P1}"_s, true, false, false, true, {1}, none);
    row("living space 2", u"D.2;{P1}"_s, true, false, false, true, {2}, none);
    row("living space 3", u"D.3;{P1}"_s, true, false, false, false, {3}, none);
    row("living space 4", u"D.4;{P1}"_s, false, false, false, false, {4}, none);
    row("living space 3 on physical axes", u"D.3;{P1}"_s, true, false, false, true, {3}, none);
    row("living space 0 of a local one: none", u"D.0;{P1}"_s, true, false, false, true, {}, none);
    row("living space 0 of a global one", u"D.0;{P1}"_s, true, true, false, true, {0}, none);
    row("any living space of a global one: 0", u"D.3;{P1}"_s, false, true, false, true, {0}, none);
    row("global physical axis on physical axes", u"D.2;{P1}"_s, true, true, true, true, {2}, none);
    row("global physical axis on a plain family", u"D.2;{P1}"_s, true, true, true, false, {0},
        none);

    row("relative single", u"D;{P1}"_s, true, false, false, true, {}, relative);
    row("relative global", u"D;{P1}"_s, true, true, false, true, {}, relative);
    row("living space 5 is relative", u"D.5;{P1}"_s, true, false, false, false, {}, relative);
    row("anchor begins with S only", u"Sx;{P1}"_s, true, false, false, true, {}, relative);
}

void tst_CreationRules::livingSpaces()
{
    QFETCH(QString, locator);
    QFETCH(bool, isSingle);
    QFETCH(bool, isGlobal);
    QFETCH(bool, isPhysicalAxis);
    QFETCH(bool, hasPhysicalAxes);
    DefinitionBuilder builder;
    builder.global(isGlobal).physicalAxis(isPhysicalAxis);
    if (!isSingle)
        builder.multiInstance();

    const CreationRules::LivingSpaces spaces =
        CreationRules::livingSpaces(Locator(locator), builder.build().get(), hasPhysicalAxes);

    QList<int> numbers;
    for (const eLivingSpace livingSpace : spaces.list)
        numbers.append(int(livingSpace));
    QTEST(numbers, "expected");
    QTEST(int(spaces.problem), "problem");
}

QTEST_APPLESS_MAIN(tst_CreationRules)
#include "tst_CreationRules.moc"

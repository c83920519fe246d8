#include "tests/value/RecordAccess.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using enum eLivingSpace;
using enum eParameterProperty;
using LmIniParser::IniSection;

namespace {

// A step is a definition, by the elements of a record or by the count of a simple parameter, or a
// shortened count under the same definition.
constexpr int Simple = -1;
constexpr int Shortened = -2;

} // namespace

/// Elements that go and come back, also while a record is being asked.
class tst_ParameterInstanceDataElements : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rearrangeRecord();
    void textsReturnWithTheirElement_data();
    void textsReturnWithTheirElement();
    void storedTextsOfAbsentElements_data();
    void storedTextsOfAbsentElements();
    void absentElementsShowNothing();
    void discardReachesAbsentElements();
    void nestedReadOfADefault();
    void nestedReadBeyondTheDefinedCount();
    void nestedWriteDuringADefault();
    void countShrinksDuringADefault();
};

void tst_ParameterInstanceDataElements::rearrangeRecord()
{
    InstanceStand stand;
    auto *set = stand.add(
        DefinitionBuilder().element(3, u"a"_s).element(1, u"b"_s).element(2, u"c"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    for (const quint16 element : {1, 2, 3})
        record->setValue(element, QString::number(element * 10));
    ParameterDefinition *next = stand.define(
        DefinitionBuilder().version(2).element(1, u"b"_s).element(4, u"d"_s).element(3, u"a"_s),
        u"A12"_s);
    set->takeDefinition(next);
    QCOMPARE(record->value(1), u"10"_s);
    QCOMPARE(record->value(3), u"30"_s);
    QCOMPARE(record->value(4), u"0"_s);
    QCOMPARE(reasonOf([&] { record->checkElement(2); }), 2);
    QCOMPARE(reasonOf([&] { record->setValue(2, u"1"_s); }), 2);
}

void tst_ParameterInstanceDataElements::textsReturnWithTheirElement_data()
{
    using Steps = QList<QList<int>>;
    QTest::addColumn<Steps>("steps");
    QTest::newRow("record that loses an element") << Steps {{1, 2, 3}, {1, 3}, {1, 2, 3}};
    QTest::newRow("record that loses it twice") << Steps {{1, 2, 3}, {1, 3}, {1}, {4}, {3, 2, 1}};
    QTest::newRow("record in another order") << Steps {{3, 1, 2}, {2}, {2, 3, 1}};
    QTest::newRow("shortened count, then a record")
        << Steps {{Simple, 3}, {Shortened, 1}, {0, 1, 2}};
    QTest::newRow("simple to record") << Steps {{Simple, 3}, {0, 2}, {0, 1, 2}};
    QTest::newRow("simple to record and back") << Steps {{Simple, 3}, {1}, {Simple, 3}};
    QTest::newRow("simple of one element in between") << Steps {{0, 1, 2}, {Simple, 1}, {0, 1, 2}};
    QTest::newRow("record to simple") << Steps {{0, 1, 2}, {2}, {Simple, 3}};
    QTest::newRow("simple that grows again") << Steps {{Simple, 3}, {Simple, 1}, {Simple, 3}};
    QTest::newRow("element that no simple parameter has")
        << Steps {{1, 16383}, {Simple, 2}, {1, 16383}};
}

void tst_ParameterInstanceDataElements::textsReturnWithTheirElement()
{
    QFETCH(QList<QList<int>>, steps);
    InstanceStand stand;
    quint32 version = 0;
    const auto define = [&](const QList<int> &step) {
        DefinitionBuilder builder = DefinitionBuilder().version(++version).defaultValue(u"-1"_s);
        if (step.constFirst() == Simple)
            builder.elementCount(quint16(step.constLast()));
        else
            for (const int element : step)
                builder.element(quint16(element), u"a"_s);
        return builder;
    };
    auto *set = stand.add(define(steps.constFirst()), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    const QList<quint16> elements = set->elementList();
    for (const quint16 element : elements) {
        record->setValue(element, QString::number(element * 10));
        record->setDefaultValue(element, QString::number(element * 10 + 1));
        record->setValueChangeTag(element, u"v%1"_s.arg(element));
        record->setDefaultValueChangeTag(element, u"d%1"_s.arg(element));
    }
    for (const QList<int> &step : steps.sliced(1)) {
        if (step.constFirst() == Shortened)
            set->setElementCount(quint16(step.constLast()));
        else
            set->takeDefinition(stand.define(define(step), u"A12"_s));
    }
    QVERIFY(set->elementSet().contains(elements.constFirst()));
    for (const quint16 element : elements) {
        if (!set->elementSet().contains(element))
            continue;
        QCOMPARE(record->value(element), QString::number(element * 10));
        QCOMPARE(record->defaultValue(element), QString::number(element * 10 + 1));
        QCOMPARE(record->valueChangeTag(element), u"v%1"_s.arg(element));
        QCOMPARE(record->defaultValueChangeTag(element), u"d%1"_s.arg(element));
    }
}

void tst_ParameterInstanceDataElements::storedTextsOfAbsentElements_data()
{
    QTest::addColumn<bool>("isRecord");
    QTest::newRow("beyond a shortened count") << false;
    QTest::newRow("that a definition lacks") << true;
}

// What is stored is told before the element is looked at; nothing more is stored.
void tst_ParameterInstanceDataElements::storedTextsOfAbsentElements()
{
    QFETCH(bool, isRecord);
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().elementCount(3), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    record->setValue(2, u"7"_s);
    record->setDefaultValue(2, u"8"_s);
    record->setValueChangeTag(2, u"t"_s);
    if (isRecord)
        set->takeDefinition(
            stand.define(DefinitionBuilder().version(2).element(0, u"a"_s), u"A12"_s));
    else
        set->setElementCount(1);
    QCOMPARE(record->value(2), u"7"_s);
    QCOMPARE(record->defaultValue(2), u"8"_s);
    QCOMPARE(record->valueChangeTag(2), u"t"_s);
    QCOMPARE(record->defaultValueChangeTag(2), QString());
    QCOMPARE(reasonOf([&] { record->value(1); }), 2);
    QCOMPARE(reasonOf([&] { record->setValue(2, u"1"_s); }), 2);
    QCOMPARE(reasonOf([&] { record->setValueChangeTag(2, u"1"_s); }), 2);
}

void tst_ParameterInstanceDataElements::absentElementsShowNothing()
{
    InstanceStand stand;
    auto *set = stand.add(DefinitionBuilder().element(1, u"a"_s).element(2, u"b"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    stand.container->setParameterChangeTag(u"t"_s);
    record->setValue(2, u"7"_s);
    set->takeDefinition(stand.define(DefinitionBuilder().version(2).element(1, u"a"_s), u"A12"_s));
    stand.container->setParameterChangeTag(QString());
    QCOMPARE(set->nativeValueText(Axis1, 2, false), QString());
    QCOMPARE(set->attribute(Axis1, 2, u"ValueChangeTag"_s), QString());
    QCOMPARE(record->valueWithoutFirmware(2), QString());
    QCOMPARE(record->changeTags(), QStringList());
    IniSection section;
    record->saveToSection(section);
    QCOMPARE(linesOf(section), (QStringList {u"V_1_1=0"_s, u"DV_1_1=0"_s}));
}

void tst_ParameterInstanceDataElements::discardReachesAbsentElements()
{
    InstanceStand stand;
    const DefinitionBuilder both = DefinitionBuilder().element(1, u"a"_s).element(2, u"b"_s);
    auto *set = stand.add(both, u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    stand.container->setParameterChangeTag(u"ts_1"_s);
    record->setValue(2, u"7"_s);
    record->setDefaultValue(2, u"8"_s);
    stand.container->setParameterChangeTag(QString());
    set->takeDefinition(stand.define(DefinitionBuilder().version(2).element(1, u"a"_s), u"A12"_s));
    const ParameterInstanceData::Changes changes =
        record->discard(u"ts_1"_s, QRegularExpression(u"ts_1"_s));
    QCOMPARE(changes.values, QList<quint16>());
    QCOMPARE(changes.defaults, QList<quint16>());
    set->takeDefinition(stand.define(DefinitionBuilder(both).version(3), u"A12"_s));
    QCOMPARE(record->value(2), u"0"_s);
    QCOMPARE(record->defaultValue(2), u"0"_s);
}

void tst_ParameterInstanceDataElements::nestedReadOfADefault()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s));
    stand.container->setParameterChangeTag(u"t"_s);
    QStringList nested;
    firmware->correctValue = [&](const QString &, const ParameterData &, quint16) {
        nested = {record->value(0), record->defaultValue(0), record->valueChangeTag(0),
            record->defaultValueChangeTag(0)};
        return u"50"_s;
    };
    QCOMPARE(record->value(0), u"50"_s);
    // The definition's default, uncorrected; nothing stored.
    QCOMPARE(nested, (QStringList {u"5"_s, u"5"_s, QString(), QString()}));
    QCOMPARE(firmware->callsOf(u"correctValue"_s).size(), 1);
    QCOMPARE(record->defaultValue(0), u"50"_s);
}

void tst_ParameterInstanceDataElements::nestedReadBeyondTheDefinedCount()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    auto *set = stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s);
    set->setElementCount(3);
    ParameterInstanceData *record = recordOf(set);
    QString nested;
    firmware->correctValue = [&](const QString &, const ParameterData &, quint16) {
        nested = record->value(2);
        return u"50"_s;
    };
    QCOMPARE(record->value(0), u"50"_s);
    QCOMPARE(nested, u"5"_s);
    // The uncorrected text was not kept.
    QCOMPARE(record->value(2), u"50"_s);
}

void tst_ParameterInstanceDataElements::nestedWriteDuringADefault()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    ParameterInstanceData *record =
        recordOf(stand.add(DefinitionBuilder().defaultValue(u"5"_s), u"A12"_s));
    firmware->correctValue = [&](const QString &text, const ParameterData &, quint16) {
        record->setValue(0, u"7"_s);
        record->setDefaultValue(0, u"6"_s);
        return text;
    };
    // What was written meanwhile is not overwritten by what was to be read.
    QCOMPARE(record->value(0), u"7"_s);
    QCOMPARE(record->defaultValue(0), u"6"_s);
}

void tst_ParameterInstanceDataElements::countShrinksDuringADefault()
{
    InstanceStand stand;
    ProgrammedFunctions *firmware = stand.programFirmware();
    auto *set = stand.add(DefinitionBuilder().elementCount(3).defaultValue(u"5"_s), u"A12"_s);
    ParameterInstanceData *record = recordOf(set);
    firmware->correctValue = [&](const QString &text, const ParameterData &, quint16) {
        set->setElementCount(1);
        return text;
    };
    QCOMPARE(reasonOf([&] { record->value(2); }), -1);
    QCOMPARE(set->elementCount(), quint16(1));
    set->setElementCount(3);
    QCOMPARE(record->defaultValue(2), u"5"_s);
}

QTEST_GUILESS_MAIN(tst_ParameterInstanceDataElements)

#include "tst_ParameterInstanceDataElements.moc"

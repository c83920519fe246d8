#include "snapshot/SnapshotRecordBuilder.h"

#include "tests/snapshot/AddressFilter.h"
#include "tests/snapshot/FakeParameterInformation.h"

#include <QtTest/QTest>

#include <memory>

/// What a parameter becomes when it is frozen, with and without a filter.
class tst_SnapshotRecordBuilder : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingWithoutParameter();
    void nothingWithoutLivingSpace();
    void nothingWithoutElement();
    void simpleParameter();
    void recordParameter();
    void listsAreAscending();
    void livingSpacesAreThoseThatTheSnapshotTakes();
    void valuesOfUntakenLivingSpacesAreHeld();
    void missingPlacesAreEmpty();
    void parameterKeptWithoutTakenLivingSpace();

    void unitsOfEachForm();
    void emptyTextKeepsItsUnit();
    void multilingualUnit();
    void kindFiveHasNoUnits();
    void kindIsAskedForEachElement();

    void rejectedEverywhere();
    void rejectedInOneLivingSpace();
    void rejectedInTheFirstLivingSpace();
    void lastElementRejectedLater();
    void onlyElementRejectedFirst();
    void namesOfElementsThatAreNotHeld();
    void elementsThatAreNotHeldTakeNoPlace();
    void filterSeesEveryPlaceOnce();
    void filterSeesElementsAsDefined();
    void firstElementThatAFilterSees();

    void namesAndUnitsAreAskedOnce();
    void displayTextIsAskedForWhereItMayBeMasked_data();
    void displayTextIsAskedForWhereItMayBeMasked();
    void equalTextsAreShared();
    void equalLayoutsAndUnitsAreShared();
    void parameterGoesAwayMeanwhile();
};

namespace {

using eMasking = SnapshotRecordBuilder::eMasking;

constexpr eLivingSpace Global = eLivingSpace::Global;
constexpr eLivingSpace Axis1 = eLivingSpace::Axis1;
constexpr eLivingSpace Axis2 = eLivingSpace::Axis2;
const QSet<eLivingSpace> AllSpaces {Global, Axis1, Axis2};

std::optional<SnapshotRecord> frozen(ParameterInformation &information,
    const Filter *filter = nullptr, const QSet<eLivingSpace> &livingSpaces = AllSpaces)
{
    SnapshotRecordBuilder builder(livingSpaces, filter);
    return builder.build(&information);
}

/// A12 on axes 1 and 2 with elements 0 and 1; the text of a value is "<axis>-<element>".
std::unique_ptr<FakeParameterInformation> twoByTwo()
{
    auto information =
        std::make_unique<FakeParameterInformation>(QStringLiteral("A12"), QStringLiteral("Name"));
    information->isRecord = true;
    information->elements = {0, 1};
    information->spaces = {Axis1, Axis2};
    for (const eLivingSpace livingSpace : {Axis1, Axis2}) {
        for (const quint16 element : {0, 1}) {
            information->setValue(livingSpace, element,
                QStringLiteral("%1-%2").arg(static_cast<int>(livingSpace)).arg(element));
        }
    }
    information->elementNames = {{0, QStringLiteral("Zero")}, {1, QStringLiteral("One")}};
    information->readLevels = {{0, 3}, {1, 4}};
    return information;
}

const QString Axis1Element0 = QStringLiteral("1.A012[00000]");
const QString Axis1Element1 = QStringLiteral("1.A012[00001]");
const QString Axis2Element0 = QStringLiteral("2.A012[00000]");
const QString Axis2Element1 = QStringLiteral("2.A012[00001]");

} // namespace

void tst_SnapshotRecordBuilder::nothingWithoutParameter()
{
    SnapshotRecordBuilder builder(AllSpaces, nullptr);
    QVERIFY(!builder.build(nullptr));
}

void tst_SnapshotRecordBuilder::nothingWithoutLivingSpace()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.spaces.clear();
    QVERIFY(!frozen(information));
}

void tst_SnapshotRecordBuilder::nothingWithoutElement()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.elements.clear();
    QVERIFY(!frozen(information));
}

void tst_SnapshotRecordBuilder::simpleParameter()
{
    FakeParameterInformation information(QStringLiteral("A00"), QStringLiteral("Speed"));
    information.setValue(
        Global, 0, {QStringLiteral("01h"), QStringLiteral("1"), QStringLiteral("1.0")});
    information.readLevels = {{0, 2}};

    const auto record = frozen(information);
    QVERIFY(record);
    QCOMPARE(record->name(), QStringLiteral("Speed"));
    QCOMPARE(record->layout().livingSpaces, QList {Global});
    QCOMPARE(record->layout().elements, QList<quint16> {0});
    QCOMPARE(record->value(Global, 0).display, QStringLiteral("01h"));
    QCOMPARE(record->value(Global, 0).native, QStringLiteral("1"));
    QCOMPARE(record->value(Global, 0).undecorated, QStringLiteral("1.0"));
    QCOMPARE(record->elementReadLevel(0), 2U);
    // Only a record's elements have names of their own.
    QCOMPARE(record->elementName(0), QString());
}

void tst_SnapshotRecordBuilder::recordParameter()
{
    const auto information = twoByTwo();
    const auto record = frozen(*information);
    QVERIFY(record);
    QCOMPARE(record->layout().livingSpaces, (QList {Axis1, Axis2}));
    QCOMPARE(record->layout().elements, (QList<quint16> {0, 1}));
    QCOMPARE(record->elementName(0), QStringLiteral("Zero"));
    QCOMPARE(record->elementName(1), QStringLiteral("One"));
    QCOMPARE(record->elementReadLevel(0), 3U);
    QCOMPARE(record->elementReadLevel(1), 4U);
    QCOMPARE(record->value(Axis1, 0).display, QStringLiteral("1-0"));
    QCOMPARE(record->value(Axis1, 1).display, QStringLiteral("1-1"));
    QCOMPARE(record->value(Axis2, 0).display, QStringLiteral("2-0"));
    QCOMPARE(record->value(Axis2, 1).display, QStringLiteral("2-1"));
}

void tst_SnapshotRecordBuilder::listsAreAscending()
{
    FakeParameterInformation information(QStringLiteral("A12"));
    information.isRecord = true;
    information.elements = {900, 0, 16000};
    information.elementNames = {{900, QStringLiteral("Middle")}};
    information.spaces = {Axis2, Global, Axis1};
    information.setValue(Axis2, 900, QStringLiteral("2-900"));
    information.setValue(Global, 16000, QStringLiteral("0-16000"));

    const auto record = frozen(information);
    QVERIFY(record);
    QCOMPARE(record->layout().livingSpaces, (QList {Global, Axis1, Axis2}));
    QCOMPARE(record->layout().elements, (QList<quint16> {0, 900, 16000}));
    QCOMPARE(record->value(Axis2, 900).display, QStringLiteral("2-900"));
    QCOMPARE(record->value(Global, 16000).display, QStringLiteral("0-16000"));
    QCOMPARE(record->elementName(900), QStringLiteral("Middle"));
}

void tst_SnapshotRecordBuilder::livingSpacesAreThoseThatTheSnapshotTakes()
{
    const auto information = twoByTwo();
    const auto record = frozen(*information, nullptr, {Global, Axis2});
    QVERIFY(record);
    QCOMPARE(record->layout().livingSpaces, QList {Axis2});
}

void tst_SnapshotRecordBuilder::valuesOfUntakenLivingSpacesAreHeld()
{
    const auto information = twoByTwo();
    const auto record = frozen(*information, nullptr, {Global, Axis2});
    QVERIFY(record);
    QCOMPARE(record->value(Axis1, 1).display, QStringLiteral("1-1"));
}

void tst_SnapshotRecordBuilder::missingPlacesAreEmpty()
{
    const auto information = twoByTwo();
    information->setUnits(QStringLiteral("rpm"), QStringLiteral("inc"));
    const auto record = frozen(*information);
    QVERIFY(record);
    QCOMPARE(record->value(Global, 0).displayWithUnit(), QString());
    QCOMPARE(record->value(Axis1, 2).displayWithUnit(), QString());
    QCOMPARE(record->value(Axis1, 65535).nativeWithUnit(), QString());
    QCOMPARE(record->value(static_cast<eLivingSpace>(-1), 0).displayWithUnit(), QString());
    QCOMPARE(record->elementName(2), QString());
    QCOMPARE(record->elementReadLevel(2), 0U);
}

void tst_SnapshotRecordBuilder::parameterKeptWithoutTakenLivingSpace()
{
    const auto information = twoByTwo();
    const auto record = frozen(*information, nullptr, {Global});
    QVERIFY(record);
    QCOMPARE(record->layout().livingSpaces, QList<eLivingSpace>());
    QCOMPARE(record->value(Axis1, 0).display, QStringLiteral("1-0"));
}

void tst_SnapshotRecordBuilder::unitsOfEachForm()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(
        Global, 0, {QStringLiteral("01h"), QStringLiteral("1"), QStringLiteral("1.0")});
    information.setUnits(QStringLiteral("rpm"), QStringLiteral("inc"));
    const auto record = frozen(information);
    QVERIFY(record);
    QCOMPARE(record->value(Global, 0).displayWithUnit(), QStringLiteral("01h rpm"));
    QCOMPARE(record->value(Global, 0).nativeWithUnit(), QStringLiteral("1 inc"));
    QCOMPARE(record->value(Global, 0).undecoratedWithUnit(), QStringLiteral("1.0 rpm"));
}

void tst_SnapshotRecordBuilder::emptyTextKeepsItsUnit()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(Global, 0, QString());
    information.setUnits(QStringLiteral("rpm"), QString());
    const auto record = frozen(information);
    QVERIFY(record);
    QCOMPARE(record->value(Global, 0).displayWithUnit(), QStringLiteral(" rpm"));
    QCOMPARE(record->value(Global, 0).nativeWithUnit(), QString());
}

void tst_SnapshotRecordBuilder::multilingualUnit()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(Global, 0, QStringLiteral("5"));
    information.setProperty(0, eParameterProperty::ScaledMeasuringUnit,
        QVariant::fromValue(FakeParameterInformation::text(QStringLiteral("1/min"))));
    information.setProperty(0, eParameterProperty::NativeMeasuringUnit,
        QVariant::fromValue(FakeParameterInformation::text(QStringLiteral("<inc"))));
    const auto record = frozen(information);
    QVERIFY(record);
    QCOMPARE(record->value(Global, 0).displayWithUnit(), QStringLiteral("5 1/min"));
    QCOMPARE(record->value(Global, 0).nativeWithUnit(), QStringLiteral("5 <inc"));
    QCOMPARE(information.unitCount, 0);
}

void tst_SnapshotRecordBuilder::kindFiveHasNoUnits()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(Global, 0, QStringLiteral("5"));
    information.setUnits(QStringLiteral("rpm"), QStringLiteral("inc"));
    information.kinds = {{0, 5}};
    const auto record = frozen(information);
    QVERIFY(record);
    QCOMPARE(record->value(Global, 0).displayWithUnit(), QStringLiteral("5"));
    QCOMPARE(record->value(Global, 0).nativeWithUnit(), QStringLiteral("5"));
    QCOMPARE(record->value(Global, 0).undecoratedWithUnit(), QStringLiteral("5"));
    QCOMPARE(information.unitCount, 0);
}

void tst_SnapshotRecordBuilder::kindIsAskedForEachElement()
{
    const auto information = twoByTwo();
    information->setUnits(QStringLiteral("rpm"), QString());
    information->kinds = {{0, 5}, {1, 0}};
    const auto record = frozen(*information);
    QVERIFY(record);
    QCOMPARE(record->value(Axis1, 0).displayWithUnit(), QStringLiteral("1-0"));
    QCOMPARE(record->value(Axis1, 1).displayWithUnit(), QStringLiteral("1-1 rpm"));
}

void tst_SnapshotRecordBuilder::rejectedEverywhere()
{
    const auto information = twoByTwo();
    const AddressFilter filter({Axis1Element0, Axis1Element1, Axis2Element0, Axis2Element1});
    QVERIFY(!frozen(*information, &filter));
}

void tst_SnapshotRecordBuilder::rejectedInOneLivingSpace()
{
    const auto information = twoByTwo();
    information->setUnits(QStringLiteral("rpm"), QString());
    const AddressFilter filter({Axis2Element0});
    const auto record = frozen(*information, &filter);
    QVERIFY(record);
    QCOMPARE(record->layout().elements, QList<quint16> {1});
    QCOMPARE(record->value(Axis1, 0).displayWithUnit(), QStringLiteral("1-0 rpm"));
    QCOMPARE(record->value(Axis2, 0).displayWithUnit(), QString());
    QCOMPARE(record->value(Axis2, 1).displayWithUnit(), QStringLiteral("2-1 rpm"));
    QCOMPARE(record->elementReadLevel(0), 3U);
    QCOMPARE(record->elementName(0), QStringLiteral("Zero"));
}

void tst_SnapshotRecordBuilder::rejectedInTheFirstLivingSpace()
{
    const auto information = twoByTwo();
    const AddressFilter filter({Axis1Element0});
    const auto record = frozen(*information, &filter);
    QVERIFY(record);
    QCOMPARE(record->layout().elements, QList<quint16> {1});
    QCOMPARE(record->value(Axis1, 0).display, QString());
    QCOMPARE(record->value(Axis2, 0).display, QStringLiteral("2-0"));
}

/// The first living space is held, the second one leaves no element.
void tst_SnapshotRecordBuilder::lastElementRejectedLater()
{
    const auto information = twoByTwo();
    const AddressFilter filter({Axis2Element0, Axis2Element1});
    const auto record = frozen(*information, &filter);
    QVERIFY(record);
    QCOMPARE(record->layout().elements, QList<quint16>());
    QCOMPARE(record->layout().livingSpaces, (QList {Axis1, Axis2}));
    QCOMPARE(record->value(Axis1, 1).display, QStringLiteral("1-1"));
    QCOMPARE(record->value(Axis2, 1).display, QString());
}

/// No element is left when the accepting living space comes.
void tst_SnapshotRecordBuilder::onlyElementRejectedFirst()
{
    const auto information = twoByTwo();
    information->elements = {0};
    const AddressFilter filter({Axis1Element0});
    QVERIFY(!frozen(*information, &filter));
}

/// Element 0 is accepted only where the living space is not held any more.
void tst_SnapshotRecordBuilder::namesOfElementsThatAreNotHeld()
{
    const auto information = twoByTwo();
    const AddressFilter filter({Axis1Element0, Axis2Element1});
    const auto record = frozen(*information, &filter);
    QVERIFY(record);
    QCOMPARE(record->layout().elements, QList<quint16>());
    QCOMPARE(record->value(Axis1, 1).display, QStringLiteral("1-1"));
    QCOMPARE(record->value(Axis2, 0).display, QString());
    QCOMPARE(record->elementName(0), QString());
    QCOMPARE(record->elementReadLevel(0), 0U);
    QCOMPARE(record->elementName(1), QStringLiteral("One"));
    QCOMPARE(record->elementReadLevel(1), 4U);
}

void tst_SnapshotRecordBuilder::elementsThatAreNotHeldTakeNoPlace()
{
    FakeParameterInformation information(QStringLiteral("A12"));
    information.isRecord = true;
    information.spaces = {Axis1, Axis2};
    information.elements = {0, 1, 5, 9};
    information.elementNames = {{5, QStringLiteral("Five")}, {9, QStringLiteral("Nine")}};
    information.readLevels = {{5, 3}, {9, 4}};
    for (const eLivingSpace livingSpace : {Axis1, Axis2}) {
        for (const quint16 element : {0, 1, 5, 9})
            information.setValue(livingSpace, element,
                QStringLiteral("%1-%2").arg(qint32(livingSpace)).arg(element));
    }
    // 0 and 1 are rejected everywhere, 5 on axis 2 alone.
    const AddressFilter filter({QStringLiteral("1.A012[00000]"), QStringLiteral("2.A012[00000]"),
        QStringLiteral("1.A012[00001]"), QStringLiteral("2.A012[00001]"),
        QStringLiteral("2.A012[00005]")});
    const auto record = frozen(information, &filter);
    QVERIFY(record);
    QCOMPARE(record->layout().positions, (QList<quint16> {5, 9}));
    QCOMPARE(record->layout().elements, QList<quint16> {9});
    QCOMPARE(record->layout().readLevels, (QList<quint32> {3, 4}));
    QCOMPARE(record->sequence(Axis1).size(), 2U);
    QCOMPARE(record->value(Axis1, 5).display, QStringLiteral("1-5"));
    QCOMPARE(record->value(Axis1, 9).display, QStringLiteral("1-9"));
    QCOMPARE(record->value(Axis2, 5).display, QString());
    QCOMPARE(record->value(Axis2, 9).display, QStringLiteral("2-9"));
    QCOMPARE(record->value(Axis1, 0).display, QString());
    QCOMPARE(record->elementName(5), QStringLiteral("Five"));
    QCOMPARE(record->elementName(9), QStringLiteral("Nine"));
}

void tst_SnapshotRecordBuilder::filterSeesEveryPlaceOnce()
{
    const auto information = twoByTwo();
    const AddressFilter filter({Axis1Element0});
    // Also in a living space that the snapshot does not take.
    frozen(*information, &filter, {Global});
    QCOMPARE(
        filter.asked, (QStringList {Axis1Element0, Axis1Element1, Axis2Element0, Axis2Element1}));
}

void tst_SnapshotRecordBuilder::filterSeesElementsAsDefined()
{
    FakeParameterInformation information(QStringLiteral("A12"));
    information.isRecord = true;
    information.elements = {2, 0, 5};
    information.spaces = {Axis1, Axis2};
    const AddressFilter filter({});
    frozen(information, &filter);
    QCOMPARE(filter.asked,
        (QStringList {QStringLiteral("1.A012[00002]"), QStringLiteral("1.A012[00000]"),
            QStringLiteral("1.A012[00005]"), QStringLiteral("2.A012[00002]"),
            QStringLiteral("2.A012[00000]"), QStringLiteral("2.A012[00005]")}));
}

/// Values stand with their elements, in whichever order these are defined.
void tst_SnapshotRecordBuilder::firstElementThatAFilterSees()
{
    class FirstElementFilter final : public Filter {
    public:
        bool testElement(const FilterElement &) const override { return m_count++ == 0; }

    private:
        mutable int m_count = 0;
    };
    FakeParameterInformation information(QStringLiteral("A12"));
    information.isRecord = true;
    information.elements = {2, 0, 5};
    information.elementNames = {{0, QStringLiteral("Zero")}, {2, QStringLiteral("Two")}};
    information.spaces = {Axis1};
    information.setValue(Axis1, 0, QStringLiteral("of 0"));
    information.setValue(Axis1, 2, QStringLiteral("of 2"));
    const FirstElementFilter filter;
    const auto record = frozen(information, &filter);
    QVERIFY(record);
    QCOMPARE(record->layout().elements, QList<quint16> {2});
    QCOMPARE(record->value(Axis1, 2).display, QStringLiteral("of 2"));
    QCOMPARE(record->value(Axis1, 0).display, QString());
    QCOMPARE(record->elementName(2), QStringLiteral("Two"));
}

void tst_SnapshotRecordBuilder::namesAndUnitsAreAskedOnce()
{
    const auto information = twoByTwo();
    // Neither text nor multilingual text: only the accessor knows.
    information->scaledUnits = {{0, QStringLiteral("rpm")}, {1, QStringLiteral("rpm")}};
    const auto record = frozen(*information);
    QVERIFY(record);
    QCOMPARE(record->value(Axis2, 1).displayWithUnit(), QStringLiteral("2-1 rpm"));
    QCOMPARE(information->nameCount, 1);
    QCOMPARE(information->elementNameCount, 2);
    // Two elements, two units each, whatever the number of living spaces.
    QCOMPARE(information->unitCount, 4);
}

void tst_SnapshotRecordBuilder::displayTextIsAskedForWhereItMayBeMasked_data()
{
    QTest::addColumn<int>("writeLevel");
    QTest::addColumn<eMasking>("masking");
    QTest::addColumn<QString>("display");
    QTest::addColumn<int>("displayCount");
    const QString prepared = QStringLiteral("prepared");
    const QString masked = QStringLiteral("<offline>");
    constexpr eMasking ByLevel = eMasking::ByWriteLevel;
    QTest::newRow("level 5: from the value text") << 5 << ByLevel << prepared << 0;
    QTest::newRow("level 6: the masked text") << 6 << ByLevel << masked << 1;
    QTest::newRow("level 7: the masked text") << 7 << ByLevel << masked << 1;
    QTest::newRow("no level") << -1 << ByLevel << prepared << 0;
    QTest::newRow("online, level 5: from the value text") << 5 << eMasking::None << prepared << 0;
    QTest::newRow("online, level 6: from the value text") << 6 << eMasking::None << prepared << 0;
}

void tst_SnapshotRecordBuilder::displayTextIsAskedForWhereItMayBeMasked()
{
    QFETCH(int, writeLevel);
    QFETCH(eMasking, masking);
    QFETCH(QString, display);
    QFETCH(int, displayCount);
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(
        Global, 0, {QStringLiteral("<offline>"), QStringLiteral("1500"), QStringLiteral("1.5")});
    information.preparedTexts[{eLivingSpace::Global, 0}] = {
        {QStringLiteral("1.5"), QStringLiteral("prepared")}};
    information.writeLevels = {{0, writeLevel}};
    SnapshotRecordBuilder builder(AllSpaces, nullptr);
    const auto record = builder.build(&information, masking);
    QVERIFY(record);
    QCOMPARE(record->value(Global, 0).display, display);
    QCOMPARE(information.displayCount, displayCount);
}

void tst_SnapshotRecordBuilder::equalTextsAreShared()
{
    FakeParameterInformation information(QStringLiteral("A00"));
    information.setValue(Global, 0,
        {QString::fromLatin1("15"), QString::fromLatin1("15"), QString::fromLatin1("15")});
    const auto record = frozen(information);
    QVERIFY(record);
    const SnapshotValue &value = record->value(Global, 0);
    QVERIFY(value.display.constData() == value.native.constData());
    QVERIFY(value.undecorated.constData() == value.native.constData());
    const QString stored = information.values.value({Global, 0}).native;
    QVERIFY(value.native.constData() == stored.constData());
}

void tst_SnapshotRecordBuilder::equalLayoutsAndUnitsAreShared()
{
    FakeParameterInformation first(QStringLiteral("A00"), QStringLiteral("First"));
    FakeParameterInformation other(QStringLiteral("A01"), QStringLiteral("Other"));
    first.setUnits(QStringLiteral("rpm"), QString());
    other.setUnits(QStringLiteral("rpm"), QString());
    SnapshotRecordBuilder builder(AllSpaces, nullptr);
    const auto firstRecord = builder.build(&first);
    const auto otherRecord = builder.build(&other);
    QVERIFY(&firstRecord->layout() == &otherRecord->layout());
    QVERIFY(firstRecord->value(Global, 0).units == otherRecord->value(Global, 0).units);

    other.readLevels = {{0, 1}};
    other.setUnits(QString(), QStringLiteral("rpm"));
    const auto different = builder.build(&other);
    QVERIFY(&firstRecord->layout() != &different->layout());
    QCOMPARE(different->value(Global, 0).scaledUnit(), QString());
    QCOMPARE(different->value(Global, 0).nativeUnit(), QStringLiteral("rpm"));
}

void tst_SnapshotRecordBuilder::parameterGoesAwayMeanwhile()
{
    auto information = twoByTwo();
    int count = 0;
    information->onDisplayText = [&] {
        if (++count == 3)
            information.reset();
    };
    SnapshotRecordBuilder builder(AllSpaces, nullptr);
    QVERIFY(!builder.build(information.get()));
    QCOMPARE(count, 3);
}

QTEST_GUILESS_MAIN(tst_SnapshotRecordBuilder)
#include "tst_SnapshotRecordBuilder.moc"

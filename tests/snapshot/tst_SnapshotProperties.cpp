#include "FakeParameterInformation.h"
#include "snapshot/ParameterValueSnapshotPrivate.h"
#include "snapshot/SnapshotComparison.h"
#include "snapshot/SnapshotJson.h"
#include "snapshot/SnapshotRecordBuilder.h"

#include <QtTest/QtTest>

#include <rapidcheck.h>

#include <map>
#include <memory>
#include <set>

/// What holds for any two states of a device, whatever they are.
class tst_SnapshotProperties : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differenceFollowsTheRule();
    void differenceIsSymmetric();
    void noDifferenceToItself();
    void mergeIsIdempotent();
    void mergeTakesAllOfTheOther();
    void jsonKeepsEverything();
};

namespace {

const QSet<eLivingSpace> TakenSpaces {
    eLivingSpace::Global, eLivingSpace::Axis1, eLivingSpace::Axis2};

/// One value as a device shows it.
struct Shown {
    std::string display;
    std::string native;
    std::string value;
};

/// A parameter in a plain form of its own. Few different texts, so that equal ones come up often.
struct Described {
    std::set<int> livingSpaces;
    std::set<int> elements;
    std::string scaledUnit;
    std::string nativeUnit;
    std::map<std::pair<int, int>, Shown> values;
};

using Device = std::map<int, Described>;

rc::Gen<std::string> text()
{
    return rc::gen::element<std::string>("", "1", "2", "1 A");
}

rc::Gen<std::set<int>> someBelow(int end)
{
    return rc::gen::exec([end] {
        std::set<int> numbers;
        for (int number = 0; number < end; ++number) {
            if (*rc::gen::arbitrary<bool>())
                numbers.insert(number);
        }
        return numbers;
    });
}

rc::Gen<Described> described()
{
    return rc::gen::exec([] {
        Described parameter;
        parameter.livingSpaces = *someBelow(3);
        parameter.livingSpaces.insert(*rc::gen::inRange(0, 2));
        parameter.elements = *someBelow(3);
        parameter.elements.insert(0);
        parameter.scaledUnit = *rc::gen::element<std::string>("", "A");
        parameter.nativeUnit = *rc::gen::element<std::string>("", "mA");
        for (const int livingSpace : parameter.livingSpaces) {
            for (const int element : parameter.elements)
                parameter.values[{livingSpace, element}] = {*text(), *text(), *text()};
        }
        return parameter;
    });
}

rc::Gen<Device> device()
{
    return rc::gen::exec([] {
        Device device;
        for (const int line : *someBelow(5))
            device[line] = *described();
        return device;
    });
}

QString qText(const std::string &text)
{
    return QString::fromStdString(text);
}

ParameterCoordinate coordinate(int line)
{
    return ParameterCoordinate(quint16(1), quint16(line));
}

SnapshotRecords frozen(const Device &device)
{
    SnapshotRecordBuilder builder(TakenSpaces, nullptr);
    SnapshotRecords records;
    for (const auto &[line, parameter] : device) {
        FakeParameterInformation information(coordinate(line).toText(), QStringLiteral("Name"));
        information.isRecord = true;
        information.spaces.clear();
        information.elements.clear();
        for (const int livingSpace : parameter.livingSpaces)
            information.spaces.append(eLivingSpace(livingSpace));
        for (const int element : parameter.elements)
            information.elements.append(quint16(element));
        information.setUnits(qText(parameter.scaledUnit), qText(parameter.nativeUnit));
        for (const auto &[place, shown] : parameter.values) {
            information.setValue(eLivingSpace(place.first), quint16(place.second),
                {qText(shown.display), qText(shown.native), qText(shown.value)});
        }
        records.insert(coordinate(line), *builder.build(&information));
    }
    return records;
}

std::string withUnit(const std::string &text, const std::string &unit)
{
    return unit.empty() ? text : text + " " + unit;
}

/// The rule as it is written: lists first, then both texts with unit, value by value.
bool areDifferent(const Described &a, const Described &b)
{
    if (a.livingSpaces != b.livingSpaces || a.elements != b.elements)
        return true;
    for (const auto &[place, shown] : a.values) {
        const Shown &other = b.values.at(place);
        if (withUnit(shown.display, a.scaledUnit) != withUnit(other.display, b.scaledUnit)
            && withUnit(shown.native, a.nativeUnit) != withUnit(other.native, b.nativeUnit))
            return true;
    }
    return false;
}

std::set<int> differentLines(const Device &a, const Device &b)
{
    std::set<int> lines;
    for (const auto &[line, parameter] : a) {
        if (!b.count(line) || areDifferent(parameter, b.at(line)))
            lines.insert(line);
    }
    for (const auto &[line, parameter] : b) {
        if (!a.count(line))
            lines.insert(line);
    }
    return lines;
}

std::set<int> linesOf(const QList<ParameterCoordinate> &coordinates)
{
    std::set<int> lines;
    for (const ParameterCoordinate &coordinate : coordinates)
        RC_ASSERT(lines.insert(coordinate.line()).second);
    return lines;
}

/// A second state that has much in common with the first.
rc::Gen<std::pair<Device, Device>> pairOfStates()
{
    return rc::gen::exec([] {
        const Device first = *device();
        Device second = *device();
        for (const auto &[line, parameter] : first) {
            if (*rc::gen::inRange(0, 3) == 0)
                continue;
            second[line] = parameter;
            for (auto &[place, shown] : second[line].values) {
                if (*rc::gen::inRange(0, 4) == 0)
                    shown = {*text(), *text(), *text()};
            }
        }
        return std::pair(first, second);
    });
}

} // namespace

void tst_SnapshotProperties::differenceFollowsTheRule()
{
    QVERIFY(rc::check("the list holds exactly the parameters that the rule names", [] {
        const auto [a, b] = *pairOfStates();
        const auto different = SnapshotComparison::differentCoordinates(frozen(a), frozen(b));
        RC_ASSERT(linesOf(different) == differentLines(a, b));
        RC_ASSERT(different.isEmpty() == differentLines(a, b).empty());
    }));
}

void tst_SnapshotProperties::differenceIsSymmetric()
{
    QVERIFY(rc::check("both directions name the same parameters", [] {
        const auto [a, b] = *pairOfStates();
        RC_ASSERT(linesOf(SnapshotComparison::differentCoordinates(frozen(a), frozen(b)))
            == linesOf(SnapshotComparison::differentCoordinates(frozen(b), frozen(a))));
    }));
}

void tst_SnapshotProperties::noDifferenceToItself()
{
    QVERIFY(rc::check("a state does not differ from itself, frozen once or twice", [] {
        const Device state = *device();
        const SnapshotRecords records = frozen(state);
        RC_ASSERT(SnapshotComparison::differentCoordinates(records, records).isEmpty());
        RC_ASSERT(SnapshotComparison::differentCoordinates(records, frozen(state)).isEmpty());
    }));
}

void tst_SnapshotProperties::mergeIsIdempotent()
{
    QVERIFY(rc::check("a second merge of the same changes nothing", [] {
        const auto [a, b] = *pairOfStates();
        ParameterValueSnapshotPrivate other(nullptr, nullptr);
        other.records = frozen(b);
        ParameterValueSnapshotPrivate merged(nullptr, nullptr);
        merged.records = frozen(a);
        RC_ASSERT(merged.unite(&other));
        const SnapshotRecords once = merged.records;
        RC_ASSERT(merged.unite(&other));
        RC_ASSERT(once.keys() == merged.records.keys());
        RC_ASSERT(SnapshotJson::write({{}, once}) == SnapshotJson::write({{}, merged.records}));
    }));
}

void tst_SnapshotProperties::mergeTakesAllOfTheOther()
{
    QVERIFY(rc::check("the other's parameters are its own afterwards, the rest stays", [] {
        const auto [a, b] = *pairOfStates();
        Device expected = a;
        for (const auto &[line, parameter] : b)
            expected[line] = parameter;
        ParameterValueSnapshotPrivate other(nullptr, nullptr);
        other.records = frozen(b);
        ParameterValueSnapshotPrivate merged(nullptr, nullptr);
        merged.records = frozen(a);
        RC_ASSERT(merged.unite(&other));
        RC_ASSERT(SnapshotJson::write({{}, merged.records})
            == SnapshotJson::write({{}, frozen(expected)}));
    }));
}

void tst_SnapshotProperties::jsonKeepsEverything()
{
    QVERIFY(rc::check("what was written reads back the same", [] {
        const SnapshotJson::Content content {TakenSpaces, frozen(*device())};
        const QByteArray json = SnapshotJson::write(content);
        QString problem;
        const auto read = SnapshotJson::read(json, problem);
        RC_ASSERT(read.has_value());
        RC_ASSERT(read->livingSpaces == TakenSpaces);
        RC_ASSERT(
            SnapshotComparison::differentCoordinates(content.records, read->records).isEmpty());
        RC_ASSERT(SnapshotJson::write(*read) == json);
    }));
}

QTEST_GUILESS_MAIN(tst_SnapshotProperties)
#include "tst_SnapshotProperties.moc"

#include "AddressFilter.h"
#include "FakeParameterInformation.h"
#include "snapshot/ParameterValueSnapshotPrivate.h"
#include "snapshot/SnapshotComparison.h"
#include "snapshot/SnapshotJson.h"
#include "snapshot/SnapshotRecordBuilder.h"

#include <QtTest/QtTest>

#include <rapidcheck.h>

#include <map>
#include <optional>
#include <set>
#include <utility>

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

/// Axis 3 has values too, but is not taken.
const QSet<eLivingSpace> TakenSpaces {
    eLivingSpace::Global, eLivingSpace::Axis1, eLivingSpace::Axis2};
constexpr int LastAxis = 3;
constexpr int LastTakenAxis = 2;
/// The kind that shows no units.
constexpr int TextKind = 5;

/// One value as a device shows it.
struct Shown {
    std::string display;
    std::string native;
    std::string value;
};

/// Living space and element.
using Place = std::pair<int, int>;

/// Scaled and native.
using Units = std::pair<std::string, std::string>;

/// A parameter in a plain form of its own. Few different texts, so that equal ones come up often.
struct Described {
    std::set<int> livingSpaces;
    std::set<int> elements;
    std::set<int> textElements; ///< Of the kind without units.
    std::map<int, Units> units;
    std::map<Place, Shown> values;
    std::set<Place> rejected; ///< By the filter.
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
        for (const int line : *someBelow(LastAxis))
            parameter.livingSpaces.insert(line + 1);
        parameter.livingSpaces.insert(*rc::gen::inRange(1, LastAxis + 1));
        parameter.elements = *someBelow(3);
        parameter.elements.insert(0);
        const bool isFiltered = *rc::gen::arbitrary<bool>();
        for (const int element : parameter.elements) {
            if (*rc::gen::inRange(0, 4) == 0)
                parameter.textElements.insert(element);
            parameter.units[element] = {
                *rc::gen::element<std::string>("", "A"), *rc::gen::element<std::string>("", "mA")};
            for (const int livingSpace : parameter.livingSpaces) {
                parameter.values[{livingSpace, element}] = {*text(), *text(), *text()};
                if (isFiltered && *rc::gen::inRange(0, 3) == 0)
                    parameter.rejected.insert({livingSpace, element});
            }
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

QStringList rejectedAddresses(const Device &device)
{
    QStringList addresses;
    for (const auto &[line, parameter] : device) {
        for (const auto &[livingSpace, element] : parameter.rejected) {
            addresses.append(QStringLiteral("%1.%2[%3]")
                                 .arg(livingSpace)
                                 .arg(coordinate(line).toSortableText())
                                 .arg(element, 5, 10, QLatin1Char('0')));
        }
    }
    return addresses;
}

SnapshotRecords frozen(const Device &device)
{
    const AddressFilter filter(rejectedAddresses(device));
    SnapshotRecordBuilder builder(TakenSpaces, &filter);
    SnapshotRecords records;
    for (const auto &[line, parameter] : device) {
        FakeParameterInformation information(coordinate(line).toText(), QStringLiteral("Name"));
        information.isRecord = true;
        information.spaces.clear();
        information.elements.clear();
        for (const int livingSpace : parameter.livingSpaces)
            information.spaces.append(eLivingSpace(livingSpace));
        for (const int element : parameter.elements) {
            information.elements.append(quint16(element));
            const auto &[scaled, native] = parameter.units.at(element);
            information.setUnits(quint16(element), qText(scaled), qText(native));
            information.kinds[quint16(element)] =
                parameter.textElements.count(element) ? TextKind : 0;
        }
        for (const auto &[place, shown] : parameter.values) {
            information.setValue(eLivingSpace(place.first), quint16(place.second),
                {qText(shown.display), qText(shown.native), qText(shown.value)});
        }
        if (const auto record = builder.build(&information))
            records.insert(coordinate(line), *record);
    }
    return records;
}

std::string withUnit(const std::string &text, const std::string &unit)
{
    return unit.empty() ? text : text + " " + unit;
}

/// What a snapshot holds of a parameter.
struct Held {
    std::set<int> livingSpaces; ///< That are taken.
    std::set<int> elements;
    /// Display and native text, with their units.
    std::map<Place, std::pair<std::string, std::string>> texts;
};

/// The rule as it is written: a rejected element leaves the list for good, and a living space's
/// values are held only while the list is not empty. Nothing where none is held.
std::optional<Held> held(const Described &parameter)
{
    Held result;
    result.elements = parameter.elements;
    bool isHeld = false;
    for (const int livingSpace : parameter.livingSpaces) {
        if (livingSpace <= LastTakenAxis)
            result.livingSpaces.insert(livingSpace);
        for (const int element : parameter.elements) {
            if (parameter.rejected.count({livingSpace, element}))
                result.elements.erase(element);
        }
        if (result.elements.empty())
            continue;
        isHeld = true;
        for (const int element : parameter.elements) {
            const Shown &shown = parameter.values.at({livingSpace, element});
            const Units units =
                parameter.textElements.count(element) ? Units() : parameter.units.at(element);
            if (!parameter.rejected.count({livingSpace, element})) {
                result.texts[{livingSpace, element}] = {
                    withUnit(shown.display, units.first), withUnit(shown.native, units.second)};
            }
        }
    }
    return isHeld ? std::optional(result) : std::nullopt;
}

/// Lists first, then both texts with unit, value by value.
bool areDifferent(const Held &a, const Held &b)
{
    if (a.livingSpaces != b.livingSpaces || a.elements != b.elements)
        return true;
    for (const int livingSpace : a.livingSpaces) {
        for (const int element : a.elements) {
            const auto &first = a.texts.at({livingSpace, element});
            const auto &second = b.texts.at({livingSpace, element});
            if (first.first != second.first && first.second != second.second)
                return true;
        }
    }
    return false;
}

std::map<int, Held> held(const Device &device)
{
    std::map<int, Held> result;
    for (const auto &[line, parameter] : device) {
        if (const auto known = held(parameter))
            result[line] = *known;
    }
    return result;
}

std::set<int> differentLines(const Device &first, const Device &second)
{
    const std::map<int, Held> a = held(first);
    const std::map<int, Held> b = held(second);
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
        for (const auto &[line, parameter] : b) {
            if (held(parameter))
                expected[line] = parameter;
        }
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

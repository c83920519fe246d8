#include "snapshot/SnapshotRowModel.h"

#include "snapshot/FillingProgress.h"
#include "snapshot/ParameterValueSnapshotPrivate.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QStringBuilder>

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

namespace {

/// Of two ascending lists.
template <typename T>
QList<T> united(const QList<T> &a, const QList<T> &b)
{
    // Most snapshots hold the same.
    if (a.isEmpty() || a == b)
        return b;
    QList<T> result;
    result.reserve(std::max(a.size(), b.size()));
    std::set_union(a.cbegin(), a.cend(), b.cbegin(), b.cend(), std::back_inserter(result));
    return result;
}

/// An ascending list.
template <typename T>
bool holds(const QList<T> &list, T value)
{
    return std::binary_search(list.cbegin(), list.cend(), value);
}

/// "2.A12", without prefix for a global parameter.
QString withPrefix(eLivingSpace livingSpace, const QString &text)
{
    if (livingSpace == eLivingSpace::Global)
        return text;
    return QLatin1Char(char('0' + static_cast<qint32>(livingSpace))) % QLatin1Char('.') % text;
}

/// Orders as the text of a coordinate does, which has two or three digits: "A11", "A100", "A110" are in
/// the order "A100", "A11", "A110". Costs no text.
int textOrder(const ParameterCoordinate &coordinate)
{
    constexpr int Digits = 11; // None before ten.
    const int line = coordinate.line();
    const int third = line < 100 ? 0 : line % 10 + 1;
    const int firstTwo = line < 100 ? line : line / 10;
    return ((coordinate.group() * Digits + firstTwo / 10) * Digits + firstTwo % 10) * Digits
        + third;
}

/// Orders as the decimal text with "]" behind it does, which stands behind every digit: "10]", "1]",
/// "2]".
int textOrder(quint16 element)
{
    constexpr int Digits = 11;
    constexpr int Bracket = Digits - 1;
    constexpr qsizetype Longest = 5;
    const QByteArray text = QByteArray::number(element);
    int order = 0;
    for (const char digit : text)
        order = order * Digits + (digit - '0');
    order = order * Digits + Bracket;
    for (qsizetype i = text.size(); i < Longest; ++i)
        order *= Digits;
    return order;
}

/// Positions in the list, ascending by the text of what stands there, which is how a tree sorts titles.
template <typename List, typename Key>
std::vector<qsizetype> textOrdered(const List &list, Key key)
{
    std::vector<std::pair<int, qsizetype>> entries;
    entries.reserve(static_cast<size_t>(list.size()));
    for (qsizetype i = 0; i < list.size(); ++i)
        entries.emplace_back(textOrder(key(list.at(i))), i);
    std::sort(entries.begin(), entries.end());
    std::vector<qsizetype> result(entries.size());
    std::transform(entries.cbegin(), entries.cend(), result.begin(),
        [](const auto &entry) { return entry.second; });
    return result;
}

std::shared_ptr<const SnapshotValue> missingValue()
{
    auto value = std::make_shared<SnapshotValue>();
    value->display = ParameterValueSnapshotWidget::tr("<nicht vorhanden>");
    return value;
}

SnapshotRecords recordsOf(const ParameterValueSnapshot *snapshot)
{
    const auto *content = snapshot ? snapshot->findChild<const ParameterValueSnapshotPrivate *>(
                              QString(), Qt::FindDirectChildrenOnly)
                                   : nullptr;
    return content ? content->records : SnapshotRecords();
}

QPointer<ParameterInformation> connectedInformation(
    const ParameterValueSnapshot *snapshot, const ParameterCoordinate &coordinate)
{
    ParameterContainer *container = snapshot ? snapshot->sourceContainer() : nullptr;
    return container ? container->parameterInformation(coordinate) : nullptr;
}

QList<ParameterCoordinate> differentCoordinates(
    ParameterValueSnapshot *snapshot, ParameterValueSnapshot *next)
{
    if (snapshot)
        return snapshot->parameterListDifferent(next);
    return next ? next->parameterList() : QList<ParameterCoordinate>();
}

} // namespace

/// Finds the records of ascending coordinates, most of which are neighbours.
class SnapshotRowModel::RecordWalk {
public:
    explicit RecordWalk(const SnapshotRecords &records)
        : m_records(records)
        , m_next(records.cbegin())
    {
    }

    /// Null where there is none.
    const SnapshotRecord *find(const ParameterCoordinate &coordinate)
    {
        if (m_next != m_records.cend() && m_next.key() < coordinate)
            m_next = m_records.lowerBound(coordinate);
        const bool isThere = m_next != m_records.cend() && m_next.key() == coordinate;
        return isThere ? &*m_next++ : nullptr;
    }

private:
    const SnapshotRecords &m_records;
    SnapshotRecords::const_iterator m_next;
};

SnapshotRowModel::SnapshotRowModel(
    const QList<ParameterValueSnapshot *> &snapshots, quint32 accessLevel)
    : m_snapshots(snapshots.cbegin(), snapshots.cend())
    , m_missing(missingValue())
    , m_accessLevel(accessLevel)
{
    m_records.reserve(snapshots.size());
    for (const ParameterValueSnapshot *snapshot : snapshots)
        m_records.append(recordsOf(snapshot));
}

QList<ParameterCoordinate> SnapshotRowModel::coordinates() const
{
    if (m_snapshots.size() == 1)
        return m_snapshots.first() ? m_snapshots.first()->parameterList()
                                   : QList<ParameterCoordinate>();
    if (m_snapshots.size() == 2)
        return differentCoordinates(m_snapshots.first(), m_snapshots.last());
    QSet<ParameterCoordinate> result;
    for (qsizetype i = 1; i < m_snapshots.size(); ++i) {
        const auto different = differentCoordinates(m_snapshots.at(i - 1), m_snapshots.at(i));
        result.unite(QSet<ParameterCoordinate>(different.cbegin(), different.cend()));
    }
    return result.values();
}

SnapshotTable SnapshotRowModel::table(const QList<ParameterCoordinate> &coordinates) const
{
    FillingProgress untold({});
    return table(coordinates, untold);
}

/// Ascending by title: the coordinates are, and a blank stands before every digit.
SnapshotTable SnapshotRowModel::table(
    const QList<ParameterCoordinate> &coordinates, FillingProgress &progress) const
{
    const QList<Parameter> found = parameters(coordinates);
    RowNumbers numbers;
    for (const Parameter &parameter : found) {
        for (const eLivingSpace livingSpace : parameter.livingSpaces)
            ++numbers[livingSpace];
    }
    const qsizetype count = toFirstRows(numbers);
    SnapshotTable result {QList<SnapshotRow>(count), m_records, m_missing};
    qsizetype done = 0;
    for (const qsizetype i :
        textOrdered(found, [](const Parameter &parameter) { return parameter.coordinate; })) {
        if (!progress.advance(FillingProgress::MakingRows, done++, found.size()))
            return {};
        fillRows(result.rows, numbers, found.at(i));
    }
    return result;
}

QList<SnapshotRowModel::Parameter> SnapshotRowModel::parameters(
    QList<ParameterCoordinate> coordinates) const
{
    std::sort(coordinates.begin(), coordinates.end());
    QList<RecordWalk> walks(m_records.cbegin(), m_records.cend());
    QList<Parameter> result;
    result.reserve(coordinates.size());
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates))
        result.append(parameter(coordinate, walks));
    return result;
}

qsizetype SnapshotRowModel::toFirstRows(RowNumbers &numbers)
{
    qsizetype count = 0;
    for (auto &[livingSpace, number] : numbers)
        count += std::exchange(number, count);
    return count;
}

SnapshotRowModel::Parameter SnapshotRowModel::parameter(
    const ParameterCoordinate &coordinate, QList<RecordWalk> &walks) const
{
    Parameter result {coordinate, {}, {}, {}, {}};
    for (RecordWalk &walk : walks) {
        const SnapshotRecord *record = walk.find(coordinate);
        result.holdings.append({record});
        if (!record)
            continue;
        result.livingSpaces = united(result.livingSpaces, record->layout().livingSpaces);
        result.elements = united(result.elements, record->layout().elements);
    }
    result.name = parameterName(result);
    return result;
}

void SnapshotRowModel::fillRows(
    QList<SnapshotRow> &rows, RowNumbers &numbers, const Parameter &parameter) const
{
    const QString place = parameter.coordinate.toText();
    const QString title =
        parameter.name.isEmpty() ? place : place % QLatin1Char(' ') % parameter.name;
    for (const eLivingSpace livingSpace : parameter.livingSpaces) {
        SnapshotRow &row = rows[numbers[livingSpace]++];
        row.livingSpace = livingSpace;
        row.coordinate = parameter.coordinate;
        row.title = withPrefix(livingSpace, title);
        if (!parameter.isSimple()) {
            row.children = elementRows(parameter, livingSpace, withPrefix(livingSpace, place));
            continue;
        }
        for (const Holding &holding : parameter.holdings)
            row.cells.append(parameterCell(holding, livingSpace));
    }
}

QList<SnapshotRow> SnapshotRowModel::elementRows(
    const Parameter &parameter, eLivingSpace livingSpace, const QString &place) const
{
    const QList<quint16> &elements = parameter.elements;
    const QStringList names = elementNames(parameter, elements);
    QList<SnapshotRow> result;
    result.reserve(elements.size());
    for (const qsizetype i : textOrdered(elements, [](quint16 element) { return element; })) {
        const quint16 element = elements.at(i);
        SnapshotRow &row = result.emplaceBack();
        row.livingSpace = livingSpace;
        row.coordinate = parameter.coordinate;
        row.element = element;
        // Deliberate: an element without name keeps the blank in front of it, a parameter does not.
        row.title =
            place % QLatin1Char('[') % QString::number(element) % QLatin1String("] ") % names.at(i);
        for (const Holding &holding : parameter.holdings)
            row.cells.append(elementCell(holding, livingSpace, element));
    }
    return result;
}

bool SnapshotRowModel::Holding::hasLivingSpace(eLivingSpace livingSpace) const
{
    return record && holds(record->layout().livingSpaces, livingSpace);
}

bool SnapshotRowModel::Holding::hasElement(quint16 element) const
{
    return record && holds(record->layout().elements, element);
}

SnapshotCell SnapshotRowModel::parameterCell(const Holding &holding, eLivingSpace livingSpace) const
{
    if (!isReadable(holding, 0))
        return {};
    return holding.hasLivingSpace(livingSpace) ? heldCell(holding.record->value(livingSpace, 0))
                                               : missingCell();
}

SnapshotCell SnapshotRowModel::elementCell(
    const Holding &holding, eLivingSpace livingSpace, quint16 element) const
{
    if (!isReadable(holding, element))
        return {};
    return holding.hasElement(element) ? heldCell(holding.record->value(livingSpace, element))
                                       : missingCell();
}

bool SnapshotRowModel::isReadable(const Holding &holding, quint16 element) const
{
    return !holding.record || holding.record->elementReadLevel(element) <= m_accessLevel;
}

/// The living container knows the name in the active language; the first snapshot keeps the one of
/// its time.
QString SnapshotRowModel::parameterName(const Parameter &parameter) const
{
    const auto information = connectedInformation(m_snapshots.value(0), parameter.coordinate);
    if (information)
        return information->name().longText();
    const SnapshotRecord *first = parameter.holdings.value(0).record;
    return first ? first->name() : QString();
}

QStringList SnapshotRowModel::elementNames(
    const Parameter &parameter, const QList<quint16> &elements) const
{
    const auto information = connectedInformation(m_snapshots.value(0), parameter.coordinate);
    const SnapshotRecord *first = parameter.holdings.value(0).record;
    QStringList result;
    result.reserve(elements.size());
    for (const quint16 element : elements) {
        if (information)
            result.append(information->elementName(element).longText());
        else
            result.append(first ? first->elementName(element) : QString());
    }
    return result;
}

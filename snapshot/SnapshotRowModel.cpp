#include "snapshot/SnapshotRowModel.h"

#include "snapshot/FillingProgress.h"
#include "snapshot/ParameterValueSnapshotPrivate.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <algorithm>
#include <iterator>
#include <map>

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

/// "2.A12", without prefix for a global parameter, with room for what is appended.
QString placeOf(eLivingSpace livingSpace, const QString &coordinate, qsizetype room)
{
    QString place;
    place.reserve(2 + coordinate.size() + room);
    if (livingSpace != eLivingSpace::Global) {
        place.append(QLatin1Char(char('0' + static_cast<qint32>(livingSpace))));
        place.append(QLatin1Char('.'));
    }
    return place.append(coordinate);
}

/// As a tree sorts its items: by code units, equal titles as they come. Most rows come in order, and
/// moving them costs more than asking.
void sortByTitle(QList<SnapshotRow> &rows)
{
    const auto isBefore = [](const SnapshotRow &a, const SnapshotRow &b) {
        return a.title < b.title;
    };
    if (!std::is_sorted(rows.cbegin(), rows.cend(), isBefore))
        std::stable_sort(rows.begin(), rows.end(), isBefore);
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

/// As their texts are ordered, which is how the titles are.
void sortByText(QList<ParameterCoordinate> &coordinates)
{
    const auto isBefore = [](const ParameterCoordinate &a, const ParameterCoordinate &b) {
        return textOrder(a) < textOrder(b);
    };
    if (!std::is_sorted(coordinates.cbegin(), coordinates.cend(), isBefore))
        std::sort(coordinates.begin(), coordinates.end(), isBefore);
}

SnapshotCell missingCell()
{
    return {ParameterValueSnapshotWidget::tr("<nicht vorhanden>"), QString(), true};
}

SnapshotCell valueCell(const SnapshotRecord &record, const SnapshotRow &row)
{
    const SnapshotValue &value = record.value(row.livingSpace, row.element);
    return {value.display, value.undecorated, false, value.scaledUnit()};
}

/// The content, in which a parameter is looked up once for all that a row asks.
const ParameterValueSnapshotPrivate *contentOf(const ParameterValueSnapshot *snapshot)
{
    return snapshot ? snapshot->findChild<const ParameterValueSnapshotPrivate *>(
               QString(), Qt::FindDirectChildrenOnly)
                    : nullptr;
}

/// Null where the snapshot is no longer connected or its container lacks the parameter.
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

SnapshotRowModel::SnapshotRowModel(
    const QList<ParameterValueSnapshot *> &snapshots, quint32 accessLevel)
    : m_snapshots(snapshots)
    , m_accessLevel(accessLevel)
{
    m_contents.reserve(snapshots.size());
    for (const ParameterValueSnapshot *snapshot : snapshots)
        m_contents.append(contentOf(snapshot));
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

QList<SnapshotRow> SnapshotRowModel::rows(const QList<ParameterCoordinate> &coordinates) const
{
    FillingProgress untold({});
    return rows(coordinates, untold);
}

QList<SnapshotRow> SnapshotRowModel::rows(
    QList<ParameterCoordinate> coordinates, FillingProgress &progress) const
{
    sortByText(coordinates);
    std::map<eLivingSpace, QList<SnapshotRow>> rowsOfLivingSpace;
    for (qsizetype i = 0; i < coordinates.size(); ++i) {
        if (!progress.advance(FillingProgress::MakingRows, i, coordinates.size()))
            return {};
        for (SnapshotRow &row : parameterRows(coordinates.at(i))) {
            QList<SnapshotRow> &rows = rowsOfLivingSpace[row.livingSpace];
            if (rows.isEmpty())
                rows.reserve(coordinates.size());
            rows.append(std::move(row));
        }
    }
    // A title without prefix stands behind those that begin with a digit.
    QList<SnapshotRow> globalRows = std::move(rowsOfLivingSpace[eLivingSpace::Global]);
    rowsOfLivingSpace.erase(eLivingSpace::Global);
    QList<SnapshotRow> result;
    for (auto &[livingSpace, rows] : rowsOfLivingSpace)
        result.append(std::move(rows));
    // Ascending by title already: the coordinates are, and a blank stands before every digit.
    result.append(std::move(globalRows));
    return result;
}

QList<SnapshotRow> SnapshotRowModel::parameterRows(const ParameterCoordinate &coordinate) const
{
    const Holdings holdings = holdingsOf(coordinate);
    QList<eLivingSpace> livingSpaces;
    QList<quint16> elements;
    for (const Holding &holding : holdings) {
        if (!holding.record)
            continue;
        livingSpaces = united(livingSpaces, holding.record->layout().livingSpaces);
        elements = united(elements, holding.record->layout().elements);
    }
    const bool isSimple = elements.size() == 1 && elements.first() == 0;
    const QString text = coordinate.toText();
    const QString name = parameterName(coordinate, holdings);
    QList<SnapshotRow> result;
    result.reserve(livingSpaces.size());
    for (const eLivingSpace livingSpace : std::as_const(livingSpaces)) {
        SnapshotRow row;
        row.livingSpace = livingSpace;
        row.coordinate = coordinate;
        row.title = placeOf(livingSpace, text, 1 + name.size());
        if (isSimple)
            row.cells = parameterCells(row, holdings);
        else
            row.children = elementRows(row, row.title, elements, holdings);
        if (!name.isEmpty())
            row.title.append(QLatin1Char(' ')).append(name);
        result.append(std::move(row));
    }
    return result;
}

QList<SnapshotRow> SnapshotRowModel::elementRows(const SnapshotRow &parent, const QString &place,
    const QList<quint16> &elements, const Holdings &holdings) const
{
    QList<SnapshotRow> result;
    result.reserve(elements.size());
    for (const quint16 element : elements) {
        SnapshotRow row;
        row.livingSpace = parent.livingSpace;
        row.coordinate = parent.coordinate;
        row.element = element;
        // Deliberate: an element without name keeps the blank in front of it, a parameter does not.
        row.title = place + QLatin1Char('[') + QString::number(element) + QLatin1String("] ")
            + elementName(parent.coordinate, element);
        row.cells = elementCells(row, holdings);
        result.append(std::move(row));
    }
    sortByTitle(result);
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

SnapshotRowModel::Holdings SnapshotRowModel::holdingsOf(const ParameterCoordinate &coordinate) const
{
    Holdings result;
    for (const ParameterValueSnapshotPrivate *content : m_contents)
        result.append({content ? content->record(coordinate) : nullptr});
    return result;
}

QList<SnapshotCell> SnapshotRowModel::parameterCells(
    const SnapshotRow &row, const Holdings &holdings) const
{
    QList<SnapshotCell> cells;
    cells.reserve(holdings.size());
    for (const Holding &holding : holdings) {
        if (!isReadable(holding, 0))
            cells.append(SnapshotCell());
        else if (!holding.hasLivingSpace(row.livingSpace))
            cells.append(missingCell());
        else
            cells.append(valueCell(*holding.record, row));
    }
    return cells;
}

QList<SnapshotCell> SnapshotRowModel::elementCells(
    const SnapshotRow &row, const Holdings &holdings) const
{
    QList<SnapshotCell> cells;
    cells.reserve(holdings.size());
    for (const Holding &holding : holdings) {
        if (!isReadable(holding, row.element))
            cells.append(SnapshotCell());
        else if (!holding.hasElement(row.element))
            cells.append(missingCell());
        else
            cells.append(valueCell(*holding.record, row));
    }
    return cells;
}

bool SnapshotRowModel::isReadable(const Holding &holding, quint16 element) const
{
    return !holding.record || holding.record->elementReadLevel(element) <= m_accessLevel;
}

/// The living container knows the name in the active language; the first snapshot keeps the one of
/// its time.
QString SnapshotRowModel::parameterName(
    const ParameterCoordinate &coordinate, const Holdings &holdings) const
{
    if (const auto information = connectedInformation(m_snapshots.value(0), coordinate))
        return information->name().longText();
    const SnapshotRecord *first = holdings.isEmpty() ? nullptr : holdings.first().record;
    return first ? first->name() : QString();
}

QString SnapshotRowModel::elementName(const ParameterCoordinate &coordinate, quint16 element) const
{
    const ParameterValueSnapshot *first = m_snapshots.value(0);
    if (const auto information = connectedInformation(first, coordinate))
        return information->elementName(element).longText();
    return first ? first->elementName(coordinate, element) : QString();
}

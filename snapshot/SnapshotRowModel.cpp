#include "snapshot/SnapshotRowModel.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <algorithm>
#include <iterator>

namespace {

/// Of two ascending lists.
template <typename T>
QList<T> united(const QList<T> &a, const QList<T> &b)
{
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

QString prefix(eLivingSpace livingSpace)
{
    if (livingSpace == eLivingSpace::Global)
        return {};
    return QString::number(static_cast<qint32>(livingSpace)) + QLatin1Char('.');
}

QString titled(const QString &place, const QString &name)
{
    return name.isEmpty() ? place : place + QLatin1Char(' ') + name;
}

/// As a tree sorts its items: by code units, equal titles as they come.
void sortByTitle(QList<SnapshotRow> &rows)
{
    std::stable_sort(rows.begin(), rows.end(),
        [](const SnapshotRow &a, const SnapshotRow &b) { return a.title < b.title; });
}

SnapshotCell missingCell()
{
    return {ParameterValueSnapshotWidget::tr("<nicht vorhanden>"), QString(), true};
}

SnapshotCell valueCell(ParameterValueSnapshot *snapshot, const SnapshotRow &row)
{
    return {snapshot->value(row.livingSpace, row.coordinate, row.element, true),
        snapshot->undecoratedValue(row.livingSpace, row.coordinate, row.element, true), false};
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
}

QList<ParameterCoordinate> SnapshotRowModel::coordinates() const
{
    if (m_snapshots.size() == 1)
        return m_snapshots.first() ? m_snapshots.first()->parameterList()
                                   : QList<ParameterCoordinate>();
    QSet<ParameterCoordinate> result;
    for (qsizetype i = 1; i < m_snapshots.size(); ++i) {
        const auto different = differentCoordinates(m_snapshots.at(i - 1), m_snapshots.at(i));
        result.unite(QSet<ParameterCoordinate>(different.cbegin(), different.cend()));
    }
    return result.values();
}

QList<SnapshotRow> SnapshotRowModel::rows(QList<ParameterCoordinate> coordinates) const
{
    // Neighbours lie together in memory, and titles come almost in order.
    std::sort(coordinates.begin(), coordinates.end());
    QList<SnapshotRow> result;
    result.reserve(coordinates.size());
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates))
        appendRows(result, coordinate);
    sortByTitle(result);
    return result;
}

void SnapshotRowModel::appendRows(
    QList<SnapshotRow> &rows, const ParameterCoordinate &coordinate) const
{
    QList<eLivingSpace> livingSpaces;
    QList<quint16> elements;
    for (ParameterValueSnapshot *snapshot : m_snapshots) {
        if (!snapshot)
            continue;
        livingSpaces = united(livingSpaces, snapshot->livingSpaces(coordinate));
        elements = united(elements, snapshot->elements(coordinate));
    }
    const bool isSimple = elements.size() == 1 && elements.first() == 0;
    const QString name = parameterName(coordinate);
    for (const eLivingSpace livingSpace : std::as_const(livingSpaces)) {
        const QString place = prefix(livingSpace) + coordinate.toText();
        SnapshotRow row;
        row.livingSpace = livingSpace;
        row.coordinate = coordinate;
        row.title = titled(place, name);
        if (!isSimple)
            row.children = elementRows(row, place, elements);
        for (ParameterValueSnapshot *snapshot : isSimple ? m_snapshots : decltype(m_snapshots)())
            row.cells.append(parameterCell(snapshot, row));
        rows.append(row);
    }
}

QList<SnapshotRow> SnapshotRowModel::elementRows(
    const SnapshotRow &parent, const QString &place, const QList<quint16> &elements) const
{
    QList<SnapshotRow> result;
    result.reserve(elements.size());
    for (const quint16 element : elements) {
        SnapshotRow row;
        row.livingSpace = parent.livingSpace;
        row.coordinate = parent.coordinate;
        row.element = element;
        row.title = titled(place + QLatin1Char('[') + QString::number(element) + QLatin1Char(']'),
            elementName(parent.coordinate, element));
        for (ParameterValueSnapshot *snapshot : m_snapshots)
            row.cells.append(elementCell(snapshot, row));
        result.append(row);
    }
    sortByTitle(result);
    return result;
}

SnapshotCell SnapshotRowModel::parameterCell(
    ParameterValueSnapshot *snapshot, const SnapshotRow &row) const
{
    if (!isReadable(snapshot, row))
        return {};
    if (!snapshot || !holds(snapshot->livingSpaces(row.coordinate), row.livingSpace))
        return missingCell();
    return valueCell(snapshot, row);
}

SnapshotCell SnapshotRowModel::elementCell(
    ParameterValueSnapshot *snapshot, const SnapshotRow &row) const
{
    if (!isReadable(snapshot, row))
        return {};
    if (!snapshot || !holds(snapshot->elements(row.coordinate), row.element))
        return missingCell();
    return valueCell(snapshot, row);
}

bool SnapshotRowModel::isReadable(
    const ParameterValueSnapshot *snapshot, const SnapshotRow &row) const
{
    return !snapshot || snapshot->elementReadLevel(row.coordinate, row.element) <= m_accessLevel;
}

/// The living container knows the name in the active language; the first snapshot keeps the one of
/// its time.
QString SnapshotRowModel::parameterName(const ParameterCoordinate &coordinate) const
{
    ParameterValueSnapshot *first = m_snapshots.value(0);
    if (const auto information = connectedInformation(first, coordinate))
        return information->name().longText();
    return first ? first->parameterName(coordinate) : QString();
}

QString SnapshotRowModel::elementName(const ParameterCoordinate &coordinate, quint16 element) const
{
    const ParameterValueSnapshot *first = m_snapshots.value(0);
    if (const auto information = connectedInformation(first, coordinate))
        return information->elementName(element).longText();
    return first ? first->elementName(coordinate, element) : QString();
}

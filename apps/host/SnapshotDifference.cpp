#include "apps/host/SnapshotDifference.h"

#include "apps/host/ExportLine.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <algorithm>
#include <iterator>

namespace {

/// Of two ascending lists.
template <typename T>
QList<T> united(const QList<T> &a, const QList<T> &b)
{
    QList<T> result;
    std::set_union(a.cbegin(), a.cend(), b.cbegin(), b.cend(), std::back_inserter(result));
    return result;
}

/// The list is ascending and may be long.
bool holds(const QList<quint16> &elements, quint16 element)
{
    return std::binary_search(elements.cbegin(), elements.cend(), element);
}

SnapshotDifference::Side sideOf(ParameterValueSnapshot &snapshot, eLivingSpace livingSpace,
    const ParameterCoordinate &coordinate, quint16 element, quint32 accessLevel)
{
    SnapshotDifference::Side side;
    side.isHeld = snapshot.livingSpaces(coordinate).contains(livingSpace)
        && holds(snapshot.elements(coordinate), element);
    side.isReadable = snapshot.elementReadLevel(coordinate, element) <= accessLevel;
    if (!side.isHeld)
        return side;
    side.display = snapshot.value(livingSpace, coordinate, element, true);
    side.value = snapshot.undecoratedValue(livingSpace, coordinate, element, true);
    side.native = snapshot.valueNative(livingSpace, coordinate, element, true);
    return side;
}

bool areDifferent(const SnapshotDifference::Side &left, const SnapshotDifference::Side &right)
{
    if (left.isHeld != right.isHeld)
        return true;
    return left.display != right.display && left.native != right.native;
}

/// Told after the comparison: that a value differs is no secret, what it is may be one.
void hideUnreadable(SnapshotDifference::Side &side)
{
    if (!side.isReadable)
        side = {QString(), QString(), QString(), side.isHeld, false};
}

QString nameOf(
    ParameterValueSnapshot &snapshot, const ParameterCoordinate &coordinate, quint16 element)
{
    const QString name = snapshot.parameterName(coordinate);
    const QString elementName = snapshot.elementName(coordinate, element);
    return elementName.isEmpty() ? name : name + QStringLiteral(" · ") + elementName;
}

/// Looks at one parameter.
class Comparison {
public:
    Comparison(ParameterValueSnapshot &left, ParameterValueSnapshot &right, quint32 accessLevel,
        const ParameterCoordinate &coordinate)
        : m_left(left)
        , m_right(right)
        , m_accessLevel(accessLevel)
        , m_coordinate(coordinate)
        , m_elements(united(left.elements(coordinate), right.elements(coordinate)))
    {
    }

    QList<SnapshotDifference> differences() const
    {
        QList<SnapshotDifference> result;
        for (const eLivingSpace livingSpace :
            united(m_left.livingSpaces(m_coordinate), m_right.livingSpaces(m_coordinate))) {
            for (const quint16 element : m_elements)
                append(result, livingSpace, element);
        }
        // The lists may differ where there is no value any more.
        if (result.isEmpty())
            result.append({{}, m_coordinate.toText(), nameAt(0), {}, {}});
        return result;
    }

private:
    void append(QList<SnapshotDifference> &result, eLivingSpace livingSpace, quint16 element) const
    {
        SnapshotDifference difference;
        difference.left = sideOf(m_left, livingSpace, m_coordinate, element, m_accessLevel);
        difference.right = sideOf(m_right, livingSpace, m_coordinate, element, m_accessLevel);
        if (!areDifferent(difference.left, difference.right))
            return;
        hideUnreadable(difference.left);
        hideUnreadable(difference.right);
        difference.place = {m_coordinate, livingSpace, element};
        difference.address = ExportLine::placeText(livingSpace, m_coordinate, element, m_elements);
        difference.name = nameAt(element);
        result.append(difference);
    }

    QString nameAt(quint16 element) const
    {
        const QString name = nameOf(m_right, m_coordinate, element);
        return name.isEmpty() ? nameOf(m_left, m_coordinate, element) : name;
    }

    ParameterValueSnapshot &m_left;
    ParameterValueSnapshot &m_right;
    quint32 m_accessLevel;
    ParameterCoordinate m_coordinate;
    QList<quint16> m_elements;
};

} // namespace

QList<SnapshotDifference> SnapshotDifference::between(
    ParameterValueSnapshot &left, ParameterValueSnapshot &right, quint32 accessLevel)
{
    QList<ParameterCoordinate> coordinates = left.parameterListDifferent(&right);
    std::sort(coordinates.begin(), coordinates.end());
    QList<SnapshotDifference> result;
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates))
        result += Comparison(left, right, accessLevel, coordinate).differences();
    return result;
}

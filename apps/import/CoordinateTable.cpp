#include "apps/import/CoordinateTable.h"

#include "apps/import/CoordinatePlan.h"
#include "apps/import/SkippedObject.h"

#include <algorithm>

namespace {

constexpr char Head[] = "# Coordinates of the objects of CANopen object dictionaries.\n"
                        "# One line an object: index, coordinate. Lines are added at the end;\n"
                        "# a line that stands here is never changed.\n";

/// 0 for anything but "0x" and 1 to 4 digits.
quint16 indexOf(const QByteArray &text)
{
    const bool hasPrefix = text.startsWith("0x") || text.startsWith("0X");
    const QByteArray digits = text.mid(2);
    const bool isHex = std::all_of(digits.cbegin(), digits.cend(), [](char c) {
        const char lower = char(c | 0x20);
        return (c >= '0' && c <= '9') || (lower >= 'a' && lower <= 'f');
    });
    if (!hasPrefix || digits.isEmpty() || digits.size() > 4 || !isHex)
        return 0;
    return digits.toUShort(nullptr, 16);
}

QString placeOf(quint16 index)
{
    return SkippedObject {index, std::nullopt, 0, {}}.place();
}

} // namespace

std::optional<CoordinateTable> CoordinateTable::read(const QByteArray &bytes, QString &error)
{
    CoordinateTable table;
    table.m_bytes = bytes;
    int number = 0;
    for (const QByteArray &line : bytes.split('\n')) {
        ++number;
        const QString reason = table.takeLine(line);
        if (!reason.isEmpty()) {
            error = tr("Zeile %1: %2").arg(number).arg(reason);
            return std::nullopt;
        }
    }
    return table;
}

int CoordinateTable::extend(QList<quint16> indices)
{
    std::sort(indices.begin(), indices.end());
    int added = 0;
    for (const quint16 index : indices) {
        const ParameterCoordinate place =
            m_coordinates.contains(index) ? ParameterCoordinate() : freePlace(index);
        if (!place.isValid())
            continue;
        append(index, place);
        ++added;
    }
    return added;
}

QString CoordinateTable::takeLine(QByteArray line)
{
    const qsizetype comment = line.indexOf('#');
    if (comment >= 0)
        line.truncate(comment);
    const QByteArray content = line.simplified();
    if (content.isEmpty())
        return {};
    const QList<QByteArray> parts = content.split(' ');
    if (parts.size() != 2)
        return tr("erwartet werden ein Index und eine Koordinate");
    const quint16 index = indexOf(parts.first());
    if (index == 0)
        return tr("der Index ist keiner von 0x0001 bis 0xFFFF");
    const ParameterCoordinate coordinate(QString::fromLatin1(parts.last()));
    if (!coordinate.isValid())
        return tr("die Koordinate ist keine von A00 bis Z999");
    if (!CoordinatePlan::isUsable(coordinate))
        return tr("die Koordinate %1 ist vorbehalten").arg(coordinate.toText());
    if (m_coordinates.contains(index))
        return tr("der Index %1 steht schon in einer früheren Zeile").arg(placeOf(index));
    const quint16 holder = m_indices.at(coordinate.toNumber());
    if (holder != 0)
        return tr("die Koordinate %1 gehört schon zu %2").arg(coordinate.toText(), placeOf(holder));
    m_coordinates.insert(index, coordinate);
    m_indices[coordinate.toNumber()] = index;
    return {};
}

ParameterCoordinate CoordinateTable::freePlace(quint16 index)
{
    const ParameterCoordinate own = CoordinatePlan::ownPlace(index);
    if (isFree(own))
        return own;
    for (int step = 0; !m_isSharedFull && step < CoordinatePlan::SharedCount; ++step) {
        const int position =
            (CoordinatePlan::firstSharedPosition(index) + step) % CoordinatePlan::SharedCount;
        const ParameterCoordinate shared = CoordinatePlan::sharedPlace(position);
        if (isFree(shared))
            return shared;
    }
    m_isSharedFull = true;
    // Every other group, so that the table is full only when all lines are taken.
    while (m_nextSpare < NumberCount && !isFree(ParameterCoordinate(m_nextSpare)))
        ++m_nextSpare;
    return m_nextSpare < NumberCount ? ParameterCoordinate(m_nextSpare) : ParameterCoordinate();
}

bool CoordinateTable::isFree(ParameterCoordinate coordinate) const
{
    return CoordinatePlan::isUsable(coordinate) && m_indices.at(coordinate.toNumber()) == 0;
}

void CoordinateTable::append(quint16 index, ParameterCoordinate coordinate)
{
    if (m_bytes.isEmpty())
        m_bytes = Head;
    if (!m_bytes.endsWith('\n'))
        m_bytes += '\n';
    m_bytes += placeOf(index).toLatin1() + ' ' + coordinate.toText().toLatin1() + '\n';
    m_coordinates.insert(index, coordinate);
    m_indices[coordinate.toNumber()] = index;
}

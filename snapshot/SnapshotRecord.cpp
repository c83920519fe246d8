#include "snapshot/SnapshotRecord.h"

#include <algorithm>

const SnapshotValue &SnapshotValue::none()
{
    static const SnapshotValue value;
    return value;
}

QString SnapshotValue::withUnit(const QString &text, const QString &unit)
{
    if (unit.isEmpty())
        return text;
    QString result;
    result.reserve(text.size() + 1 + unit.size());
    return result.append(text).append(QLatin1Char(' ')).append(unit);
}

QString SnapshotRecord::elementName(quint16 element) const
{
    const qsizetype index = position(element);
    return index == NoPosition ? QString() : m_elementNames.value(index);
}

quint32 SnapshotRecord::elementReadLevel(quint16 element) const
{
    const qsizetype index = position(element);
    return index == NoPosition ? 0 : layout().readLevels.at(index);
}

const SnapshotValue &SnapshotRecord::value(eLivingSpace livingSpace, quint16 element) const
{
    const std::span<const SnapshotValue> values = sequence(livingSpace);
    const qsizetype index = position(element);
    if (values.empty() || index == NoPosition)
        return SnapshotValue::none();
    return values[static_cast<size_t>(index)];
}

std::span<const SnapshotValue> SnapshotRecord::sequence(eLivingSpace livingSpace) const
{
    const qsizetype table = layout().tables.indexOf(livingSpace);
    if (table < 0)
        return {};
    const qsizetype size = layout().positions.size();
    return {m_values.constData() + table * size, static_cast<size_t>(size)};
}

qsizetype SnapshotRecord::position(quint16 element) const
{
    const QList<quint16> &positions = layout().positions;
    // Most parameters count their elements from 0 without a gap.
    if (element < positions.size() && positions.at(element) == element)
        return element;
    const auto found = std::lower_bound(positions.begin(), positions.end(), element);
    const bool held = found != positions.end() && *found == element;
    return held ? found - positions.begin() : NoPosition;
}

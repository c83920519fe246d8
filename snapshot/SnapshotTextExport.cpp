#include "snapshot/SnapshotTextExport.h"

#include <QtCore/QFile>

#include <algorithm>

namespace {

constexpr char FileBegin[] = "\xEF\xBB\xBF\r\n";
constexpr qsizetype FileBeginSize = 5;
constexpr QLatin1StringView Separator("\";\"");
/// Lines are collected up to this length. **Unit** characters.
constexpr qsizetype PieceSize = 64 * 1024;

void appendLine(
    QString &lines, const QString &place, const QString &name, const SnapshotValue &value)
{
    lines.append(QLatin1Char('"')).append(place).append(Separator);
    lines.append(name).append(Separator).append(value.display);
    if (value.units && !value.units->scaled.isEmpty())
        lines.append(QLatin1Char(' ')).append(value.units->scaled);
    lines.append(QLatin1StringView("\"\n"));
}

QString prefix(eLivingSpace livingSpace)
{
    if (livingSpace == eLivingSpace::Global)
        return {};
    return QString::number(static_cast<qint32>(livingSpace)) + QLatin1Char('.');
}

/// The lines of a parameter in one living space.
void appendLines(QString &lines, const ParameterCoordinate &coordinate,
    const SnapshotRecord &record, eLivingSpace livingSpace)
{
    const QString place = prefix(livingSpace) + coordinate.toText();
    const QList<quint16> &elements = record.layout().elements;
    if (elements.size() == 1 && elements.first() == 0) {
        appendLine(lines, place, record.name(), record.value(livingSpace, 0));
        return;
    }
    for (const quint16 element : elements) {
        const QString elementName = record.elementName(element);
        QString elementPlace = place;
        elementPlace.append(QLatin1Char('[')).append(QString::number(element));
        appendLine(lines, elementPlace.append(QLatin1Char(']')),
            elementName.isEmpty() ? record.name() : elementName,
            record.value(livingSpace, element));
    }
}

} // namespace

bool SnapshotTextExport::write(const QString &fileName, const SnapshotRecords &records,
    QList<ParameterCoordinate> coordinates, const QList<eLivingSpace> &livingSpaces)
{
    QFile file(fileName);
    if (fileName.isEmpty() || !file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return false;
    // Before text mode, so that they are five bytes on every platform.
    file.write(FileBegin, FileBeginSize);
    file.setTextModeEnabled(true);
    std::sort(coordinates.begin(), coordinates.end());
    QString lines;
    const auto flush = [&] {
        file.write(lines.toUtf8());
        lines.resize(0);
    };
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates)) {
        const auto record = records.constFind(coordinate);
        if (record == records.cend())
            continue;
        for (const eLivingSpace livingSpace : record->layout().livingSpaces) {
            if (livingSpaces.contains(livingSpace))
                appendLines(lines, coordinate, *record, livingSpace);
        }
        if (lines.size() >= PieceSize)
            flush();
    }
    flush();
    return true;
}

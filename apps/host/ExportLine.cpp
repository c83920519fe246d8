#include "apps/host/ExportLine.h"

#include "apps/host/Rfc4180Text.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <algorithm>

namespace {

bool isSimple(const QList<quint16> &elements)
{
    return elements.size() == 1 && elements.constFirst() == 0;
}

} // namespace

QList<ExportLine> ExportLine::allOf(
    ParameterValueSnapshot &snapshot, const QList<eLivingSpace> &livingSpaces)
{
    QList<ParameterCoordinate> coordinates = snapshot.parameterList();
    std::sort(coordinates.begin(), coordinates.end());
    QList<ExportLine> lines;
    for (const ParameterCoordinate &coordinate : std::as_const(coordinates)) {
        const QList<quint16> elements = snapshot.elements(coordinate);
        for (const eLivingSpace livingSpace : snapshot.livingSpaces(coordinate)) {
            if (!livingSpaces.contains(livingSpace))
                continue;
            for (const quint16 element : elements) {
                const QString elementName =
                    isSimple(elements) ? QString() : snapshot.elementName(coordinate, element);
                lines.append({placeText(livingSpace, coordinate, element, elements),
                    elementName.isEmpty() ? snapshot.parameterName(coordinate) : elementName,
                    snapshot.value(livingSpace, coordinate, element, true)});
            }
        }
    }
    return lines;
}

QByteArray ExportLine::semicolonText(const QList<ExportLine> &lines)
{
    QByteArray text;
    for (const ExportLine &line : lines) {
        text += '"' + line.place.toUtf8() + "\";\"" + line.name.toUtf8() + "\";\""
            + line.value.toUtf8() + "\"\n";
    }
#ifdef Q_OS_WIN
    // Text mode, also within values.
    text.replace("\n", "\r\n");
#endif
    return "\xEF\xBB\xBF\r\n" + text;
}

QByteArray ExportLine::rfc4180Text(const QList<ExportLine> &lines)
{
    QByteArray text = Rfc4180Text::row(
        {QStringLiteral("address"), QStringLiteral("name"), QStringLiteral("value")});
    for (const ExportLine &line : lines)
        text += Rfc4180Text::row({line.place, line.name, line.value});
    return text;
}

QString ExportLine::placeText(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
    quint16 element, const QList<quint16> &elements)
{
    QString text = coordinate.toText();
    if (livingSpace != eLivingSpace::Global)
        text.prepend(QString::number(static_cast<qint32>(livingSpace)) + u'.');
    if (!isSimple(elements))
        text += u'[' + QString::number(element) + u']';
    return text;
}

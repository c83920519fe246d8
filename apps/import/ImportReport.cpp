#include "apps/import/ImportReport.h"

#include <QtCore/QJsonArray>

#include <algorithm>

namespace {

QString indexText(quint16 index)
{
    return SkippedObject {index, std::nullopt, 0, {}}.place();
}

QJsonObject jsonOf(const SkippedObject &skipped)
{
    QJsonObject object {{QStringLiteral("index"), indexText(skipped.index)},
        {QStringLiteral("line"), skipped.line}, {QStringLiteral("reason"), skipped.reason}};
    if (skipped.subIndex)
        object.insert(QStringLiteral("subIndex"), *skipped.subIndex);
    return object;
}

} // namespace

qsizetype ImportReport::objectsSkipped() const
{
    return std::count_if(skipped.cbegin(), skipped.cend(),
        [](const SkippedObject &object) { return !object.subIndex; });
}

QString ImportReport::toText() const
{
    QString text = tr("%1: %2 Objekte gelesen (%3 Elemente), %4 übersprungen\n")
                       .arg(fileName, QString::number(objectsRead), QString::number(elementsRead),
                           QString::number(objectsSkipped()));
    text += tr("  Gerätefamilie %1 (%2)\n").arg(QString::number(familyIdentifier), familyName);
    text += nodeId
        ? tr("  Knotennummer %1\n").arg(*nodeId)
        : tr("  Knotennummer nicht bekannt; %1 Werte hängen von ihr ab\n").arg(valuesWithoutNodeId);
    text += tr("  %1 neue Koordinaten\n").arg(newCoordinates);
    text += tr("  %1 konfigurierte Werte\n").arg(configuredValues);
    for (const SkippedObject &object : skipped) {
        const QString line = object.line > 0 ? tr(" (Zeile %1)").arg(object.line) : QString();
        text += tr("  übersprungen %1%2: %3\n").arg(object.place(), line, object.reason);
    }
    for (const ImportRemark &remark : remarks.sorted())
        text += tr("  Zeile %1: ").arg(remark.line) + remark.text + QLatin1Char('\n');
    if (remarks.omitted() > 0)
        text += tr("  %1 weitere Bemerkungen\n").arg(remarks.omitted());
    return text;
}

QJsonObject ImportReport::toJson() const
{
    QJsonArray skippedObjects;
    for (const SkippedObject &object : skipped)
        skippedObjects.append(jsonOf(object));
    QJsonArray remarkObjects;
    for (const ImportRemark &remark : remarks.sorted()) {
        remarkObjects.append(QJsonObject {
            {QStringLiteral("line"), remark.line}, {QStringLiteral("text"), remark.text}});
    }
    const QJsonObject family {{QStringLiteral("identifier"), qint64(familyIdentifier)},
        {QStringLiteral("name"), familyName}};
    return {{QStringLiteral("file"), fileName}, {QStringLiteral("family"), family},
        {QStringLiteral("nodeId"), nodeId ? QJsonValue(*nodeId) : QJsonValue()},
        {QStringLiteral("valuesWithoutNodeId"), valuesWithoutNodeId},
        {QStringLiteral("objectsRead"), objectsRead},
        {QStringLiteral("elementsRead"), elementsRead},
        {QStringLiteral("objectsSkipped"), objectsSkipped()},
        {QStringLiteral("configuredValues"), configuredValues},
        {QStringLiteral("newCoordinates"), newCoordinates},
        {QStringLiteral("skipped"), skippedObjects}, {QStringLiteral("remarks"), remarkObjects},
        {QStringLiteral("omittedRemarks"), remarks.omitted()}};
}

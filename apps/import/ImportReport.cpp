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
    QString text = QStringLiteral("%1: %2 objects read (%3 elements), %4 skipped\n")
                       .arg(fileName, QString::number(objectsRead), QString::number(elementsRead),
                           QString::number(objectsSkipped()));
    text += QStringLiteral("  device family %1 (%2)\n")
                .arg(QString::number(familyIdentifier), familyName);
    text += nodeId ? QStringLiteral("  node id %1\n").arg(*nodeId)
                   : QStringLiteral("  node id not known\n");
    text += QStringLiteral("  %1 new coordinates\n").arg(newCoordinates);
    text += QStringLiteral("  %1 configured values\n").arg(configuredValues);
    for (const SkippedObject &object : skipped) {
        const QString line =
            object.line > 0 ? QStringLiteral(" (line %1)").arg(object.line) : QString();
        text += QStringLiteral("  skipped %1%2: %3\n").arg(object.place(), line, object.reason);
    }
    for (const ImportRemark &remark : remarks.sorted())
        text += QStringLiteral("  line %1: ").arg(remark.line) + remark.text + QLatin1Char('\n');
    if (remarks.omitted() > 0)
        text += QStringLiteral("  %1 further remarks\n").arg(remarks.omitted());
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
        {QStringLiteral("objectsRead"), objectsRead},
        {QStringLiteral("elementsRead"), elementsRead},
        {QStringLiteral("objectsSkipped"), objectsSkipped()},
        {QStringLiteral("configuredValues"), configuredValues},
        {QStringLiteral("newCoordinates"), newCoordinates},
        {QStringLiteral("skipped"), skippedObjects}, {QStringLiteral("remarks"), remarkObjects},
        {QStringLiteral("omittedRemarks"), remarks.omitted()}};
}

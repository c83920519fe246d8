#include "snapshot/SnapshotJson.h"

#include "snapshot/SnapshotJsonParameter.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace {

constexpr QLatin1StringView FormatName("kr-parameter-snapshot");
constexpr int Version = 1;

/// Of the lines in front of the parameters and behind them.
constexpr char ListBegin[] = "\"parameters\": [\n";
constexpr char ListEnd[] = "\n]}\n";

QByteArray compact(const auto &value)
{
    return QJsonDocument(value).toJson(QJsonDocument::Compact);
}

/// What is wrong with the document apart from its parameters; empty where nothing is.
QString headProblem(const QJsonObject &document)
{
    if (document.value(QLatin1String("format")).toString() != FormatName)
        return ParameterValueSnapshot::tr("das ist kein Snapshot");
    if (document.value(QLatin1String("version")).toInteger() != Version)
        return ParameterValueSnapshot::tr("diese Version eines Snapshots ist unbekannt");
    if (!document.value(QLatin1String("parameters")).isArray())
        return ParameterValueSnapshot::tr("die Liste der Parameter fehlt");
    return {};
}

bool insert(SnapshotRecords &records, SnapshotJsonParameter &reader, const QJsonObject &object)
{
    const ParameterCoordinate coordinate(object.value(QLatin1String("coordinate")).toString());
    std::optional<SnapshotRecord> record = reader.read(object);
    if (!coordinate.isValid() || records.contains(coordinate) || !record)
        return false;
    records.insert(coordinate, *std::move(record));
    return true;
}

} // namespace

QByteArray SnapshotJson::write(const Content &content)
{
    QByteArray json = "{\"format\": \"kr-parameter-snapshot\", \"version\": 1, \"livingSpaces\": "
        + compact(SnapshotJsonParameter::write(content.livingSpaces.values())) + ", " + ListBegin;
    QList<ParameterCoordinate> coordinates = content.records.keys();
    std::sort(coordinates.begin(), coordinates.end());
    for (qsizetype i = 0; i < coordinates.size(); ++i) {
        if (i > 0)
            json += ",\n";
        const ParameterCoordinate &coordinate = coordinates.at(i);
        json += compact(
            SnapshotJsonParameter::write(coordinate, *content.records.constFind(coordinate)));
    }
    return json + ListEnd;
}

std::optional<SnapshotJson::Content> SnapshotJson::read(const QByteArray &json, QString &problem)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError) {
        problem = ParameterValueSnapshot::tr("das ist kein JSON (ab Byte %1)").arg(error.offset);
        return std::nullopt;
    }
    const QJsonObject root = document.object();
    problem = headProblem(root);
    const auto livingSpaces =
        SnapshotJsonParameter::readLivingSpaces(root.value(QLatin1String("livingSpaces")));
    if (problem.isEmpty() && !livingSpaces)
        problem = ParameterValueSnapshot::tr("die Liste der Achsen ist fehlerhaft");
    if (!problem.isEmpty())
        return std::nullopt;
    Content content {QSet<eLivingSpace>(livingSpaces->cbegin(), livingSpaces->cend()), {}};
    SnapshotJsonParameter reader;
    const QJsonArray parameters = root.value(QLatin1String("parameters")).toArray();
    for (qsizetype i = 0; i < parameters.size(); ++i) {
        if (!insert(content.records, reader, parameters.at(i).toObject())) {
            problem = ParameterValueSnapshot::tr("der %1. Parameter ist fehlerhaft").arg(i + 1);
            return std::nullopt;
        }
    }
    return content;
}

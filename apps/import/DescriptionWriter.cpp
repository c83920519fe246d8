#include "apps/import/DescriptionWriter.h"

#include "apps/import/CoordinateTable.h"
#include "apps/import/SkippedObject.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QSet>

namespace {

// The order in which a description names its types.
constexpr const char *TypeNames[] = {"INT8", "INT16", "INT32", "INT64", "UINT8", "UINT16", "UINT32",
    "UINT64", "REAL32", "REAL64", "STRING255", "BYTES64"};

/// The kind that shows a text as it stands; any other would show the number that it begins with.
constexpr int TextKind = 5;
/// What a type of 32 and of 64 bits carries, so that a number is shown with its fraction.
constexpr int DigitsOfFloat = 7;
constexpr int DigitsOfDouble = 15;
constexpr quint16 FloatSize = 32;

QJsonArray usedTypes(const QList<ImportedParameter> &parameters)
{
    QSet<QString> used;
    for (const ImportedParameter &parameter : parameters) {
        for (const ImportedElement &element : parameter.elements)
            used.insert(QLatin1String(element.type->shortName));
    }
    QJsonArray types;
    for (const char *name : TypeNames) {
        if (used.contains(QLatin1String(name)))
            types.append(QLatin1String(name));
    }
    return types;
}

QString placeOf(quint16 index)
{
    return SkippedObject {index, std::nullopt, 0, {}}.place();
}

QJsonObject descriptionText(const ImportedParameter &parameter)
{
    const QString tail =
        parameter.denotation.isEmpty() ? QString() : QLatin1String(": ") + parameter.denotation;
    const QString place = placeOf(parameter.index) + tail;
    return {{QStringLiteral("de"), QStringLiteral("Objekt %1").arg(place)},
        {QStringLiteral("en"), QStringLiteral("Object %1").arg(place)}};
}

} // namespace

QByteArray DescriptionWriter::write(const DeviceFamily &family,
    const QList<ImportedParameter> &parameters, const CoordinateTable &coordinates)
{
    QJsonArray list;
    for (const ImportedParameter &parameter : parameters)
        list.append(parameterObject(parameter, coordinates));
    const QJsonObject familyObject {{QStringLiteral("identifier"), qint64(family.identifier)},
        {QStringLiteral("name"), family.name}, {QStringLiteral("hasPhysicalAxes"), false},
        {QStringLiteral("axes"), QJsonArray {1}}};
    const QJsonObject root {{QStringLiteral("format"), QStringLiteral("kr-device-description")},
        {QStringLiteral("version"), 1}, {QStringLiteral("family"), familyObject},
        {QStringLiteral("languages"), QJsonArray {QStringLiteral("de"), QStringLiteral("en")}},
        {QStringLiteral("dataTypes"), usedTypes(parameters)}, {QStringLiteral("parameters"), list}};
    return QJsonDocument(root).toJson(QJsonDocument::Indented);
}

QJsonObject DescriptionWriter::parameterObject(
    const ImportedParameter &parameter, const CoordinateTable &coordinates)
{
    const QString name = parameter.name.isEmpty() ? placeOf(parameter.index) : parameter.name;
    QJsonArray elements;
    for (const ImportedElement &element : parameter.elements) {
        QJsonObject object = elementObject(element);
        object.insert(QStringLiteral("descriptionReference"), placeOf(parameter.index));
        if (parameter.isRecord) {
            object.insert(QStringLiteral("number"), element.subIndex);
            object.insert(QStringLiteral("name"),
                element.name.isEmpty() ? QStringLiteral("Sub %1").arg(element.subIndex)
                                       : element.name);
        }
        elements.append(object);
    }
    return {{QStringLiteral("number"), parameter.index}, {QStringLiteral("name"), name},
        {QStringLiteral("description"), descriptionText(parameter)},
        {QStringLiteral("type"),
            parameter.isRecord ? QStringLiteral("record") : QStringLiteral("simple")},
        {QStringLiteral("global"), true},
        {QStringLiteral("coordinates"),
            QJsonArray {coordinates.coordinate(parameter.index).toText()}},
        {QStringLiteral("elements"), elements}};
}

QJsonObject DescriptionWriter::elementObject(const ImportedElement &element)
{
    QJsonObject object {{QStringLiteral("dataType"), QLatin1String(element.type->shortName)},
        {QStringLiteral("default"), element.defaultText}};
    if (!element.type->isNumber())
        object.insert(QStringLiteral("kind"), TextKind);
    if (element.type->form == CanOpenDataType::eForm::Real) {
        const int digits = element.type->size == FloatSize ? DigitsOfFloat : DigitsOfDouble;
        object.insert(
            QStringLiteral("decimals"), QJsonObject {{QStringLiteral("significant"), digits}});
    }
    QJsonObject limits;
    if (!element.lowerLimit.isEmpty())
        limits.insert(QStringLiteral("lower"), element.lowerLimit);
    if (!element.upperLimit.isEmpty())
        limits.insert(QStringLiteral("upper"), element.upperLimit);
    if (!limits.isEmpty())
        object.insert(QStringLiteral("limits"), limits);
    if (!element.isWritable)
        object.insert(QStringLiteral("noWrite"), 1);
    if (element.isWriteOnly)
        object.insert(QStringLiteral("memoryAllocation"), 1);
    if (element.isMappable)
        object.insert(QStringLiteral("processDataMappable"), 1);
    return object;
}

#include "BenchmarkDevice.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <cstdio>
#include <cstdlib>

namespace {

constexpr int UsualDecimals = BenchmarkDevice::UsualDecimals;

QJsonObject element()
{
    return {{QStringLiteral("profile"), QStringLiteral("current")}};
}

QJsonObject rootOf(const QJsonArray &parameters, int decimals)
{
    const QJsonObject family {{QStringLiteral("identifier"), 77},
        {QStringLiteral("name"), QStringLiteral("Benchmark device")},
        {QStringLiteral("hasPhysicalAxes"), false},
        {QStringLiteral("axes"), QJsonArray {1, 2, 3, 4}}};
    const QJsonObject profile {{QStringLiteral("dataType"), QStringLiteral("INT32")},
        {QStringLiteral("kind"), 0},
        {QStringLiteral("limits"),
            QJsonObject {{QStringLiteral("lower"), -100000}, {QStringLiteral("upper"), 100000}}},
        {QStringLiteral("units"),
            QJsonObject {{QStringLiteral("scaled"), QStringLiteral("A")},
                {QStringLiteral("native"), QStringLiteral("cA")}}},
        {QStringLiteral("scaling"), QJsonObject {{QStringLiteral("factor"), 0.01}}},
        {QStringLiteral("decimals"), QJsonObject {{QStringLiteral("behind"), decimals}}},
        {QStringLiteral("default"), 1250}};
    return {{QStringLiteral("format"), QStringLiteral("kr-device-description")},
        {QStringLiteral("version"), 1}, {QStringLiteral("family"), family},
        {QStringLiteral("languages"), QJsonArray {QStringLiteral("de"), QStringLiteral("en")}},
        {QStringLiteral("dataTypes"), QJsonArray {QStringLiteral("INT32")}},
        {QStringLiteral("profiles"), QJsonObject {{QStringLiteral("current"), profile}}},
        {QStringLiteral("parameters"), parameters}};
}

QJsonObject parameterOf(quint32 number, const ParameterCoordinate &coordinate)
{
    return {{QStringLiteral("number"), qint64(number)},
        {QStringLiteral("name"), QStringLiteral("Current %1").arg(number)},
        {QStringLiteral("coordinates"), QJsonArray {coordinate.toText()}}};
}

QByteArray bytesOf(const QJsonArray &parameters, int decimals = UsualDecimals)
{
    return QJsonDocument(rootOf(parameters, decimals)).toJson();
}

std::unique_ptr<ServoDriveFirmware> load(const QByteArray &json)
{
    DescriptionError error;
    auto firmware = ServoDriveFirmware::loadFromBytes(json, QStringLiteral("benchmark"), &error);
    if (!firmware) {
        std::fprintf(stderr, "%s\n", qPrintable(error.toText()));
        std::abort();
    }
    return firmware;
}

ParameterCoordinate coordinateOf(int parameter)
{
    // Spread over the groups; line 999 of group A onwards stays free of the active axis "E84".
    quint16 group = quint16(parameter % 25 + 1);
    group += group >= 5 ? 1 : 0;
    return ParameterCoordinate(group, quint16(parameter / 25));
}

} // namespace

QByteArray BenchmarkDevice::description(int parameterCount, int decimals)
{
    QJsonArray parameters;
    for (int i = 0; i < parameterCount; ++i) {
        QJsonObject parameter = parameterOf(quint32(i + 1), coordinateOf(i));
        parameter.insert(QStringLiteral("elements"), QJsonArray {element()});
        parameters.append(parameter);
    }
    return bytesOf(parameters, decimals);
}

BenchmarkDevice::BenchmarkDevice(int parameterCount, int decimals)
    : m_firmware(load(description(parameterCount, decimals)))
{
    for (int i = 0; i < parameterCount; ++i)
        m_coordinates.append(coordinateOf(i));
    for (int i = 0; i < parameterCount; ++i) {
        m_definitions.append(m_firmware->parameterDefinition(quint32(i + 1)));
        m_systemLocatorTexts.append(QStringLiteral("S;{P%1}").arg(i + 1));
        for (int axis = 1; axis <= AxisCount; ++axis)
            m_locatorTexts.append(QStringLiteral("Drive.%1;{P%2}").arg(axis).arg(i + 1));
    }
}

void BenchmarkDevice::fill(ParameterContainer &container) const
{
    auto locatorText = m_systemLocatorTexts.cbegin();
    for (ParameterDefinition *definition : m_definitions)
        container.createOrUpdateParameter(definition, *locatorText++);
}

void BenchmarkDevice::fillByAxis(ParameterContainer &container) const
{
    auto locatorText = m_locatorTexts.cbegin();
    for (ParameterDefinition *definition : m_definitions) {
        for (int axis = 0; axis < AxisCount; ++axis)
            container.createOrUpdateParameter(definition, *locatorText++);
    }
}

BenchmarkRecord::BenchmarkRecord(int elementCount)
    : m_elementCount(elementCount)
{
    QJsonObject parameter = parameterOf(1, coordinate());
    QJsonArray elements;
    for (int i = 0; i < elementCount; ++i)
        elements.append(element());
    parameter.insert(QStringLiteral("type"), QStringLiteral("record"));
    parameter.insert(QStringLiteral("elements"), elements);
    m_firmware = load(bytesOf({parameter}));
}

ParameterCoordinate BenchmarkRecord::coordinate() const
{
    return ParameterCoordinate(QStringLiteral("A00"));
}

void BenchmarkRecord::fill(ParameterContainer &container) const
{
    container.createOrUpdateParameter(
        m_firmware->parameterDefinition(1), QStringLiteral("Drive.1;{P1}"));
}

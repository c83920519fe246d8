#pragma once

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtTest/QTest>

#include <memory>

/// A description around the given members of the root.
inline QByteArray description(const QByteArray &members)
{
    return R"({"format": "kr-device-description", "version": 1,
        "family": {"identifier": 4096, "name": "Two-axis drive", "hasPhysicalAxes": true, "axes": [1, 2]},
        "languages": ["de", "en"],
        "dataTypes": ["INT8", "UINT16", "INT64", "UINT64", "REAL32", "REAL64", "STRING8", "BYTES4",
            "RAW"],)"
        + members + "}";
}

/// A description with one parameter that has the given members.
inline QByteArray withParameter(const QByteArray &members)
{
    return description(
        R"("parameters": [{"number": 1, "coordinates": ["A01"], "name": "a",)" + members + "}]");
}

/// A description with one simple parameter whose element has the given members.
inline QByteArray withElement(const QByteArray &members)
{
    return withParameter(R"("elements": [{)" + members + "}]");
}

inline std::unique_ptr<ServoDriveFirmware> load(const QByteArray &json)
{
    DescriptionError error;
    auto firmware = ServoDriveFirmware::loadFromBytes(json, QStringLiteral("d.json"), &error);
    if (!firmware)
        QTest::qFail(qPrintable(error.toText()), __FILE__, __LINE__);
    return firmware;
}

inline QString errorOf(const QByteArray &json)
{
    DescriptionError error;
    const auto firmware = ServoDriveFirmware::loadFromBytes(json, QStringLiteral("d.json"), &error);
    if (firmware)
        return QStringLiteral("was loaded");
    return error.toText();
}

inline const IParameterElementInformation *elementOf(
    const ServoDriveFirmware &firmware, quint16 element = 0)
{
    return firmware.parameterDefinition(1)->queryElementInformation(element);
}

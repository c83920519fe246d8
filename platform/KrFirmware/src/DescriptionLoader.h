#pragma once

#include "DescriptionReader.h"
#include "ParameterBuilder.h"
#include "ServoDriveFirmwareData.h"

#include <QtCore/QByteArray>
#include <QtCore/QHash>

/// Reads one device description as a whole.
class DescriptionLoader {
public:
    /// Larger files are refused.
    static constexpr qsizetype MostBytes = qsizetype(64) * 1024 * 1024;

    /// Null where refused; `error` then says why, and no family was registered.
    static std::unique_ptr<ServoDriveFirmwareData> load(
        const QByteArray &bytes, const QString &fileName, DescriptionError &error);

private:
    DescriptionLoader();

    void readRoot(const JsonValue &root);
    void readHeader(const JsonValue &root);
    void readFamily(const JsonValue &family);
    void readAxes(const JsonValue &axes);
    void readLanguages(const JsonValue &languages);
    void readDataTypes(const JsonValue &dataTypes);
    void readParameters(const JsonValue &list, eParameterOrigin origin,
        ServoDriveFirmwareData::Definitions &definitions);
    void occupy(const JsonValue &parameter, const ParameterDefinition &definition);
    void registerFamily(const JsonValue &root);

    DescriptionFindings m_findings;
    DescriptionReader m_reader;
    QStringList m_dataTypes;
    FactReader m_facts;
    std::unique_ptr<ServoDriveFirmwareData> m_data;
    ProfileTable m_profiles;
    ElementBuilder m_elements;
    ParameterBuilder m_parameters;
    /// Coordinate of a single-instance parameter to its identifier.
    QHash<ParameterCoordinate, QString> m_occupied;
};

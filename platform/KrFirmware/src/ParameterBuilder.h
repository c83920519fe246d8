#pragma once

#include "ElementBuilder.h"
#include "ProfileTable.h"

#include <KrParameterDefinition/ParameterDefinition.h>

/// Who creates a parameter.
enum class eParameterOrigin { Project, Firmware };

/// Makes the content of one parameter definition.
class ParameterBuilder {
public:
    ParameterBuilder(
        const DescriptionReader &reader, const ProfileTable &profiles, ElementBuilder &elements)
        : m_reader(reader)
        , m_profiles(profiles)
        , m_elements(elements)
    {
    }

    /// 0 where refused.
    quint32 number(const JsonValue &parameter) const;
    ParameterDefinition::Content content(
        const JsonValue &parameter, quint32 number, eParameterOrigin origin) const;

private:
    using Content = ParameterDefinition::Content;

    void readIdentity(Content &content, const JsonValue &parameter, quint32 number,
        eParameterOrigin origin) const;
    void readKind(Content &content, const JsonValue &parameter, eParameterOrigin origin) const;
    void readAnchors(Content &content, const JsonValue &anchors, eParameterOrigin origin) const;
    void readPlaces(Content &content, const JsonValue &parameter, eParameterOrigin origin) const;
    void readElements(Content &content, const JsonValue &parameter) const;
    void readSimple(Content &content, const JsonValue &parameter, const JsonValue &element) const;
    void readRecord(Content &content, const JsonValue::List &elements) const;
    ParameterDefinition::Element recordElement(
        const Content &content, const JsonValue &element, qsizetype position) const;
    ParameterText name(const JsonValue &value) const;
    /// First or second of two texts; the first one where refused.
    bool isSecond(const JsonValue &value, QLatin1StringView first, QLatin1StringView second) const;

    const DescriptionReader &m_reader;
    const ProfileTable &m_profiles;
    ElementBuilder &m_elements;
};

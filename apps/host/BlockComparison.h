#pragma once

#include "apps/host/BlockManifest.h"
#include "apps/host/LoadReport.h"

#include <KrParameterDefinition/ParameterCoordinate.h>
#include <LmUtilities/IniParser.h>

#include <QtCore/QPointer>
#include <QtCore/QSet>

#include <optional>

class ParameterContainer;
class ParameterInformation;
class Progress;
struct ValuePlace;

/// Walks a parameter block beside the parameters of a container.
class BlockComparison {
public:
    BlockComparison(const QByteArray &block, ParameterContainer &container);

    LoadReport report(const std::optional<BlockManifest::Entry> &noted, Progress *progress);

private:
    struct Section {
        const LmIniParser::IniSection &keys;
        QByteArray name;
        const ParameterInformation &parameter;
        /// Of a simple parameter as many as the section itself says, else as its definition.
        QList<quint16> elements;
        QSet<quint16> elementSet;
    };

    void compareSection(const QByteArray &name);
    void compareValue(const Section &section, const ValuePlace &place);
    static QString addressOf(const Section &section, const ValuePlace &place);
    void compareKeys(const Section &section);
    static bool canBeOverridden(const Section &section, quint16 element, quint32 property);
    bool isUnderstood(const Section &section, QByteArrayView key) const;
    void findMissingParameters();
    void findCutSigns(const std::optional<BlockManifest::Entry> &noted);

    LmIniParser::IniParser m_parser;
    qsizetype m_size;
    ParameterContainer &m_container;
    LoadReport m_report;
    /// Those that the block has.
    QSet<ParameterCoordinate> m_found;
    /// Coordinates that the container has and the block lacks, ascending.
    QList<ParameterCoordinate> m_missing;
    bool m_isLastSectionIncomplete = false;
};

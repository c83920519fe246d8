#pragma once

#include <KrMultilingual/ParameterText.h>
#include <KrParameterDefinition/ElementInformation.h>
#include <KrParameterDefinition/KrParameterDefinitionExport.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/RecordParameterDefinition.h>

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

/// A parameter as the firmware defines it: simple (elements 0 to elementCount - 1 that share one
/// element information) or a record (elements with numbers, names and information of their own).
/// Immutable after construction; borrowed by the containers, which it must outlive.
class KrParameterDefinition_EXPORT ParameterDefinition {
public:
    /// A parameter has at most this many elements.
    static constexpr quint16 LastElementCount = 16000;

    /// How a simple or record element is described; element informations may be shared.
    struct Element {
        /// Ignored for a simple parameter.
        quint16 number = 0;
        ParameterText name;
        int nameCommonTextIndex = 0;
        quint32 version = 0;
        std::shared_ptr<const ElementInformation> information;
        /// Native text.
        QString defaultValue;
    };

    /// What every creation of an instance asks for stands first, so that it is read together.
    struct Content {
        /// Identifies the parameter across its versions. Empty: the definition is invalid.
        QString identifier;
        quint32 version = 0;
        /// Simple parameter: 1 to 16000. A record counts its elements itself.
        quint16 elementCount = 1;
        bool isGlobal = false;
        bool isPhysicalAxis = false;
        bool isSingleInstance = true;
        bool isRecord = false;
        /// In order of preference; may be empty.
        QList<ParameterCoordinate> defaultCoordinates;
        ParameterText name;
        int nameCommonTextIndex = 0;
        ParameterText description;
        /// Locator texts.
        QStringList anchors;
        /// Simple parameter: native texts by element; an element beyond the list has the first, and
        /// all have the default of their one entry in `elements` where the list is empty.
        QStringList defaultValues;
        /// Record: one entry an element. Simple parameter: exactly one entry.
        QList<Element> elements;
    };

    explicit ParameterDefinition(Content content);
    ~ParameterDefinition();
    Q_DISABLE_COPY_MOVE(ParameterDefinition)

    /// Has an identifier, 1 to 16000 elements and an information for every element.
    bool isValid() const { return m_isValid; }
    bool isGlobalParameter() const { return m_content.isGlobal; }
    bool isPhysicalAxisParameter() const { return m_content.isPhysicalAxis; }
    bool isSingleInstance() const { return m_content.isSingleInstance; }
    bool isSimpleParameterDefinition() const { return !m_content.isRecord; }
    bool isRecordParameterDefinition() const { return m_content.isRecord; }
    /// Null for a simple parameter. **Owner** the definition.
    const RecordParameterDefinition *queryRecordDefinition() const;

    QString identifier() const { return m_content.identifier; }
    ParameterText name() const { return m_content.name; }
    int nameCommonTextIndex() const { return m_content.nameCommonTextIndex; }
    quint32 version() const { return m_content.version; }
    quint16 elementCount() const;
    /// The parameter's version for a simple parameter, 0 for an element that a record lacks.
    quint32 elementVersion(quint16 element) const;
    QList<ParameterCoordinate> defaultCoordinates() const { return m_content.defaultCoordinates; }
    /// A simple parameter answers every element with its one information; null for an element that
    /// a record lacks. **Owner** the definition.
    const IParameterElementInformation *queryElementInformation(quint16 element) const;
    /// Native text; empty for an element that a record lacks.
    QString elementDefaultValue(quint16 element) const;
    /// Long text of the description in the active language.
    QString descriptionText() const { return m_content.description.longText(); }
    QStringList anchors() const { return m_content.anchors; }

    /// Same parameter in the same version. A definition without identifier is the same as none,
    /// like null.
    bool isParameterIdentical(const ParameterDefinition *other) const;
    /// Same parameter in another version.
    bool versionsOfTheSameParameter(const ParameterDefinition *other) const;

private:
    bool isSameParameter(const ParameterDefinition *other) const;
    qsizetype recordPosition(quint16 element) const;

    bool m_isValid;
    /// Null for a simple parameter.
    std::unique_ptr<const RecordParameterDefinition> m_record;
    Content m_content;
    /// Record: element number to position in Content::elements. No key: the record lacks the
    /// element.
    QHash<quint16, qsizetype> m_positions;
};

#pragma once

#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterDefinition/ParameterDefinition.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QMap>
#include <QtCore/QVariant>

#include <memory>
#include <optional>

/// Builds a parameter definition for a test, which then states only what it is about.
///
/// Starts as a valid simple parameter: identifier "P1", version 1, name "Parameter", single
/// instance, one per axis, one element of type INT32, default "0", no coordinate. Its elements have
/// function indices (0 to 4, 7, 21), levels (5, 6), numbers 10 to 15, 23, 24, 29 to 40 and 45 of
/// value 0 and empty units (18, 19, 26); they lack every other property and none is settable.
///
/// Element setters before the first element() describe all elements, those after it the last one.
class DefinitionBuilder {
public:
    DefinitionBuilder();

    DefinitionBuilder &identifier(const QString &identifier);
    DefinitionBuilder &version(quint32 version);
    /// In German and English, short and long alike; without `english` both are the same.
    DefinitionBuilder &name(const QString &german, const QString &english = {});
    /// With a short form of its own.
    DefinitionBuilder &name(const ParameterText &text);
    DefinitionBuilder &nameCommonText(int index);
    DefinitionBuilder &description(const QString &german, const QString &english = {});
    DefinitionBuilder &global(bool isGlobal = true);
    DefinitionBuilder &physicalAxis(bool isPhysicalAxis = true);
    DefinitionBuilder &multiInstance();
    /// Texts like "A12", in order of preference.
    DefinitionBuilder &coordinates(const QStringList &texts);
    DefinitionBuilder &anchors(const QStringList &locatorTexts);
    /// Simple parameter only.
    DefinitionBuilder &elementCount(quint16 count);
    /// Simple parameter only: native texts by element.
    DefinitionBuilder &defaultValues(const QStringList &nativeTexts);

    /// Makes the definition a record and begins its next element, a copy of what the setters before
    /// the first element() described.
    DefinitionBuilder &element(quint16 number, const QString &german, const QString &english = {});
    DefinitionBuilder &element(quint16 number, const ParameterText &name);
    /// Of the element begun last.
    DefinitionBuilder &elementVersion(quint32 version);
    DefinitionBuilder &elementNameCommonText(int index);

    DefinitionBuilder &defaultValue(const QString &nativeText);
    DefinitionBuilder &property(eParameterProperty property, const QVariant &value);
    DefinitionBuilder &without(eParameterProperty property);
    DefinitionBuilder &settable(eParameterProperty property);
    /// By short name, "INT32".
    DefinitionBuilder &datatype(const QString &shortName);
    DefinitionBuilder &datatype(quint8 id);
    DefinitionBuilder &kind(quint32 kind);
    DefinitionBuilder &levels(quint32 readLevel, quint32 writeLevel);
    /// Native texts.
    DefinitionBuilder &limits(const QString &lower, const QString &upper);
    DefinitionBuilder &decimals(qint32 behind, quint32 significant = 0);
    /// A full-scale value of 0 leaves that property absent.
    DefinitionBuilder &scaling(float factor, quint32 fullScaleValue = 0);
    /// Units in all languages, or unit locators.
    DefinitionBuilder &units(
        const QString &scaled, const QString &native = {}, const QString &fieldbus = {});
    /// German texts; the English ones are the same.
    DefinitionBuilder &choices(const QMap<qint32, QString> &texts);
    DefinitionBuilder &choices(const ParameterTextMap &texts);

    std::unique_ptr<ParameterDefinition> build() const;

private:
    struct ElementDraft {
        quint16 number = 0;
        ParameterText name;
        int nameCommonTextIndex = 0;
        std::optional<quint32> version;
        ElementInformation information;
        QString defaultValue = QStringLiteral("0");
    };

    ElementDraft &draft() { return m_elements.isEmpty() ? m_all : m_elements.last(); }

    ParameterDefinition::Content m_content;
    ElementDraft m_all;
    QList<ElementDraft> m_elements;
};

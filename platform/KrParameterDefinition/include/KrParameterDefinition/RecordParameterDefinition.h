#pragma once

#include <KrMultilingual/ParameterText.h>
#include <KrParameterDefinition/KrParameterDefinitionExport.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QSet>

/// The elements of a record parameter: any numbers, in the order of the definition.
class KrParameterDefinition_EXPORT RecordParameterDefinition {
public:
    struct Element {
        quint16 number = 0;
        ParameterText name;
        int nameCommonTextIndex = 0;
    };

    /// Numbers must be distinct; a repeated number keeps its first entry.
    explicit RecordParameterDefinition(const QList<Element> &elements);

    quint16 elementCount() const { return quint16(m_list.size()); }
    /// In the order of the definition, which need not be ascending.
    QList<quint16> elementList() const { return m_list; }
    QSet<quint16> elementSet() const;
    /// Empty for a number that the record lacks.
    ParameterText elementName(quint16 element) const;
    /// 0 for a number that the record lacks.
    int elementNameCommonTextIndex(quint16 element) const;
    bool hasElement(quint16 element) const;

private:
    QList<quint16> m_list;
    QList<Element> m_elements;
    /// Element number to position in m_elements.
    QHash<quint16, qsizetype> m_positions;
};

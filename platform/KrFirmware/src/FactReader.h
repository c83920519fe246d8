#pragma once

#include "DescriptionReader.h"
#include "ElementFact.h"

#include <QtCore/QHash>
#include <QtCore/QVariant>

class SimpleType;

/// Turns one value of the file into the value of a property.
class FactReader {
public:
    FactReader(const DescriptionReader &reader, const QStringList &dataTypes)
        : m_reader(reader)
        , m_dataTypes(dataTypes)
    {
    }

    /// A limit needs the element's data type; without one (null) its form alone is checked.
    QVariant value(const ElementFact &fact, const JsonValue &value, const SimpleType *type) const;
    /// What an element has that does not mention the property; invalid where it has nothing.
    static QVariant defaultValue(const ElementFact &fact);
    /// Null where refused.
    const SimpleType *dataType(const JsonValue &value) const;

private:
    QVariant real(const JsonValue &value) const;
    QVariant limit(const JsonValue &value, const SimpleType *type) const;
    QVariant choices(const ElementFact &fact, const JsonValue &value) const;
    QVariant unit(const JsonValue &value) const;
    QVariant numberList(const ElementFact &fact, const JsonValue &value) const;
    QVariant textOrNumber(const ElementFact &fact, const JsonValue &value) const;

    const DescriptionReader &m_reader;
    const QStringList &m_dataTypes;
};

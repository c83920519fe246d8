#pragma once

#include "ElementSource.h"
#include "FactReader.h"
#include "FunctionTables.h"
#include "ValueBounds.h"

#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterDefinition/ElementInformation.h>

#include <bitset>
#include <memory>

/// Makes the element informations. Elements that are described alike share one.
class ElementBuilder {
public:
    struct Built {
        std::shared_ptr<const ElementInformation> information;
        /// Null where refused.
        const SimpleType *type = nullptr;
        /// Without choice keys, which would cost a list for each element.
        ValueBounds limits;
        /// Empty where the value is no choice. Shared with the information.
        ParameterTextMap choices;
    };

    ElementBuilder(
        const DescriptionReader &reader, const FactReader &facts, const FunctionTables &tables)
        : m_reader(reader)
        , m_facts(facts)
        , m_tables(tables)
    {
    }

    /// Checks what a profile says, so that one that no element uses is right too.
    void checkProfile(const ElementSource &profile);
    Built built(const ElementSource &source);
    /// The native default; "0", empty for strings, where the source has none.
    QString defaultText(const ElementSource &source, const Built &built) const;
    /// The native text of a value that serves as default.
    QString defaultText(const JsonValue &value, const Built &built) const;

private:
    using Properties = std::bitset<DefinitionPropertyEnd>;

    Built make(const ElementSource &source, const SimpleType *type);
    const SimpleType *typeOf(const ElementSource &source) const;
    QVariant factValue(size_t position, const ElementSource::Entry &entry, const SimpleType *type);
    void checkIndices(const ElementFact &fact, const QVariant &value, const JsonValue &at) const;
    void checkDefault(const QString &text, const Built &built, const JsonValue &at) const;
    void checkLimits(const ElementSource &source, const Built &built) const;
    Properties properties(const ElementSource::Entry &list) const;
    static QString signature(const ElementSource &source);

    const DescriptionReader &m_reader;
    const FactReader &m_facts;
    const FunctionTables &m_tables;
    /// What a source says, as a text, to the element made of it.
    QHash<QString, Built> m_built;
    /// Values of profiles that do not hang on the element's data type, read once.
    QHash<const JsonValue *, QVariant> m_inherited;
};

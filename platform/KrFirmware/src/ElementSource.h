#pragma once

#include "DescriptionReader.h"
#include "ElementFact.h"

#include <array>

/// What the file says of one element or profile: for every key the value that holds, its own or its
/// profile's. Keys of grouping objects (levels, units and so on) are taken over one by one, all
/// other values as a whole.
class ElementSource {
public:
    struct Entry {
        /// Null where neither the element nor its profile has the key. **Owner** the parsed file.
        const JsonValue *value = nullptr;
        bool isInherited = false;
    };

    /// Reads an element object; unknown keys are refused.
    ElementSource(const JsonValue &object, const DescriptionReader &reader);
    /// Takes over what this source lacks.
    void inherit(const ElementSource &profile);

    /// The element object itself.
    const JsonValue &object() const { return *m_object; }
    /// By position in elementFacts().
    const Entry &fact(size_t position) const { return m_facts[position]; }
    const Entry &defaultValue() const { return m_defaultValue; }
    const Entry &settable() const { return m_settable; }
    const Entry &absent() const { return m_absent; }
    /// Never inherited; null where there is none.
    const JsonValue *profile() const { return m_profile.value; }
    const JsonValue *number() const { return m_number.value; }
    const JsonValue *name() const { return m_name.value; }
    const JsonValue *nameCommonText() const { return m_nameCommonText.value; }
    const JsonValue *version() const { return m_version.value; }
    /// Refuses number, name, nameCommonText and version, which only an element of a record has.
    void refuseIdentity(DescriptionFindings &findings) const;

private:
    Entry *entry(const QString &group, const QString &key);
    void readMember(const JsonValue::Member &member, const DescriptionReader &reader);

    const JsonValue *m_object;
    std::array<Entry, ElementFactCount> m_facts {};
    Entry m_profile;
    Entry m_number;
    Entry m_defaultValue;
    Entry m_name;
    Entry m_nameCommonText;
    Entry m_version;
    Entry m_settable;
    Entry m_absent;
};

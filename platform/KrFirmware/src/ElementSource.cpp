#include "ElementSource.h"

#include "FindingText.h"

#include <algorithm>

namespace {

bool isGroup(const QString &key)
{
    const auto facts = elementFacts();
    return std::any_of(facts.begin(), facts.end(),
        [&key](const ElementFact &fact) { return !fact.group.isEmpty() && key == fact.group; });
}

void inheritEntry(ElementSource::Entry &own, const ElementSource::Entry &profile)
{
    if (!own.value && profile.value)
        own = {profile.value, true};
}

} // namespace

ElementSource::ElementSource(const JsonValue &object, const DescriptionReader &reader)
    : m_object(&object)
{
    for (const JsonValue::Member &member : reader.object(object))
        readMember(member, reader);
}

void ElementSource::inherit(const ElementSource &profile)
{
    for (size_t position = 0; position < m_facts.size(); ++position)
        inheritEntry(m_facts[position], profile.m_facts[position]);
    inheritEntry(m_defaultValue, profile.m_defaultValue);
    inheritEntry(m_settable, profile.m_settable);
    inheritEntry(m_absent, profile.m_absent);
}

void ElementSource::refuseIdentity(DescriptionFindings &findings) const
{
    for (const JsonValue *value : {number(), name(), nameCommonText(), version()}) {
        if (value)
            findings.refuse(*value, FindingText::tr("is for elements of a record only"));
    }
}

void ElementSource::readMember(const JsonValue::Member &member, const DescriptionReader &reader)
{
    const auto refuse = [&reader](const JsonValue &value) {
        reader.findings().refuse(value, FindingText::tr("unknown key"));
    };
    if (isGroup(member.key)) {
        for (const JsonValue::Member &inner : reader.object(member.value)) {
            if (Entry *found = entry(member.key, inner.key))
                found->value = &inner.value;
            else
                refuse(inner.value);
        }
        return;
    }
    if (Entry *found = entry(QString(), member.key))
        found->value = &member.value;
    else
        refuse(member.value);
}

ElementSource::Entry *ElementSource::entry(const QString &group, const QString &key)
{
    const auto facts = elementFacts();
    for (size_t position = 0; position < facts.size(); ++position) {
        if (key == facts[position].key && group == facts[position].group)
            return &m_facts[position];
    }
    if (!group.isEmpty())
        return nullptr;

    using Own = std::pair<QLatin1StringView, Entry *>;
    for (const auto &[ownKey, own] : {Own {"profile", &m_profile}, Own {"number", &m_number},
             Own {"default", &m_defaultValue}, Own {"name", &m_name},
             Own {"nameCommonText", &m_nameCommonText}, Own {"version", &m_version},
             Own {"settable", &m_settable}, Own {"absent", &m_absent}}) {
        if (key == ownKey)
            return own;
    }
    return nullptr;
}

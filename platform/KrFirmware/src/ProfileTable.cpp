#include "ProfileTable.h"

#include "FindingText.h"

void ProfileTable::read(const JsonValue &profiles)
{
    for (const JsonValue::Member &member : m_reader.object(profiles)) {
        m_positions.insert(member.key, m_profiles.size());
        m_profiles.emplace_back(member.value, m_reader).refuseIdentity(m_reader.findings());
    }
    m_states.assign(m_profiles.size(), eState::Untouched);
    for (size_t position = 0; position < m_profiles.size(); ++position)
        resolve(position);
}

ElementSource ProfileTable::resolved(const JsonValue &element) const
{
    ElementSource source(element, m_reader);
    if (const std::optional<size_t> profile = named(source))
        source.inherit(m_profiles[*profile]);
    return source;
}

std::optional<size_t> ProfileTable::named(const ElementSource &source) const
{
    if (!source.profile())
        return std::nullopt;
    const auto found = m_positions.constFind(m_reader.text(*source.profile()));
    if (found == m_positions.cend()) {
        m_reader.findings().refuse(
            *source.profile(), FindingText::tr("expected the name of a profile"));
        return std::nullopt;
    }
    return *found;
}

void ProfileTable::resolve(size_t position)
{
    // A chain is as long as the file likes, so it is walked without recursion.
    std::vector<size_t> chain;
    std::optional<size_t> next = position;
    while (next && m_states[*next] == eState::Untouched) {
        m_states[*next] = eState::Open;
        chain.push_back(*next);
        next = named(m_profiles[*next]);
    }
    if (next && m_states[*next] == eState::Open) {
        m_reader.findings().refuse(*m_profiles[chain.back()].profile(),
            FindingText::tr("a profile must not depend on itself"));
        next.reset();
    }

    for (auto link = chain.rbegin(); link != chain.rend(); ++link) {
        if (next)
            m_profiles[*link].inherit(m_profiles[*next]);
        m_states[*link] = eState::Done;
        next = *link;
    }
}

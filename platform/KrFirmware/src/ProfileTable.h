#pragma once

#include "ElementSource.h"

#include <QtCore/QHash>
#include <QtCore/QString>

#include <vector>

/// The profiles of a description, each with what it takes over from its own profile.
class ProfileTable {
public:
    explicit ProfileTable(const DescriptionReader &reader)
        : m_reader(reader)
    {
    }

    /// **Refused** a profile that names an unknown one or, over whatever detour, itself.
    void read(const JsonValue &profiles);
    /// The element with its profile's values. **Refused** an unknown profile.
    ElementSource resolved(const JsonValue &element) const;
    /// In the order of the file.
    const std::vector<ElementSource> &profiles() const { return m_profiles; }

private:
    enum class eState { Untouched, Open, Done };

    /// Position of the profile that the source names; none where it names none or an unknown one.
    std::optional<size_t> named(const ElementSource &source) const;
    void resolve(size_t position);

    const DescriptionReader &m_reader;
    std::vector<ElementSource> m_profiles;
    std::vector<eState> m_states;
    /// Name to position in m_profiles.
    QHash<QString, size_t> m_positions;
};

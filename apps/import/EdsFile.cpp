#include "apps/import/EdsFile.h"

const EdsSection *EdsFile::section(const QString &name) const
{
    const auto position = m_positions.constFind(EdsSection::comparable(name));
    return position == m_positions.constEnd() ? nullptr : &m_sections.at(*position);
}

EdsSection *EdsFile::openSection(const QString &name, int line)
{
    const QString key = EdsSection::comparable(name);
    auto position = m_positions.constFind(key);
    if (position == m_positions.constEnd()) {
        position = m_positions.insert(key, m_sections.size());
        m_sections.append(EdsSection(name, line));
    }
    return &m_sections[*position];
}

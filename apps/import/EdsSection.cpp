#include "apps/import/EdsSection.h"

#include "apps/import/EdsNumber.h"
#include "apps/import/ImportRemarks.h"

EdsSection::EdsSection(const QString &name, int line)
    : m_name(name)
    , m_line(line)
{
}

EdsEntry EdsSection::entry(const QString &key) const
{
    const auto position = m_positions.constFind(comparable(key));
    return position == m_positions.constEnd() ? EdsEntry {{}, {}, m_line} : m_entries.at(*position);
}

QString EdsSection::printable(const QString &key) const
{
    QString text = value(key);
    for (QChar &c : text) {
        if (!c.isPrint() && !c.isSurrogate())
            c = QLatin1Char(' ');
    }
    return text.trimmed();
}

quint32 EdsSection::number(const QString &key, ImportRemarks &remarks) const
{
    const EdsEntry found = entry(key);
    const EdsNumber parsed = EdsNumber::parse(found.value);
    const auto result = parsed.unsignedValue(0xFFFFFFFF);
    if (!result && parsed.state() != EdsNumber::eState::Empty)
        remarks.add(found, tr("ist keine 32-Bit-Zahl und zählt als 0"));
    return result.value_or(0);
}

bool EdsSection::add(const EdsEntry &entry)
{
    const QString key = comparable(entry.key);
    if (m_positions.contains(key))
        return false;
    m_positions.insert(key, m_entries.size());
    m_entries.append(entry);
    return true;
}

QString EdsSection::comparable(const QString &name)
{
    QString text;
    text.reserve(name.size());
    for (const QChar c : name) {
        if (!c.isSpace())
            text.append(c.toLower());
    }
    return text;
}

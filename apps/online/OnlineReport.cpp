#include "apps/online/OnlineReport.h"

#include <QtCore/QStringList>

#include <algorithm>

namespace {

/// In the order of OnlineOutcome::eKind.
constexpr const char *CountTexts[] = {
    QT_TRANSLATE_NOOP("OnlineReport", "%1 unverändert"),
    QT_TRANSLATE_NOOP("OnlineReport", "%1 geändert"),
    QT_TRANSLATE_NOOP("OnlineReport", "%1 geschrieben"),
    QT_TRANSLATE_NOOP("OnlineReport", "%1 vom Antrieb verändert"),
    QT_TRANSLATE_NOOP("OnlineReport", "%1 abgelehnt"),
    QT_TRANSLATE_NOOP("OnlineReport", "%1 verloren"),
    QT_TRANSLATE_NOOP("OnlineReport", "%1 nicht übertragbar"),
};

} // namespace

void OnlineReport::add(const OnlineOutcome &outcome)
{
    m_others.append(outcome);
    m_entries.push_back({qint32(-m_others.size()), outcome.kind});
    ++m_counts[std::size_t(outcome.kind)];
}

QList<OnlineOutcome> OnlineReport::outcomes() const
{
    QList<OnlineOutcome> outcomes;
    outcomes.reserve(qsizetype(m_entries.size()));
    for (const Entry &entry : m_entries) {
        if (entry.position < 0)
            outcomes.append(m_others.at(-entry.position - 1));
        else
            outcomes.append(OnlineOutcome::ofRead(m_values.at(entry.position), entry.kind));
    }
    return outcomes;
}

bool OnlineReport::isGood() const
{
    return std::all_of(m_entries.cbegin(), m_entries.cend(),
        [](const Entry &entry) { return OnlineOutcome::isGood(entry.kind); });
}

QString OnlineReport::summary() const
{
    QStringList parts;
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        if (m_counts[i] > 0)
            parts.append(tr(CountTexts[i]).arg(m_counts[i]));
    }
    return tr("%1 Werte: %2").arg(m_entries.size()).arg(parts.join(QLatin1String(", ")));
}

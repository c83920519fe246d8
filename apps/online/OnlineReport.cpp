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
    m_outcomes.append(outcome);
    ++m_counts[std::size_t(outcome.kind)];
}

bool OnlineReport::isGood() const
{
    return std::all_of(m_outcomes.begin(), m_outcomes.end(),
        [](const OnlineOutcome &outcome) { return outcome.isGood(); });
}

QString OnlineReport::summary() const
{
    QStringList parts;
    for (std::size_t i = 0; i < m_counts.size(); ++i) {
        if (m_counts[i] > 0)
            parts.append(tr(CountTexts[i]).arg(m_counts[i]));
    }
    return tr("%1 Werte: %2").arg(m_outcomes.size()).arg(parts.join(QLatin1String(", ")));
}

#include "apps/krparameter/UnreadValues.h"

#include "apps/krparameter/LoneValue.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <algorithm>

using eKind = OnlineOutcome::eKind;

namespace {

/// More would hide everything else.
constexpr qsizetype LongestList = 20;

} // namespace

UnreadValues::UnreadValues(const OnlineReport &report)
{
    if (report.count(eKind::Lost) + report.count(eKind::Refused) == 0)
        return;
    for (const OnlineOutcome &outcome : report.outcomes()) {
        if (outcome.kind == eKind::Lost || outcome.kind == eKind::Refused)
            m_outcomes.append(outcome);
    }
}

QStringList UnreadValues::lines() const
{
    QStringList lines;
    for (const OnlineOutcome &outcome : m_outcomes.first(std::min(m_outcomes.size(), LongestList)))
        lines.append(outcome.toText());
    if (m_outcomes.size() > LongestList)
        lines.append(tr("und %1 weitere Werte nicht gelesen").arg(m_outcomes.size() - LongestList));
    return lines;
}

UnreadValues::eMatter UnreadValues::matterFor(
    const QList<ValuePlace> &places, ParameterContainer &container) const
{
    const auto isNeeded = [&places](const OnlineOutcome &outcome) {
        return places.contains(outcome.place);
    };
    if (std::any_of(m_outcomes.cbegin(), m_outcomes.cend(), isNeeded))
        return eMatter::Needed;
    const auto isLone = [&container](const ValuePlace &place) {
        const auto parameter = container.parameterInformation(place.coordinate);
        return parameter && LoneValue::isLone(*parameter, place.element);
    };
    return std::all_of(places.cbegin(), places.cend(), isLone) ? eMatter::None : eMatter::Unknown;
}

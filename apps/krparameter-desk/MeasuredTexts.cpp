#include "apps/krparameter-desk/MeasuredTexts.h"

#include "apps/krparameter-desk/LongestTexts.h"
#include "apps/krparameter-desk/RowTexts.h"
#include "apps/krparameter-desk/ShownRows.h"

MeasuredTexts::MeasuredTexts(
    const RowTexts &texts, const QList<ValuePlace> &places, const ShownRows &shownRows)
    : m_texts(texts)
    , m_places(places)
    , m_shownRows(shownRows)
{
}

QStringList MeasuredTexts::ofColumn(TableColumns::eColumn column) const
{
    switch (column) {
    case TableColumns::Address:
        return longest([this](const ValuePlace &place) { return m_texts.address(place); });
    case TableColumns::Name:
        return longest([this](const ValuePlace &place) { return m_texts.name(place); });
    case TableColumns::Value:
        return longest([this](const ValuePlace &place) {
            return m_texts.isNumber(place) ? QString() : m_texts.value(place);
        });
    default:
        return {};
    }
}

QStringList MeasuredTexts::choices() const
{
    return longest([this](const ValuePlace &place) {
        return m_texts.isNumber(place) ? QString() : m_texts.longestChoice(place);
    });
}

QStringList MeasuredTexts::longest(const std::function<QString(const ValuePlace &)> &textOf) const
{
    LongestTexts longest;
    const ValuePlace *first = nullptr;
    for (int row = 0; row < m_places.size(); ++row) {
        const ValuePlace &place = m_places.at(row);
        if (!m_shownRows.isVisible(row))
            continue;
        if (!first || first->coordinate != place.coordinate)
            first = &place;
        if (first->livingSpace == place.livingSpace)
            longest.add(textOf(place));
    }
    return longest.texts();
}

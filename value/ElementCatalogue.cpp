#include "value/ElementCatalogue.h"

#include <KrParameterDefinition/ParameterDefinition.h>

#include <algorithm>
#include <utility>
#include <vector>

/// Element numbers of a record, ascending, each with its place in the definition's list.
struct ElementCatalogue::Positions {
    std::vector<std::pair<quint16, quint16>> entries;
};

ElementCatalogue::ElementCatalogue() = default;
ElementCatalogue::~ElementCatalogue() = default;
ElementCatalogue::ElementCatalogue(ElementCatalogue &&) noexcept = default;
ElementCatalogue &ElementCatalogue::operator=(ElementCatalogue &&) noexcept = default;

void ElementCatalogue::setDefinition(const ParameterDefinition *definition)
{
    m_definition = definition;
    m_record = definition ? definition->queryRecordDefinition() : nullptr;
    m_count = definition ? definition->elementCount() : 0;
    m_positions.reset();
    if (!m_record)
        return;
    m_count = m_record->elementCount();

    auto positions = std::make_unique<Positions>();
    positions->entries.reserve(m_count);
    bool inPlace = true;
    quint16 position = 0;
    for (const quint16 element : m_record->elementList()) {
        inPlace = inPlace && element == position;
        positions->entries.emplace_back(element, position++);
    }
    if (inPlace)
        return;
    std::sort(positions->entries.begin(), positions->entries.end());
    m_positions = std::move(positions);
}

void ElementCatalogue::setCount(quint16 count)
{
    Q_ASSERT(!isRecord());
    m_count = count;
}

qsizetype ElementCatalogue::soughtPosition(quint16 element) const
{
    const auto &entries = m_positions->entries;
    const auto found =
        std::lower_bound(entries.begin(), entries.end(), std::pair<quint16, quint16>(element, 0));
    return found != entries.end() && found->first == element ? found->second : NoPosition;
}

QList<quint16> ElementCatalogue::list() const
{
    if (m_record)
        return m_record->elementList();
    // Most parameters have this one, and are asked often.
    static const QList<quint16> single {0};
    if (m_count == 1)
        return single;
    QList<quint16> list;
    list.reserve(m_count);
    for (quint16 element = 0; element < m_count; ++element)
        list.append(element);
    return list;
}

QSet<quint16> ElementCatalogue::set() const
{
    if (m_record)
        return m_record->elementSet();
    const QList<quint16> elements = list();
    return QSet<quint16>(elements.begin(), elements.end());
}

const IParameterElementInformation *ElementCatalogue::information(quint16 element) const
{
    return m_definition ? m_definition->queryElementInformation(informationKey(element)) : nullptr;
}

bool ElementCatalogue::isElementNamed() const
{
    return isRecord() || (m_definition && m_definition->elementCount() > 1);
}

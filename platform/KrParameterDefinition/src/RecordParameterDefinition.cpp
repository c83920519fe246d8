#include <KrParameterDefinition/RecordParameterDefinition.h>

RecordParameterDefinition::RecordParameterDefinition(const QList<Element> &elements)
{
    m_list.reserve(elements.size());
    m_elements.reserve(elements.size());
    m_positions.reserve(elements.size());
    for (const Element &element : elements) {
        if (m_positions.contains(element.number))
            continue;
        m_positions.insert(element.number, m_elements.size());
        m_list.append(element.number);
        m_elements.append(element);
    }
}

QSet<quint16> RecordParameterDefinition::elementSet() const
{
    return QSet<quint16>(m_list.cbegin(), m_list.cend());
}

ParameterText RecordParameterDefinition::elementName(quint16 element) const
{
    const auto position = m_positions.constFind(element);
    return position == m_positions.cend() ? ParameterText() : m_elements.at(*position).name;
}

int RecordParameterDefinition::elementNameCommonTextIndex(quint16 element) const
{
    const auto position = m_positions.constFind(element);
    return position == m_positions.cend() ? 0 : m_elements.at(*position).nameCommonTextIndex;
}

bool RecordParameterDefinition::hasElement(quint16 element) const
{
    return m_positions.contains(element);
}

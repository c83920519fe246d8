#include <KrParameterDefinition/ElementInformation.h>

#include <utility>

namespace {

constexpr qint8 Absent = -1;

constexpr bool isDefinitionProperty(eParameterProperty property)
{
    return quint32(property) < DefinitionPropertyEnd;
}

} // namespace

ElementInformation::ElementInformation()
{
    m_positions.fill(Absent);
}

bool ElementInformation::hasProperty(eParameterProperty property) const
{
    return isDefinitionProperty(property) && m_positions[quint32(property)] != Absent;
}

ParameterProperty ElementInformation::property(eParameterProperty property) const
{
    if (!hasProperty(property))
        return {};
    return m_values[size_t(m_positions[quint32(property)])];
}

bool ElementInformation::isPropertySettable(eParameterProperty property) const
{
    return isDefinitionProperty(property) && m_settable[quint32(property)];
}

void ElementInformation::setProperty(eParameterProperty property, QVariant value)
{
    if (!isDefinitionProperty(property))
        return;
    if (!value.isValid()) {
        removeProperty(property);
        return;
    }

    ParameterProperty held(std::move(value));
    qint8 &position = m_positions[quint32(property)];
    if (position != Absent) {
        m_values[size_t(position)] = std::move(held);
        return;
    }
    position = qint8(m_values.size());
    m_values.push_back(std::move(held));
}

void ElementInformation::removeProperty(eParameterProperty property)
{
    if (!hasProperty(property))
        return;
    const qint8 removed = std::exchange(m_positions[quint32(property)], Absent);
    m_values.erase(m_values.begin() + removed);
    for (qint8 &position : m_positions) {
        if (position > removed)
            --position;
    }
}

void ElementInformation::setPropertySettable(eParameterProperty property, bool settable)
{
    if (isDefinitionProperty(property))
        m_settable[quint32(property)] = settable;
}

#include "apps/host/ElementSelection.h"

#include <KrFilter/FilterElement.h>
#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterValueSnapshot.h>

namespace {

/// The same for an element in every living space.
quint32 numberOf(const FilterElement &element)
{
    ParameterAddress address(element.stringProperty(QStringLiteral("Address")), true);
    address.setAxis(0);
    return address.toNumber();
}

/// Notes what another filter accepts, and rejects everything, so that a snapshot asks for no text.
class Recorder final : public Filter {
public:
    /// **Owner** of both the caller.
    Recorder(const Filter &filter, QSet<quint32> &elements)
        : m_filter(filter)
        , m_elements(elements)
    {
    }

    bool testElement(const FilterElement &element) const override
    {
        if (m_filter.testElement(element))
            m_elements.insert(numberOf(element));
        return false;
    }

private:
    const Filter &m_filter;
    QSet<quint32> &m_elements;
};

} // namespace

void ElementSelection::add(ParameterContainer &container, const Filter &filter)
{
    ParameterValueSnapshot(&container).apply(Recorder(filter, m_elements));
}

bool ElementSelection::testElement(const FilterElement &element) const
{
    return m_elements.contains(numberOf(element));
}

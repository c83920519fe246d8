#pragma once

#include <KrFilter/Filter.h>

#include <QtCore/QSet>

class ParameterContainer;

/// Accepts the elements that another filter accepts in at least one living space of one of several
/// devices, and these in all living spaces of all devices: so states that are compared hold the same
/// elements, whatever their values answer.
class ElementSelection final : public Filter {
public:
    /// Selects what the filter accepts of this device too.
    void add(ParameterContainer &container, const Filter &filter);

    bool testElement(const FilterElement &element) const override;

private:
    /// By the number of their address on the first axis.
    QSet<quint32> m_elements;
};

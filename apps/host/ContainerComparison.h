#pragma once

#include <QtCore/QStringList>

class ParameterContainer;

/// Compares two containers of one device value by value.
struct ContainerComparison {
    qsizetype valuesCompared = 0;
    /// Addresses whose value, default or one of their change tags differs, and those that only one
    /// container has.
    QStringList differences;

    static ContainerComparison of(ParameterContainer &left, ParameterContainer &right);
};

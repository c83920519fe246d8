#pragma once

#include <QtCore/QString>

class ParameterContainer;
struct ValuePlace;

/// What a container keeps of one value.
struct StoredValue {
    QString native;
    QString changeTag;

    /// Two empty texts for a place that the container lacks.
    static StoredValue of(ParameterContainer &container, const ValuePlace &place);
    /// As it was; not checked again.
    void storeIn(ParameterContainer &container, const ValuePlace &place) const;

    friend bool operator==(const StoredValue &, const StoredValue &) = default;
};

#pragma once

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>
#include <QtCore/QString>

class ParameterContainer;
class ParameterInformation;

/// Names one value of a container: a parameter's element in one living space.
struct ValuePlace {
    ParameterCoordinate coordinate;
    eLivingSpace livingSpace = eLivingSpace::Global;
    quint16 element = 0;

    /// Every value, by coordinate, then living space, then in the order of the elements.
    static QList<ValuePlace> allOf(ParameterContainer &container);
    /// Those of one parameter, in the same order.
    static QList<ValuePlace> allOf(const ParameterInformation &parameter);

    /// The place that an address of this parameter names.
    static ValuePlace of(const ParameterAddress &address, const ParameterInformation &parameter);

    /// "E84", "1.B01", "2.E30[1]": with the axis unless the parameter is global, with the element
    /// where there is more than one.
    QString addressText(const ParameterInformation &parameter) const;

    friend bool operator==(const ValuePlace &, const ValuePlace &) = default;
    friend size_t qHash(const ValuePlace &place, size_t seed = 0) noexcept
    {
        return qHashMulti(seed, place.coordinate, qint32(place.livingSpace), place.element);
    }
};

#pragma once

#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QVariant>

class SimpleType;
enum class eParameterProperty : quint32;

/// Read-only view of one value record (the values of one parameter in one living space), as the
/// firmware's functions receive it. A property that the element lacks is answered with an empty
/// result and no message.
/// Declaration order is binary interface; do not reorder.
///
/// **Owner** the value record; borrowed for the duration of one call.
class ParameterData {
public:
    virtual bool isGlobalParameter() const = 0;
    /// **Range** 0 to 3; 0 for a global parameter.
    virtual quint8 axis() const = 0;
    /// **Encoding** as of a parameter address: 2 bits axis, 14 bits element, 16 bits coordinate.
    /// **Throws** ParameterException for an element that the parameter lacks.
    virtual quint32 addressNumber(quint16 element) const = 0;
    virtual quint8 datatype(quint16 element) const = 0;
    /// Null for an unknown data type.
    virtual const SimpleType *simpleType(quint16 element) const = 0;
    virtual qint32 kind(quint16 element) const = 0;
    virtual qint32 decimalPlacesBehind(quint16 element) const = 0;
    virtual quint32 decimalPlacesSignificant(quint16 element) const = 0;
    virtual quint32 fullScaleValue(quint16 element) const = 0;
    /// A 32-bit float, widened.
    virtual double scalingFactor(quint16 element) const = 0;
    /// A 32-bit float, widened.
    virtual double editStartStepSize(quint16 element) const = 0;
    /// Native text.
    virtual QString lowerLimitValue(quint16 element) const = 0;
    /// Native text.
    virtual QString upperLimitValue(quint16 element) const = 0;
    virtual quint16 hidingFunctionIndex(quint16 element) const = 0;
    virtual quint16 limitFunctionIndex(quint16 element) const = 0;
    virtual quint16 scalingFunctionIndex(quint16 element) const = 0;
    // Deliberate: pre-read, pre-write, post-read, post-write, while the property numbers run
    // pre-read, pre-write, post-write, post-read.
    virtual quint16 prereadFunctionIndex(quint16 element) const = 0;
    virtual quint16 prewriteFunctionIndex(quint16 element) const = 0;
    virtual quint16 postreadFunctionIndex(quint16 element) const = 0;
    virtual quint16 postwriteFunctionIndex(quint16 element) const = 0;
    /// Ascending; empty where the element has no choice.
    virtual QList<qint32> choiceMapKeys(quint16 element) const = 0;
    virtual bool hasProperty(quint16 element, eParameterProperty property) const = 0;
    /// Invalid where the element lacks the property.
    virtual QVariant property(quint16 element, eParameterProperty property) const = 0;

protected:
    ~ParameterData() = default;
};

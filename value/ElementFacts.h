#pragma once

#include <KrParameterDefinition/ParameterProperty.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QString>

#include <array>
#include <bitset>
#include <functional>
#include <memory>

class IParameterElementInformation;
class SimpleType;

/// The properties of an element that every read and write needs, in their types: read once, so that
/// no variant is converted on the way of a value. An absent property has an empty fact.
class ElementFacts {
public:
    using Reader = std::function<ParameterProperty(eParameterProperty)>;

    explicit ElementFacts(const Reader &read);

    /// The facts of a definition's element, shared by all who ask for them and kept as long as one
    /// of them does. **Owner** the caller of the information, which outlives the facts.
    static std::shared_ptr<const ElementFacts> of(const IParameterElementInformation *information);

    /// Of no element: has nothing.
    static const ElementFacts &none();

    bool has(eParameterProperty property) const
    {
        return quint32(property) < DefinitionPropertyEnd && m_present[quint32(property)];
    }
    /// Of the functions around values: pre-read, pre-write, post-write, post-read, hiding, limit and
    /// scaling.
    quint16 functionIndex(eParameterProperty property) const;
    /// Of the dependencies: 0 where there is none of the kind.
    qint32 dependency(eParameterProperty property) const
    {
        return m_dependencies[size_t(property) - size_t(eParameterProperty::LimitDependency)];
    }
    /// No dependency is to be dispatched or reported as missing.
    bool isIndependent() const { return m_isIndependent; }
    const ParameterProperty &unit(eParameterProperty property) const;

    /// Null for an unknown data type.
    const SimpleType *type = nullptr;
    double scalingFactor = 0.0;
    double editStartStepSize = 0.0;
    QString lowerLimit;
    QString upperLimit;
    quint32 fullScaleValue = 0;
    qint32 kind = 0;
    qint32 decimalPlacesBehind = 0;
    quint32 decimalPlacesSignificant = 0;
    qint32 memoryAllocation = 0;
    quint32 readLevel = 0;
    /// 0 where the property is no number from 0 to 2147483647.
    qint32 writeLevel = 0;
    bool isWriteLevelUsable = false;
    bool isNeverWritten = false;
    bool isShownOffline = false;
    quint8 datatype = 0;

private:
    std::bitset<DefinitionPropertyEnd> m_present;
    std::array<quint16, 7> m_functions {};
    std::array<qint32, 8> m_dependencies {};
    std::array<ParameterProperty, 3> m_units;
    bool m_isIndependent = true;
};

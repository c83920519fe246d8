#pragma once

#include <KrDatatype/DatatypeProvider.h>
#include <KrParameterDefinition/eParameterProperty.h>
#include <KrParameterInstance/ParameterData.h>

#include <QtCore/QHash>
#include <QtCore/QStringList>

/// A value record's view whose answers are set by the test. It notes the questions that cost a
/// property look-up.
class PlainParameterData final : public ParameterData {
public:
    quint8 type = 0;
    qint32 parameterKind = 0;
    double factor = 0;
    quint32 fullScale = 0;
    QString lower;
    QString upper;
    QList<qint32> choiceKeys;
    quint32 address = 0;
    bool isGlobal = false;
    /// Every function has this index.
    quint16 functionIndex = 1;
    double stepSize = 0;
    qint32 decimalsBehind = 0;
    quint32 decimalsSignificant = 0;
    QHash<eParameterProperty, QVariant> properties;
    mutable QStringList questions;

    bool isGlobalParameter() const override { return isGlobal; }
    quint8 axis() const override { return quint8(address >> 30); }
    quint32 addressNumber(quint16) const override { return address; }
    quint8 datatype(quint16) const override { return type; }
    const SimpleType *simpleType(quint16) const override
    {
        questions.append(QStringLiteral("type"));
        return DatatypeProvider::instance()->simpleType(type);
    }
    qint32 kind(quint16) const override { return parameterKind; }
    qint32 decimalPlacesBehind(quint16) const override { return decimalsBehind; }
    quint32 decimalPlacesSignificant(quint16) const override { return decimalsSignificant; }
    quint32 fullScaleValue(quint16) const override
    {
        questions.append(QStringLiteral("fullScale"));
        return fullScale;
    }
    double scalingFactor(quint16) const override
    {
        questions.append(QStringLiteral("factor"));
        return factor;
    }
    double editStartStepSize(quint16) const override { return stepSize; }
    QString lowerLimitValue(quint16) const override { return lower; }
    QString upperLimitValue(quint16) const override { return upper; }
    quint16 hidingFunctionIndex(quint16) const override { return functionIndex; }
    quint16 limitFunctionIndex(quint16) const override { return functionIndex; }
    quint16 scalingFunctionIndex(quint16) const override { return functionIndex; }
    quint16 prereadFunctionIndex(quint16) const override { return functionIndex; }
    quint16 prewriteFunctionIndex(quint16) const override { return functionIndex; }
    quint16 postreadFunctionIndex(quint16) const override { return functionIndex; }
    quint16 postwriteFunctionIndex(quint16) const override { return functionIndex; }
    QList<qint32> choiceMapKeys(quint16) const override { return choiceKeys; }
    bool hasProperty(quint16, eParameterProperty property) const override
    {
        return properties.contains(property);
    }
    QVariant property(quint16, eParameterProperty property) const override
    {
        return properties.value(property);
    }
};

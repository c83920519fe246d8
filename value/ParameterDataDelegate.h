#pragma once

#include <KrParameterInstance/ParameterData.h>

class ParameterInstanceData;

/// Shows one value record to the firmware's functions. A record that was removed while such a function
/// runs answers like one without any property; its address number throws, like that of no element.
class ParameterDataDelegate final : public ParameterData {
public:
    /// **Owner** the record owns the delegate.
    explicit ParameterDataDelegate(ParameterInstanceData *record)
        : m_record(record)
    {
    }
    ~ParameterDataDelegate() = default;
    Q_DISABLE_COPY_MOVE(ParameterDataDelegate)

    bool isGlobalParameter() const override;
    quint8 axis() const override;
    quint32 addressNumber(quint16 element) const override;
    quint8 datatype(quint16 element) const override;
    const SimpleType *simpleType(quint16 element) const override;
    qint32 kind(quint16 element) const override;
    qint32 decimalPlacesBehind(quint16 element) const override;
    quint32 decimalPlacesSignificant(quint16 element) const override;
    quint32 fullScaleValue(quint16 element) const override;
    double scalingFactor(quint16 element) const override;
    double editStartStepSize(quint16 element) const override;
    QString lowerLimitValue(quint16 element) const override;
    QString upperLimitValue(quint16 element) const override;
    quint16 hidingFunctionIndex(quint16 element) const override;
    quint16 limitFunctionIndex(quint16 element) const override;
    quint16 scalingFunctionIndex(quint16 element) const override;
    quint16 prereadFunctionIndex(quint16 element) const override;
    quint16 prewriteFunctionIndex(quint16 element) const override;
    quint16 postreadFunctionIndex(quint16 element) const override;
    quint16 postwriteFunctionIndex(quint16 element) const override;
    QList<qint32> choiceMapKeys(quint16 element) const override;
    bool hasProperty(quint16 element, eParameterProperty property) const override;
    QVariant property(quint16 element, eParameterProperty property) const override;

private:
    ParameterInstanceData *m_record;
};

#pragma once

#include <KrParameterInstance/ParameterInformation.h>

/// The write side of one parameter coordinate. Writes do not ask isWritable(): that is the caller's
/// question. A write may run listeners that delete this object; hold a QPointer to go on afterwards.
/// Declaration order is binary interface; do not reorder.
class KrParameterInstance_EXPORT ParameterSetup : public ParameterInformation {
    Q_OBJECT

public:
    explicit ParameterSetup(QObject *parent);
    ~ParameterSetup() override;

    /// **Range** 1 to 16000. **Refused** for a record, and while the container is online or
    /// read-only. **Emits** definitionChanged for each instance and element, nativeValueChanged.
    virtual void setElementCount(quint16 count) = 0;
    /// **Refused** what is neither a default coordinate nor a move between moveable ones, and what
    /// another parameter holds. **Emits** coordinateChanged for each instance and element.
    virtual void setCoordinate(const ParameterCoordinate &coordinate) = 0;
    /// Overrides a property of this instance. **Refused** a number that the definition lacks.
    virtual void setProperty(
        quint16 element, eParameterProperty property, const ParameterProperty &value) = 0;
    /// Display text. **Refused** what cannot be adopted or fails the firmware's check.
    /// **Emits** valueChanged, nativeValueChanged. **Reports** critical, titled with the domain.
    virtual void setValueText(
        eLivingSpace livingSpace, quint16 element, const QString &displayText) = 0;
    /// Native text that comes from the device; not checked.
    /// **Emits** valueChanged, nativeValueChanged, allElementsConsistenceOnceDone.
    virtual void setOnlineValueText(
        eLivingSpace livingSpace, quint16 element, const QString &nativeText) = 0;
    /// Value text; not checked. **Emits** valueChanged, nativeValueChanged.
    virtual void setNativeValue(
        eLivingSpace livingSpace, quint16 element, const QString &valueText) = 0;
    /// Display text. **Emits** defaultValueChanged.
    virtual void setDefaultValueText(
        eLivingSpace livingSpace, quint16 element, const QString &displayText) = 0;
    /// Value text. **Emits** defaultValueChanged.
    virtual void setDefaultNativeValue(
        eLivingSpace livingSpace, quint16 element, const QString &valueText) = 0;
    /// Native text. **Emits** defaultValueChanged.
    virtual void setDefaultNativeValueText(
        eLivingSpace livingSpace, quint16 element, const QString &nativeText) = 0;
    virtual bool setValueChangeTag(
        eLivingSpace livingSpace, quint16 element, const QString &tag) = 0;
    virtual bool setDefaultValueChangeTag(
        eLivingSpace livingSpace, quint16 element, const QString &tag) = 0;
};

#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>
#include <KrMultilingual/ParameterText.h>
#include <KrMultilingual/ParameterTextMap.h>
#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/ParameterProperty.h>
#include <KrParameterDefinition/eLivingSpace.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>

class ParameterContainer;

/// The read side of one parameter coordinate of a container.
///
/// Every per-value operation takes a living space and an element. A global parameter has one instance
/// and answers every living space with it. An element that the parameter lacks, and a living space
/// without instance, give the empty result (empty text, 0, false).
///
/// Three forms of a value text: the **native text** is stored, saved and read by the firmware's
/// functions; the **value text** is the native text in the scaled unit; the **display text** is the
/// value text as people read it. `withUnit` appends one blank and the unit where text and unit are
/// both there.
///
/// A property that is asked for by name (datatype() to fieldbusMeasuringUnit()) and missing is
/// reported. **Reports** warning "CoordinateInstanceSet".
/// Declaration order is binary interface; do not reorder.
class KrParameterInstance_EXPORT ParameterInformation : public QObject {
    Q_OBJECT

public:
    explicit ParameterInformation(QObject *parent);
    ~ParameterInformation() override;

    virtual bool isSimpleParameter() const = 0;
    virtual bool isRecordParameter() const = 0;
    virtual bool isGlobalParameter() const = 0;
    virtual ParameterText name() const = 0;
    virtual int nameCommonTextIndex() const = 0;
    virtual quint32 version() const = 0;
    virtual quint16 elementCount() const = 0;
    /// As the definition says; a simple parameter may have another count by now.
    virtual quint16 definedElementCount() const = 0;
    /// Of a record in the order of its definition.
    virtual QList<quint16> elementList() const = 0;
    virtual QSet<quint16> elementSet() const = 0;
    virtual ParameterText elementName(quint16 element) const = 0;
    virtual int elementNameCommonTextIndex(quint16 element) const = 0;
    virtual quint32 elementVersion(quint16 element) const = 0;
    virtual ParameterCoordinate coordinate() const = 0;
    /// Ascending.
    virtual QList<eLivingSpace> livingSpaces() const = 0;
    /// Fixed answers for the numbers 100 to 111, the definition's answer for every other one.
    virtual bool hasElementProperty(quint16 element, eParameterProperty property) const = 0;
    /// The fixed answers (100, 101, 103, 105, 106, 107), else the instance's override, else the
    /// definition's value; invalid where there is none.
    virtual ParameterProperty elementProperty(
        quint16 element, eParameterProperty property) const = 0;
    virtual bool isPropertySettable(quint16 element, eParameterProperty property) const = 0;
    virtual bool hasPropertyOverride(quint16 element, eParameterProperty property) const = 0;
    /// For exactly this living space, also of a global parameter.
    virtual bool hasInstance(eLivingSpace livingSpace) const = 0;
    /// Counts the value records of the process from 1; 0 without instance.
    virtual quint32 instanceSerialNumber(eLivingSpace livingSpace) const = 0;
    /// Living spaces 0 and 1 have axis 0, 2 to 4 the axes 1 to 3, any other one axis 0.
    virtual ParameterAddress address(eLivingSpace livingSpace, quint16 element) const = 0;
    /// The distinct change tags of the instance's values and defaults, sorted.
    virtual QStringList changeTagList(eLivingSpace livingSpace) const = 0;
    virtual QStringList changeTagListOfAllInstances() const = 0;
    /// Of all parameters of the container that are this one or another version of it, sorted.
    virtual QStringList sortedChangeTagList() const = 0;
    /// Keys "ScalingInformationNative", "ScalingInformationFieldbusNative",
    /// "ScalingInformationFieldbusScaled", "ValueChangeTag", "DefaultValueChangeTag",
    /// "ReadLevelChangeTag", "WriteLevelChangeTag", and "PropertyChangeTag_<number>" for the tag of
    /// any property that is overridden; another key gives an empty text.
    virtual QString attribute(
        eLivingSpace livingSpace, quint16 element, const QString &key) const = 0;
    /// The display text. Offline, a value of write level 6 and above is masked as "<offline>", for a
    /// user of level 5 as "<offline> (value)".
    virtual QString displayValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const = 0;
    virtual QString nativeValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const = 0;
    virtual QString valueText(eLivingSpace livingSpace, quint16 element, bool withUnit) const = 0;
    /// The display text, never masked; empty for an element without storage (memory allocation 1).
    virtual QString preparedValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const = 0;
    /// The native text; empty for an element without storage (memory allocation 1).
    virtual QString unconvertedNativeValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const = 0;
    /// The value text as it stands, with the scaled unit.
    virtual QString unconvertedValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const = 0;
    /// The value text in the form of a parameter kind, without unit.
    virtual QString formattedValueText(
        eLivingSpace livingSpace, quint16 element, int kind) const = 0;
    /// The native text in the form of a parameter kind, with the native unit.
    virtual QString formattedNativeValueText(
        eLivingSpace livingSpace, quint16 element, int kind, bool withUnit) const = 0;
    /// Value text to display text. `ok` may be null; it is false until the conversion succeeded.
    /// **Reports** critical, titled with the container's domain.
    virtual QString prepareValueText(const QString &valueText, eLivingSpace livingSpace,
        quint16 element, bool withUnit, bool *ok) const = 0;
    /// Display text to value text. `ok` may be null; it is false when the text was refused, and true with an
    /// empty text for an element that the parameter lacks.
    /// **Reports** critical, titled with the container's domain.
    virtual QString adoptValueText(
        const QString &displayText, eLivingSpace livingSpace, quint16 element, bool *ok) const = 0;
    virtual bool isHidden(eLivingSpace livingSpace, quint16 element) const = 0;
    virtual bool isVisible(eLivingSpace livingSpace, quint16 element) const = 0;
    virtual bool isWritable(eLivingSpace livingSpace, quint16 element) const = 0;
    virtual quint8 datatype(quint16 element) const = 0;
    virtual int kind(quint16 element) const = 0;
    virtual int memoryAllocation(quint16 element) const = 0;
    virtual int writeLevel(quint16 element) const = 0;
    virtual quint32 readLevel(quint16 element) const = 0;
    virtual int decimalPlacesBehind(quint16 element) const = 0;
    virtual quint32 decimalPlacesSignificant(quint16 element) const = 0;
    virtual ParameterText scaledMeasuringUnit(quint16 element) const = 0;
    virtual ParameterText nativeMeasuringUnit(quint16 element) const = 0;
    virtual ParameterText fieldbusMeasuringUnit(quint16 element) const = 0;
    /// Native text; empty for an element of write level 6 and above without storage.
    virtual QString lowerLimitText(eLivingSpace livingSpace, quint16 element) const = 0;
    virtual QString upperLimitText(eLivingSpace livingSpace, quint16 element) const = 0;
    /// Whether setValueText() would take the text. **Reports** like it.
    virtual bool isValueTextAcceptable(
        eLivingSpace livingSpace, quint16 element, const QString &displayText) const = 0;
    virtual ParameterTextMap selectionTexts(eLivingSpace livingSpace, quint16 element) const = 0;
    virtual ParameterContainer *parameterContainer() const = 0;
    /// The host's device family identifier; 0 without host information.
    virtual unsigned int hostInformation() const = 0;
    /// Groups P and Q: "<description>=" and the HTML description; other groups: the key under which
    /// the description is kept, "address_reference_version".
    virtual QString description(quint16 element) const = 0;
    /// The same text.
    virtual QString elementDescription(quint16 element) const = 0;
    virtual QString defaultNativeValueText(eLivingSpace livingSpace, quint16 element) const = 0;
    virtual QString defaultValueText(eLivingSpace livingSpace, quint16 element) const = 0;
    /// Switches automatic online update of an element on or off: asks the container's listeners to
    /// keep it consistent with the drive.
    virtual void setParameterNeedsConsistence(
        eLivingSpace livingSpace, quint16 element, bool needed) = 0;
    /// Asks for every element once; allElementsConsistenceOnceDone follows when all came back.
    virtual void startAllElementsConsistenceOnce(eLivingSpace livingSpace) = 0;
    virtual void cancelAllElementsConsistenceOnce(eLivingSpace livingSpace) = 0;

    /// One of the three measuring units as it is in a living space, where a unit locator may lead to
    /// another text than in the parameter's first one, for which the accessors above answer.
    /// Empty for another property. **Reports** a locator that leads nowhere, like the accessors.
    ParameterText measuringUnit(
        eParameterProperty unit, eLivingSpace livingSpace, quint16 element) const;

Q_SIGNALS:
    void nativeValueChanged(ParameterAddress address);
    void valueChanged(ParameterAddress address);
    void defaultValueChanged(ParameterAddress address);
    void definitionChanged(ParameterAddress address);
    void limitsChanged(ParameterAddress address);
    void visibilityChanged(ParameterAddress address);
    void writabilityChanged(ParameterAddress address);
    void measuringUnitChanged(ParameterAddress address);
    void coordinateChanged(ParameterAddress oldAddress, ParameterAddress newAddress);
    void allElementsConsistenceOnceDone(ParameterCoordinate coordinate, eLivingSpace livingSpace);
    void allElementsConsistenceOnceCanceled(
        ParameterCoordinate coordinate, eLivingSpace livingSpace);
};

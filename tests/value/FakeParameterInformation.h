#pragma once

#include "value/ValueTextConverter.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QHash>
#include <QtCore/QMap>

/// A parameter whose properties and values a test sets. Counts what it is asked for; the answers
/// that no conversion needs are empty.
class FakeParameterInformation : public ParameterInformation {
public:
    explicit FakeParameterInformation(ParameterContainer *container = nullptr)
        : ParameterInformation(nullptr)
        , m_container(container)
    {
    }

    int kindValue = 0;
    quint8 datatypeId = 0;
    int behind = 0;
    quint32 significant = 0;
    bool isGlobal = false;
    bool isRecord = false;
    quint16 elements = 1;
    QList<quint16> recordElements;
    ParameterText nameText;
    QVariant choice;
    QMap<eLivingSpace, QString> values;
    /// The properties that were asked for, in order.
    mutable QStringList asked;

    bool isSimpleParameter() const override { return !isRecord; }
    bool isRecordParameter() const override { return isRecord; }
    bool isGlobalParameter() const override { return isGlobal; }
    ParameterText name() const override { return nameText; }
    int nameCommonTextIndex() const override { return 0; }
    quint32 version() const override { return 0; }
    quint16 elementCount() const override { return elements; }
    quint16 definedElementCount() const override { return elements; }
    QList<quint16> elementList() const override { return recordElements; }
    QSet<quint16> elementSet() const override { return {}; }
    ParameterText elementName(quint16) const override { return {}; }
    int elementNameCommonTextIndex(quint16) const override { return 0; }
    quint32 elementVersion(quint16) const override { return 0; }
    ParameterCoordinate coordinate() const override { return {}; }
    QList<eLivingSpace> livingSpaces() const override { return values.keys(); }
    bool hasElementProperty(quint16, eParameterProperty) const override { return false; }
    ParameterProperty elementProperty(quint16, eParameterProperty property) const override
    {
        if (property == eParameterProperty::ParameterKind)
            return ParameterProperty(QVariant(kindValue));
        asked.append(QStringLiteral("property %1").arg(quint32(property)));
        return property == eParameterProperty::ChoiceMap ? ParameterProperty(choice)
                                                         : ParameterProperty();
    }
    bool isPropertySettable(quint16, eParameterProperty) const override { return false; }
    bool hasPropertyOverride(quint16, eParameterProperty) const override { return false; }
    bool hasInstance(eLivingSpace livingSpace) const override
    {
        return values.contains(livingSpace);
    }
    quint32 instanceSerialNumber(eLivingSpace) const override { return 0; }
    ParameterAddress address(eLivingSpace, quint16) const override { return {}; }
    QStringList changeTagList(eLivingSpace) const override { return {}; }
    QStringList changeTagListOfAllInstances() const override { return {}; }
    QStringList sortedChangeTagList() const override { return {}; }
    QString attribute(eLivingSpace, quint16, const QString &) const override { return {}; }
    QString displayValueText(eLivingSpace livingSpace, quint16 element, bool) const override
    {
        return ValueTextConverter(*this).prepare(
            valueText(livingSpace, element, false), livingSpace, element, QString());
    }
    QString nativeValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString valueText(eLivingSpace livingSpace, quint16, bool) const override
    {
        return values.value(isGlobal ? eLivingSpace::Global : livingSpace);
    }
    QString preparedValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString unconvertedNativeValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString unconvertedValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString formattedValueText(eLivingSpace, quint16, int) const override { return {}; }
    QString formattedNativeValueText(eLivingSpace, quint16, int, bool) const override { return {}; }
    /// The display form is the test's, whatever the value text.
    QString prepareValueText(
        const QString &, eLivingSpace livingSpace, quint16 element, bool, bool *) const override
    {
        return ValueTextConverter(*this).prepare(
            valueText(livingSpace, element, false), livingSpace, element, QString());
    }
    QString adoptValueText(const QString &, eLivingSpace, quint16, bool *) const override
    {
        return {};
    }
    bool isHidden(eLivingSpace, quint16) const override { return false; }
    bool isVisible(eLivingSpace, quint16) const override { return false; }
    bool isWritable(eLivingSpace, quint16) const override { return false; }
    quint8 datatype(quint16) const override
    {
        asked.append(QStringLiteral("datatype"));
        return datatypeId;
    }
    int kind(quint16) const override
    {
        asked.append(QStringLiteral("kind"));
        return kindValue;
    }
    int memoryAllocation(quint16) const override { return 0; }
    int writeLevel(quint16) const override { return 0; }
    quint32 readLevel(quint16) const override { return 0; }
    int decimalPlacesBehind(quint16) const override
    {
        asked.append(QStringLiteral("decimalPlacesBehind"));
        return behind;
    }
    quint32 decimalPlacesSignificant(quint16) const override
    {
        asked.append(QStringLiteral("decimalPlacesSignificant"));
        return significant;
    }
    ParameterText scaledMeasuringUnit(quint16) const override { return {}; }
    ParameterText nativeMeasuringUnit(quint16) const override { return {}; }
    ParameterText fieldbusMeasuringUnit(quint16) const override { return {}; }
    QString lowerLimitText(eLivingSpace, quint16) const override { return {}; }
    QString upperLimitText(eLivingSpace, quint16) const override { return {}; }
    bool isValueTextAcceptable(eLivingSpace, quint16, const QString &) const override
    {
        return false;
    }
    ParameterTextMap selectionTexts(eLivingSpace, quint16) const override { return {}; }
    ParameterContainer *parameterContainer() const override { return m_container; }
    unsigned int hostInformation() const override { return 0; }
    QString description(quint16) const override { return {}; }
    QString elementDescription(quint16) const override { return {}; }
    QString defaultNativeValueText(eLivingSpace, quint16) const override { return {}; }
    QString defaultValueText(eLivingSpace, quint16) const override { return {}; }
    void setParameterNeedsConsistence(eLivingSpace, quint16, bool) override { }
    void startAllElementsConsistenceOnce(eLivingSpace) override { }
    void cancelAllElementsConsistenceOnce(eLivingSpace) override { }

private:
    ParameterContainer *m_container;
};

/// A container whose parameters are fakes. Without "E84" and without host its active axis is 1.
class FakeContainer : public ParameterContainer {
public:
    QPointer<ParameterInformation> parameterInformation(
        const ParameterCoordinate &coordinate) override
    {
        return parameters.value(coordinate);
    }

    void add(const char *coordinate, ParameterInformation *information)
    {
        parameters.insert(ParameterCoordinate(QString::fromLatin1(coordinate)), information);
    }

    QHash<ParameterCoordinate, ParameterInformation *> parameters;
};

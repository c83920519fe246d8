#pragma once

#include <KrParameterInstance/ParameterInformation.h>

#include <QtCore/QMap>

#include <functional>
#include <utility>

/// A parameter that answers what a test put in, and counts some of the questions.
class FakeParameterInformation : public ParameterInformation {
public:
    /// The three texts of a value.
    struct Value {
        QString display;
        QString native;
        QString value;
    };
    using Place = std::pair<eLivingSpace, quint16>;
    using PropertyPlace = std::pair<quint16, eParameterProperty>;

    explicit FakeParameterInformation(const QString &coordinate, const QString &name = {})
        : ParameterInformation(nullptr)
        , coordinateAnswer(coordinate)
        , nameAnswer(text(name))
    {
    }

    static ParameterText text(const QString &longText)
    {
        ParameterText result;
        if (!longText.isEmpty())
            result.setText(QStringLiteral("de"), QStringLiteral("short"), longText);
        return result;
    }
    void setValue(eLivingSpace livingSpace, quint16 element, const Value &value)
    {
        values[{livingSpace, element}] = value;
    }
    /// One text for all three forms.
    void setValue(eLivingSpace livingSpace, quint16 element, const QString &text)
    {
        setValue(livingSpace, element, {text, text, text});
    }
    void setProperty(quint16 element, eParameterProperty property, const QVariant &value)
    {
        properties[{element, property}] = ParameterProperty(value);
    }
    /// A plain unit for every element of the list.
    void setUnits(const QString &scaled, const QString &native)
    {
        for (const quint16 element : std::as_const(elements))
            setUnits(element, scaled, native);
    }
    void setUnits(quint16 element, const QString &scaled, const QString &native)
    {
        setProperty(element, eParameterProperty::ScaledMeasuringUnit, scaled);
        setProperty(element, eParameterProperty::NativeMeasuringUnit, native);
        scaledUnits[element] = scaled;
        nativeUnits[element] = native;
    }

    ParameterCoordinate coordinateAnswer;
    ParameterText nameAnswer;
    bool isRecord = false;
    QList<quint16> elements {0};
    QMap<quint16, QString> elementNames;
    QList<eLivingSpace> spaces {eLivingSpace::Global};
    QMap<Place, Value> values;
    QMap<Place, Value> defaults;
    QMap<PropertyPlace, ParameterProperty> properties;
    QMap<quint16, QString> scaledUnits;
    QMap<quint16, QString> nativeUnits;
    QMap<Place, QMap<QString, QString>> attributes;
    /// Value texts to display texts; the display text of the place where there is none.
    QMap<Place, QMap<QString, QString>> preparedTexts;
    QMap<quint16, int> kinds;
    QMap<quint16, quint32> readLevels;
    QMap<quint16, int> writeLevels;
    /// Runs inside every question for a display text, be it stored or to be prepared.
    std::function<void()> onDisplayText;
    /// Runs inside every question for a default's value text.
    std::function<void()> onDefaultText;

    mutable int displayCount = 0;
    mutable int nameCount = 0;
    mutable int elementNameCount = 0;
    mutable int unitCount = 0;

    bool isSimpleParameter() const override { return !isRecord; }
    bool isRecordParameter() const override { return isRecord; }
    bool isGlobalParameter() const override { return spaces == QList {eLivingSpace::Global}; }
    ParameterText name() const override
    {
        ++nameCount;
        return nameAnswer;
    }
    int nameCommonTextIndex() const override { return 0; }
    quint32 version() const override { return 1; }
    quint16 elementCount() const override { return quint16(elements.size()); }
    quint16 definedElementCount() const override { return quint16(elements.size()); }
    QList<quint16> elementList() const override { return elements; }
    QSet<quint16> elementSet() const override { return {elements.cbegin(), elements.cend()}; }
    ParameterText elementName(quint16 element) const override
    {
        ++elementNameCount;
        return isRecord ? text(elementNames.value(element)) : nameAnswer;
    }
    int elementNameCommonTextIndex(quint16) const override { return 0; }
    quint32 elementVersion(quint16) const override { return 1; }
    ParameterCoordinate coordinate() const override { return coordinateAnswer; }
    QList<eLivingSpace> livingSpaces() const override { return spaces; }
    bool hasElementProperty(quint16 element, eParameterProperty property) const override
    {
        return properties.contains({element, property});
    }
    ParameterProperty elementProperty(quint16 element, eParameterProperty property) const override
    {
        return properties.value({element, property});
    }
    bool isPropertySettable(quint16, eParameterProperty) const override { return false; }
    bool hasPropertyOverride(quint16, eParameterProperty) const override { return false; }
    bool hasInstance(eLivingSpace livingSpace) const override
    {
        return spaces.contains(livingSpace);
    }
    quint32 instanceSerialNumber(eLivingSpace) const override { return 1; }
    ParameterAddress address(eLivingSpace livingSpace, quint16 element) const override
    {
        const qint32 number = static_cast<qint32>(livingSpace);
        return {quint8(number > 1 ? number - 1 : 0), coordinateAnswer, element};
    }
    QStringList changeTagList(eLivingSpace) const override { return {}; }
    QStringList changeTagListOfAllInstances() const override { return {}; }
    QStringList sortedChangeTagList() const override { return {}; }
    QString attribute(eLivingSpace livingSpace, quint16 element, const QString &key) const override
    {
        return attributes.value({livingSpace, element}).value(key);
    }
    QString displayValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const override
    {
        ++displayCount;
        const QString answer = marked(values.value({livingSpace, element}).display, withUnit);
        if (onDisplayText)
            onDisplayText();
        return answer;
    }
    QString nativeValueText(eLivingSpace livingSpace, quint16 element, bool withUnit) const override
    {
        return marked(values.value({livingSpace, element}).native, withUnit);
    }
    QString valueText(eLivingSpace livingSpace, quint16 element, bool withUnit) const override
    {
        return marked(values.value({livingSpace, element}).value, withUnit);
    }
    QString preparedValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString unconvertedNativeValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString unconvertedValueText(eLivingSpace, quint16, bool) const override { return {}; }
    QString formattedValueText(eLivingSpace, quint16, int) const override { return {}; }
    QString formattedNativeValueText(eLivingSpace, quint16, int, bool) const override { return {}; }
    QString prepareValueText(const QString &text, eLivingSpace livingSpace, quint16 element,
        bool withUnit, bool *) const override
    {
        const Place place(livingSpace, element);
        const QString shown = values.value(place).display;
        const QString answer = marked(preparedTexts.value(place).value(text, shown), withUnit);
        if (onDisplayText)
            onDisplayText();
        return answer;
    }
    QString adoptValueText(const QString &, eLivingSpace, quint16, bool *) const override
    {
        return {};
    }
    bool isHidden(eLivingSpace, quint16) const override { return false; }
    bool isVisible(eLivingSpace, quint16) const override { return true; }
    bool isWritable(eLivingSpace, quint16) const override { return true; }
    quint8 datatype(quint16) const override { return 0; }
    int kind(quint16 element) const override { return kinds.value(element); }
    int memoryAllocation(quint16) const override { return 0; }
    int writeLevel(quint16 element) const override { return writeLevels.value(element); }
    quint32 readLevel(quint16 element) const override { return readLevels.value(element); }
    int decimalPlacesBehind(quint16) const override { return 0; }
    quint32 decimalPlacesSignificant(quint16) const override { return 0; }
    ParameterText scaledMeasuringUnit(quint16 element) const override
    {
        ++unitCount;
        return text(scaledUnits.value(element));
    }
    ParameterText nativeMeasuringUnit(quint16 element) const override
    {
        ++unitCount;
        return text(nativeUnits.value(element));
    }
    ParameterText fieldbusMeasuringUnit(quint16) const override { return {}; }
    QString lowerLimitText(eLivingSpace, quint16) const override { return {}; }
    QString upperLimitText(eLivingSpace, quint16) const override { return {}; }
    bool isValueTextAcceptable(eLivingSpace, quint16, const QString &) const override
    {
        return true;
    }
    ParameterTextMap selectionTexts(eLivingSpace, quint16) const override { return {}; }
    ParameterContainer *parameterContainer() const override { return nullptr; }
    unsigned int hostInformation() const override { return 0; }
    QString description(quint16) const override { return {}; }
    QString elementDescription(quint16) const override { return {}; }
    QString defaultNativeValueText(eLivingSpace livingSpace, quint16 element) const override
    {
        return defaults.value({livingSpace, element}).native;
    }
    QString defaultValueText(eLivingSpace livingSpace, quint16 element) const override
    {
        const QString answer = defaults.value({livingSpace, element}).value;
        // A copy: the parameter may go away in it.
        if (const auto event = onDefaultText)
            event();
        return answer;
    }
    void setParameterNeedsConsistence(eLivingSpace, quint16, bool) override { }
    void startAllElementsConsistenceOnce(eLivingSpace) override { }
    void cancelAllElementsConsistenceOnce(eLivingSpace) override { }

private:
    static QString marked(const QString &text, bool withUnit)
    {
        return withUnit ? text + QLatin1String(" with unit") : text;
    }
};

#pragma once

#include "instance/AccessRules.h"
#include "instance/ConsistenceTracker.h"
#include "instance/DependencyKey.h"
#include "instance/InstanceTable.h"
#include "value/PropertyResolver.h"
#include "value/ElementCatalogue.h"
#include "value/LifeGuard.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QTime>
#include <QtCore/QTimer>

#include <functional>
#include <memory>

class CoordinateRegistry;
struct HidingState;
class ParameterDefinition;
class QRegularExpression;

namespace LmIniParser {
class IniSection;
}

/// All instances of one parameter coordinate: keeps the records, answers the interface and emits.
///
/// After every signal and every call into the firmware the set may be gone; the operations test that
/// before they go on.
class CoordinateInstanceSet final : public ParameterSetup {
    Q_OBJECT

public:
    using Clock = std::function<QTime()>;

    /// **Owner** the container's private object; container and registry outlive the set.
    /// Without a clock the hiding throttle follows the time of day.
    explicit CoordinateInstanceSet(ParameterContainer *container,
        CoordinateRegistry *registry = nullptr, const Clock *clock = nullptr);
    ~CoordinateInstanceSet() override;

    ParameterDefinition *definition() const { return m_definition; }
    /// The first definition and coordinate; emits nothing.
    void initialize(ParameterDefinition *definition, const ParameterCoordinate &coordinate);
    /// Another definition under the living set: the element count is the defined one again, overrides
    /// and texts stay. **Emits** definitionChanged for each instance and element.
    void takeDefinition(ParameterDefinition *definition);
    /// Readies a set without instances for so many of them.
    void reserveInstances(size_t count) { m_instances.reserve(count); }
    /// The new record. **Owner** the set. **Refused** a second record for a living space: null.
    /// **Reports** that critical, titled "CoordinateInstanceSet".
    ParameterInstanceData *attachInstance(eLivingSpace livingSpace);
    /// A new record for the living space of each anchor that names one. Not used by the container.
    /// **Reports** critical when not exactly one anchor is the system's.
    void createInstancesFromAnchors();
    /// The container holds the set no more: from now on neither it nor, for it, the container emits,
    /// and its changes lead to nothing. It still answers, and takes what is written to it.
    void leave();
    /// Null where there is none under exactly this key. **Owner** the set.
    ParameterInstanceData *record(eLivingSpace key) const { return m_instances.find(key); }

    /// The container's state changed. **Emits** writabilityChanged where the answer differs.
    void onOnlineChanged(bool wasOnline);
    void onReadOnlyChanged(bool wasReadOnly);
    /// **Emits** visibilityChanged and writabilityChanged where the answer differs.
    void onAccessLevelChanged(quint32 oldLevel, quint32 newLevel);
    /// The functions or the values behind them changed: hidden flags that were known are asked anew;
    /// differences are signalled.
    void askKnownFlagsAnew();

    /// A value changed on which elements of this parameter may depend: tests each of their values and
    /// acts on those that do. `elements` is what followedKeys() tells.
    /// **Emits** what the kind of dependency changes: limitsChanged, valueChanged, visibilityChanged,
    /// measuringUnitChanged; or runs the firmware's function.
    void onDependencyChanged(
        const DependencyKey &key, eLivingSpace livingSpace, const QList<quint16> &elements);
    /// The value on which this parameter depends is about to change: what was never asked for is asked
    /// now, so that afterwards a difference is known. **Emits** nothing.
    void prepareForDependency(
        const DependencyKey &key, eLivingSpace livingSpace, const QList<quint16> &elements);
    /// What the elements of this parameter wait for, and which of them, in the order of the
    /// definition; none are named where all of them do, as in a simple parameter.
    QHash<DependencyKey, QList<quint16>> followedKeys() const;
    /// What an element says under a dependency; 0: it leads to nothing.
    qint32 dependency(quint16 element, eParameterProperty property) const
    {
        return m_properties.facts(element).dependency(property);
    }
    /// Whether an element holds the address of a parameter.
    bool isMapping() const;

    /// A program's own write of a native text; not checked. **Emits** valueChanged,
    /// nativeValueChanged.
    void setNativeText(eLivingSpace livingSpace, quint16 element, const QString &nativeText);

    /// Clears the value store of that name. **Emits** for each text that went.
    void clearStore(const QString &name, const QRegularExpression &tagPattern);
    /// **Emits** for each text that changed; dispatches no dependency. askKnownFlagsAnew() is due when
    /// all parameters are loaded.
    void loadFromSection(const LmIniParser::IniSection &section, bool utf8);
    void saveToSection(LmIniParser::IniSection &section) const;

    bool isSimpleParameter() const override;
    bool isRecordParameter() const override;
    bool isGlobalParameter() const override;
    ParameterText name() const override;
    int nameCommonTextIndex() const override;
    quint32 version() const override;
    quint16 elementCount() const override;
    quint16 definedElementCount() const override;
    QList<quint16> elementList() const override;
    QSet<quint16> elementSet() const override;
    ParameterText elementName(quint16 element) const override;
    int elementNameCommonTextIndex(quint16 element) const override;
    quint32 elementVersion(quint16 element) const override;
    ParameterCoordinate coordinate() const override;
    QList<eLivingSpace> livingSpaces() const override;
    bool hasElementProperty(quint16 element, eParameterProperty property) const override;
    ParameterProperty elementProperty(quint16 element, eParameterProperty property) const override;
    bool isPropertySettable(quint16 element, eParameterProperty property) const override;
    bool hasPropertyOverride(quint16 element, eParameterProperty property) const override;
    bool hasInstance(eLivingSpace livingSpace) const override;
    quint32 instanceSerialNumber(eLivingSpace livingSpace) const override;
    ParameterAddress address(eLivingSpace livingSpace, quint16 element) const override;
    QStringList changeTagList(eLivingSpace livingSpace) const override;
    QStringList changeTagListOfAllInstances() const override;
    QStringList sortedChangeTagList() const override;
    QString attribute(eLivingSpace livingSpace, quint16 element, const QString &key) const override;
    QString displayValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const override;
    QString nativeValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const override;
    QString valueText(eLivingSpace livingSpace, quint16 element, bool withUnit) const override;
    QString preparedValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const override;
    QString unconvertedNativeValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const override;
    QString unconvertedValueText(
        eLivingSpace livingSpace, quint16 element, bool withUnit) const override;
    QString formattedValueText(eLivingSpace livingSpace, quint16 element, int kind) const override;
    QString formattedNativeValueText(
        eLivingSpace livingSpace, quint16 element, int kind, bool withUnit) const override;
    QString prepareValueText(const QString &valueText, eLivingSpace livingSpace, quint16 element,
        bool withUnit, bool *ok) const override;
    QString adoptValueText(const QString &displayText, eLivingSpace livingSpace, quint16 element,
        bool *ok) const override;
    bool isHidden(eLivingSpace livingSpace, quint16 element) const override;
    bool isVisible(eLivingSpace livingSpace, quint16 element) const override;
    bool isWritable(eLivingSpace livingSpace, quint16 element) const override;
    quint8 datatype(quint16 element) const override;
    int kind(quint16 element) const override;
    int memoryAllocation(quint16 element) const override;
    int writeLevel(quint16 element) const override;
    quint32 readLevel(quint16 element) const override;
    int decimalPlacesBehind(quint16 element) const override;
    quint32 decimalPlacesSignificant(quint16 element) const override;
    ParameterText scaledMeasuringUnit(quint16 element) const override;
    ParameterText nativeMeasuringUnit(quint16 element) const override;
    ParameterText fieldbusMeasuringUnit(quint16 element) const override;
    QString lowerLimitText(eLivingSpace livingSpace, quint16 element) const override;
    QString upperLimitText(eLivingSpace livingSpace, quint16 element) const override;
    bool isValueTextAcceptable(
        eLivingSpace livingSpace, quint16 element, const QString &displayText) const override;
    ParameterTextMap selectionTexts(eLivingSpace livingSpace, quint16 element) const override;
    ParameterContainer *parameterContainer() const override;
    unsigned int hostInformation() const override;
    QString description(quint16 element) const override;
    QString elementDescription(quint16 element) const override;
    QString defaultNativeValueText(eLivingSpace livingSpace, quint16 element) const override;
    QString defaultValueText(eLivingSpace livingSpace, quint16 element) const override;

    void setElementCount(quint16 count) override;
    void setCoordinate(const ParameterCoordinate &coordinate) override;
    void setProperty(
        quint16 element, eParameterProperty property, const ParameterProperty &value) override;
    void setValueText(
        eLivingSpace livingSpace, quint16 element, const QString &displayText) override;
    void setOnlineValueText(
        eLivingSpace livingSpace, quint16 element, const QString &nativeText) override;
    void setNativeValue(
        eLivingSpace livingSpace, quint16 element, const QString &valueText) override;
    void setDefaultValueText(
        eLivingSpace livingSpace, quint16 element, const QString &displayText) override;
    void setDefaultNativeValue(
        eLivingSpace livingSpace, quint16 element, const QString &valueText) override;
    void setDefaultNativeValueText(
        eLivingSpace livingSpace, quint16 element, const QString &nativeText) override;
    bool setValueChangeTag(eLivingSpace livingSpace, quint16 element, const QString &tag) override;
    bool setDefaultValueChangeTag(
        eLivingSpace livingSpace, quint16 element, const QString &tag) override;

public Q_SLOTS:
    void setParameterNeedsConsistence(
        eLivingSpace livingSpace, quint16 element, bool needed) override;
    void startAllElementsConsistenceOnce(eLivingSpace livingSpace) override;
    void cancelAllElementsConsistenceOnce(eLivingSpace livingSpace) override;
    void onSuppressedHidingTimerTimedout();

protected:
    void connectNotify(const QMetaMethod &signal) override;

private:
    using Guard = LifeGuard;
    using ConversionMessage = QString (*)(const QString &addressText, const QString &problem);
    /// What one value answers to a question that a property decides.
    struct PropertyAnswer {
        eLivingSpace livingSpace;
        quint16 element;
        QString text;
    };

    eLivingSpace key(eLivingSpace livingSpace) const;
    /// Null for an element that the parameter lacks and where there is no instance.
    ParameterInstanceData *record(eLivingSpace livingSpace, quint16 element) const;
    /// Null, and **reported**, where the element lacks the property; silent for no element.
    const ElementFacts *reportedFacts(quint16 element, eParameterProperty property) const;
    QString storedValueText(const Guard &guard, eLivingSpace livingSpace, quint16 element) const;
    QString prepared(
        const Guard &guard, eLivingSpace livingSpace, quint16 element, bool withUnit) const;
    QString prepare(const Guard &guard, const QString &valueText, eLivingSpace livingSpace,
        quint16 element, bool withUnit, bool *ok) const;
    QString unitText(eParameterProperty property, eLivingSpace livingSpace, quint16 element) const;
    ParameterText unit(
        eParameterProperty property, eLivingSpace livingSpace, quint16 element) const;
    QString withUnit(const QString &text, eParameterProperty property, eLivingSpace livingSpace,
        quint16 element) const;
    /// Such a parameter shows no limits.
    bool areLimitsMasked(quint16 element) const;
    QString limitText(eParameterProperty property, eLivingSpace livingSpace, quint16 element) const;
    void reportConversion(ConversionMessage message, const QStringList &problems,
        eLivingSpace livingSpace, quint16 element) const;

    AccessRules::WriteFacts writeFacts(const ParameterInstanceData &record, quint16 element) const;
    bool isShown(ParameterInstanceData &record, quint16 element, quint32 userLevel) const;
    bool isReadable(quint16 element, quint32 userLevel) const;
    /// Calls for every instance and element while the set lives. False when it is gone.
    bool forEachValue(const std::function<void(ParameterInstanceData *, quint16)> &function);
    bool forEachValue(const QList<quint16> &elements,
        const std::function<void(ParameterInstanceData *, quint16)> &function);
    void askHiddenAnew(ParameterInstanceData *record, quint16 element);

    QList<PropertyAnswer> answers(quint16 element, eParameterProperty property) const;
    QString answer(eParameterProperty property, eLivingSpace livingSpace, quint16 element) const;
    void emitAnswerChanges(const QList<PropertyAnswer> &before, const QList<PropertyAnswer> &after,
        eParameterProperty property);
    void emitAnswerChanged(eParameterProperty property, eLivingSpace livingSpace, quint16 element);

    /// As has(), for what the container is to tell or to hand on.
    static bool isListed(const LifeGuard &guard, quint16 element)
    {
        return has(guard, element)
            && !static_cast<const CoordinateInstanceSet *>(guard.object())->m_hasLeft;
    }
    /// Whether set and element are still there after a signal or a function of the firmware.
    /// Static, because a member function must not be called once the set is gone.
    static bool has(const LifeGuard &guard, quint16 element)
    {
        return guard
            && static_cast<const CoordinateInstanceSet *>(guard.object())
                   ->m_elements.contains(element);
    }

    /// Stores what differs from the stored text; what does not only receives the change tag.
    void storeValueText(const Guard &guard, ParameterInstanceData *record, quint16 element,
        const QString &valueText, QString nativeText);
    void storeNative(
        const Guard &guard, ParameterInstanceData *record, quint16 element, QString nativeText);
    /// False, like the other emitting functions, when the set is gone.
    bool emitValueChanged(const Guard &guard, eLivingSpace key, quint16 element);
    bool emitDefaultChanged(eLivingSpace key, quint16 element);
    bool emitDefinitionChanged();
    /// No answer comes for an element that the parameter lost.
    /// **Emits** allElementsConsistenceOnceDone where nothing else was awaited.
    bool endRunsOfLostElements();
    void forgetAnswers();
    bool emitVisibilityChanged(eLivingSpace key, quint16 element);
    bool emitMeasuringUnitChanged(eLivingSpace key, quint16 element);
    bool emitChanges(eLivingSpace key, const ParameterInstanceData::Changes &changes);

    bool dependsOn(const DependencyKey &key, quint16 element) const;
    void forEachFollower(const DependencyKey &key, eLivingSpace livingSpace,
        const QList<quint16> &elements,
        const std::function<void(ParameterInstanceData *, quint16)> &function);
    void followDependency(
        eParameterProperty property, ParameterInstanceData *record, quint16 element);
    void prepareReceivers(eLivingSpace key, quint16 element);
    QString unitTexts(eLivingSpace livingSpace, quint16 element) const;

    void dispatchDependencies(eLivingSpace key, quint16 element);
    void dispatchHiding(eLivingSpace key, quint16 element);
    void deferHiding(quint16 element);

    ParameterContainer *m_container;
    CoordinateRegistry *m_registry;
    ParameterDefinition *m_definition = nullptr;
    ElementCatalogue m_elements;
    PropertyResolver m_properties;
    InstanceTable m_instances;
    ConsistenceTracker m_consistence;
    const Clock *m_clock;
    /// Null until the first hiding update.
    std::unique_ptr<HidingState> m_hiding;
    ParameterCoordinate m_coordinate;
    bool m_hasLeft = false;
    /// Somebody has connected to this, ever. Most parameters are heard through their container alone; what
    /// changes with each value is not told to nobody.
    bool m_isHeard = false;
};

#pragma once

#include <KrParameterInstance/ParameterProvider.h>
#include <KrParameterDefinition/eParameterProperty.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QMap>
#include <QtCore/QString>

class ParameterContainerHostInformation;
class ParameterContainerPrivate;
class ParameterDefinition;
class ParameterFunctionProvider;
class ServoDriveFirmware;

/// The parameter store of one device. Owns, for every coordinate, the parameter's instances; reads and
/// writes their values as text; saves and loads them; switches the device online and read-only.
///
/// Used on the thread that owns it. Starts offline and writable, without parameters. All messages of
/// its own go to the sink with the title "ParameterContainer".
/// Definitions, firmware and host information are borrowed and must outlive the container.
class KrParameterInstance_EXPORT ParameterContainer : public ParameterProvider {
    Q_OBJECT

public:
    explicit ParameterContainer(QObject *parent = nullptr);
    ~ParameterContainer() override;

    /// All live containers of the process, in order of construction.
    static QList<ParameterContainer *> instances();

    /// Titles every message about this container's values.
    void setDomain(const QString &domain);
    QString domain() const;
    /// Deletes the system parameters of the previous firmware, rebinds every parameter to the new
    /// firmware's functions and creates its system parameters. Null: no functions.
    void setFirmware(ServoDriveFirmware *firmware);
    ServoDriveFirmware *firmware() const;
    /// Null without firmware. **Owner** the container.
    ParameterFunctionProvider *functionProvider() const;
    void setHostInformation(ParameterContainerHostInformation *host);
    ParameterContainerHostInformation *hostInformation() const;
    unsigned int deviceFamilyIdentifier() override;
    bool isOnline() const;
    bool isReadOnly() const;
    /// **Emits** onlineSetToChange, onlineChanged; also when the value stays.
    void setOnline(bool isOnline);
    /// **Emits** readOnlySetToChange, readOnlyChanged; also when the value stays.
    void setReadOnly(bool readOnly);

    /// Creates the instances that the locator asks for, or updates the parameter known under it.
    /// True when a parameter stands at a valid coordinate afterwards.
    /// **Emits** parameterAdded for each new instance, the first time before the locator text leads to it.
    bool createOrUpdateParameter(ParameterDefinition *definition, const QString &locatorText);
    /// **Emits** parameterRemoved.
    void deleteParameter(const QString &locatorText);
    /// Removes all parameters. **Emits** parameterRemoved for each.
    void clear();
    /// Clears the value store of that name in every parameter; one that begins with "ts_" but not
    /// with "ts_0" leaves global parameters untouched.
    void clear(const QString &name);
    ParameterDefinition *queryParameter(const QString &locatorText) const;
    ParameterSetup *queryParameterInstance(const QString &locatorText) const;
    /// The known locator texts below one, in no particular order: exactly its own with `exact`, else
    /// those of its numbered children.
    QList<QString> queryParameterAnchors(const QString &locatorText, bool exact) const;
    QPointer<ParameterSetup> parameterSetup(const ParameterCoordinate &coordinate) override;
    QPointer<ParameterInformation> parameterInformation(
        const ParameterCoordinate &coordinate) override;
    QList<ParameterCoordinate> parameterList() override;
    QList<ParameterCoordinate> compareParameterCoordinateList(eLivingSpace livingSpace) override;
    ActionParameter *createAction(QString coordinateText, eLivingSpace livingSpace) override;
    /// The kinds of function index that the definitions use beyond what the firmware offers.
    QList<QString> contentIssuesForFirmware(ServoDriveFirmware *firmware) const;

    /// The display text. Reads of a coordinate without parameter give an empty text, writes do
    /// nothing; neither reports.
    QString readValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, bool withUnit) const;
    QString readValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, bool withUnit) const;
    /// The value text.
    QString readUndecoratedValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, bool withUnit) const;
    /// Display text, checked by the firmware.
    void writeValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, const QString &text);
    /// Native text as it comes from the device, not checked.
    void writeValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, const QString &text);
    /// Value text, not checked.
    void writeUndecoratedValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate,
        quint16 element, const QString &text);
    /// The native value in the bytes of its data type. `byteOrder` true is big-endian. Text that is no
    /// number counts as 0; an unknown address or type gives an empty array.
    QByteArray nativeValueBinary(const ParameterAddress &address, bool byteOrder) const;
    /// **Refused** an array shorter than the data type. `fromDevice` is true for bytes that come from
    /// the device, false for a program's own write.
    void setNativeValueBinary(
        const ParameterAddress &address, const QByteArray &bytes, bool byteOrder, bool fromDevice);

    /// The living space of the active axis, which "E84" selects.
    /// **Reports** a missing "E84" as warning where the device family has no physical axes.
    eLivingSpace activeLivingSpace(eLivingSpace requested) const;
    bool isGlobalParameter(const ParameterCoordinate &coordinate) const;
    /// Whether a mapping parameter holds the number of the address.
    bool isParameterMapped(const ParameterAddress &address) const;
    /// Address texts; those that name no address are skipped.
    void setBlockUsedParameters(const QList<QString> &addressTexts);
    bool isParameterBlockUsed(const ParameterAddress &address) const;
    /// All addresses, sorted by number, kept under the name until the parameters change.
    QList<ParameterAddress> parameterAddressList(const QString &name);
    void resetParameterAddressList(const QString &name);

    /// Hands a change of a dependency property's value to every parameter that depends on it.
    void dispatchDependencyChange(eParameterProperty property, eLivingSpace livingSpace,
        const ParameterCoordinate &coordinate, quint16 element);
    /// **Emits** parameterNeedsOnlineConsistence.
    void dispatchParameterOnlineConsistenceNeed(const ParameterAddress &address, bool value);
    /// **Emits** parameterNeedsOnlineConsistenceOnce.
    void dispatchParameterOnlineConsistenceNeedOnce(const ParameterAddress &address);

    /// Fills the parameters that exist from the block "Parameter.ini"; creates none. Always true.
    bool loadFrom(QMap<QString, QByteArray> &blocks);
    /// Stores the block "Parameter.ini". Always true.
    bool saveTo(QMap<QString, QByteArray> &blocks) const;
    /// Every value and default stored records the tag that is current at that moment.
    QString parameterChangeTag() const;
    /// Returns the tag that was current before.
    QString setParameterChangeTag(const QString &tag);
    /// Address texts to tags; only tags that are still empty are filled in.
    void updateParameterChangeTagsIfEmpty(
        const QMap<QString, QString> &valueTags, const QMap<QString, QString> &defaultTags);

private:
    friend class ParameterContainerPrivate;

    ParameterContainerPrivate *d;
};

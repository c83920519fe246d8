#pragma once

#include "container/CallbackProviderDelegate.h"
#include "container/CoordinateTable.h"
#include "container/DispatchLimit.h"
#include "container/GuardedFunctionProvider.h"
#include "container/SetIndex.h"
#include "instance/CoordinateInstanceSet.h"
#include "instance/CoordinateRegistry.h"
#include "value/LifeGuard.h"

#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <memory>
#include <vector>

class ParameterContainer;
class ParameterContainerHostInformation;
class ParameterDefinition;
class ParameterFunctionProvider;
class ServoDriveFirmware;

/// State of a container: keeps the instance sets, creates and removes them.
class ParameterContainerPrivate final : public QObject, public CoordinateRegistry {
    Q_OBJECT

public:
    explicit ParameterContainerPrivate(ParameterContainer *owner);
    ~ParameterContainerPrivate() override;

    static QList<ParameterContainer *> instances();

    /// Null where there is none.
    CoordinateInstanceSet *find(const ParameterCoordinate &coordinate) const;
    CoordinateInstanceSet *find(const QString &locatorText) const;
    /// For walks during which listeners may remove sets; by coordinate.
    QList<QPointer<CoordinateInstanceSet>> guardedSets() const;
    /// False where no firmware is set or its family is unknown.
    bool hasPhysicalAxes() const;
    bool isGlobal(const ParameterDefinition *definition) const override;
    /// The sets with an element of kind 11 (parameter address).
    QList<CoordinateInstanceSet *> mappingSets() const { return m_index.mappingSets(); }
    /// The living space that an address means: 0 of a global parameter, else its axis.
    eLivingSpace livingSpace(const ParameterAddress &address) const;

    bool createOrUpdate(ParameterDefinition *definition, const QString &locatorText);
    void remove(CoordinateInstanceSet *set);
    void removeAll(const QList<QPointer<CoordinateInstanceSet>> &sets);
    void setFirmware(ServoDriveFirmware *newFirmware);
    /// The functions or the values behind them changed. **Emits** the differences of hidden flags that
    /// were known.
    void askKnownFlagsAnew();
    eLivingSpace activeLivingSpace(eLivingSpace requested) const;
    bool isMapped(const ParameterAddress &address) const;
    /// Hands the change to every value that depends on it, by coordinate. A change that follows from too
    /// many others is not handed on; one critical **report** for each outermost change.
    void dispatchDependencyChange(eParameterProperty property, eLivingSpace livingSpace,
        ParameterCoordinate source, quint16 element);
    QList<ParameterAddress> addresses() const;

    // What the firmware's functions ask; see CallbackProvider.
    QString readForFirmware(CallbackProviderDelegate::eForm form, int livingSpace,
        quint16 coordinate, quint16 element, bool withUnit);
    void writeForFirmware(CallbackProviderDelegate::eForm form, int livingSpace, quint16 coordinate,
        quint16 element, const QString &text);
    QVariant parameterProperty(
        quint16 coordinate, const QString &key, const QVariant &fallback) const;
    QVariant elementProperty(quint16 coordinate, quint16 element, quint32 property) const;
    QVariant datatypeProperty(quint16 coordinate, const QString &key) const;
    QString containerText(const QString &key) const;

    void onElementsChanged() override { addressLists.clear(); }
    void onPropertiesChanged(CoordinateInstanceSet *set) override;
    /// Many questions to the functions, without a change of a value; see QuestionRound.
    void beginQuestions() const { m_dispatchLimit.beginQuestions(); }
    void endQuestions() const { m_dispatchLimit.endQuestions(); }
    void beginChange() override { m_dispatchLimit.beginChange(); }
    void endChange() override { m_dispatchLimit.endChange(); }
    bool beginPreparation() override { return m_dispatchLimit.enterPreparation(); }
    void endPreparation() override { m_dispatchLimit.leave(); }
    QList<DependencyReceiver> receivers(const DependencyKey &key) override
    {
        return m_index.receivers(key);
    }

    ParameterContainer *owner;
    CoordinateTable coordinateSets;
    /// **Owner** the host. Null: none.
    ParameterContainerHostInformation *host = nullptr;
    /// Every removal of a set takes its locator texts along, so that none leads to a set that is gone.
    QHash<QString, CoordinateInstanceSet *> locatorSets;
    QList<ParameterAddress> blockUsedAddresses;
    QString domain;
    QString parameterChangeTag;
    bool online = false;
    bool readOnly = false;
    /// Counts the calls, so that one knows whether a listener made another.
    quint32 onlineCalls = 0;
    quint32 readOnlyCalls = 0;
    /// **Owner** the host. Null: none.
    ServoDriveFirmware *firmware = nullptr;
    std::unique_ptr<GuardedFunctionProvider> functionProvider;
    CallbackProviderDelegate callbackDelegate;
    /// Name of a value store to all addresses; no key: not built since the parameters changed.
    QHash<QString, QList<ParameterAddress>> addressLists;
    /// "livingSpace;coordinate;element" of the values here that firmware functions read while offline.
    QSet<QString> pendingNames;
    /// Time of day of the sets' hiding throttles; empty: the system's.
    CoordinateInstanceSet::Clock clock;

Q_SIGNALS:
    void accessLevelUpdateStarted();
    void accessLevelUpdateFinished();
    void onlineSetToChange(bool isOnline);
    void parameterAdded(ParameterCoordinate coordinate);
    void parameterRemoved(ParameterCoordinate coordinate);

public Q_SLOTS:
    void setOnline(bool isOnline);
    void updateAllParameterVisibility();
    void onCoordinateChanged(ParameterAddress oldAddress, ParameterAddress newAddress) override;

private:
    bool update(CoordinateInstanceSet *set, ParameterDefinition *definition);
    ParameterCoordinate chooseCoordinate(
        const ParameterDefinition *definition, eLivingSpace livingSpace) const;
    bool isTaken(const ParameterCoordinate &candidate, const ParameterDefinition *definition,
        eLivingSpace livingSpace) const;
    /// The coordinate's set with its texts, new or not.
    CoordinateTable::Entry *entryForCreation(ParameterDefinition *definition,
        const ParameterCoordinate &coordinate, qsizetype instanceCount);
    /// Afterwards the locator text leads to the set. False when listeners removed or replaced the
    /// instance, or destroyed the container.
    bool createInstance(CoordinateTable::Entry *entry, ParameterDefinition *definition,
        const QString &locatorText, eLivingSpace livingSpace);
    /// The serial number of the record, new or not. **Emits** parameterAdded for a new one.
    quint32 addInstance(CoordinateInstanceSet *set, eLivingSpace livingSpace);
    void reportCut(const ParameterCoordinate &source) const;
    void createSystemParameters();
    /// Notes what the container holds, by one name; nothing else, so that a function that reads on and
    /// on does not fill the list.
    void notePending(
        eLivingSpace livingSpace, const ParameterCoordinate &coordinate, quint16 element);
    void tellAccessLevel(quint32 before, quint32 now);
    /// A negative number asks for the active axis.
    eLivingSpace resolveForFirmware(int livingSpace) const;

    mutable SetIndex m_index;
    /// Out of the tables, and alive until everyone has heard of their removal.
    std::vector<std::unique_ptr<CoordinateTable::Entry>> m_going;
    /// Questions do not change a container, and yet they are counted.
    mutable DispatchLimit m_dispatchLimit;
    quint32 m_knownAccessLevel;
    quint32 m_firmwareGeneration = 0;
};

#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>
#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>
#include <KrParameterDefinition/eLivingSpace.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>

class ActionParameter;
class ParameterInformation;
class ParameterSetup;

/// The one notification channel of a container: every change inside it is announced here, on the
/// thread that owns the container.
/// Declaration order is binary interface; do not reorder.
class KrParameterInstance_EXPORT ParameterProvider : public QObject {
    Q_OBJECT

public:
    explicit ParameterProvider(QObject *parent);
    ~ParameterProvider() override;

    /// The action at a coordinate text ("E12") in a living space; null where the container lacks the
    /// parameter. **Owner** the caller.
    virtual ActionParameter *createAction(QString coordinateText, eLivingSpace livingSpace) = 0;
    /// Null for an invalid coordinate and where there is no parameter.
    virtual QPointer<ParameterInformation> parameterInformation(
        const ParameterCoordinate &coordinate) = 0;
    virtual QPointer<ParameterSetup> parameterSetup(const ParameterCoordinate &coordinate) = 0;
    /// In no particular order.
    virtual QList<ParameterCoordinate> parameterList() = 0;
    /// The host's answer; 0 without host information.
    virtual unsigned int deviceFamilyIdentifier() = 0;
    /// The coordinates whose values take part in a comparison of two devices in living space 0 and
    /// the given one, in no particular order.
    virtual QList<ParameterCoordinate> compareParameterCoordinateList(eLivingSpace livingSpace) = 0;

Q_SIGNALS:
    void accessLevelUpdateStarted();
    void accessLevelUpdateFinished();
    void readOnlySetToChange(bool readOnly);
    void onlineSetToChange(bool isOnline);
    void onlineChanged(bool isOnline);
    void readOnlyChanged(bool readOnly);
    void parameterNativeValueChanged(ParameterAddress address);
    void parameterValueChanged(ParameterAddress address);
    void parameterDefaultValueChanged(ParameterAddress address);
    void parameterDefinitionChanged(ParameterAddress address);
    void parameterVisibilityChanged(ParameterAddress address);
    void parameterMeasuringUnitChanged(ParameterAddress address);
    void parameterAdded(ParameterCoordinate coordinate);
    void parameterRemoved(ParameterCoordinate coordinate);
    void parameterNeedsOnlineConsistence(ParameterAddress address, bool value);
    void parameterNeedsOnlineConsistenceOnce(ParameterAddress address);
};

#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QObject>

class DriveProject;
class ParameterAddress;

/// Tells what changes of a device's values, by their places.
class DeviceChanges : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    /// Null: nothing is told. **Owner** of the project the caller; it outlives its stay here.
    void setDevice(DriveProject *project);

Q_SIGNALS:
    /// The value, its default, its limits, its unit, or who may write it.
    void valueChanged(const ValuePlace &place);
    /// Not while the access level changes, which changes all of them.
    void visibilityChanged(const ValuePlace &place);
    /// Whatever the user sees and may write.
    void allChanged();
    /// Which parameters the device has. However many come and go, once they have.
    void parametersChanged();

private:
    void listen();
    void listenToParameters();
    void onParametersChanged();
    void onValueChanged(const ParameterAddress &address);
    void onVisibilityChanged(const ParameterAddress &address);

    DriveProject *m_project = nullptr;
    bool m_isLevelChanging = false;
    bool m_isTellingParameters = false;
};

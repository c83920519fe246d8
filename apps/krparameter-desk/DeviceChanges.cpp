#include "apps/krparameter-desk/DeviceChanges.h"

#include "apps/host/DriveProject.h"

#include <KrParameterInstance/ParameterInformation.h>

void DeviceChanges::setDevice(DriveProject *project)
{
    if (m_project) {
        ParameterContainer &container = m_project->container();
        container.disconnect(this);
        for (const ParameterCoordinate &coordinate : container.parameterList()) {
            if (const auto parameter = container.parameterInformation(coordinate))
                parameter->disconnect(this);
        }
    }
    m_project = project;
    m_isLevelChanging = false;
    listen();
    listenToParameters();
}

void DeviceChanges::listen()
{
    using Container = ParameterContainer;
    if (!m_project)
        return;
    const Container *container = &m_project->container();
    for (const auto signal :
        {&Container::parameterValueChanged, &Container::parameterNativeValueChanged,
            &Container::parameterDefaultValueChanged, &Container::parameterMeasuringUnitChanged})
        connect(container, signal, this, &DeviceChanges::onValueChanged);
    connect(container, &Container::parameterVisibilityChanged, this,
        &DeviceChanges::onVisibilityChanged);
    connect(container, &Container::onlineChanged, this, &DeviceChanges::allChanged);
    connect(container, &Container::readOnlyChanged, this, &DeviceChanges::allChanged);
    connect(container, &Container::accessLevelUpdateStarted, this,
        [this] { m_isLevelChanging = true; });
    connect(container, &Container::accessLevelUpdateFinished, this, [this] {
        m_isLevelChanging = false;
        Q_EMIT allChanged();
    });
    connect(container, &Container::parameterAdded, this, &DeviceChanges::onParametersChanged);
    connect(container, &Container::parameterRemoved, this, &DeviceChanges::onParametersChanged);
    connect(container, &Container::parameterDefinitionChanged, this,
        &DeviceChanges::onParametersChanged);
}

/// What no container tells. Those that are heard already stay so.
void DeviceChanges::listenToParameters()
{
    if (!m_project)
        return;
    ParameterContainer &container = m_project->container();
    for (const ParameterCoordinate &coordinate : container.parameterList()) {
        const ParameterInformation *parameter = container.parameterInformation(coordinate);
        connect(parameter, &ParameterInformation::limitsChanged, this,
            &DeviceChanges::onValueChanged, Qt::UniqueConnection);
        connect(parameter, &ParameterInformation::writabilityChanged, this,
            &DeviceChanges::onValueChanged, Qt::UniqueConnection);
    }
}

/// A change of the device's parameters comes as many signals.
void DeviceChanges::onParametersChanged()
{
    if (m_isTellingParameters)
        return;
    m_isTellingParameters = true;
    const auto tell = [this] {
        m_isTellingParameters = false;
        Q_EMIT parametersChanged();
        listenToParameters();
    };
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

void DeviceChanges::onValueChanged(const ParameterAddress &address)
{
    if (const auto parameter = m_project->container().parameterInformation(address.coordinate()))
        Q_EMIT valueChanged(ValuePlace::of(address, *parameter));
}

void DeviceChanges::onVisibilityChanged(const ParameterAddress &address)
{
    if (m_isLevelChanging)
        return;
    if (const auto parameter = m_project->container().parameterInformation(address.coordinate()))
        Q_EMIT visibilityChanged(ValuePlace::of(address, *parameter));
}

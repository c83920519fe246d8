#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>
#include <KrParameterDefinition/ParameterAddress.h>
#include <KrParameterDefinition/ParameterCoordinate.h>

#include <QtCore/QObject>

class ParameterContainer;

/// How a host offers navigation to parameters. Implemented by the host; the library never calls it.
/// Declaration order is binary interface; do not reorder.
class KrParameterInstance_EXPORT ParameterNavigationHost : public QObject {
    Q_OBJECT

public:
    explicit ParameterNavigationHost(QObject *parent);
    ~ParameterNavigationHost() override;

    virtual bool canNavigateToParameter(const ParameterCoordinate &coordinate) const = 0;
    virtual void navigateToParameter(const ParameterCoordinate &coordinate) = 0;
    virtual bool canNavigateToAddress(const ParameterAddress &address) const = 0;
    virtual void navigateToAddress(const ParameterAddress &address) = 0;
    /// Invalid where nothing is selected.
    virtual ParameterAddress currentAddress() const = 0;
    /// Null where no device is open. **Owner** the host.
    virtual ParameterContainer *parameterContainer() const = 0;
};

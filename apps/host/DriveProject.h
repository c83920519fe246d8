#pragma once

#include "apps/host/DriveHostInformation.h"

#include <KrParameterInstance/ParameterContainer.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <memory>

class Progress;
class ServoDriveFirmware;

/// A described device with its parameters: the description, the container and what the container
/// asks its host.
class DriveProject {
    Q_DECLARE_TR_FUNCTIONS(DriveProject)

public:
    /// Reads the description and creates every parameter that it lists, on every axis.
    /// **Refused** an unusable description and a cancelled creation: null, `error` says why.
    static std::unique_ptr<DriveProject> open(
        const QString &descriptionFile, QString &error, Progress *progress = nullptr);

    ~DriveProject();
    Q_DISABLE_COPY_MOVE(DriveProject)

    /// Another container of the same device, all values at their defaults.
    std::unique_ptr<DriveProject> fresh() const;

    const ServoDriveFirmware &firmware() const { return *m_firmware; }
    ParameterContainer &container() { return m_container; }
    const ParameterContainer &container() const { return m_container; }

private:
    explicit DriveProject(std::shared_ptr<ServoDriveFirmware> firmware);

    bool createParameters(Progress *progress);
    void createParameter(quint32 number);

    // The container borrows both: it goes first.
    std::shared_ptr<ServoDriveFirmware> m_firmware;
    DriveHostInformation m_hostInformation;
    ParameterContainer m_container;
};

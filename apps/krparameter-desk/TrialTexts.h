#pragma once

#include "apps/host/TrialCopy.h"
#include "apps/host/ValuePlace.h"

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class DriveProject;
class ParameterAddress;
class ParameterInformation;

/// Shows native texts of a device as values are shown, without unit. Follows the device: a text may
/// depend on other values.
class TrialTexts : public QObject {
    Q_OBJECT

public:
    /// **Owner** of the project the caller; it outlives the texts.
    explicit TrialTexts(DriveProject &project);
    ~TrialTexts() override;

    QString defaultText(const ParameterInformation &parameter, const ValuePlace &place);
    QString lowerLimit(const ParameterInformation &parameter, const ValuePlace &place);
    QString upperLimit(const ParameterInformation &parameter, const ValuePlace &place);

private:
    QString shown(const ValuePlace &place, const QString &nativeText);
    void follow(const ParameterAddress &address);
    void startAnew();

    DriveProject &m_project;
    /// Null until a text is asked for, which an opened device does not need to be listed.
    std::unique_ptr<TrialCopy> m_trial;
};

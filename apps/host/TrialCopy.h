#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QString>

#include <memory>
#include <optional>

class DriveProject;
class ParameterSetup;

/// A second container in the same state, in which conversions are tried without touching the first
/// and without a message.
class TrialCopy {
public:
    /// **Owner** the caller; the project outlives the copy.
    explicit TrialCopy(const DriveProject &project);
    ~TrialCopy();

    enum class eUnit { Without, With };

    /// How the native text would show; never masked. Empty for an unknown place.
    QString displayText(
        const ValuePlace &place, const QString &nativeText, eUnit unit = eUnit::With);
    /// What would be stored for the display text; empty where it would be refused.
    std::optional<QString> nativeText(const ValuePlace &place, const QString &displayText);
    /// Keeps the copy in the state of the first container when a value changed there.
    void follow(const ValuePlace &place, const QString &nativeText);

private:
    ParameterSetup *parameter(const ValuePlace &place);

    std::unique_ptr<DriveProject> m_copy;
};

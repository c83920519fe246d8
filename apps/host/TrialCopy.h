#pragma once

#include "apps/host/ValuePlace.h"

#include <LmUtilities/IniParser.h>

#include <QtCore/QByteArray>
#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QString>

#include <memory>
#include <optional>

class DriveProject;
class ParameterSetup;

/// A second container in the same state, in which conversions are tried without touching the first
/// and without a message. A trial runs the device's functions; what they changed is put back behind it.
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
    void note(const ParameterAddress &address);
    /// What the copy goes back to.
    QString keptText(const ValuePlace &place) const;
    bool isAsKept(const ValuePlace &place);
    /// Undoes every change since the last time: by writing, and where a function changes values again,
    /// by loading, which takes as long as the device is large.
    void putBack();
    void loadChanged();

    /// As the first container was saved.
    LmIniParser::IniParser m_saved;
    /// Value keys and texts of the block that changed since then.
    QHash<ParameterCoordinate, QHash<QByteArray, QString>> m_followed;
    /// In the order of the changes, repeated ones again.
    QList<ValuePlace> m_changed;
    std::unique_ptr<DriveProject> m_copy;
};

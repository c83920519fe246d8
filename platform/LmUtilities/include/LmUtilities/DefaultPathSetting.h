#pragma once

#include <LmUtilities/LmUtilitiesExport.h>

#include <QtCore/QString>

/// The folder that a file dialog of one kind opens with; kept with QSettings in the user's scope
/// under the application's organization and name, or under fixed ones where it set no organization.
class LmUtilities_EXPORT DefaultPathSetting {
public:
    /// The numbers are the keys of the stored settings.
    enum eKind : int {
        ParameterValueExport = 2,
        HtmlReport = 3,
    };

    explicit DefaultPathSetting(int kind);

    /// The user's documents folder where none was stored.
    QString path() const;
    /// An empty path forgets the one stored.
    void setPath(const QString &path);

private:
    int m_kind;
};

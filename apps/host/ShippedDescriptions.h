#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

/// The device descriptions that come with the program, found relative to it.
class ShippedDescriptions {
public:
    /// The file of a name like "two-axis-drive"; empty where there is none.
    static QString filePath(const QString &name);
    /// Ascending.
    static QStringList names();
};

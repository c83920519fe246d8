#pragma once

#include <LmUtilities/LmUtilitiesExport.h>

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QHash>
#include <QtCore/QList>

#include <vector>

namespace LmIniParser {

/// The keys of one section, in the order in which they were written.
/// Keys and values are any bytes. A key that is written again replaces the earlier value.
class LmUtilities_EXPORT IniSection {
public:
    IniSection() = default;
    Q_DISABLE_COPY_MOVE(IniSection)

    bool contains(QByteArrayView key) const;
    /// Empty where the key is absent. Valid until the section is written to or destroyed.
    QByteArrayView read(QByteArrayView key) const;
    void write(QByteArrayView key, QByteArrayView value);
    QList<QByteArray> keys() const;
};

} // namespace LmIniParser

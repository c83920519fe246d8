#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QString>

/// One message of the suite-wide sink.
struct SystemMessage {
    enum class eSeverity { Information, Warning, Critical };

    eSeverity severity = eSeverity::Information;
    QString title;
    QString text;

    friend bool operator==(const SystemMessage &, const SystemMessage &) = default;
};

Q_DECLARE_METATYPE(SystemMessage)

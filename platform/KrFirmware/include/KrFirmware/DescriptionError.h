#pragma once

#include <QtCore/QString>

/// Why a device description was refused.
struct DescriptionError {
    QString file;
    /// Inside the file, like "parameters[12].elements[0].limits.lower"; empty for the file as a whole.
    QString path;
    /// English.
    QString reason;

    bool isSet() const { return !reason.isEmpty(); }
    /// "file: path: reason", without empty parts.
    QString toText() const
    {
        QString text = file;
        for (const QString &part : {path, reason}) {
            if (!text.isEmpty() && !part.isEmpty())
                text += QLatin1String(": ");
            text += part;
        }
        return text;
    }
};

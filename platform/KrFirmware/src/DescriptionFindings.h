#pragma once

#include <KrFirmware/DescriptionError.h>

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

class JsonValue;

/// Collects what is wrong with a description while it is read. Reading goes on after an error with
/// the defaults, and the first error counts; so no reader has to break off.
/// Findings are noted at values; their paths are worked out at the end in one walk over the file.
class DescriptionFindings {
public:
    void refuse(const JsonValue &at, const QString &reason);
    /// The object lacks a key: the path is the object's with the key.
    void refuseMissing(const JsonValue &object, const QString &key, const QString &reason);
    void warn(const JsonValue &at, const QString &text);

    bool hasError() const { return m_refused; }
    DescriptionError error(const JsonValue &root, const QString &fileName) const;
    /// "path: text" in the order of the file.
    QStringList warnings(const JsonValue &root) const;

private:
    const JsonValue *m_refused = nullptr;
    QString m_missingKey;
    QString m_reason;
    QHash<const JsonValue *, QStringList> m_warnings;
};

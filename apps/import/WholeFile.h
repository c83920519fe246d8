#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

/// Files that are read and written as a whole.
class WholeFile {
public:
    /// The longest file that is read. **Unit** bytes.
    static constexpr qint64 MaximumSize = 64 * 1024 * 1024;

    /// Empty where the file cannot be read or is longer; `error` then says why.
    static std::optional<QByteArray> read(const QString &fileName, QString &error);
    /// Replaces the file or leaves it as it is. What was written is compared by length before it
    /// takes the file's place and read back afterwards, since a full disk may cut it silently.
    /// Answers what went wrong, empty where nothing did.
    static QString replace(const QString &fileName, const QByteArray &bytes);
};

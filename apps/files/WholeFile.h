#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include <optional>

/// Files that are read and written as a whole.
class WholeFile {
    Q_DECLARE_TR_FUNCTIONS(WholeFile)

public:
    static constexpr qint64 Mebibyte = qint64(1) << 20;

    /// Empty where the file cannot be read or is longer than `maximumSize`; `error` then says why.
    /// **Unit** bytes; whole mebibytes.
    static std::optional<QByteArray> read(
        const QString &fileName, qint64 maximumSize, QString &error);
    /// Replaces the file or leaves it as it is.
    /// Answers what went wrong, empty where nothing did.
    static QString replace(const QString &fileName, const QByteArray &bytes);
};

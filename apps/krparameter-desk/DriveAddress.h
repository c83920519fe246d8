#pragma once

#include <QtCore/QString>

#include <optional>

/// Where a drive is reached.
struct DriveAddress {
    static constexpr quint16 StandardPort = 502;

    QString host = QStringLiteral("127.0.0.1");
    quint16 port = StandardPort;

    /// "drive7", "10.0.0.7:1502", "[::1]:1502"; the standard port where none is named. Empty where the
    /// text is none of these.
    static std::optional<DriveAddress> of(const QString &text);
    QString toText() const;

    friend bool operator==(const DriveAddress &, const DriveAddress &) = default;
};

#include "apps/krparameter-desk/DriveAddress.h"

#include <QtCore/QRegularExpression>

std::optional<DriveAddress> DriveAddress::of(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^(?:\\[([0-9A-Fa-f:.]+)\\]|([A-Za-z0-9._-]+))(?::([0-9]{1,5}))?$"));
    const QRegularExpressionMatch match = form.match(text.trimmed());
    if (!match.hasMatch())
        return {};
    DriveAddress address;
    address.host = match.captured(1) + match.captured(2);
    if (!match.hasCaptured(3))
        return address;
    bool isPort = false;
    address.port = match.captured(3).toUShort(&isPort);
    return isPort && address.port > 0 ? std::optional(address) : std::nullopt;
}

QString DriveAddress::toText() const
{
    const bool hasColons = host.contains(QLatin1Char(':'));
    return (hasColons ? QStringLiteral("[%1]:%2") : QStringLiteral("%1:%2")).arg(host).arg(port);
}

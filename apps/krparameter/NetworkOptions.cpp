#include "apps/krparameter/NetworkOptions.h"

#include "apps/krparameter/CommandLine.h"

namespace {

constexpr QLatin1StringView Host("host");
constexpr QLatin1StringView Port("port");

constexpr int StandardPort = 502;
constexpr int GreatestPort = 65535;

} // namespace

QList<Option> NetworkOptions::all()
{
    return {
        {Host, tr("ADRESSE"), tr("Adresse des Antriebs, sonst 127.0.0.1")},
        {Port, QStringLiteral("N"), tr("Anschluss von 0 bis 65535, sonst 502")},
    };
}

QString NetworkOptions::host(const CommandLine &line)
{
    return line.has(Host) ? line.value(Host) : QStringLiteral("127.0.0.1");
}

std::optional<quint16> NetworkOptions::port(const CommandLine &line, QString &error)
{
    const std::optional<int> port = number(line, Port, StandardPort, GreatestPort, error);
    return port ? std::optional(quint16(*port)) : std::nullopt;
}

std::optional<int> NetworkOptions::number(
    const CommandLine &line, const QString &option, int defaultValue, int greatest, QString &error)
{
    if (!line.has(option))
        return defaultValue;
    bool isNumber = false;
    const int value = line.value(option).toInt(&isNumber);
    if (isNumber && value >= 0 && value <= greatest)
        return value;
    error = tr("--%1 nimmt eine Zahl von 0 bis %2").arg(option).arg(greatest);
    return {};
}

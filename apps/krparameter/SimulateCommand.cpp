#include "apps/krparameter/SimulateCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/NetworkOptions.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/StandardInput.h"
#include "apps/simulation/DriveOrders.h"
#include "apps/simulation/DriveServer.h"
#include "apps/simulation/SimulatedDrive.h"

#include <QtCore/QEventLoop>
#include <QtCore/QJsonObject>
#include <QtCore/QTimer>

namespace {

constexpr QLatin1StringView TickOption("tick");
constexpr int StandardTick = 20;
constexpr int LongestTick = 60000;

} // namespace

QString SimulateCommand::details() const
{
    return tr(
        "Der Antrieb beginnt mit den Werten des Projekts, sonst mit den Defaultwerten. Er prüft,\n"
        "was geschrieben wird, führt seine Aktionen aus, bewegt seine Messwerte und ändert seinen\n"
        "Zustand. --port 0 wählt einen freien Anschluss; die Ausgabe nennt ihn. Der Antrieb "
        "läuft,\n"
        "bis er abgebrochen wird.\n"
        "Die Standardeingabe nimmt Befehle, jeder in einer Zeile: lose N, double N, delay N MS,\n"
        "refuse N und busy N stören die nächsten N Antworten, silent N lässt ihn nach N Antworten\n"
        "verstummen, clear beendet alle Störungen; get ADRESSE, set ADRESSE WERT, tick N, quit.\n");
}

QList<Option> SimulateCommand::options() const
{
    return NetworkOptions::all()
        + QList<Option> {{TickOption, tr("MS"),
            tr("Schritt von Aktionen und Messwerten, sonst 20 ms; 0 hält sie an")}};
}

QStringList SimulateCommand::unusedOptions() const
{
    return {OptionName::Axis, OptionName::AccessLevel, OptionName::AllowLoss};
}

eExitCode SimulateCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    QString error;
    const auto port = NetworkOptions::port(line, error);
    const auto tick = NetworkOptions::number(line, TickOption, StandardTick, LongestTick, error);
    if (!line.arguments().isEmpty())
        error = tr("simulate nimmt keine Argumente");
    if (!error.isEmpty())
        return session.fail(eExitCode::Usage, error);
    if (const eExitCode code = session.open(); code != eExitCode::Good)
        return code;

    SimulatedDrive drive(session.project());
    for (const RegisterMap::Refusal &refusal : drive.registerMap().refusals()) {
        console.report(tr("%1 hat kein Register: %2")
                           .arg(refusal.address, RegisterMap::reasonText(refusal.reason)));
    }
    DriveServer server(drive);
    const QString host = NetworkOptions::host(line);
    if (!server.listen(host, *port))
        return session.fail(eExitCode::Usage,
            tr("%1, Anschluss %2: %3").arg(host).arg(*port).arg(server.errorString()));
    if (line.has(OptionName::Json))
        console.writeLine(QJsonObject {
            {QStringLiteral("host"), host}, {QStringLiteral("port"), int(server.port())}});
    else
        console.writeLine(
            tr("Der Antrieb antwortet auf %1, Anschluss %2.").arg(host).arg(server.port()));
    console.flush();

    QEventLoop loop;
    DriveOrders orders(drive, server);
    QObject::connect(&orders, &DriveOrders::quitOrdered, &loop, &QEventLoop::quit);
    StandardInput input;
    QObject::connect(&input, &StandardInput::lineRead, &loop, [&](const QString &order) {
        console.writeLine(orders.follow(order));
        console.flush();
    });
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &drive, &SimulatedDrive::tick);
    if (*tick > 0)
        timer.start(*tick);
    loop.exec();
    return eExitCode::Good;
}

#include "apps/krparameter/InfoCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"

#include <KrFirmware/ServoDriveFirmware.h>

#include <QtCore/QJsonArray>

namespace {

constexpr int LabelWidth = 14;

} // namespace

QStringList InfoCommand::unusedOptions() const
{
    return {OptionName::Axis, OptionName::AccessLevel, OptionName::AllowLoss};
}

eExitCode InfoCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    if (!line.arguments().isEmpty())
        return session.fail(eExitCode::Usage, tr("info nimmt keine Argumente"));
    if (const eExitCode code = session.open(); code != eExitCode::Good)
        return code;
    if (line.has(OptionName::Json))
        writeJson(session, console);
    else
        writeText(session, console);
    return eExitCode::Good;
}

void InfoCommand::writeText(Session &session, Console &console)
{
    const ServoDriveFirmware &firmware = session.project().firmware();
    ParameterContainer &container = session.project().container();
    const auto writeRow = [&console](const QString &label, const QString &content) {
        console.writeLine(label.leftJustified(LabelWidth) + content);
    };
    QStringList axes;
    for (const int axis : firmware.axes())
        axes.append(QString::number(axis));
    writeRow(tr("Gerätefamilie"),
        QStringLiteral("%1 (%2)").arg(
            firmware.deviceFamilyName(), QString::number(firmware.deviceFamilyIdentifier())));
    writeRow(tr("Achsen"),
        axes.join(QLatin1String(", "))
            + (firmware.hasPhysicalAxes() ? tr(" (physisch)") : QString()));
    writeRow(tr("Sprachen"), firmware.languages().join(QLatin1String(", ")));
    writeRow(tr("Parameter"), QString::number(container.parameterList().size()));
    writeRow(tr("Werte"), QString::number(ValuePlace::allOf(container).size()));
    if (session.loadReport()) {
        writeRow(tr("Projekt"), session.folder());
        console.write(session.loadReport()->toText());
    }
    for (const QString &warning : firmware.warnings())
        writeRow(tr("Befund"), warning);
}

void InfoCommand::writeJson(Session &session, Console &console)
{
    const ServoDriveFirmware &firmware = session.project().firmware();
    ParameterContainer &container = session.project().container();
    QJsonArray axes;
    for (const int axis : firmware.axes())
        axes.append(axis);
    QJsonObject object {
        {QStringLiteral("family"), firmware.deviceFamilyName()},
        {QStringLiteral("familyIdentifier"), qint64(firmware.deviceFamilyIdentifier())},
        {QStringLiteral("axes"), axes},
        {QStringLiteral("hasPhysicalAxes"), firmware.hasPhysicalAxes()},
        {QStringLiteral("languages"), QJsonArray::fromStringList(firmware.languages())},
        {QStringLiteral("parameters"), qint64(container.parameterList().size())},
        {QStringLiteral("values"), qint64(ValuePlace::allOf(container).size())},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(firmware.warnings())},
    };
    if (session.loadReport()) {
        object.insert(QStringLiteral("project"), session.folder());
        object.insert(QStringLiteral("load"), session.loadReport()->toJson());
    }
    console.writeLine(object);
}

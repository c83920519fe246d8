#include "apps/krparameter/Session.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ProjectStorage.h"
#include "apps/host/ShippedDescriptions.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

QStringList numberTexts(const auto &numbers)
{
    QStringList texts;
    for (const auto number : numbers)
        texts.append(QString::number(number));
    return texts;
}

/// Of a plain decimal in the range; empty for anything else.
std::optional<int> number(const QString &text, int lowest, int highest)
{
    bool isNumber = false;
    const int value = text.toInt(&isNumber);
    return isNumber && value >= lowest && value <= highest ? std::optional(value) : std::nullopt;
}

} // namespace

Session::Session(const CommandLine &line, Console &console)
    : m_line(line)
    , m_console(console)
{
    if (line.has(OptionName::Project))
        m_folder = line.value(OptionName::Project);
}

Session::~Session() = default;

eExitCode Session::open(eMissingProject missing)
{
    eExitCode code = readOptions();
    if (code == eExitCode::Good)
        code = openDevice();
    if (code == eExitCode::Good && hasFolder())
        code = loadProject(missing);
    return code;
}

eExitCode Session::fail(eExitCode code, const QString &reason)
{
    m_console.report(tr("krparameter: %1").arg(reason));
    return code;
}

QList<ValuePlace> Session::find(const QString &addressText, QString &error)
{
    const ParameterAddress address(addressText.toUpper(), true);
    if (!address.isValid() || address.hasBit()) {
        error = tr("\"%1\" ist keine Adresse; Adressen sind zum Beispiel E84, E30[1] und 2.B01")
                    .arg(addressText);
        return {};
    }
    const auto parameter = m_project->container().parameterInformation(address.coordinate());
    if (!parameter) {
        error = tr("Parameter %1: das Gerät hat ihn nicht; list zeigt alle")
                    .arg(address.coordinate().toText());
        return {};
    }
    const int axis = addressText.contains(u'.') ? address.axis() + 1 : m_axis.value_or(1);
    const auto livingSpace =
        parameter->isGlobalParameter() ? eLivingSpace::Global : eLivingSpace(axis);
    if (!parameter->hasInstance(livingSpace)) {
        error = tr("Parameter %1: Achse %2 gibt es nicht, nur %3")
                    .arg(address.coordinate().toText())
                    .arg(axis)
                    .arg(axesText());
        return {};
    }
    const bool namesElement = addressText.contains(u'[');
    QList<ValuePlace> places;
    for (const quint16 element : parameter->elementList()) {
        if (!namesElement || element == address.element())
            places.append({address.coordinate(), livingSpace, element});
    }
    if (places.isEmpty()) {
        error = tr("Parameter %1: Element %2 gibt es nicht, nur %3")
                    .arg(address.coordinate().toText())
                    .arg(address.element())
                    .arg(numberTexts(parameter->elementList()).join(QLatin1String(", ")));
    }
    return places;
}

eExitCode Session::readOptions()
{
    quint32 accessLevel = DefaultAccessLevel;
    if (m_line.has(OptionName::AccessLevel)) {
        const QString text = m_line.value(OptionName::AccessLevel);
        bool isNumber = false;
        accessLevel = text.toUInt(&isNumber);
        if (!isNumber) {
            return fail(eExitCode::Usage,
                tr("--access-level nimmt eine Zahl von 0 bis 6 oder mehr, nicht \"%1\"").arg(text));
        }
    }
    System::information()->setUserAccessLevel(accessLevel);
    if (m_line.has(OptionName::Axis)) {
        m_axis = number(m_line.value(OptionName::Axis), 1, 4);
        if (!m_axis)
            return fail(eExitCode::Usage, tr("--axis nimmt eine Zahl von 1 bis 4"));
    }
    return eExitCode::Good;
}

eExitCode Session::findDevice(QString &file)
{
    if (!m_line.has(OptionName::Device))
        return fail(
            eExitCode::Usage, tr("es fehlt --device DATEI, zum Beispiel --device two-axis-drive"));
    const QString given = m_line.value(OptionName::Device);
    const QString shipped =
        QFileInfo::exists(given) ? QString() : ShippedDescriptions::filePath(given);
    const QString error = shipped.isEmpty() ? reasonNotRead(given) : QString();
    if (!error.isEmpty())
        return fail(eExitCode::UnreadableInput, given + QLatin1String(": ") + error);
    file = shipped.isEmpty() ? given : shipped;
    return eExitCode::Good;
}

eExitCode Session::openDevice()
{
    QString file;
    if (const eExitCode code = findDevice(file); code != eExitCode::Good)
        return code;
    QString error;
    m_project = DriveProject::open(file, error);
    if (!m_project)
        return fail(eExitCode::UnreadableInput, error);
    if (m_axis && !m_project->firmware().axes().contains(*m_axis))
        return fail(
            eExitCode::Usage, tr("Achse %1 gibt es nicht, nur %2").arg(*m_axis).arg(axesText()));
    return eExitCode::Good;
}

/// The usual reasons in the user's language; the description's reader tells the others.
QString Session::reasonNotRead(const QString &description)
{
    const QFileInfo file(description);
    if (!file.exists()) {
        return tr("ist weder eine Datei noch eine mitgelieferte Beschreibung; mitgeliefert: %1")
            .arg(ShippedDescriptions::names().join(QLatin1String(", ")));
    }
    if (file.isDir())
        return tr("ist ein Ordner");
    return file.isReadable() ? QString() : tr("darf nicht gelesen werden");
}

eExitCode Session::loadProject(eMissingProject missing)
{
    m_project->container().setDomain(QFileInfo(QDir::cleanPath(folder())).fileName());
    ProjectStorage storage(folder());
    if (missing == eMissingProject::Create && storage.folder().isFree()) {
        m_console.report(tr("Projekt %1: neu, mit den Defaultwerten").arg(folder()));
        return eExitCode::Good;
    }
    const auto cutBlock = m_line.has(OptionName::Force) ? ProjectStorage::eCutBlock::Load
                                                        : ProjectStorage::eCutBlock::Refuse;
    const auto announce = [this](const LoadReport &report) {
        for (const QString &line : report.toText().split(u'\n', Qt::SkipEmptyParts))
            m_console.report(tr("Projekt %1: %2").arg(folder(), line));
    };
    const ProjectStorage::LoadResult result = storage.load(*m_project, cutBlock, announce);
    if (result.status == ProjectStorage::LoadResult::eStatus::Cut)
        return fail(eExitCode::UnreadableInput, result.error + tr("; --force lädt ihn trotzdem"));
    if (result.status != ProjectStorage::LoadResult::eStatus::Loaded)
        return fail(eExitCode::UnreadableInput, result.error);
    m_loadReport = result.report;
    return eExitCode::Good;
}

QString Session::axesText() const
{
    return numberTexts(m_project->firmware().axes()).join(QLatin1String(", "));
}

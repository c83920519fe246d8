#include "apps/krparameter/Demonstration.h"

#include "apps/host/ContainerComparison.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/ValueView.h"

#include <KrFirmware/ServoDriveFirmware.h>
#include <KrParameterInstance/ParameterSetup.h>
#include <KrSystem/System.h>

#include <QtCore/QFileInfo>
#include <QtCore/QSignalBlocker>

namespace {

constexpr quint32 AccessLevel = 4;
const QString ChangeTag = QStringLiteral("demo");

/// A place of the shipped description.
ValuePlace placeOf(const char *coordinate, eLivingSpace livingSpace, quint16 element = 0)
{
    return {ParameterCoordinate(QString::fromLatin1(coordinate)), livingSpace, element};
}

const ValuePlace NominalCurrent = placeOf("B01", eLivingSpace::Axis1);
const ValuePlace CurrentLimit = placeOf("H00", eLivingSpace::Axis1);
const ValuePlace OtherCurrentLimit = placeOf("H00", eLivingSpace::Axis2);
const ValuePlace Direction = placeOf("B16", eLivingSpace::Axis2);
const ValuePlace AxisName = placeOf("A22", eLivingSpace::Axis2);
const ValuePlace LowerSwitch = placeOf("H05", eLivingSpace::Axis1, 1);
const ValuePlace ActiveAxis = placeOf("E84", eLivingSpace::Global);

} // namespace

Demonstration::Demonstration(const QString &description, const QString &folder, Console &console)
    : m_description(description)
    , m_console(console)
    , m_storage(folder)
{
    System::information()->setUserAccessLevel(AccessLevel);
}

eExitCode Demonstration::run()
{
    using Step = eExitCode (Demonstration::*)();
    constexpr Step Steps[] = {&Demonstration::open, &Demonstration::read, &Demonstration::write,
        &Demonstration::beRefused, &Demonstration::switchAxis, &Demonstration::save,
        &Demonstration::loadAndCompare};
    for (const Step step : Steps) {
        if (const eExitCode code = (this->*step)(); code != eExitCode::Good)
            return code;
    }
    m_console.writeLine(QString());
    m_console.writeLine(tr("Fertig. Das Projekt liegt in %1.").arg(m_storage.folder().path()));
    m_console.writeLine(tr("Weiter zum Beispiel mit:"));
    m_console.writeLine(
        QStringLiteral("  %1 --device two-axis-drive --project %2 get H00")
            .arg(QCoreApplication::arguments().constFirst(), m_storage.folder().path()));
    return eExitCode::Good;
}

eExitCode Demonstration::open()
{
    startStep(tr("Gerätebeschreibung laden, Parameter anlegen"));
    QString error;
    m_project = DriveProject::open(m_description, error);
    if (!m_project)
        return fail(eExitCode::UnreadableInput, error);
    ParameterContainer &container = m_project->container();
    tell(tr("%1: %2 mit %3 Achsen")
             .arg(QFileInfo(m_description).fileName(), m_project->firmware().deviceFamilyName())
             .arg(m_project->firmware().axes().size()));
    tell(tr("%1 Parameter angelegt, zusammen %2 Werte; alle stehen auf ihrem Defaultwert")
             .arg(container.parameterList().size())
             .arg(ValuePlace::allOf(container).size()));
    return eExitCode::Good;
}

eExitCode Demonstration::read()
{
    startStep(tr("Lesen: Anzeige, dahinter der native Wert des Antriebs"));
    for (const ValuePlace &place : {NominalCurrent, CurrentLimit, LowerSwitch, Direction}) {
        if (!parameter(place))
            return fail(eExitCode::UnreadableInput, tr("ein Parameter fehlt in der Beschreibung"));
        tellValue(place);
    }
    return eExitCode::Good;
}

eExitCode Demonstration::write()
{
    startStep(tr("Schreiben, in der Form, in der man liest"));
    const bool isWritten = writeAndTell(CurrentLimit, QStringLiteral("15.5 A"))
        && writeAndTell(LowerSwitch, QStringLiteral("-250"))
        && writeAndTell(Direction, QStringLiteral("1"))
        && writeAndTell(AxisName, tr("Querförderer"));
    return isWritten ? eExitCode::Good
                     : fail(eExitCode::ValueRejected, tr("ein Wert wurde nicht übernommen"));
}

eExitCode Demonstration::beRefused()
{
    startStep(tr("Ein Wert, den der Antrieb abweist"));
    ParameterSetup *limit = parameter(CurrentLimit);
    const QString before = limit->nativeValueText(CurrentLimit.livingSpace, 0, false);
    const QString text = QStringLiteral("75 A");
    {
        // The message is shown below; once is enough.
        const QSignalBlocker once(System::instance());
        System::instance()->clearMessages();
        limit->setValueText(CurrentLimit.livingSpace, CurrentLimit.element, text);
    }
    const QList<SystemMessage> messages = System::instance()->messages();
    const QString after = limit->nativeValueText(CurrentLimit.livingSpace, 0, false);
    if (messages.isEmpty() || before != after)
        return fail(eExitCode::ValueRejected, tr("der Wert wurde nicht abgewiesen"));
    tell(tr("%1 = %2 geschrieben; Meldung:").arg(ValueView(*limit, CurrentLimit).address(), text));
    tell(QLatin1String("  ") + messages.constLast().text);
    tell(tr("genannt ist der nächste zulässige Wert; es bleibt bei %1")
             .arg(ValueView(*limit, CurrentLimit).display()));
    return eExitCode::Good;
}

eExitCode Demonstration::switchAxis()
{
    startStep(tr("Achse umschalten (E84)"));
    ParameterContainer &container = m_project->container();
    const auto activeAxis = [&container] {
        return int(container.activeLivingSpace(eLivingSpace(-1)));
    };
    const int before = activeAxis();
    if (!writeAndTell(ActiveAxis, QStringLiteral("1")))
        return fail(eExitCode::ValueRejected, tr("die Achse ließ sich nicht umschalten"));
    tell(tr("aktiv war Achse %1, aktiv ist Achse %2").arg(before).arg(activeAxis()));
    tell(tr("jede Achse hat ihren eigenen Wert:"));
    tellValue(CurrentLimit);
    tellValue(OtherCurrentLimit);
    return eExitCode::Good;
}

eExitCode Demonstration::save()
{
    startStep(tr("Speichern"));
    const ProjectStorage::SaveResult result =
        m_storage.save(*m_project, ProjectStorage::eLoss::Refuse);
    if (result.status != ProjectStorage::SaveResult::eStatus::Saved)
        return fail(eExitCode::WriteFailed, result.error);
    tell(tr("%1 geschrieben und zurückgelesen")
             .arg(m_storage.folder().path() + u'/' + ProjectFolder::parameterBlockName()));
    return eExitCode::Good;
}

eExitCode Demonstration::loadAndCompare()
{
    startStep(tr("In einen frischen Container laden und vergleichen"));
    const std::unique_ptr<DriveProject> fresh = m_project->fresh();
    const ProjectStorage::LoadResult result =
        m_storage.load(*fresh, ProjectStorage::eCutBlock::Refuse);
    if (result.status != ProjectStorage::LoadResult::eStatus::Loaded)
        return fail(eExitCode::UnreadableInput, result.error);
    for (const QString &line : result.report.toText().split(u'\n', Qt::SkipEmptyParts))
        tell(line);
    const auto comparison = ContainerComparison::of(m_project->container(), fresh->container());
    if (!comparison.differences.isEmpty())
        return fail(eExitCode::Differences,
            tr("verschieden: %1").arg(comparison.differences.join(QLatin1String(", "))));
    tell(tr("%1 Werte mit Defaultwert und Änderungskennungen verglichen: alle gleich")
             .arg(comparison.valuesCompared));

    QMap<QString, QByteArray> written;
    QMap<QString, QByteArray> writtenAgain;
    m_project->container().saveTo(written);
    fresh->container().saveTo(writtenAgain);
    if (written != writtenAgain)
        return fail(eExitCode::Differences, tr("der Block ist nicht derselbe"));
    tell(tr("beide Container speichern denselben Block, Byte für Byte (%1 Bytes)")
             .arg(written.value(ProjectFolder::parameterBlockName()).size()));
    tell(tr("Nichts ging verloren."));
    return eExitCode::Good;
}

void Demonstration::startStep(const QString &title)
{
    if (m_step > 0)
        m_console.writeLine(QString());
    m_console.writeLine(QStringLiteral("%1. %2").arg(++m_step).arg(title));
}

void Demonstration::tell(const QString &line)
{
    m_console.writeLine(QLatin1String("   ") + line);
}

eExitCode Demonstration::fail(eExitCode code, const QString &reason)
{
    m_console.report(tr("krparameter: %1").arg(reason));
    return code;
}

ParameterSetup *Demonstration::parameter(const ValuePlace &place)
{
    return m_project->container().parameterSetup(place.coordinate);
}

void Demonstration::tellValue(const ValuePlace &place)
{
    const ValueView view(*parameter(place), place);
    tell(QStringLiteral("%1 %2 %3 (%4)")
             .arg(view.address().leftJustified(8), view.name().leftJustified(36), view.display(),
                 view.native()));
}

bool Demonstration::writeAndTell(const ValuePlace &place, const QString &text)
{
    ParameterSetup *written = parameter(place);
    if (!written)
        return false;
    const ValueView view(*written, place);
    const QString before = view.display();
    const QString tag = m_project->container().setParameterChangeTag(ChangeTag);
    written->setValueText(place.livingSpace, place.element, text);
    m_project->container().setParameterChangeTag(tag);
    const QString after = view.display();
    tell(QStringLiteral("%1 %2 %3 -> %4")
             .arg(view.address().leftJustified(8), view.name().leftJustified(36), before, after));
    return before != after;
}

#include "apps/krparameter/SetCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ProjectStorage.h"
#include "apps/host/TrialCopy.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Consequences.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/ValueView.h"

#include <KrParameterInstance/ParameterSetup.h>

namespace {

QJsonObject forms(const QJsonObject &value)
{
    QJsonObject object;
    for (const QLatin1StringView key :
        {QLatin1StringView("display"), QLatin1StringView("value"), QLatin1StringView("native")})
        object.insert(key, value.value(key));
    return object;
}

} // namespace

QString SetCommand::details() const
{
    return tr(
        "WERT ist ein Anzeigetext, so wie list ihn zeigt, mit oder ohne Einheit; eine Auswahl\n"
        "nimmt Nummer oder Text. Die Paare werden der Reihe nach geschrieben; wird eines\n"
        "abgewiesen, wird nichts gespeichert. Ohne --project wird nur gezeigt, was gälte.\n"
        "Eingerückt folgt, was sich dadurch sonst ändert: Werte, Einheiten, Grenzen,\n"
        "Sichtbarkeit; von den geschriebenen Werten selbst Einheiten, Grenzen, Sichtbarkeit.\n");
}

eExitCode SetCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    if (line.arguments().isEmpty() || line.arguments().size() % 2 != 0)
        return session.fail(eExitCode::Usage, tr("set braucht Paare aus Adresse und Wert"));
    if (const eExitCode code = session.open(Session::eMissingProject::Create);
        code != eExitCode::Good)
        return code;
    QList<Write> writes;
    if (const eExitCode code = writesOf(line.arguments(), session, writes); code != eExitCode::Good)
        return code;

    ParameterContainer &container = session.project().container();
    Consequences consequences(session.project());
    QSet<ValuePlace> written;
    QList<QJsonObject> before;
    for (const Write &write : std::as_const(writes)) {
        const auto parameter = container.parameterInformation(write.place.coordinate);
        before.append(ValueView(*parameter, write.place).toJson());
        written.insert(write.place);
        if (const eExitCode code = SetCommand::write(write, session); code != eExitCode::Good) {
            console.report(tr("Es wurde nichts gespeichert."));
            return code;
        }
    }
    if (const eExitCode code = save(line, session, console); code != eExitCode::Good)
        return code;

    const bool asJson = line.has(OptionName::Json);
    TrialCopy trial(session.project());
    for (qsizetype i = 0; i < writes.size(); ++i) {
        const auto parameter = container.parameterInformation(writes.at(i).place.coordinate);
        show(ValueView(*parameter, writes.at(i).place), before.at(i), trial, asJson, console);
    }
    consequences.write(written, asJson, console);
    return eExitCode::Good;
}

void SetCommand::show(const ValueView &view, const QJsonObject &before, TrialCopy &trial,
    bool asJson, Console &console)
{
    if (asJson) {
        QJsonObject object = view.toNotedJson(trial);
        object.insert(QStringLiteral("before"), forms(before));
        console.writeLine(object);
        return;
    }
    console.writeLine(
        QStringLiteral("%1  %2: %3 -> %4")
            .arg(view.address(), ValueView::singleLine(view.name()),
                ValueView::singleLine(before.value(QLatin1String("display")).toString()),
                ValueView::singleLine(view.display())));
    if (const QString note = view.readBackNote(trial); !note.isEmpty())
        console.writeLine(ValueView::noteLine(note));
}

eExitCode SetCommand::writesOf(const QStringList &words, Session &session, QList<Write> &writes)
{
    for (qsizetype i = 0; i < words.size(); i += 2) {
        QString error;
        const QList<ValuePlace> places = session.find(words.at(i), error);
        if (places.size() > 1) {
            error = tr("Parameter %1 hat mehrere Elemente; gebraucht wird eines, zum Beispiel "
                       "%1[%2]")
                        .arg(words.at(i))
                        .arg(places.constFirst().element);
        }
        if (!error.isEmpty())
            return session.fail(eExitCode::Usage, error);
        writes.append({places.constFirst(), words.at(i + 1)});
    }
    return eExitCode::Good;
}

eExitCode SetCommand::write(const Write &write, Session &session)
{
    const ValuePlace &place = write.place;
    const auto parameter = session.project().container().parameterSetup(place.coordinate);
    if (!parameter)
        return session.fail(eExitCode::ValueRejected,
            tr("Parameter %1: das Gerät hat ihn nicht mehr").arg(place.coordinate.toText()));
    const ValueView view(*parameter, place);
    if (const QString refusal = view.writeRefusal(); !refusal.isEmpty())
        return session.fail(eExitCode::NotWritable, refusal);
    // Reports the rejection itself.
    if (!parameter->isValueTextAcceptable(place.livingSpace, place.element, write.text)) {
        TrialCopy trial(session.project());
        const QString accepted = view.accepted(trial);
        return session.fail(eExitCode::ValueRejected,
            accepted.isEmpty()
                ? tr("Parameter %1: \"%2\" wurde abgewiesen").arg(view.address(), write.text)
                : tr("Parameter %1: \"%2\" wurde abgewiesen; zulässig: %3")
                      .arg(view.address(), write.text, accepted));
    }
    parameter->setValueText(place.livingSpace, place.element, write.text);
    return eExitCode::Good;
}

eExitCode SetCommand::save(const CommandLine &line, Session &session, Console &console)
{
    if (!session.hasFolder()) {
        console.report(tr("Ohne --project wird nichts gespeichert."));
        return eExitCode::Good;
    }
    const bool allowsLoss = line.has(OptionName::AllowLoss);
    // What the device does not know was not loaded and would be gone.
    if (session.loadReport() && session.loadReport()->leavesContentBehind() && !allowsLoss) {
        return session.fail(eExitCode::WriteFailed,
            tr("nicht gespeichert: das Projekt enthält, was dieses Gerät nicht kennt; "
               "--allow-loss speichert ohne es"));
    }
    ProjectStorage storage(session.folder());
    const ProjectStorage::SaveResult result = storage.save(session.project(),
        allowsLoss ? ProjectStorage::eLoss::Allow : ProjectStorage::eLoss::Refuse);
    for (const QString &loss : result.losses.toText().split(u'\n', Qt::SkipEmptyParts))
        console.report(loss);
    if (result.status == ProjectStorage::SaveResult::eStatus::WouldLose)
        return session.fail(
            eExitCode::WriteFailed, result.error + tr("; --allow-loss speichert trotzdem"));
    if (result.status != ProjectStorage::SaveResult::eStatus::Saved)
        return session.fail(eExitCode::WriteFailed, result.error);
    console.report(tr("Projekt %1: gespeichert und zurückgelesen").arg(session.folder()));
    return eExitCode::Good;
}

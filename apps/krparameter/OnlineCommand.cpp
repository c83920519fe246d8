#include "apps/krparameter/OnlineCommand.h"

#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/NetworkOptions.h"
#include "apps/krparameter/OnlineDialogue.h"
#include "apps/krparameter/Session.h"

#include <algorithm>
#include <array>

namespace {

constexpr QLatin1StringView SecondsOption("seconds");
constexpr QLatin1StringView Action("action");
constexpr QLatin1StringView Set("set");
constexpr QLatin1StringView Watch("watch");
constexpr int GreatestSpan = 1000000;

/// A drive that restarts is back within this many calls.
constexpr int PatientAttempts = 10;

struct Verb {
    QLatin1StringView name;
    bool takesWords;
    bool takesProject;
};

constexpr std::array Verbs {
    Verb {QLatin1StringView("get"), true, false},
    Verb {Set, true, false},
    Verb {Watch, true, false},
    Verb {Action, true, false},
    Verb {QLatin1StringView("upload"), false, true},
    Verb {QLatin1StringView("download"), false, true},
};

} // namespace

QString OnlineCommand::details() const
{
    return tr(
        "AUFTRAG ist get, set, watch, action, upload oder download.\n"
        "get zeigt Werte des Antriebs, watch folgt ihnen, bis --seconds um sind oder er fort ist.\n"
        "action startet die Aktion, die unter der Adresse steht, und wartet auf ihr Ende, "
        "höchstens\n"
        "--seconds lang; der Fortschritt steht auf der Fehlerausgabe, das Ergebnis auf der "
        "Ausgabe.\n"
        "set schreibt Paare aus Adresse und Anzeigetext; was vor einem abgewiesenen steht, ist\n"
        "geschrieben. upload liest alle Werte und speichert sie in --project, wenn es gegeben "
        "ist;\n"
        "download schreibt die Werte des Projekts, soweit der Antrieb sie speichert. Was "
        "geschrieben\n"
        "wird, wird zurückgelesen; was der Antrieb daraus gemacht hat, wird gezeigt (Rückgabewert "
        "1).\n"
        "Ohne --json zeigen upload und download nur, was anders kam als erwartet; mit --json jeden "
        "Wert.\n"
        "Was nicht gelesen wird, gibt 3, was der Antrieb ablehnt, 4, was verloren geht, 6; eine "
        "Aktion,\n"
        "die nicht startbar ist, gibt 5, eine, die vor 100 % endet, 4, eine, die noch läuft, 3.\n"
        "set, watch und action lesen zuerst den ganzen Antrieb. Wurde etwas nicht gelesen, gehen "
        "sie\n"
        "nur ohne das weiter, wenn zu den genannten Werten keine Funktionen des Geräts gehören; "
        "die\n"
        "können von jedem Wert abhängen. --despite-unread geht auch dann weiter und nennt, was "
        "fehlt.\n"
        "Ohne die genannten Werte selbst geht es nie weiter.\n");
}

QList<Option> OnlineCommand::options() const
{
    return NetworkOptions::all()
        + QList<Option> {
            {SecondsOption, QStringLiteral("N"), tr("Dauer von watch und action, sonst ohne Ende")},
            {OptionName::DespiteUnread, {},
                tr("set, watch und action auch ohne Werte, die nicht gelesen wurden")}};
}

QString OnlineCommand::usageError(const CommandLine &line)
{
    const QStringList words = line.arguments();
    const auto verb = std::find_if(Verbs.begin(), Verbs.end(),
        [&words](const Verb &known) { return known.name == words.value(0); });
    if (verb == Verbs.end())
        return tr("online braucht get, set, watch, action, upload oder download");
    if (verb->takesWords && words.size() < 2)
        return tr("online %1 braucht mindestens eine Adresse").arg(verb->name);
    if (verb->name == Action && words.size() > 2)
        return tr("online action nimmt eine einzige Adresse");
    if (verb->name == Set && words.size() % 2 == 0)
        return tr("online set braucht Paare aus Adresse und Wert");
    if (!verb->takesWords && words.size() > 1)
        return tr("online %1 nimmt keine Argumente").arg(verb->name);
    if (!verb->takesProject && line.has(OptionName::Project))
        return tr("online %1 kennt die Option --project nicht").arg(verb->name);
    if (verb->name == QLatin1String("download") && !line.has(OptionName::Project))
        return tr("online download braucht --project ORDNER");
    const bool needsOthers = verb->name == Watch || verb->name == Action || verb->name == Set;
    if (!needsOthers && line.has(OptionName::DespiteUnread))
        return tr("online %1 kennt die Option --despite-unread nicht").arg(verb->name);
    if (verb->name != Watch && verb->name != Action && line.has(SecondsOption))
        return tr("online %1 kennt die Option --seconds nicht").arg(verb->name);
    return {};
}

eExitCode OnlineCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    QString error = usageError(line);
    const auto port = NetworkOptions::port(line, error);
    const auto seconds = NetworkOptions::number(line, SecondsOption, 0, GreatestSpan, error);
    if (!error.isEmpty())
        return session.fail(eExitCode::Usage, error);
    const QString verb = line.arguments().constFirst();
    const bool isUpload = verb == QLatin1String("upload");
    if (const eExitCode code = session.open(
            isUpload ? Session::eMissingProject::Create : Session::eMissingProject::Refuse);
        code != eExitCode::Good)
        return code;

    OnlineRules rules;
    if (verb == Watch) {
        rules.returnsToVanished = true;
        rules.contactAttempts = PatientAttempts;
    }
    OnlineDialogue dialogue(line, session, console, *port, rules);
    if (const eExitCode code = dialogue.connectToDrive(); code != eExitCode::Good)
        return code;
    const QStringList words = line.arguments().sliced(1);
    if (verb == QLatin1String("get"))
        return dialogue.get(words);
    if (verb == Set)
        return dialogue.set(words);
    if (verb == Watch)
        return dialogue.watch(words, *seconds);
    if (verb == Action)
        return dialogue.action(words.constFirst(), *seconds);
    return isUpload ? dialogue.upload() : dialogue.download();
}

#include "apps/krparameter/ListCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/host/TrialCopy.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/NamePattern.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/ValueView.h"

#include <algorithm>

namespace {

constexpr QLatin1StringView Hidden("hidden");

struct Row {
    QString address;
    QString name;
    QString display;
    bool readsBack;
};

void write(const QList<Row> &rows, Console &console)
{
    qsizetype addressWidth = 0;
    qsizetype nameWidth = 0;
    for (const Row &row : rows) {
        addressWidth = std::max(addressWidth, row.address.size());
        nameWidth = std::max(nameWidth, row.name.size());
    }
    for (const Row &row : rows) {
        QString text = row.address.leftJustified(addressWidth + 2)
            + row.name.leftJustified(nameWidth + 2) + row.display;
        if (!row.readsBack)
            text += QLatin1String("  (!)");
        while (text.endsWith(u' '))
            text.chop(1);
        console.writeLine(text);
    }
}

} // namespace

QString ListCommand::details() const
{
    return tr(
        "Zeigt Adresse, Name und Anzeigetext mit Einheit. MUSTER trifft Teile von Adresse oder\n"
        "Name, ohne Groß und Klein zu unterscheiden; * steht für beliebigen Text, ? für ein\n"
        "Zeichen, zum Beispiel 'H?1' oder 'strom'. \"(!)\" steht hinter Texten, die als Eingabe\n"
        "einen anderen Wert ergäben; get sagt welchen.\n");
}

QList<Option> ListCommand::options() const
{
    return {{Hidden, {}, tr("auch verborgene und für diese Stufe nicht lesbare Werte")}};
}

QStringList ListCommand::unusedOptions() const
{
    return {OptionName::AllowLoss};
}

eExitCode ListCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    if (line.arguments().size() > 1)
        return session.fail(eExitCode::Usage, tr("list nimmt höchstens ein Muster"));
    if (const eExitCode code = session.open(); code != eExitCode::Good)
        return code;
    const NamePattern pattern(line.arguments().value(0));
    TrialCopy trial(session.project());
    ParameterContainer &container = session.project().container();
    QList<Row> rows;
    for (const ValuePlace &place : ValuePlace::allOf(container)) {
        const auto parameter = container.parameterInformation(place.coordinate);
        const bool isOtherAxis = session.axis() && place.livingSpace != eLivingSpace::Global
            && place.livingSpace != eLivingSpace(*session.axis());
        if (isOtherAxis
            || !(line.has(Hidden) || parameter->isVisible(place.livingSpace, place.element)))
            continue;
        const ValueView view(*parameter, place);
        const QString address = view.address();
        const QString name = view.name();
        if (!pattern.matches(address) && !pattern.matches(name))
            continue;
        if (line.has(OptionName::Json)) {
            console.writeLine(view.toNotedJson(trial));
            continue;
        }
        rows.append({address, ValueView::singleLine(name), ValueView::singleLine(view.display()),
            view.readBackNote(trial).isEmpty()});
    }
    write(rows, console);
    return eExitCode::Good;
}

#include "apps/krparameter/DiffCommand.h"

#include "apps/host/DriveProject.h"
#include "apps/host/Rfc4180Text.h"
#include "apps/host/SnapshotDifference.h"
#include "apps/host/TrialCopy.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/SnapshotSource.h"
#include "apps/krparameter/ValueView.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrSystem/System.h>

namespace {

constexpr QLatin1StringView Csv("csv");

QString textOf(const SnapshotDifference::Side &side)
{
    if (!side.isHeld)
        return DiffCommand::tr("<nicht vorhanden>");
    if (!side.isReadable)
        return DiffCommand::tr("<nicht lesbar>");
    return ValueView::singleLine(side.display);
}

/// Tells apart what else would be an empty field.
QString stateOf(const SnapshotDifference::Side &side)
{
    if (!side.isHeld)
        return QStringLiteral("absent");
    return side.isReadable ? QStringLiteral("value") : QStringLiteral("unreadable");
}

/// Why texts of one side would not read back. Of a snapshot file nothing is known: it is text, and no
/// device converts it.
class SideNotes {
public:
    /// **Owner** the caller.
    explicit SideNotes(const TitledSnapshot &titled)
        : m_session(titled.session.get())
    {
    }

    QString noteOf(const SnapshotDifference::Side &side, const ValuePlace &place)
    {
        if (!m_session || !side.isHeld || !side.isReadable)
            return {};
        DriveProject &project = m_session->project();
        const auto parameter = project.container().parameterInformation(place.coordinate);
        if (!parameter)
            return {};
        if (!m_trial)
            m_trial = std::make_unique<TrialCopy>(project);
        return ValueView(*parameter, place).readBackNote(*m_trial);
    }

private:
    Session *m_session;
    std::unique_ptr<TrialCopy> m_trial;
};

/// Null where the side lacks the value; without texts where this user may not read it.
QJsonValue jsonOf(const SnapshotDifference::Side &side, const QString &note)
{
    if (!side.isHeld)
        return QJsonValue::Null;
    if (!side.isReadable)
        return QJsonObject {{QStringLiteral("readable"), false}};
    QJsonObject object {{QStringLiteral("display"), side.display},
        {QStringLiteral("value"), side.value}, {QStringLiteral("native"), side.native}};
    if (!note.isEmpty())
        object.insert(QStringLiteral("note"), note);
    return object;
}

void writeText(
    const QList<SnapshotDifference> &differences, SideNotes left, SideNotes right, Console &console)
{
    for (const SnapshotDifference &difference : differences) {
        console.writeLine(QStringLiteral("%1  %2: %3 -> %4")
                              .arg(difference.address, ValueView::singleLine(difference.name),
                                  textOf(difference.left), textOf(difference.right)));
        const auto writeNote = [&](const SnapshotDifference::Side &side, SideNotes &notes) {
            const QString note = notes.noteOf(side, difference.place);
            if (!note.isEmpty())
                console.writeLine(ValueView::noteLine(note, side.display));
        };
        writeNote(difference.left, left);
        writeNote(difference.right, right);
    }
}

void writeJson(
    const QList<SnapshotDifference> &differences, SideNotes left, SideNotes right, Console &console)
{
    for (const SnapshotDifference &difference : differences) {
        console.writeLine(QJsonObject {{QStringLiteral("address"), difference.address},
            {QStringLiteral("name"), difference.name},
            {QStringLiteral("left"),
                jsonOf(difference.left, left.noteOf(difference.left, difference.place))},
            {QStringLiteral("right"),
                jsonOf(difference.right, right.noteOf(difference.right, difference.place))}});
    }
}

void writeCsv(const QList<SnapshotDifference> &differences, Console &console)
{
    const auto write = [&console](const QStringList &fields) {
        console.write(QString::fromUtf8(Rfc4180Text::row(fields)));
    };
    write({QStringLiteral("address"), QStringLiteral("name"), QStringLiteral("left"),
        QStringLiteral("right"), QStringLiteral("leftNative"), QStringLiteral("rightNative"),
        QStringLiteral("leftState"), QStringLiteral("rightState")});
    for (const SnapshotDifference &difference : differences) {
        write({difference.address, difference.name, difference.left.display,
            difference.right.display, difference.left.native, difference.right.native,
            stateOf(difference.left), stateOf(difference.right)});
    }
}

} // namespace

QString DiffCommand::details() const
{
    return tr("A und B sind Projektordner oder Dateien von snapshot; ein --project gilt als A. "
              "Ohne B\n"
              "wird mit den Defaultwerten des Geräts verglichen, die dann links stehen. Ein Wert "
              "gilt\n"
              "als verschieden, wenn sich Anzeigetext und nativer Text unterscheiden. "
              "Rückgabewert\n"
              "1, wo es Unterschiede gibt. Werte ab Schreibstufe 6 zeigen <offline> und gelten als "
              "gleich,\n"
              "außer mit --access-level 5.\n")
        + SnapshotSource::comparisonFilterDetails();
}

QList<Option> DiffCommand::options() const
{
    return {
        SnapshotSource::filterOption(), {Csv, {}, tr("Ausgabe als Tabelle mit Kommas (RFC 4180)")}};
}

QStringList DiffCommand::unusedOptions() const
{
    return {OptionName::Axis, OptionName::AllowLoss};
}

eExitCode DiffCommand::run(const CommandLine &line, Console &console)
{
    Session session(line, console);
    SnapshotSource source(line, console, SnapshotSource::eSession::Keep);
    const QStringList paths = source.paths();
    if (paths.isEmpty() || paths.size() > 2) {
        return session.fail(
            eExitCode::Usage, tr("diff braucht ein oder zwei Projekte oder Snapshots"));
    }
    if (line.has(Csv) && line.has(OptionName::Json))
        return session.fail(eExitCode::Usage, tr("--csv und --json schließen sich aus"));
    eExitCode code = source.open();
    if (code == eExitCode::Good) {
        using enum SnapshotSource::eDefaults;
        code = source.freezeToCompare(paths, paths.size() == 1 ? Prepend : Omit);
    }
    if (code != eExitCode::Good)
        return code;
    const TitledSnapshot &left = source.snapshots().front();
    const TitledSnapshot &right = source.snapshots().back();
    const QList<SnapshotDifference> differences = SnapshotDifference::between(
        *left.snapshot, *right.snapshot, System::information()->userAccessLevel());
    if (line.has(OptionName::Json))
        writeJson(differences, SideNotes(left), SideNotes(right), console);
    else if (line.has(Csv))
        writeCsv(differences, console);
    else
        writeText(differences, SideNotes(left), SideNotes(right), console);
    return differences.isEmpty() ? eExitCode::Good : eExitCode::Differences;
}

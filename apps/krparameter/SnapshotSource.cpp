#include "apps/krparameter/SnapshotSource.h"

#include "apps/host/DriveProject.h"
#include "apps/host/ElementSelection.h"
#include "apps/host/PropertyFilter.h"
#include "apps/host/SnapshotFile.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/Session.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <algorithm>

namespace {

constexpr qsizetype HelpWidth = 88;

QString lastName(const QString &path)
{
    return QFileInfo(QDir::cleanPath(path)).fileName();
}

/// The last name of the path, or the path where another one has the same.
QString titleOf(const QString &path, const QStringList &paths)
{
    const QString name = lastName(path);
    const auto count = std::count_if(paths.begin(), paths.end(),
        [&name](const QString &other) { return lastName(other) == name; });
    return count > 1 || name.isEmpty() ? path : name;
}

/// Names in lines of the help.
QString wrapped(const QStringList &names)
{
    QString text;
    qsizetype lineBegin = 0;
    for (const QString &name : names) {
        const bool isFull = text.size() - lineBegin + name.size() > HelpWidth;
        text += isFull ? QStringLiteral("\n") : text.isEmpty() ? QString() : QStringLiteral(" ");
        lineBegin = isFull ? text.size() : lineBegin;
        text += name;
    }
    return text + u'\n';
}

} // namespace

Option SnapshotSource::filterOption()
{
    return {OptionName::Filter, tr("EIGENSCHAFT=WERT"), tr("nur diese Werte, mehrfach möglich")};
}

QString SnapshotSource::filterDetails()
{
    return filterRules() + tr("Ein Element, das auf einer Achse nicht passt, fehlt auf allen.\n")
        + filterProperties();
}

QString SnapshotSource::comparisonFilterDetails()
{
    return filterRules()
        + tr("Ein Element, das auf einer Achse einer Seite passt, wird auf allen Achsen aller "
             "Seiten\n"
             "verglichen.\n")
        + filterProperties();
}

QString SnapshotSource::filterRules()
{
    return tr("Verschiedene Eigenschaften in --filter gelten zugleich, Werte derselben wahlweise. "
              "Ein\n"
              "Wert gilt ganz und mit Groß- und Kleinschreibung; Address hat die Form "
              "1.H000[00000].\n");
}

QString SnapshotSource::filterProperties()
{
    return tr("Eigenschaften sind:\n") + wrapped(ParameterValueSnapshot::filterPropertyNames());
}

SnapshotSource::SnapshotSource(const CommandLine &line, Console &console, eSession afterwards)
    : m_line(line)
    , m_console(console)
    , m_afterwards(afterwards)
{
}

SnapshotSource::~SnapshotSource() = default;

QStringList SnapshotSource::paths() const
{
    QStringList paths = m_line.arguments();
    if (m_line.has(OptionName::Project))
        paths.prepend(m_line.value(OptionName::Project));
    return paths;
}

QStringList SnapshotSource::inputs() const
{
    QStringList inputs = paths();
    if (m_line.has(OptionName::Device))
        inputs.append(m_line.value(OptionName::Device));
    return inputs;
}

eExitCode SnapshotSource::open()
{
    const QStringList conditions = m_line.values(OptionName::Filter);
    if (!conditions.isEmpty()) {
        QString error;
        m_filter = PropertyFilter::of(conditions, error);
        if (!m_filter)
            return fail(eExitCode::Usage, error);
        for (const QString &property : PropertyFilter::unknownProperties(conditions)) {
            m_console.report(
                tr("Die Eigenschaft \"%1\" ist unbekannt und antwortet wie \"Coordinate\".")
                    .arg(property));
        }
    }
    return Session(m_line, m_console).readOptions();
}

eExitCode SnapshotSource::freeze(const QStringList &paths)
{
    for (const QString &path : paths) {
        if (const eExitCode code = openSide(path, titleOf(path, paths)); code != eExitCode::Good)
            return code;
        take(m_snapshots.back(), m_filter.get());
    }
    return eExitCode::Good;
}

eExitCode SnapshotSource::freezeDefaults()
{
    if (const eExitCode code = openDefaults(); code != eExitCode::Good)
        return code;
    take(m_snapshots.back(), m_filter.get());
    return eExitCode::Good;
}

eExitCode SnapshotSource::freezeToCompare(const QStringList &paths, eDefaults defaults)
{
    if (!m_filter) {
        const eExitCode code = defaults == eDefaults::Prepend ? freezeDefaults() : eExitCode::Good;
        return code == eExitCode::Good ? freeze(paths) : code;
    }
    eExitCode code = defaults == eDefaults::Prepend ? openDefaults() : eExitCode::Good;
    for (const QString &path : paths) {
        if (code == eExitCode::Good)
            code = openSide(path, titleOf(path, paths));
    }
    if (code == eExitCode::Good)
        takeSelected();
    return code;
}

eExitCode SnapshotSource::openSide(const QString &path, const QString &title)
{
    const QFileInfo place(path);
    // A project that is missing is one: the session tells so.
    if (place.isDir() || (!place.exists() && path == m_line.value(OptionName::Project)))
        return openDevice(path, title);
    if (!place.exists())
        return fail(
            eExitCode::UnreadableInput, tr("%1: weder Projektordner noch Snapshot").arg(path));
    if (m_filter) {
        return fail(
            eExitCode::Usage, tr("--filter wählt aus Projekten; %1 ist ein Snapshot").arg(path));
    }
    return openFile(path, title);
}

eExitCode SnapshotSource::openDefaults()
{
    return openDevice(std::nullopt, tr("Default"));
}

eExitCode SnapshotSource::openDevice(const std::optional<QString> &folder, const QString &title)
{
    auto session = std::make_unique<Session>(m_line, m_console);
    session->setFolder(folder);
    if (const eExitCode code = session->open(); code != eExitCode::Good)
        return code;
    auto snapshot = std::make_unique<ParameterValueSnapshot>(&session->project().container());
    m_snapshots.push_back({title, std::move(snapshot), std::move(session)});
    return eExitCode::Good;
}

eExitCode SnapshotSource::openFile(const QString &fileName, const QString &title)
{
    auto snapshot = std::make_unique<ParameterValueSnapshot>(nullptr);
    if (const QString error = SnapshotFile::read(fileName, *snapshot); !error.isEmpty())
        return fail(eExitCode::UnreadableInput, error);
    m_snapshots.push_back({title, std::move(snapshot), nullptr});
    return eExitCode::Good;
}

void SnapshotSource::take(TitledSnapshot &side, const Filter *filter)
{
    // A file holds its texts already.
    if (!side.session)
        return;
    if (filter)
        side.snapshot->apply(*filter);
    else
        side.snapshot->applyNoFilter();
    side.snapshot->disconnectFromSourceContainer();
    if (m_afterwards == eSession::Close)
        side.session.reset();
}

void SnapshotSource::takeSelected()
{
    ElementSelection selection;
    for (const TitledSnapshot &side : m_snapshots)
        selection.add(side.session->project().container(), *m_filter);
    for (TitledSnapshot &side : m_snapshots)
        take(side, &selection);
}

eExitCode SnapshotSource::fail(eExitCode code, const QString &reason)
{
    return Session(m_line, m_console).fail(code, reason);
}

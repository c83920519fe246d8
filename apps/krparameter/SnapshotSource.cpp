#include "apps/krparameter/SnapshotSource.h"

#include "apps/host/DriveProject.h"
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
    return tr("Verschiedene Eigenschaften in --filter gelten zugleich, Werte derselben wahlweise. "
              "Ein\n"
              "Element, das auf einer Achse nicht passt, fehlt auf allen. Eigenschaften sind:\n")
        + wrapped(ParameterValueSnapshot::filterPropertyNames());
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
        if (const eExitCode code = freezePath(path); code != eExitCode::Good)
            return code;
        m_snapshots.back().title = titleOf(path, paths);
    }
    return eExitCode::Good;
}

eExitCode SnapshotSource::freezeDefaults()
{
    return freezeDevice(std::nullopt, tr("Default"));
}

eExitCode SnapshotSource::freezePath(const QString &path)
{
    const QFileInfo place(path);
    // A project that is missing is one: the session tells so.
    if (place.isDir() || (!place.exists() && path == m_line.value(OptionName::Project)))
        return freezeDevice(path, path);
    if (!place.exists())
        return fail(
            eExitCode::UnreadableInput, tr("%1: weder Projektordner noch Snapshot").arg(path));
    if (m_filter) {
        return fail(
            eExitCode::Usage, tr("--filter wählt aus Projekten; %1 ist ein Snapshot").arg(path));
    }
    auto snapshot = std::make_unique<ParameterValueSnapshot>(nullptr);
    if (const QString error = SnapshotFile::read(path, *snapshot); !error.isEmpty())
        return fail(eExitCode::UnreadableInput, error);
    m_snapshots.push_back({path, std::move(snapshot), nullptr});
    return eExitCode::Good;
}

eExitCode SnapshotSource::freezeDevice(const std::optional<QString> &folder, const QString &title)
{
    auto session = std::make_unique<Session>(m_line, m_console);
    session->setFolder(folder);
    if (const eExitCode code = session->open(); code != eExitCode::Good)
        return code;
    auto snapshot = std::make_unique<ParameterValueSnapshot>(&session->project().container());
    if (m_filter)
        snapshot->apply(*m_filter);
    else
        snapshot->applyNoFilter();
    snapshot->disconnectFromSourceContainer();
    if (m_afterwards == eSession::Close)
        session.reset();
    m_snapshots.push_back({title, std::move(snapshot), std::move(session)});
    return eExitCode::Good;
}

eExitCode SnapshotSource::fail(eExitCode code, const QString &reason)
{
    return Session(m_line, m_console).fail(code, reason);
}

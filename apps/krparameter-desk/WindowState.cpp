#include "apps/krparameter-desk/WindowState.h"

#include "apps/krparameter-desk/ColumnFitter.h"
#include "apps/krparameter-desk/SelectorBar.h"

#include <QtCore/QSettings>
#include <QtWidgets/QMainWindow>

namespace {

/// Grows when docks or columns change, so that an older state is left aside.
constexpr int Version = 1;

constexpr QLatin1StringView Geometry("window/geometry");
constexpr QLatin1StringView Docks("window/docks");
constexpr QLatin1StringView Columns("window/columns2");
constexpr QLatin1StringView Language("language");
constexpr QLatin1StringView AccessLevel("accessLevel");

} // namespace

WindowState::WindowState(QSettings &settings)
    : m_settings(settings)
{
}

void WindowState::save(const QMainWindow &window, const ColumnFitter &columns)
{
    m_settings.setValue(Geometry, window.saveGeometry());
    m_settings.setValue(Docks, window.saveState(Version));
    m_settings.setValue(Columns, columns.state());
}

void WindowState::restore(QMainWindow &window, ColumnFitter &columns) const
{
    window.restoreGeometry(m_settings.value(Geometry).toByteArray());
    window.restoreState(m_settings.value(Docks).toByteArray(), Version);
    columns.restore(m_settings.value(Columns).toByteArray());
}

void WindowState::setLanguage(const QString &language)
{
    m_settings.setValue(Language, language);
}

QString WindowState::language() const
{
    return m_settings.value(Language).toString();
}

void WindowState::setAccessLevel(quint32 level)
{
    m_settings.setValue(AccessLevel, level);
}

std::optional<quint32> WindowState::accessLevel() const
{
    bool isNumber = false;
    const quint32 level = m_settings.value(AccessLevel).toUInt(&isNumber);
    if (!isNumber || level > SelectorBar::GreatestAccessLevel)
        return {};
    return level;
}

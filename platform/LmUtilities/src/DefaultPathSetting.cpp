#include <LmUtilities/DefaultPathSetting.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>
#include <QtCore/QStandardPaths>

namespace {

/// An application that named no organization shares these with its sisters: settings cannot be
/// stored without one, and the name of an executable is no name of a product.
QSettings userSettings()
{
    const QString organization = QCoreApplication::organizationName();
    const bool named = !organization.isEmpty();
    return QSettings(QSettings::defaultFormat(), QSettings::UserScope,
        named ? organization : QStringLiteral("KrPlatform"),
        named ? QCoreApplication::applicationName() : QStringLiteral("KrPlatform"));
}

QString keyOf(int kind)
{
    return QStringLiteral("DefaultPath/%1").arg(kind);
}

} // namespace

DefaultPathSetting::DefaultPathSetting(int kind)
    : m_kind(kind)
{
}

QString DefaultPathSetting::path() const
{
    const QString stored = userSettings().value(keyOf(m_kind)).toString();
    return stored.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation)
                            : stored;
}

void DefaultPathSetting::setPath(const QString &path)
{
    QSettings settings = userSettings();
    if (path.isEmpty())
        settings.remove(keyOf(m_kind));
    else
        settings.setValue(keyOf(m_kind), path);
}

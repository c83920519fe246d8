#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

/// Settings of a test's own, which nobody else reads and which go with it.
class TestSettings {
public:
    TestSettings()
    {
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_folder.path());
        QCoreApplication::setOrganizationName(QStringLiteral("KrTest"));
    }
    Q_DISABLE_COPY_MOVE(TestSettings)

private:
    QTemporaryDir m_folder;
};

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

class ColumnFitter;
class QMainWindow;
class QSettings;

/// What the desk keeps of its window from one run to the next. Settings that are missing or make no
/// sense leave everything as it is.
class WindowState {
public:
    /// **Owner** of the settings the caller.
    explicit WindowState(QSettings &settings);

    void save(const QMainWindow &window, const ColumnFitter &columns);
    void restore(QMainWindow &window, ColumnFitter &columns) const;

    void setLanguage(const QString &language);
    QString language() const;
    void setAccessLevel(quint32 level);
    /// Empty for none, and for one that there is not.
    std::optional<quint32> accessLevel() const;

private:
    QSettings &m_settings;
};

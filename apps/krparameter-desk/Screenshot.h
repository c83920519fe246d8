#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

class DeskWindow;
struct DeskOptions;

/// Brings the desk into the state that a picture is to show, and takes the picture.
class Screenshot {
    Q_DECLARE_TR_FUNCTIONS(Screenshot)

public:
    /// **Owner** of both the caller.
    Screenshot(DeskWindow &window, const DeskOptions &options);

    /// Empty: the file is written; otherwise what went wrong.
    QString take();

private:
    QString prepare();
    QString write(const QString &address, const QString &text);
    QString leaveOpen(const QString &address, const QString &text);
    QString goTo(const QString &address);

    DeskWindow &m_window;
    const DeskOptions &m_options;
};

#pragma once

#include "apps/krparameter-desk/DriveAddress.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QList>
#include <QtCore/QPair>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <optional>

/// What the command line of the desk says.
struct DeskOptions {
    Q_DECLARE_TR_FUNCTIONS(DeskOptions)

public:
    enum class ePage { Parameters, Comparison };

    /// An address text and what is typed there.
    using Input = QPair<QString, QString>;

    /// `words` begin with the program's name. Where they do not fit, `error` says why; where help or
    /// version is asked for, `answer` is what to print.
    static std::optional<DeskOptions> read(
        const QStringList &words, QString &error, QString &answer);
    /// The language that the words ask for, so that everything can be said in it; empty where they
    /// ask for none that there is.
    static QString languageOf(const QStringList &words);
    /// Whether the program will only print, or render itself; asked before there is an application.
    static bool needsNoScreen(int argc, const char *const argv[]);

    QString device;
    QString project;
    std::optional<DriveAddress> drive;
    /// The description of another device whose defaults stand first in the comparison; empty: none.
    QString earlierDevice;
    /// Empty: as it was left.
    QString language;
    std::optional<quint32> accessLevel;

    /// Empty: no picture.
    QString screenshotFile;
    QSize size {1280, 800};
    ePage page = ePage::Parameters;
    QString searchedText;
    QList<Input> writes;
    /// Typed last and left open.
    std::optional<Input> edit;
};

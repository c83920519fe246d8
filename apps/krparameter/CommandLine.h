#pragma once

#include "apps/krparameter/Option.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QSet>
#include <QtCore/QStringList>

/// The words of a command line, parted into command, arguments and options.
///
///     words  = *option command *(option / argument) [ "--" *argument ]
///     option = "--" name [ ("=" / next word) value ] / "-" letter [ next word ]
///
/// Options may stand before and behind the command. A "-" that is not followed by exactly one letter
/// begins an argument, so that negative numbers need no "--".
class CommandLine {
    Q_DECLARE_TR_FUNCTIONS(CommandLine)

public:
    /// `options` are those of all commands; which of them a command takes is asked afterwards.
    /// Stops at the first word that does not fit; error() then says why.
    CommandLine(const QStringList &words, const QList<Option> &options);

    QString error() const { return m_error; }
    /// Empty where there is none.
    QString command() const { return m_command; }
    /// Behind the command.
    QStringList arguments() const { return m_arguments; }
    QStringList optionNames() const { return m_values.keys(); }
    bool has(const QString &option) const { return m_values.contains(option); }
    /// Of an option that was given more than once the last; empty where it was not given.
    QString value(const QString &option) const;
    /// In the order given.
    QStringList values(const QString &option) const { return m_values.value(option); }

private:
    struct Word {
        /// Null: the word is not an option.
        const Option *option = nullptr;
        bool hasValue = false;
        QString value;
    };

    void parse(const QStringList &words, const QList<Option> &options);
    /// Sets error() for an option that there is not.
    Word read(const QString &word, const QList<Option> &options);
    void takeArgument(const QString &word);

    QString m_error;
    QString m_command;
    QStringList m_arguments;
    /// Option name to the values given; a switch has empty ones.
    QHash<QString, QStringList> m_values;
};

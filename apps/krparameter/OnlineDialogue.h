#pragma once

#include "apps/host/ValuePlace.h"
#include "apps/krparameter/OnlineAction.h"
#include "apps/krparameter/eExitCode.h"
#include "apps/online/OnlineSession.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>

#include <memory>
#include <optional>

class CommandLine;
class Console;
class Session;
class TrialCopy;
class UnreadValues;
class ValueView;

/// What an online command says to the drive and to the user; each call waits for its end.
class OnlineDialogue {
    Q_DECLARE_TR_FUNCTIONS(OnlineDialogue)

public:
    /// **Owner** the caller of all; they outlive the dialogue.
    OnlineDialogue(const CommandLine &line, Session &session, Console &console, quint16 port,
        const OnlineRules &rules);

    /// Calls the drive. Reports why it cannot be reached.
    eExitCode connectToDrive();
    /// `words` as behind the verb.
    eExitCode get(const QStringList &words);
    eExitCode set(const QStringList &words);
    /// For that long, or until the drive is gone where it is 0.
    eExitCode watch(const QStringList &words, int seconds);
    /// Starts it and waits for its end, at most that long where it is not 0.
    eExitCode action(const QString &word, int seconds);
    eExitCode upload();
    eExitCode download();

private:
    enum class eShow { All, WhatIsNoted };

    /// The values of the whole drive: units, limits and choices follow from them.
    std::optional<OnlineReport> readAll();
    /// Likewise for who needs the values of these places. Reports what was not read; fails where one of
    /// them is needed, or may be and the user does not want to go on without.
    eExitCode readFor(const QList<ValuePlace> &places);
    /// `wayOut` is what the user may do about it.
    eExitCode failAsIncomplete(
        const UnreadValues &unread, const OnlineReport &report, const QString &wayOut);
    eExitCode failAsGone(eExitCode code);
    eExitCode placesOf(const QStringList &words, QList<ValuePlace> &places);
    void show(const OnlineOutcome &outcome, eShow what);
    void showValue(const ValuePlace &place, TrialCopy &trial);
    bool isJson() const;

    const CommandLine &m_line;
    Session &m_session;
    Console &m_console;
    std::unique_ptr<OnlineSession> m_online;
    /// Why the drive was lost last.
    QString m_failure;
};

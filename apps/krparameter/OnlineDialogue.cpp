#include "apps/krparameter/OnlineDialogue.h"

#include "apps/host/ActionForm.h"
#include "apps/host/DeviceState.h"
#include "apps/host/DriveProject.h"
#include "apps/host/TrialCopy.h"
#include "apps/krparameter/ActionEnding.h"
#include "apps/krparameter/CommandLine.h"
#include "apps/krparameter/CommandOptions.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/NetworkOptions.h"
#include "apps/krparameter/OnlineWaiting.h"
#include "apps/krparameter/OnlineWatch.h"
#include "apps/krparameter/OutcomeView.h"
#include "apps/krparameter/Session.h"
#include "apps/krparameter/SetCommand.h"
#include "apps/krparameter/UnreadValues.h"
#include "apps/krparameter/ValueView.h"

#include <KrParameterInstance/ParameterSetup.h>

#include <QtCore/QJsonObject>

#include <algorithm>

using eKind = OnlineOutcome::eKind;
using eMatter = UnreadValues::eMatter;

namespace {

constexpr quint16 ProgressElement = 1;

} // namespace

OnlineDialogue::OnlineDialogue(const CommandLine &line, Session &session, Console &console,
    quint16 port, const OnlineRules &rules)
    : m_line(line)
    , m_session(session)
    , m_console(console)
    , m_online(OnlineSession::overModbusTcp(
          session.project().container(), NetworkOptions::host(line), port, rules))
{
    QObject::connect(m_online.get(), &OnlineSession::connectionFailed, m_online.get(),
        [this](const QString &reason) { m_failure = reason; });
}

eExitCode OnlineDialogue::connectToDrive()
{
    if (OnlineWaiting::goOnline(*m_online))
        return eExitCode::Good;
    return m_session.fail(
        eExitCode::UnreadableInput, tr("der Antrieb ist nicht erreichbar: %1").arg(m_failure));
}

eExitCode OnlineDialogue::get(const QStringList &words)
{
    QList<ValuePlace> places;
    if (const eExitCode code = placesOf(words, places); code != eExitCode::Good)
        return code;
    const std::optional<OnlineReport> report = readAll();
    if (!report)
        return failAsGone(eExitCode::UnreadableInput);
    const UnreadValues unread(*report);
    eExitCode code = unread.isEmpty() ? eExitCode::Good : failAsIncomplete(unread, *report, {});
    for (const OnlineOutcome &outcome : report->outcomes()) {
        if (outcome.isGood() || !places.contains(outcome.place))
            continue;
        show(outcome, eShow::All);
        places.removeOne(outcome.place);
        code = eExitCode::UnreadableInput;
    }
    TrialCopy trial(m_session.project());
    for (const ValuePlace &place : std::as_const(places))
        showValue(place, trial);
    return code;
}

eExitCode OnlineDialogue::set(const QStringList &words)
{
    QList<SetCommand::Write> writes;
    if (const eExitCode code = SetCommand::writesOf(words, m_session, writes);
        code != eExitCode::Good)
        return code;
    QList<ValuePlace> needed;
    for (const SetCommand::Write &write : std::as_const(writes))
        needed.append(write.place);
    // What is typed is checked by limits and units that the drive has.
    if (const eExitCode code = readFor(needed); code != eExitCode::Good)
        return code;
    QList<ValuePlace> places;
    const ParameterContainer &container = m_session.project().container();
    QHash<ValuePlace, QString> asked;
    eExitCode code = eExitCode::Good;
    for (const SetCommand::Write &write : std::as_const(writes)) {
        code = SetCommand::write(write, m_session);
        if (code != eExitCode::Good)
            break;
        places.append(write.place);
        // The next one may lead to functions that change it.
        asked.insert(write.place,
            container.readValueNative(
                write.place.livingSpace, write.place.coordinate, write.place.element, false));
    }
    // Also what the drive has already: the answer says so.
    const auto report =
        OnlineWaiting::transfer(*m_online, [&] { return m_online->writeValues(places, asked); });
    if (!report)
        return failAsGone(eExitCode::WriteFailed);
    for (const OnlineOutcome &outcome : report->outcomes())
        show(outcome, eShow::All);
    return std::max(code, OutcomeView::writeCode(*report));
}

eExitCode OnlineDialogue::watch(const QStringList &words, int seconds)
{
    QList<ValuePlace> places;
    if (const eExitCode code = placesOf(words, places); code != eExitCode::Good)
        return code;
    if (const eExitCode code = readFor(places); code != eExitCode::Good)
        return code;
    ParameterContainer &container = m_session.project().container();
    TrialCopy trial(m_session.project());
    // Before the watch, so that the copy knows a value when it is shown.
    QObject following;
    QObject::connect(&container, &ParameterProvider::parameterValueChanged, &following,
        [&container, &trial](const ParameterAddress &address) {
            const auto parameter = container.parameterInformation(address.coordinate());
            if (!parameter)
                return;
            const ValuePlace place = ValuePlace::of(address, *parameter);
            trial.follow(place, ValueView(*parameter, place).native());
        });
    OnlineWatch watch(container, *m_online, places);
    QObject::connect(&watch, &OnlineWatch::noted, &watch,
        [this](const QString &line) { m_console.report(line); });
    QObject::connect(
        &watch, &OnlineWatch::valueShown, &watch, [this, &trial](const ValuePlace &place) {
            showValue(place, trial);
            m_console.flush();
        });
    return watch.run(seconds) ? eExitCode::Good : eExitCode::UnreadableInput;
}

eExitCode OnlineDialogue::action(const QString &word, int seconds)
{
    QList<ValuePlace> places;
    if (const eExitCode code = placesOf({word}, places); code != eExitCode::Good)
        return code;
    ParameterContainer &container = m_session.project().container();
    const ValuePlace control {places.constFirst().coordinate, places.constFirst().livingSpace, 0};
    const auto parameter = container.parameterInformation(control.coordinate);
    if (!ActionForm::isAction(*parameter)) {
        return m_session.fail(
            eExitCode::Usage, tr("Parameter %1 ist keine Aktion").arg(control.coordinate.toText()));
    }
    // Whether it may start follows from the drive's state.
    QList<ValuePlace> needed {control, {control.coordinate, control.livingSpace, ProgressElement}};
    if (ActionForm::needsDisabledAxis(*parameter))
        needed.append({DeviceState::coordinate(), control.livingSpace, 0});
    if (const eExitCode code = readFor(needed); code != eExitCode::Good)
        return code;
    const ValueView view(*parameter, control);
    if (const QString refusal = view.writeRefusal(); !refusal.isEmpty())
        return m_session.fail(eExitCode::NotWritable, refusal);
    OnlineAction action(container, *m_online, control);
    QObject::connect(&action, &OnlineAction::noted, &action,
        [this](const QString &line) { m_console.report(line); });
    const std::optional<ActionRun::eEnd> end = action.run(seconds);
    if (end == ActionRun::eEnd::Done || end == ActionRun::eEnd::BrokenOff) {
        if (isJson())
            m_console.writeLine({{QStringLiteral("address"), view.address()},
                {QStringLiteral("state"), action.stateText()}});
        else
            m_console.writeLine(ValueView::singleLine(action.stateText()));
    }
    const QString sentence = ActionEnding::sentence(end, view.address());
    if (!sentence.isEmpty())
        return m_session.fail(ActionEnding::codeOf(end), sentence);
    return end == ActionRun::eEnd::Done ? eExitCode::Good : failAsGone(ActionEnding::codeOf(end));
}

eExitCode OnlineDialogue::upload()
{
    const std::optional<OnlineReport> report = readAll();
    if (!report)
        return failAsGone(eExitCode::UnreadableInput);
    for (const OnlineOutcome &outcome : report->outcomes())
        show(outcome, eShow::WhatIsNoted);
    m_console.report(tr("Gelesen: %1").arg(report->summary()));
    const bool isComplete = report->count(eKind::Lost) == 0 && report->count(eKind::Refused) == 0;
    if (!isComplete && !m_line.has(OptionName::AllowLoss)) {
        return m_session.fail(eExitCode::UnreadableInput,
            tr("nicht alle Werte wurden gelesen; --allow-loss speichert trotzdem"));
    }
    if (m_session.hasFolder())
        return SetCommand::save(m_line, m_session, m_console);
    return isComplete ? eExitCode::Good : eExitCode::UnreadableInput;
}

eExitCode OnlineDialogue::download()
{
    const auto report = OnlineWaiting::transfer(*m_online, [this] { return m_online->download(); });
    if (!report)
        return failAsGone(eExitCode::WriteFailed);
    for (const OnlineOutcome &outcome : report->outcomes())
        show(outcome, eShow::WhatIsNoted);
    m_console.report(tr("Geschrieben und zurückgelesen: %1").arg(report->summary()));
    return OutcomeView::writeCode(*report);
}

std::optional<OnlineReport> OnlineDialogue::readAll()
{
    return OnlineWaiting::transfer(*m_online, [this] { return m_online->upload(); });
}

eExitCode OnlineDialogue::readFor(const QList<ValuePlace> &places)
{
    const std::optional<OnlineReport> report = readAll();
    if (!report)
        return failAsGone(eExitCode::UnreadableInput);
    const UnreadValues unread(*report);
    if (unread.isEmpty())
        return eExitCode::Good;
    // A drive that is gone meanwhile has lost them.
    const bool isOnline = m_online->state() == OnlineSession::eState::Online;
    const UnreadValues::eMatter matter =
        isOnline ? unread.matterFor(places, m_session.project().container()) : eMatter::Needed;
    const bool isAllowed = m_line.has(OptionName::DespiteUnread);
    if (matter == eMatter::Needed)
        return failAsIncomplete(unread, *report, {});
    if (matter == eMatter::Unknown && !isAllowed)
        return failAsIncomplete(unread, *report, tr("; --despite-unread geht ohne sie weiter"));
    for (const QString &line : unread.lines())
        m_console.report(line);
    m_console.report(tr("Ohne diese Werte geht es weiter."));
    return eExitCode::Good;
}

eExitCode OnlineDialogue::failAsIncomplete(
    const UnreadValues &unread, const OnlineReport &report, const QString &wayOut)
{
    for (const QString &line : unread.lines())
        m_console.report(line);
    return m_session.fail(eExitCode::UnreadableInput,
        tr("nicht alle Werte des Antriebs wurden gelesen: %1").arg(report.summary()) + wayOut);
}

eExitCode OnlineDialogue::failAsGone(eExitCode code)
{
    return m_session.fail(code, tr("der Antrieb ist fort: %1").arg(m_failure));
}

eExitCode OnlineDialogue::placesOf(const QStringList &words, QList<ValuePlace> &places)
{
    for (const QString &word : words) {
        QString error;
        const QList<ValuePlace> found = m_session.find(word, error);
        if (found.isEmpty())
            return m_session.fail(eExitCode::Usage, error);
        places += found;
    }
    return eExitCode::Good;
}

void OnlineDialogue::show(const OnlineOutcome &outcome, eShow what)
{
    if (isJson())
        m_console.writeLine(OutcomeView::toJson(outcome));
    else if (what == eShow::All || !OutcomeView::isExpected(outcome.kind))
        m_console.writeLine(ValueView::singleLine(outcome.toText()));
}

void OnlineDialogue::showValue(const ValuePlace &place, TrialCopy &trial)
{
    const auto parameter = m_session.project().container().parameterInformation(place.coordinate);
    const ValueView view(*parameter, place);
    if (isJson()) {
        m_console.writeLine(view.toNotedJson(trial));
        return;
    }
    m_console.writeLine(QStringLiteral("%1  %2: %3")
                            .arg(view.address(), ValueView::singleLine(view.name()),
                                ValueView::singleLine(view.display())));
    if (const QString note = view.readBackNote(trial); !note.isEmpty())
        m_console.writeLine(ValueView::noteLine(note));
}

bool OnlineDialogue::isJson() const
{
    return m_line.has(OptionName::Json);
}

#include "apps/krparameter/Consequences.h"

#include "apps/host/DriveProject.h"
#include "apps/krparameter/Console.h"
#include "apps/krparameter/ValueView.h"

namespace {

bool areLimitsEqual(const auto &a, const auto &b)
{
    return a.lower == b.lower && a.upper == b.upper;
}

bool areUnitsEqual(const auto &a, const auto &b)
{
    return a.unit == b.unit && a.nativeUnit == b.nativeUnit;
}

/// What is not there, as a line shows it.
QString orNone(const QString &text)
{
    return text.isEmpty() ? QStringLiteral("-") : text;
}

} // namespace

Consequences::Consequences(DriveProject &project)
    : m_project(project)
    , m_trialBefore(project)
{
    for (const ValuePlace &place : ValuePlace::allOf(project.container()))
        m_before.append({place, stateOf(place)});
}

void Consequences::write(const QSet<ValuePlace> &written, bool asJson, Console &console)
{
    TrialCopy now(m_project);
    for (const Change &change : changes(written)) {
        if (asJson)
            writeJson(change, now, console);
        else
            writeText(change, now, console);
    }
}

Consequences::State Consequences::stateOf(const ValuePlace &place) const
{
    const auto parameter = m_project.container().parameterInformation(place.coordinate);
    if (!parameter || !parameter->hasInstance(place.livingSpace))
        return {};
    const ValueView view(*parameter, place);
    return {
        .display = view.display(),
        .value = view.value(),
        .native = view.native(),
        .lower = parameter->lowerLimitText(place.livingSpace, place.element),
        .upper = parameter->upperLimitText(place.livingSpace, place.element),
        .unit = view.unit(),
        .nativeUnit = view.nativeUnit(),
        .isVisible = parameter->isVisible(place.livingSpace, place.element),
    };
}

QList<Consequences::Change> Consequences::changes(const QSet<ValuePlace> &written) const
{
    QList<Change> changed;
    for (const auto &[place, before] : m_before) {
        const State after = stateOf(place);
        const bool isWritten = written.contains(place);
        const bool isOther = (!isWritten && before.display != after.display)
            || !areUnitsEqual(before, after) || !areLimitsEqual(before, after)
            || before.isVisible != after.isVisible;
        if (isOther && (before.isVisible || after.isVisible))
            changed.append({place, before, after, isWritten});
    }
    return changed;
}

void Consequences::writeText(const Change &change, TrialCopy &now, Console &console)
{
    const auto parameter = m_project.container().parameterInformation(change.place.coordinate);
    if (!parameter)
        return;
    const ValueView view(*parameter, change.place);
    const QString heading =
        QStringLiteral("  %1  %2: ").arg(view.address(), ValueView::singleLine(view.name()));
    if (change.before.isVisible != change.after.isVisible) {
        console.writeLine(
            heading + (change.after.isVisible ? tr("jetzt sichtbar") : tr("jetzt verborgen")));
    }
    if (!change.after.isVisible)
        return;
    const auto writeStep = [&](const QString &step, const QString &before, const QString &after) {
        if (before != after) {
            console.writeLine(
                heading + step.arg(ValueView::singleLine(before), ValueView::singleLine(after)));
        }
    };
    if (!change.isWritten) {
        writeStep(QStringLiteral("%1 -> %2"), change.before.display, change.after.display);
        const bool isShown = change.before.display != change.after.display;
        const QString note = isShown ? view.readBackNote(now) : QString();
        if (!note.isEmpty())
            console.writeLine(QStringLiteral("  ") + ValueView::noteLine(note));
    }
    writeStep(tr("Einheit %1 -> %2"), orNone(change.before.unit), orNone(change.after.unit));
    writeStep(tr("native Einheit %1 -> %2"), orNone(change.before.nativeUnit),
        orNone(change.after.nativeUnit));
    if (!areLimitsEqual(change.before, change.after)) {
        console.writeLine(heading
            + tr("Grenzen %1 -> %2")
                  .arg(range(change.place, change.before, m_trialBefore),
                      range(change.place, change.after, now)));
    }
}

void Consequences::writeJson(const Change &change, TrialCopy &now, Console &console)
{
    const auto parameter = m_project.container().parameterInformation(change.place.coordinate);
    if (!parameter)
        return;
    const auto shown = [&](const QString &native, TrialCopy &trial) {
        return native.isEmpty() ? QString() : trial.displayText(change.place, native);
    };
    const auto object = [&](const State &state, TrialCopy &trial) {
        return QJsonObject {
            {QStringLiteral("display"), state.display},
            {QStringLiteral("value"), state.value},
            {QStringLiteral("native"), state.native},
            {QStringLiteral("unit"), state.unit},
            {QStringLiteral("nativeUnit"), state.nativeUnit},
            {QStringLiteral("lowerLimit"), shown(state.lower, trial)},
            {QStringLiteral("upperLimit"), shown(state.upper, trial)},
            {QStringLiteral("visible"), state.isVisible},
        };
    };
    const ValueView view(*parameter, change.place);
    QJsonObject after = object(change.after, now);
    if (const QString note = view.readBackNote(now); !note.isEmpty())
        after.insert(QStringLiteral("note"), note);
    console.writeLine(QJsonObject {
        {QStringLiteral("consequence"), view.address()},
        {QStringLiteral("name"), view.name()},
        {QStringLiteral("before"), object(change.before, m_trialBefore)},
        {QStringLiteral("after"), after},
    });
}

QString Consequences::range(const ValuePlace &place, const State &state, TrialCopy &trial)
{
    const auto shown = [&](const QString &native) {
        return native.isEmpty() ? QStringLiteral("-") : trial.displayText(place, native);
    };
    return tr("%1 bis %2").arg(shown(state.lower), shown(state.upper));
}

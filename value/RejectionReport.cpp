#include "value/RejectionReport.h"

namespace {

struct Problem {
    quint32 code;
    const char *text;
};

constexpr const char *InvalidText =
    QT_TRANSLATE_NOOP("RejectionReport", "Wert \"%1\" ist ungültig");

constexpr Problem Problems[] = {
    {RejectionReport::TooSmall, QT_TRANSLATE_NOOP("RejectionReport", "Wert \"%1\" ist zu klein")},
    {RejectionReport::TooLarge, QT_TRANSLATE_NOOP("RejectionReport", "Wert \"%1\" ist zu groß")},
};

const char *textOf(quint32 code)
{
    for (const Problem &problem : Problems) {
        if (problem.code == code)
            return problem.text;
    }
    return InvalidText;
}

/// Joined after the heading is complete, so that a "%1" in a typed text stays what it is.
QString joined(const QString &heading, const QString &problem)
{
    return heading + QLatin1StringView(" - ") + problem;
}

} // namespace

QString RejectionReport::problemText(const QString &shownValue, quint32 code)
{
    return code == Acceptable ? QString() : tr(textOf(code)).arg(shownValue);
}

QString RejectionReport::adoptingMessage(const QString &addressText, const QString &problem)
{
    return joined(tr("Parameter %1: Fehler beim Übernehmen des Werts").arg(addressText), problem);
}

QString RejectionReport::preparingMessage(const QString &addressText, const QString &problem)
{
    return joined(tr("Parameter %1: Fehler beim Vorbereiten des Werts").arg(addressText), problem);
}

QString RejectionReport::rejectionMessage(
    const QString &addressText, const QString &shownValue, quint32 code)
{
    return adoptingMessage(addressText, problemText(shownValue, code));
}

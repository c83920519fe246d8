#include "apps/host/ExportIssue.h"

#include "apps/host/Rfc4180Text.h"

namespace {

/// In the order of ExportIssue::eKind.
constexpr const char *KindTexts[] = {
    QT_TRANSLATE_NOOP("ExportIssue", "enthält ein Anführungszeichen"),
    QT_TRANSLATE_NOOP("ExportIssue", "enthält ein Zeilenende"),
    QT_TRANSLATE_NOOP("ExportIssue", "wird von Tabellenprogrammen als Formel ausgeführt"),
};
constexpr const char *KindKeys[] = {"quote", "lineEnd", "formula"};

void appendIssues(QList<ExportIssue> &issues, const QString &address, ExportIssue::eField field,
    const QString &text)
{
    using eKind = ExportIssue::eKind;
    if (text.contains(u'"'))
        issues.append({address, field, eKind::Quote, text});
    if (text.contains(u'\n') || text.contains(u'\r'))
        issues.append({address, field, eKind::LineEnd, text});
    if (Rfc4180Text::isFormula(text))
        issues.append({address, field, eKind::Formula, text});
}

} // namespace

QList<ExportIssue> ExportIssue::allOf(const QList<ExportLine> &lines)
{
    QList<ExportIssue> issues;
    for (const ExportLine &line : lines) {
        appendIssues(issues, line.place, eField::Name, line.name);
        appendIssues(issues, line.place, eField::Value, line.value);
    }
    return issues;
}

QString ExportIssue::toText() const
{
    const QString what = tr(KindTexts[int(kind)]);
    return field == eField::Name ? tr("Parameter %1: der Name %2").arg(address, what)
                                 : tr("Parameter %1: der Wert %2").arg(address, what);
}

QJsonObject ExportIssue::toJson() const
{
    return {{QStringLiteral("address"), address},
        {QStringLiteral("field"),
            field == eField::Name ? QStringLiteral("name") : QStringLiteral("value")},
        {QStringLiteral("kind"), QLatin1String(KindKeys[int(kind)])},
        {QStringLiteral("text"), text}};
}

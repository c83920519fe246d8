#include "snapshot/SnapshotHtmlReport.h"

#include <QtCore/QLatin1StringView>

namespace {

using eForm = SnapshotHtmlReport::eForm;

constexpr qsizetype EstimatedRowSize = 160;

QLatin1StringView escape(QChar character)
{
    switch (character.unicode()) {
    case u'<':
        return QLatin1StringView("&lt;");
    case u'>':
        return QLatin1StringView("&gt;");
    case u'&':
        return QLatin1StringView("&amp;");
    case u'"':
        return QLatin1StringView("&quot;");
    default:
        return {};
    }
}

/// As QString::toHtmlEscaped() does, without a text of its own.
void appendEscaped(QString &html, const QString &text)
{
    qsizetype begin = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QLatin1StringView escaped = escape(text.at(i));
        if (escaped.isNull())
            continue;
        html.append(QStringView(text).mid(begin, i - begin)).append(escaped);
        begin = i + 1;
    }
    html.append(QStringView(text).mid(begin));
}

void appendCell(QString &html, const SnapshotCell &cell)
{
    appendEscaped(html, cell.value->display);
    const SnapshotUnits *units = cell.value->units.data();
    if (!units || units->scaled.isEmpty())
        return;
    html.append(QLatin1Char(' '));
    appendEscaped(html, units->scaled);
}

/// Titles of rows are HTML but in the safe form.
void appendTitle(QString &html, const QString &title, eForm form)
{
    if (form == eForm::Safe)
        appendEscaped(html, title);
    else
        html.append(title);
}

QLatin1StringView documentHead(eForm form)
{
    switch (form) {
    case eForm::Report:
        break;
    case eForm::File:
        return QLatin1StringView("<meta charset=\"UTF-8\">");
    case eForm::Safe:
        return QLatin1StringView(
            "<head>\n<meta charset=\"UTF-8\">\n<meta http-equiv=\"Content-Security-Policy\" "
            "content=\"default-src 'none'\">\n</head>\n");
    }
    return {};
}

void appendTableHead(QString &html, const QStringList &columnTitles, eForm form)
{
    html.append(QLatin1StringView("<thead bgcolor=\"lightgrey\"><th  width=\"40%\">"));
    appendTitle(html, columnTitles.value(0), form);
    html.append(QLatin1StringView("</th>\n"));
    for (qsizetype column = 1; column < columnTitles.size(); ++column) {
        html.append(QLatin1StringView("<th width=\"30%\">"));
        appendEscaped(html, columnTitles.at(column));
        html.append(QLatin1StringView("</th>\n"));
    }
    html.append(QLatin1StringView("</thead>"));
}

void appendRow(QString &html, const SnapshotRow &row, int depth, qsizetype columnCount, eForm form)
{
    if (row.isHidden)
        return;
    html.append(QLatin1StringView("<tr><td>"));
    for (int level = 0; level < depth; ++level)
        html.append(QLatin1StringView("&nbsp;&nbsp;"));
    appendTitle(html, row.title, form);
    html.append(QLatin1StringView("</td>\n"));
    for (qsizetype column = 1; column < columnCount; ++column) {
        html.append(QLatin1StringView("<td>"));
        if (column <= row.cells.size())
            appendCell(html, row.cells.at(column - 1));
        html.append(QLatin1StringView("</td>\n"));
    }
    html.append(QLatin1StringView("</tr>"));
    for (const SnapshotRow &child : row.children)
        appendRow(html, child, depth + 1, columnCount, form);
}

} // namespace

QString SnapshotHtmlReport::document(const QString &header, const QStringList &columnTitles,
    const QList<SnapshotRow> &rows, eForm form)
{
    QString html;
    html.reserve(rows.size() * EstimatedRowSize);
    html.append(QLatin1StringView("<html>\n"))
        .append(documentHead(form))
        .append(QLatin1StringView("<body>\n"))
        .append(header)
        .append(QLatin1StringView("<br><br>\n<table border=\"1\" width=\"100%\">\n"));
    appendTableHead(html, columnTitles, form);
    for (const SnapshotRow &row : rows)
        appendRow(html, row, 0, columnTitles.size(), form);
    return html.append(QLatin1StringView("</table></body>\n</html>\n"));
}

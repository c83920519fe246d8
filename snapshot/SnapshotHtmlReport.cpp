#include "snapshot/SnapshotHtmlReport.h"

#include <QtCore/QLatin1StringView>

namespace {

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

void appendHead(QString &html, const QStringList &columnTitles)
{
    html.append(QLatin1StringView("<thead bgcolor=\"lightgrey\"><th  width=\"40%\">"))
        .append(columnTitles.value(0))
        .append(QLatin1StringView("</th>\n"));
    for (qsizetype column = 1; column < columnTitles.size(); ++column) {
        html.append(QLatin1StringView("<th width=\"30%\">"));
        appendEscaped(html, columnTitles.at(column));
        html.append(QLatin1StringView("</th>\n"));
    }
    html.append(QLatin1StringView("</thead>"));
}

void appendRow(QString &html, const SnapshotRow &row, int depth, qsizetype columnCount)
{
    if (row.isHidden)
        return;
    html.append(QLatin1StringView("<tr><td>"));
    for (int level = 0; level < depth; ++level)
        html.append(QLatin1StringView("&nbsp;&nbsp;"));
    html.append(row.title).append(QLatin1StringView("</td>\n"));
    for (qsizetype column = 1; column < columnCount; ++column) {
        html.append(QLatin1StringView("<td>"));
        if (column <= row.cells.size())
            appendEscaped(html, row.cells.at(column - 1).text);
        html.append(QLatin1StringView("</td>\n"));
    }
    html.append(QLatin1StringView("</tr>"));
    for (const SnapshotRow &child : row.children)
        appendRow(html, child, depth + 1, columnCount);
}

} // namespace

QString SnapshotHtmlReport::document(const QString &header, const QStringList &columnTitles,
    const QList<SnapshotRow> &rows, eCharsetLine charsetLine)
{
    QString html;
    html.reserve(rows.size() * EstimatedRowSize);
    html.append(QLatin1StringView("<html>\n"));
    if (charsetLine == eCharsetLine::With)
        html.append(QLatin1StringView("<meta charset=\"UTF-8\">"));
    html.append(QLatin1StringView("<body>\n"))
        .append(header)
        .append(QLatin1StringView("<br><br>\n<table border=\"1\" width=\"100%\">\n"));
    appendHead(html, columnTitles);
    for (const SnapshotRow &row : rows)
        appendRow(html, row, 0, columnTitles.size());
    return html.append(QLatin1StringView("</table></body>\n</html>\n"));
}

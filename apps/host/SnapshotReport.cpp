#include "apps/host/SnapshotReport.h"

#include <QtCore/QBuffer>
#include <QtGui/QPdfWriter>
#include <QtGui/QTextDocument>

SnapshotReport::SnapshotReport(const QString &heading, const QList<Column> &columns)
    : m_widget(nullptr)
{
    m_widget.setHtmlHeader(QStringLiteral("<h1>%1</h1>").arg(heading.toHtmlEscaped()));
    for (const Column &column : columns)
        m_widget.appendSnapshot(column.snapshot, column.title);
    m_widget.update();
}

QString SnapshotReport::safeDocument() const
{
    return m_widget.safeReport();
}

/// The widget's file differs from its report by the charset line alone.
QString SnapshotReport::exactDocument() const
{
    const QString begin = QStringLiteral("<html>\n");
    return begin + QStringLiteral("<meta charset=\"UTF-8\">") + m_widget.report().mid(begin.size());
}

QByteArray SnapshotReport::pdf() const
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setPageSize(QPageSize(QPageSize::A4));
    QTextDocument document;
    document.setHtml(safeDocument());
    document.print(&writer);
    return buffer.data();
}

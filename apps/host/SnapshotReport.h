#pragma once

#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

/// Snapshots side by side as a document. Needs an application with widgets, if only off the screen.
class SnapshotReport {
public:
    struct Column {
        QString title;
        /// **Owner** the caller.
        ParameterValueSnapshot *snapshot;
    };

    /// The heading is plain text.
    SnapshotReport(const QString &heading, const QList<Column> &columns);

    /// Names escaped, scripts and loading forbidden.
    QString safeDocument() const;
    /// Byte for byte what the comparison widget exports: names are HTML.
    QString exactDocument() const;
    /// The safe document on A4 pages.
    QByteArray pdf() const;

private:
    ParameterValueSnapshotWidget m_widget;
};

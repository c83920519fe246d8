#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>

#include <QtCore/QString>
#include <QtWidgets/QWidget>

class ParameterValueSnapshot;
class ParameterValueSnapshotWidgetPrivate;

/// Shows snapshots side by side, one value column each. With one snapshot it lists everything; with
/// several only what differs between neighbours.
class KrParameterInstance_EXPORT ParameterValueSnapshotWidget : public QWidget {
    Q_OBJECT

public:
    explicit ParameterValueSnapshotWidget(QWidget *parent);
    ~ParameterValueSnapshotWidget() override;

    /// Adds a column and its export button; the rows stay until update(). **Owner** the caller.
    void appendSnapshot(ParameterValueSnapshot *snapshot, QString title);
    /// Stands above the table of the report, as it is. Each call adds one more export button.
    void setHtmlHeader(QString header);
    /// Fills the rows anew.
    void update();
    bool isEmpty() const;
    /// The report as HTML, without charset line.
    QString report() const;
    /// The report as a document to hand on: its head names the charset and forbids scripts and
    /// loading, and the names in it are escaped. The header stands as it is.
    QString safeReport() const;

private:
    ParameterValueSnapshotWidgetPrivate *d;
};

#pragma once

#include <KrParameterInstance/KrParameterInstanceExport.h>

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <functional>

class ParameterValueSnapshot;
class ParameterValueSnapshotWidgetPrivate;

/// Shows snapshots side by side, one value column each. With one snapshot it lists everything; with
/// several only what differs between neighbours. When the language changes its buttons and its header
/// follow at once, its rows with update().
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
    /// As update(), told how far it has come: `done` rises from 0 to `total`. False where `advance`
    /// answered false, which ends it; no rows are left then. `advance` leaves this and its snapshots as
    /// they are.
    bool updateStepwise(const std::function<bool(qsizetype done, qsizetype total)> &advance);
    bool isEmpty() const;
    /// The report as HTML, without charset line.
    QString report() const;
    /// The report as a document to hand on: its head names the charset and forbids scripts and
    /// loading, and the names in it are escaped. The header stands as it is.
    QString safeReport() const;

private:
    ParameterValueSnapshotWidgetPrivate *d;
};

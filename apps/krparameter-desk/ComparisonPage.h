#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtWidgets/QWidget>

class ParameterValueSnapshot;
class ParameterValueSnapshotWidget;
class QLabel;
class QTreeWidgetItem;
class QVBoxLayout;

/// Shows snapshots side by side in the comparison widget. A click twice or Return leads to the
/// parameter of a row.
class ComparisonPage : public QWidget {
    Q_OBJECT

public:
    explicit ComparisonPage(QWidget *parent);

    /// As many names as snapshots; `header` stands above the report, as text. None: says how to get
    /// some. **Owner** of the snapshots the caller.
    void compare(const QList<ParameterValueSnapshot *> &snapshots, const QStringList &names,
        const QString &header);

Q_SIGNALS:
    void addressActivated(const ParameterAddress &address);

private:
    void onActivated(const QTreeWidgetItem *item);
    static QString summary(const QStringList &names, bool isEmpty);

    QVBoxLayout *m_layout;
    QLabel *m_summary;
    /// Null while nothing is compared.
    ParameterValueSnapshotWidget *m_widget = nullptr;
};

#pragma once

#include <KrParameterDefinition/ParameterAddress.h>

#include <QtWidgets/QWidget>

#include <memory>

class ParameterValueSnapshot;
class ParameterValueSnapshotWidget;
class Progress;
class QLabel;
class QTreeWidgetItem;
class QVBoxLayout;

/// Shows snapshots side by side in the comparison widget. A click twice or Return leads to the
/// parameter of a row.
class ComparisonPage : public QWidget {
    Q_OBJECT

public:
    explicit ComparisonPage(QWidget *parent);

    /// As many names as snapshots; `devices`, of which they were taken, stand above the report. None: as
    /// clear().
    /// Without progress nobody is told; where it ends the comparison, what was shown stays.
    /// **Owner** of the snapshots the caller.
    void compare(const QList<ParameterValueSnapshot *> &snapshots, const QStringList &names,
        const QStringList &devices, Progress *progress = nullptr);
    /// Says how to get a comparison.
    void clear();
    /// Of which the snapshots were taken that are shown.
    const QStringList &devices() const { return m_devices; }

Q_SIGNALS:
    void addressActivated(const ParameterAddress &address);

protected:
    /// What is shown stays, its texts follow the language.
    void changeEvent(QEvent *event) override;

private:
    enum class eContent { Nothing, Rows, NoDifference, NoVisibleDifference };

    void show(std::unique_ptr<ParameterValueSnapshotWidget> widget);
    void onActivated(const QTreeWidgetItem *item);
    static eContent contentOf(const ParameterValueSnapshotWidget &widget);
    void summarize();
    QString summary() const;

    QVBoxLayout *m_layout;
    QLabel *m_summary;
    /// Of what is shown.
    QStringList m_names;
    QStringList m_devices;
    eContent m_content = eContent::Nothing;
    /// Null while nothing is compared.
    ParameterValueSnapshotWidget *m_widget = nullptr;
};

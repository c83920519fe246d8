#pragma once

#include "snapshot/FillingProgress.h"
#include "snapshot/SnapshotHtmlReport.h"
#include "snapshot/SnapshotTreeFilling.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QTreeWidget>

#include <functional>
#include <memory>

class ParameterValueSnapshot;
class ParameterValueSnapshotWidget;
class QHBoxLayout;
class QPushButton;
class QVBoxLayout;

/// The tree inside the widget, with the buttons below it. **Owner** the widget.
class ParameterValueSnapshotWidgetPrivate : public QTreeWidget {
    Q_OBJECT

public:
    explicit ParameterValueSnapshotWidgetPrivate(ParameterValueSnapshotWidget *owner);
    ~ParameterValueSnapshotWidgetPrivate() override;

    void appendSnapshot(ParameterValueSnapshot *snapshot, const QString &title);
    void setHtmlHeader(const QString &header);
    /// False where `advance` ended it.
    bool refill(const FillingProgress::Advance &advance);
    bool isEmpty() const;
    QString document(SnapshotHtmlReport::eForm form) const;

    /// Asks for the name of a file to save: dialog parent, caption, start folder and name filter.
    /// An empty name: nothing is to be saved.
    std::function<QString(QWidget *, const QString &, const QString &, const QString &)>
        chooseSaveFile;

protected:
    /// Header and buttons follow the language; the rows stay as they are.
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void onExportButtonClicked();
    void onHtmlExportButtonClicked();

private:
    QPushButton *appendButton();
    void retranslate();
    QStringList shownTitles() const;
    QList<SnapshotRow> shownRows(const QTreeWidgetItem &parent) const;
    QList<ParameterValueSnapshot *> livingSnapshots() const;

    QString htmlHeader;
    QStringList titles;
    /// In the order of the titles. **Owner** the host; null where it deleted one.
    QList<QPointer<ParameterValueSnapshot>> snapshots;
    QList<ParameterCoordinate> shownCoordinates;
    /// What the tree shows.
    CoordinateItems coordinateItems;
    /// One for each title.
    QList<QPushButton *> columnButtons;
    QList<QPushButton *> htmlButtons;
    QVBoxLayout *outerLayout;
    /// Null until the first button. Ends with a spacer that keeps the buttons on the left.
    QHBoxLayout *buttonRow = nullptr;
};

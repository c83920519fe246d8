#include "snapshot/ParameterValueSnapshotWidgetPrivate.h"

#include "snapshot/SnapshotItem.h"
#include "snapshot/SnapshotRowComparison.h"
#include "snapshot/SnapshotRowModel.h"

#include <KrParameterInstance/ParameterValueSnapshot.h>
#include <KrParameterInstance/ParameterValueSnapshotWidget.h>
#include <KrSystem/System.h>
#include <LmUtilities/DefaultPathSetting.h>

#include <QtCore/QEvent>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QTextStream>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QPushButton>

#include <utility>

namespace {

constexpr char IndexProperty[] = "index";
constexpr int SpacerSize = 10;

QString saveFileName(
    QWidget *parent, const QString &caption, const QString &directory, const QString &filter)
{
    return QFileDialog::getSaveFileName(parent, caption, directory, filter);
}

} // namespace

ParameterValueSnapshotWidgetPrivate::ParameterValueSnapshotWidgetPrivate(
    ParameterValueSnapshotWidget *owner)
    : QTreeWidget(owner)
    , chooseSaveFile(saveFileName)
    , outerLayout(new QVBoxLayout(owner))
{
    outerLayout->setContentsMargins(0, 0, 0, 0);
    outerLayout->addWidget(this);
    setHeaderItem(new QTreeWidgetItem);
    setColumnCount(0);
    setSortingEnabled(false);
    setRootIsDecorated(true);
    setAlternatingRowColors(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
}

ParameterValueSnapshotWidgetPrivate::~ParameterValueSnapshotWidgetPrivate() = default;

void ParameterValueSnapshotWidgetPrivate::appendSnapshot(
    ParameterValueSnapshot *snapshot, const QString &title)
{
    QPushButton *button = appendButton();
    button->setProperty(IndexProperty, static_cast<int>(snapshots.size()));
    connect(button, &QPushButton::clicked, this,
        &ParameterValueSnapshotWidgetPrivate::onExportButtonClicked);
    snapshots.append(snapshot);
    titles.append(title);
    columnButtons.append(button);
    retranslate();
}

/// Deliberate: each call adds one more button.
void ParameterValueSnapshotWidgetPrivate::setHtmlHeader(const QString &header)
{
    htmlHeader = header;
    QPushButton *button = appendButton();
    connect(button, &QPushButton::clicked, this,
        &ParameterValueSnapshotWidgetPrivate::onHtmlExportButtonClicked);
    htmlButtons.append(button);
    retranslate();
}

bool ParameterValueSnapshotWidgetPrivate::refill(const FillingProgress::Advance &advance)
{
    clear();
    coordinateItems.clear();
    shownCoordinates.clear();
    if (snapshots.isEmpty())
        return true;
    setColumnCount(static_cast<int>(titles.size()) + 1);
    setHeaderLabels(QStringList(ParameterValueSnapshotWidget::tr("Parameter")) + titles);
    const SnapshotRowModel model(livingSnapshots(), System::information()->userAccessLevel());
    const QList<ParameterCoordinate> coordinates = model.coordinates();
    FillingProgress progress(advance);
    const auto table = std::make_shared<SnapshotTable>(model.table(coordinates, progress));
    SnapshotRowComparison::hideEqualRows(table->rows, titles.size());
    coordinateItems = SnapshotTreeFilling::fill(*this, table, progress);
    if (progress.isEnded())
        return false;
    shownCoordinates = coordinates;
    return true;
}

bool ParameterValueSnapshotWidgetPrivate::isEmpty() const
{
    return topLevelItemCount() == 0;
}

QString ParameterValueSnapshotWidgetPrivate::document(SnapshotHtmlReport::eForm form) const
{
    return SnapshotHtmlReport::document(
        htmlHeader, shownTitles(), shownRows(*invisibleRootItem()), form);
}

void ParameterValueSnapshotWidgetPrivate::changeEvent(QEvent *event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    // Nothing stands there before the first filling.
    if (columnCount() > 0)
        headerItem()->setText(0, ParameterValueSnapshotWidget::tr("Parameter"));
}

/// The widget may be gone when the dialog comes back, and with it the function that asked.
void ParameterValueSnapshotWidgetPrivate::onExportButtonClicked()
{
    const QPointer<ParameterValueSnapshotWidgetPrivate> self(this);
    const QPointer<QObject> button(sender());
    const auto choose = chooseSaveFile;
    const QString fileName = choose(System::instance()->mainWindow(),
        ParameterValueSnapshotWidget::tr("Parameterwerte exportieren"),
        DefaultPathSetting(DefaultPathSetting::ParameterValueExport).path(),
        ParameterValueSnapshotWidget::tr("Textdateien (*.txt)"));
    if (fileName.isEmpty() || !self || !button)
        return;
    bool isNumber = false;
    const int index = button->property(IndexProperty).toInt(&isNumber);
    if (!isNumber || index < 0 || index >= snapshots.size() || !snapshots.at(index))
        return;
    snapshots.at(index)->saveToTextFile(fileName, shownCoordinates);
}

void ParameterValueSnapshotWidgetPrivate::onHtmlExportButtonClicked()
{
    const QPointer<ParameterValueSnapshotWidgetPrivate> self(this);
    DefaultPathSetting directory(DefaultPathSetting::HtmlReport);
    const auto choose = chooseSaveFile;
    const QString fileName = choose(System::instance()->mainWindow(),
        ParameterValueSnapshotWidget::tr("Änderungen als HTML exportieren"), directory.path(),
        ParameterValueSnapshotWidget::tr("HTML-dateien (*.html)"));
    if (fileName.isEmpty() || !self)
        return;
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return;
    QTextStream stream(&file);
    stream.setEncoding(QStringConverter::Utf8);
    stream << document(SnapshotHtmlReport::eForm::File);
    directory.setPath(QFileInfo(fileName).absolutePath());
}

QPushButton *ParameterValueSnapshotWidgetPrivate::appendButton()
{
    if (!buttonRow) {
        buttonRow = new QHBoxLayout;
        outerLayout->addLayout(buttonRow);
    } else {
        delete buttonRow->takeAt(buttonRow->count() - 1);
    }
    auto *button = new QPushButton;
    buttonRow->addWidget(button);
    buttonRow->addItem(
        new QSpacerItem(SpacerSize, SpacerSize, QSizePolicy::Expanding, QSizePolicy::Fixed));
    return button;
}

void ParameterValueSnapshotWidgetPrivate::retranslate()
{
    for (qsizetype i = 0; i < columnButtons.size(); ++i) {
        columnButtons.at(i)->setText(
            ParameterValueSnapshotWidget::tr("Spalte \"%1\" exportieren").arg(titles.at(i)));
    }
    for (QPushButton *button : std::as_const(htmlButtons))
        button->setText(ParameterValueSnapshotWidget::tr("HTML exportieren"));
}

/// Those of the last filling; a column that was appended since is not among them.
QStringList ParameterValueSnapshotWidgetPrivate::shownTitles() const
{
    QStringList result;
    for (int column = 0; column < columnCount(); ++column)
        result.append(headerItem()->text(column));
    return result;
}

/// As the tree shows them, whoever sorted it or hid some of them.
QList<SnapshotRow> ParameterValueSnapshotWidgetPrivate::shownRows(
    const QTreeWidgetItem &parent) const
{
    const QModelIndex index = indexFromItem(&parent);
    QList<SnapshotRow> result;
    result.reserve(parent.childCount());
    for (int i = 0; i < parent.childCount(); ++i) {
        const auto *item = dynamic_cast<const SnapshotItem *>(parent.child(i));
        if (!item || isRowHidden(i, index))
            continue;
        SnapshotRow &shown = result.emplaceBack(item->row());
        shown.isHidden = false;
        if (!shown.children.isEmpty() || item->childCount() > 0)
            shown.children = shownRows(*item);
    }
    return result;
}

QList<ParameterValueSnapshot *> ParameterValueSnapshotWidgetPrivate::livingSnapshots() const
{
    QList<ParameterValueSnapshot *> result;
    result.reserve(snapshots.size());
    for (const QPointer<ParameterValueSnapshot> &snapshot : snapshots)
        result.append(snapshot);
    return result;
}

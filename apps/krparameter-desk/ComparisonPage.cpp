#include "apps/krparameter-desk/ComparisonPage.h"

#include "apps/host/Progress.h"
#include "apps/krparameter-desk/AddressInText.h"
#include "apps/krparameter-desk/SpaciousDelegate.h"

#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtCore/QEvent>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTreeWidget>

#include <utility>

namespace {

bool hasVisibleRow(const QTreeWidgetItem &parent)
{
    for (int i = 0; i < parent.childCount(); ++i) {
        const QTreeWidgetItem &row = *parent.child(i);
        if (!row.isHidden() && (row.childCount() == 0 || hasVisibleRow(row)))
            return true;
    }
    return false;
}

} // namespace

ComparisonPage::ComparisonPage(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
    , m_summary(new QLabel(this))
{
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_layout->addWidget(m_summary);
    m_layout->addStretch();
    clear();
}

void ComparisonPage::compare(const QList<ParameterValueSnapshot *> &snapshots,
    const QStringList &names, const QStringList &devices, Progress *progress)
{
    if (snapshots.isEmpty()) {
        clear();
        return;
    }
    // The widget takes columns and never gives them back.
    auto widget = std::make_unique<ParameterValueSnapshotWidget>(nullptr);
    for (qsizetype i = 0; i < snapshots.size(); ++i)
        widget->appendSnapshot(snapshots.at(i), names.at(i));
    widget->setHtmlHeader(devices.join(QStringLiteral(", ")).toHtmlEscaped());
    const auto advance = [progress](qsizetype done, qsizetype total) {
        return !progress || progress->advance(done, total);
    };
    if (!widget->updateStepwise(advance))
        return;
    m_names = names;
    m_devices = devices;
    m_content = contentOf(*widget);
    summarize();
    show(std::move(widget));
}

void ComparisonPage::clear()
{
    delete std::exchange(m_widget, nullptr);
    m_names.clear();
    m_devices.clear();
    m_content = eContent::Nothing;
    summarize();
}

void ComparisonPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        summarize();
}

void ComparisonPage::show(std::unique_ptr<ParameterValueSnapshotWidget> widget)
{
    delete std::exchange(m_widget, widget.release());
    m_layout->insertWidget(1, m_widget, 1);
    auto *tree = m_widget->findChild<QTreeWidget *>();
    connect(tree, &QTreeWidget::itemActivated, this, &ComparisonPage::onActivated);
    tree->setItemDelegate(new SpaciousDelegate(tree));
    tree->expandAll();
    for (int column = 0; column < tree->columnCount(); ++column)
        tree->resizeColumnToContents(column);
}

void ComparisonPage::onActivated(const QTreeWidgetItem *item)
{
    const ParameterAddress address = AddressInText::ofTitle(item->text(0));
    if (address.isValid())
        Q_EMIT addressActivated(address);
}

/// Rows may all be hidden: what differs reads the same, or the user may not read it.
ComparisonPage::eContent ComparisonPage::contentOf(const ParameterValueSnapshotWidget &widget)
{
    if (widget.isEmpty())
        return eContent::NoDifference;
    const auto *tree = widget.findChild<QTreeWidget *>();
    return hasVisibleRow(*tree->invisibleRootItem()) ? eContent::Rows
                                                     : eContent::NoVisibleDifference;
}

void ComparisonPage::summarize()
{
    m_summary->setText(summary());
}

QString ComparisonPage::summary() const
{
    if (m_content == eContent::Nothing)
        return tr("Noch kein Vergleich. Ein Snapshot hält alle Werte fest; ausgewählte "
                  "stehen hier nebeneinander.");
    if (m_names.size() == 1)
        return tr("Alle Werte von \"%1\"").arg(m_names.first());
    const QString chain = m_names.join(QStringLiteral(" → "));
    switch (m_content) {
    case eContent::NoDifference:
        return tr("%1: kein Unterschied").arg(chain);
    case eContent::NoVisibleDifference:
        return tr("%1: kein Unterschied, der zu sehen ist. Was sich unterscheidet, liest sich "
                  "gleich, oder "
                  "die Zugriffsstufe reicht dafür nicht aus.")
            .arg(chain);
    default:
        return tr("%1: was sich ändert").arg(chain);
    }
}

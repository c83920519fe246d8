#include "apps/krparameter-desk/ComparisonPage.h"

#include "apps/krparameter-desk/AddressInText.h"
#include "apps/krparameter-desk/SpaciousDelegate.h"

#include <KrParameterInstance/ParameterValueSnapshotWidget.h>

#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QTreeWidget>

ComparisonPage::ComparisonPage(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
    , m_summary(new QLabel(this))
{
    m_summary->setTextFormat(Qt::PlainText);
    m_summary->setWordWrap(true);
    m_layout->addWidget(m_summary);
    m_layout->addStretch();
    compare({}, {}, {});
}

void ComparisonPage::compare(const QList<ParameterValueSnapshot *> &snapshots,
    const QStringList &names, const QString &header)
{
    // The widget takes columns and never gives them back.
    delete m_widget;
    m_widget = nullptr;
    if (snapshots.isEmpty()) {
        m_summary->setText(tr("Noch kein Snapshot ausgewählt. Ein Snapshot hält alle Werte fest; "
                              "ausgewählte stehen hier nebeneinander."));
        return;
    }
    m_widget = new ParameterValueSnapshotWidget(this);
    for (qsizetype i = 0; i < snapshots.size(); ++i)
        m_widget->appendSnapshot(snapshots.at(i), names.at(i));
    m_widget->setHtmlHeader(header.toHtmlEscaped());
    m_widget->update();
    m_summary->setText(summary(names, m_widget->isEmpty()));
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
    const ParameterAddress address = AddressInText::find(item->text(0));
    if (address.isValid())
        Q_EMIT addressActivated(address);
}

QString ComparisonPage::summary(const QStringList &names, bool isEmpty)
{
    if (names.size() == 1)
        return tr("Alle Werte von \"%1\"").arg(names.first());
    const QString chain = names.join(QStringLiteral(" → "));
    return isEmpty ? tr("%1: kein Unterschied").arg(chain) : tr("%1: was sich ändert").arg(chain);
}

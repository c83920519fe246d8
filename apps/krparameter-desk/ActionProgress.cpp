#include "apps/krparameter-desk/ActionProgress.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QProgressBar>

namespace {

constexpr int GreatestLabelWidth = 320;
constexpr int BarWidth = 140;

} // namespace

ActionProgress::ActionProgress(QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // What has room to spare keeps name and bar together.
    layout->addStretch();
}

void ActionProgress::add(const ValuePlace &control, const QString &label)
{
    remove(control);
    auto *row = new QWidget(this);
    auto *name = new QLabel(row);
    name->setTextFormat(Qt::PlainText);
    name->setText(name->fontMetrics().elidedText(label, Qt::ElideRight, GreatestLabelWidth));
    auto *bar = new QProgressBar(row);
    bar->setFixedWidth(BarWidth);
    bar->setAccessibleName(label);
    bar->setValue(0);
    row->setToolTip(label);
    auto *rowLayout = new QHBoxLayout(row);
    rowLayout->setContentsMargins(0, 0, 8, 0);
    rowLayout->addWidget(name);
    rowLayout->addWidget(bar);
    layout()->addWidget(row);
    m_bars.insert(control, bar);
}

void ActionProgress::set(const ValuePlace &control, int percent)
{
    if (QProgressBar *bar = m_bars.value(control))
        bar->setValue(qBound(bar->minimum(), percent, bar->maximum()));
}

void ActionProgress::remove(const ValuePlace &control)
{
    if (const QProgressBar *bar = m_bars.take(control))
        delete bar->parentWidget();
}

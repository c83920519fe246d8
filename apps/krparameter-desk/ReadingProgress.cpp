#include "apps/krparameter-desk/ReadingProgress.h"

#include "apps/krparameter-desk/DelayedProgress.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QToolButton>

namespace {

constexpr int BarWidth = 140;
constexpr int Steps = 1000;

} // namespace

ReadingProgress::ReadingProgress(QWidget *parent)
    : QWidget(parent)
    , m_bar(new QProgressBar(this))
    , m_cancel(new QToolButton(this))
{
    m_bar->setFixedWidth(BarWidth);
    m_bar->setRange(0, Steps);
    m_cancel->setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    m_delay.setSingleShot(true);
    m_delay.setInterval(DelayedProgress::Delay);
    connect(&m_delay, &QTimer::timeout, this, &QWidget::show);
    connect(m_cancel, &QToolButton::clicked, this, &ReadingProgress::cancelled);
    hide();
}

void ReadingProgress::set(qsizetype done, qsizetype total)
{
    m_bar->setValue(total > 0 ? int(qint64(done) * Steps / total) : 0);
    if (isHidden() && !m_delay.isActive())
        m_delay.start();
}

void ReadingProgress::end()
{
    m_delay.stop();
    hide();
}

void ReadingProgress::retranslate()
{
    m_bar->setAccessibleName(tr("Vom Antrieb gelesen"));
    m_cancel->setText(tr("Abbrechen"));
    m_cancel->setToolTip(tr("Geht offline"));
}

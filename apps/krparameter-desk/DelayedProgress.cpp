#include "apps/krparameter-desk/DelayedProgress.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QProgressDialog>

namespace {

constexpr int Steps = 1000;

} // namespace

DelayedProgress::DelayedProgress(QWidget *parent, const QString &title, const Clock &clock)
    : m_parent(parent)
    , m_title(title)
    , m_clock(clock)
    , m_start(clock())
    , m_lastShown(m_start)
{
}

DelayedProgress::~DelayedProgress() = default;

bool DelayedProgress::advance(qsizetype done, qsizetype total)
{
    const std::chrono::milliseconds now = m_clock();
    if (now - m_start < Delay)
        return true;
    if (!m_dialog)
        show();
    else if (now - m_lastShown < Pace)
        return !m_dialog->wasCanceled();
    m_lastShown = now;
    // The last step would close the dialog, while the job may have a second round.
    m_dialog->setValue(total > 0 ? int(qint64(done) * (Steps - 1) / total) : 0);
    QCoreApplication::processEvents();
    return !m_dialog->wasCanceled();
}

DelayedProgress::Clock DelayedProgress::monotonic()
{
    return [] {
        return std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::steady_clock::now().time_since_epoch());
    };
}

void DelayedProgress::show()
{
    m_dialog = std::make_unique<QProgressDialog>(
        m_title, QCoreApplication::translate("DelayedProgress", "Abbrechen"), 0, Steps, m_parent);
    m_dialog->setWindowTitle(m_title);
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setMinimumDuration(0);
    m_dialog->show();
}

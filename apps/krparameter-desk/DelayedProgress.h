#pragma once

#include "apps/host/Progress.h"

#include <QtCore/QString>

#include <chrono>
#include <functional>
#include <memory>

class QProgressDialog;
class QWidget;

/// Shows how far a job has come, with a button to cancel it, once the job takes longer than half a
/// second.
class DelayedProgress final : public Progress {
public:
    static constexpr std::chrono::milliseconds Delay {500};
    /// The dialog is painted and asked for clicks this often at most.
    static constexpr std::chrono::milliseconds Pace {40};

    using Clock = std::function<std::chrono::milliseconds()>;

    /// `parent` may be null. The clock tells the time since any fixed moment.
    DelayedProgress(QWidget *parent, const QString &title, const Clock &clock = monotonic());
    ~DelayedProgress();
    Q_DISABLE_COPY_MOVE(DelayedProgress)

    bool advance(qsizetype done, qsizetype total) override;

private:
    static Clock monotonic();
    void show();

    QWidget *m_parent;
    QString m_title;
    Clock m_clock;
    std::chrono::milliseconds m_start;
    std::chrono::milliseconds m_lastShown;
    /// Null until the job takes long.
    std::unique_ptr<QProgressDialog> m_dialog;
};

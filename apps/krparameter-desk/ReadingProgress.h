#pragma once

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

class QProgressBar;
class QToolButton;

/// How many values of the drive are read, as a bar with a button to cancel. To be seen once that takes
/// longer than half a second.
class ReadingProgress : public QWidget {
    Q_OBJECT

public:
    explicit ReadingProgress(QWidget *parent);

    void set(qsizetype done, qsizetype total);
    /// Nothing is being read.
    void end();
    void retranslate();

Q_SIGNALS:
    void cancelled();

private:
    QProgressBar *m_bar;
    QToolButton *m_cancel;
    /// Runs until the bar is shown.
    QTimer m_delay;
};

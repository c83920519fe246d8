#pragma once

#include "apps/host/ValuePlace.h"

#include <QtCore/QHash>
#include <QtWidgets/QWidget>

class QProgressBar;

/// How far the actions of the drive are: name and bar of each one that runs.
class ActionProgress : public QWidget {
    Q_OBJECT

public:
    explicit ActionProgress(QWidget *parent);

    /// A label that is too long is cut; the tool tip has it whole.
    void add(const ValuePlace &control, const QString &label);
    /// **Unit** percent. Nothing where there is no bar.
    void set(const ValuePlace &control, int percent);
    void remove(const ValuePlace &control);

private:
    /// Each in a widget of its own, with its name.
    QHash<ValuePlace, QProgressBar *> m_bars;
};

#pragma once

#include <QtWidgets/QLabel>

/// Says beside a field why its text was refused, or what of it was corrected.
class RejectionNote : public QLabel {
    Q_OBJECT

public:
    /// Hidden at first; lies in the parent.
    explicit RejectionNote(QWidget *parent);

    /// Stands below the field, above it where there is no room, and always inside the parent.
    void showBeside(const QRect &field, const QString &message);
};

#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// The texts that tell a user why a value text was refused.
class RejectionReport {
    Q_DECLARE_TR_FUNCTIONS(RejectionReport)

public:
    /// Answers of the firmware's value check.
    enum eCode : quint32 { Acceptable = 0, Invalid = 1, TooSmall = 2, TooLarge = 3 };

    /// Empty for Acceptable; every code without text of its own is Invalid's.
    static QString problemText(const QString &shownValue, quint32 code);

    /// What went wrong when a display text was adopted at an address.
    static QString adoptingMessage(const QString &addressText, const QString &problem);

    /// What went wrong when a value text was prepared for display.
    static QString preparingMessage(const QString &addressText, const QString &problem);

    /// The message about a value that the firmware's check refused. The shown value is the
    /// corrected one in its display form.
    static QString rejectionMessage(
        const QString &addressText, const QString &shownValue, quint32 code);
};

#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

/// What confines a value beyond its type.
struct ValueBounds {
    /// Native texts; one that is empty or no number of the type confines nothing.
    QString lowerLimit;
    QString upperLimit;
    /// Ascending. Empty: the value is no choice.
    QList<qint32> choiceKeys;
};

#pragma once

#include <QtCore/QString>

/// One key with its value.
struct EdsEntry {
    QString key;
    /// Without surrounding blanks.
    QString value;
    int line = 0;
};

#pragma once

#include <QtCore/QChar>
#include <QtCore/QList>
#include <QtCore/QString>

/// One option of the command line.
struct Option {
    /// Without "--".
    QString name;
    /// Names the value in help texts; empty: the option takes none.
    QString valueName;
    QString help;
    /// The letter of its short form "-x"; null where there is none.
    QChar letter = QChar();

    bool takesValue() const { return !valueName.isEmpty(); }
};

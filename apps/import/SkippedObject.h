#pragma once

#include <QtCore/QString>

#include <optional>

/// An object or sub-object of the file that yields no parameter or element.
struct SkippedObject {
    quint16 index = 0;
    /// Empty for a whole object.
    std::optional<quint8> subIndex;
    /// Counted from 1; 0 where no line is to blame.
    int line = 0;
    /// In the language of the user.
    QString reason;

    /// "0x1F22", "0x1018 sub 3".
    QString place() const
    {
        const QString object = QStringLiteral("0x%1").arg(
            QStringLiteral("%1").arg(index, 4, 16, QLatin1Char('0')).toUpper());
        return subIndex ? QStringLiteral("%1 sub %2").arg(object).arg(*subIndex) : object;
    }
};

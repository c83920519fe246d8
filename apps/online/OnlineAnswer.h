#pragma once

#include <QtCore/QList>
#include <QtCore/QString>

/// What became of one request.
struct OnlineAnswer {
    enum class eKind {
        Good,
        Busy, ///< The drive asks to come again.
        Refused, ///< The drive will not do it.
        Lost, ///< No answer, or none that can be read.
    };

    eKind kind = eKind::Lost;
    /// Of a read that is good.
    QList<quint16> registers;
    /// For the user; empty where it is good.
    QString reason;
};

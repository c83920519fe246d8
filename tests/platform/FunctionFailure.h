#pragma once

#include "tests/support/MessageRecorder.h"

#include <QtCore/QString>

/// Of function 1 of the element of a FunctionStand.
inline QString failure(const QString &kind, const QString &reason)
{
    return QStringLiteral("%1 function 1 of parameter D10, element 0: %2").arg(kind, reason);
}

inline void expectFailure(MessageRecorder &recorder, const QString &kind, const QString &reason)
{
    recorder.expect(
        MessageRecorder::eSeverity::Critical, QStringLiteral("Device"), failure(kind, reason));
}

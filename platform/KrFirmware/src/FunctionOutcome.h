#pragma once

#include <QtCore/QString>
#include <QtCore/QVariant>

#include <array>

/// What a call of a firmware function ended with.
struct FunctionOutcome {
    enum class eEnd {
        Returned,
        /// With a reason to report.
        Failed,
        /// Because of something that another call reports, or of nothing to be reported.
        Stopped,
    };

    eEnd end = eEnd::Stopped;
    /// The first two values, missing ones invalid: bool, qlonglong, double or QString. A value of
    /// another type is held as the name of its type in a QByteArray.
    std::array<QVariant, 2> values;
    /// English.
    QString reason;
};

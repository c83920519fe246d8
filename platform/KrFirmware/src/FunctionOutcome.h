#pragma once

#include <QtCore/QString>

#include <array>
#include <variant>

/// A value of a type that functions do not answer with, by the name of its type.
struct FunctionValueType {
    const char *name;
};

/// What a function returns. Nothing: nil, or not returned at all.
using FunctionValue =
    std::variant<std::monostate, bool, qint64, double, QString, FunctionValueType>;

/// What a call of a firmware function ended with.
struct FunctionOutcome {
    enum class eEnd {
        Returned,
        /// With a reason to report.
        Failed,
        /// Because of something that another call reports, or of nothing to be reported.
        Stopped,
    };

    bool hasReturned() const { return end == eEnd::Returned; }

    eEnd end = eEnd::Stopped;
    std::array<FunctionValue, 2> values;
    /// English.
    QString reason;
};

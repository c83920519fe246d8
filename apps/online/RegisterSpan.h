#pragma once

#include <QtCore/QtGlobal>

/// Consecutive registers of one unit.
struct RegisterSpan {
    quint8 unit = 0;
    quint16 first = 0;
    quint16 count = 0;

    /// Behind the last register; up to 65536.
    int end() const { return first + count; }

    friend bool operator==(const RegisterSpan &, const RegisterSpan &) = default;
};

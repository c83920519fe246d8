#pragma once

#include <QtCore/QtGlobal>

/// Answers of a value check.
enum class eCheckResult : quint32 {
    Acceptable = 0,
    Invalid = 1,
    TooSmall = 2,
    TooLarge = 3,
};

#pragma once

#include <QtCore/QtGlobal>

/// Firmware functions that run for their effect.
enum class eFunctionKind : quint32 {
    Preread = 0,
    Prewrite = 1,
    Postwrite = 2,
    Postread = 3,
};

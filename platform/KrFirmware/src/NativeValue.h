#pragma once

#include "FunctionOutcome.h"

#include <QtCore/QString>
#include <QtCore/QVariant>

class CallbackProvider;
class SimpleType;

/// Native texts as the values that functions compute with, and back.
class NativeValue {
public:
    /// Integer types: qlonglong, where 64 signed bits hold the number. Floating-point types:
    /// double. Anything else, and what is no number, as the text. `type` may be null.
    static QVariant read(const QString &nativeText, const SimpleType *type);
    /// The container's value of the element, read by the type that the container has for it.
    static QVariant ask(
        CallbackProvider &callbacks, int livingSpace, quint16 coordinate, quint16 element);
    /// Plain decimals of a number, a text as it stands; empty for anything else.
    static QString write(const FunctionValue &value);
};

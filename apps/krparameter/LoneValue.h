#pragma once

#include <QtCore/qglobal.h>

class ParameterInformation;

/// Whether anything else of a device says what a value means, or changes with it: a pure function.
namespace LoneValue {

/// No function of the device belongs to it or is led to by it, its units stand in its definition, and it
/// maps no other parameter. A function is a program that may read any value and write any.
bool isLone(const ParameterInformation &parameter, quint16 element);

} // namespace LoneValue

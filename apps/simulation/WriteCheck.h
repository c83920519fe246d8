#pragma once

#include <QtCore/QByteArray>

class ParameterInformation;
struct MappedValue;

/// Whether a drive takes the bytes of a value: numbers within limits and choices, everything else.
namespace WriteCheck {

/// **Encoding** of the bytes big-endian. **Range** as many as the value's type has.
bool accepts(
    const ParameterInformation &parameter, const MappedValue &value, const QByteArray &bytes);

} // namespace WriteCheck

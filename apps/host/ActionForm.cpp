#include "apps/host/ActionForm.h"

#include <KrParameterInstance/ParameterInformation.h>

namespace {

using P = eParameterProperty;

constexpr quint16 ControlElement = 0;
constexpr quint16 ProgressElement = 1;
constexpr quint16 ResultElement = 2;
constexpr int RequiresEnableOff = 1;

bool isWithoutStorage(const ParameterInformation &parameter, quint16 element, bool isReadOnly)
{
    return parameter.elementProperty(element, P::MemoryAllocation).asInt32() == 1
        && (parameter.elementProperty(element, P::NoWrite).asInt32() != 0) == isReadOnly;
}

/// Other records begin with a command too: an error history with the number of its entries, which a
/// written 0 deletes.
bool isSwitch(const ParameterInformation &parameter, quint16 element)
{
    const ParameterProperty lower = parameter.elementProperty(element, P::LowerLimitValue);
    const ParameterProperty upper = parameter.elementProperty(element, P::UpperLimitValue);
    return lower.isValid() && upper.isValid() && lower.asInt32() == 0 && upper.asInt32() == 1;
}

} // namespace

bool ActionForm::isAction(const ParameterInformation &parameter)
{
    return parameter.isRecordParameter() && isWithoutStorage(parameter, ControlElement, false)
        && isSwitch(parameter, ControlElement) && isWithoutStorage(parameter, ProgressElement, true)
        && isWithoutStorage(parameter, ResultElement, true);
}

bool ActionForm::needsDisabledAxis(const ParameterInformation &parameter)
{
    return parameter.elementProperty(ControlElement, P::EnableOffRequired).asInt32()
        == RequiresEnableOff;
}

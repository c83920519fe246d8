#include "apps/host/DeviceState.h"

#include <KrParameterInstance/ParameterContainer.h>

const ParameterCoordinate &DeviceState::coordinate()
{
    static const ParameterCoordinate state(QStringLiteral("E48"));
    return state;
}

int DeviceState::read(const ParameterContainer &container, eLivingSpace livingSpace)
{
    bool isNumber = false;
    const int state =
        container.readValueNative(livingSpace, coordinate(), 0, false).toInt(&isNumber);
    return isNumber ? state : -1;
}

void DeviceState::write(ParameterContainer &container, eLivingSpace livingSpace, int state)
{
    container.writeValueNative(livingSpace, coordinate(), 0, QString::number(state));
}

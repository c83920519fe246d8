#include "RunningChange.h"

#include <KrFirmware/CallbackProvider.h>

QString RunningChange::of(CallbackProvider *callbacks)
{
    return callbacks ? callbacks->containerText(QStringLiteral("change")) : QString();
}

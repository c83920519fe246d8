#include "apps/krparameter-desk/WriteObstacle.h"

#include "apps/host/ValuePlace.h"

#include <KrParameterInstance/ParameterContainer.h>
#include <KrParameterInstance/ParameterInformation.h>
#include <KrSystem/System.h>

namespace {

/// Kind of the choices that are written online only.
constexpr int OnlineChoice = 2;

} // namespace

WriteObstacle::eKind WriteObstacle::kindOf(const Facts &facts)
{
    if (facts.isNeverWritten)
        return eKind::NeverWritten;
    if (qint64(facts.writeLevel) > qint64(facts.userLevel))
        return eKind::Level;
    if (facts.isReadOnly)
        return eKind::ReadOnly;
    if (facts.isConnecting)
        return eKind::Connecting;
    if (facts.isOffline)
        return eKind::OnlineOnly;
    return facts.isWritable ? eKind::None : eKind::Unexplained;
}

QString WriteObstacle::text(
    const ParameterInformation &parameter, const ValuePlace &place, bool isConnecting)
{
    const bool isWritable = parameter.isWritable(place.livingSpace, place.element);
    if (isWritable && !isConnecting)
        return {};
    const int level = parameter.writeLevel(place.element);
    const eKind kind = kindOf({
        .isConnecting = isConnecting,
        .isWritable = isWritable,
        .isReadOnly = parameter.parameterContainer()->isReadOnly(),
        .isNeverWritten =
            parameter.elementProperty(place.element, eParameterProperty::NoWrite).asInt32() != 0,
        .isOffline = parameter.kind(place.element) == OnlineChoice
            && !parameter.parameterContainer()->isOnline(),
        .writeLevel = level,
        .userLevel = System::information()->userAccessLevel(),
    });
    const QString address = place.addressText(parameter);
    switch (kind) {
    case eKind::None:
        break;
    case eKind::Connecting:
        return tr("%1 ist noch nicht schreibbar: Der Antrieb wird verbunden, und seine Werte "
                  "ersetzen gleich alle. F9 bricht das ab.")
            .arg(address);
    case eKind::ReadOnly:
        return tr("%1 ist nicht schreibbar: Das Gerät ist auf nur lesen gestellt (F8).")
            .arg(address);
    case eKind::NeverWritten:
        return tr("%1 wird nur gelesen.").arg(address);
    case eKind::Level:
        return tr("%1 ist erst ab Zugriffsstufe %2 schreibbar.").arg(address).arg(level);
    case eKind::OnlineOnly:
        return tr("%1 ist nur online schreibbar.").arg(address);
    case eKind::Unexplained:
        return tr("%1 ist jetzt nicht schreibbar.").arg(address);
    }
    return {};
}

#include <KrSystem/SystemInformation.h>

void SystemInformation::setUserAccessLevel(quint32 level)
{
    if (level == m_userAccessLevel)
        return;
    m_userAccessLevel = level;
    Q_EMIT userAccessLevelParameterChanged();
}

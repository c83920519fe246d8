#pragma once

#include <KrSystem/KrSystemExport.h>

#include <QtCore/QObject>

/// The current user: one access level serves reading, writing and every other question. 0 at start.
class KrSystem_EXPORT SystemInformation : public QObject {
    Q_OBJECT

public:
    /// **Range** 0 (operator) to 6 (maker) and above.
    quint32 userAccessLevel() const { return m_userAccessLevel; }
    /// **Emits** userAccessLevelParameterChanged where the level differs.
    void setUserAccessLevel(quint32 level);

Q_SIGNALS:
    void userAccessLevelParameterChanged();

private:
    friend class System;
    SystemInformation() = default;

    quint32 m_userAccessLevel = 0;
};

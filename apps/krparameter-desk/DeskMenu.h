#pragma once

#include "apps/krparameter-desk/DeskActions.h"

#include <QtCore/QList>

class QMenu;
class QMenuBar;

/// The menus of the desk.
class DeskMenu : public QObject {
    Q_OBJECT

public:
    /// **Owner** of the actions the caller.
    DeskMenu(QMenuBar &bar, const DeskActions &actions);

    void retranslate();

private:
    QList<QMenu *> m_menus;
};

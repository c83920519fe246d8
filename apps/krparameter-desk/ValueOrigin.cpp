#include "apps/krparameter-desk/ValueOrigin.h"

void ValueOrigin::forget()
{
    m_drive.clear();
    m_folderDrive.clear();
}

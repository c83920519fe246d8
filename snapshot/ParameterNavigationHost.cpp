#include <KrParameterInstance/ParameterNavigationHost.h>

ParameterNavigationHost::ParameterNavigationHost(QObject *parent)
    : QObject(parent)
{
}

ParameterNavigationHost::~ParameterNavigationHost() = default;

#include <KrParameterInstance/ParameterSetup.h>

ParameterSetup::ParameterSetup(QObject *parent)
    : ParameterInformation(parent)
{
}

ParameterSetup::~ParameterSetup() = default;

#include <KrParameterInstance/ParameterInformation.h>

ParameterInformation::ParameterInformation(QObject *parent)
    : QObject(parent)
{
}

ParameterInformation::~ParameterInformation() = default;

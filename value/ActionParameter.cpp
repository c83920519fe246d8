#include <KrParameterInstance/ActionParameter.h>

ActionParameter::ActionParameter(QObject *parent)
    : QObject(parent)
{
}

ActionParameter::~ActionParameter() = default;

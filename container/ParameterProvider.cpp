#include <KrParameterInstance/ParameterProvider.h>

ParameterProvider::ParameterProvider(QObject *parent)
    : QObject(parent)
{
}

ParameterProvider::~ParameterProvider() = default;

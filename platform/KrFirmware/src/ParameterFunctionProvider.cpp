#include <KrFirmware/ParameterFunctionProvider.h>

ParameterFunctionProvider::~ParameterFunctionProvider() = default;
